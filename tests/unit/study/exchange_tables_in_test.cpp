// A BDP made of tables: what is taken, and what is refused with its file and line.
#include "study/exchange_tables.h"

#include "platform/jet/jsonrow.h"
#include "study/command/command.h"
#include "study/exchange/csvReader.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTextStream>

#include <random>

using namespace study;
using namespace study::exchange;

namespace {

class ABdpOfTables : public ExchangedTables
{
protected:
    // What is told of a folder with this one file, "ficheiro:linha: razão"; the BDP isn't made then.
    QString refusal(const QString& name, const QByteArray& content)
    {
        put(name, content);
        const TablesRead told = read();
        EXPECT_FALSE(told.errors.empty()) << content.constData();
        expectNothingMade();
        if (told.errors.empty()) return {};
        const TableProblem& first = told.errors.front();
        return QString("%1:%2: %3").arg(first.file).arg(first.line).arg(first.text);
    }
    QString thrown()
    {
        try {
            read();
        } catch (const jet::Error& error) {
            expectNothingMade();
            return error.description;
        }
        return {};
    }
    void expectNothingMade() const
    {
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("a.orv"));
    }
    // The first row of a select on the BDP that was made.
    QJsonObject row(const char* select) const
    {
        jet::Connection other;
        other.open(made());
        return jet::jsonRows(other, jet::NativeSql(select)).value(0);
    }
};

std::vector<QStringList> rowsIn(QByteArray csv, QString* damage = nullptr)
{
    QBuffer buffer(&csv);
    buffer.open(QIODevice::ReadOnly);
    CsvReader reader(buffer);
    std::vector<QStringList> rows;
    while (reader.next()) {
        QStringList row{QString::number(reader.line())};
        for (const CsvCell& cell : reader.cells())
            row << (cell.isQuoted ? '"' + QString::fromUtf8(cell.text) : QString::fromUtf8(cell.text));
        rows.push_back(row);
        if (damage && damage->isEmpty()) *damage = reader.damage();
    }
    return rows;
}

} // namespace

TEST(RowsOfACsv, AreReadWithTheirLinesAndQuotes)
{
    EXPECT_EQ(rowsIn("a,b\n1,\"x\r\ny\"\"z\"\n\n,\r\n\"\",2\r3,4"),
              (std::vector<QStringList>{
                  {"1", "a", "b"}, {"2", "1", "\"x\r\ny\"z"}, {"5", "", ""}, {"6", "\"", "2"}, {"7", "3", "4"}}));
    EXPECT_EQ(rowsIn("\xEF\xBB\xBF"
                     "a;b\n1,5;2\n"),
              (std::vector<QStringList>{{"1", "a", "b"}, {"2", "1,5", "2"}}));
    EXPECT_EQ(rowsIn("a\tb\n1\t2"), (std::vector<QStringList>{{"1", "a", "b"}, {"2", "1", "2"}}));
    EXPECT_TRUE(rowsIn("").empty());
}

TEST(RowsOfACsv, TellWhatIsWrongWithTheirQuotes)
{
    for (const char* csv : {"a,b\n1,\"x", "a,b\n1,\"x\"y\n"}) {
        QString damage;
        rowsIn(csv, &damage);
        EXPECT_FALSE(damage.isEmpty()) << csv;
    }
    QString damage;
    EXPECT_EQ(rowsIn("a,b\n1,x\"y\n", &damage).back().last(), "x\"y");
    EXPECT_TRUE(damage.isEmpty());
}

TEST(RowsOfACsv, AreTheSameWhereverTheFileIsCutIntoPieces)
{
    QByteArray csv = "a,b\n";
    for (int i = 0; i < 20000; ++i)
        csv += QByteArray::number(i) + ",\"x\r\n\"\"" + QByteArray(i % 7, 'y') + "\"\r\n";
    const auto rows = rowsIn(csv);
    ASSERT_EQ(rows.size(), 20001U);
    for (int i = 0; i < 20000; ++i)
        ASSERT_EQ(rows[std::size_t(i) + 1],
                  (QStringList{QString::number(2 + 2 * i), QString::number(i), "\"x\r\n\"" + QString(i % 7, 'y')}));
}

TEST_F(ABdpOfTables, TakesAFewColumnsAsOldFilesHaveThem)
{
    put("Individuo.csv", "NIND;Nome;DataNasc;dnascfixa;altura\r\n7;\"Ana; Maria\";14/02/1702;1;\r\n8;Rui\r\n");
    const TablesRead told = read();
    EXPECT_TRUE(told.errors.empty());
    EXPECT_TRUE(told.referenceData);
    EXPECT_EQ(told.tables, (std::vector<TableCount>{{"individuo", 2}}));
    EXPECT_EQ(row("select nome, datanasc, dnascfixa, altura from individuo where nind = 7"),
              (QJsonObject{{"nome", "Ana; Maria"}, {"datanasc", "1702-02-14"}, {"dnascfixa", 1}, {"altura", {}}}));
    EXPECT_EQ(row("select count(*) as n from paroquia"),
              jet::jsonRows(bdp, jet::NativeSql("select count(*) as n from paroquia")).first());
}

TEST_F(ABdpOfTables, TakesAFileThatIsWhollyInCodePage1252AndSaysSo)
{
    put("individuo.csv", "nind;nome;obs\r\n1;Ana;\r\n2;Jo\xE3o Assun\xE7\xE3o;\x80 5 \x96 \xABpaga\xBB\r\n");
    const TablesRead told = read();
    ASSERT_EQ(told.errors.size(), 0U);
    EXPECT_EQ(row("select nome, obs from individuo where nind = 2"),
              (QJsonObject{{"nome", "João Assunção"}, {"obs", "€ 5 – «paga»"}}));
    EXPECT_EQ(told.warnings,
              (std::vector<TableProblem>{{"individuo.csv", 0,
                                          "O ficheiro não está em UTF-8 e foi lido na página de código 1252: veja se "
                                          "os acentos estão certos."}}));
    ASSERT_TRUE(QFile::remove(made()));
    EXPECT_TRUE(refusal("individuo.csv", "nind;nome\n1;Jo\xE3o\n2;\x81\n").startsWith("individuo.csv:3: "))
        << "no letter of it";
}

TEST_F(ABdpOfTables, TakesItsOwnCodesWhereThereAreSome)
{
    put("categoria.csv", "codcat,nomecat\nFilia,Filiação\n");
    put("infocomplementar.csv", "categoria,codigo,descricao\nFilia,1,Legítima\n");
    put("individuo.csv", "nind,filiacao,filiacao_texto\n1,1,outra coisa\n");
    EXPECT_FALSE(read().referenceData);
    EXPECT_EQ(row("select (select count(*) from categoria) as c, (select count(*) from infocomplementar) as i, (select "
                  "count(*) from pais) as p"),
              (QJsonObject{{"c", 1}, {"i", 1}, {"p", 0}}));
}

TEST_F(ABdpOfTables, TellsFileAndLineOfACellThatCannotBe)
{
    const QByteArray head = "nind,nome,datanasc,dnascfixa,altura\n1,\"duas\nlinhas\",,,\n";
    EXPECT_EQ(refusal("individuo.csv", head + "2,Rui,1702-02-31,1,\n"),
              "individuo.csv:4: Coluna \"datanasc\": \"1702-02-31\" não é uma data, como 1702-02-14 ou 14/02/1702.");
    EXPECT_EQ(refusal("individuo.csv", head + "x2,Rui,,,\n"),
              "individuo.csv:4: Coluna \"nind\": \"x2\" não é um número inteiro.");
    EXPECT_EQ(refusal("individuo.csv", head + "2,Rui,,2,\n"),
              "individuo.csv:4: Coluna \"dnascfixa\": \"2\" não é 0 nem 1.");
    EXPECT_EQ(refusal("individuo.csv", head + "2,\xE1rvore,,,\n3,é,,,\n"),
              "individuo.csv:4: Coluna \"nome\": o texto não está em UTF-8, ou tem um carácter nulo.");
    EXPECT_EQ(refusal("individuo.csv", head + "2,Rui,,,,a mais\n"),
              "individuo.csv:4: A linha tem mais células do que o cabeçalho.");
    EXPECT_EQ(refusal("individuo.csv", head + "2,\"Rui,,,\n"), "individuo.csv:4: As aspas que aqui abrem não fecham.");
    EXPECT_TRUE(refusal("individuo.csv", head + "1,Rui,,,\n").startsWith("individuo.csv:4: ")) << "twice a key";
    EXPECT_TRUE(refusal("individuo.csv", head + ",Rui,,,\n").startsWith("individuo.csv:4: ")) << "no key";
    EXPECT_TRUE(refusal("individuo.csv", head + "2,Rui,,,99999999999\n").startsWith("individuo.csv:4: "));
    EXPECT_TRUE(refusal("individuo.csv", head + "2," + QByteArray(256, 'x') + ",,,\n").startsWith("individuo.csv:4: "));
}

TEST_F(ABdpOfTables, TellsWhatIsWrongWithAHeader)
{
    EXPECT_EQ(refusal("individuo.csv", "nind,nmoe\n1,Ana\n"),
              "individuo.csv:1: A tabela não tem nenhuma coluna \"nmoe\".");
    EXPECT_EQ(refusal("individuo.csv", "nome\nAna\n"), "individuo.csv:1: Falta a coluna \"nind\".");
    EXPECT_EQ(refusal("individuo.csv", "nind,nome,NOME\n1,Ana,Eva\n"),
              "individuo.csv:1: A coluna \"nome\" está duas vezes.");
    EXPECT_EQ(refusal("individuo.csv", ""), "individuo.csv:0: Falta o cabeçalho.");
}

TEST_F(ABdpOfTables, TellsTheFirstHundredErrors)
{
    QByteArray rows = "nind\n";
    for (int i = 0; i < 1000; ++i)
        rows += "x\n";
    put("individuo.csv", rows);
    EXPECT_EQ(read().errors.size(), 100U);
    expectNothingMade();
}

TEST_F(ABdpOfTables, IsMadeWholeOrNotAtAll)
{
    run("insert into individuo (nind, nome) values (1, 'Ana')");
    write();
    EXPECT_TRUE(read(true).errors.empty());
    expectNothingMade();
    int asked = 0;
    EXPECT_THROW(importTables(tables(), made(), false, [&](double) { return ++asked < 1; }), Interrupted);
    expectNothingMade();
    put("../b.orv", "de outrem");
    EXPECT_THROW(importTables(tables(), made(), false), jet::Error);
    QFile there(made());
    ASSERT_TRUE(there.open(QIODevice::ReadOnly));
    EXPECT_EQ(there.readAll(), "de outrem");
}

TEST_F(ABdpOfTables, IsMadeOfFilesOfTheFolderAlone)
{
    const auto package = [](const QByteArray& path) {
        return R"({"resources": [{"name": "individuo", "path": ")" + path + R"("}]})";
    };
    put("../individuo.csv", "nind\n1\n");
    for (const char* path : {"../individuo.csv", "/etc/passwd", "..\\\\individuo.csv", "", "falta.csv"}) {
        put("datapackage.json", package(path));
        EXPECT_THROW(read(), jet::Error) << path;
    }
    for (const char* json : {"", "[]", "{\"resources\": 1}", "{", "{\"resources\": []}"}) {
        put("datapackage.json", json);
        EXPECT_THROW(read(), jet::Error) << json;
    }
    put("gente.csv", "nind\n1\n");
    put("datapackage.json", package("gente.csv"));
    EXPECT_TRUE(read().errors.empty());
    EXPECT_EQ(row("select nind from individuo")["nind"], 1);
}

TEST_F(ABdpOfTables, TellsOfFilesThatNoTableIsMadeOfAndOfKeysThatLeadNowhere)
{
    put("lista.csv", "a\n1\n");
    put("individuo.csv", "nind,famorig\n1,77\n");
    const TablesRead told = read();
    ASSERT_EQ(told.warnings.size(), 2U);
    EXPECT_EQ(told.warnings[0].file, "lista.csv");
    EXPECT_EQ(told.warnings[1].text,
              "Coluna \"famorig\": 1 vezes não há nenhum registo com este número em familia (77, por exemplo).");
    QFile::remove(tables() + "/individuo.csv");
    EXPECT_TRUE(thrown().contains("nenhuma tabela"));
}

TEST_F(ABdpOfTables, IsNotMadeOfAnExportThatWasInterrupted)
{
    put("individuo.csv", "nind\n1\n");
    put("datapackage.json", R"({"profile": "tabular-data-package", "name": "orv-estudo", "unfinished": true,
        "resources": [{"name": "individuo", "path": "individuo.csv"}]})");
    EXPECT_TRUE(thrown().contains("não chegou ao fim"));
}

TEST_F(ABdpOfTables, TellsOfAFileThatWasAlteredAndTakesIt)
{
    run("insert into individuo (nind, nome) values (1, 'Ana')");
    write();
    EXPECT_TRUE(read().warnings.empty());
    put("individuo.csv", file("individuo.csv") + "2,2,Eva\n");
    const TablesRead told = read();
    ASSERT_EQ(told.warnings.size(), 1U);
    EXPECT_EQ(told.warnings[0], (TableProblem{"individuo.csv", 0, "Foi alterado depois de escrito; entra como está."}));
    EXPECT_EQ(row("select nome from individuo where nind = 2")["nome"], "Eva");
}

TEST_F(ABdpOfTables, RefusesCellsApartThatAreOfNoTable)
{
    const QByteArray head = "tabela,lugar,coluna,valor,forma,problema\n";
    put("individuo.csv", "nind\n1\n");
    EXPECT_TRUE(refusal("problemas.csv", head + "gente,1,nome,Ana,,\n").startsWith("problemas.csv:2: "));
    EXPECT_TRUE(refusal("problemas.csv", head + "individuo,um,nome,Ana,,\n").startsWith("problemas.csv:2: "));
    EXPECT_TRUE(refusal("problemas.csv", head + "individuo,9,altura,alto,,\n").startsWith("problemas.csv:2: "));
    EXPECT_TRUE(refusal("problemas.csv", head + "familia,1,obs,x,,\n").startsWith("problemas.csv:2: "));
    EXPECT_TRUE(refusal("problemas.csv", "tabela,lugar\n").startsWith("problemas.csv:1: "));
}

TEST_F(ABdpOfTables, IsNeverHalfMadeOfDamagedFiles)
{
    run("insert into individuo (nind, nome, famorig) values (1, 'Ana \"A\"', 77), (2, 'Rui', null)");
    run("insert into familia (nfamilia) values (1)");
    write();
    const QStringList names{"individuo.csv", "problemas.csv", "familia.csv"};
    const QStringList whole = QDir(tables()).entryList({"*.csv", "*.json"}, QDir::Files);
    for (const QString& name : whole)
        if (!names.contains(name)) QFile::remove(QDir(tables()).filePath(name));
    std::mt19937 random(16);
    for (int i = 0; i < 150; ++i) {
        const QString& name = names[i % 3];
        const QByteArray before = file(name);
        QByteArray after = before;
        for (int changes = 0; changes < 3; ++changes) {
            const auto at = qsizetype(random() % std::size_t(after.size()));
            after[at] = "\",\n\r;x\0\xFF="[random() % 9];
        }
        put(name, after);
        try {
            const TablesRead told = read();
            EXPECT_EQ(QFile::exists(made()), told.errors.empty());
            for (const TableProblem& error : told.errors)
                EXPECT_FALSE(error.file.isEmpty() || error.text.isEmpty());
        } catch (const jet::Error&) {
            EXPECT_FALSE(QFile::exists(made()));
        }
        put(name, before);
    }
}

TEST_F(ABdpOfTables, IsMadeByTheShellToo)
{
    run("insert into individuo (nind, nome, famorig) values (1, '=Ana', 77)");
    bdp.close();
    QString out, err;
    const auto orv = [&](const QStringList& arguments) {
        out.clear();
        err.clear();
        QTextStream outStream(&out), errStream(&err);
        return runCommand(arguments, outStream, errStream, [] { return true; });
    };
    const QString from = folder.filePath("a.orv"), into = folder.filePath("fora");
    EXPECT_EQ(orv({"exportar", "tabelas", from, into}), done) << qPrintable(err);
    EXPECT_TRUE(out.contains("individuo: 1\n") && out.contains("Células em problemas.csv: 1.\n")) << qPrintable(out);
    EXPECT_EQ(exchanged::faultsOf(into), QStringList());
    EXPECT_EQ(orv({"importar", "tabelas", into, "--bdp", made(), "--ensaio"}), done) << qPrintable(err);
    expectNothingMade();
    EXPECT_EQ(orv({"importar", "tabelas", into, "--bdp", made()}), done) << qPrintable(err);
    EXPECT_EQ(exchanged::everything(from), exchanged::everything(made()));
    EXPECT_EQ(orv({"importar", "tabelas", into, "--bdp", made()}), refused) << "there is one already";

    const QString sheet = folder.filePath("excel");
    EXPECT_EQ(orv({"exportar", "tabelas", from, sheet, "--excel", "--sem-orfas"}), done) << qPrintable(err);
    EXPECT_TRUE(out.contains("ficaram vazios: 1.\n"));
    QFile people(sheet + "/individuo.csv");
    ASSERT_TRUE(people.open(QIODevice::ReadWrite));
    EXPECT_TRUE(people.readAll().contains(";'=Ana;"));
    people.write("x;x;\r\n");
    people.close();
    QFile::remove(made());
    EXPECT_EQ(orv({"importar", "tabelas", sheet, "--bdp", made()}), refused);
    EXPECT_TRUE(err.contains("individuo.csv:3: ") && err.contains("Nada foi escrito.")) << qPrintable(err);
    expectNothingMade();
    EXPECT_EQ(orv({"exportar", "tabelas", folder.filePath("nenhuma.orv"), into}), refused);
    EXPECT_EQ(orv({"exportar", "tabelas", from}), wrongUsage);
}
