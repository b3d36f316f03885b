// Endogenous mortality, crises, moving averages, heaping of ages, concentration.
#include "study/statistics/mortality.h"
#include "study/statistics_near.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace study::statistics;

namespace {

constexpr std::array<double, 12> infants{78, 90, 101, 109, 116, 122, 128, 133, 138, 143, 147, 150};

std::map<int, double> yearsFrom(int first, const std::vector<double>& values)
{
    std::map<int, double> years;
    for (const double value : values)
        years.emplace(first + static_cast<int>(years.size()), value);
    return years;
}

const std::vector<double> tenYears{31, 28, 35, 40, 29, 33, 37, 30, 34, 33};

// Of the year behind these.
Crisis crisisBehind(std::vector<double> before, double deaths, Spread spread = Spread::ByN, bool skip = false)
{
    before.push_back(deaths);
    const auto found = crises(yearsFrom(1700, before), spread, skip);
    const auto last = found.find(1700 + static_cast<int>(before.size()) - 1);
    return last == found.end() ? Crisis{std::nan(""), -1} : last->second;
}

std::array<double, 12> lineOf(double start, double early, double late)
{
    std::array<double, 12> deaths{};
    const auto scale = [](std::size_t month) { return std::pow(std::log10(endsOfMonths[month] + 1.0), 3); };
    for (std::size_t month = 0; month < 12; ++month)
        deaths[month] =
            month <= 5 ? start + early * scale(month) : start + early * scale(5) + late * (scale(month) - scale(5));
    return deaths;
}

} // namespace

TEST(EndogenousMortality, ByALineThroughTheFirstAndTheLastMonth)
{
    const auto found = endogenousByLine(infants);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->slope, 5.3588, lastDigit(4));
    EXPECT_NEAR(found->endogenous, 59.7, lastDigit(1));
    EXPECT_NEAR(150 - found->endogenous, 90.3, lastDigit(1));
    EXPECT_NEAR(1.254 * (150 - 78), 150 - found->endogenous, lastDigit(1));
    EXPECT_FALSE(found->bent);
}

// By the line, each of the 78 deaths of the first month adds 1, each of the 72 others −3.4099/(16.846 − 3.4099).
TEST(EndogenousMortality, HasTheErrorOfAMeanOverTheBirths)
{
    const auto scale = [](int day) { return std::pow(std::log10(day + 1.0), 3); };
    const double later = -scale(31) / (scale(365) - scale(31));
    const double mean = 0.078 + 0.072 * later;
    const double error = std::sqrt((0.078 + 0.072 * later * later - mean * mean) / 1000);
    const auto found = endogenousInterval(endogenousByLine, infants, 1000);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->low, 1000 * (mean - 1.959964 * error), 1e-4);
    EXPECT_NEAR(found->high, 1000 * (mean + 1.959964 * error), 1e-4);
}

TEST(EndogenousMortality, HasAnIntervalAroundIt)
{
    const auto squares = endogenousInterval(endogenousBySquares, infants, 1000);
    const auto more = endogenousInterval(endogenousBySquares, infants, 4000);
    ASSERT_TRUE(squares && more);
    const double found = endogenousBySquares(infants)->endogenous;
    EXPECT_NEAR((squares->low + squares->high) / 2, found, 1e-9);
    EXPECT_NEAR(squares->high - squares->low, 2 * (more->high - more->low), 1e-9);
    EXPECT_FALSE(endogenousInterval(endogenousBySquares, {}, 1000));
    EXPECT_FALSE(endogenousInterval(endogenousBySquares, infants, 0));
    EXPECT_EQ(endogenousInterval(endogenousBySquares, lineOf(-20, 9, 9), 100000)->low, 0);
}

TEST(EndogenousMortality, BySquaresOverTwelveMonths)
{
    const auto found = endogenousBySquares(infants);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->endogenous, 59.4, lastDigit(1));
    EXPECT_NEAR(found->slope, 5.420, lastDigit(3));
    EXPECT_NEAR(found->early.start, 59.5, lastDigit(1));
    EXPECT_NEAR(found->early.slope, 5.400, lastDigit(3));
    EXPECT_NEAR(found->late.start, 59.3, lastDigit(1));
    EXPECT_NEAR(found->late.slope, 5.426, lastDigit(3));
    EXPECT_FALSE(found->bent);
}

TEST(EndogenousMortality, IsFoundAgainOnALine)
{
    const auto deaths = lineOf(40, 3, 3);
    EXPECT_NEAR(endogenousByLine(deaths)->endogenous, 40, 1e-9);
    EXPECT_NEAR(endogenousBySquares(deaths)->endogenous, 40, 1e-9);
    EXPECT_NEAR(endogenousBySquares(deaths)->slope, 3, 1e-9);
}

TEST(EndogenousMortality, WarnsWhereTheHalfYearsDifferByMoreThanAQuarter)
{
    EXPECT_FALSE(endogenousBySquares(lineOf(40, 4, 4.96))->bent);
    EXPECT_TRUE(endogenousBySquares(lineOf(40, 4, 5.04))->bent);
    EXPECT_FALSE(endogenousByLine(lineOf(40, 4.96, 4))->bent);
    EXPECT_TRUE(endogenousByLine(lineOf(40, 5.04, 4))->bent);
}

TEST(EndogenousMortality, NeedsDeathsAndMayComeOutBelowNothing)
{
    EXPECT_FALSE(endogenousByLine({}));
    EXPECT_FALSE(endogenousBySquares({}));
    EXPECT_LT(endogenousBySquares(lineOf(-20, 9, 9))->endogenous, 0);
    std::array<double, 12> early{};
    early.fill(7);
    EXPECT_NEAR(endogenousBySquares(early)->endogenous, 7, 1e-9);
    EXPECT_FALSE(endogenousBySquares(early)->bent);
}

TEST(Crises, ByTheTenYearsBefore)
{
    struct Year
    {
        double deaths, byN;
        int magnitude;
        double byNLessOne;
    };
    for (const Year& year : {Year{39, 1.704, 1, 1.616}, Year{45, 3.408, 2, 3.233}, Year{60, 7.667, 3, 7.274},
                             Year{118, 24.138, 5, 22.900}})
    {
        const Crisis crisis = crisisBehind(tenYears, year.deaths);
        EXPECT_NEAR(crisis.index, year.byN, lastDigit(3));
        EXPECT_EQ(crisis.magnitude, year.magnitude);
        EXPECT_NEAR(crisisBehind(tenYears, year.deaths, Spread::ByNLessOne).index, year.byNLessOne, lastDigit(3));
    }
}

TEST(Crises, InTheBaseHideTheNextOneUnlessTheyAreSkipped)
{
    auto years = tenYears;
    years.push_back(118);
    EXPECT_NEAR(crisisBehind(years, 60).index, 0.713, lastDigit(3));
    EXPECT_EQ(crisisBehind(years, 60).magnitude, 0);
    // The nine that are left of the ten: mean 299/9.
    const Crisis skipped = crisisBehind(years, 60, Spread::ByN, true);
    EXPECT_NEAR(skipped.index, (60 - 299.0 / 9) / std::sqrt(10053.0 / 9 - 299.0 * 299 / 81), 1e-9);
    EXPECT_EQ(skipped.magnitude, 3);
}

TEST(Crises, HaveSixMagnitudes)
{
    // Five years of 10 and five of 12: mean 11, deviation 1.
    const std::vector<double> even{10, 12, 10, 12, 10, 12, 10, 12, 10, 12};
    const std::vector<std::pair<double, int>> magnitudes{{11.5, 0}, {12, 1}, {12.5, 1}, {13, 2}, {14.5, 2}, {15, 3},
                                                         {19, 4},   {26, 4}, {27, 5},   {42, 5}, {43, 6},   {999, 6}};
    for (const auto& [deaths, magnitude] : magnitudes)
        EXPECT_EQ(crisisBehind(even, deaths).magnitude, magnitude) << deaths;
    EXPECT_EQ(crisisBehind(even, 3), (Crisis{-8, 0}));
}

TEST(Crises, NeedTenYearsWithoutAGap)
{
    EXPECT_TRUE(crises(yearsFrom(1700, tenYears), Spread::ByN, false).empty());
    auto years = yearsFrom(1700, tenYears);
    years[1710] = 60;
    EXPECT_EQ(crises(years, Spread::ByN, false).size(), 1U);
    years.erase(1704);
    EXPECT_TRUE(crises(years, Spread::ByN, false).empty());
    EXPECT_TRUE(crises(yearsFrom(1700, std::vector<double>(20, 7)), Spread::ByN, false).empty());
    EXPECT_TRUE(crises({}, Spread::ByN, true).empty());
}

TEST(Crises, AreSkippedWhileFiveYearsAreLeft)
{
    // A parish that grows at once tenfold: years of crisis fall out of the base until it has no measure; then it starts
    // from the new height.
    std::vector<double> years = tenYears;
    for (int i = 0; i < 20; ++i)
        years.push_back(300 + i % 3);
    const auto found = crises(yearsFrom(1700, years), Spread::ByN, true);
    EXPECT_EQ(found.at(1714).magnitude, 6);
    EXPECT_EQ(found.count(1716), 0U);
    EXPECT_LT(found.rbegin()->second.index, 3);
}

TEST(NeighbourRatios, LeaveOutTheTwoHighestAndTheTwoLowest)
{
    const auto ratios = neighbourRatios(yearsFrom(1700, {31, 28, 35, 40, 29, 118, 33, 37, 30, 34, 33}));
    ASSERT_EQ(ratios.size(), 1U);
    EXPECT_NEAR(ratios.at(1705), 3.61, lastDigit(2));
    EXPECT_NEAR(ratios.at(1705), 118 / (196.0 / 6), 1e-9);
}

TEST(NeighbourRatios, NeedAllNeighboursAndSomeDeaths)
{
    auto years = yearsFrom(1700, {31, 28, 35, 40, 29, 118, 33, 37, 30, 34, 33});
    years.erase(1708);
    EXPECT_TRUE(neighbourRatios(years).empty());
    EXPECT_TRUE(neighbourRatios(yearsFrom(1700, {0, 0, 0, 0, 0, 9, 0, 0, 0, 0, 0})).empty());
    EXPECT_TRUE(neighbourRatios({}).empty());
}

TEST(AMovingAverage, OfFiveAndOfElevenYears)
{
    const auto years = yearsFrom(1, {20, 22, 25, 19, 30, 28, 26, 24, 27, 31, 29, 33, 40, 28, 26});
    const auto five = movingAverage(years, 5);
    const auto told = yearsFrom(3, {23.2, 24.8, 25.6, 25.4, 27.0, 27.2, 27.4, 28.8, 32.0, 32.2, 31.2});
    ASSERT_EQ(five.size(), told.size());
    for (const auto& [year, value] : told)
        EXPECT_NEAR(five.at(year), value, 1e-9) << year;
    const auto eleven = movingAverage(years, 11);
    EXPECT_EQ(eleven.size(), 5U);
    for (const auto& [year, value] : yearsFrom(6, {25.55, 26.73, 28.36, 28.64, 29.27})) {
        ASSERT_EQ(eleven.count(year), 1U);
        EXPECT_NEAR(eleven.at(year), value, lastDigit(2)) << year;
    }
}

TEST(AMovingAverage, HasNoValueWhereAYearIsMissing)
{
    auto years = yearsFrom(1700, std::vector<double>(12, 10));
    years.erase(1706);
    EXPECT_EQ(movingAverage(years, 5), (std::map<int, double>{{1702, 10}, {1703, 10}, {1709, 10}}));
    EXPECT_TRUE(movingAverage({}, 9).empty());
}

TEST(WhipplesIndex, OfStatedAges)
{
    const auto ages = counted({23, 25, 27, 30, 30, 30, 31, 33, 35, 35, 38, 40, 40, 40, 40,
                               42, 44, 45, 45, 47, 50, 50, 50, 52, 55, 58, 60, 60, 60, 62});
    EXPECT_NEAR(*whippleIndex(ages), 316.7, lastDigit(1));
}

TEST(WhipplesIndex, LooksFrom23To62)
{
    EXPECT_EQ(whippleIndex({{20, 9}, {22, 9}, {23, 1}, {60, 1}, {63, 9}, {65, 9}}), 250);
    EXPECT_EQ(whippleIndex({{30, 4}}), 500);
    EXPECT_FALSE(whippleIndex({{20, 9}, {65, 9}}));
    EXPECT_FALSE(whippleIndex({}));
    std::map<int, qint64> even;
    for (int age = 0; age < 90; ++age)
        even[age] = 3;
    EXPECT_EQ(whippleIndex(even), 100);
}

TEST(GinisIndex, OfGodchildren)
{
    EXPECT_NEAR(*gini({{1, 30}, {2, 10}, {3, 5}, {6, 3}, {15, 2}}), 0.449, lastDigit(3));
}

TEST(GinisIndex, OfAllTheSameAndOfOneWhoHoldsAll)
{
    EXPECT_EQ(gini({{4, 25}}), 0);
    EXPECT_EQ(gini({{0, 25}}), 0);
    EXPECT_NEAR(*gini({{0, 99}, {7, 1}}), 0.99, 1e-12);
    EXPECT_FALSE(gini({}));
    EXPECT_FALSE(gini({{3, 0}}));
}
