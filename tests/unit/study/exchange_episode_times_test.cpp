// Times of episodes: decimal years, exact ages, spells.
#include "study/days.h"

#include "study/exchange/episodeTimes.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace study::exchange;
using study::parish::Date;
using study::parish::dateOf;

TEST(EpisodeTimes, ADecimalYearIsTheDaysSinceTheYearZero)
{
    EXPECT_EQ(decimalYear(day(1765, 6, 27)), "1765.487");
    EXPECT_EQ(decimalYear(day(1720, 3, 12)), "1720.194");
    EXPECT_EQ(decimalYear(day(1897, 5, 16)), "1897.372");
    EXPECT_EQ(decimalYear({}), "");
    EXPECT_EQ(decimalYear(dateOf(QDate(1720, 1, 1), false)), decimalYear(day(1720, 7, 1))) << "only the year is meant";
}

TEST(EpisodeTimes, ADayIsIsoText)
{
    EXPECT_EQ(isoDay(day(1765, 6, 27)), "1765-06-27");
    EXPECT_EQ(isoDay(day(999, 12, 1)), "0999-12-01");
    EXPECT_EQ(isoDay({}), "");
    EXPECT_EQ(isoDay(dateOf(QDate(1720, 1, 1), false)), "1720-07-01") << "only the year is meant";
}

TEST(EpisodeTimes, AnAgeIsWholeOnEachBirthdayAndGrowsWithEveryHalfDay)
{
    const Date birth = day(1680, 2, 29);
    EXPECT_EQ(ageAt(birth, {birth}), "0.000");
    EXPECT_EQ(ageAt(birth, {day(1701, 3, 1)}), "21.000");
    EXPECT_EQ(ageAt(birth, {day(1704, 2, 29)}), "24.000");
    double last = -1;
    for (QDate at(1699, 12, 1); at < QDate(1705, 1, 1); at = at.addDays(1))
        for (const bool noon : {false, true}) {
            const double age = ageAt(birth, {dateOf(at, true), noon}).toDouble();
            ASSERT_GT(age, last) << qPrintable(at.toString(Qt::ISODate));
            last = age;
        }
}

TEST(EpisodeTimes, TheDaysThatOctober1582LeftOutWereNotLived)
{
    EXPECT_EQ(halfDaysBetween({day(1582, 10, 4)}, {day(1582, 10, 15)}), 2);
    EXPECT_EQ(halfDaysBetween({day(1582, 10, 8)}, {day(1582, 10, 15)}), 0) << "a day that there wasn't";
    EXPECT_EQ(ageAt(day(1562, 10, 20), {day(1582, 10, 20)}), "20.000");
    EXPECT_TRUE(spellsOf({day(1582, 10, 6)}, day(1582, 10, 12), false).empty());
}

TEST(EpisodeTimes, ASpellIsCutOnlyWithinAndItsEventEndsTheLastPart)
{
    const Date from = day(1700, 1, 1), until = day(1700, 12, 31), cut = day(1700, 6, 1);
    const std::vector<Spell> parts = spellsOf({from}, until, true, {until, cut, from, cut, day(1699, 1, 1)});
    EXPECT_EQ(parts, (std::vector<Spell>{{{from}, {cut}, false}, {{cut}, {until}, true}}));
    EXPECT_EQ(parts[0].halfDays() + parts[1].halfDays(), halfDaysBetween({from}, {until}));
}

TEST(EpisodeTimes, WhatHappensOnTheDayOfEntryHasLastedHalfADay)
{
    const Date once = day(1700, 1, 1);
    EXPECT_EQ(spellsOf({once}, once, true), (std::vector<Spell>{{{once}, {once, true}, true}}));
    EXPECT_TRUE(spellsOf({once}, once, false).empty());
    EXPECT_EQ(daysOf(spellsOf({once}, once, true).front().halfDays()), "0.5");
    EXPECT_EQ(daysOf(730), "365");
}
