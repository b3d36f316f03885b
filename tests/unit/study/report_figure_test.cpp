// Cells of tables: small numbers, digits, and what is empty.
#include "study/report/figure.h"
#include "study/statistics_near.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace study::report;
using study::statistics::Distribution;
using study::statistics::Key;

namespace {

const Column perThousand{.title = "Taxa", .unit = "‰", .decimals = 1};
const std::vector<Key> someKeys{{1, {1750, 2}}};

double valueOf(const Cell& cell)
{
    return std::get<double>(cell.value);
}

Distribution ages(qint64 n)
{
    return Distribution({{2400, n / 2}, {2600, n - n / 2}});
}

} // namespace

TEST(ACell, OfARateHasItsIntervalAndItsKeys)
{
    const Cell cell = rate(14, 98, 1000, someKeys);
    EXPECT_NEAR(valueOf(cell), 142.9, lastDigit(1));
    ASSERT_TRUE(cell.interval);
    EXPECT_NEAR(cell.interval->low, 78.1, lastDigit(1));
    EXPECT_NEAR(cell.interval->high, 239.7, lastDigit(1));
    EXPECT_EQ(cell.from, someKeys);
    EXPECT_EQ(cell.standing, Standing::Sound);
}

TEST(ACell, OfARateNeedsFiveEventsAndTwentyYears)
{
    EXPECT_EQ(rate(5, 20, 1000, {}).standing, Standing::Sound);
    EXPECT_EQ(rate(4, 20, 1000, {}).standing, Standing::Suppressed);
    EXPECT_EQ(rate(5, 19.99, 1000, {}).standing, Standing::Suppressed);
    const Cell few = rate(4, 200, 1000, someKeys);
    EXPECT_EQ(shown(few, perThousand), "*");
    EXPECT_EQ(plain(few, perThousand), "");
    EXPECT_FALSE(few.interval);
    EXPECT_EQ(few.from, someKeys);
}

TEST(ACell, OfARateWithoutExposureIsEmpty)
{
    const Cell cell = rate(3, 0, 1000, someKeys);
    EXPECT_EQ(shown(cell, perThousand), "–");
    EXPECT_EQ(plain(cell, perThousand), "");
    EXPECT_EQ(cell.from, someKeys);
    EXPECT_EQ(rate(-1, 30, 1000, {}), Cell());
    EXPECT_EQ(rate(3, std::nan(""), 1000, {}), Cell());
}

TEST(ACell, OfAShareNeedsABaseOfTwenty)
{
    const Cell cell = share(12, 80, 100, someKeys);
    EXPECT_DOUBLE_EQ(valueOf(cell), 15);
    EXPECT_NEAR(cell.interval->low, 8.8, lastDigit(1));
    EXPECT_NEAR(cell.interval->high, 24.4, lastDigit(1));
    EXPECT_EQ(cell.from, someKeys);
    EXPECT_EQ(share(0, 20, 100, {}).standing, Standing::Sound);
    EXPECT_EQ(share(10, 19, 100, {}).standing, Standing::Suppressed);
    EXPECT_EQ(share(0, 0, 100, {}), Cell());
    EXPECT_EQ(share(21, 20, 100, {}), Cell());
}

TEST(ACell, OfAShareByThousandTellsTwinsAndMothersWhoDied)
{
    EXPECT_EQ(shown(share(14, 1200, 1000, {}), perThousand), "11,7");
    EXPECT_EQ(shown(share(9, 1150, 1000, {}), perThousand), "7,8");
}

TEST(ACell, OfAMeanIsGreyUnderTenAndSuppressedUnderFive)
{
    EXPECT_EQ(mean(ages(10), 100, {}).standing, Standing::Sound);
    EXPECT_EQ(mean(ages(9), 100, {}).standing, Standing::Grey);
    EXPECT_EQ(mean(ages(5), 100, {}).standing, Standing::Grey);
    EXPECT_EQ(mean(ages(4), 100, {}).standing, Standing::Suppressed);
    EXPECT_EQ(median(ages(4), 100, {}).standing, Standing::Suppressed);
    EXPECT_EQ(mean(Distribution(), 100, {}), Cell());
    EXPECT_EQ(median(Distribution(), 100, {}), Cell());
}

TEST(ACell, OfAMeanIsInTheUnitOfItsColumn)
{
    const Cell years = mean(ages(10), 100, someKeys);
    EXPECT_DOUBLE_EQ(valueOf(years), 25);
    EXPECT_NEAR(years.interval->high - 25, 2.262157 * std::sqrt(10.0 / 9) / std::sqrt(10), 1e-5);
    EXPECT_EQ(years.from, someKeys);
    const Cell middle = median(ages(10), 100, someKeys);
    EXPECT_DOUBLE_EQ(valueOf(middle), 25);
    EXPECT_EQ(middle.interval, (study::statistics::Interval{24, 26}));
}

TEST(ACell, IsShownWithACommaAndFiledWithAPoint)
{
    const Column years{.title = "Idade", .unit = "anos", .decimals = 2};
    EXPECT_EQ(shown(number(26.315), years), "26,32");
    EXPECT_EQ(plain(number(26.315), years), "26.32");
    EXPECT_EQ(shown(number(1234567), Column{}), "1234567");
    EXPECT_EQ(shown(number(qint64(88)), Column{}), "88");
    EXPECT_EQ(shown(number(-0.004), years), "0,00");
    EXPECT_EQ(shown(number(-0.126), years), "-0,13");
}

TEST(ACell, WithATextShowsItAsItIs)
{
    const Column names{.title = "Grupo", .isText = true};
    EXPECT_EQ(shown(text("20–24, 1.ª vez"), names), "20–24, 1.ª vez");
    EXPECT_EQ(plain(text("20–24, 1.ª vez"), names), "20–24, 1.ª vez");
    EXPECT_EQ(shown(text(""), names), "");
}

TEST(ACell, IsEmptyWhereItsValueIsNoNumber)
{
    for (const double none : {std::nan(""), std::numeric_limits<double>::infinity(), -HUGE_VAL}) {
        EXPECT_EQ(number(none), Cell());
        const Cell made{.value = none};
        EXPECT_EQ(shown(made, perThousand), "–");
        EXPECT_EQ(plain(made, perThousand), "");
    }
}

TEST(ACell, ByThousandHasNoDecimalsOnABaseBelowAHundred)
{
    EXPECT_EQ(shown(rate(17, 38.5, 1000, {}), perThousand), "442");
    EXPECT_EQ(shown(rate(45, 120.25, 1000, {}), perThousand), "374,2");
    EXPECT_EQ(shown(share(9, 99, 1000, {}), perThousand), "91");
    EXPECT_EQ(shown(share(9, 100, 1000, {}), perThousand), "90,0");
    EXPECT_EQ(shown(share(9, 99, 100, {}), perThousand), "9,1");
    EXPECT_EQ(shown(rate(17, 38.5, 1, {}), Column{.decimals = 3}), "0,442");
}

TEST(AChart, IsEmptyWhereNoPointHasAHeight)
{
    Chart chart{.id = "serie", .title = "Série"};
    EXPECT_TRUE(chart.isEmpty());
    chart.plots = {Plot{.name = "Baptismos", .points = {{.x = 1750}, {.x = 1751}}}, Plot{.name = "Óbitos"}};
    EXPECT_TRUE(chart.isEmpty());
    chart.plots[1].points = {{.x = 1750, .y = 0}};
    EXPECT_FALSE(chart.isEmpty());
}

TEST(ATableOfFigures, IsEmptyWithoutRows)
{
    Table table{.id = "taxas", .columns = {Column{.title = "Idade", .isText = true}}};
    EXPECT_TRUE(table.isEmpty());
    table.rows = {{text("20–24")}};
    EXPECT_FALSE(table.isEmpty());
}
