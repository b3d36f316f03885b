// Seasonality per day.
#include "study/statistics/quantiles.h"
#include "study/statistics/seasons.h"
#include "study/statistics_near.h"

#include <gtest/gtest.h>
#include <numeric>

using namespace study::statistics;

namespace {

constexpr Months marriages{24, 40, 6, 12, 18, 14, 10, 9, 16, 22, 38, 5};
constexpr Months days{31, 28.25, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

void expectTold(const std::optional<Months>& months, const Months& told)
{
    ASSERT_TRUE(months);
    for (std::size_t month = 0; month < 12; ++month)
        EXPECT_NEAR((*months)[month], told[month], lastDigit(1)) << month + 1;
}

} // namespace

TEST(SeasonsOfMarriages, ByDailyRatios)
{
    const auto ratios = dailyRatios(marriages);
    expectTold(ratios, {132.1, 241.7, 33.0, 68.3, 99.1, 79.6, 55.1, 49.6, 91.0, 121.1, 216.2, 27.5});
    EXPECT_NEAR(std::inner_product(days.begin(), days.end(), ratios->begin(), 0.0) / 365.25, 100, 1e-9);
}

TEST(SeasonsOfMarriages, ByProportionalNumbers)
{
    const auto numbers = proportionalNumbers(marriages);
    expectTold(numbers, {130.6, 238.8, 32.6, 67.5, 97.9, 78.7, 54.4, 49.0, 90.0, 119.7, 213.6, 27.2});
    EXPECT_NEAR(std::accumulate(numbers->begin(), numbers->end(), 0.0), 1200, 1e-9);
}

TEST(SeasonsOfMarriages, AreNotEven)
{
    // Σ n²/(N·d/365.25) − N, worked out apart from the sum of squares.
    double squares = 0;
    for (std::size_t month = 0; month < 12; ++month)
        squares += marriages[month] * marriages[month] / (214 * days[month] / 365.25);
    const auto even = evenness(marriages);
    ASSERT_TRUE(even);
    EXPECT_NEAR(even->chiSquare, squares - 214, 1e-9);
    EXPECT_LT(even->probability, 1e-10);
    EXPECT_GT(even->probability, 0);
}

TEST(Seasons, ByTheDaysAreEven)
{
    const auto even = evenness(days);
    EXPECT_NEAR(even->chiSquare, 0, 1e-12);
    EXPECT_NEAR(even->probability, 1, 1e-12);
    const auto ratios = dailyRatios(days);
    for (const double ratio : *ratios)
        EXPECT_NEAR(ratio, 100, 1e-9);
}

TEST(Seasons, OfNothingAreNothing)
{
    EXPECT_FALSE(dailyRatios({}));
    EXPECT_FALSE(proportionalNumbers({}));
    EXPECT_FALSE(evenness({}));
}

TEST(Seasons, OfOneMonthAreThatMonth)
{
    const auto numbers = proportionalNumbers({0, 3});
    EXPECT_EQ(*numbers, (Months{0, 1200}));
}
