#include "jet/testbdp.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <filesystem>

namespace jet::test {

class AConnection : public TestBdp
{
protected:
    AConnection() { run("create table t (a long, b varchar(10))"); }

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

using FilesOfBdps = AConnection;
using Transactions = AConnection;

TEST_F(AConnection, TellsItsStateAndItsFile)
{
    EXPECT_EQ(bdp.state(), Connection::Open);
    EXPECT_EQ(bdp.dataSource(), path());
    bdp.close();
    bdp.close();
    EXPECT_EQ(bdp.state(), Connection::Closed);
    EXPECT_EQ(bdp.dataSource(), "");
    EXPECT_EQ(bdp.handle(), nullptr);
}

TEST_F(AConnection, OpensThePathOfAConnectionString)
{
    bdp.close();
    bdp.open(QStringLiteral("Provider=X; Persist Security Info=False; Data Source= ") + path());
    EXPECT_EQ(bdp.dataSource(), path());
    EXPECT_EQ(numberOf([&] { bdp.open(path()); }), number::alreadyOpen);
}

TEST_F(AConnection, TakesThePathAsItStands)
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

TEST_F(AConnection, RefusesEveryCallWhenClosed)
{
    bdp.close();
    EXPECT_EQ(numberOf([&] { run("delete from t"); }), number::connectionClosed);
    EXPECT_EQ(numberOf([&] { select("select * from t"); }), number::connectionClosed);
    EXPECT_EQ(numberOf([&] { bdp.beginTrans(); }), number::connectionClosed);
    EXPECT_EQ(numberOf([&] { bdp.commitTrans(); }), number::connectionClosed);
    EXPECT_EQ(numberOf([&] { bdp.rollbackTrans(); }), number::connectionClosed);
    EXPECT_EQ(numberOf([&] { bdp.tables(); }), number::connectionClosed);
    EXPECT_EQ(numberOf([&] { bdp.columns(); }), number::connectionClosed);
    EXPECT_EQ(numberOf([&] { bdp.copyTo(path(QStringLiteral("b"))); }), number::connectionClosed);
    EXPECT_EQ(numberOf([&] { Connection::Insert(bdp, QStringLiteral("t"), {QStringLiteral("a")}); }),
              number::connectionClosed);
}

TEST_F(AConnection, StaysUsableAfterAnError)
{
    const Error table = errorOf([&] { run("delete from nada"); });
    EXPECT_EQ(table.number, number::invalidStatement);
    EXPECT_EQ(table.description.toStdString(), "A tabela \"nada\" não existe na BDP.");
    const auto description = [&](const char* statement) {
        return errorOf([&] { run(statement); }).description.toStdString();
    };
    EXPECT_EQ(description("update t set x = 1"), "A coluna \"x\" não existe nas tabelas da instrução.");
    EXPECT_EQ(description("update t set = 1"), "Erro de sintaxe na instrução, junto de \"=\".");
    EXPECT_EQ(description("update t set a ="), "A instrução está incompleta.");
    EXPECT_EQ(description("insert into t (a, b) values (1)"), "A instrução dá 1 valores para 2 colunas.");
    EXPECT_EQ(description("insert into t (a, b, c) values (1, 2, 3)"), "A coluna \"c\" não existe na tabela \"t\".");
    EXPECT_EQ(description("update t set a = nada(1)"), "A função \"nada\" não existe.");
    EXPECT_EQ(description("create table t (x long)"), "A tabela \"t\" já existe na BDP.");
    EXPECT_EQ(description("alter table t add column A long"), "A coluna \"A\" já existe na tabela.");
    EXPECT_EQ(run("insert into t (a) values (1)"), 1);
    EXPECT_EQ(run("update t set a = 2"), 1);
    EXPECT_EQ(run("delete from t where a = 1"), 0);
    EXPECT_EQ(run("create table u (x long)"), 0);
}

TEST_F(AConnection, ListsTablesAndColumns)
{
    run("create table Outra (Xis date, primary key (Xis))");
    EXPECT_EQ(bdp.tables(), (QStringList{QStringLiteral("t"), QStringLiteral("Outra")}));
    QStringList columns;
    for (const Connection::Column& column : bdp.columns())
        columns << column.table + u'.' + column.name + u' ' + column.type;
    EXPECT_EQ(columns.join(u','), "t.a long,t.b varchar(10),Outra.Xis date");
}

TEST_F(AConnection, InsertsManyRowsThroughOneStatement)
{
    run("create table m (n long, d date, x varchar(3))");
    Connection::Insert insert(bdp, QStringLiteral("m"),
                              {QStringLiteral("N"), QStringLiteral("d"), QStringLiteral("x")});
    insert.run(QStringList{QStringLiteral("1"), QStringLiteral("31/12/1750"), QStringLiteral("007")});
    insert.run(QList<QByteArray>{"2", "1750-12-30", "é'ã"});
    EXPECT_EQ(numberOf([&] { insert.run(QStringList{QStringLiteral("3")}); }), number::invalidStatement);
    EXPECT_EQ(numberOf([&] { insert.run(QList<QByteArray>{"x", "1750-12-30", ""}); }), number::invalidStatement);
    EXPECT_EQ(numberOf([&] { insert.run(QList<QByteArray>{"", "1750-12-30", ""}); }), number::invalidStatement);
    EXPECT_EQ(numberOf([&] { insert.run(QList<QByteArray>{"4", "", ""}); }), number::invalidStatement);
    EXPECT_EQ(numberOf([&] { insert.run(QList<QByteArray>{"4", "1750-12-30", "abcd"}); }), number::invalidStatement);
    insert.run(QList<QByteArray>{"5", "12/31/1750", ""});
    EXPECT_EQ(rows("select * from m"), "1|31/12/1750|007 2|30/12/1750|é'ã 5|31/12/1750|");
    EXPECT_EQ(numberOf([&] { Connection::Insert(bdp, QStringLiteral("m"), {QStringLiteral("q")}); }),
              number::invalidStatement);
    EXPECT_EQ(numberOf([&] { Connection::Insert(bdp, QStringLiteral("q"), {QStringLiteral("n")}); }),
              number::invalidStatement);
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

TEST_F(FilesOfBdps, AreRemovedWithWhatLiesBesideThem)
{
    bdp.close();
    for (const char* suffix : {"-journal", "-wal", "-shm"})
        makeFile((std::string("a.orv") + suffix).c_str(), "x");
    removeDatabase(path());
    for (const char* suffix : {"", "-journal", "-wal", "-shm"})
        EXPECT_FALSE(QFile::exists(path() + QLatin1String(suffix)));
    EXPECT_EQ(numberOf([&] { removeDatabase(path()); }), number::fileNotFound);
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

TEST_F(Transactions, NestAndReachTheDiskWithTheOutermostCommit)
{
    bdp.beginTrans();
    run("insert into t (a) values (1)");
    bdp.beginTrans();
    run("insert into t (a) values (2)");
    EXPECT_EQ(bdp.transactionLevel(), 2);
    bdp.rollbackTrans();
    bdp.beginTrans();
    run("insert into t (a) values (3)");
    bdp.commitTrans();
    EXPECT_EQ(bdp.transactionLevel(), 1);
    Connection other;
    other.open(path());
    EXPECT_EQ(Recordset(other, QStringLiteral("select * from t")).recordCount(), 0);
    bdp.commitTrans();
    EXPECT_EQ(Recordset(other, QStringLiteral("select * from t")).recordCount(), 2);
    EXPECT_EQ(rows("select a from t"), "1 3");
}

TEST_F(Transactions, CannotBeEndedWhereThereIsNone)
{
    EXPECT_EQ(numberOf([&] { bdp.commitTrans(); }), number::engineFailure);
    EXPECT_EQ(numberOf([&] { bdp.rollbackTrans(); }), number::engineFailure);
}

TEST_F(Transactions, AreRolledBackByTheClose)
{
    bdp.beginTrans();
    run("insert into t (a) values (1)");
    bdp.beginTrans();
    run("insert into t (a) values (2)");
    bdp.close();
    bdp.open(path());
    EXPECT_EQ(bdp.transactionLevel(), 0);
    EXPECT_EQ(rows("select a from t"), "");
}

TEST_F(Transactions, LeftBehindGoBeforeTheNextStatementThatWrites)
{
    {
        const RoutineScope routine(bdp);
        bdp.beginTrans();
        run("insert into t (a) values (1)");
        EXPECT_EQ(numberOf([&] { run("insert into t (a) values ('x')"); }), number::invalidStatement);
    }
    EXPECT_EQ(bdp.transactionLevel(), 1);
    EXPECT_EQ(rows("select a from t"), "1"); // nobody has written yet
    run("insert into t (a) values (2)");
    EXPECT_EQ(bdp.transactionLevel(), 0);
    EXPECT_EQ(rows("select a from t"), "2");
    bdp.close();
    bdp.open(path());
    EXPECT_EQ(rows("select a from t"), "2");
}

TEST_F(Transactions, LeftBehindGoBeforeTheNextTransaction)
{
    const auto leaveBehind = [&] {
        const RoutineScope routine(bdp);
        bdp.beginTrans();
        run("insert into t (a) values (1)");
    };
    leaveBehind();
    bdp.beginTrans();
    run("insert into t (a) values (2)");
    bdp.commitTrans();
    EXPECT_EQ(bdp.transactionLevel(), 0);
    EXPECT_EQ(rows("select a from t"), "2");

    leaveBehind();
    Recordset set = select("select a from t");
    set.addNew();
    set.set(QStringLiteral("a"), 3);
    set.update();
    EXPECT_EQ(rows("select a from t"), "2 3");

    leaveBehind();
    Connection::Insert(bdp, QStringLiteral("t"), {QStringLiteral("a")}).run(QStringList{QStringLiteral("4")});
    EXPECT_EQ(rows("select a from t"), "2 3 4");

    leaveBehind();
    EXPECT_NO_THROW(bdp.rollbackTrans());
    EXPECT_EQ(rows("select a from t"), "2 3 4");
}

TEST_F(Transactions, LeftBehindInsideAnotherLeaveItWhole)
{
    bdp.beginTrans();
    run("insert into t (a) values (1)");
    {
        const RoutineScope routine(bdp);
        bdp.beginTrans();
        run("insert into t (a) values (2)");
        bdp.beginTrans();
        run("insert into t (a) values (3)");
    }
    EXPECT_EQ(bdp.transactionLevel(), 3);
    run("insert into t (a) values (4)");
    EXPECT_EQ(bdp.transactionLevel(), 1);
    bdp.commitTrans();
    EXPECT_EQ(rows("select a from t"), "1 4");
}

TEST_F(Transactions, EndedByTheirRoutineStay)
{
    {
        const RoutineScope routine(bdp);
        bdp.beginTrans();
        run("insert into t (a) values (1)");
        bdp.commitTrans();
    }
    run("insert into t (a) values (2)");
    EXPECT_EQ(rows("select a from t"), "1 2");
}

TEST_F(Transactions, TakeChangesOfTheSchemaBack)
{
    {
        const RoutineScope routine(bdp);
        bdp.beginTrans();
        run("alter table t add column c bit");
        run("create table u (x long)");
    }
    EXPECT_EQ(numberOf([&] { run("insert into u (x) values (1)"); }), number::invalidStatement);
    EXPECT_EQ(select("select * from t").fieldCount(), 2);
}

TEST_F(Transactions, AreWholeAfterTheDiskWasFull)
{
    run("create table cheia (x memo)");
    sqlite3_exec(bdp.handle(), "pragma max_page_count = 6", nullptr, nullptr, nullptr);
    bdp.beginTrans();
    run("insert into t (a) values (1)");
    const QString big = QStringLiteral("insert into cheia (x) values ('%1')").arg(QString(100000, u'x'));
    const Error error = errorOf([&] { bdp.execute(big); });
    EXPECT_EQ(error.number, number::diskFull);
    EXPECT_TRUE(error.description.contains(path()));
    if (bdp.transactionLevel() > 0) bdp.rollbackTrans();
    EXPECT_EQ(rows("select a from t"), "");
    EXPECT_EQ(run("insert into t (a) values (2)"), 1);
}

} // namespace jet::test
