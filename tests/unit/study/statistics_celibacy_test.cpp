// Who stays single.
#include "study/statistics/celibacy.h"

#include <gtest/gtest.h>
#include <limits>

using namespace study::statistics;

TEST(TheSingulateMeanAge, IsThatAtWhichAllMarryOnOneDay)
{
    EXPECT_DOUBLE_EQ(*singulateMeanAge({1, 1, 0, 0, 0, 0, 0, 0}), 25);
    EXPECT_DOUBLE_EQ(*singulateMeanAge({1, 1, 0.2, 0.2, 0.2, 0.2, 0.2, 0.2}), 25) << "whoever never marries has no say";
    EXPECT_DOUBLE_EQ(*singulateMeanAge({0, 0, 0, 0, 0, 0, 0, 0}), 15);
}

TEST(TheSingulateMeanAge, FollowsTheFormula)
{
    // 15 + 5 · (0.95 + 0.62 + 0.34 + 0.22 + 0.18 + 0.16 + 0.15) = 28.1; S at 50: 0.145; (28.1 − 7.25)/0.855
    EXPECT_NEAR(*singulateMeanAge({0.95, 0.62, 0.34, 0.22, 0.18, 0.16, 0.15, 0.14}), 20.85 / 0.855, 1e-12);
}

TEST(TheSingulateMeanAge, IsNothingForWhatIsNoShare)
{
    EXPECT_EQ(singulateMeanAge({1, 1, 1, 1, 1, 1, 1, 1}), std::nullopt);
    EXPECT_EQ(singulateMeanAge({1.1, 1, 0, 0, 0, 0, 0, 0}), std::nullopt);
    EXPECT_EQ(singulateMeanAge({-0.1, 1, 0, 0, 0, 0, 0, 0}), std::nullopt);
    EXPECT_EQ(singulateMeanAge({std::numeric_limits<double>::quiet_NaN(), 1, 0, 0, 0, 0, 0, 0}), std::nullopt);
}
