// Time at risk, split at birthdays and at the limits of periods.
#include "study/days.h"

#include "study/indicators/exposure.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <map>

using namespace study;
using namespace study::indicators;

namespace {

std::vector<Slice> daysOf(const std::vector<std::pair<int, int>>& daysByAge)
{
    std::vector<Slice> slices;
    slices.reserve(daysByAge.size());
    for (const auto& [age, days] : daysByAge)
        slices.push_back({age, 0, qint64{2} * days});
    return slices;
}

} // namespace

TEST(Exposure, OfOneClosedFamilyIsAsByHand)
{
    const Episode union_{day(1720, 3, 12), day(1741, 6, 10), day(1755, 10, 2)};
    EXPECT_EQ(split(union_, fertileAges()), daysOf({{20, 1371}, {25, 1826}, {30, 1826}, {35, 204}}));
    EXPECT_NEAR(yearsOf(2 * 5227LL), 14.3107, 0.00005);
    for (const auto& [birth, group] : {std::pair(day(1742, 5, 3), 20),
                                       {day(1744, 9, 20), 20},
                                       {day(1747, 2, 11), 25},
                                       {day(1749, 7, 30), 25},
                                       {day(1753, 1, 15), 30}})
        EXPECT_EQ(ageGroup(union_.origin, birth, fertileAges()), group);
}

TEST(Exposure, OfAnOpenFamilyWouldBeThisToTheFiftiethBirthday)
{
    const Episode naive{day(1735, 7, 5), day(1760, 2, 3), day(1785, 7, 5)};
    EXPECT_EQ(split(naive, fertileAges()),
              daysOf({{20, 153}, {25, 1826}, {30, 1826}, {35, 1826}, {40, 1827}, {45, 1826}}));
    const Episode lastBirth{day(1735, 7, 5), day(1760, 2, 3), day(1765, 8, 2)};
    EXPECT_EQ(split(lastBirth, fertileAges()), daysOf({{20, 153}, {25, 1826}, {30, 28}}));
}

// Three wives who married at 25: to her 50th birthday, to a death at 22 years, and to one at 8 that isn't known here.
TEST(Exposure, OfThreeWivesIsOfTheEndsThatAreKnown)
{
    const parish::Date birth = day(1700, 1, 1);
    const auto yearsOfAll = [&](const std::vector<int>& lengths) {
        std::map<int, qint64> halfDays;
        for (const int years : lengths)
            for (const Slice& slice : split({birth, day(1725, 1, 1), day(1725 + years, 1, 1)}, fertileAges()))
                halfDays[slice.age] += slice.halfDays;
        QStringList told;
        for (const auto& group : halfDays)
            told << QString::number(yearsOf(group.second), 'f', 1);
        return told.join(' ');
    };
    EXPECT_EQ(yearsOfAll({25, 22, 8}), "15.0 13.0 10.0 10.0 7.0");
    EXPECT_EQ(yearsOfAll({25, 22, 25}), "15.0 15.0 15.0 15.0 12.0");
    EXPECT_EQ(yearsOfAll({25, 22}), "10.0 10.0 10.0 10.0 7.0");
}

// What nobody should do: the same three wives, each to her last birth. Six births at 30 to 39 then come of 16.9 years.
TEST(Exposure, OfThreeWivesWouldBeThisToTheirLastBirths)
{
    const parish::Date birth = day(1700, 1, 1), marriage = day(1725, 1, 1);
    std::map<int, qint64> halfDays;
    for (const double years : {14.2, 12.2, 5.5}) {
        const parish::Date last = parish::dateOf(marriage.date().addDays(qRound64(years * parish::daysOfAYear)), true);
        for (const Slice& slice : split({birth, marriage, last}, fertileAges()))
            halfDays[slice.age] += slice.halfDays;
    }
    QStringList told;
    for (const auto& group : halfDays)
        told << QString::number(yearsOf(group.second), 'f', 1);
    EXPECT_EQ(told.join(' '), "15.0 10.5 6.4");
}

TEST(Exposure, IsNothingOutsideOfAllGroups)
{
    EXPECT_TRUE(split({day(1720, 3, 12), day(1770, 3, 12), day(1780, 1, 1)}, fertileAges()).empty());
    EXPECT_TRUE(split({day(1720, 3, 12), day(1730, 3, 12), day(1735, 3, 12)}, fertileAges()).empty());
    EXPECT_EQ(ageGroup(14, fertileAges()), std::nullopt);
    EXPECT_EQ(ageGroup(15, fertileAges()), 15);
    EXPECT_EQ(ageGroup(49, fertileAges()), 45);
    EXPECT_EQ(ageGroup(50, fertileAges()), std::nullopt);
    EXPECT_EQ(fiveYearAges(20, 80).size(), 13U);
}

TEST(Exposure, OfAnEventOnTheDayOfEntryIsHalfADay)
{
    Episode episode{day(1720, 3, 12), day(1741, 3, 12), day(1741, 3, 12)};
    EXPECT_TRUE(split(episode, fertileAges()).empty());
    episode.endsInEvent = true;
    EXPECT_EQ(split(episode, fertileAges()), (std::vector<Slice>{{20, 0, 1}}));
    EXPECT_EQ(splitByPeriod(episode, fertileAges(), {}), (std::vector<Slice>{{20, 1700, 1}}));
    Settings late;
    late.period = {1742, 1800};
    EXPECT_TRUE(splitByPeriod(episode, fertileAges(), late).empty());
    episode.until = day(1741, 3, 13);
    EXPECT_EQ(split(episode, fertileAges()), daysOf({{20, 1}}));
    episode.until = day(1741, 3, 11);
    EXPECT_TRUE(split(episode, fertileAges()).empty());
}

TEST(Exposure, OfWhoWasBornOnALeapDayChangesGroupOnTheFirstOfMarch)
{
    const Episode episode{day(1704, 2, 29), day(1719, 2, 27), day(1719, 3, 3)};
    EXPECT_EQ(split(episode, {14, 15, 20}), daysOf({{14, 2}, {15, 2}}));
}

TEST(Exposure, LacksTheDaysThatTheCalendarLeftOut)
{
    EXPECT_EQ(split({day(1560, 1, 2), day(1582, 10, 1), day(1582, 10, 20)}, fertileAges()), daysOf({{20, 9}}));
}

TEST(Exposure, CountsAYearFromItsMiddle)
{
    EXPECT_EQ(split({day(1720, 1, 1, false), day(1740, 6, 29), day(1740, 7, 3)}, {15, 20, 25}),
              daysOf({{15, 2}, {20, 2}}));
}

TEST(Exposure, IsSplitAtTheFirstDayOfEachPeriod)
{
    Settings settings;
    settings.cohortYears = 10;
    const Episode episode{day(1720, 3, 12), day(1738, 12, 30), day(1751, 1, 3)};
    EXPECT_EQ(splitByPeriod(episode, fertileAges(), settings), (std::vector<Slice>{{15, 1730, qint64{2} * 367},
                                                                                   {15, 1740, qint64{2} * 71},
                                                                                   {20, 1740, qint64{2} * 1826},
                                                                                   {25, 1740, qint64{2} * 1756},
                                                                                   {25, 1750, qint64{2} * 70},
                                                                                   {30, 1750, qint64{2} * 297}}));
    qint64 all = 0;
    for (const Slice& slice : splitByPeriod(episode, fertileAges(), settings))
        all += slice.halfDays;
    EXPECT_EQ(all, 2 * daysBetween(episode.from, episode.until));
}

TEST(Exposure, CountsOnlyWithinThePeriodOfTheSettings)
{
    Settings settings;
    settings.period = {1745, 1745};
    const Episode episode{day(1720, 3, 12), day(1738, 12, 30), day(1751, 1, 3)};
    EXPECT_EQ(splitByPeriod(episode, fertileAges(), settings),
              (std::vector<Slice>{{20, 1700, qint64{2} * 70}, {25, 1700, qint64{2} * 295}}));
}
