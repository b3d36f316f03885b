// What a connection keeps prepared, and that nobody sees it.
#include "jet/testbdp.h"

#include <sqlite3.h>

namespace jet::test {

class AKeptStatement : public TestBdp
{
protected:
    AKeptStatement()
    {
        run("create table pessoa (nind double not null, nome varchar(20), constraint PKp primary key (nind))");
        run("insert into pessoa (nind, nome) values (1, 'Ana')");
        run("insert into pessoa (nind, nome) values (2, 'Rui')");
    }

    int prepared() const
    {
        int count = 0;
        for (sqlite3_stmt* each = nullptr; (each = sqlite3_next_stmt(bdp.handle(), each));)
            ++count;
        return count;
    }

    // How often the one with this text has run since it was prepared; 0 where none is prepared.
    int runsOf(const char* sql) const
    {
        for (sqlite3_stmt* each = nullptr; (each = sqlite3_next_stmt(bdp.handle(), each));)
            if (QByteArrayView(sqlite3_sql(each)) == sql) return sqlite3_stmt_status(each, SQLITE_STMTSTATUS_RUN, 0);
        return 0;
    }
};

TEST_F(AKeptStatement, IsReadOnceForAllItsRuns)
{
    for (int i = 1; i <= 5; ++i)
        run("update pessoa set nome = ? where nind = ?", {QStringLiteral("Eva"), i});
    EXPECT_EQ(runsOf("update pessoa set nome = ? where nind = ?"), 5);
    EXPECT_EQ(rows("select nome from pessoa"), "Eva Eva");
    const int before = prepared();
    EXPECT_EQ(rows("select nome from pessoa"), "Eva Eva");
    EXPECT_EQ(prepared(), before);
}

TEST_F(AKeptStatement, HoldsNoValueOfAnEarlierRun)
{
    run("update pessoa set nome = ? where nind = ?", {QStringLiteral("Eva"), 1});
    EXPECT_EQ(numberOf([&] { run("update pessoa set nome = ? where nind = ?", {QStringLiteral("Ivo")}); }),
              number::invalidStatement);
    EXPECT_EQ(rows("select nome from pessoa"), "Eva Rui");
}

TEST_F(AKeptStatement, RunsAgainAfterItWasRefused)
{
    const char* insert = "insert into pessoa (nind, nome) values (?, ?)";
    EXPECT_EQ(numberOf([&] { run(insert, {1, QStringLiteral("Eva")}); }), number::duplicateKey);
    run(insert, {3, QStringLiteral("Eva")});
    EXPECT_EQ(numberOf([&] { run(insert, {3, QStringLiteral("Eva")}); }), number::duplicateKey);
    EXPECT_EQ(rows("select nome from pessoa"), "Ana Rui Eva");
}

TEST_F(AKeptStatement, MayBeWantedTwiceAtATime)
{
    Recordset first = select("select nome from pessoa where nind > ?", {0});
    Recordset second = select("select nome from pessoa where nind > ?", {1});
    EXPECT_EQ(rows(first), "Ana Rui");
    EXPECT_EQ(rows(second), "Rui");
}

TEST_F(AKeptStatement, IsOneOfSixtyFourAtMost)
{
    for (int i = 0; i < 200; ++i)
        rows(qPrintable(QStringLiteral("select nome from pessoa where nind = %1").arg(i)));
    EXPECT_EQ(prepared(), 64);
}

TEST_F(AKeptStatement, WithSomebodysNotesInItIsNotKept)
{
    const int before = prepared();
    run(qPrintable(QStringLiteral("update pessoa set nome = null where nome = '%1'").arg(QString(9000, u'a'))));
    EXPECT_EQ(prepared(), before);
}

TEST_F(AKeptStatement, ShowsTheColumnsOfTheSchemaAsItIsToday)
{
    EXPECT_EQ(rows("select * from pessoa"), "1|Ana 2|Rui");
    EXPECT_EQ(rows("select distinct * from pessoa"), "1|Ana 2|Rui");
    run("alter table pessoa add column altura long");
    run("update pessoa set altura = 160");
    EXPECT_EQ(rows("select * from pessoa"), "1|Ana|160 2|Rui|160");
    EXPECT_EQ(rows("select distinct * from pessoa"), "1|Ana|160 2|Rui|160");
    outside("alter table pessoa add column viva bit; update pessoa set viva = 1");
    EXPECT_EQ(rows("select * from pessoa"), "1|Ana|160|sim 2|Rui|160|sim");
    EXPECT_EQ(rows("select distinct * from pessoa"), "1|Ana|160|sim 2|Rui|160|sim");
    bdp.beginTrans();
    run("alter table pessoa add column obs memo");
    EXPECT_EQ(rows("select * from pessoa"), "1|Ana|160|sim|- 2|Rui|160|sim|-");
    bdp.rollbackTrans();
    EXPECT_EQ(rows("select * from pessoa"), "1|Ana|160|sim 2|Rui|160|sim");
}

TEST_F(AKeptStatement, DoesNotKeepTheFileOpen)
{
    rows("select * from pessoa");
    Recordset open = select("select nome from pessoa where nind > ?", {0});
    bdp.close();
    EXPECT_EQ(numberOf([&] { open.moveNext(); }), number::connectionClosed);
    bdp.open("Data Source=" + path(), Connection::Sharing::Alone);
    EXPECT_EQ(rows("select * from pessoa"), "1|Ana 2|Rui");
}

} // namespace jet::test
