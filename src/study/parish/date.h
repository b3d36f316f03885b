// A date of the cards: a day, and how sure it is.
#pragma once

#include <QDate>
#include <QString>

namespace study::parish {

inline constexpr double daysOfAYear = 365.25; // the mean one

enum class Precision : quint8
{
    Unknown, // no date
    Year,    // about a 1 January: only the year is meant
    About,
    Exact
};

struct Date
{
    qint32 day = 0; // the Julian day number, as QDate has it; 0 where there is no date
    Precision precision = Precision::Unknown;

    bool operator==(const Date&) const = default;

    bool isKnown() const { return precision != Precision::Unknown; }
    bool isExact() const { return precision == Precision::Exact; }
    QDate date() const { return isKnown() ? QDate::fromJulianDay(day) : QDate(); }
    int year() const { return date().year(); }

    // The day that ages are counted with: 1 July where only the year is meant.
    QDate middle() const;
};

// An invalid day gives an unknown date, whatever the flag says.
Date dateOf(QDate day, bool exact);

// Days that went by from the day of the one to that of the other. The columns count on through October 1582, when ten
// days were left out: what spans them is so much shorter. Precondition: both are known.
int daysBetween(const Date& from, const Date& to);

// The day on which so many years are completed: of who was born on a 29 February, 1 March in common years. The birth
// counts by its middle. Precondition: it is known.
QDate birthday(const Date& birth, int years);

// By the calendar, between the middles; negative before the birth. Precondition: both are known.
int completedYears(const Date& birth, const Date& at);

// Completed years and the part of the year that has gone since the last birthday. Precondition: both are known, and the
// birth isn't the later one.
double exactAge(const Date& birth, const Date& at);

// "14/02/1702", "cerca de 14/02/1702", "cerca de 1702"; "" for none.
QString shown(const Date& date);

} // namespace study::parish
