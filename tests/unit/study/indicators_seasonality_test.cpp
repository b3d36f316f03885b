// Events by the month, as the subjects share them.
#include "study/indicators/seasonality.h"

#include <gtest/gtest.h>

namespace study::indicators {

using study::parish::Date;
using study::parish::dateOf;
using study::report::Chart;
using study::report::Standing;

namespace {

constexpr std::array<qint64, 12> marriages = {24, 40, 6, 12, 18, 14, 10, 9, 16, 22, 38, 5};
constexpr quint16 byMonth = 3;

Tally tallyOfMonths(qint64 times = 1)
{
    Tally tally;
    for (std::size_t i = 0; i < marriages.size(); ++i)
        tally.add({byMonth, {1750, static_cast<qint32>(i) + 1}}, marriages[i] * times);
    return tally;
}

const ByMonth shownByMonth{"casamentos", "Casamentos por mês", "casamentos", byMonth, 1, {{}}};

double valueOf(const Cell& cell)
{
    return std::get<double>(cell.value);
}

} // namespace

TEST(Seasonality, OfTheWorkedExampleHasBothPublishedForms)
{
    const auto figures = monthFigures(Reading(tallyOfMonths()), shownByMonth);
    ASSERT_EQ(figures.size(), 2U);
    const auto& table = std::get<Table>(figures[0]);
    const std::array<double, 12> daily = {132.1, 241.7, 33.0, 68.3, 99.1, 79.6, 55.1, 49.6, 91.0, 121.1, 216.2, 27.5};
    const std::array<double, 12> henry = {130.6, 238.8, 32.6, 67.5, 97.9, 78.7, 54.4, 49.0, 90.0, 119.7, 213.6, 27.2};
    ASSERT_EQ(table.rows.size(), 13U);
    for (std::size_t i = 0; i < daily.size(); ++i) {
        EXPECT_EQ(valueOf(table.rows[i][1]), static_cast<double>(marriages[i]));
        EXPECT_NEAR(valueOf(table.rows[i][2]), daily[i], 0.05) << i;
        EXPECT_NEAR(valueOf(table.rows[i][3]), henry[i], 0.05) << i;
        EXPECT_EQ(
            table.rows[i][2].from,
            (std::vector<Key>{{byMonth, {Reading::any, static_cast<qint32>(i) + 1, Reading::any, Reading::any}}}));
    }
    EXPECT_EQ(valueOf(table.rows[12][1]), 214);
    ASSERT_EQ(table.notes.size(), 2);
    EXPECT_TRUE(table.notes[1].startsWith("Igualdade de todos os dias do ano: χ² = ")) << qPrintable(table.notes[1]);
    const auto& chart = std::get<Chart>(figures[1]);
    EXPECT_EQ(chart.described, "mais em Fevereiro (242), menos em Dezembro (28).");
    EXPECT_EQ(chart.categories.size(), 12);
}

TEST(Seasonality, OfTooFewEventsShowsCountsAlone)
{
    Tally tally;
    tally.add({byMonth, {1750, 2}}, leastBySeason - 1);
    const auto figures = monthFigures(Reading(tally), shownByMonth);
    ASSERT_EQ(figures.size(), 1U);
    const auto& table = std::get<Table>(figures[0]);
    EXPECT_EQ(table.rows[1][1].standing, Standing::Sound);
    EXPECT_EQ(table.rows[1][2].standing, Standing::Suppressed);
    EXPECT_EQ(table.rows[1][3].standing, Standing::Suppressed);
    EXPECT_EQ(table.notes.back(), "Menos de 100 casamentos: os índices não se mostram.");
}

TEST(Seasonality, OfNothingHasNoFigure)
{
    EXPECT_TRUE(monthFigures(Reading(Tally()), shownByMonth).empty());
    EXPECT_TRUE(quarterTable(Reading(Tally()), shownByMonth).isEmpty());
}

TEST(Seasonality, ShowsEachGroupThatHasEvents)
{
    Tally tally = tallyOfMonths();
    tally.add({byMonth, {1800, 5}}, 3);
    ByMonth shown = shownByMonth;
    constexpr qint32 any = Reading::any;
    shown.groups = {{"1700–1749", {1700, any, any, any}},
                    {"1750–1799", {1750, any, any, any}},
                    {"1800–1849", {1800, any, any, any}}};
    const auto figures = monthFigures(Reading(tally), shown);
    ASSERT_EQ(figures.size(), 3U);
    EXPECT_EQ(std::get<Table>(figures[0]).id, "casamentos-2");
    EXPECT_EQ(std::get<Table>(figures[1]).title, "Casamentos por mês: 1800–1849");
    EXPECT_EQ(std::get<Chart>(figures[2]).plots.size(), 1U);
}

TEST(Seasonality, NamesTheLineOfAllBesideThoseOfThePeriods)
{
    ByMonth shown = shownByMonth;
    shown.groups = {{}, {"1750–1799", {1750, Reading::any, Reading::any, Reading::any}}};
    const auto figures = monthFigures(Reading(tallyOfMonths()), shown);
    const auto& chart = std::get<Chart>(figures.back());
    ASSERT_EQ(chart.plots.size(), 2U);
    EXPECT_EQ(chart.plots[0].name, "Todos");
    EXPECT_EQ(chart.plots[1].name, "1750–1799");
    EXPECT_TRUE(chart.described.startsWith("Todos: mais em Fevereiro (242)")) << qPrintable(chart.described);
    EXPECT_EQ(std::get<Table>(figures[0]).title, "Casamentos por mês");
}

TEST(Seasonality, ByQuarterIsPerDay)
{
    Tally tally;
    for (int quarter = 1; quarter <= 4; ++quarter)
        tally.add({byMonth, {1750, quarter}}, 100);
    const Table table = quarterTable(Reading(tally), shownByMonth);
    ASSERT_EQ(table.rows.size(), 1U);
    EXPECT_NEAR(valueOf(table.rows[0][2]), 100 * 365.25 / 4 / 90.25, 1e-9);
    EXPECT_NEAR(valueOf(table.rows[0][5]), 100 * 365.25 / 4 / 92, 1e-9);
}

TEST(TheMonthOfAnEvent, IsToldByExactDatesAlone)
{
    EXPECT_EQ(monthOf(dateOf(QDate(1702, 2, 14), true)), 2);
    EXPECT_EQ(monthOf(dateOf(QDate(1702, 2, 14), false)), std::nullopt);
    EXPECT_EQ(monthOf(Date{}), std::nullopt);
    EXPECT_EQ(quarterOf(dateOf(QDate(1702, 3, 31), false)), 1);
    EXPECT_EQ(quarterOf(dateOf(QDate(1702, 4, 1), true)), 2);
    EXPECT_EQ(quarterOf(dateOf(QDate(1702, 12, 31), true)), 4);
    EXPECT_EQ(quarterOf(dateOf(QDate(1702, 1, 1), false)), std::nullopt);
    EXPECT_EQ(monthOfConception(10), 1);
    EXPECT_EQ(monthOfConception(9), 12);
    EXPECT_EQ(monthOfConception(1), 4);
}

TEST(TheDayOfTheWeek, IsThatOfTheCalendarOfItsTime)
{
    EXPECT_EQ(dayOfWeek(dateOf(QDate(1582, 10, 4), true)), 4);  // the last Thursday of the old calendar
    EXPECT_EQ(dayOfWeek(dateOf(QDate(1582, 10, 15), true)), 5); // the Friday behind it
    EXPECT_EQ(dayOfWeek(dateOf(QDate(1755, 11, 1), true)), 6);  // a Saturday
    EXPECT_EQ(dayOfWeek(dateOf(QDate(1755, 11, 1), false)), std::nullopt);
    EXPECT_EQ(dayOfWeekName(6), "sábado");
}

TEST(AReading, SumsWithTheKeysBehindIt)
{
    Tally tally;
    tally.add({1, {1700, 1, 2350}}, 2);
    tally.add({1, {1750, 2, 2400}}, 3);
    tally.add({2, {1750, 2, 2400}}, 8);
    const Reading reading(tally);
    EXPECT_EQ(reading.sum(1), 5);
    const Reading::Part part = reading.part(1, {1750, Reading::any, Reading::any, Reading::any});
    EXPECT_EQ(part.n, 3);
    EXPECT_EQ(part.keys, (std::vector<Key>{{1, {1750, Reading::any, Reading::any, Reading::any}}}));
    const Reading::Part inside = reading.within(1, 2, 2350, 2400);
    EXPECT_EQ(inside.n, 2);
    EXPECT_EQ(inside.keys, (std::vector<Key>{{1, {Reading::any, Reading::any, 2350, Reading::any}}}));
    EXPECT_EQ(reading.values(1, 2), (std::vector<qint32>{2350, 2400}));
    EXPECT_EQ(reading.spread(1, 2).values.n(), 5);
    EXPECT_EQ(reading.part(7).n, 0);
    EXPECT_TRUE(reading.part(7).keys.empty());
}

TEST(AReading, MarksMeansOfFew)
{
    Tally tally;
    tally.add({1, {2350}}, 4);
    EXPECT_EQ(meanCell(Reading(tally).spread(1, 0), 100).standing, Standing::Suppressed);
    tally.add({1, {2450}}, 5);
    EXPECT_EQ(meanCell(Reading(tally).spread(1, 0), 100).standing, Standing::Grey);
    tally.add({1, {2450}}, 1);
    const Cell mean = meanCell(Reading(tally).spread(1, 0), 100);
    EXPECT_EQ(mean.standing, Standing::Sound);
    EXPECT_NEAR(valueOf(mean), 24.1, 1e-9);
    EXPECT_EQ(meanCell(Reading(tally).spread(2, 0), 100), Cell());
    EXPECT_EQ(percent({}, {}), Cell());
}

} // namespace study::indicators
