// The daily copy: when it is made, what it holds, and that it stands in nobody's way.
#include "store/copiaDiaria.h"

#include "forms/house.h"
#include "jet/recordeddisk.h"
#include "jet/testbdp.h"
#include "platform/jet/recordset.h"
#include "store/modBD.h"
#include "store/session.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QStatusBar>
#include <QTemporaryDir>

#include <filesystem>

using jet::test::errorOf;

namespace {

class DailyCopy : public House
{
protected:
    DailyCopy()
    {
        window.statusBar();
        setDiaDaCopia([this] { return hoje; });
        setEsperaDaCopia(60'000); // however slow the machine
        jet::createDatabase(bdp);
        jet::Connection nova;
        nova.open(bdp);
        CriaTabelas(nova, ORV_DATA_DIR "/CriarTab.dat");
        nova.close();
        EXPECT_TRUE(AbreBDP(bdp));
    }
    ~DailyCopy() override
    {
        cnBDP.close();
        setDiaDaCopia({});
        setEsperaDaCopia(-1);
    }

    static void escreve(const QString& codigo)
    {
        cnBDP.execute("insert into pais (codpais, nomepais) values ('" + codigo + "', 'X')");
    }
    // 3,000 professions of two thousand letters each.
    static void tornaGrande()
    {
        cnBDP.beginTrans();
        for (int i = 0; i < 3000; ++i)
            cnBDP.execute(QString("insert into profissao (codprof, profissao, obs) values (%1, 'x', '%2')")
                              .arg(i)
                              .arg(QString(2000, 'x')));
        cnBDP.commitTrans();
    }
    QStringList copias() const
    {
        esperaCopiaDiaria();
        return QDir(pasta.filePath("copias")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    // How many countries a file has: each write has made one.
    static QString paises(const QString& ficheiro)
    {
        jet::Connection copia;
        copia.open(ficheiro);
        return jet::Recordset(copia, "select count(*) as n from pais")["n"].toString();
    }
    QString nota()
    {
        esperaCopiaDiaria();
        QCoreApplication::processEvents();
        const auto* nota = window.findChild<QLabel*>("statusNote");
        return nota && !nota->isHidden() ? nota->toolTip() : QString();
    }

    QTemporaryDir pasta;
    QString bdp = pasta.filePath("arga.orv");
    QDate hoje{2026, 11, 22};
};

} // namespace

TEST_F(DailyCopy, IsMadeAtTheFirstWriteOfADayWithTheBdpAsItWas)
{
    const jet::Recordset leitura(cnBDP, "select * from pais");
    EXPECT_EQ(copias(), QStringList());
    EXPECT_FALSE(QDir(pasta.path()).exists("copias"));
    escreve("01");
    escreve("02");
    EXPECT_EQ(copias(), QStringList("arga_2026-11-22.orv"));
    EXPECT_EQ(paises(pasta.filePath("copias/arga_2026-11-22.orv")), "0");
    EXPECT_EQ(paises(bdp), "2");
    hoje = hoje.addDays(1);
    escreve("03");
    EXPECT_EQ(copias(), (QStringList{"arga_2026-11-22.orv", "arga_2026-11-23.orv"}));
    EXPECT_EQ(paises(pasta.filePath("copias/arga_2026-11-23.orv")), "2");
}

TEST_F(DailyCopy, IsMadeBeforeTheFirstStatementOfATransactionWhateverBecomesOfIt)
{
    cnBDP.beginTrans();
    EXPECT_EQ(copias(), QStringList());
    escreve("01");
    cnBDP.rollbackTrans();
    EXPECT_EQ(copias(), QStringList("arga_2026-11-22.orv"));
    EXPECT_EQ(paises(pasta.filePath("copias/arga_2026-11-22.orv")), "0");
    cnBDP.beginTrans();
    escreve("02");
    hoje = hoje.addDays(1); // midnight in the middle of it
    escreve("03");
    cnBDP.commitTrans();
    EXPECT_EQ(copias().size(), 1);
    escreve("04");
    EXPECT_EQ(copias().size(), 2);
    EXPECT_EQ(paises(pasta.filePath("copias/arga_2026-11-23.orv")), "2");
}

TEST_F(DailyCopy, IsThatOfTheFirstSessionOfTheDay)
{
    escreve("01");
    EXPECT_EQ(copias().size(), 1);
    EXPECT_TRUE(AbreBDP(bdp));
    escreve("02");
    EXPECT_EQ(copias().size(), 1);
    EXPECT_EQ(paises(pasta.filePath("copias/arga_2026-11-22.orv")), "0");
}

TEST_F(DailyCopy, IsOnTheDiskBeforeItHasItsNameAndBeforeAnOlderOneGoes)
{
    escreve("01");
    QDir copia(pasta.filePath("copias"));
    ASSERT_EQ(copias().size(), 1);
    for (int i = 1; i < 30; ++i)
        ASSERT_TRUE(QFile::copy(copia.filePath("arga_2026-11-22.orv"),
                                copia.filePath("arga_2026-10-" + QString("%1").arg(i, 2, 10, QChar('0')) + ".orv")));
    QFile estranho(copia.filePath("arga_2026-10-03 antes do restauro.orv"));
    ASSERT_TRUE(estranho.open(QIODevice::WriteOnly));
    hoje = hoje.addDays(1);
    jet::test::RecordedDisk disk;
    escreve("02");
    esperaCopiaDiaria();
    const QStringList& feito = disk.done();
    EXPECT_EQ(feito.mid(0, 6).join(' '),
              "makefolder copias make x sync x place x>arga_2026-11-23.orv syncfolder syncfolder");
    EXPECT_EQ(feito.last(), "syncfolder");
    EXPECT_EQ(feito.filter("remove").size(), feito.size() - 7);
    EXPECT_GT(feito.filter("remove").size(), 15);
    EXPECT_TRUE(estranho.exists());
    EXPECT_TRUE(copia.exists("arga_2026-10-29.orv"));
    EXPECT_FALSE(copia.exists("arga_2026-10-10.orv"));
}

TEST_F(DailyCopy, OfALargeBdpIsMadeBehindTheWriterWhoDoesNotWait)
{
    setEsperaDaCopia(0);
    tornaGrande();
    EXPECT_EQ(copias().size(), 1); // of the small one, at the first write
    hoje = hoje.addDays(1);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(errorOf([&] { escreve(QString::number(10 + i)); }).number, 0);
    EXPECT_EQ(copias().size(), 2);
    jet::Connection copia;
    copia.open(pasta.filePath("copias/arga_2026-11-23.orv"));
    EXPECT_EQ(jet::Recordset(copia, "select count(*) as n from profissao")["n"].toInt(), 3000);
}

TEST_F(DailyCopy, IsThereForWhoAsksForItBeforeHeWrites)
{
    tornaGrande();
    ASSERT_EQ(copias().size(), 1);
    hoje = hoje.addDays(1);
    setEsperaDaCopia(0);
    EXPECT_EQ(garanteCopiaDeHoje(), "");
    escreve("01");
    EXPECT_EQ(paises(pasta.filePath("copias/arga_2026-11-23.orv")), "0") << "as it was before the write";
    hoje = hoje.addDays(1);
    {
        jet::test::RecordedDisk disk;
        disk.fail("place", std::errc::no_space_on_device);
        EXPECT_TRUE(garanteCopiaDeHoje().contains("O disco está cheio"));
    }
    EXPECT_EQ(garanteCopiaDeHoje(), "") << "tried again";
    EXPECT_EQ(copias().size(), 3);
}

TEST_F(DailyCopy, UnderWayIsDroppedCleanlyAtTheEndOfTheSessionAndMadeInTheNext)
{
    tornaGrande();
    ASSERT_EQ(copias().size(), 1);
    hoje = hoje.addDays(1);
    setEsperaDaCopia(0);
    escreve("01");
    cnBDP.close();
    for (const QString& ficheiro : copias())
        EXPECT_TRUE(ficheiro == "arga_2026-11-22.orv" || ficheiro == "arga_2026-11-23.orv") << ficheiro.toStdString();
    setEsperaDaCopia(60'000);
    EXPECT_TRUE(AbreBDP(bdp));
    escreve("02");
    EXPECT_EQ(copias().size(), 2);
}

TEST_F(DailyCopy, ThatFailsNeverStopsTheWriteAndIsToldOnce)
{
    for (const char* operation : {"makefolder", "make", "sync", "place"}) {
        hoje = hoje.addDays(1);
        {
            jet::test::RecordedDisk disk;
            disk.fail(operation, std::errc::no_space_on_device);
            escreve(QString::number(hoje.day()));
            EXPECT_TRUE(nota().contains("O disco está cheio")) << operation;
            const auto tentativas = disk.done().size();
            cnBDP.execute("delete from pais");
            esperaCopiaDiaria();
            EXPECT_EQ(disk.done().size(), tentativas);
        }
        EXPECT_EQ(copias(), QStringList()) << operation;
    }
}

TEST_F(DailyCopy, IsNotMadeWhereTheWorkOfTheDayMayNeedTheDisk)
{
    jet::test::RecordedDisk disk;
    disk.fill();
    escreve("01");
    EXPECT_TRUE(nota().contains("O disco está cheio"));
    EXPECT_EQ(disk.done(), QStringList());
    EXPECT_FALSE(QDir(pasta.path()).exists("copias"));
    EXPECT_EQ(paises(bdp), "1");
}

TEST_F(DailyCopy, ThatAnotherProgramHasOpenDoesNotGo)
{
    escreve("01");
    QDir copia(pasta.filePath("copias"));
    ASSERT_EQ(copias().size(), 1);
    QStringList antigas;
    for (int i = 10; i < 30; ++i) {
        antigas << copia.filePath("arga_2026-09-" + QString::number(i) + ".orv");
        ASSERT_TRUE(QFile::copy(copia.filePath("arga_2026-11-22.orv"), antigas.last()));
    }
    jet::Connection alheia;
    alheia.open(antigas.first(), jet::Connection::Sharing::Alone);
    hoje = hoje.addDays(1);
    escreve("02");
    esperaCopiaDiaria();
    EXPECT_TRUE(QFile::exists(antigas[0]));
    EXPECT_FALSE(QFile::exists(antigas[1]));
}

TEST_F(DailyCopy, IsNotMadeWhereAFileHasTheNameOfItsFolder)
{
    QFile ficheiro(pasta.filePath("copias"));
    ASSERT_TRUE(ficheiro.open(QIODevice::WriteOnly));
    ficheiro.write("x");
    ficheiro.close();
    escreve("01");
    EXPECT_TRUE(nota().endsWith("copias\" não é uma pasta.")) << nota().toStdString();
    EXPECT_EQ(ficheiro.size(), 1);
    EXPECT_EQ(paises(bdp), "1");
}

TEST_F(DailyCopy, ThatCannotHaveItsNameIsToldAndTheWriteGoesOn)
{
    const QString longo = pasta.filePath(QString(235, 'x') + ".orv");
    cnBDP.close();
    ASSERT_TRUE(QFile::rename(bdp, longo));
    EXPECT_TRUE(AbreBDP(longo));
    escreve("01");
    EXPECT_TRUE(nota().endsWith("é demasiado longo.")) << nota().toStdString();
    EXPECT_EQ(copias(), QStringList());
    EXPECT_EQ(paises(longo), "1");
}

TEST_F(DailyCopy, HasTheNameOfItsBdpHoweverOdd)
{
    const QString estranho = pasta.filePath("a %1 %2 'b' \"c\" <b>;\né.orv");
    cnBDP.close();
    ASSERT_TRUE(QFile::rename(bdp, estranho));
    EXPECT_TRUE(AbreBDP(estranho));
    escreve("01");
    EXPECT_TRUE(nota().contains("a %1 %2 'b' &quot;c&quot; &lt;b&gt;;")) << nota().toStdString();
    EXPECT_EQ(copias(), QStringList("a %1 %2 'b' \"c\" <b>;\né_2026-11-22.orv"));
    EXPECT_EQ(paises(pasta.filePath("copias/" + copias().value(0))), "0");
}

TEST_F(DailyCopy, IsMadeBeforeTheBdpIsBroughtUpToDate)
{
    cnBDP.execute("alter table Familia drop column rpCas");
    cnBDP.close();
    hoje = hoje.addDays(1);
    EXPECT_TRUE(AbreBDP(bdp));
    EXPECT_TRUE(ExisteColuna("Familia", "rpCas", cnBDP));
    ASSERT_EQ(copias().size(), 2);
    jet::Connection copia;
    copia.open(pasta.filePath("copias/" + copias().last()));
    EXPECT_FALSE(ExisteColuna("Familia", "rpCas", copia));
}

TEST_F(DailyCopy, MeetsAClockThatIsSetBack)
{
    escreve("01");
    hoje = hoje.addYears(-3);
    escreve("02");
    hoje = hoje.addYears(3);
    escreve("03");
    EXPECT_EQ(copias(), (QStringList{"arga_2023-11-22.orv", "arga_2026-11-22.orv"}));
    EXPECT_EQ(paises(pasta.filePath("copias/arga_2026-11-22.orv")), "0");
    EXPECT_EQ(paises(pasta.filePath("copias/arga_2023-11-22.orv")), "1");
}

TEST_F(DailyCopy, IsToldInTheStatusBarUntilTheSessionEnds)
{
    EXPECT_EQ(nota(), "");
    escreve("01");
    EXPECT_TRUE(nota().contains("copias")) << nota().toStdString();
    EXPECT_TRUE(window.findChild<QLabel*>("statusNote")->text().startsWith("Cópia diária guardada em "));
    cnBDP.close();
    EXPECT_EQ(nota(), "");
}

TEST_F(DailyCopy, OfACopyIsNotMade)
{
    escreve("01");
    const QString copia = pasta.filePath("copias/" + copias().value(0));
    EXPECT_TRUE(AbreBDP(copia));
    escreve("02");
    esperaCopiaDiaria();
    EXPECT_EQ(copias().size(), 1);
    EXPECT_EQ(QDir(pasta.path()).entryList({"copias"}, QDir::Dirs, QDir::Name).size(), 1);
    EXPECT_FALSE(QDir(pasta.filePath("copias")).exists("copias"));
}

TEST_F(DailyCopy, IsNotMadeOfAnotherFileThatStandsUnderTheName)
{
    ASSERT_TRUE(QFile::rename(bdp, pasta.filePath("outra.orv")));
    jet::createDatabase(bdp);
    EXPECT_NE(errorOf([&] { escreve("01"); }).number, 0);
    EXPECT_EQ(copias(), QStringList());
}

TEST_F(DailyCopy, StandsBesideTheFileThatALinkLeadsTo)
{
    const QTemporaryDir longe;
    const QString ligacao = longe.filePath("ligada.orv");
    ASSERT_TRUE(QFile::link(bdp, ligacao));
    EXPECT_TRUE(AbreBDP(ligacao));
    escreve("01");
    EXPECT_EQ(copias(), QStringList("arga_2026-11-22.orv"));
    EXPECT_FALSE(QDir(longe.path()).exists("copias"));
}
