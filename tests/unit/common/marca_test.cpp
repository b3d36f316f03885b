#include "common/marca.h"

#include <gtest/gtest.h>

TEST(Mark, StandsBeforeWhatTheResearcherHasAdded)
{
    EXPECT_EQ(comMarca("Cura"), "*Cura");
    EXPECT_TRUE(temMarca(comMarca("Cura")));
    EXPECT_FALSE(temMarca("Cura"));
    EXPECT_FALSE(temMarca("Cu*ra"));
    EXPECT_FALSE(temMarca(""));
}

TEST(Mark, IsNotShownNorIsAnyOtherStar)
{
    EXPECT_EQ(semMarca("*Cura"), "Cura");
    EXPECT_EQ(semMarca("**Cu*ra"), "Cura");
    EXPECT_EQ(semMarca("Cura"), "Cura");
}
