// A program that is killed while it merges and takes back leaves each decision whole, or nothing of it.
#include "study/killed.h"
#include "study/merged.h"
#include "study/people.h"

#include "platform/jet/jsonrow.h"
#include "study/linkage/decisions.h"
#include "study/linkage/merge.h"

#include <random>

using namespace study::linkage;

namespace {

constexpr int rounds = 8;
constexpr int couples = 300;

class KilledWhileItMerges : public People
{
protected:
    // Ana of each couple is twice there: number 3n + 2 is 3n + 3.
    KilledWhileItMerges()
    {
        bdp.beginTrans();
        for (int i = 0; i < couples; ++i) {
            const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"});
            couple(rui, ana);
            couple(rui, again, "1725-01-01");
        }
        bdp.commitTrans();
        first_ = merged::contents(bdp);
        bdp.close();
    }

    int number(const char* select) { return int(jet::Recordset(bdp, jet::NativeSql(select))[0].toDouble()); }

    // Whoever has gone was taken by a decision that is kept, and each decision has taken one.
    void expectWhole()
    {
        const int standing = number("select count(*) from estudo_decisao where desfeita is null");
        EXPECT_EQ(number("select count(*) from individuo"), 3 * couples - standing);
        EXPECT_EQ(number("select count(*) from familia"), 2 * couples - standing);
        EXPECT_EQ(number("select count(*) from familias"), 4 * couples - 2 * standing);
        EXPECT_EQ(number("select count(*) from familias where nind not in (select nind from individuo)"), 0);
        EXPECT_EQ(jet::jsonRows(bdp, jet::NativeSql("pragma integrity_check")).first()["integrity_check"], "ok");
    }

    QMap<QString, QByteArray> first_;
};

} // namespace

TEST_F(KilledWhileItMerges, LeavesWholeDecisionsAndAllThatWereConfirmed)
{
    std::mt19937 random(11);
    const auto work = [&](const killed::Confirm& confirm) {
        jet::Connection own;
        own.open(path());
        const int done = hasDecisions(own) ? int(decisions(own).size()) : 0;
        for (int i = done; i < couples; ++i) {
            mergePeople(own, 3 * i + 2, 3 * i + 3, {.join = {{2 * i + 1, 2 * i + 2}}});
            confirm(i + 1);
        }
    };
    for (int round = 0; round < rounds; ++round) {
        const int confirmed = killed::workAndKill(work, std::uniform_int_distribution(0, 40)(random));
        bdp.open(path());
        const int kept = number("select count(*) from estudo_decisao");
        EXPECT_GE(kept, confirmed);
        EXPECT_LE(kept, confirmed + 1) << "one may have reached the disk before it could be confirmed";
        expectWhole();
        bdp.close();
    }
}

TEST_F(KilledWhileItMerges, LeavesWholeReturns)
{
    bdp.open(path());
    const int all = 60;
    for (int i = 0; i < all; ++i)
        mergePeople(bdp, 3 * i + 2, 3 * i + 3, {.join = {{2 * i + 1, 2 * i + 2}}});
    bdp.close();
    std::mt19937 random(12);
    const auto work = [&](const killed::Confirm& confirm) {
        jet::Connection own;
        own.open(path());
        confirm(0);
        for (const Decision& one : decisions(own))
            if (one.stands()) {
                takeBack(own, one.id);
                confirm(int(one.id));
            }
    };
    for (int round = 0; round < rounds; ++round) {
        killed::workAndKill(work, std::uniform_int_distribution(0, 30)(random));
        bdp.open(path());
        expectWhole();
        bdp.close();
    }
    bdp.open(path());
    for (const Decision& one : decisions(bdp))
        if (one.stands()) {
            EXPECT_EQ(takeBack(bdp, one.id), "");
        }
    EXPECT_EQ(merged::contents(bdp), first_);
}
