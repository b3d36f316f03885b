#include "common/tipoFam.h"

#include <gtest/gtest.h>

namespace {

constexpr bool yes = true, no = false;

TEST(TypeOfAFamily, IsOneOfFourWhereTheMarriageIsKnown)
{
    EXPECT_EQ(tipoDaFamilia({yes, yes, yes, yes}), "1");
    EXPECT_EQ(tipoDaFamilia({no, yes, yes, yes}), "2");
    EXPECT_EQ(tipoDaFamilia({yes, no, yes, yes}), "3");
    EXPECT_EQ(tipoDaFamilia({no, no, yes, yes}), "4");
}

TEST(TypeOfAFamily, NeedsBothDeathsWithoutTheMarriage)
{
    EXPECT_EQ(tipoDaFamilia({yes, yes, no, yes}), "5");
    EXPECT_EQ(tipoDaFamilia({no, yes, no, yes}), "6");
    EXPECT_EQ(tipoDaFamilia({yes, no, no, yes}), "7");
    EXPECT_EQ(tipoDaFamilia({no, no, no, yes}), "7");
}

TEST(TypeOfAFamily, IsTheLastOneWhereTheBirthOfAChildIsUnknown)
{
    for (const bool mother : {yes, no})
        for (const bool deaths : {yes, no})
            for (const bool marriage : {yes, no})
                EXPECT_EQ(tipoDaFamilia({mother, deaths, marriage, no}), "7");
}

} // namespace
