// Counts that add.
#include "study/statistics/tally.h"

#include <gtest/gtest.h>

using namespace study::statistics;

TEST(ATally, AddsUpInAnyOrder)
{
    Tally one, other;
    one.add({1, {1750, 2}}, 3);
    other.add({1, {1750, 2}}, 4);
    other.add({1, {1800, 2}}, 1);
    Tally sum = one, same = other;
    sum += other;
    same += one;
    EXPECT_EQ(sum, same);
    EXPECT_EQ((sum[{1, {1750, 2}}]), 7);
    EXPECT_EQ((sum[{1, {1900, 2}}]), 0);
}

TEST(ATally, KeepsNoCellThatHoldsNothing)
{
    Tally tally;
    tally.add({1, {1}}, 3);
    tally.add({1, {1}}, -3);
    tally.add({2, {1}}, 0);
    EXPECT_TRUE(tally.isEmpty());
    EXPECT_EQ(tally, Tally());
}

TEST(ATally, SumsAndListsByItsDimensions)
{
    Tally tally;
    tally.add({1, {1750, 1}}, 2);
    tally.add({1, {1750, 2}}, 3);
    tally.add({1, {1700, 1}}, 4);
    tally.add({2, {1650, 1}}, 8);
    EXPECT_EQ(tally.sum(1), 9);
    EXPECT_EQ(tally.sum(1, {Tally::any, 1, Tally::any, Tally::any}), 6);
    EXPECT_EQ(tally.valuesOf(1, 0), (std::vector<qint32>{1700, 1750}));
}

TEST(ATally, TellsWhatStandsAlongADimension)
{
    Tally tally;
    tally.add({1, {1750, 1}}, 2);
    tally.add({1, {1750, 2}}, 3);
    tally.add({1, {1700, 1}}, 4);
    tally.add({1, {1800, 1}}, 5);
    tally.add({1, {1800, 2}}, -5);
    tally.add({2, {1650, 1}}, 8);
    EXPECT_EQ(tally.along(1, 0), (std::map<qint32, qint64>{{1700, 4}, {1750, 5}}));
    EXPECT_EQ(tally.along(1, 0, {1700, 1, 0, 0}), (std::map<qint32, qint64>{{1700, 4}, {1750, 2}, {1800, 5}}));
}
