// Means, medians and their intervals of whole values.
#include "study/statistics/distribution.h"
#include "study/statistics_near.h"

#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

using namespace study::statistics;

namespace {

const Distribution& delays()
{
    static const Distribution days(counted({0, 1, 1, 2, 3, 3, 4, 5, 7, 8, 8, 9, 10, 12, 15, 21, 30}));
    return days;
}

// By the definition, over all values in their order.
double quantileOf(std::vector<qint32> values, double p)
{
    std::sort(values.begin(), values.end());
    const double rank = p * static_cast<double>(values.size() - 1);
    const auto whole = static_cast<std::size_t>(std::floor(rank));
    const double next = values[std::min(whole + 1, values.size() - 1)];
    return values[whole] + (rank - static_cast<double>(whole)) * (next - values[whole]);
}

} // namespace

TEST(ADistribution, HasTheQuartilesOfTheDelaysOfBaptism)
{
    EXPECT_EQ(delays().n(), 17);
    EXPECT_DOUBLE_EQ(*delays().quantile(0.25), 3);
    EXPECT_DOUBLE_EQ(*delays().median(), 7);
    EXPECT_DOUBLE_EQ(*delays().quantile(0.75), 10);
    EXPECT_DOUBLE_EQ(*delays().quantile(0), 0);
    EXPECT_DOUBLE_EQ(*delays().quantile(1), 30);
    EXPECT_NEAR(100.0 * static_cast<double>(delays().below(9)) / 17, 64.7, lastDigit(1));
}

TEST(ADistribution, GoesStraightBetweenTwoRanks)
{
    const Distribution four(counted({10, 20, 20, 40}));
    EXPECT_DOUBLE_EQ(*four.median(), 20);
    EXPECT_DOUBLE_EQ(*four.quantile(0.25), 17.5);
    EXPECT_DOUBLE_EQ(*four.quantile(0.75), 25);
    EXPECT_DOUBLE_EQ(*four.quantile(2), 40);
    EXPECT_DOUBLE_EQ(*four.quantile(-1), 10);
}

TEST(ADistribution, HasMeanAndDeviation)
{
    const Distribution values(counted({2, 4, 4, 4, 5, 5, 7, 9}));
    EXPECT_DOUBLE_EQ(*values.mean(), 5);
    EXPECT_DOUBLE_EQ(*values.deviation(), std::sqrt(32.0 / 7));
    EXPECT_NEAR(values.meanInterval()->low, 5 - 2.364624 * std::sqrt(32.0 / 56), 1e-6);
}

TEST(ADistribution, IsTheSameHoweverItsQuantilesAreWalked)
{
    QRandomGenerator dice(4711);
    for (int round = 0; round < 200; ++round) {
        std::vector<qint32> values(static_cast<std::size_t>(dice.bounded(1, 40)));
        for (qint32& value : values)
            value = dice.bounded(-9, 9);
        const Distribution of(counted(values));
        for (const double p : {0.0, 0.1, 0.25, 0.5, 0.75, 0.9, 1.0})
            EXPECT_NEAR(*of.quantile(p), quantileOf(values, p), 1e-12) << round << ' ' << p;
    }
}

TEST(ADistribution, GivesTheMedianAnIntervalByRanks)
{
    // Of 17 values the 5th and the 13th: P(4 or fewer on one side) = 0.0245.
    EXPECT_EQ(delays().medianInterval(), (Interval{3, 10}));
    EXPECT_EQ(Distribution(counted({1, 2, 3, 4, 5, 6})).medianInterval(), (Interval{1, 6}));
    EXPECT_FALSE(Distribution(counted({1, 2, 3, 4, 5})).medianInterval());
}

TEST(ADistribution, OfTheSizesOfFamiliesTellsHowManyGoOn)
{
    const Distribution sizes(counted({0, 1, 1, 2, 3, 3, 4, 5, 5, 5, 6, 6, 7, 7, 8, 8, 9, 10, 11, 12}));
    EXPECT_DOUBLE_EQ(*sizes.mean(), 5.65);
    const std::vector<double> told{0.950, 0.895, 0.941, 0.875, 0.929, 0.769, 0.800, 0.750, 0.667};
    double product = 1, sum = 0;
    for (qint32 k = 0; k < 12; ++k) {
        const auto atLeast = [&sizes](qint32 children) {
            return static_cast<double>(sizes.n() - sizes.below(children));
        };
        const double goesOn = atLeast(k + 1) / atLeast(k);
        if (k < 9) {
            EXPECT_NEAR(goesOn, told[static_cast<std::size_t>(k)], lastDigit(3)) << k;
        }
        product *= goesOn;
        sum += product;
    }
    EXPECT_NEAR(sum, 5.65, 1e-9);
}

TEST(ADistribution, OfFirstIntervalsInDaysIsToldInMonths)
{
    constexpr double month = 365.25 / 12;
    const Distribution all(counted({120, 150, 200, 214, 239, 243, 260, 273, 280, 300, 330, 365, 420, 500, 730}));
    EXPECT_EQ(all.below(213), 3);
    EXPECT_EQ(all.below(243), 5);
    EXPECT_NEAR(*all.median() / month, 8.97, lastDigit(2));
    const Distribution fromEight(counted({243, 260, 273, 280, 300, 330, 365, 420, 500, 730}));
    EXPECT_NEAR(*fromEight.mean() / month, 12.16, lastDigit(2));
}

TEST(ADistribution, OfMillionsIsMeasuredAtOnce)
{
    const Distribution ages({{20, 4'000'000'000'000}, {25, 3'000'000'000'000}, {30, 3'000'000'000'000}});
    QElapsedTimer clock;
    clock.start();
    EXPECT_DOUBLE_EQ(*ages.median(), 25);
    EXPECT_EQ(ages.medianInterval(), (Interval{25, 25}));
    EXPECT_LT(clock.elapsed(), 500);
}

TEST(ADistribution, OfNothingMeasuresNothing)
{
    const Distribution none;
    EXPECT_EQ(none.n(), 0);
    EXPECT_FALSE(none.mean());
    EXPECT_FALSE(none.deviation());
    EXPECT_FALSE(none.median());
    EXPECT_FALSE(none.meanInterval());
    EXPECT_FALSE(none.medianInterval());
    EXPECT_EQ(none.below(100), 0);
    EXPECT_EQ(Distribution(std::map<qint32, qint64>{{7, 0}}), none);
}

TEST(ADistribution, OfOneValueHasNoDeviation)
{
    const Distribution one(std::map<qint32, qint64>{{7, 1}});
    EXPECT_DOUBLE_EQ(*one.mean(), 7);
    EXPECT_DOUBLE_EQ(*one.median(), 7);
    EXPECT_FALSE(one.deviation());
    EXPECT_FALSE(one.meanInterval());
}

TEST(ADistribution, IsTakenFromOneDimensionOfATally)
{
    Tally tally;
    tally.add({1, {1750, 2, 2460}}, 2);
    tally.add({1, {1800, 2, 2460}}, 1);
    tally.add({1, {1750, 2, 2810}}, 1);
    tally.add({1, {1750, 1, 3000}}, 5);
    tally.add({2, {1750, 2, 2460}}, 9);
    const auto of = [&tally](qint32 period, qint32 sex) {
        return Distribution::of(tally, 1, 2, {period, sex, 77, 0}).counts();
    };
    EXPECT_EQ(of(1750, 2), (std::map<qint32, qint64>{{2460, 2}, {2810, 1}}));
    EXPECT_EQ(of(Tally::any, 2), (std::map<qint32, qint64>{{2460, 3}, {2810, 1}}));
    EXPECT_TRUE(of(1900, 2).empty());
}
