#include "kit/figures.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace bench;

TEST(Figures, TheMedianIsTheMiddleOneInWhateverOrder)
{
    EXPECT_EQ(median({3, 1, 100}), 3);
    EXPECT_EQ(median({4, 1, 100, 2}), 3);
    EXPECT_EQ(median({}), 0);
}

TEST(Figures, TheExponentIsThePowerOfTheSizeByWhichTheTimeGrows)
{
    for (const double power : {-0.5, 0.0, 0.1, 1.0, 2.0}) {
        std::vector<std::pair<double, double>> times;
        for (const double size : {1e3, 1e5, 1e6})
            times.emplace_back(size, 7 * std::pow(size, power));
        EXPECT_NEAR(exponent(times), power, 1e-9);
    }
}

TEST(Figures, OneSizeHasNoExponent)
{
    EXPECT_EQ(exponent({{1000, 5}}), 0);
    EXPECT_EQ(exponent({}), 0);
}

TEST(Figures, TheDriftComparesTheLastTenthOfTheTurnsWithTheFirst)
{
    std::vector<double> turns(100, 4);
    for (std::size_t last = 90; last < 100; ++last)
        turns[last] = 6;
    EXPECT_EQ(drift(turns), 1.5);
    EXPECT_EQ(drift({1, 2, 3}), 1) << "too few to say";
}
