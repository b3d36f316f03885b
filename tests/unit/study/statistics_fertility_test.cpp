// Total marital fertility, the model of Coale and Trussell, Coale's index.
#include "study/statistics/fertility.h"
#include "study/statistics_near.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace study::statistics;

namespace {

// Rates per thousand at 20–24 … 45–49, and what follows from them.
struct Population
{
    const char* name;
    std::array<double, 6> rates;
    double total, level, control;
    double squaredError = -1; // not told

    std::vector<double> byYear(std::size_t groups) const
    {
        std::vector<double> some(rates.begin(), rates.begin() + static_cast<std::ptrdiff_t>(groups));
        for (double& rate : some)
            rate /= 1000;
        return some;
    }
};

const std::vector<Population>& populations()
{
    static const std::vector<Population> all{
        {"Hutterites, marriages 1921-30", {550, 502, 447, 406, 222, 61}, 10.940, 1.147, -0.084, 0.0015},
        {"Canada, marriages 1700-30", {509, 495, 484, 410, 231, 30}, 10.795, 1.102, -0.153, 0.0001},
        {"Hutterites, before 1921", {475, 451, 425, 374, 205, 24}, 9.770, 1.015, -0.126, 0.0002},
        {"Geneva, men born 1600-49", {525, 485, 429, 287, 141, 16}, 9.415, 1.185, 0.235, 0.0016},
        {"Crulai, rounded", {440, 420, 375, 280, 140, 10}, 8.325, 0.985, 0.107, 0.0005},
        {"Norway, marriages 1874-76", {396, 380, 341, 289, 180, 41}, 8.135, 0.835, -0.132, 0.0026},
        {"Geneva, men born before 1600", {389, 362, 327, 275, 123, 19}, 7.475, 0.862, 0.073, 0.0016},
        {"Bengal, 1945-46", {323, 288, 282, 212, 100, 33}, 6.190, 0.711, 0.093, 0.0016},
        {"Crulai, 1674-1742", {419, 429, 355, 292, 142, 10}, 8.235, 0.954, 0.068},
        {"Colyton, 1560-1629", {467, 403, 369, 302, 174, 18}, 8.665, 0.959, -0.019},
        {"Colyton, 1647-1719", {346, 395, 272, 182, 104, 20}, 6.595, 0.827, 0.247, 0.0117},
        {"Colyton, 1770-1837", {441, 361, 347, 270, 152, 22}, 7.965, 0.898, 0.024}};
    return all;
}

std::vector<Borne> womenOfAParish()
{
    return {{17, 38.50}, {40, 92.00}, {45, 120.25}, {34, 115.50}, {14, 98.00}, {1, 60.75}};
}

std::vector<double> ratesOf(std::size_t groups)
{
    std::vector<double> rates;
    for (const Borne& group : womenOfAParish())
        rates.push_back(group.births / group.years);
    rates.resize(groups);
    return rates;
}

std::vector<Borne> firstOf(std::size_t groups)
{
    auto some = womenOfAParish();
    some.resize(groups);
    return some;
}

} // namespace

TEST(TotalMaritalFertility, IsFiveTimesTheRates)
{
    for (const Population& population : populations()) {
        std::vector<Borne> groups;
        for (const double rate : population.rates)
            groups.push_back({rate, 1000});
        EXPECT_NEAR(totalMaritalFertility(groups)->value, population.total, lastDigit(3)) << population.name;
    }
}

TEST(TotalMaritalFertility, HasItsError)
{
    const auto total = totalMaritalFertility(womenOfAParish());
    ASSERT_TRUE(total);
    EXPECT_NEAR(total->value, 8.521, lastDigit(3));
    EXPECT_NEAR(total->error, 0.768, lastDigit(3));
}

TEST(TotalMaritalFertility, NeedsExposureInEveryGroup)
{
    auto groups = womenOfAParish();
    groups[5] = {};
    EXPECT_FALSE(totalMaritalFertility(groups));
    groups[5] = {0, 12};
    EXPECT_TRUE(totalMaritalFertility(groups));
    EXPECT_FALSE(totalMaritalFertility({}));
}

TEST(CoaleAndTrussell, BySquaresOfPublishedRates)
{
    for (const Population& population : populations()) {
        const auto model = coaleTrussellBySquares(population.byYear(5));
        ASSERT_TRUE(model) << population.name;
        EXPECT_NEAR(model->level, population.level, lastDigit(3)) << population.name;
        EXPECT_NEAR(model->control, population.control, lastDigit(3)) << population.name;
        if (population.squaredError < 0) continue;
        EXPECT_NEAR(*model->squaredError, population.squaredError, lastDigit(4)) << population.name;
    }
}

TEST(CoaleAndTrussell, BySquaresOfAParish)
{
    const auto five = coaleTrussellBySquares(ratesOf(5));
    EXPECT_NEAR(five->level, 0.998, lastDigit(3));
    EXPECT_NEAR(five->control, 0.094, lastDigit(3));
    EXPECT_NEAR(*five->squaredError, 0.0007, lastDigit(4));
    const auto six = coaleTrussellBySquares(ratesOf(6));
    EXPECT_NEAR(six->level, 1.034, lastDigit(3));
    EXPECT_NEAR(six->control, 0.179, lastDigit(3));
}

TEST(CoaleAndTrussell, ByMeansOfPublishedRates)
{
    const auto of = [](std::size_t i) { return *coaleTrussellByMeans(populations()[i].byYear(6)); };
    EXPECT_NEAR(of(0).level, 1.196, lastDigit(3));
    EXPECT_NEAR(of(0).control, 0.013, lastDigit(3));
    EXPECT_NEAR(of(1).level, 1.107, lastDigit(3));
    EXPECT_NEAR(of(1).control, -0.145, lastDigit(3));
    EXPECT_NEAR(of(3).level, 1.141, lastDigit(3));
    EXPECT_NEAR(of(3).control, 0.144, lastDigit(3));
}

// Worked out by another program, from the same rates: over 20–24 to 40–44 in each way.
TEST(CoaleAndTrussell, LeaveAnErrorInAllTheirWays)
{
    const auto byMeans = [](std::size_t i) { return *coaleTrussellByMeans(populations()[i].byYear(6))->squaredError; };
    EXPECT_NEAR(byMeans(0), 0.004482, 5e-7);
    EXPECT_NEAR(byMeans(1), 0.000099, 5e-7);
    EXPECT_NEAR(byMeans(10), 0.043649, 5e-7) << "Colyton, 1647-1719";
    EXPECT_NEAR(*coaleTrussellByPoisson(womenOfAParish())->squaredError, 0.000821, 5e-7);
    EXPECT_NEAR(*coaleTrussellByPoisson(firstOf(5))->squaredError, 0.000800, 5e-7);
    auto groups = womenOfAParish();
    groups[5].births = 0;
    EXPECT_TRUE(coaleTrussellByPoisson(groups)->squaredError);
    groups[4].births = 0;
    EXPECT_FALSE(coaleTrussellByPoisson(groups)->squaredError);
    EXPECT_FALSE(coaleTrussellByPoisson(firstOf(4))->squaredError);
}

TEST(CoaleAndTrussell, ByPoissonOfAParish)
{
    const auto six = coaleTrussellByPoisson(womenOfAParish());
    ASSERT_TRUE(six);
    EXPECT_NEAR(six->level, 1.015, lastDigit(3));
    EXPECT_NEAR(six->control, 0.110, lastDigit(3));
    EXPECT_NEAR(*six->levelLogError, 0.148, lastDigit(3));
    EXPECT_NEAR(*six->controlError, 0.190, lastDigit(3));
    const auto five = coaleTrussellByPoisson(firstOf(5));
    EXPECT_NEAR(five->level, 1.011, lastDigit(3));
    EXPECT_NEAR(five->control, 0.101, lastDigit(3));
}

TEST(CoaleAndTrussell, ByPoissonFindsWhatTheBirthsWereMadeOf)
{
    const std::vector<double> natural{0.460, 0.431, 0.395, 0.322, 0.167, 0.024};
    const std::vector<double> deviation{0.000, -0.279, -0.667, -1.042, -1.414, -1.671};
    for (const double control : {-2.0, -0.5, 0.0, 0.8, 3.0, 6.0}) {
        std::vector<Borne> groups;
        for (std::size_t i = 0; i < 6; ++i)
            groups.push_back({700 * natural[i] * 0.9 * std::exp(control * deviation[i]), 700});
        const auto model = coaleTrussellByPoisson(groups);
        ASSERT_TRUE(model) << control;
        EXPECT_NEAR(model->level, 0.9, 1e-8) << control;
        EXPECT_NEAR(model->control, control, 1e-8) << control;
    }
}

TEST(CoaleAndTrussell, ByPoissonSettlesForThousandsOfParishes)
{
    const auto one = coaleTrussellByPoisson(womenOfAParish());
    for (const double parishes : {1e3, 1e5, 1e7}) {
        auto groups = womenOfAParish();
        for (Borne& group : groups)
            group = {group.births * parishes, group.years * parishes};
        const auto all = coaleTrussellByPoisson(groups);
        ASSERT_TRUE(all) << parishes;
        EXPECT_NEAR(all->control, one->control, 1e-9) << parishes;
        EXPECT_NEAR(*all->controlError, *one->controlError / std::sqrt(parishes), 1e-9) << parishes;
    }
}

TEST(CoaleAndTrussell, ByPoissonTakesGroupsWithoutBirthsAndLeavesOutThoseWithoutYears)
{
    auto groups = womenOfAParish();
    groups[5].births = 0;
    EXPECT_TRUE(coaleTrussellByPoisson(groups));
    groups[5] = {};
    EXPECT_NEAR(coaleTrussellByPoisson(groups)->control, coaleTrussellByPoisson(firstOf(5))->control, 1e-12);
}

TEST(CoaleAndTrussell, ByPoissonGivesNothingThatCannotSettle)
{
    EXPECT_FALSE(coaleTrussellByPoisson({}));
    EXPECT_FALSE(coaleTrussellByPoisson({{0, 50}, {0, 50}}));
    EXPECT_FALSE(coaleTrussellByPoisson({{9, 50}}));
    EXPECT_FALSE(coaleTrussellByPoisson({{0, 0}, {9, 50}, {0, 0}}));
    EXPECT_FALSE(coaleTrussellByPoisson({{9, 50}, {0, 50}, {0, 50}, {0, 50}, {0, 50}, {0, 50}}));
    EXPECT_FALSE(coaleTrussellByPoisson({{0, 50}, {0, 50}, {0, 50}, {0, 50}, {0, 50}, {9, 50}}));
}

TEST(CoaleAndTrussell, OfRatesNeedThemAll)
{
    EXPECT_FALSE(coaleTrussellBySquares({}));
    EXPECT_FALSE(coaleTrussellBySquares({0.4}));
    EXPECT_FALSE(coaleTrussellBySquares({0.4, 0, 0.3, 0.2, 0.1}));
    EXPECT_FALSE(coaleTrussellByMeans({0.4, 0.4, 0.3, 0.2}));
    EXPECT_FALSE(coaleTrussellByMeans({0.4, 0.4, 0.3, 0.2, 0}));
    EXPECT_TRUE(coaleTrussellByMeans({0.4, 0.4, 0.3, 0.2, 0.1, 0}));
}

TEST(CoalesIndex, OfAParishAndOfMarriedWomen)
{
    const std::array<Borne, 7> families{
        {{4, 10}, {17, 38.5}, {40, 92}, {45, 120.25}, {34, 115.5}, {14, 98}, {1, 60.75}}};
    EXPECT_NEAR(*coaleIndex(families), 155 / 196.4655, 5e-7);
    EXPECT_NEAR(*coaleIndex(families), 0.789, lastDigit(3));
    const std::array<Borne, 7> counted{{{210, 40}, {0, 120}, {0, 180}, {0, 170}, {0, 160}, {0, 140}, {0, 110}}};
    EXPECT_NEAR(*coaleIndex(counted), 210 / 347.10, 5e-7);
    EXPECT_NEAR(*coaleIndex(counted), 0.605, lastDigit(3));
    EXPECT_FALSE(coaleIndex({}));
}
