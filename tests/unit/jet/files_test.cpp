// What becomes of the files: the good ones, and those that a connection can't work on.
#include "jet/fulldisk.h"
#include "jet/testbdp.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <filesystem>

namespace jet::test {

namespace {

// Another program in the middle of its work on a file.
class OtherProgram
{
public:
    explicit OtherProgram(const QString& file)
    {
        EXPECT_EQ(sqlite3_open(file.toUtf8(), &database_), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database_, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~OtherProgram() { sqlite3_close(database_); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

private:
    sqlite3* database_ = nullptr;
};

void fillWithOneTable(const QString& file)
{
    Connection bdp;
    bdp.open(file);
    bdp.execute(QStringLiteral("create table nova (a long)"));
}

} // namespace

class FilesOfBdps : public TestBdp
{
protected:
    FilesOfBdps() { run("create table t (a long, b varchar(10))"); }

    Error refusalOf(const QString& file)
    {
        Connection other;
        const Error error = errorOf([&] { other.open(file); });
        EXPECT_EQ(other.state() == Connection::Closed, error.number != 0);
        EXPECT_TRUE(error.number == 0 || error.description.contains(file)) << error.description.toStdString();
        return error;
    }
    QString makeFile(const char* name, const QByteArray& content)
    {
        QFile file(path(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    QByteArray contentOf(const QString& file)
    {
        QFile source(file);
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        return source.readAll();
    }
};

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

TEST_F(FilesOfBdps, MayBeAskedForByATextThatIsNoText)
{
    EXPECT_EQ(numberOf([&] { bdp.copyTo(QString(QChar(0xD800)) + QStringLiteral("/a.orv")); }), number::pathNotFound);
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
