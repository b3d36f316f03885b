// New files of BDPs, and those that take the place of an old one.
#include "jet/filesofbdps.h"

namespace jet::test {

TEST_F(FilesOfBdps, AreMadeEmptyAndReplaceNothing)
{
    EXPECT_EQ(numberOf([&] { createDatabase(path()); }), number::fileExists);
    EXPECT_EQ(numberOf([&] { createDatabase(folder()); }), number::fileExists);
    EXPECT_EQ(numberOf([&] { createDatabase(path(QStringLiteral("x/y.orv"))); }), number::pathNotFound);
    const QString made = path(QStringLiteral("new.orv"));
    createDatabase(made);
    EXPECT_TRUE(contentOf(made).startsWith("SQLite format 3"));
    EXPECT_FALSE(QFile::exists(made + QStringLiteral("-journal")));
}

TEST_F(FilesOfBdps, AreReplacedWithoutWhatLiesBesideThem)
{
    bdp.close();
    for (const char* suffix : {"-journal", "-wal", "-shm"})
        makeFile((std::string("a.orv") + suffix).c_str(), "x");
    replaceDatabase(path(), fillWithOneTable);
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), QStringList(QStringLiteral("a.orv")));
    EXPECT_EQ(numberOf([&] { replaceDatabase(path(QStringLiteral("new.orv")), fillWithOneTable); }),
              number::fileNotFound);
    bdp.open(path());
    EXPECT_EQ(bdp.tables(), QStringList(QStringLiteral("nova")));
}

TEST_F(FilesOfBdps, AreReplacedWhereALinkLeads)
{
    bdp.close();
    const QString link = path(QStringLiteral("link.orv"));
    ASSERT_TRUE(QFile::link(path(), link));
    replaceDatabase(link, fillWithOneTable);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    bdp.open(path());
    EXPECT_EQ(bdp.tables(), QStringList(QStringLiteral("nova")));
}

TEST_F(FilesOfBdps, StayWhereTheyCannotBeReplaced)
{
    bdp.close();
    const QByteArray before = contentOf(path());
    QFile::setPermissions(path(), QFile::ReadOwner);
    EXPECT_EQ(numberOf([&] { replaceDatabase(path(), fillWithOneTable); }), number::permissionDenied);
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner);
    {
        const OtherProgram other(path());
        const Error error = errorOf([&] { replaceDatabase(path(), fillWithOneTable); });
        EXPECT_EQ(error.number, number::engineFailure);
        EXPECT_TRUE(error.description.contains(path()));
    }
    const QString inner = path(QStringLiteral("pasta"));
    ASSERT_TRUE(QDir().mkdir(inner));
    EXPECT_EQ(numberOf([&] { replaceDatabase(inner, fillWithOneTable); }), number::engineFailure);
    EXPECT_TRUE(QFileInfo(inner).isDir());
    EXPECT_EQ(contentOf(path()), before);
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), QStringList(QStringLiteral("a.orv")));
}

TEST_F(FilesOfBdps, AreMadeBesideTheirPlaceWhichTheyTakeWhole)
{
    const QString made = path(QStringLiteral("new.orv"));
    createDatabase(made, [&](const QString& file) {
        EXPECT_FALSE(QFile::exists(made));
        EXPECT_EQ(QFileInfo(file).path(), folder());
        fillWithOneTable(file);
    });
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), (QStringList{QStringLiteral("a.orv"), QStringLiteral("new.orv")}));
    Connection other;
    other.open(made);
    EXPECT_EQ(other.tables(), QStringList(QStringLiteral("nova")));
}

TEST_F(FilesOfBdps, TakeTheirPlaceWithWhatWasMadeBeforeAnErrorButNotThatOfAnOldOne)
{
    const auto half = [](const QString& file) {
        fillWithOneTable(file);
        throw Error{number::fileNotFound, QStringLiteral("falta")};
    };
    const QString made = path(QStringLiteral("new.orv"));
    EXPECT_EQ(numberOf([&] { createDatabase(made, half); }), number::fileNotFound);
    bdp.close();
    const QByteArray before = contentOf(path());
    EXPECT_EQ(numberOf([&] { replaceDatabase(path(), half); }), number::fileNotFound);
    EXPECT_EQ(contentOf(path()), before);
    bdp.open(made);
    EXPECT_EQ(bdp.tables(), QStringList(QStringLiteral("nova")));
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 2);
}

} // namespace jet::test
