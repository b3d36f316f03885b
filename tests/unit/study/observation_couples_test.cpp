// Until when a couple whose end nobody knows is seen, and ends that aren't sure.
#include "study/days.h"
#include "study/people.h"

#include "study/observation/presence.h"

#include <gtest/gtest.h>

using namespace study;
using observation::EndBy;
using observation::Mark;
using observation::OpenBy;
using observation::Proof;
using observation::Union;

namespace {

// H is 1 and W is 2, married on 3 February 1760; their three children are born in 1761, 1763 and 1765.
class ACoupleOfUnknownEnd : public People
{
protected:
    ACoupleOfUnknownEnd()
    {
        run("insert into infopar (cod, nome) values ('030301', 'Ribeira')");
        person({"Rui"});
        person({"Ana", 'f', "1735-07-05"});
        couple(1, 2, "1760-02-03");
        run("update familia set dcasamfixa = 1");
        for (const char* birth : {"1761-01-20", "1763-03-11", "1765-08-02"})
            person({"Gil", 'm', birth, "", 1});
    }

    Mark seenUntil() const
    {
        const auto parish = parish::Snapshot::read(bdp);
        return coupleSeenUntil(observation::unionsOf(parish, {}).front(), parish);
    }
    void assists(qint64 nind, const char* date)
    {
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', 99, ?, ?, 'p')",
            {date, nind});
    }
    void livesHere(qint64 number, const char* kind, const char* date)
    {
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, ?, ?, 1, "
            "'03030101', 'L')",
            {number, kind, date});
    }
    void dies(qint64 nind, const char* date)
    {
        run("update individuo set dataobito = ?, dobitofixa = 1 where nind = ?", {date, nind});
    }
};

} // namespace

TEST_F(ACoupleOfUnknownEnd, IsNotSeenByItsBirths)
{
    EXPECT_EQ(seenUntil(), Mark());
    dies(4, "1766-04-10");
    EXPECT_EQ(seenUntil(), (Mark{day(1766, 4, 10), Proof::ChildBuried}));
    dies(3, "1790-01-01"); // grown up
    EXPECT_EQ(seenUntil().day, day(1766, 4, 10));
}

TEST_F(ACoupleOfUnknownEnd, IsSeenAsLongAsBothAre)
{
    livesHere(1, "i", "1768-01-01");
    EXPECT_EQ(seenUntil(), Mark()) << "nothing shows the wife";
    livesHere(2, "i", "1767-01-01");
    EXPECT_EQ(seenUntil(), (Mark{day(1767, 1, 1), Proof::Residence}));
    assists(2, "1767-06-01");
    EXPECT_EQ(seenUntil(), (Mark{day(1767, 6, 1), Proof::Assistance}));
    livesHere(1, "f", "1771-01-01");
    EXPECT_EQ(seenUntil().day, day(1771, 1, 1)) << "both live where the family does";
    run("update familia set fimobs = '1775-05-05'");
    EXPECT_EQ(seenUntil(), (Mark{day(1775, 5, 5), Proof::Researcher}));
}

TEST_F(ACoupleOfUnknownEnd, IsNotSeenByWhatWasWrittenAtABaptismOfItsChildren)
{
    for (const int nind : {1, 2}) {
        livesHere(nind, "i", "1760-06-01");
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) select ?, 'i', "
            "datanasc, 1, localresid, tipolocal from residencia, individuo where famorig = 1 and numero = ?",
            {nind, nind});
    }
    EXPECT_EQ(seenUntil(), (Mark{day(1760, 6, 1), Proof::Residence}));
}

TEST_F(ACoupleOfUnknownEnd, IsNotSeenBehindADeathOrABound)
{
    livesHere(1, "f", "1771-01-01");
    dies(1, "1770-03-03");
    EXPECT_EQ(seenUntil(), (Mark{day(1770, 3, 3), Proof::Death})) << "the widow isn't seen by a row of her own";
    run("update individuo set dataobito = null where nind = 1");
    const qint64 next = person({"Eva", 'f'});
    couple(1, next, "1769-02-02");
    run("update familia set dcasamfixa = 1");
    EXPECT_EQ(seenUntil().day, day(1769, 2, 2));
}

TEST_F(ACoupleOfUnknownEnd, GivesNothingOnceTheEndIsKnownOrTheDatesAreWrong)
{
    dies(4, "1766-04-10");
    dies(1, "1767-01-01");
    dies(2, "1780-01-01");
    EXPECT_EQ(seenUntil(), Mark());
    run("update individuo set dataobito = null where nind = 1");
    dies(2, "1750-01-01");
    EXPECT_EQ(seenUntil(), Mark());
}

TEST_F(ACoupleOfUnknownEnd, HasABoundAloneWhereBothAreSaidToHaveDiedWidowed)
{
    dies(1, "1775-08-09");
    run("update individuo set estadoobito = 3");
    const auto parish = parish::Snapshot::read(bdp);
    const Union of = observation::unionsOf(parish, {}).front();
    EXPECT_EQ(of.openBy, OpenBy::WidowedAtDeath);
    EXPECT_EQ(of.endBound, day(1775, 8, 9));
    run("update individuo set estadoobito = null where nind = 1");
    const auto again = parish::Snapshot::read(bdp);
    EXPECT_EQ(observation::unionsOf(again, {}).front().endBy, EndBy::OtherWidowed);
}
