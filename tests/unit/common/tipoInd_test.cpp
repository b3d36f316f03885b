#include "common/tipoInd.h"

#include <gtest/gtest.h>

namespace {

TEST(TypeOfAnIndividual, FollowsBothDatesWhenTheBirthFieldIsLeft)
{
    EXPECT_EQ(tipoPeloNascimento("1", true, true), "4");
    EXPECT_EQ(tipoPeloNascimento("2", true, true), "4");
    EXPECT_EQ(tipoPeloNascimento("T", true, true), "4");
    for (const char* tipo : {"", "0", "4", "9"})
        EXPECT_EQ(tipoPeloNascimento(tipo, true, true), tipo);
}

TEST(TypeOfAnIndividual, FollowsBothDatesWhenTheDeathFieldIsLeft)
{
    EXPECT_EQ(tipoPeloObito("1", true, true), "4");
    EXPECT_EQ(tipoPeloObito("2", true, true), "4");
    EXPECT_EQ(tipoPeloObito("", true, true), "1");
    EXPECT_EQ(tipoPeloObito("0", true, true), "1");
    for (const char* tipo : {"T", "4", "9"})
        EXPECT_EQ(tipoPeloObito(tipo, true, true), tipo);
}

TEST(TypeOfAnIndividual, FollowsTheBirthAlone)
{
    for (const char* tipo : {"", "0", "T"})
        EXPECT_EQ(tipoPeloNascimento(tipo, true, false), "1");
    for (const char* tipo : {"1", "2", "4"})
        EXPECT_EQ(tipoPeloNascimento(tipo, true, false), tipo);
    for (const char* tipo : {"", "0"})
        EXPECT_EQ(tipoPeloObito(tipo, true, false), "1");
    for (const char* tipo : {"1", "2", "4", "T"})
        EXPECT_EQ(tipoPeloObito(tipo, true, false), tipo);
}

TEST(TypeOfAnIndividual, StaysWithoutABirthDate)
{
    for (const char* tipo : {"", "0", "1", "2", "4", "T"}) {
        EXPECT_EQ(tipoPeloNascimento(tipo, false, true), tipo);
        EXPECT_EQ(tipoPeloObito(tipo, false, true), tipo);
    }
}

TEST(TypeOfAnIndividual, IsReadWithoutItsBlanks)
{
    EXPECT_EQ(tipoPeloNascimento(" T ", true, true), "4");
    EXPECT_EQ(tipoPeloNascimento("  ", true, false), "1");
    EXPECT_EQ(tipoPeloObito(" 2", true, true), "4");
}

} // namespace
