// The numbers of a chart as a table.
#include "study/report/chartTable.h"
#include "study/report/sheet.h"

#include <gtest/gtest.h>

using namespace study::report;

namespace {

TEST(TheTableOfAChart, HasARowForEachXAndAColumnForEachSeries)
{
    Chart chart;
    chart.title = "Viúvos e viúvas";
    chart.xTitle = "anos";
    chart.yTitle = "por casar (%)";
    chart.plots = {{"Viúvos", {{0, 100.0}, {1.5, 60.25}, {3, {}}}}, {"Viúvas", {{0, 100.0}, {2, 80.0}}}};
    const Table table = tableOf(chart);
    EXPECT_EQ(table.title, chart.title);
    EXPECT_EQ(tabSeparated(table),
              "anos\tViúvos: por casar (%)\tViúvas: por casar (%)\n0,00\t100,00\t100\n1,50\t60,25\t\n"
              "2,00\t\t80\n3,00\t\t\n");
}

TEST(TheTableOfAChart, NamesTheRowsByTheCategoriesAndTakesTheIntervalsAlong)
{
    Chart chart;
    chart.xTitle = "Coorte";
    chart.yTitle = "idade (anos)";
    chart.categories = QStringList{"1700–1749", "1750–1799"};
    chart.plots = {{{}, {{0, 24.0, study::statistics::Interval{23.5, 24.5}}, {1, 25.0}}}};
    const Table table = tableOf(chart);
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(shown(table.rows[0][0], table.columns[0]), "1700–1749");
    EXPECT_EQ(table.columns[1].title, "idade (anos)");
    ASSERT_TRUE(table.rows[0][1].interval);
    EXPECT_EQ(table.rows[0][1].interval->low, 23.5);
    EXPECT_FALSE(table.rows[1][1].interval);
}

TEST(TheTableOfAChart, KeepsBothPointsOfAStepAndIsEmptyOfAnEmptyChart)
{
    Chart chart;
    chart.plots = {{"a", {{1, 5.0}, {1, 4.0}}}, {"b", {{1, 7.0}}}};
    const Table table = tableOf(chart);
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(shown(table.rows[1][1], table.columns[1]), "4");
    EXPECT_EQ(shown(table.rows[1][2], table.columns[2]), "–");
    chart.plots = {{"a", {{1, {}}}}};
    EXPECT_TRUE(tableOf(chart).isEmpty());
}

} // namespace
