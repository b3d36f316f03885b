// Lists that follow what their connection writes, beside lists that are read anew.
#include "jet/testbdp.h"
#include "jet/walked.h"
#include "platform/jet/recordset_p.h"
#include "platform/jet/transaction.h"

#include <QRandomGenerator>
#include <QScopedValueRollback>

#include <sqlite3.h>

#include <algorithm>

namespace jet::test {

class AListOpenedAgain : public TestBdp
{
protected:
    AListOpenedAgain()
    {
        run("create table pessoa (nind double not null, nome varchar(20), ordem long, "
            "constraint PKp primary key (nind))");
        run("create table outra (nind double not null, nome varchar(20), constraint PKo primary key (nind))");
        for (const int nind : {30, 10, 20})
            insert(nind);
    }

    void insert(int nind) { run("insert into pessoa (nind, nome) values (?, ?)", {nind, QStringLiteral("Ana")}); }

    // What a list shows from its first row on, and then stands on the first one again.
    static std::string shown(DataControl& list)
    {
        const std::string all = rows(list.recordset());
        if (list.hasRows()) list.recordset().moveFirst();
        return all;
    }

    int walked() const { return rowsWalked(bdp.handle()); } // since this was asked last
};

class APersonsList : public AListOpenedAgain
{
protected:
    APersonsList()
    {
        numbers.setRecordSource(QStringLiteral("select nind from pessoa order by nind"));
        numbers.refresh();
        entered.setRecordSource(QStringLiteral("select * from pessoa"));
        entered.refresh();
        walked();
    }

    // Both lists, opened again, show the numbers; whether by following, or by reading the rows.
    void expectNumbers(const std::string& inOrder, const std::string& asEntered, bool following)
    {
        walked();
        numbers.refresh();
        entered.refresh();
        EXPECT_EQ(walked() == 0, following);
        EXPECT_EQ(numbers.recordset().absolutePosition(), numbers.hasRows() ? 1 : 0);
        EXPECT_EQ(shown(numbers), inOrder);
        QStringList all;
        for (Recordset& set = entered.recordset(); !set.eof(); set.moveNext())
            all << set[QStringLiteral("nind")].toString();
        EXPECT_EQ(all.join(u' ').toStdString(), asEntered);
    }

    DataControl numbers{bdp};
    DataControl entered{bdp};
};

TEST_F(APersonsList, TakesInWhatWasAdded)
{
    insert(40);
    expectNumbers("10 20 30 40", "30 10 20 40", true);
    insert(15);
    insert(5);
    expectNumbers("5 10 15 20 30 40", "30 10 20 40 15 5", true);
}

TEST_F(APersonsList, DropsWhatWasDeleted)
{
    run("delete from pessoa where nind = 10");
    expectNumbers("20 30", "30 20", true);
    numbers.recordset().moveLast();
    numbers.recordset().deleteRow();
    expectNumbers("20", "20", true);
    run("delete from pessoa where nind = 20");
    expectNumbers("", "", true);
    insert(7);
    expectNumbers("7", "7", true);
}

TEST_F(APersonsList, MovesARowWhoseNumberHasChanged)
{
    run("update pessoa set nome = 'Eva' where nind = 10");
    run("update pessoa set nind = 35 where nind = 10");
    expectNumbers("20 30 35", "30 35 20", true);
}

TEST_F(APersonsList, HasTheRowsOfNoTransactionThatWasRolledBack)
{
    bdp.beginTrans();
    insert(40);
    run("delete from pessoa where nind = 20");
    expectNumbers("10 30 40", "30 10 40", true);
    bdp.beginTrans();
    insert(50);
    run("update pessoa set nind = 45 where nind = 40");
    expectNumbers("10 30 45 50", "30 10 45 50", true);
    bdp.rollbackTrans();
    expectNumbers("10 30 40", "30 10 40", true);
    bdp.rollbackTrans();
    expectNumbers("10 20 30", "30 10 20", true);
}

TEST_F(APersonsList, HasNoRowsOfALevelThatItsRoutineLeftBehind)
{
    {
        const RoutineScope routine(bdp);
        bdp.beginTrans();
        insert(40);
        numbers.refresh();
        entered.refresh();
    }
    run("update outra set nome = null");
    expectNumbers("10 20 30", "30 10 20", true);
}

TEST_F(APersonsList, HasNoRowsOfAStatementThatWasRefused)
{
    EXPECT_EQ(numberOf([&] { insert(20); }), number::duplicateKey);
    EXPECT_EQ(numberOf([&] { run("insert into pessoa (nind) select nind * 10 - 190 from pessoa"); }),
              number::duplicateKey);
    EXPECT_EQ(numberOf([&] { run("update pessoa set nind = nind + 10"); }), number::duplicateKey);
    expectNumbers("10 20 30", "30 10 20", true);
}

TEST_F(APersonsList, IsReadAgainAfterAnotherConnectionHasWritten)
{
    outside("insert into pessoa (nind) values (25)");
    expectNumbers("10 20 25 30", "30 10 20 25", false);
    outside("delete from pessoa where nind = 10; update pessoa set nind = 1 where nind = 30");
    insert(40);
    expectNumbers("1 20 25 40", "1 20 25 40", false);
}

TEST_F(APersonsList, IsReadAgainAfterWhatTellsNoRows)
{
    run("delete from pessoa");   // all of them at once
    expectNumbers("", "", true); // as there is nothing to walk over
    for (const int nind : {3, 1, 2})
        insert(nind);
    expectNumbers("1 2 3", "3 1 2", true);
    run("insert or replace into pessoa (nind) values (1)"); // the old row goes without a word
    expectNumbers("1 2 3", "3 2 1", false);
    run("create index pessoa_nome on pessoa (nome)");
    expectNumbers("1 2 3", "3 2 1", false);
    sqlite3_exec(bdp.handle(), "delete from pessoa", nullptr, nullptr, nullptr);
    expectNumbers("", "", true);
}

TEST_F(APersonsList, ShowsAColumnThatWasAdded)
{
    run("alter table pessoa add column viva bit");
    entered.refresh();
    EXPECT_EQ(entered.recordset().fieldCount(), 4);
    bdp.beginTrans();
    run("alter table pessoa add column obs memo");
    entered.refresh();
    EXPECT_EQ(entered.recordset().fieldCount(), 5);
    bdp.rollbackTrans();
    entered.refresh();
    EXPECT_EQ(entered.recordset().fieldCount(), 4);
}

TEST_F(APersonsList, LosesItsOrderItsFilterAndWhatWasTyped)
{
    numbers.recordset().setSort(QStringLiteral("nind desc"));
    numbers.recordset().setFilter(QStringLiteral("nind > 10"));
    insert(40);
    expectNumbers("10 20 30 40", "30 10 20 40", true);
    entered.refresh();
    entered.recordset().set(QStringLiteral("nome"), QStringLiteral("Rui"));
    entered.refresh();
    entered.recordset().update();
    EXPECT_EQ(entered.recordset()[QStringLiteral("nome")].toString(), "Ana");
}

TEST_F(APersonsList, HasItsNewRowLastUntilItIsOpenedAgain)
{
    numbers.recordset().addNew();
    numbers.recordset().set(QStringLiteral("nind"), 15);
    numbers.recordset().update();
    EXPECT_EQ(numbers.recordset().absolutePosition(), 4);
    numbers.recordset().moveFirst();
    EXPECT_EQ(shown(numbers), "10 20 30 15");
    numbers.refresh();
    EXPECT_EQ(shown(numbers), "10 15 20 30");
}

TEST_F(APersonsList, OfAnotherFileIsReadThere)
{
    createDatabase(path(QStringLiteral("b.orv")));
    bdp.close();
    bdp.open(path(QStringLiteral("b.orv")));
    EXPECT_EQ(numberOf([&] { numbers.refresh(); }), number::invalidStatement);
    EXPECT_FALSE(numbers.recordset().isOpen());
    run("create table pessoa (nind double not null, nome varchar(20), constraint PKp primary key (nind))");
    insert(1);
    expectNumbers("1", "1", true);
}

TEST_F(APersonsList, IsClosedByAnErrorOnTheWay)
{
    insert(40);
    sqlite3* other = nullptr;
    sqlite3_open(path().toUtf8(), &other);
    sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr);
    EXPECT_EQ(numberOf([&] { numbers.refresh(); }), number::engineFailure);
    EXPECT_FALSE(numbers.recordset().isOpen());
    sqlite3_exec(other, "rollback", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    numbers.refresh();
    EXPECT_EQ(shown(numbers), "10 20 30 40");
}

TEST_F(APersonsList, FindsARowThatHasComeInBetween)
{
    insert(15);
    numbers.refresh();
    Recordset& list = numbers.recordset();
    for (const int wanted : {10, 15, 20, 30}) {
        list.moveFirst();
        list.find(QStringLiteral("nind = %1").arg(wanted));
        EXPECT_EQ(list[0], QVariant(double(wanted)));
    }
    list.moveFirst();
    list.find(QStringLiteral("nind = 16"));
    EXPECT_TRUE(list.eof());
    list.moveLast();
    list.find(QStringLiteral("nind = 15")); // it stands before
    EXPECT_TRUE(list.eof());
    list.moveFirst();
    outside("delete from pessoa where nind = 15");
    list.find(QStringLiteral("nind = 15")); // in the list, and gone
    EXPECT_TRUE(list.eof());
}

TEST_F(AListOpenedAgain, MayBeInAnOrderThatNoIndexHas)
{
    run("update pessoa set ordem = 100 - nind");
    DataControl list(bdp);
    list.setRecordSource(QStringLiteral("select nind from pessoa order by ordem"));
    list.refresh();
    EXPECT_EQ(shown(list), "30 20 10");
    run("update pessoa set ordem = 1 where nind = 10");
    walked();
    list.refresh();
    EXPECT_EQ(walked(), 0);
    EXPECT_EQ(shown(list), "10 30 20");
    run("update pessoa set ordem = 7"); // the order is any, and nobody follows it
    list.refresh();
    EXPECT_EQ(list.recordset().recordCount(), 3);
}

TEST_F(AListOpenedAgain, WhoseOrderIsNoRowOfNumbersIsReadAgain)
{
    for (const char* order : {"order by nome", "order by ordem", "order by nind desc", "order by ordem, nind",
                              "where nind > 10 order by nind", "where nind > 10"})
    {
        DataControl list(bdp);
        list.setRecordSource(QStringLiteral("select nind from pessoa ") + QLatin1String(order));
        list.refresh();
        bdp.beginTrans();
        insert(25);
        walked();
        list.refresh();
        EXPECT_EQ(shown(list), rows(qPrintable(QStringLiteral("select nind from pessoa ") + QLatin1String(order))));
        bdp.rollbackTrans();
    }
}

// Each random history ends in lists that are, row for row, those of a fresh read.
class AHistory : public AListOpenedAgain, public testing::WithParamInterface<int>
{
protected:
    QRandomGenerator random{quint32(GetParam())};
    QScopedValueRollback<int> often{Recordset::Private::keysOfAPiece, GetParam() % 2 ? 3 : 20000};

    int anyOf(int limit) { return random.bounded(limit); }

    void write()
    {
        const QVariant nind = anyOf(40), other = anyOf(40);
        const QVariant ordem = anyOf(4) ? QVariant(anyOf(1000)) : QVariant();
        switch (anyOf(12)) {
        case 0:
        case 1:
        case 2:
        case 3:
            run("insert into pessoa (nind, ordem) values (?, ?)", {nind, ordem});
            break;
        case 4:
            run("insert into pessoa (rowid, nind, ordem) values (?, ?, ?)", {other, nind, ordem});
            break;
        case 5:
        case 6:
            run("delete from pessoa where nind = ?", {nind});
            break;
        case 7:
            run("update pessoa set nind = ? where nind = ?", {nind, other});
            break;
        case 8:
            run("update pessoa set ordem = ? where nind > ?", {ordem, nind});
            break;
        case 9:
            run("insert into pessoa (nind, ordem) select nind + ?, ordem + 1 from pessoa where nind < 6", {nind});
            break;
        case 10:
            run("insert into outra (nind) values (?)", {anyOf(100000)});
            break;
        default:
            if (anyOf(8) == 0)
                run("delete from pessoa");
            else
                run("update pessoa set nome = 'Eva' where nind = ?", {nind});
        }
    }

    void step()
    {
        try {
            switch (anyOf(10)) {
            case 0:
                if (bdp.transactionLevel() < 3) bdp.beginTrans();
                break;
            case 1:
                bdp.commitTrans();
                break;
            case 2:
                bdp.rollbackTrans();
                break;
            case 3:
                bdp.abandonAbove(anyOf(2));
                break;
            case 4:
                if (bdp.transactionLevel() == 0)
                    outside(qPrintable(
                        QStringLiteral("pragma synchronous = off; insert or ignore into pessoa (nind) values (%1)")
                            .arg(anyOf(40))));
                break;
            default:
                write();
            }
        } catch (const Error&) { // refused, as it may be
        }
    }
};

TEST_P(AHistory, EndsInListsThatAreThoseOfAFreshRead)
{
    const char* sources[]{"select nind from pessoa order by nind",
                          "select * from pessoa",
                          "select p.nind, nome from pessoa as p order by p.nind",
                          "select nind from pessoa order by ordem",
                          "select nind, ordem from pessoa where nind > 7 order by nind",
                          "select nind from outra order by nind"};
    std::vector<DataControl> lists;
    for (const char* source : sources) {
        lists.emplace_back(bdp);
        lists.back().setRecordSource(QString::fromLatin1(source));
        lists.back().refresh();
    }
    for (int i = 0; i < 300; ++i) {
        step();
        if (anyOf(2)) Clock::pass(std::chrono::milliseconds(20)); // a piece of each that isn't read
        for (size_t each = 0; each < lists.size(); ++each) {
            if (anyOf(3)) continue;
            DataControl& list = lists[each];
            list.refresh();
            const std::string fresh = rows(sources[each]);
            ASSERT_EQ(shown(list), fresh) << sources[each] << " after " << i << " steps";
            if (!list.hasRows()) continue;
            const int wanted = anyOf(45);
            list.recordset().find(QStringLiteral("nind = %1").arg(wanted));
            Recordset other = select(sources[each]);
            while (!other.eof() && other[0].toInt() != wanted)
                other.moveNext();
            ASSERT_EQ(list.recordset().absolutePosition(), other.absolutePosition()) << wanted;
            if (list.recordset().eof() || anyOf(4)) continue;
            list.recordset().deleteRow();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Random, AHistory, testing::Range(1, 21));

} // namespace jet::test
