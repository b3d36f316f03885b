#include "jet/testbdp.h"

#include <sqlite3.h>

namespace jet::test {

class AConnection : public TestBdp
{
protected:
    AConnection() { run("create table t (a long, b varchar(10))"); }
};

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
    EXPECT_EQ(table.description, QStringLiteral("A tabela \"nada\" não existe na BDP \"%1\".").arg(path()));
    const auto description = [&](const char* statement) {
        return errorOf([&] { run(statement); }).description.toStdString();
    };
    EXPECT_EQ(description("update t set x = 1"), "A coluna \"x\" não existe nas tabelas da instrução.");
    EXPECT_EQ(description("update t set = 1"), "Erro de sintaxe na instrução, junto de \"=\".");
    EXPECT_EQ(description("update t set a ="), "A instrução está incompleta.");
    EXPECT_EQ(description("insert into t (a, b) values (1)"), "A instrução dá 1 valores para 2 colunas.");
    EXPECT_EQ(description("insert into t (a, b, c) values (1, 2, 3)"), "A coluna \"c\" não existe na tabela \"t\".");
    EXPECT_EQ(description("update t set a = nada(1)"), "A função \"nada\" não existe.");
    EXPECT_EQ(description("delete from t where a = count(*)"),
              "A função count() não pode estar nesse lugar da instrução.");
    EXPECT_EQ(description("update t set a = max(a)"), "A função max() não pode estar nesse lugar da instrução.");
    EXPECT_EQ(description("delete from t where a = (1, 2)"), "Há vários valores onde a instrução leva um só.");
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
    EXPECT_EQ(numberOf([&] { insert.run(QList<QByteArray>{"3e9", "1750-12-30", ""}); }), number::invalidStatement);
    EXPECT_EQ(numberOf([&] { insert.run(QList<QByteArray>{"4", "", ""}); }), number::invalidStatement);
    EXPECT_EQ(numberOf([&] { insert.run(QList<QByteArray>{"4", "1750-12-30", "abcd"}); }), number::invalidStatement);
    insert.run(QList<QByteArray>{"5", "12/31/1750", ""});
    EXPECT_EQ(rows("select * from m"), "1|31/12/1750|007 2|30/12/1750|é'ã 5|31/12/1750|");
    EXPECT_EQ(numberOf([&] { Connection::Insert(bdp, QStringLiteral("m"), {QStringLiteral("q")}); }),
              number::invalidStatement);
    EXPECT_EQ(numberOf([&] { Connection::Insert(bdp, QStringLiteral("q"), {QStringLiteral("n")}); }),
              number::invalidStatement);
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
