// Survival with leavers, and life tables.
#include "study/statistics/survival.h"
#include "study/statistics_near.h"

#include <cmath>
#include <gtest/gtest.h>
#include <utility>

using namespace study::statistics;

namespace {

using Times = std::vector<qint32>;

std::map<qint32, Exits> exitsOf(const Times& events, const Times& leavings)
{
    std::map<qint32, Exits> exits;
    for (const qint32 time : events)
        ++exits[time].events;
    for (const qint32 time : leavings)
        ++exits[time].left;
    return exits;
}

std::vector<std::pair<qint64, qint64>> risksOf(const std::vector<Step>& steps)
{
    std::vector<std::pair<qint64, qint64>> risks;
    risks.reserve(steps.size());
    for (const Step& step : steps)
        risks.emplace_back(step.atRisk, step.events);
    return risks;
}

void expectSurvivals(const std::vector<Step>& steps, const std::vector<double>& told, int decimals)
{
    ASSERT_EQ(steps.size(), told.size());
    for (std::size_t i = 0; i < told.size(); ++i)
        EXPECT_NEAR(steps[i].survival, told[i], lastDigit(decimals)) << i;
}

// From 20–24 to 75–79 and 80+, of the married.
std::vector<Exposed> adults()
{
    return {{410, 4}, {380.5, 4}, {352, 4},  {330, 4}, {310.5, 4}, {290, 5}, {262, 6},
            {228, 7}, {186, 9},   {138, 10}, {86, 10}, {47, 8},    {20, 6}};
}

} // namespace

TEST(Survival, OfInfantsWhoseFamiliesLeave)
{
    const auto steps = kaplanMeier(exitsOf({0, 3, 12, 40, 90, 200}, {25, 120, 300, 365, 365, 365}), 12);
    EXPECT_EQ(risksOf(steps),
              (std::vector<std::pair<qint64, qint64>>{{12, 1}, {11, 1}, {10, 1}, {8, 1}, {7, 1}, {5, 1}}));
    expectSurvivals(steps, {0.91667, 0.83333, 0.75000, 0.65625, 0.56250, 0.45000}, 5);
    EXPECT_NEAR(1000 * (1 - survivalAt(steps, 364)), 550, 1e-9);
}

TEST(Survival, OfWidowsWhoRemarry)
{
    const auto steps = kaplanMeier(exitsOf({4, 7, 9, 14, 26, 75}, {20, 40, 60, 120, 130, 200}), 12);
    expectSurvivals(steps, {0.9167, 0.8333, 0.7500, 0.6667, 0.5714, 0.4286}, 4);
    EXPECT_EQ(steps[4].atRisk, 7);
    EXPECT_EQ(steps[5].atRisk, 4);
    EXPECT_NEAR(100 * (1 - survivalAt(steps, 24)), 33.3, lastDigit(1));
    EXPECT_NEAR(100 * (1 - survivalAt(steps, 1000)), 57.1, lastDigit(1));
}

TEST(Survival, TakesEventsBeforeLeavingsOfTheSameTime)
{
    const auto steps = kaplanMeier(exitsOf({10}, {10}), 2);
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(steps[0].atRisk, 2);
    EXPECT_DOUBLE_EQ(steps[0].survival, 0.5);
}

TEST(Survival, CountsWhoEntersLaterBehindThatTime)
{
    std::map<qint32, Exits> exits;
    exits[10] = {.events = 1, .entered = 3};
    exits[20] = {.events = 1, .left = 1};
    const auto steps = kaplanMeier(exits, 2);
    EXPECT_EQ(risksOf(steps), (std::vector<std::pair<qint64, qint64>>{{2, 1}, {4, 1}}));
    EXPECT_DOUBLE_EQ(steps[1].survival, 0.5 * 0.75);
    std::map<qint32, Exits> allLater;
    allLater[20] = {.entered = 4};
    allLater[30] = {.events = 1};
    EXPECT_EQ(risksOf(kaplanMeier(allLater, 0)), (std::vector<std::pair<qint64, qint64>>{{4, 1}}));
}

TEST(Survival, HasTheIntervalOfGreenwoodOnTheLogLogScale)
{
    const auto steps = kaplanMeier(exitsOf({1}, {2, 2, 2, 2, 2, 2, 2, 2, 2}), 10);
    ASSERT_TRUE(steps[0].interval);
    const double error = std::sqrt(1.0 / (10 * 9)) / std::abs(std::log(0.9));
    EXPECT_NEAR(steps[0].interval->low, std::pow(0.9, std::exp(1.959964 * error)), 1e-7);
    EXPECT_NEAR(steps[0].interval->high, std::pow(0.9, std::exp(-1.959964 * error)), 1e-7);
    EXPECT_EQ(survivalIntervalAt(steps, 1), steps[0].interval);
    EXPECT_EQ(survivalIntervalAt(steps, 99), steps[0].interval);
    EXPECT_FALSE(survivalIntervalAt(steps, 0));
}

TEST(Survival, AddsUpItsSpreadOverTheSteps)
{
    const auto steps = kaplanMeier(exitsOf({0, 3, 12, 40, 90, 200}, {25, 120, 300, 365, 365, 365}), 12);
    double spread = 0;
    for (const double atRisk : {12.0, 11.0, 10.0, 8.0, 7.0, 5.0})
        spread += 1 / (atRisk * (atRisk - 1));
    const double factor = std::exp(1.959964 * std::sqrt(spread) / std::abs(std::log(0.45)));
    EXPECT_NEAR(steps.back().interval->low, std::pow(0.45, factor), 1e-7);
    EXPECT_NEAR(steps.back().interval->high, std::pow(0.45, 1 / factor), 1e-7);
}

// Who is alive at a time begins anew there: the interval is that of those alone.
TEST(Survival, HasAnIntervalBetweenTwoTimes)
{
    const auto all = kaplanMeier(exitsOf({1, 2, 12, 14}, {13, 20, 20, 20, 20, 20}), 10);
    const auto later = kaplanMeier(exitsOf({12, 14}, {13, 20, 20, 20, 20, 20}), 8);
    const auto between = survivalIntervalBetween(all, 2, 15);
    ASSERT_TRUE(between);
    EXPECT_NEAR(between->low, later.back().interval->low, 1e-12);
    EXPECT_NEAR(between->high, later.back().interval->high, 1e-12);
    EXPECT_EQ(survivalIntervalBetween(all, 0, 15), all.back().interval);
    EXPECT_FALSE(survivalIntervalBetween(all, 2, 11)) << "nobody dies";
    EXPECT_FALSE(survivalIntervalBetween(all, 14, 99));
}

TEST(Survival, OfNobodyIsWholeAndWithoutSteps)
{
    EXPECT_TRUE(kaplanMeier({}, 0).empty());
    EXPECT_TRUE(kaplanMeier(exitsOf({}, {5, 6}), 2).empty());
    EXPECT_EQ(survivalAt({}, 100), 1);
    EXPECT_FALSE(survivalIntervalAt({}, 100));
}

TEST(Survival, OfWhoAllDieEndsWithoutAnInterval)
{
    const auto steps = kaplanMeier(exitsOf({1, 2}, {}), 2);
    EXPECT_EQ(steps.back().survival, 0);
    EXPECT_FALSE(steps.back().interval);
    EXPECT_TRUE(steps.front().interval);
}

TEST(Survival, IsNeverBelowNothing)
{
    // More events than people at risk: who came and went at the same time is at risk only behind it.
    std::map<qint32, Exits> exits;
    exits[5] = {.events = 2, .entered = 2};
    const auto steps = kaplanMeier(exits, 1);
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(steps[0].survival, 0);
    EXPECT_TRUE(kaplanMeier(exits, 0).empty());
}

TEST(AnActuarialQuotient, OfChildrenToFifteen)
{
    struct Age
    {
        double atRisk, deaths, left, quotient, survivors;
    };
    double survivors = 1;
    for (const Age& age : {Age{200, 36, 8, 0.18367, 0.81633}, Age{156, 24, 20, 0.16438, 0.68214},
                           Age{112, 6, 14, 0.05714, 0.64316}, Age{92, 3, 10, 0.03448, 0.62098}})
    {
        const auto quotient = actuarialQuotient(age.atRisk, age.deaths, age.left);
        ASSERT_TRUE(quotient);
        EXPECT_NEAR(*quotient, age.quotient, lastDigit(5));
        survivors *= 1 - *quotient;
        EXPECT_NEAR(survivors, age.survivors, lastDigit(5));
    }
    EXPECT_NEAR(1000 * (1 - survivors), 379, lastDigit(0));
}

TEST(AnActuarialQuotient, NeedsSomebodyAtRisk)
{
    EXPECT_FALSE(actuarialQuotient(0, 0, 0));
    EXPECT_FALSE(actuarialQuotient(1, 0, 2));
    EXPECT_EQ(actuarialQuotient(5, 0, 5), 0);
    EXPECT_EQ(actuarialQuotient(5, 5, 0), 1);
}

TEST(ALifeTable, OfAdultsFromMarriage)
{
    const auto rows = lifeTable(20, adults());
    ASSERT_EQ(rows.size(), 13U);
    const auto at = [&rows](int age) { return rows[static_cast<std::size_t>((age - 20) / 5)]; };
    EXPECT_EQ(at(80).age, 80);
    EXPECT_NEAR(at(20).quotient, 0.04762, lastDigit(5));
    EXPECT_NEAR(at(45).quotient, 0.08264, lastDigit(5));
    EXPECT_NEAR(at(60).quotient, 0.21583, lastDigit(5));
    EXPECT_NEAR(at(75).quotient, 0.59701, lastDigit(5));
    EXPECT_EQ(at(80).quotient, 1);
    EXPECT_NEAR(at(25).survivors, 0.95238, lastDigit(5));
    EXPECT_NEAR(at(50).survivors, 0.69107, lastDigit(5));
    EXPECT_NEAR(at(60).survivors, 0.52837, lastDigit(5));
    EXPECT_NEAR(at(80).survivors, 0.06361, lastDigit(5));
    EXPECT_NEAR(at(20).expectation, 37.68, lastDigit(2));
    EXPECT_NEAR(at(25).expectation, 34.44, lastDigit(2));
    EXPECT_NEAR(at(50).expectation, 17.54, lastDigit(2));
    EXPECT_NEAR(at(60).expectation, 11.34, lastDigit(2));
    EXPECT_NEAR(at(80).expectation, 3.33, lastDigit(2));
}

TEST(ALifeTable, NeedsExposureEverywhereAndADeathAtTheEnd)
{
    auto groups = adults();
    groups.back().deaths = 0;
    EXPECT_TRUE(lifeTable(20, groups).empty());
    groups = adults();
    groups[3].years = 0;
    EXPECT_TRUE(lifeTable(20, groups).empty());
    EXPECT_TRUE(lifeTable(20, {}).empty());
}

TEST(ALifeTable, OfWhoAllDieEarlyHasNoExpectationBehind)
{
    const auto rows = lifeTable(20, {{1, 3}, {4, 1}});
    EXPECT_EQ(rows[0].quotient, 1);
    EXPECT_EQ(rows[1].survivors, 0);
    EXPECT_EQ(rows[1].expectation, 0);
    EXPECT_DOUBLE_EQ(rows[0].expectation, 2.5);
}
