// Many rows at one go, and what has become of a table.
#include "platform/jet/rows.h"

#include "jet/testbdp.h"
#include "platform/jet/follower.h"

#include <QStringList>

namespace jet::test {

namespace {

class ReadingRows : public TestBdp
{
protected:
    ReadingRows()
    {
        run("create table a (n long, t varchar(20), d date)");
        run("insert into a (n, t, d) values (1, 'um', #02/14/1702#)");
        run("insert into a (n) values (2)");
    }
    using Touched = std::optional<std::vector<Follower::Rowids>>;
    static Touched rowsOf(std::vector<Follower::Rowids> rows) { return rows; }
};

using FollowingTables = ReadingRows;

} // namespace

TEST_F(ReadingRows, GivesTheValuesOfEachRow)
{
    Rows all(bdp, NativeSql("select n, t, d from a where n < ? order by n", {5}));
    ASSERT_TRUE(all.next());
    EXPECT_EQ(all.number(0), 1);
    EXPECT_EQ(all.text(1), "um");
    EXPECT_EQ(all.date(2), QDate(1702, 2, 14));
    EXPECT_FALSE(all.isNull(1));
    ASSERT_TRUE(all.next());
    EXPECT_TRUE(all.isNull(1));
    EXPECT_EQ(all.text(1), "");
    EXPECT_FALSE(all.date(2).isValid());
    EXPECT_FALSE(all.next());
    EXPECT_FALSE(all.next()) << "and doesn't begin again";
}

TEST_F(ReadingRows, TakesATextThatIsNoDateForNone)
{
    Rows odd(bdp, NativeSql("select '1702-2-14', '1702-02-31', 'abcd-ef-gh', ''"));
    ASSERT_TRUE(odd.next());
    for (int i = 0; i < 4; ++i)
        EXPECT_FALSE(odd.date(i).isValid()) << i;
}

TEST_F(ReadingRows, LeavesTheFileFreeWhenItIsOver)
{
    {
        Rows all(bdp, NativeSql("select n from a"));
        all.next();
    }
    run("drop table if exists b", {});
    EXPECT_THROW(Rows(bdp, NativeSql("select n from nada")), Error);
    EXPECT_THROW(Rows(bdp, NativeSql("select n from a where n = ?")), Error);
    EXPECT_EQ(rows("select n from a"), "1 2");
}

TEST_F(ReadingRows, WritesOneStatementAgainAndAgain)
{
    {
        Repeated add(bdp, NativeSql("insert into a (n, t) values (?, ?)"));
        for (int n = 3; n < 6; ++n)
            add.run({n, QString::number(n)});
        EXPECT_THROW(add.run({1}), Error);
        EXPECT_THROW(add.run({"texto", "x"}), Error) << "a text in a column of numbers";
        add.run({6, {}});
    }
    EXPECT_EQ(rows("select n, t from a where n > 2 order by n"), "3|3 4|4 5|5 6|-");
}

TEST_F(ReadingRows, SeesOneStateOfTheFile)
{
    const OneLook look(bdp);
    EXPECT_EQ(rows("select count(*) from a"), "2");
    const OneLook again(bdp);
    EXPECT_EQ(rows("select count(*) from a"), "2");
}

TEST_F(ReadingRows, HasAWideViewThatEndsWithTheRoutine)
{
    const auto pages = [&] {
        Rows row(bdp, NativeSql(QStringLiteral("pragma cache_size")));
        return row.next() ? row.number(0) : 0;
    };
    const qint64 before = pages();
    {
        const WideView view(bdp);
        EXPECT_EQ(pages(), -32768); // kilobytes
    }
    EXPECT_EQ(pages(), before);
}

TEST_F(FollowingTables, TellsTheRowsThatWereTouchedInEachTable)
{
    run("create table b (n long)");
    Follower follower(bdp, {"a", "b"});
    EXPECT_EQ(follower.touched(), Touched()) << "the first look";
    EXPECT_EQ(follower.touched(), rowsOf({{}, {}}));
    run("insert into b (n) values (1)");
    run("update a set t = 'x' where n = 2");
    EXPECT_EQ(follower.touched(), rowsOf({{2}, {1}}));
    EXPECT_EQ(follower.touched(), rowsOf({{}, {}}));
    bdp.beginTrans();
    run("delete from a where n = 1");
    bdp.rollbackTrans();
    EXPECT_EQ(follower.touched(), rowsOf({{1}, {}})) << "also what was rolled back";
    follower.forget();
    EXPECT_EQ(follower.touched(), Touched());
}

TEST_F(FollowingTables, TellsWhenAnyRowMayHaveChanged)
{
    Follower follower(bdp, {"a"});
    follower.touched();
    outside("update a set t = 'fora'");
    EXPECT_EQ(follower.touched(), Touched()) << "another program";
    EXPECT_EQ(follower.touched(), rowsOf({{}}));
    run("delete from a");
    EXPECT_EQ(follower.touched(), Touched()) << "all at once";
    bdp.close();
    EXPECT_THROW(follower.touched(), Error);
    bdp.open(path());
    EXPECT_EQ(follower.touched(), Touched()) << "opened anew";
    EXPECT_EQ(follower.touched(), rowsOf({{}}));
}

TEST_F(FollowingTables, CountsTheTransactionsOfTheFile)
{
    const qint64 before = changesOfFile(bdp);
    EXPECT_GT(before, 0);
    EXPECT_EQ(changesOfFile(bdp), before);
    run("update a set t = 'x'");
    EXPECT_EQ(changesOfFile(bdp), before + 1);
    outside("update a set t = 'y'");
    EXPECT_EQ(changesOfFile(bdp), before + 2);
    bdp.beginTrans();
    run("update a set t = 'z'");
    EXPECT_EQ(changesOfFile(bdp), before + 2) << "not yet";
    bdp.commitTrans();
    EXPECT_EQ(changesOfFile(bdp), before + 3);
    bdp.close();
    EXPECT_EQ(changesOfFile(bdp), -1);
}

} // namespace jet::test
