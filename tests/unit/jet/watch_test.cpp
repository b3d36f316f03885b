// A statement that takes long is asked about, and ends where it is told to.
#include "jet/testbdp.h"

#include "platform/time/clock.h"

namespace jet::test {

class ALongStatement : public TestBdp
{
protected:
    ALongStatement()
    {
        run("create table t (a long)");
        bdp.beginTrans();
        for (int i = 0; i < 1000; ++i)
            bdp.execute(QStringLiteral("insert into t (a) values (%1)").arg(i));
        bdp.commitTrans();
        bdp.onLongStatement(
            [&](std::chrono::milliseconds elapsed) {
                ++asked;
                EXPECT_GE(elapsed, std::chrono::milliseconds(300));
                if (meanwhile) meanwhile();
                return elapsed < patience;
            },
            [&] { ++over; });
        Clock::passAtEachLook(std::chrono::milliseconds(50));
    }
    ~ALongStatement() override { Clock::passAtEachLook({}); }

    // A thousand million rows.
    static constexpr auto endless = "select count(*) as n from t as x, t as y, t as z where x.a + y.a + z.a = -1";

    std::chrono::milliseconds patience{500};
    std::function<void()> meanwhile;
    int asked = 0;
    int over = 0;
};

TEST_F(ALongStatement, EndsWhereItIsToldTo)
{
    const Error error = errorOf([&] { select(endless); });
    EXPECT_EQ(error.number, number::engineFailure);
    EXPECT_EQ(error.description, "A operação foi interrompida com a tecla Escape: nada foi escrito.");
    EXPECT_GT(asked, 1);
    EXPECT_LT(asked, 20) << "it goes on though it was told to end";
    EXPECT_EQ(over, 1);
    EXPECT_EQ(rows("select count(*) as n from t"), "1000");
    EXPECT_EQ(over, 1);
}

TEST_F(ALongStatement, OfOneTableIsNotBegunAgainWhenItWasEnded)
{
    EXPECT_NE(numberOf([&] {
                  select("select a from t where a in (select x.a + y.a + z.a from t as x, t as y, t as z) order by a");
              }),
              0);
    EXPECT_EQ(over, 1);
}

// What is looked at before a search takes a few steps, and no one waits for it.
TEST_F(ALongStatement, IsNotWhatTheTranslationAsksTheFile)
{
    Clock::passAtEachLook({});
    run("create table n (nome varchar(20), a long)");
    run("insert into n (nome, a) select 'x', t.a from t, t as u where u.a < 9");
    EXPECT_EQ(rows("select count(*) as n from t as x, t as y where x.a + y.a = 8"), "9"); // looked at, and over
    Clock::pass(std::chrono::milliseconds(400));
    EXPECT_EQ(rows("select a from n where nome like 'y%' and a = 1"), "");
    EXPECT_EQ(asked, 0);
}

TEST_F(ALongStatement, ThatWritesLeavesNothingOfItself)
{
    EXPECT_NE(numberOf([&] { run("insert into t (a) select x.a from t as x, t as y, t as z where x.a >= 0"); }), 0);
    EXPECT_EQ(rows("select count(*) as n from t"), "1000");
    bdp.beginTrans();
    run("delete from t where a = 1");
    EXPECT_NE(numberOf([&] { run("insert into t (a) select x.a from t as x, t as y, t as z where x.a >= 0"); }), 0);
    EXPECT_EQ(bdp.transactionLevel(), 0);
    EXPECT_EQ(rows("select count(*) as n from t"), "1000");
    EXPECT_EQ(run("delete from t where a = 1"), 1);
}

TEST_F(ALongStatement, ThatOnlyReadsLeavesWhatItsTransactionHasWritten)
{
    bdp.beginTrans();
    run("delete from t where a = 1");
    EXPECT_EQ(errorOf([&] { select(endless); }).description, "A operação foi interrompida com a tecla Escape.");
    EXPECT_EQ(bdp.transactionLevel(), 1);
    bdp.commitTrans();
    EXPECT_EQ(rows("select count(*) as n from t"), "999");
}

TEST_F(ALongStatement, GoesOnWhereNobodyEndsIt)
{
    patience = std::chrono::hours(1);
    run("create table u (a long)");
    EXPECT_EQ(run("insert into u (a) select x.a from t as x, t as y where y.a < 1000 and x.a + y.a + 1 > 0"),
              1'000'000);
    EXPECT_EQ(over, asked > 0 ? 1 : 0);
}

TEST_F(ALongStatement, IsNotAskedAboutWhereItIsQuick)
{
    Clock::passAtEachLook({});
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ(rows("select count(*) as n from t where a >= 0"), "1000");
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(over, 0);
}

TEST_F(ALongStatement, LetsNoOtherStatementRunMeanwhile)
{
    long refused = 0;
    meanwhile = [&] {
        refused = numberOf([&] { select("select * from t"); });
        EXPECT_EQ(numberOf([&] { run("delete from t"); }), refused);
        EXPECT_EQ(numberOf([&] { bdp.beginTrans(); }), refused);
    };
    EXPECT_NE(numberOf([&] { select(endless); }), 0);
    EXPECT_EQ(refused, number::engineFailure);
    EXPECT_EQ(rows("select count(*) as n from t"), "1000");
}

TEST_F(ALongStatement, EndsWithTheCloseOfItsConnection)
{
    patience = std::chrono::hours(1);
    meanwhile = [&] { bdp.close(); };
    EXPECT_NE(numberOf([&] { select(endless); }), 0);
    EXPECT_EQ(over, 1);
    EXPECT_NO_THROW(bdp.close());
    EXPECT_EQ(bdp.state(), Connection::Closed);
}

} // namespace jet::test
