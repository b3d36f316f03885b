// All tables of a BDP as files of another program, and back.
#include "study/exchange_tables.h"

#include "demo.h"
#include "platform/jet/jsonrow.h"
#include "platform/jet/transaction.h"
#include "store/lixo_tabelas.h"
#include "study/acts/register.h"
#include "study/checks/seen.h"
#include "study/checks/settings.h"
#include "study/exchange/gedcomIn.h"
#include "study/exchange/tableList.h"
#include "study/indicators/settingsJson.h"
#include "study/linkage/decisions.h"
#include "study/linkage/model.h"
#include "study/people/finder.h"
#include "study/randomacts.h"
#include "study/transcripts/importSources.h"
#include "study/transcripts/table.h"
#include "truth/truth.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>

#include <random>

namespace study::exchange {

namespace {

class TablesOfABdp : public ExchangedTables
{
protected:
    void writeDemonstration() { demo::write(demo::demonstration(), bdp); }

    // The tables of the study, each filled by whom it is of.
    void writeStudy(unsigned seed)
    {
        RandomActs random(seed);
        for (int i = 0; i < 5; ++i) {
            const Act act = random.act();
            const Conclusions conclusions = random.conclusionsOf(act);
            jet::Transaction transaction(bdp);
            addAct(bdp, act, conclusions, random.planOf(act, conclusions));
            transaction.commit();
        }
        saveDraft(bdp, random.act(), {});
        run(lixo::criacao);
        run("insert into estudo_lixo values (7, '2026-11-22 09:24:22', 'i', 12, 'Ana', null, '{\"linhas\": []}')");
        checks::Case seen;
        seen.text = "\"visto\"; =1";
        checks::putAside(bdp, {seen}, "");
        checks::Settings rules;
        rules.tolerance = 2.5;
        checks::keepSettings(bdp, rules);
        indicators::Settings settings;
        settings.cohortYears = 25;
        indicators::keepSettings(bdp, settings);
        linkage::store(bdp, linkage::startModel());
        keepSources(bdp, {{.id = "B1", .notes = "linha 1\nlinha 2"}});
        keepAssignment(bdp, {"Data", "Pai; \"Mãe\""}, proposed({"Data", "Pai; \"Mãe\""}));
        jet::Transaction transaction(bdp);
        linkage::Recording recording(bdp);
        recording.keep({});
        transaction.commit();
        QFile gedcom(folder.filePath("a.ged"));
        gedcom.open(QIODevice::WriteOnly);
        gedcom.write("0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 NAME Ana\n0 TRLR\n");
        gedcom.close();
        importGedcom(bdp, gedcom.fileName(), {.copyBefore = false});
    }
};

} // namespace

TEST_F(TablesOfABdp, AreAllDescribedAndNoOthers)
{
    writeStudy(1);
    QStringList described;
    for (const TableInfo& table : allTables()) {
        EXPECT_TRUE(bdp.tables().contains(table.name)) << qPrintable(table.name);
        for (const TableColumn& column : table.columns) {
            described << table.name + '.' + column.name;
            EXPECT_TRUE(column.portuguese.endsWith('.') && column.english.endsWith('.'))
                << qPrintable(described.last());
        }
    }
    for (const jet::Connection::Column& column : bdp.columns())
        EXPECT_TRUE(isIndexOfNames(column.table) || described.contains(column.table + '.' + column.name.toLower()))
            << qPrintable(column.table + '.' + column.name);
    EXPECT_EQ(described.size(), QSet<QString>(described.begin(), described.end()).size());
}

TEST_F(TablesOfABdp, LeadToKeysOfTablesOfThePackage)
{
    for (const TableInfo& table : allTables())
        for (const TableColumn& column : table.columns) {
            if (column.table.isEmpty()) continue;
            const TableInfo* other = tableOf(column.table);
            ASSERT_TRUE(other) << qPrintable(column.table);
            EXPECT_EQ(other->key, QStringList{column.key}) << qPrintable(table.name + '.' + column.name);
        }
}

TEST_F(TablesOfABdp, ComeBackRowByRowOfTheDemonstration)
{
    writeDemonstration();
    const TablesWritten written = write();
    EXPECT_EQ(written.apart, 0);
    EXPECT_EQ(written.leftOut, QStringList());
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
    expectTheSameBdp();
    expectTheSameBdp({.dialect = Dialect::Spreadsheet});
}

TEST_F(TablesOfABdp, ComeBackRowByRowWhateverTheirLetters)
{
    const truth::Parish parish = truth::parish(300, 16, ORV_DATA_DIR);
    truth::write(parish.bdp, parish.world, bdp);
    std::mt19937 random(16);
    for (int nind = 1; nind <= 300; ++nind)
        run("update individuo set nome = ?, obs = ?, causa = ?, alcunha = ?, tipo = ? where nind = ?",
            {exchanged::anyText(random), exchanged::anyText(random),
             nind % 3 == 0 ? QVariant() : exchanged::anyText(random), exchanged::anyText(random),
             exchanged::anyText(random).left(1), nind});
    run("update individuo set nome = ? where nind = 1", {exchanged::letters().left(250)});
    run("update profissao set profissao = ?, obs = ? where codprof in (select min(codprof) from profissao)",
        {exchanged::anyText(random), exchanged::anyText(random)});
    run("update lugar set nomelugar = ?", {QString("=cmd|' /C calc'!A0")});
    writeStudy(16);
    expectTheSameBdp();
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
    expectTheSameBdp({.dialect = Dialect::Spreadsheet});
}

TEST_F(TablesOfABdp, ComeBackRowByRowOfTheStudyForManySeeds)
{
    for (unsigned seed = 2; seed < 6; ++seed) {
        RandomActs random(seed);
        const Act act = random.act();
        const Conclusions conclusions = random.conclusionsOf(act);
        jet::Transaction transaction(bdp);
        addAct(bdp, act, conclusions, random.planOf(act, conclusions));
        transaction.commit();
        expectTheSameBdp({.dialect = seed % 2 == 0 ? Dialect::Standard : Dialect::Spreadsheet});
        if (seed % 2 == 0) {
            EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
        }
    }
}

TEST_F(TablesOfABdp, KeepThePlacesOfTheirRowsWhereOthersHaveGone)
{
    writeDemonstration();
    run("delete from assistente where rowid % 3 = 0");
    run("delete from individuo where nind = 5");
    expectTheSameBdp();
}

TEST_F(TablesOfABdp, KeepNothingAndAnEmptyTextApart)
{
    run("insert into individuo (nind, nome, obs, titulo) values (1, '', null, ' ')");
    write();
    const QList<QStringList> rows = exchanged::cells(file("individuo.csv"));
    EXPECT_EQ(rows[1].mid(0, 4), (QStringList{"1", "1", "\"\"", ""}));
    expectTheSameBdp();
    expectTheSameBdp({.dialect = Dialect::Spreadsheet});
}

TEST_F(TablesOfABdp, PutOrphanKeysApartAndTakeThemBack)
{
    run("insert into individuo (nind, nome, famorig) values (1, 'Ana', 77)");           // F-02
    run("insert into familia (nfamilia, primpadrecasam) values (3, 99)");               //
    run("insert into familias (nfamilia, nind, idade) values (3, 88, 20), (3, 1, 21)"); // F-03
    const TablesWritten written = write();
    EXPECT_EQ(written.apart, 5);
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
    const QList<QStringList> rows = exchanged::cells(file("problemas.csv"));
    const QString none = "não há nenhum registo com este número em ";
    EXPECT_EQ(rows, (QList<QStringList>{
                        {"tabela", "lugar", "coluna", "valor", "forma", "problema"},
                        {"individuo", "1", "famorig", "77", "", none + "familia"},
                        {"familia", "1", "primpadrecasam", "99", "", none + "individuo"},
                        {"familias", "1", "nfamilia", "3", "", "a linha não pode estar na tabela"},
                        {"familias", "1", "nind", "88", "", none + "individuo"},
                        {"familias", "1", "idade", "20", "", "a linha não pode estar na tabela"},
                    }));
    EXPECT_EQ(exchanged::cells(file("familias.csv")).size(), 2);
    EXPECT_TRUE(resource("individuo")["description"].toString().contains("problemas.csv: 1."));
    expectTheSameBdp();
    expectTheSameBdp({.dialect = Dialect::Spreadsheet});
    EXPECT_EQ(read().warnings.size(), 3U) << "the orphans are told when they come back";
}

TEST_F(TablesOfABdp, LeaveOrphanKeysEmptyWhereThatWasChosen)
{
    run("insert into individuo (nind, nome, famorig) values (1, 'Ana', 77)");
    const TablesWritten written = write({.orphans = Orphans::Emptied});
    EXPECT_EQ(written.apart, 0);
    EXPECT_EQ(written.emptied, 1);
    EXPECT_TRUE(file("problemas.csv").isEmpty());
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
    EXPECT_TRUE(resource("individuo")["description"].toString().contains("ficaram vazios: 1."));
}

TEST_F(TablesOfABdp, KeepWhatItsColumnShouldNotHold)
{
    run("insert into individuo (nind, nome) values (1, 'Ana'), (2, 'Rui'), (4, 'Eva')");
    bdp.close();
    runRaw(
        "pragma ignore_check_constraints = on;"
        "update individuo set nome = x'00ff10', altura = 1.5, filiacao = 'dois', datanasc = '1702-02' where nind = 1;"
        "update individuo set nome = cast(x'41ff42' as text), obs = cast(x'410042' as text) where nind = 2;"
        "insert into individuo (nind, nome) values (2.5, 'Meio');"
        "insert into individuo (nind, altura) values (5, 9e999);"
        "update pais set prioridade = 'alta' where codpais = 'PT';"
        "insert into infopar (cod, nome) values (x'30', 'A');");
    bdp.open(folder.filePath("a.orv"));
    const TablesWritten written = write();
    EXPECT_EQ(written.apart, 11);
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
    EXPECT_TRUE(file("problemas.csv").contains(R"(individuo,1,nome,"[{""blob"":""AP8Q""}]",json,)"));
    const TablesRead back = read();
    EXPECT_FALSE(back.errors.empty()) << "what the tables of a BDP refuse isn't brought into one";
    EXPECT_FALSE(QFile::exists(made()));
}

TEST_F(TablesOfABdp, KeepATextThatIsNoneWhereNoRuleForbidsIt)
{
    run("insert into individuo (nind, nome) values (1, 'Ana'), (2, 'Rui')");
    bdp.close();
    runRaw("update individuo set nome = x'00ff10', estatura = cast(x'41ff42' as text) where nind = 1;"
           "update individuo set obs = cast(x'410042' as text), altura = 1.5 where nind = 2;"
           "insert into individuo (nind, nome, obs) values (2.5, 'Meio', '');"
           "insert into familia (nfamilia) values (1e300);"
           "insert into infopar (cod, nome) values (x'30', 'A');");
    bdp.open(folder.filePath("a.orv"));
    expectTheSameBdp();
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
    expectTheSameBdp({.dialect = Dialect::Spreadsheet});
}

TEST_F(TablesOfABdp, TellWhatCodesPlacesAndProfessionsMean)
{
    run("insert into individuo (nind, nome, filiacao, estadoobito, localnasc, tipolocalnasc) values (1, 'Ana', 6, 99, "
        "'PT', 'P')");
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, tipo) values (1, 1, 'Missa', 1)");
    const auto text = [&](const char* select) {
        return jet::jsonRows(bdp, jet::NativeSql(select)).first().begin()->toString();
    };
    write();
    const auto cell = [&](const QString& name, const QString& column) {
        const QList<QStringList> rows = exchanged::cells(file(name));
        return rows[1].value(rows[0].indexOf(column));
    };
    EXPECT_EQ(cell("individuo.csv", "filiacao_texto"), "Exposto");
    EXPECT_EQ(cell("individuo.csv", "estadoobito_texto"), "");
    EXPECT_EQ(cell("individuo.csv", "localnasc_texto"), "Portugal");
    EXPECT_EQ(cell("rituaismorte.csv", "tipo_texto"),
              text("select descricao from infocomplementar where categoria = 'TipMi' and codigo = '1'"));
}

TEST_F(TablesOfABdp, NameTheWordsOfAColumnOnlyWhereItHoldsNoOther)
{
    const auto sexes = [&] {
        for (const QJsonValue field : resource("individuo").value("schema")["fields"].toArray())
            if (field["name"] == "sexo") return field["constraints"]["enum"].toArray();
        return QJsonArray();
    };
    run("insert into individuo (nind, sexo) values (1, 'f')");
    write();
    EXPECT_EQ(sexes(), (QJsonArray{"m", "f", "d"}));
    run("insert into individuo (nind, sexo) values (2, 'M')");
    write();
    EXPECT_EQ(sexes(), QJsonArray());
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
}

TEST_F(TablesOfABdp, AreTheSameBytesForTheSameBdp)
{
    writeDemonstration();
    writeStudy(3);
    write();
    const QStringList names = QDir(tables()).entryList(QDir::Files);
    QMap<QString, QByteArray> before;
    for (const QString& name : names)
        before[name] = file(name);
    write();
    EXPECT_EQ(QDir(tables()).entryList(QDir::Files), names);
    for (const QString& name : names)
        EXPECT_EQ(before[name], file(name)) << qPrintable(name);
    EXPECT_FALSE(package().contains("created"));
    const QDateTime moment(QDate(2026, 11, 22), QTime(9, 0), Qt::UTC);
    write({.made = moment});
    EXPECT_EQ(package()["created"], "2026-11-22T09:00:00Z");
}

TEST_F(TablesOfABdp, AreOfASpreadsheetOfPortugalWhereThatWasAsked)
{
    run("insert into individuo (nind, nome, datanasc) values (1, '=1+1', '1702-02-14'), (2, '''-a', null)");
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, quantidade, valorunit) values (1, 1, 'missa', 2.5, -3)");
    write({.dialect = Dialect::Spreadsheet});
    const QByteArray people = file("individuo.csv");
    EXPECT_TRUE(people.startsWith("\xEF\xBB\xBFrowid;nind;nome;"));
    EXPECT_EQ(people.count("\r\n"), 3);
    const QList<QStringList> rows = exchanged::cells(people, ';');
    EXPECT_EQ(rows[1][2], "'=1+1");
    EXPECT_EQ(rows[2][2], "''-a");
    EXPECT_EQ(rows[1].value(rows[0].indexOf("datanasc")), "14/02/1702");
    EXPECT_EQ(exchanged::cells(file("rituaismorte.csv"), ';')[1].mid(6, 2), (QStringList{"2,5", "-3"}));
    const QJsonObject schema = resource("rituaismorte");
    EXPECT_EQ(schema["dialect"]["delimiter"], ";");
    EXPECT_EQ(schema["schema"]["fields"][6]["decimalChar"], ",");
    write();
    EXPECT_TRUE(file("individuo.csv").contains(",=1+1,")) << "others get the text as it is";
}

TEST_F(TablesOfABdp, TellWhatIsOfOtherPrograms)
{
    bdp.close();
    runRaw("create table lista (a); alter table individuo add column cor varchar;"
           "create table estudo_visto (outra); insert into lista values (1);");
    bdp.open(folder.filePath("a.orv"));
    const TablesWritten written = write();
    EXPECT_EQ(written.leftOut, (QStringList{"individuo.cor", "estudo_visto", "lista"}));
}

TEST_F(TablesOfABdp, DoNotTakeTheIndexOfTheNames)
{
    writeDemonstration();
    Act act;
    act.people << ActPerson{};
    act.people.last().role = study::Role::Child;
    act.people.last().name.value = "Maria";
    Finder(bdp).find(act, 0, {.people = {Identity{}}});
    ASSERT_TRUE(bdp.tables().contains("estudo_nome"));
    EXPECT_EQ(write().leftOut, QStringList());
    EXPECT_TRUE(file("estudo_nome.csv").isEmpty());
    expectTheSameBdp();
}

TEST_F(TablesOfABdp, LeaveTheFolderAsItWasWhereTheyAreCancelled)
{
    writeDemonstration();
    put("notas.txt", "minhas");
    int asked = 0;
    EXPECT_THROW(write({.goesOn = [&](double) { return ++asked < 2; }}), Interrupted);
    EXPECT_EQ(QDir(tables()).entryList(QDir::Files | QDir::Hidden), QStringList("notas.txt"));
}

TEST_F(TablesOfABdp, AreNotWrittenOverAFileOfSomebodyElse)
{
    put("individuo.csv", "minhas\n");
    EXPECT_THROW(write(), jet::Error);
    EXPECT_EQ(QDir(tables()).entryList(QDir::Files | QDir::Hidden), QStringList("individuo.csv"));
    EXPECT_EQ(file("individuo.csv"), "minhas\n");
}

} // namespace study::exchange
