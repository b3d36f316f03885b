#include "kit/result.h"
#include "kit/table.h"

#include <gtest/gtest.h>

using namespace bench;

namespace {

AtSize taking(double ours, double bare, double bareProcessor = -1)
{
    AtSize at;
    at.ours.painted = {ours, ours};
    at.bare.painted = {bare, bareProcessor < 0 ? bare : bareProcessor};
    return at;
}

QString told(const Goal& goal, const Results& results)
{
    return missed(goal, results).join("; ");
}

} // namespace

TEST(Result, ARatioUpToTheGoalIsOk)
{
    const Goal goal{.ratio = 1.5};
    EXPECT_EQ(told(goal, {{1000, taking(1.5, 1)}}), "");
    EXPECT_EQ(told(goal, {{1000, taking(1.6, 1)}}), "1.6 × at 1000 people");
}

TEST(Result, GrowthIsMissedByTheExponentOfAllSizes)
{
    const Goal goal{};
    EXPECT_EQ(told(goal, {{1000, taking(1, 1)}, {100'000, taking(1.2, 1)}, {1'000'000, taking(1.4, 1)}}), "");
    EXPECT_EQ(told(goal, {{1000, taking(1, 1)}, {100'000, taking(10, 1)}}), "exponent 0.5");
    EXPECT_EQ(told({.flat = false}, {{1000, taking(1, 1)}, {100'000, taking(10, 1)}}), "");
}

TEST(Result, WhatIsToBeFlatTakesNoMoreThanATenthOfASecond)
{
    EXPECT_EQ(told({}, {{1000, taking(101, 100)}}), "101 ms at 1000 people");
    EXPECT_EQ(told({.most = 1000}, {{1000, taking(101, 100)}}), "");
}

TEST(Result, AGoalInMillisecondsHoldsForItsSize)
{
    const Goal goal{.ms = {{1'000'000, 3}}};
    EXPECT_EQ(told(goal, {{1000, taking(4, 4)}}), "");
    EXPECT_EQ(told(goal, {{1'000'000, taking(4, 4)}}), "4 ms at 1000000 people, more than 3");
    EXPECT_EQ(told({.ms = {{0, 3}}}, {{1000, taking(4, 4)}}), "4 ms at 1000 people, more than 3");
}

TEST(Result, TheBareSidesWaitForTheDiskIsNotOurTime)
{
    AtSize at = taking(30, 25, 1); // of which 24 are the disk's
    at.ours.painted.cpu = 2;
    EXPECT_EQ(ownTime(at), 30) << "nothing is written: it isn't the disk that the bare side waits for";
    at.bare.traffic.changes = 1;
    EXPECT_EQ(ownTime(at), 6);
    at.ours.painted.cpu = 7;
    EXPECT_EQ(ownTime(at), 7) << "the processor's time is ours in any case";
}

TEST(Result, ABareSideThatDoesMoreFlattersAndIsTold)
{
    AtSize at = taking(1, 1);
    at.ours.traffic = {.statements = 9, .rows = 5, .changes = 2, .painted = 100};
    at.bare.traffic = {.statements = 20, .rows = 5, .changes = 2, .painted = 105};
    EXPECT_EQ(told({}, {{1000, at}}), "") << "statements alone cost nothing that isn't in the time";
    at.bare.traffic = {.rows = 6, .changes = 3, .painted = 106};
    EXPECT_EQ(told({}, {{1000, at}}), "the bare side reads more at 1000 people: 6 for 5; the bare side writes more at "
                                      "1000 people: 3 for 2; the bare side paints more at 1000 people: 106 for 105");
}

TEST(Result, TurnsThatGetSlowerOrKeepMemoryAreMissed)
{
    AtSize at = taking(1, 1);
    at.drift = 1.5;
    at.keptKb = 10;
    EXPECT_EQ(told({.drift = 1.2, .keptKb = 0.1}, {{1000, at}}),
              "the last turns take 1.5 × the first at 1000 people; 10 kB kept a turn at 1000 people");
    EXPECT_EQ(told({}, {{1000, at}}), "");
}

TEST(Table, ARowHasAFigureForEachSizeAndTheVerdict)
{
    const Results results{{1000, taking(2, 1)}, {1'000'000, taking(2, 1)}};
    EXPECT_EQ(row("next person", {.ratio = 2}, results),
              "| next person | 2.00 / 2.00 | 1.00 / 1.00 | 2.00 / 2.00 | 0.0000 / 0.0000 | 2.00 / 2.00 | 2.00 / 2.00 | "
              "0.00 | 2 ×, flat | ok |\n");
    EXPECT_TRUE(
        row("next person", {.ratio = 1}, results).endsWith("missed: 2 × at 1000 people; 2 × at 1000000 people |\n"));
    EXPECT_EQ(heading().section('\n', 0, 0).count('|'), heading().section('\n', 1, 1).count('|'));
}
