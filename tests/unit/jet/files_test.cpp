// What becomes of the files: the good ones, and those that a connection can't work on.
#include "jet/filesofbdps.h"
#include "jet/fulldisk.h"

#include <sqlite3.h>

#include <filesystem>

namespace jet::test {

TEST_F(FilesOfBdps, AreFoundByThePathAsItStands)
{
    const QString odd = path(QStringLiteral(" a b 'c' ;d [é] %20.orv "));
    createDatabase(odd);
    EXPECT_EQ(refusalOf(odd).number, 0);
    EXPECT_EQ(refusalOf(path() + u' ').number, number::fileNotFound);
    EXPECT_EQ(refusalOf(u'"' + path() + u'"').number, number::pathNotFound);
    EXPECT_EQ(refusalOf(QStringLiteral(":memory:")).number, number::fileNotFound);
    EXPECT_EQ(refusalOf(QStringLiteral("file:") + path()).number, number::pathNotFound);
    EXPECT_FALSE(QFile::exists(path() + u' '));
}

TEST_F(FilesOfBdps, OpenOnlyWhereAWritableDatabaseStands)
{
    EXPECT_EQ(refusalOf(path(QStringLiteral("nada.orv"))).number, number::fileNotFound);
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("nada.orv"))));
    EXPECT_EQ(refusalOf(path(QStringLiteral("nada/nada.orv"))).number, number::pathNotFound);
    EXPECT_EQ(refusalOf(folder()).number, number::engineFailure);
    EXPECT_EQ(refusalOf(QStringLiteral("/dev/null")).number, number::engineFailure);
    EXPECT_EQ(refusalOf(makeFile("empty.orv", {})).number, 0);
    const QString text = makeFile("text.orv", QByteArray(5000, 'x'));
    EXPECT_EQ(refusalOf(text).number, number::engineFailure);
    EXPECT_EQ(contentOf(text), QByteArray(5000, 'x'));
}

TEST_F(FilesOfBdps, AreRefusedWhenCutShort)
{
    bdp.close();
    const QByteArray whole = contentOf(path());
    ASSERT_GE(whole.size(), 8192);
    for (const qsizetype size : {qsizetype(1), qsizetype(50), qsizetype(1000), qsizetype(4096), whole.size() - 1}) {
        const QString cut = makeFile("cut.orv", whole.left(size));
        EXPECT_EQ(refusalOf(cut).number, number::engineFailure) << size;
        EXPECT_EQ(contentOf(cut), whole.left(size));
    }
}

TEST_F(FilesOfBdps, AreRefusedWhenNobodyMayWriteThem)
{
    bdp.close();
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ(refusalOf(path()).number, number::permissionDenied);
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(refusalOf(path()).number, 0);
}

TEST_F(FilesOfBdps, AreReadWhereNobodyMayWriteThem)
{
    run("insert into t (a) values (1)");
    bdp.close();
    const QByteArray before = contentOf(path());
    const QStringList beside = QDir(folder()).entryList(QDir::Files | QDir::Hidden);
    QFile::setPermissions(path(), QFile::ReadOwner);
    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(numberOf([&] { bdp.open(path()); }), number::permissionDenied);
    bdp.open(path(), Connection::Sharing::ReadOnly);
    EXPECT_GE(Recordset(bdp, QStringLiteral("select a from t")).recordCount(), 1);
    EXPECT_EQ(numberOf([&] { run("insert into t (a) values (2)"); }), number::permissionDenied);
    bdp.close();
    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(contentOf(path()), before);
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files | QDir::Hidden), beside);
}

TEST_F(FilesOfBdps, AreNotOnlyReadWhereFilesWouldBeMadeBesideThem)
{
    run("insert into t (a) values (1)");
    bdp.close();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().toUtf8(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "pragma journal_mode = wal", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    const QStringList beside = QDir(folder()).entryList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(numberOf([&] { bdp.open(path(), Connection::Sharing::ReadOnly); }), number::engineFailure);
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files | QDir::Hidden), beside);
    bdp.open(path());
    EXPECT_EQ(run("insert into t (a) values (1)"), 1);
    EXPECT_EQ(numberOf([&] { Connection().open(path() + "x", Connection::Sharing::ReadOnly); }), number::fileNotFound);
}

TEST_F(FilesOfBdps, AreRefusedWhileAnotherProgramHoldsThem)
{
    bdp.close();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().toUtf8(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(refusalOf(path()).number, number::engineFailure);
    ASSERT_EQ(sqlite3_exec(other, "commit", nullptr, nullptr, nullptr), SQLITE_OK);
    bdp.open(path());
    ASSERT_EQ(sqlite3_exec(other, "begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
    const Error error = errorOf([&] { run("insert into t (a) values (1)"); });
    EXPECT_EQ(error.number, number::engineFailure);
    EXPECT_TRUE(error.description.contains(path()));
    sqlite3_close(other);
    EXPECT_EQ(run("insert into t (a) values (1)"), 1);
}

TEST_F(FilesOfBdps, AreNeitherOpenedNorMadeNorReplacedNorCopiedInAFolderThatNobodyMayWrite)
{
    const QString inner = path(QStringLiteral("pasta"));
    ASSERT_TRUE(QDir().mkdir(inner));
    const QString old = makeFile("pasta/old.orv", "old");
    QFile::setPermissions(inner, QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(numberOf([&] { createDatabase(inner + QStringLiteral("/new.orv")); }), number::permissionDenied);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(inner + QStringLiteral("/new.orv")); }), number::permissionDenied);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(old); }), number::permissionDenied);
    EXPECT_EQ(numberOf([&] { replaceDatabase(old, fillWithOneTable); }), number::permissionDenied);
    EXPECT_EQ(refusalOf(old).number, number::permissionDenied);
    const QString link = path(QStringLiteral("link.orv"));
    ASSERT_TRUE(QFile::link(old, link));
    EXPECT_EQ(numberOf([&] { Connection().open(link); }), number::permissionDenied);
    QFile::setPermissions(inner, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(QDir(inner).entryList(QDir::Files), QStringList{QStringLiteral("old.orv")});
    EXPECT_EQ(contentOf(old), "old");
}

TEST_F(FilesOfBdps, AreNamedAndWholeWhereTheDiskTakesNoMore)
{
    run("create table big (x memo)");
    const QString insert = QStringLiteral("insert into big (x) values ('%1')").arg(QString(50000, u'x'));
    bdp.execute(insert);
    const QString old = makeFile("old.orv", "old");
    const QString made = path(QStringLiteral("new.orv"));
    Error copying;
    Error creating;
    Error inserting;
    {
        const FullDisk full(60000);
        copying = errorOf([&] { bdp.copyTo(old); });
        inserting = errorOf([&] { bdp.execute(insert); });
    }
    {
        const FullDisk full(100);
        creating = errorOf([&] { createDatabase(made); });
    }
    EXPECT_NE(copying.number, 0);
    EXPECT_TRUE(copying.description.contains(old)) << copying.description.toStdString();
    EXPECT_EQ(contentOf(old), "old");
    EXPECT_NE(inserting.number, 0);
    EXPECT_TRUE(inserting.description.contains(path())) << inserting.description.toStdString();
    EXPECT_EQ(rows("select count(*) as n from big"), "1");
    EXPECT_EQ(bdp.execute(insert), 1);
    EXPECT_NE(creating.number, 0);
    EXPECT_TRUE(creating.description.contains(made)) << creating.description.toStdString();
}

TEST_F(FilesOfBdps, HaveTheNameOfTheirJournalOffTheDiskWithEachCommit)
{
    Connection other;
    other.open(path());
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(other.handle(), "pragma synchronous", -1, &statement, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(statement, 0), 3); // "extra"
    sqlite3_finalize(statement);
}

TEST_F(FilesOfBdps, AreOpenAloneWhateverNameTheyAreReachedBy)
{
    bdp.close();
    bdp.open(path(), Connection::Sharing::Alone);
    const QString link = path(QStringLiteral("link.orv"));
    ASSERT_TRUE(QFile::link(path(), link));
    for (const QString& name : {path(), link}) {
        Connection other;
        const Error error = errorOf([&] { other.open(name, Connection::Sharing::Alone); });
        EXPECT_EQ(error.number, number::engineFailure);
        EXPECT_TRUE(error.description.contains(QStringLiteral("já está aberto noutro programa"))) << error.what();
        EXPECT_EQ(other.state(), Connection::Closed);
        EXPECT_EQ(run("insert into t (a) values (1)"), 1);
    }
    bdp.close();
    Connection other;
    other.open(link, Connection::Sharing::Alone);
    EXPECT_EQ(other.state(), Connection::Open);
    EXPECT_EQ(numberOf([&] { bdp.open(path(), Connection::Sharing::Alone); }), number::engineFailure);
}

TEST_F(FilesOfBdps, AreNeitherReplacedNorCopiedOverWhereAnotherProgramHasThemOpenAtRest)
{
    const QString copy = path(QStringLiteral("copy.orv"));
    bdp.copyTo(copy);
    Connection other;
    other.open(copy, Connection::Sharing::Alone);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(copy); }), number::engineFailure);
    EXPECT_EQ(numberOf([&] { replaceDatabase(copy, fillWithOneTable); }), number::engineFailure);
    EXPECT_EQ(other.execute(QStringLiteral("insert into t (a) values (1)")), 1);
    EXPECT_FALSE(other.hasMoved());
    other.close();
    EXPECT_EQ(numberOf([&] { bdp.copyTo(copy); }), 0);
}

// A name that isn't UTF-8 is read as one with a place holder, under which another file may stand.
TEST_F(FilesOfBdps, AreNotTouchedUnderANameThatCannotBeRead)
{
    QString other = path(QStringLiteral("caf\uFFFD.orv"));
    std::filesystem::copy_file(path().toStdString(), folder().toStdString() + "/caf\xe9.orv");
    std::filesystem::copy_file(path().toStdString(), other.toStdString());
    const QByteArray before = contentOf(other);
    const QString read = QFile::decodeName(QByteArray(folder().toUtf8() + "/caf\xe9.orv"));
    EXPECT_EQ(read, other);
    for (const Error& error : {errorOf([&] { Connection().open(read); }), errorOf([&] { bdp.copyTo(read); }),
                               errorOf([&] { createDatabase(read + QStringLiteral("2")); }),
                               errorOf([&] { replaceDatabase(read, fillWithOneTable); }),
                               errorOf([&] { bdp.copyTo(path(QString(QChar(0xD800)))); }),
                               errorOf([&] { bdp.copyTo(path(QStringLiteral("b.orv") + QChar(0))); })})
    {
        EXPECT_EQ(error.number, number::pathNotFound);
        EXPECT_TRUE(error.description.contains(QStringLiteral("Mude o nome"))) << error.what();
    }
    EXPECT_EQ(contentOf(other), before);
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 2); // the toolkit lists no name that it can't read
    std::filesystem::remove(folder().toStdString() + "/caf\xe9.orv");
}

} // namespace jet::test
