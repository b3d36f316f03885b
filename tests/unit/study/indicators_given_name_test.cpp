// The given names of people.
#include "study/people.h"

#include "study/indicators/givenName.h"

using namespace study;
using indicators::GivenNames;

namespace {

class TheGivenNames : public People // whose table of names is the one that is shipped
{
};

} // namespace

TEST_F(TheGivenNames, AreThoseOfTheNameWhoeverBearsIt)
{
    parish::Person one, other, third;
    one.name = other.name = "Roza Maria da Conceição";
    third.name = "José Alves";
    GivenNames known;
    EXPECT_EQ(known.of(one).first, "Rosa");
    EXPECT_TRUE(known.of(one).isDouble && known.of(one).isDevotional);
    EXPECT_EQ(&known.of(one), &known.of(other));
    EXPECT_EQ(known.of(third).first, "José");
    EXPECT_EQ(known.of(parish::Person()).first, "");
}

TEST_F(TheGivenNames, TellSaintsFromPeople)
{
    EXPECT_TRUE(indicators::givenNameOf("Nossa Senhora do Rosário").isSaint);
    EXPECT_FALSE(indicators::givenNameOf("Maria do Rosário").isSaint);
}
