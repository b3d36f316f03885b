// Intervals of 95 %, and the quantiles behind them.
#include "study/statistics/confidence.h"
#include "study/statistics/quantiles.h"
#include "study/statistics_near.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace study::statistics;

namespace {

void expectPerThousand(const Interval& interval, double low, double high)
{
    EXPECT_NEAR(interval.low * 1000, low, lastDigit(1));
    EXPECT_NEAR(interval.high * 1000, high, lastDigit(1));
}

} // namespace

TEST(AnIntervalOfARate, IsTheExactOneOfPoisson)
{
    expectPerThousand(poissonInterval(14, 98), 78.1, 239.7);
    expectPerThousand(poissonInterval(45, 120.25), 273.0, 500.7);
    expectPerThousand(poissonInterval(5, 20), 81.2, 583.4);
}

TEST(AnIntervalOfARate, BeginsAtNothingWhereNothingHappened)
{
    expectPerThousand(poissonInterval(0, 25), 0, 147.6);
    EXPECT_EQ(poissonInterval(0, 25).low, 0);
}

TEST(AnIntervalOfARate, EndsForHoweverManyEvents)
{
    for (const double events : {4e7, 6e7, 1e9, 1e12, 1e15}) {
        const Interval interval = poissonInterval(events, events);
        EXPECT_NEAR((interval.high - 1) * std::sqrt(events), 1.959964, 1e-3) << events;
        EXPECT_NEAR((1 - interval.low) * std::sqrt(events), 1.959964, 1e-3) << events;
    }
    // On both sides of where the way to it changes.
    EXPECT_NEAR(chiSquareQuantile(0.975, 1e8) / chiSquareQuantile(0.975, 1e8 + 1), 1, 1.1e-8);
    EXPECT_LT(chiSquareQuantile(0.975, 1e8), chiSquareQuantile(0.975, 1e8 + 1));
}

TEST(AnIntervalOfAShare, IsWilsons)
{
    const Interval twelve = wilsonInterval(12, 80);
    EXPECT_NEAR(twelve.low * 100, 8.8, lastDigit(1));
    EXPECT_NEAR(twelve.high * 100, 24.4, lastDigit(1));
    const Interval boys = wilsonInterval(412, 800);
    EXPECT_NEAR(412.0 / 388 * 100, 106.2, lastDigit(1));
    EXPECT_NEAR(boys.low / (1 - boys.low) * 100, 92.4, lastDigit(1));
    EXPECT_NEAR(boys.high / (1 - boys.high) * 100, 122.0, lastDigit(1));
    const Interval illegitimate = wilsonInterval(1326, 10170);
    EXPECT_NEAR(illegitimate.low * 100, 12.40, lastDigit(2));
    EXPECT_NEAR(illegitimate.high * 100, 13.71, lastDigit(2));
}

TEST(AnIntervalOfAShare, EndsAtNoneAndAtAll)
{
    const Interval none = wilsonInterval(0, 20), all = wilsonInterval(20, 20);
    EXPECT_EQ(none.low, 0);
    EXPECT_NEAR(none.high, 0.161125, 1e-6);
    EXPECT_EQ(all.high, 1);
    EXPECT_NEAR(all.low, 1 - none.high, 1e-12);
}

TEST(AnIntervalOfAMean, IsStudents)
{
    // Ten values, mean 26, deviation 4: 2.262157 × 4 / √10.
    const auto interval = meanInterval(26, 4, 10);
    ASSERT_TRUE(interval);
    EXPECT_NEAR(interval->low, 26 - 2.861428, 1e-5);
    EXPECT_NEAR(interval->high, 26 + 2.861428, 1e-5);
    EXPECT_EQ(meanInterval(26, 0, 2), (Interval{26, 26}));
}

TEST(AnIntervalOfAMean, NeedsTwoValues)
{
    EXPECT_FALSE(meanInterval(26, 0, 1));
    EXPECT_FALSE(meanInterval(0, 0, 0));
}

TEST(AQuantile, IsThatOfTheTables)
{
    EXPECT_NEAR(normalQuantile(0.975), 1.959964, 1e-6);
    EXPECT_NEAR(studentQuantile(0.975, 4), 2.776445, 1e-6);
    EXPECT_NEAR(chiSquareQuantile(0.95, 11), 19.675138, 1e-6);
    EXPECT_NEAR(chiSquareTail(19.675138, 11), 0.05, 1e-7);
    EXPECT_EQ(chiSquareTail(0, 11), 1);
    EXPECT_NEAR(headsAtMost(0, 6), 1.0 / 64, 1e-12);
    EXPECT_NEAR(headsAtMost(4, 17), 3214.0 / 131072, 1e-12);
}
