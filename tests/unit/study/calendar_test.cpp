// The moving feasts.
#include "study/parish/calendar.h"

#include <gtest/gtest.h>

#include <utility>

using namespace study::parish;

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
