// The moving feasts.
#include "study/parish/calendar.h"

#include <gtest/gtest.h>

#include <utility>

namespace study::parish {

TEST(Easter, IsOnTheDaysOfTheTables)
{
    for (const QDate day :
         {QDate(1583, 4, 10), QDate(1609, 4, 19), QDate(1700, 4, 11), QDate(1761, 3, 22), QDate(1818, 3, 22),
          QDate(1886, 4, 25), QDate(1954, 4, 18), QDate(1981, 4, 19), QDate(2000, 4, 23), QDate(2024, 3, 31)})
        EXPECT_EQ(easter(day.year()), day);
}

TEST(Easter, IsOfTheJulianCalendarBeforeItWasChanged)
{
    for (const QDate day : {QDate(1555, 4, 14), QDate(1570, 3, 26), QDate(1582, 4, 15)})
        EXPECT_EQ(easter(day.year()), day);
}

TEST(Easter, IsASundayFrom22MarchTo25April)
{
    for (int year = 1583; year < 5000; ++year) {
        const QDate day = easter(year);
        EXPECT_EQ(day.dayOfWeek(), 7) << year;
        EXPECT_GE(day, QDate(year, 3, 22));
        EXPECT_LE(day, QDate(year, 4, 25));
        EXPECT_EQ(ashWednesday(year).dayOfWeek(), 3) << year;
    }
}

TEST(TheFeasts, OfTheWorkedExampleAreWhereTheTableHasThem)
{
    const struct
    {
        QDate easter, ashes;
        int adventDay; // of November; 31 is 1 December
    } rows[]{{{1583, 4, 10}, {1583, 2, 23}, 27}, {{1700, 4, 11}, {1700, 2, 24}, 28}, {{1755, 3, 30}, {1755, 2, 12}, 30},
             {{1761, 3, 22}, {1761, 2, 4}, 29},  {{1818, 3, 22}, {1818, 2, 4}, 29},  {{1850, 3, 31}, {1850, 2, 13}, 31},
             {{1886, 4, 25}, {1886, 3, 10}, 28}, {{1943, 4, 25}, {1943, 3, 10}, 28}};
    for (const auto& row : rows) {
        const int year = row.easter.year();
        EXPECT_EQ(easter(year), row.easter);
        EXPECT_EQ(ashWednesday(year), row.ashes);
        EXPECT_EQ(adventSunday(year), QDate(year, 11, 1).addDays(row.adventDay - 1));
    }
}

TEST(AClosedSeason, LastsAsTheWorkedExampleHasIt)
{
    int in1755 = 0;
    for (int year = 1583; year < 2000; ++year) {
        int lent = 0, advent = 0;
        for (QDate day(year, 1, 7); day < QDate(year + 1, 1, 7); day = day.addDays(1)) {
            lent += closedSeason(day) == ClosedSeason::Lent;
            advent += closedSeason(day) == ClosedSeason::Advent;
        }
        EXPECT_EQ(lent, 54) << year;
        EXPECT_GE(advent, 35) << year;
        EXPECT_LE(advent, 41) << year;
        if (year == 1755) in1755 = lent + advent;
    }
    EXPECT_EQ(in1755, 54 + 38);
    EXPECT_EQ(closedSeason({1755, 4, 6}), ClosedSeason::Lent);
    EXPECT_EQ(closedSeason({1755, 4, 7}), ClosedSeason::None);
}

TEST(Advent, BeginsOnTheSundayNearestTo30November)
{
    EXPECT_EQ(adventSunday(1702), QDate(1702, 12, 3));
    EXPECT_EQ(adventSunday(1703), QDate(1703, 12, 2));
    EXPECT_EQ(adventSunday(2023), QDate(2023, 12, 3));
    EXPECT_EQ(adventSunday(2022), QDate(2022, 11, 27));
    EXPECT_EQ(adventSunday(1581), QDate(1581, 12, 3)); // a Sunday of the Julian calendar
    for (int year = 1582; year < 5000; ++year) {
        EXPECT_EQ(adventSunday(year).dayOfWeek(), 7) << year;
        EXPECT_GE(adventSunday(year), QDate(year, 11, 27));
        EXPECT_LE(adventSunday(year), QDate(year, 12, 3));
    }
}

TEST(AClosedSeason, HasItsFirstDayAndItsLast)
{
    using enum ClosedSeason;
    // 1703: Easter on 8 April, Advent from 2 December.
    for (const auto& [day, season] :
         {std::pair(QDate(1703, 1, 6), Advent), std::pair(QDate(1703, 1, 7), None), std::pair(QDate(1703, 2, 20), None),
          std::pair(QDate(1703, 2, 21), Lent), std::pair(QDate(1703, 4, 15), Lent), std::pair(QDate(1703, 4, 16), None),
          std::pair(QDate(1703, 12, 1), None), std::pair(QDate(1703, 12, 2), Advent),
          std::pair(QDate(1703, 12, 31), Advent), std::pair(QDate(), None)})
        EXPECT_EQ(closedSeason(day), season) << qPrintable(day.toString(Qt::ISODate));
}

} // namespace study::parish
