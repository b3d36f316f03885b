// Copies of BDPs, and the files that they may not touch.
#include "jet/filesofbdps.h"

#include <sqlite3.h>

#include <filesystem>

namespace jet::test {

TEST_F(FilesOfBdps, AreCopiedWithTheirCommittedState)
{
    run("insert into t (a) values (1)");
    bdp.beginTrans();
    run("insert into t (a) values (2)");
    const QString copy = makeFile("copy.orv", "old");
    bdp.copyTo(copy);
    bdp.rollbackTrans();
    Connection other;
    other.open(copy);
    EXPECT_EQ(Recordset(other, QStringLiteral("select * from t")).recordCount(), 1);
    EXPECT_EQ(QFileInfo(copy).permissions(), QFileInfo(path()).permissions());
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files),
              (QStringList{QStringLiteral("a.orv"), QStringLiteral("copy.orv")}));
}

TEST_F(FilesOfBdps, AreNotCopiedOntoThemselves)
{
    const QByteArray before = contentOf(path());
    EXPECT_EQ(numberOf([&] { bdp.copyTo(path()); }), number::permissionDenied);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(folder() + QStringLiteral("/./a.orv")); }), number::permissionDenied);
    const QString link = path(QStringLiteral("link.orv"));
    ASSERT_TRUE(QFile::link(path(), link));
    EXPECT_EQ(numberOf([&] { bdp.copyTo(link); }), number::permissionDenied);
    const QString hardLink = path(QStringLiteral("hard.orv"));
    std::filesystem::create_hard_link(path().toStdString(), hardLink.toStdString());
    EXPECT_EQ(numberOf([&] { bdp.copyTo(hardLink); }), number::permissionDenied);
    EXPECT_EQ(contentOf(path()), before);
}

TEST_F(FilesOfBdps, LeaveTheTargetAsItWasWhereTheyCannotBeCopied)
{
    EXPECT_EQ(numberOf([&] { bdp.copyTo(path(QStringLiteral("x/y.orv"))); }), number::pathNotFound);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(folder()); }), number::permissionDenied);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(QStringLiteral("/dev/full")); }), number::permissionDenied);
    const QString old = makeFile("old.orv", "old");
    QFile::setPermissions(old, QFile::ReadOwner);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(old); }), number::permissionDenied);
    EXPECT_EQ(contentOf(old), "old");
    QFile::setPermissions(old, QFile::ReadOwner | QFile::WriteOwner);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().toUtf8(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(old); }), number::engineFailure);
    sqlite3_close(other);
    EXPECT_EQ(contentOf(old), "old");
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 2);
}

TEST_F(FilesOfBdps, AreCopiedToWhereALinkLeads)
{
    const QString far = path(QStringLiteral("longe"));
    ASSERT_TRUE(QDir().mkdir(far));
    const QString link = path(QStringLiteral("link.orv"));
    ASSERT_TRUE(QFile::link(far + QStringLiteral("/copy.orv"), link));
    for (const char* moment : {"it leads nowhere yet", "it leads to the last copy"}) {
        run("insert into t (a) values (1)");
        EXPECT_EQ(numberOf([&] { bdp.copyTo(link); }), 0) << moment;
        EXPECT_TRUE(QFileInfo(link).isSymLink()) << moment;
        Connection copy;
        copy.open(far + QStringLiteral("/copy.orv"));
        EXPECT_EQ(Recordset(copy, QStringLiteral("select * from t")).recordCount(),
                  Recordset(bdp, QStringLiteral("select * from t")).recordCount());
    }
    ASSERT_TRUE(QDir(far).removeRecursively()); // the disk that it leads to isn't there
    const Error error = errorOf([&] { bdp.copyTo(link); });
    EXPECT_EQ(error.number, number::pathNotFound);
    EXPECT_TRUE(error.description.contains(QStringLiteral("longe/copy.orv"))) << error.what();
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(FilesOfBdps, AreNotCopiedOverOneThatAnotherProgramIsUsing)
{
    const QString copy = path(QStringLiteral("copy.orv"));
    bdp.copyTo(copy);
    const QByteArray before = contentOf(copy);
    run("insert into t (a) values (1)");
    const OtherProgram other(copy);
    const Error error = errorOf([&] { bdp.copyTo(copy); });
    EXPECT_EQ(error.number, number::engineFailure);
    EXPECT_TRUE(error.description.contains(copy));
    EXPECT_EQ(contentOf(copy), before);
}

TEST_F(FilesOfBdps, AreCopiedWithoutTheJournalOfTheFileThatStoodThere)
{
    run("insert into t (a) values (1)");
    const QString copy = makeFile("copy.orv", "old");
    const QString journal = makeFile("copy.orv-journal", "old");
    bdp.copyTo(copy);
    EXPECT_FALSE(QFile::exists(journal));
    EXPECT_EQ(refusalOf(copy).number, 0);
}

TEST_F(FilesOfBdps, AreCopiedWhileALargeTransactionLiesAbandoned)
{
    sqlite3_exec(bdp.handle(), "pragma cache_size = 5", nullptr, nullptr, nullptr);
    run("create table big (x memo)");
    {
        const RoutineScope routine(bdp);
        bdp.beginTrans();
        for (int i = 0; i < 100; ++i)
            bdp.execute(QStringLiteral("insert into big (x) values ('%1')").arg(QString(3000, u'x')));
    }
    const QString copy = path(QStringLiteral("copy.orv"));
    bdp.copyTo(copy);
    Connection other;
    other.open(copy);
    EXPECT_TRUE(Recordset(other, QStringLiteral("select * from big")).eof());
}

TEST_F(FilesOfBdps, MayBeAskedForByATextThatIsNoText)
{
    EXPECT_EQ(numberOf([&] { bdp.copyTo(QString(QChar(0xD800)) + QStringLiteral("/a.orv")); }), number::pathNotFound);
}

TEST_F(FilesOfBdps, AreCopiedAsTheyAreOpenWhateverStandsUnderTheirName)
{
    run("insert into t (a) values (1)");
    EXPECT_FALSE(bdp.hasMoved());
    ASSERT_TRUE(QFile::rename(path(), path(QStringLiteral("moved.orv"))));
    EXPECT_TRUE(bdp.hasMoved());
    const QString copy = path(QStringLiteral("copy.orv"));
    const auto peopleOfTheCopy = [&] {
        Connection other;
        other.open(copy);
        const int count = Recordset(other, QStringLiteral("select * from t")).recordCount();
        EXPECT_TRUE(QFile::remove(copy));
        return count;
    };
    bdp.copyTo(copy);
    EXPECT_EQ(peopleOfTheCopy(), 1);
    createDatabase(path(), fillWithOneTable);
    const QByteArray foreign = contentOf(path());
    EXPECT_TRUE(bdp.hasMoved());
    bdp.copyTo(copy);
    EXPECT_EQ(peopleOfTheCopy(), 1);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(path()); }), number::permissionDenied);
    const Error error = errorOf([&] { run("insert into t (a) values (2)"); });
    EXPECT_TRUE(error.description.contains(QStringLiteral("já não é a BDP que está aberta"))) << error.what();
    EXPECT_EQ(contentOf(path()), foreign);
}

TEST_F(FilesOfBdps, AreCopiedWithoutWhatIsPendingAndOnlyWhereTheyStillStandThen)
{
    bdp.beginTrans();
    run("insert into t (a) values (1)");
    const QString copy = path(QStringLiteral("copy.orv"));
    ASSERT_TRUE(QFile::rename(path(), path(QStringLiteral("moved.orv"))));
    createDatabase(path(), fillWithOneTable);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(copy); }), number::engineFailure);
    EXPECT_FALSE(QFile::exists(copy));
}

} // namespace jet::test
