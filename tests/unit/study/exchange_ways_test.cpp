// The ways out of a BDP and into one, as they are offered.
#include "study/exchange/ways.h"
#include "study/windows/exchangeText.h"

#include "jet/fulldisk.h"
#include "study/exchange_tables.h"

#include <QDir>
#include <QFile>
#include <QSet>

using namespace study;
using namespace study::exchange;

namespace {

class TheWays : public ExchangedTables
{
protected:
    TheWays() { run("insert into individuo (nind, nome, sexo, famorig) values (1, 'Ana', 'f', 77)"); }

    OutOrder order(const QString& target) const
    {
        return {.bdp = folder.filePath("a.orv"), .target = folder.filePath(target), .today = QDate(2026, 1, 1)};
    }
    Exchanged out(const char* name, const OutOrder& order, const GoesOn& goesOn = {})
    {
        return writeOut(*wayOut(name), bdp, order, goesOn);
    }
    QByteArray bytes(const QString& name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // What is refused, and how.
    QString failure(const char* name, const OutOrder& order)
    {
        try {
            out(name, order);
        } catch (const jet::Error& error) {
            return error.description;
        }
        return {};
    }
};

} // namespace

TEST_F(TheWays, AreFoundByNamesOfTheirOwn)
{
    QSet<QString> names, titles;
    for (const WayOut& way : waysOut()) {
        EXPECT_EQ(wayOut(way.name), &way);
        names << way.name;
        titles << QString::fromUtf8(way.title);
        EXPECT_NE(QString::fromUtf8(way.explanation), "");
        EXPECT_EQ(QString(way.suffix).isEmpty(), way.target == Place::Folder) << way.name;
    }
    EXPECT_EQ(names.size(), waysOut().size());
    EXPECT_EQ(titles.size(), waysOut().size());
    for (const WayIn& way : waysIn()) {
        EXPECT_EQ(wayIn(way.name), &way);
        EXPECT_EQ(QString(way.filter).isEmpty(), way.source == Place::Folder) << way.name;
    }
    EXPECT_EQ(wayOut("nenhum"), nullptr);
    EXPECT_EQ(wayIn(""), nullptr);
}

TEST_F(TheWays, EachWritesSomethingThatTellsItself)
{
    for (const WayOut& way : waysOut()) {
        const OutOrder to = order(QString("alvo-") + way.name);
        EXPECT_FALSE(writeOut(way, bdp, to).lines.isEmpty()) << way.name;
        EXPECT_TRUE(QFileInfo::exists(to.target)) << way.name;
        EXPECT_EQ(QFileInfo(to.target).isDir(), way.target == Place::Folder) << way.name;
        EXPECT_THROW(writeOut(way, bdp, to, [](double) { return false; }), Interrupted) << way.name;
    }
}

TEST_F(TheWays, OfGedcomTakeTheirOptions)
{
    run("update individuo set datanasc = '1950-02-03', DnascFixa = 1");
    OutOrder to = order("a.ged");
    EXPECT_EQ(out("gedcom-5.5.1", to).lines,
              (QStringList{"Pessoas: 0; famílias: 0.", "Podem estar vivas e não foram: 1 pessoas."}));
    EXPECT_TRUE(bytes("a.ged").contains("\n2 VERS 5.5.1\n"));
    to.options.limitYears = 0;
    to.options.birthDates = BirthDates::Births;
    EXPECT_EQ(out("gedcom-7.0", to).lines.first(), "Pessoas: 1; famílias: 0.");
    EXPECT_TRUE(bytes("a.ged").contains("\n2 VERS 7.0\n"));
    EXPECT_TRUE(bytes("a.ged").contains("\n1 BIRT\n2 DATE 3 FEB 1950\n"));
}

TEST_F(TheWays, OfTablesTakeTheirOptionsAndTheMarkOfTheFile)
{
    OutOrder to = order("t");
    int asked = 0;
    to.source = [&] {
        ++asked;
        return parish::Source{
            .path = "/casa/de/alguem.orv", .bytes = 7, .sha256 = "00ff", .readAt = QDateTime::currentDateTime()};
    };
    EXPECT_TRUE(out("tabelas", to).lines.contains("Células em problemas.csv: 1."));
    EXPECT_EQ(asked, 1);
    const QByteArray package = bytes("t/datapackage.json");
    EXPECT_TRUE(package.contains("00ff"));
    EXPECT_FALSE(package.contains("/casa/de")) << "where the file lies is nobody's concern";
    to.target = folder.filePath("e");
    to.options.emptyOrphans = true;
    EXPECT_TRUE(out("tabelas-excel", to).lines.contains("Números que não levam a nenhum registo e ficaram vazios: 1."));
    EXPECT_TRUE(bytes("e/individuo.csv").contains(';'));
}

TEST_F(TheWays, TellWhatIsOfOtherProgramsAndStaysBehind)
{
    run("create table de_outro (a)");
    const Exchanged told = out("tabelas", order("t"));
    ASSERT_EQ(told.warnings.size(), 1U);
    EXPECT_EQ(textOf(told.warnings.front()), "Ficou de fora, por ser de outro programa: de_outro");
}

TEST_F(TheWays, WriteNothingOverTheBdpItself)
{
    for (const WayOut& way : waysOut())
        EXPECT_EQ(failure(way.name, order("a.orv")), "A BDP não se exporta para cima de si própria.") << way.name;
    QFile::link(folder.filePath("a.orv"), folder.filePath("b.ged"));
    EXPECT_EQ(failure("gedcom-7.0", order("b.ged")), "A BDP não se exporta para cima de si própria.");
}

TEST_F(TheWays, TellThatAFolderIsNone)
{
    QFile file(folder.filePath("f"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(failure("ids", order("f")), QString("\"%1\" não é uma pasta.").arg(file.fileName()));
}

TEST_F(TheWays, TellThatAFolderIsNotThere)
{
    for (const char* const name : {"gedcom-5.5.1", "gedcom-7.0"})
        EXPECT_EQ(failure(name, order("nenhures/a.ged")),
                  QString("A pasta \"%1\" não existe.").arg(folder.filePath("nenhures")));
}

TEST_F(TheWays, TellThatTheDiskIsFullAndWhereAndLeaveNothing)
{
    for (const WayOut& way : waysOut()) {
        const OutOrder to = order(QString("x.") + way.suffix);
        QString told;
        {
            const jet::test::FullDisk full(100);
            told = failure(way.name, to);
        }
        EXPECT_TRUE(told.startsWith("O disco está cheio: não foi possível escrever em \"" + to.target))
            << qPrintable(told);
        EXPECT_FALSE(QFileInfo::exists(to.target));
    }
}

TEST_F(TheWays, LeaveNoFolderThatTheyHaveMadeForNothing)
{
    const OutOrder to = order("t");
    EXPECT_THROW(out("tabelas", to, [](double) { return false; }), Interrupted);
    EXPECT_FALSE(QFileInfo::exists(to.target));
    QDir().mkdir(to.target);
    EXPECT_THROW(out("tabelas", to, [](double) { return false; }), Interrupted);
    EXPECT_TRUE(QFileInfo::exists(to.target)) << "it was there before";
    EXPECT_EQ(failure("tabelas", order("nenhures/t")),
              QString("A pasta \"%1\" não pode ser criada.").arg(folder.filePath("nenhures/t")));
}

TEST_F(TheWays, AskBeforeSomethingIsReplaced)
{
    const WayOut &gedcom = *wayOut("gedcom-5.5.1"), &tables = *wayOut("tabelas");
    EXPECT_EQ(questionBefore(gedcom, folder.filePath("novo.ged")), "");
    EXPECT_EQ(questionBefore(gedcom, folder.filePath("a.orv")),
              QString("O ficheiro \"%1\" já existe. Deseja substituí-lo?").arg(folder.filePath("a.orv")));
    QDir().mkdir(folder.filePath("vazia"));
    EXPECT_EQ(questionBefore(tables, folder.filePath("vazia")), "");
    EXPECT_EQ(questionBefore(tables, folder.filePath("nenhures")), "");
    EXPECT_TRUE(questionBefore(tables, folder.path()).contains("não está vazia"));
}

TEST_F(TheWays, MakeABdpOfTablesAfterARehearsalThatLeavesNothing)
{
    out("tabelas", order("tabelas"));
    bdp.close();
    InOrder in{.source = tables(), .bdp = made(), .rehearse = true};
    const Exchanged rehearsed = readIn(*wayIn("tabelas"), nullptr, in);
    EXPECT_FALSE(QFile::exists(made()));
    in.rehearse = false;
    EXPECT_EQ(readIn(*wayIn("tabelas"), nullptr, in), rehearsed);
    EXPECT_TRUE(rehearsed.lines.contains("individuo: 1"));
    EXPECT_EQ(exchanged::everything(folder.filePath("a.orv")), exchanged::everything(made()));
}

TEST_F(TheWays, NameFileAndLineOfWhatTheyCanNotTake)
{
    QDir().mkdir(tables());
    put("individuo.csv", "nind,nome\n1,Ana\nx,Rui\n");
    const Exchanged told = readIn(*wayIn("tabelas"), nullptr, {.source = tables(), .bdp = made()});
    EXPECT_FALSE(QFile::exists(made()));
    EXPECT_TRUE(told.lines.isEmpty()) << "nothing was written";
    ASSERT_EQ(told.errors.size(), 1U);
    EXPECT_TRUE(textOf(told.errors.front()).startsWith("individuo.csv:3: ")) << qPrintable(reportOn(told));
    EXPECT_TRUE(reportOn(told).startsWith("Erros:\r\nindividuo.csv:3: "));
}

TEST(TheTextOfAWay, HasTheLinesFirstAndThenWhatIsWrong)
{
    const Exchanged told{.lines = {"individuo: 2"},
                         .warnings = {{"familia.csv", 0, "Coluna."}, {.text = "Outro."}},
                         .errors = {{"individuo.csv", 4, "Não."}}};
    EXPECT_EQ(reportOn(told),
              "individuo: 2\r\n\r\nAvisos:\r\nfamilia.csv: Coluna.\r\nOutro.\r\n\r\nErros:\r\nindividuo.csv:4: Não.");
    EXPECT_EQ(reportOn({}), "");
}

TEST(TheTextOfAWay, ProposesAPlaceBesideTheNameOfTheBdp)
{
    EXPECT_EQ(proposedTarget(*wayOut("gedcom-7.0"), "/bdp/Moinhos 1.2.orv", "/casa"), "/casa/Moinhos 1.2.ged");
    EXPECT_EQ(proposedTarget(*wayOut("tabelas-excel"), "/bdp/moinhos.orv", "/casa"), "/casa/moinhos-tabelas-excel");
}

TEST(TheTextOfAWay, MakesAWholePathOfWhatIsTyped)
{
    EXPECT_EQ(wholePath("moinhos", "/casa", "ged"), "/casa/moinhos.ged");
    EXPECT_EQ(wholePath("/fora/../moinhos.txt", "/casa", "ged"), "/moinhos.txt");
    EXPECT_EQ(wholePath("tabelas/", "/casa", {}), "/casa/tabelas");
    EXPECT_EQ(wholePath("  ", "/casa", "ged"), "");
    EXPECT_EQ(wholePath(" /fora/moinhos.ged\n", "/casa", "ged"), "/fora/moinhos.ged") << "as it is pasted";
}

TEST(TheTextOfAWay, KnowsFilesThatWereAltered)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString before = stampOf(folder.path()), of = stampOf(file.fileName());
    file.write("x");
    file.flush();
    EXPECT_NE(stampOf(folder.path()), before);
    EXPECT_NE(stampOf(file.fileName()), of);
    EXPECT_EQ(stampOf(folder.path()), stampOf(folder.path()));
}
