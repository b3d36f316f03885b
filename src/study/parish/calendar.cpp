#include "study/parish/calendar.h"

namespace study::parish {

namespace {

constexpr int firstGregorianEaster = 1583, firstGregorianAdvent = 1582;

QDate gregorianEaster(int year)
{
    const int century = year / 100;
    const int golden = year % 19;
    const int k = (century - 17) / 25;
    int i = (century - century / 4 - (century - k) / 3 + 19 * golden + 15) % 30;
    i -= (i / 28) * (1 - (i / 28) * (29 / (i + 1)) * ((21 - golden) / 11));
    const int j = (year + year / 4 + i + 2 - century + century / 4) % 7;
    const int days = i - j;
    const int month = 3 + (days + 40) / 44;
    return {year, month, days + 28 - 31 * (month / 4)};
}

QDate julianEaster(int year)
{
    const int d = (19 * (year % 19) + 15) % 30;
    const int e = (2 * (year % 4) + 4 * (year % 7) - d + 34) % 7;
    const int days = d + e + 114;
    return {year, days / 31, days % 31 + 1};
}

// How many days a day that is written in the Julian calendar comes behind the one written so in the Gregorian calendar,
// for days from 1 March on.
int julianOffset(int year)
{
    return year / 100 - year / 400 - 2;
}

// Of the day as it is written in the calendar of its year; 7 is Sunday.
int dayOfWeek(QDate day, bool gregorian)
{
    return gregorian ? day.dayOfWeek() : day.addDays(julianOffset(day.year())).dayOfWeek();
}

} // namespace

bool wasLeftOut(QDate day)
{
    return day > QDate(1582, 10, 4) && day < QDate(1582, 10, 15);
}

QDate easter(int year)
{
    return year >= firstGregorianEaster ? gregorianEaster(year) : julianEaster(year);
}

QDate ashWednesday(int year)
{
    static constexpr int days = 46;
    return easter(year).addDays(-days);
}

QDate adventSunday(int year)
{
    const QDate last(year, 12, 3);
    static constexpr int week = 7;
    return last.addDays(-(dayOfWeek(last, year >= firstGregorianAdvent) % week));
}

ClosedSeason closedSeason(QDate day)
{
    if (!day.isValid()) return ClosedSeason::None;
    static constexpr int octave = 7, epiphany = 6;
    if (day >= adventSunday(day.year()) || (day.month() == 1 && day.day() <= epiphany)) return ClosedSeason::Advent;
    if (day >= ashWednesday(day.year()) && day <= easter(day.year()).addDays(octave)) return ClosedSeason::Lent;
    return ClosedSeason::None;
}

} // namespace study::parish
