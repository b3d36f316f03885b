#include "platform/jet/wordings.h"

#include <QRegularExpression>

#include <sqlite3.h>

#include <iterator>

namespace jet {

namespace {

struct Wording
{
    const char* engine; // the engine's message; its groups, and then the file, fill the places of the description
    const char* description;
};

constexpr Wording wordings[]{
    // Names
    {"no such table: (.+)", "A tabela \"%1\" não existe na BDP \"%2\"."},
    {"no such (?:table )?column: (.+)", "A coluna \"%1\" não existe nas tabelas da instrução."},
    {"table (.+) has no column named (.+)", "A coluna \"%2\" não existe na tabela \"%1\"."},
    {"no such function: (.+)", "A função \"%1\" não existe."},
    {"'(.+)' is not a function", "A função \"%1\" não existe."},
    {"no such view: (.+)", "A vista \"%1\" não existe na BDP."},
    {"no such index: (.+)", "O índice \"%1\" não existe na BDP."},
    {"no such trigger: (.+)", "O gatilho \"%1\" não existe na BDP."},
    {"no such collation sequence: (.+)", "A ordem alfabética \"%1\" não existe."},
    {"no such module: (.+)", "A BDP usa o módulo \"%1\", que não existe."},
    {"no such savepoint: (.+)", "A transacção \"%1\" não existe."},
    {"no such window: (.+)", "A janela \"%1\" não existe na instrução."},
    {"(?:no such|unknown) database:? ?(.+)", "A base de dados \"%1\" não está aberta."},
    {"no such vfs: (.+)", "O sistema de ficheiros \"%1\" não existe."},
    {"ambiguous column name: (.+)", "A coluna \"%1\" existe em mais de uma das tabelas da instrução."},
    {"ambiguous reference to (.+) in USING\\(\\)", "A coluna \"%1\" existe em mais de uma das tabelas da instrução."},
    {"duplicate column name: (.+)", "A coluna \"%1\" já existe na tabela."},
    {"duplicate WITH table name: (.+)", "O nome \"%1\" está duas vezes na instrução."},
    {"table \"?(.+?)\"? already exists", "A tabela \"%1\" já existe na BDP."},
    {"view \"?(.+?)\"? already exists", "A vista \"%1\" já existe na BDP."},
    {"index (.+) already exists", "O índice \"%1\" já existe na BDP."},
    {"trigger \"?(.+?)\"? already exists", "O gatilho \"%1\" já existe na BDP."},
    {"there is already (?:an index|a table|another table or index)(?: with this name:| named) (.+)",
     "Já existe na BDP uma tabela ou um índice com o nome \"%1\"."},
    {"object name reserved for internal use: (.+)", "O nome \"%1\" é reservado ao motor da base de dados."},
    {"cannot join using column (.+) - column not present in both tables",
     "A coluna \"%1\" não existe nas duas tabelas da ligação."},

    // How a statement is written
    {"near \"(.*)\": syntax error", "Erro de sintaxe na instrução, junto de \"%1\"."},
    {"unrecognized token: \"(.*)\"", "Erro de sintaxe na instrução, junto de \"%1\"."},
    {"syntax error after column name \"(.*)\"", "Erro de sintaxe na instrução, depois da coluna \"%1\"."},
    {"syntax error", "Erro de sintaxe na instrução."},
    {"incomplete input", "A instrução está incompleta."},
    {"no tables specified", "A instrução não diz de que tabela."},
    {"(.+) clause should come after (.+) not before", "Na instrução, \"%1\" vem depois de \"%2\"."},
    {"a JOIN clause is required before (.+)", "Na instrução falta uma ligação de tabelas antes de \"%1\"."},
    {"a NATURAL join may not have an ON or USING clause", "A instrução diz duas vezes como se ligam as tabelas."},
    {"unknown join type: (.+)", "A ligação de tabelas \"%1\" não existe."},
    {"wrong number of arguments to function (.+)", "A função %1 não leva esse número de argumentos."},
    {"too many arguments on (?:function )?(.+?)(?: - max \\d+)?", "A função %1 não leva esse número de argumentos."},
    {"misuse of (?:aliased )?(?:aggregate|window)(?: function|:)? (.+)",
     "A função %1 não pode estar nesse lugar da instrução."},
    {"aggregate functions are not allowed in the GROUP BY clause",
     "Um grupo não pode ser feito pelo resultado de outro."},
    {"(?:non-deterministic|unsafe) use of (.+?)(?:\\(\\))?(?: in .+)?",
     "A BDP usa num lugar que não pode ser a função ou a tabela \"%1\"."},
    {"unable to use function (.+) in the requested context",
     "A função \"%1\" não pode estar nesse lugar da instrução."},
    {"not authorized to use function: (.+)", "A função \"%1\" não é permitida."},
    {"access to (.+) is prohibited", "O acesso a \"%1\" não é permitido."},
    {"access to view \"(.+)\" prohibited", "O acesso à vista \"%1\" não é permitido."},
    {"not authorized", "A instrução não é permitida."},
    {".+ prohibited in .+", "A instrução tem uma parte num lugar que não pode ser."},
    {"row value misused", "Há vários valores onde a instrução leva um só."},
    {"(\\d+) values for (\\d+) columns", "A instrução dá %1 valores para %2 colunas."},
    {"(\\d+) columns assigned (\\d+) values", "A instrução dá %2 valores para %1 colunas."},
    {"table (.+) has (\\d+) columns but (\\d+) values were supplied",
     "A tabela \"%1\" tem %2 colunas, mas a instrução dá %3 valores."},
    {"table (.+) has (\\d+) values for (\\d+) columns", "A tabela \"%1\" dá %2 valores para %3 colunas."},
    {"expected (\\d+) columns for '(.+)' but got (\\d+)", "\"%2\" dá %3 colunas em vez de %1."},
    {"sub-select returns (\\d+) columns - expected (\\d+)", "A subconsulta dá %1 colunas em vez de %2."},
    {"IN\\(\\.\\.\\.\\) element has (\\d+) terms? - expected (\\d+)",
     "Um elemento da lista tem %1 valores em vez de %2."},
    {"all VALUES must have the same number of terms", "As linhas da instrução não têm todas os mesmos valores."},
    {"SELECTs to the left and right of .+ do not have the same number of result columns",
     "As consultas que a instrução junta não têm as mesmas colunas."},
    {"ORDER BY clause should come after .+", "A ordem só pode ser dita no fim da instrução."},
    {".*ORDER BY term (?:out of range|does not match).*", "A ordem pedida não é de nenhuma das colunas da consulta."},
    {".*(?:ORDER|GROUP) BY term out of range.*", "A ordem pedida não é de nenhuma das colunas da consulta."},
    {"hex literal too big: (.+)", "O número \"%1\" é demasiado grande."},
    {"malformed JSON|bad JSON path: .+", "O texto não é o que a função espera."},
    {"integer overflow", "Um resultado é demasiado grande para um número inteiro."},
    {"LIKE or GLOB pattern too complex", "O texto procurado é demasiado longo ou complicado."},
    {"ESCAPE expression must be a single character", "O sinal que protege outro só pode ter um carácter."},

    // Limits
    {"too many terms in (?:compound SELECT|(?:ORDER|GROUP) BY clause)", "A instrução tem demasiadas partes."},
    {"too many columns in (?:result set|index|set list)", "A instrução tem demasiadas colunas."},
    {"too many columns (?:in|on) (.+)", "Há demasiadas colunas em \"%1\"."},
    {"at most \\d+ tables in a join", "A instrução liga demasiadas tabelas."},
    {"too many FROM clause terms, max: \\d+", "A instrução liga demasiadas tabelas."},
    {"too many references to \"(.+)\".*", "A instrução usa demasiadas vezes a tabela \"%1\"."},
    {"too many SQL variables|variable number must be between .+", "A instrução tem demasiados valores."},
    {"more than \\d+ aggregate terms", "A instrução tem demasiados resultados de grupo."},
    {"too many levels of trigger recursion", "Os gatilhos da BDP chamam-se uns aos outros sem fim."},
    {"too many attached databases.*", "Há demasiadas bases de dados abertas."},
    {"Expression tree is too large.*|parser stack overflow|statement too long|parse stack overflow",
     "A instrução é demasiado longa ou complicada."},
    {"string or blob too big", "Um texto ou um valor é demasiado grande."},
    {"RAISE\\(\\) may only be used within a trigger-program", "A instrução só é possível num gatilho."},
    {"no query solution", "A instrução não pode ser cumprida."},
    {"out of memory", "Não há memória suficiente."},
    {"interrupted", "A operação foi interrompida."},
    {"(?:multiple )?recursive (?:reference|aggregate).*|multiple references to recursive table.*|circular reference.*",
     "A instrução chama-se a si própria de uma forma que não pode ser."},

    // Changes to the tables
    {"error in (?:table|view|index|trigger|generated column) \"?(.+?)\"? after [a-z ]+: (.+)",
     "A alteração não é possível por causa de \"%1\": %2"},
    {"error in (?:table|view|index|trigger|generated column) \"?(.+?)\"?: (.+)", "Há um erro na BDP, em \"%1\": %2"},
    {"error in generated column \"(.+)\"", "A coluna \"%1\" é mal calculada."},
    {"unable to identify the object to be reindexed", "Esse índice não existe na BDP."},
    {"non-text filename", "O nome do ficheiro não é um texto."},
    {"cannot drop .*column: \"(.+)\"", "A coluna \"%1\" não pode ser retirada da tabela."},
    {"cannot drop column \"(.+)\": no other columns exist",
     "A coluna \"%1\" não pode ser retirada: é a única da tabela."},
    {"Cannot add a PRIMARY KEY column", "Não se pode juntar a uma tabela uma coluna que seja a sua chave."},
    {"Cannot add a UNIQUE column", "Não se pode juntar a uma tabela uma coluna de valores únicos."},
    {"Cannot add a NOT NULL column with default value NULL",
     "Não se pode juntar a uma tabela com registos uma coluna que não pode ficar sem valor."},
    {"Cannot add a REFERENCES column with non-NULL default value|Cannot add a column with non-constant default|"
     "cannot add a STORED column",
     "Não se pode juntar a uma tabela uma coluna com esse valor inicial."},
    {"Cannot add a column to a view|cannot modify (.+) because it is a view|cannot UPSERT a view",
     "Uma vista não pode ser alterada."},
    {"virtual tables may not be altered|virtual tables may not be indexed|views may not be indexed",
     "Essa tabela não pode ser alterada."},
    {"(?:table|view) (.+) may not be (?:altered|dropped|indexed|modified)", "A tabela \"%1\" não pode ser alterada."},
    {"cannot .+ (?:virtual table|view) \"(.+)\"", "A tabela \"%1\" não pode ser alterada."},
    {"use DROP (?:TABLE|VIEW) to delete (?:table|view) (.+)", "\"%1\" não pode ser eliminada dessa forma."},
    {"index associated with UNIQUE or PRIMARY KEY constraint cannot be dropped",
     "O índice de uma chave não pode ser eliminado."},
    {"table \"(.+)\" has more than one primary key", "A tabela \"%1\" tem mais de uma chave."},
    {"PRIMARY KEY missing on table (.+)", "A tabela \"%1\" não tem chave."},
    {"AUTOINCREMENT .+", "Só uma chave de números inteiros se numera a si própria."},
    {"default value of column \\[(.+)\\] is not constant", "O valor inicial da coluna \"%1\" não é constante."},
    {"(?:missing|unknown) datatype for (.+)", "O tipo da coluna %1 não é conhecido."},
    {"cannot (?:INSERT into|UPDATE) generated column \"(.+)\"", "A coluna \"%1\" é calculada e não pode ser escrita."},
    {"generated column loop on \"(.+)\"", "A coluna \"%1\" é calculada a partir de si própria."},
    {"must have at least one non-generated column|virtual tables cannot use computed columns|"
     "cannot use DEFAULT on a generated column",
     "As colunas calculadas da tabela não podem ser assim."},
    {"foreign key on .+|unknown column .+ in foreign key definition|number of columns in foreign key .+|"
     "foreign key mismatch.*",
     "A ligação entre tabelas está mal definida na BDP."},
    {"(?:parameters are not allowed in|cannot use variables in|.+ cannot use variables).*",
     "A instrução não pode ter valores por preencher."},
    {"view (.+) is circularly defined", "A vista \"%1\" é definida a partir de si própria."},
    {"(?:cannot open (?:value|view|virtual|table|.+ column)|cannot create|unable to open a temporary|vtable|"
     ".+ cannot reference objects).*",
     "A instrução não é possível com essa tabela."},
    {"ON CONFLICT clause .+|UPSERT .+", "A instrução não é possível com essa tabela."},

    // The file and the transaction
    {"malformed database schema \\((.+)\\).*", "A estrutura da BDP \"%2\" está danificada, em \"%1\"."},
    {"unsupported file format|unsupported encoding: .+", "O ficheiro \"%1\" é de uma versão que não se pode abrir."},
    {"attached databases must use the same text encoding as main database",
     "As duas bases de dados não usam o mesmo alfabeto."},
    {"database (.+) is already in use|database is already attached|database (.+) is locked",
     "A base de dados já está a ser usada."},
    {"(?:database|database schema|database table) is locked.*", "A BDP está a ser usada por outra instrução."},
    {"database disk image is malformed|corrupt database|invalid rootpage", "O ficheiro \"%1\" está danificado."},
    {"unable to open database(?: file)?.*|cannot open file.*", "Não é possível abrir o ficheiro \"%1\"."},
    {"attempt to write a readonly database", "Não é permitido escrever o ficheiro \"%1\"."},
    {"database schema has changed", "A estrutura da BDP mudou entretanto: repita a operação."},
    {"disk I/O error", "Não foi possível ler ou escrever o ficheiro \"%1\"."},
    {"cannot start a transaction within a transaction", "Já há uma transacção em curso."},
    {"cannot (?:commit|rollback) - no transaction is active", "Não há nenhuma transacção em curso."},
    {"cannot (?:open|release|commit|rollback|VACUUM|change).*|.+ from within a transaction",
     "A operação não é possível com outra em curso."},
    {"(?:database table|source and destination|destination database).*", "As duas bases de dados estão a ser usadas."},
    {"unable to (?:close|delete/modify).*", "A operação não é possível com outra em curso."},
    {"no more rows available|another row available|unknown error|not an error|SQL logic error|bad parameter or other "
     "API misuse",
     "O motor da base de dados não conseguiu cumprir a instrução."},
};

QRegularExpression patternOf(const Wording& wording)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromUtf8(wording.engine)),
                              QRegularExpression::DotMatchesEverythingOption);
}

// The places of a description, "%1" and so on, with what stands for them.
QString filled(const QString& description, const QStringList& subjects)
{
    QStringList parts = description.split(u'%');
    QString result = parts.takeFirst();
    for (const QString& part : parts)
        result += subjects.value(part.first(1).toInt() - 1) + part.mid(1);
    return result;
}

} // namespace

QString statementDescription(const QString& message, int code, const QString& file)
{
    for (const Wording& wording : wordings) {
        const QRegularExpression pattern = patternOf(wording);
        const auto match = pattern.match(message);
        if (!match.hasMatch()) continue;
        QStringList subjects;
        for (int group = 1; group <= pattern.captureCount(); ++group)
            subjects << match.captured(group);
        if (QByteArrayView(wording.description).endsWith(": %2")) // the rest is a message of its own
            subjects[1] = statementDescription(subjects[1], code, file);
        return filled(QString::fromUtf8(wording.description), subjects << file);
    }
    return QStringLiteral("O motor da base de dados recusou a instrução (erro %1).").arg(code);
}

QString constraintDescription(const QString& message, int code)
{
    switch (code) {
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return QStringLiteral(
            "O valor não é aceite: há registos de outra tabela que dependem deste, ou falta o registo "
            "de que este depende.");
    case SQLITE_CONSTRAINT_TRIGGER:
        return QStringLiteral("O valor não é aceite: um gatilho que está no ficheiro recusou-o e diz \"%1\".")
            .arg(message);
    case SQLITE_CONSTRAINT_DATATYPE:
        return QStringLiteral("O valor não é do tipo da coluna.");
    default:
        return QStringLiteral("O valor não é aceite pela base de dados (erro %1).").arg(code);
    }
}

int knownMessages()
{
    return int(std::size(wordings));
}

const char* knownMessage(int index)
{
    return wordings[index].engine;
}

} // namespace jet
