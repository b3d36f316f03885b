// Lists that follow what their connection writes, through histories made by chance.
#include "jet/follow.h"
#include "platform/jet/recordset_p.h"

#include <QRandomGenerator>
#include <QScopedValueRollback>

namespace jet::test {

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
