// Times of episodes: decimal years, exact ages, spells.
#include "study/exchange/episodeTimes.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace study::exchange;
using study::parish::Date;
using study::parish::dateOf;

namespace {

Date on(int year, int month, int day)
{
    return dateOf(QDate(year, month, day), true);
}

} // namespace

TEST(EpisodeTimes, ADecimalYearIsTheDaysSinceTheYearZero)
{
    EXPECT_EQ(decimalYear(on(1765, 6, 27)), "1765.487");
    EXPECT_EQ(decimalYear(on(1720, 3, 12)), "1720.194");
    EXPECT_EQ(decimalYear(on(1897, 5, 16)), "1897.372");
    EXPECT_EQ(decimalYear({}), "");
    EXPECT_EQ(decimalYear(dateOf(QDate(1720, 1, 1), false)), decimalYear(on(1720, 7, 1))) << "only the year is meant";
}

TEST(EpisodeTimes, ADayIsIsoText)
{
    EXPECT_EQ(isoDay(on(1765, 6, 27)), "1765-06-27");
    EXPECT_EQ(isoDay(on(999, 12, 1)), "0999-12-01");
    EXPECT_EQ(isoDay({}), "");
    EXPECT_EQ(isoDay(dateOf(QDate(1720, 1, 1), false)), "1720-07-01") << "only the year is meant";
}

TEST(EpisodeTimes, AnAgeIsWholeOnEachBirthdayAndGrowsWithEveryHalfDay)
{
    const Date birth = on(1680, 2, 29);
    EXPECT_EQ(ageAt(birth, {birth}), "0.000");
    EXPECT_EQ(ageAt(birth, {on(1701, 3, 1)}), "21.000");
    EXPECT_EQ(ageAt(birth, {on(1704, 2, 29)}), "24.000");
    double last = -1;
    for (QDate day(1699, 12, 1); day < QDate(1705, 1, 1); day = day.addDays(1))
        for (const bool noon : {false, true}) {
            const double age = ageAt(birth, {dateOf(day, true), noon}).toDouble();
            ASSERT_GT(age, last) << qPrintable(day.toString(Qt::ISODate));
            last = age;
        }
}

TEST(EpisodeTimes, TheDaysThatOctober1582LeftOutWereNotLived)
{
    EXPECT_EQ(halfDaysBetween({on(1582, 10, 4)}, {on(1582, 10, 15)}), 2);
    EXPECT_EQ(halfDaysBetween({on(1582, 10, 8)}, {on(1582, 10, 15)}), 0) << "a day that there wasn't";
    EXPECT_EQ(ageAt(on(1562, 10, 20), {on(1582, 10, 20)}), "20.000");
    EXPECT_TRUE(spellsOf({on(1582, 10, 6)}, on(1582, 10, 12), false).empty());
}

TEST(EpisodeTimes, ASpellIsCutOnlyWithinAndItsEventEndsTheLastPart)
{
    const Date from = on(1700, 1, 1), until = on(1700, 12, 31), cut = on(1700, 6, 1);
    const std::vector<Spell> parts = spellsOf({from}, until, true, {until, cut, from, cut, on(1699, 1, 1)});
    EXPECT_EQ(parts, (std::vector<Spell>{{{from}, {cut}, false}, {{cut}, {until}, true}}));
    EXPECT_EQ(parts[0].halfDays() + parts[1].halfDays(), halfDaysBetween({from}, {until}));
}

TEST(EpisodeTimes, WhatHappensOnTheDayOfEntryHasLastedHalfADay)
{
    const Date day = on(1700, 1, 1);
    EXPECT_EQ(spellsOf({day}, day, true), (std::vector<Spell>{{{day}, {day, true}, true}}));
    EXPECT_TRUE(spellsOf({day}, day, false).empty());
    EXPECT_EQ(daysOf(spellsOf({day}, day, true).front().halfDays()), "0.5");
    EXPECT_EQ(daysOf(730), "365");
}
