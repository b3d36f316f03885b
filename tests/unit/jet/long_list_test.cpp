// Long lists, whose beginning is read first.
#include "jet/testbdp.h"
#include "platform/jet/recordset_p.h"

#include <QRandomGenerator>
#include <QScopedValueRollback>

#include <sqlite3.h>

namespace jet::test {

// Ten rows are a long list here: they are read by threes.
class ALongList : public TestBdp
{
protected:
    ALongList()
    {
        run("create table pessoa (nind double not null, nome varchar(20), ordem long, "
            "constraint PKp primary key (nind))");
        for (const int nind : {50, 10, 90, 30, 70, 20, 100, 40, 80, 60})
            insert(nind);
        run("create index pessoa_ordem on pessoa (ordem)");
    }

    void insert(int nind) { run("insert into pessoa (nind, nome) values (?, ?)", {nind, QStringLiteral("Ana")}); }

    Recordset numbers() { return select("select nind from pessoa order by nind"); }

    static void beIdle(int pieces = 1)
    {
        for (int i = 0; i < pieces; ++i)
            Clock::pass(std::chrono::milliseconds(20));
    }

    // The numbers from the first row on; "x" for a row that has gone.
    static std::string walk(Recordset& list)
    {
        QStringList all;
        for (list.moveFirst(); !list.eof(); list.moveNext())
            all << (numberOf([&] { list[0]; }) == 0 ? list[0].toString() : QStringLiteral("x"));
        return all.join(u' ').toStdString();
    }

    // Whether the engine has been asked for anything since this was asked last.
    bool asked() const
    {
        int steps = 0;
        for (sqlite3_stmt* each = nullptr; (each = sqlite3_next_stmt(bdp.handle(), each));)
            steps += sqlite3_stmt_status(each, SQLITE_STMTSTATUS_VM_STEP, 1);
        return steps > 0;
    }

    QScopedValueRollback<int> byThrees{Recordset::Private::keysOfAPiece, 3};
    const std::string all{"10 20 30 40 50 60 70 80 90 100"};
};

TEST_F(ALongList, ReadsItsBeginningAndCountsTheRest)
{
    Recordset list = numbers();
    EXPECT_EQ(list.recordCount(), 10);
    EXPECT_EQ(list.absolutePosition(), 1);
    list.moveNext();
    list.find(QStringLiteral("nind = 30"));
    EXPECT_EQ(list.absolutePosition(), 3);
    asked();
    list.movePrevious();
    list.moveNext();
    EXPECT_FALSE(asked());
    list.moveLast();
    EXPECT_TRUE(asked());
    list.moveFirst();
    list.moveLast();
    EXPECT_FALSE(asked());
    EXPECT_EQ(list[0], QVariant(100.0));
    EXPECT_EQ(walk(list), all);
}

TEST_F(ALongList, GoesToAnyRow)
{
    for (int position = 1; position <= 10; ++position) {
        Recordset list = numbers();
        list.setAbsolutePosition(position);
        EXPECT_EQ(list[0], QVariant(position * 10.0));
        Recordset other = numbers();
        other.find(QStringLiteral("nind = %1").arg(position * 10));
        EXPECT_EQ(other.absolutePosition(), position);
        other.find(QStringLiteral("nind = 10"));
        EXPECT_EQ(other.eof(), position > 1);
        if (position == 1) continue;
        other.movePrevious();
        EXPECT_EQ(other[0], QVariant(100.0));
    }
    Recordset list = numbers();
    EXPECT_EQ(numberOf([&] { list.setAbsolutePosition(11); }), number::invalidPosition);
    list.find(QStringLiteral("nind > 75"));
    EXPECT_EQ(list[0], QVariant(80.0));
}

TEST_F(ALongList, StandsInTheOrderOfEntryToo)
{
    Recordset list = select("select * from pessoa");
    EXPECT_EQ(list.recordCount(), 10);
    EXPECT_EQ(walk(list), "50 10 90 30 70 20 100 40 80 60");
}

TEST_F(ALongList, IsReadWhileTheProgramIsIdle)
{
    Recordset list = numbers();
    beIdle(2);
    list.setAbsolutePosition(9);
    asked();
    beIdle();
    EXPECT_TRUE(asked());
    beIdle();
    EXPECT_FALSE(asked());
    list.moveLast();
    EXPECT_FALSE(asked());
    EXPECT_EQ(list[0], QVariant(100.0));
}

TEST_F(ALongList, IsSortedAndFilteredAsAWhole)
{
    Recordset list = numbers();
    list.setSort(QStringLiteral("nind desc"));
    EXPECT_EQ(walk(list), "100 90 80 70 60 50 40 30 20 10");
    Recordset other = numbers();
    other.setFilter(QStringLiteral("nind > 65"));
    EXPECT_EQ(walk(other), "70 80 90 100");
    EXPECT_EQ(other.recordCount(), 4);
}

TEST_F(ALongList, HasTheRowsOfItsOpeningWhateverTheConnectionWrites)
{
    Recordset list = numbers();
    list.moveNext();
    insert(65);
    run("delete from pessoa where nind = 80");
    run("update pessoa set nind = 5 where nind = 90");
    EXPECT_EQ(list[0], QVariant(20.0));
    EXPECT_EQ(list.recordCount(), 10);
    EXPECT_EQ(walk(list), "10 20 30 40 50 60 70 x 5 100");
    list.requery();
    EXPECT_EQ(walk(list), "5 10 20 30 40 50 60 65 70 100");
}

TEST_F(ALongList, KnowsNothingOfWhatIsRolledBackLater)
{
    bdp.beginTrans();
    Recordset before = numbers();
    run("delete from pessoa where nind > 50");
    Recordset list = numbers(); // is read at once
    bdp.rollbackTrans();
    EXPECT_EQ(walk(list), "10 20 30 40 50");
    EXPECT_EQ(walk(before), all);
}

TEST_F(ALongList, LosesTheRowThatIsDeletedAndGainsTheNewOne)
{
    Recordset list = numbers();
    list.moveNext();
    list.deleteRow();
    EXPECT_EQ(list.recordCount(), 9);
    list.moveNext();
    EXPECT_EQ(list[0], QVariant(30.0));
    Recordset other = numbers();
    other.addNew();
    other.set(QStringLiteral("nind"), 15);
    other.update();
    EXPECT_EQ(other.absolutePosition(), 10);
    EXPECT_EQ(walk(other), "10 30 40 50 60 70 80 90 100 15");
    EXPECT_EQ(walk(list), "10 30 40 50 60 70 80 90 100");
}

TEST_F(ALongList, IsReadAnewWhereAnotherConnectionWritesMeanwhile)
{
    Recordset list = numbers();
    list.moveNext();
    outside("insert into pessoa (nind) values (15); insert into pessoa (nind) values (95)");
    EXPECT_EQ(list.recordCount(), 10);
    beIdle();
    EXPECT_EQ(list.recordCount(), 12);
    EXPECT_EQ(list[0], QVariant(20.0)); // its row
    EXPECT_EQ(list.absolutePosition(), 3);
    EXPECT_EQ(walk(list), "10 15 20 30 40 50 60 70 80 90 95 100");
}

TEST_F(ALongList, StandsOnNoRowWhereAnotherConnectionHasDeletedIt)
{
    Recordset list = numbers();
    list.moveNext();
    outside("delete from pessoa where nind = 20");
    beIdle();
    EXPECT_EQ(numberOf([&] { list[0]; }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { list.deleteRow(); }), number::noCurrentRow);
    EXPECT_FALSE(list.eof());
    EXPECT_EQ(list.absolutePosition(), 0);
    list.moveNext();
    EXPECT_EQ(list[0], QVariant(30.0));

    Recordset other = numbers();
    other.moveNext();
    outside("delete from pessoa where nind = 30");
    EXPECT_EQ(numberOf([&] { other.deleteRow(); }), number::noCurrentRow); // and no other row goes
    EXPECT_EQ(walk(other), "10 40 50 60 70 80 90 100");

    Recordset third = numbers();
    outside("delete from pessoa");
    beIdle();
    EXPECT_TRUE(third.bof() && third.eof());
    EXPECT_EQ(numberOf([&] { third.moveLast(); }), number::noCurrentRow);
}

TEST_F(ALongList, KeepsItsEndsWhereAnotherConnectionWrites)
{
    Recordset list = numbers();
    list.movePrevious();
    Recordset other = numbers();
    other.moveNext();
    other.find(QStringLiteral("nind = 10")); // behind: at the end, with the rest unread
    outside("insert into pessoa (nind) values (110)");
    beIdle();
    EXPECT_TRUE(list.bof());
    EXPECT_TRUE(other.eof());
    other.movePrevious();
    EXPECT_EQ(other[0], QVariant(110.0));
}

TEST_F(ALongList, KeepsWhatIsTypedWhileItIsRead)
{
    Recordset list = select("select * from pessoa");
    list.set(QStringLiteral("nome"), QStringLiteral("Rui"));
    outside("insert into pessoa (nind) values (110)");
    beIdle(5);
    EXPECT_EQ(list[QStringLiteral("nome")].toString(), "Rui");
    list.update();
    EXPECT_EQ(rows("select nome from pessoa where nind = 50"), "Rui");
    list.addNew();
    list.set(QStringLiteral("nind"), 7);
    beIdle(5);
    list.update();
    EXPECT_EQ(list.recordCount(), 12);
}

TEST_F(ALongList, MissesNoRowOfANumberThatManyHave)
{
    for (const char* change :
         {"update pessoa set ordem = 1", "update pessoa set ordem = nind; update pessoa set ordem = 30 where nind = 40",
          "update pessoa set ordem = nind; update pessoa set ordem = null where nind = 60",
          "update pessoa set ordem = nind; update pessoa set ordem = 'muitos' where nind = 70",
          "update pessoa set ordem = nind; update pessoa set ordem = 90 where nind = 100"})
    {
        outside(qPrintable(QLatin1String("pragma ignore_check_constraints = on; ") + QLatin1String(change)));
        Recordset list = select("select nind from pessoa order by ordem");
        EXPECT_EQ(list.recordCount(), 10) << change;
        list.moveLast();
        const std::string walkedThrough = walk(list);
        const QScopedValueRollback atOnce(Recordset::Private::keysOfAPiece, 1000);
        Recordset whole = select("select nind from pessoa order by ordem");
        EXPECT_EQ(walkedThrough, walk(whole)) << change;
    }
}

TEST_F(ALongList, IsReadAtOnceWhereItHasToBeSorted)
{
    outside("drop index pessoa_ordem");
    run("update pessoa set ordem = 200 - nind");
    Recordset list = select("select nind from pessoa order by ordem");
    asked();
    beIdle();
    list.moveLast();
    EXPECT_FALSE(asked());
    EXPECT_EQ(walk(list), "100 90 80 70 60 50 40 30 20 10");
}

TEST_F(ALongList, TakesUpWhatIsWrittenAndStaysUnreadWhereNothingIs)
{
    DataControl list(bdp);
    list.setRecordSource(QStringLiteral("select nind from pessoa order by nind"));
    list.refresh();
    list.recordset().moveNext();
    list.refresh();
    EXPECT_EQ(list.recordset().absolutePosition(), 1);
    EXPECT_EQ(list.recordset().recordCount(), 10);
    insert(25);
    list.refresh();
    EXPECT_EQ(list.recordset().recordCount(), 11);
    EXPECT_EQ(walk(list.recordset()), "10 20 25 30 40 50 60 70 80 90 100");
}

TEST_F(ALongList, OfAClosedConnectionIsNotReadOn)
{
    Recordset list = numbers();
    Recordset moved = std::move(list);
    bdp.close();
    beIdle();
    EXPECT_FALSE(moved.isOpen());
    bdp.open(path());
    Recordset again = numbers();
    beIdle(2);
    EXPECT_EQ(walk(again), all);

    Recordset left = numbers();
    bdp.close();
    bdp.open(path());
    insert(110);
    EXPECT_FALSE(left.isOpen());
    {
        Recordset gone = numbers();
    }
    beIdle();
    insert(120);
}

TEST_F(ALongList, GoesOnAfterAnError)
{
    Recordset list = numbers();
    list.moveNext();
    EXPECT_EQ(list[0], QVariant(20.0));
    sqlite3* other = nullptr;
    sqlite3_open(path().toUtf8(), &other);
    sqlite3_exec(other, "begin exclusive; insert into pessoa (nind) values (15)", nullptr, nullptr, nullptr);
    beIdle();
    EXPECT_EQ(numberOf([&] { list.moveLast(); }), number::engineFailure);
    EXPECT_EQ(numberOf([&] { insert(33); }), number::engineFailure);
    EXPECT_EQ(list[0], QVariant(20.0));
    sqlite3_exec(other, "commit", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    insert(33);
    EXPECT_EQ(list[0], QVariant(20.0));
    EXPECT_EQ(walk(list), "10 15 20 30 40 50 60 70 80 90 100");
}

// One list is read in pieces, the other at once; whatever befalls them, they are the same.
class ALongAndAWholeList : public ALongList, public testing::WithParamInterface<int>
{
protected:
    QRandomGenerator random{quint32(GetParam())};

    int anyOf(int limit) { return random.bounded(limit); }

    void write()
    {
        const QVariant nind = anyOf(120), other = anyOf(120);
        switch (anyOf(6)) {
        case 0:
            return bdp.transactionLevel() < 2 ? bdp.beginTrans() : bdp.commitTrans();
        case 1:
            return bdp.rollbackTrans();
        case 2:
            run("delete from pessoa where nind = ?", {nind});
            break;
        case 3:
            run("update pessoa set nind = ? where nind = ?", {nind, other});
            break;
        default:
            run("insert into pessoa (nind) values (?)", {nind});
        }
    }

    void move(Recordset& list, int how, int where)
    {
        switch (how) {
        case 0:
            return list.moveFirst();
        case 1:
            return list.moveLast();
        case 2:
            return list.movePrevious();
        case 3:
            return list.setAbsolutePosition(where / 8);
        case 4:
            return list.find(QStringLiteral("nind = %1").arg(where));
        case 5:
            return list.find(QStringLiteral("nind > %1").arg(where));
        case 6:
            return where > 60 ? list.deleteRow() : list.requery();
        case 7:
            return where > 100 ? list.setFilter(QStringLiteral("nind > 30")) : list.setFilter({});
        default:
            return list.moveNext();
        }
    }

    // Where it stands and on what, or the number of the error.
    static std::string state(Recordset& list)
    {
        std::string text = std::to_string(list.recordCount()) + ' ' + std::to_string(list.absolutePosition());
        text += list.bof() ? " BOF" : "";
        text += list.eof() ? " EOF" : "";
        try {
            return text + ' ' + list[0].toString().toStdString();
        } catch (const Error& error) {
            return text + " error " + std::to_string(error.number);
        }
    }
};

TEST_P(ALongAndAWholeList, AreTheSame)
{
    const char* sources[]{"select nind from pessoa order by nind", "select nind, nome from pessoa"};
    for (int round = 0; round < 30; ++round) {
        const char* source = sources[anyOf(2)];
        Recordset pieces = select(source);
        Recordset whole(bdp);
        {
            const QScopedValueRollback atOnce(Recordset::Private::keysOfAPiece, 100000);
            whole.open(QString::fromLatin1(source));
        }
        for (int step = 0; step < 12; ++step) {
            if (anyOf(4) == 0) beIdle();
            if (anyOf(5) == 0) numberOf([&] { write(); });
            const int how = anyOf(12);
            const int where = anyOf(120);
            const long expected = numberOf([&] { move(whole, how, where); });
            const long got = numberOf([&] { move(pieces, how, where); });
            ASSERT_EQ(got, expected) << how << ' ' << where;
            ASSERT_EQ(state(pieces), state(whole)) << how << ' ' << where << " in step " << step << " of " << round;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Random, ALongAndAWholeList, testing::Range(1, 21));

} // namespace jet::test
