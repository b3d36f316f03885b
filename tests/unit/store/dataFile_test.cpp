#include "store/dataFile.h"

#include "store/programfolder.h"

using DataFileLines = ProgramFolder;

TEST_F(DataFileLines, LinesEndWithEitherLineEndAndTheLastOneAlsoWithTheFile)
{
    write("a.dat", "um\r\ndois\n\r\n\xE9\xF3\x80");
    DataFile file = DataFile::inProgramFolder("a.dat");
    EXPECT_EQ(file.readLine(), "um");
    EXPECT_EQ(file.readLine(), "dois");
    EXPECT_EQ(file.readLine(), "");
    EXPECT_FALSE(file.atEnd());
    EXPECT_EQ(file.readLine(), "éó€");
    EXPECT_TRUE(file.atEnd());
}

TEST_F(DataFileLines, ALineEndAtTheEndMakesNoBlankLine)
{
    write("a.dat", "um\r\n");
    DataFile file(path("a.dat"));
    file.readLine();
    EXPECT_TRUE(file.atEnd());
}

TEST_F(DataFileLines, AnEmptyFileIsAtItsEndAndHasNothingToRead)
{
    write("a.dat", "");
    DataFile file(path("a.dat"));
    EXPECT_TRUE(file.atEnd());
    EXPECT_EQ(errorOf([&] { file.readLine(); }).number, 62);
}

TEST_F(DataFileLines, AMissingFileIsNamed)
{
    const jet::Error error = errorOf([] { DataFile::inProgramFolder("b.dat"); });
    EXPECT_EQ(error.number, jet::number::fileNotFound);
    EXPECT_TRUE(error.description.contains(path("b.dat")));
}

TEST_F(DataFileLines, AFolderInTheFilesPlaceIsNamed)
{
    const jet::Error error = errorOf([&] { DataFile file(folder.path()); });
    EXPECT_EQ(error.number, jet::number::permissionDenied);
    EXPECT_TRUE(error.description.contains(folder.path()));
}

TEST_F(DataFileLines, AnErrorTellsTheFileAndTheLine)
{
    write("a.dat", "um\ndois\n");
    DataFile file(path("a.dat"));
    file.readLine();
    file.readLine();
    const jet::Error error = file.located({13, "Assim não."});
    EXPECT_EQ(error.number, 13);
    EXPECT_EQ(error.description, "Assim não.\r\nFicheiro " + path("a.dat") + ", linha 2.");
}

TEST_F(DataFileLines, ATextInAnotherEncodingIsRefused)
{
    write("utf8.dat", "nome\n\xC3\x89vora\n");
    write("utf16.dat", QByteArray("n\0o\0m\0e\0", 8));
    write("undefined.dat", "\x81\n");
    DataFile utf8(path("utf8.dat"));
    EXPECT_EQ(utf8.readLine(), "nome");
    const jet::Error error = errorOf([&] { utf8.readLine(); });
    EXPECT_EQ(error.number, jet::number::typeMismatch);
    EXPECT_TRUE(error.description.contains("utf8.dat, linha 2"));
    EXPECT_NE(errorOf([&] { DataFile(path("utf16.dat")).readLine(); }).number, 0);
    EXPECT_NE(errorOf([&] { DataFile(path("undefined.dat")).readLine(); }).number, 0);
}
