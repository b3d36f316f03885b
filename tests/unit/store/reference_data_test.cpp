#include "jet/fulldisk.h"
#include "store/modBD.h"
#include "store/programfolder.h"

#include <QDir>

namespace {

constexpr const char* dataFiles[] = {"paises.dat",  "zonas.dat", "distrito.dat", "concelho.dat", "freguesia.dat",
                                     "lugares.dat", "sitio.dat", "prof.dat",     "dados.dat"};

class ReferenceData : public ProgramFolder
{
protected:
    ReferenceData()
    {
        for (const char* name : dataFiles)
            write(name, "");
        create(bdp);
        bdp.execute("create table pais (codpais varchar(15) not null, nomepais varchar(255), prioridade long, "
                    "constraint PKpais primary key (codpais))");
    }

    jet::Error load(const QByteArray& paises)
    {
        write("paises.dat", paises);
        return errorOf([&] { CarregaDadosIniciais(bdp); });
    }

    double countries() { return value(bdp, "select count(*) from pais").toDouble(); }

    jet::Connection bdp;
};

} // namespace

TEST_F(ReferenceData, HeaderAndRowsGoIntoTheTable)
{
    EXPECT_EQ(load("codpais;nomepais;prioridade\r\nPT;Portugal;2\r\n01;Espanha; 1 ").number, 0);
    EXPECT_EQ(countries(), 2);
    EXPECT_EQ(value(bdp, "select nomepais from pais where codpais = 'PT'"), "Portugal");
    EXPECT_EQ(value(bdp, "select prioridade from pais where codpais = '01'").toDouble(), 1);
}

TEST_F(ReferenceData, OnlyTheColumnsOfTheHeaderAreSet)
{
    EXPECT_EQ(load("nomepais;codpais\nPortugal;PT\n").number, 0);
    EXPECT_TRUE(value(bdp, "select prioridade from pais").isNull());
}

TEST_F(ReferenceData, EmptyAndHeaderOnlyFilesLoadNothing)
{
    EXPECT_EQ(load("").number, 0);
    EXPECT_EQ(load("codpais;nomepais;prioridade").number, 0);
    EXPECT_EQ(load("coluna;que;ninguém;tem\n").number, jet::number::typeMismatch); // saved as UTF-8
    EXPECT_EQ(load("coluna;que;falta\n").number, 0);
    EXPECT_EQ(countries(), 0);
}

TEST_F(ReferenceData, WhatCameBeforeABadLineStays)
{
    const QByteArray good = "codpais;nomepais;prioridade\nPT;Portugal;0\n";
    const char* badLines[] = {"",                         // a blank line
                              "01",                       // too few values
                              "01;Espanha;0;1",           // too many
                              "01;Costa d'Ouro;0",        // an apostrophe
                              "01;Espanha;muita",         // a text in a number column
                              "01;Espanha;",              // and an empty one
                              "PT;Portugal outra vez;0"}; // a second row with that key
    for (const char* bad : badLines) {
        bdp.execute("delete from pais");
        const jet::Error error = load(good + bad + "\n02;Brasil;0\n");
        EXPECT_NE(error.number, 0) << bad;
        EXPECT_TRUE(error.description.contains("paises.dat, linha 3")) << error.description.toStdString();
        EXPECT_EQ(countries(), 1) << bad;
        EXPECT_EQ(bdp.transactionLevel(), 0) << bad;
    }
}

TEST_F(ReferenceData, AnUnknownColumnFailsAtTheFirstRow)
{
    const jet::Error error = load("codpais;capital\nPT;Lisboa\n");
    EXPECT_EQ(error.number, jet::number::invalidStatement);
    EXPECT_TRUE(error.description.contains("capital"));
    EXPECT_TRUE(error.description.contains("linha 2"));
}

TEST_F(ReferenceData, TheFirstMissingFileEndsTheLoad)
{
    QFile::remove(path("zonas.dat"));
    const jet::Error error = load("codpais\nPT\n");
    EXPECT_EQ(error.number, jet::number::fileNotFound);
    EXPECT_TRUE(error.description.contains("zonas.dat"));
    EXPECT_EQ(countries(), 1);
}

TEST_F(ReferenceData, TheTablesBeforeABadStatementStay)
{
    write("CriarTab.dat", "create table zona (a long)\r\n   \r\ncreate table outra (a long)\r\n");
    const jet::Error error = errorOf([&] { CriaTabelas(bdp, path("CriarTab.dat")); });
    EXPECT_EQ(error.number, jet::number::invalidStatement);
    EXPECT_TRUE(error.description.contains("CriarTab.dat, linha 2"));
    EXPECT_TRUE(ExisteTabela("ZONA", bdp));
    EXPECT_FALSE(ExisteTabela("outra", bdp));
}

TEST_F(ReferenceData, TablesAndColumnsAreFoundCaseBlind)
{
    EXPECT_TRUE(ExisteTabela("Pais", bdp));
    EXPECT_FALSE(ExisteTabela("paises", bdp));
    EXPECT_TRUE(ExisteColuna("PAIS", "NomePais", bdp));
    EXPECT_FALSE(ExisteColuna("pais", "nome", bdp));
    EXPECT_FALSE(ExisteColuna("zona", "nomepais", bdp));
}

TEST_F(ProgramFolder, AFullDiskEndsTheCreationAndNamesTheFile)
{
    Desktop::setProgramFolder(QStringLiteral(ORV_DATA_DIR));
    jet::Error error;
    {
        const jet::test::FullDisk full(200000);
        error = errorOf([&] { EscreveBDP(path("nova.orv")); });
    }
    EXPECT_NE(error.number, 0);
    EXPECT_TRUE(error.description.contains(path("nova.orv"))) << error.description.toStdString();
    jet::Connection bdp;
    EXPECT_EQ(errorOf([&] { bdp.open(path("nova.orv")); }).number, 0);
}

TEST_F(ProgramFolder, AnOldBdpIsReplacedOnceTheNewOneIsWholeAndStaysAsItWasUntilThen)
{
    Desktop::setProgramFolder(QStringLiteral(ORV_DATA_DIR));
    write("velha.orv", "velha");
    const auto files = [&] { return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); };
    {
        const jet::test::FullDisk full(200000);
        EXPECT_NE(errorOf([&] { SubstituiBDP(path("velha.orv")); }).number, 0);
    }
    QFile velha(path("velha.orv"));
    ASSERT_TRUE(velha.open(QIODevice::ReadOnly));
    EXPECT_EQ(velha.readAll(), "velha");
    EXPECT_EQ(files(), QStringList("velha.orv"));
    SubstituiBDP(path("velha.orv"));
    jet::Connection bdp;
    bdp.open(path("velha.orv"));
    EXPECT_EQ(value(bdp, "select nomepais from pais where codpais = 'PT'"), "Portugal");
    EXPECT_EQ(files(), QStringList("velha.orv"));
}
