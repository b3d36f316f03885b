// No statement of the system is put together with a text that the store or the user gives it, but by way of
// common/instrucao.h.
#include "house/statements.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>

using house::findings;
using house::Rules;

namespace {

const Rules& rules()
{
    static const Rules ours{
        // common/instrucao.h, common/numeros.h, common/datas.h; Numero::paraSQL()
        .makers = {"citado", "digitado", "dataDigitada", "registoEmSQL", "inteiroEmSQL", "chaveEmSQL", "numeroEmSQL",
                   "literalDaData", "paraSQL"},
        .statements = {"NativeSql",
                       "comChave",
                       "locaisDaLista",
                       "nomeDe",
                       "superiorDe",
                       "locais",
                       "locaisDe",
                       "marca",
                       "fonte",
                       "instrucao",
                       "instrucaoDoCodigo",
                       "instrucaoDaProcura",
                       "instrucaoDaPesquisa",
                       "pelosCampos",
                       "peloCasamento",
                       "peloPrimeiroFilho",
                       "condicaoDaData",
                       "condicaoDasDatas",
                       "condicaoDoNascimento",
                       "condicaoDoConjuge",
                       "chaveNoCriterio",
                       "membros",
                       "contagem",
                       "consulta",
                       "insertion",
                       "alteration",
                       "deletion",
                       "rowsOf"},
        .own =
            {
                // Names of tables and columns out of the tables of the source.
                {"common/instrucao.cpp", {"texto", "QString().remove()"}},
                {"common/niveis.cpp", {"tabela", "codigo", "nome", "superior"}},
                {"places/editorDeLocais.cpp", {"nivel().codigo", "regras_.ordem", "*descendentes"}},
                {"places/editorComCodigo.cpp", {"nivel().superior"}},
                {"places/frmPesq.cpp", {"nivel.codigo", "nivel.nome", "nivel.tabela"}},
                {"places/usosDoLocal.cpp", {"quem.tabela", "coluna", "letra", "condicoes.join()", "contagem"}},
                {"attributes/listaDatada.cpp", {"regras_.procura", "instrucao"}},
                {"attributes/listaDatada_edit.cpp", {"coluna"}},
                {"acts/frmFuneral.cpp", {"coluna"}},
                {"acts/frmIntervenientes_priests.cpp",
                 {"colunas.tabela", "colunas.chave", "colunas.padre[]", "colunas.funcao[]", "coluna"}},
                {"study/acts/catalogue_places.cpp", {"level->codigo", "level->nome", "above", "level->tabela"}},
                {"study/acts/hangers.cpp",
                 {"link.tabela", "link.coluna", "ofAnAct", "dependent.tabela", "dependent.condicao", "select"}},
                {"study/acts/cardRows.cpp",
                 {"into.name", "columns.join()", "places.join()", "of.name", "equalTo()", "required().name", "text"}},
                {"study/linkage/recording.cpp", {"placeColumn", "table", "conditions.join()", "where.first"}},
                {"study/linkage/takeBack.cpp", {"step.table"}},
                {"store/lixo.cpp", {"dependente.tabela", "dependente.condicao", "tabela", "criacao"}},
                {"store/lixo_repoe.cpp", {"consulta", "tabela"}},
                {"store/lixo_actos.cpp", {"ligacao.tabela", "ligacao.numero", "ligacao.eliminado"}},
                {"study/acts/register_tables.cpp", {"statement"}},
                {"study/checks/ownTables.cpp", {"table.statement"}},
                {"study/indicators/settingsJson.cpp", {"settingsTable"}},
                {"study/linkage/model_store.cpp", {"weightTable"}},
                {"study/exchange/gedcom.cpp", {"wordsOf().act", "wordsOf(which).act", "peopleSelect"}},
                {"study/exchange/gedcomPeople_rows.cpp",
                 {"select", "select 0 where 0", "family", "bearer()", "priest", "function", "place", "priestSelect()"}},
                {"study/exchange/idsFamilies_p.h", {"firstMarriage"}},
                {"study/exchange/idsPeople.cpp", {"ownColumns"}},
                {"study/exchange/gedcomValues.cpp", {"placesSelect"}},
                {"study/exchange/gedcomInPlaces.cpp", {"placesSelect"}},
                {"study/exchange/ownedRows.h", {"select"}},
                {"study/exchange/privacy.cpp", {"select"}},
                {"study/exchange/tablesWrite.cpp",
                 {"table", "name", "column->table", "column->key", "column.name", "table.info->name", "selectOf()",
                  "columns.join()", "orphans"}},
                {"study/exchange/tablesRead.cpp",
                 {"statement", "table.name", "reader.columns().join()", "places", "file.table->name", "column.name",
                  "column.table", "column.key", "connectionString()"}},
                {"study/exchange/gedcomInRows.cpp", {"table", "columns.join()", "places.join()"}},
                {"study/exchange/gedcomInMarks.cpp", {"columns.join()", "table.table", "where", "table.condition"}},
                {"study/exchange/gedcomInBack.cpp",
                 {"link.column", "link.table", "word", "ownRows()", "table.table", "table.owner", "keys", "within",
                  "ofLevel", "table->table", "table->owner"}},
                {"study/exchange/gedcomIn.cpp", {"select", "table.owner", "table.table", "connectionString()"}},
                {"views/frmRP.cpp", {"chave", "registo.coluna"}},
                // Handed over by callers that are read themselves.
                {"common/ficha.cpp", {"criterio"}},
                {"places/editorDeLocais.h", {"select"}},
                {"places/frmLocalizacao_cascade.cpp", {"instrucao"}},
                {"places/frmZona.cpp", {"iguais"}},
                {"individuals/frmInd_delete.cpp", {"n", "f", "lixo::Tipo::Individuo"}},
                {"families/frmFam_delete.cpp", {"lixo::Tipo::Familia"}},
                {"study/acts/register_read.cpp", {"select"}},
                {"study/acts/reliance.cpp", {"select"}},
                {"study/windows/cards.cpp", {"key", "number", "same"}},
                {"study/windows/frmLimites.cpp", {"next"}},
                {"study/windows/frmTipos.cpp", {"types", "last_", "last->id"}},
                {"study/windows/frmActos.cpp", {"id"}},
                {"study/windows/frmContradicoes.cpp", {"number"}}, // of an act
                {"study/windows/frmContradicoes_show.cpp", {"number"}},
                {"study/windows/frmDecisoes.cpp", {"decision->id"}},
                {"study/windows/frmLigacoes.cpp", {"select"}},
                {"study/windows/frmLigacoes_search.cpp", {"decisions"}},
                {"study/windows/frmLigacoes_decide.cpp", {"subjectOf()", "link", "child", "id"}},
                {"study/linkage/named.cpp", {"key"}},             // of couples that are looked up by their names
                {"study/linkage/doubtful_names.cpp", {"number"}}, // of whom an act names
                {"study/windows/frmDefinicoes.cpp", {"*next"}},
                {"study/windows/frmIndicadores_count.cpp", {"id", "*subject"}}, // of a subject
                {"study/windows/frmPesos.cpp", {"draft_"}},
                {"study/windows/parishCopy.cpp", {"path()"}}, // of the copy
                {"study/windows/frmTranscricoes_columns.cpp",
                 {"headers", "file->sheet->headers", "each.key()", "file.sheet->headers"}},
                {"study/windows/frmTranscricoes_work.cpp", {"transcript"}},
                {"study/windows/frmRepor.cpp", {"deletion->id", "number"}},
                {"individuals/frmInd_search.cpp", {"filtro.texto()", "data"}},
                {"families/frmFam_search.cpp", {"filtro.texto()"}},
                {"families/frmFam_edit.cpp", {"coluna", "valor"}},
                // What the data files of the program say.
                {"store/modBD_dados.cpp",
                 {"destino.tabela", "QString().replace()", "semPlica().replace()", "linha", "instrucao", "destino",
                  "connectionString()"}},
                // No statement: a connection string, a mark in the sheet of a person.
                {"store/session.cpp", {"path"}},
                {"store/modBD.cpp", {"StrLigacao"}},
                {"study/transcripts/importCopies.cpp", {"connectionString()"}},
                {"study/command/bdp.cpp", {"connectionString()"}},
                {"study/command/usage.cpp",
                 {"read.format", "read.severity", "read.dates"}}, // words of the shell, for a message
                {"study/checks/listing.cpp", {"rule.id"}},        // what a text is searched by
                {"study/checks/listing_formats.cpp", {"inWords()", "one.text.toHtmlEscaped()"}},
                {"views/fichaIndividual.cpp", {"marca"}},
                {"study/windows/frmActo_choices.cpp", {"act"}}, // whom the finder looks for
                {"study/windows/frmJuntar_choices.cpp", {"act"}},
            },
    };
    return ours;
}

QStringList foundIn(const char* body)
{
    return findings("frm.cpp", body, rules());
}

TEST(TheReaderOfStatements, TakesWordsOfTheSourceAndWhatIsMadeForThem)
{
    EXPECT_EQ(foundIn(R"(cnBDP.execute("delete from pais");)"), QStringList());
    EXPECT_EQ(
        foundIn(R"(cnBDP.execute("delete from pais where codpais = " + citado(codigo) + " and prioridade = 0");)"),
        QStringList());
    EXPECT_EQ(foundIn(R"(return (casamento ? "select a from b where c = " : "select d from e where f = ")
                             + chaveEmSQL(txtNum->text());)"),
              QStringList());
    EXPECT_EQ(foundIn(R"(const QString n = registoEmSQL(campo->text()), m = nind.paraSQL();
                      cnBDP.execute("delete from familias where nfamilia = " + n + " and nind = " + m);)"),
              QStringList());
    EXPECT_EQ(foundIn(R"(linha.find("nind = " + chaveEmSQL(Chave));)"), QStringList());
    EXPECT_EQ(foundIn(R"(cnBDP.execute(jet::NativeSql("update pais set obs = ? where codpais = ?", {obs, codigo}));)"),
              QStringList());
    EXPECT_EQ(foundIn(R"(showMessage("O indivíduo nº " + numero + " não existe."); Forms::find(nome);)"),
              QStringList());
}

struct Bad
{
    const char* what;
    const char* source;
};

TEST(TheReaderOfStatements, TellsOfEachWayInWhichATextBecomesPartOfAStatement)
{
    for (const Bad& bad : std::initializer_list<Bad>{
             {"beside quotes",
              R"(jet::Recordset local(cnBDP, "select nome from lugar where cod = '" + codigo + "'");)"},
             {"as a number", R"(cnBDP.execute("delete from individuo where nind = " + txtNind->text());)"},
             {"as a condition", R"(filtro.junta("nome like '" + txtNome->text() + "'");)"},
             {"as a criterion", R"(linhas.find("codigo =" + Chave);)"},
             {"in one branch", R"(cnBDP.execute("update a set b = " + (cheio ? campo->text() : "null"));)"},
             {"behind a bracket", R"(return ("select a from b where c = ") + codigo;)"},
             {"by its place", R"(QString("select a from b where c = '%1'").arg(codigo);)"},
             {"by its place in a statement of its own values",
              R"(jet::NativeSql(QString("delete from %1").arg(nome));)"},
             {"added later", R"(QString sql = "select a from b where "; sql += "c = '" + codigo + "'";)"},
             {"added without a word", R"(QString sql = "select a from b"; sql += fim; cnBDP.execute(sql);)"},
             {"made elsewhere", R"(cnBDP.execute(instrucao);)"},
             {"opened later", R"(jet::Recordset linhas(cnBDP); linhas.open(instrucao);)"},
             {"made elsewhere, by a function", R"(adoLug.setRecordSource(outra());)"},
             {"handed over", R"(void apaga(const QString& n) { cnBDP.execute("delete from a where b = " + n); })"},
             {"by way of a name", R"(const QString n = lista->text(); cnBDP.execute("delete from a where b = " + n);)"},
             {"by way of another text", R"(cnBDP.execute("delete from a where b = " + citado(x).replace("''", "'"));)"},
             {"in literals that the compiler joins", "find(QStringLiteral(\"nind\"\n \" = \") + numero);"}})
        EXPECT_FALSE(foundIn(bad.source).isEmpty()) << bad.what;
}

TEST(TheReaderOfStatements, TellsTheFileTheLineAndTheText)
{
    EXPECT_EQ(foundIn("// a remark\ncnBDP.execute(\"delete from pais \"\n    \"where codpais = '\" + codigo + \"'\");"),
              QStringList("frm.cpp:3: codigo"));
}

// Rooms whose values come from a snapshot: they ask the BDP nothing, but for the settings that it keeps.
static bool computesAlone(const QString& file)
{
    return file.startsWith("study/statistics/") || file.startsWith("study/report/") ||
           (file.startsWith("study/indicators/") && !file.endsWith("/settingsJson.cpp"));
}

TEST(TheHouse, PutsNoTextOfTheStoreOrTheUserIntoAStatementAsItIs)
{
    const QString src = ORV_DATA_DIR "/../src";
    QStringList all;
    int files = 0;
    for (QDirIterator it(src, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        QFile file(it.next());
        const QString name = QDir(src).relativeFilePath(file.fileName());
        if (name.startsWith("platform/")) continue; // it knows no statement of the system
        if (computesAlone(name)) continue;
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
        all += findings(name, QString::fromUtf8(file.readAll()), rules());
        ++files;
    }
    EXPECT_GT(files, 100);
    EXPECT_TRUE(all.isEmpty()) << qPrintable(all.join('\n'));
}

} // namespace
