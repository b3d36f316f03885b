// F of the children of kin.
#include "study/people.h"

#include "study/indicators/inbreeding.h"

using namespace study::indicators;

namespace {

class TheInbreedingOfChildren : public People
{
protected:
    qint64 man(qint64 family = 0) { return person({"Ele", 'm', "", "", family}); }
    qint64 woman(qint64 family = 0) { return person({"Ela", 'f', "", "", family}); }
    qint64 strangers() { return couple(man(), woman()); }
    // A family of a child of this one with somebody of no kin.
    qint64 below(qint64 family) { return couple(man(family), woman()); }
    double of(qint64 father, qint64 mother) const
    {
        const auto parish = study::parish::Snapshot::read(bdp);
        const auto* const one = parish.person(study::parish::PersonNumber(father));
        const auto* const other = parish.person(study::parish::PersonNumber(mother));
        const double f = inbreedingOfChildren(*one, *other) / double(inbreedingUnits);
        EXPECT_EQ(f, inbreedingOfChildren(*other, *one) / double(inbreedingUnits));
        return f;
    }
};

} // namespace

TEST_F(TheInbreedingOfChildren, OfSiblingsAndOfParentAndChild)
{
    const qint64 family = strangers();
    EXPECT_EQ(of(man(family), woman(family)), 1 / 4.0);
    EXPECT_EQ(of(1, woman(family)), 1 / 4.0);
    EXPECT_EQ(of(man(), woman(family)), 0);
}

TEST_F(TheInbreedingOfChildren, OfCousinsToTheFourthDegreeAndNoFurther)
{
    qint64 one = strangers();
    qint64 other = one;
    for (const double f : {1 / 4.0, 1 / 16.0, 1 / 64.0, 1 / 256.0, 0.0}) {
        EXPECT_EQ(of(man(one), woman(other)), f);
        one = below(one);
        other = below(other);
    }
}

TEST_F(TheInbreedingOfChildren, OfHalfSiblingsOfUnclesAndOfDoubleCousins)
{
    const qint64 family = strangers(), second = couple(1, woman());
    EXPECT_EQ(of(man(family), woman(second)), 1 / 8.0) << "the father alone is shared";
    EXPECT_EQ(of(man(family), woman(below(family))), 1 / 8.0) << "uncle and niece";
    const qint64 others = strangers();
    const qint64 his = couple(man(family), woman(others)), hers = couple(man(others), woman(family));
    EXPECT_EQ(of(man(his), woman(hers)), 1 / 8.0) << "cousins on both sides";
}

TEST_F(TheInbreedingOfChildren, IsRaisedByAnAncestorWhoIsInbred)
{
    const qint64 family = strangers();
    const qint64 shared = man(couple(man(family), woman(family))); // of brother and sister: F is 1/4
    const qint64 his = couple(shared, woman()), hers = couple(shared, woman());
    EXPECT_EQ(of(man(his), woman(hers)), 1 / 8.0 * 5 / 4);
}

// Each pair of lines from brother and sister to a grandparent passes through one parent.
TEST_F(TheInbreedingOfChildren, CountsNoPathThatPassesTwiceThroughSomebody)
{
    const qint64 oldest = strangers();
    const qint64 parents = below(oldest);
    EXPECT_EQ(of(man(parents), woman(parents)), 1 / 4.0);
}

TEST_F(TheInbreedingOfChildren, EndsWhereSomebodyIsHisOwnAncestor)
{
    const qint64 family = strangers();
    const qint64 son = man(family), daughter = woman(family);
    run("update individuo set famorig = ? where nind in (1, 2)", {couple(son, daughter)});
    const double f = of(son, daughter);
    EXPECT_GT(f, 0);
    EXPECT_LE(f, 1);
}
