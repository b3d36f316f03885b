#include "platform/jet/errors.h"

#include "platform/jet/columns.h"
#include "platform/jet/disk.h"

#include <QRegularExpression>

#include <sqlite3.h>

#include <optional>

namespace jet {

namespace {

constexpr auto mark = "jet:";

struct Wording
{
    const char* engine; // the engine's message; its groups, and then the file, fill the places of the description
    const char* description;
};

// The engine's messages about a statement.
constexpr Wording wordings[]{
    {"^no such table: (.+)$", "A tabela \"%1\" não existe na BDP \"%2\"."},
    {"^no such column: (.+)$", "A coluna \"%1\" não existe nas tabelas da instrução."},
    {"^table (.+) has no column named (.+)$", "A coluna \"%2\" não existe na tabela \"%1\"."},
    {"^ambiguous column name: (.+)$", "A coluna \"%1\" existe em mais de uma das tabelas da instrução."},
    {"^duplicate column name: (.+)$", "A coluna \"%1\" já existe na tabela."},
    {"^table \"?(.+?)\"? already exists$", "A tabela \"%1\" já existe na BDP."},
    {"^index (.+) already exists$", "O índice \"%1\" já existe na BDP."},
    {"^near \"(.*)\": syntax error$", "Erro de sintaxe na instrução, junto de \"%1\"."},
    {"^unrecognized token: \"(.*)\"$", "Erro de sintaxe na instrução, junto de \"%1\"."},
    {"^incomplete input$", "A instrução está incompleta."},
    {"^no such function: (.+)$", "A função \"%1\" não existe."},
    {"^wrong number of arguments to function (.+)$", "A função %1 não leva esse número de argumentos."},
    {"^misuse of (?:aliased )?(?:aggregate|window)(?: function|:)? (.+)$",
     "A função %1 não pode estar nesse lugar da instrução."},
    {"^row value misused$", "Há vários valores onde a instrução leva um só."},
    {"^(\\d+) values for (\\d+) columns$", "A instrução dá %1 valores para %2 colunas."},
    {"^table (.+) has (\\d+) columns but (\\d+) values were supplied$",
     "A tabela \"%1\" tem %2 colunas, mas a instrução dá %3 valores."},
    {"^sub-select returns (\\d+) columns - expected (\\d+)$", "A subconsulta dá %1 colunas em vez de %2."},
    {"^error in table (.+) after drop column: (.+)$", "A coluna não pode ser retirada da tabela \"%1\": %2."},
    {"^cannot drop .*column: \"(.+)\"$", "A coluna \"%1\" não pode ser retirada da tabela."},
};

QString statementDescription(const QString& message, const QString& file)
{
    for (const Wording& wording : wordings) {
        const auto match = QRegularExpression(QString::fromUtf8(wording.engine)).match(message);
        if (!match.hasMatch()) continue;
        QString description = QString::fromUtf8(wording.description);
        const QStringList subjects = match.capturedTexts().mid(1) << file;
        for (qsizetype i = 0; i < subjects.size(); ++i)
            description.replace(QStringLiteral("%%1").arg(i + 1), subjects[i]);
        return description;
    }
    return QStringLiteral("O motor da base de dados recusou a instrução: %1.").arg(message);
}

// "tabela.coluna" and more of it, behind the colon of a message about a constraint.
QString subject(const QString& message)
{
    return message.section(QStringLiteral(": "), 1);
}

QString checkDescription(sqlite3* database, const QString& message)
{
    const QString table = subject(message).section(u'.', 0, 0);
    const QString column = subject(message).section(u'.', 1);
    const QString declared = declaredType(database, table, column);
    const QString where = QStringLiteral("da coluna \"%1\" da tabela \"%2\"").arg(column, table);
    switch (typeOf(declared)) {
    case Type::Text:
        return QStringLiteral("O texto %1 é demasiado longo: a coluna leva no máximo %2 caracteres.")
            .arg(where, declared.section(u'(', 1).section(u')', 0, 0));
    case Type::Date:
        return QStringLiteral("O valor %1 não é uma data.").arg(where);
    case Type::Bit:
        return QStringLiteral("O valor %1 só pode ser verdadeiro ou falso.").arg(where);
    case Type::Number:
        if (declared.compare(u"long", Qt::CaseInsensitive) != 0)
            return QStringLiteral("O valor %1 não é um número.").arg(where);
        return QStringLiteral("O valor %1 não é um número entre %2 e %3.")
            .arg(where)
            .arg(smallestLong)
            .arg(largestLong);
    case Type::Unknown:
        break;
    }
    return QStringLiteral("O valor não respeita a condição \"%1\".").arg(subject(message));
}

Error constraintError(sqlite3* database, int code, const QString& message)
{
    switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return {number::duplicateKey,
                QStringLiteral("Já existe um registo com a mesma chave (%1).").arg(subject(message))};
    case SQLITE_CONSTRAINT_NOTNULL:
        return {number::invalidStatement,
                QStringLiteral("A coluna %1 não pode ficar sem valor.").arg(subject(message))};
    case SQLITE_CONSTRAINT_CHECK:
        return {number::invalidStatement, checkDescription(database, message)};
    default:
        return {number::invalidStatement, QStringLiteral("O valor não é aceite pela base de dados: %1.").arg(message)};
    }
}

// A message of one of our own functions, which carries its number.
std::optional<Error> readMarked(const QString& message)
{
    if (!message.startsWith(QLatin1String(mark))) return {};
    return Error{message.section(u':', 1, 1).toLong(), message.section(u':', 2)};
}

} // namespace

Error engineError(sqlite3* database, int code, const QString& path)
{
    const QString file = targetOf(path); // the name that the user gave
    const QString message = QString::fromUtf8(database ? sqlite3_errmsg(database) : sqlite3_errstr(code));
    if (const auto own = readMarked(message)) return *own;
    if (code == SQLITE_READONLY_DBMOVED)
        return {number::engineFailure,
                QStringLiteral("O ficheiro \"%1\" já não é a BDP que está aberta: foi mudado de lugar, eliminado ou "
                               "substituído por outro. Nada mais pode ser escrito nela; faça uma cópia de segurança e "
                               "continue a trabalhar na cópia.")
                    .arg(file)};
    switch (code & 0xff) {
    case SQLITE_ERROR:
        return {number::invalidStatement, statementDescription(message, file)};
    case SQLITE_CONSTRAINT:
        return constraintError(database, code, message);
    case SQLITE_MISMATCH:
        return {number::typeMismatch, QStringLiteral("O tipo do valor não é o da coluna.")};
    case SQLITE_RANGE:
    case SQLITE_TOOBIG:
        return {number::invalidStatement, QStringLiteral("A instrução ou um dos seus valores é demasiado grande.")};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {number::engineFailure,
                QStringLiteral("O ficheiro \"%1\" está a ser usado por outro programa.").arg(file)};
    case SQLITE_NOTADB:
        return {number::engineFailure, QStringLiteral("O ficheiro \"%1\" não é uma BDP.").arg(file)};
    case SQLITE_CORRUPT:
        return {number::engineFailure, QStringLiteral("O ficheiro \"%1\" está danificado ou incompleto.").arg(file)};
    case SQLITE_FULL:
        return {number::diskFull, QStringLiteral("O disco está cheio: não foi possível escrever em \"%1\".").arg(file)};
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_CANTOPEN:
        return {number::permissionDenied,
                QStringLiteral("Não é permitido abrir ou escrever o ficheiro \"%1\".").arg(file)};
    case SQLITE_NOMEM:
        return {number::outOfMemory, QStringLiteral("Não há memória suficiente.")};
    default:
        return {number::engineFailure,
                QStringLiteral("Não foi possível ler ou escrever o ficheiro \"%1\": o disco falhou, ou não deixa "
                               "guardar mais nada.")
                    .arg(file)};
    }
}

QString markedMessage(long number, const QString& description)
{
    return QStringLiteral("%1%2:%3").arg(QLatin1String(mark)).arg(number).arg(description);
}

Error invalidStatement(const QString& description)
{
    return {number::invalidStatement, description};
}

Error noCurrentRow()
{
    return {number::noCurrentRow, QStringLiteral("Não há registo corrente: o cursor está antes do primeiro registo, "
                                                 "depois do último, ou num registo eliminado.")};
}

Error noSuchField(const QString& field)
{
    return {number::noSuchField, QStringLiteral("O campo \"%1\" não existe na consulta.").arg(field)};
}

Error recordsetClosed()
{
    return {number::objectClosed, QStringLiteral("A operação não é possível com a consulta fechada.")};
}

Error connectionClosed()
{
    return {number::connectionClosed, QStringLiteral("Não há nenhuma BDP aberta.")};
}

} // namespace jet
