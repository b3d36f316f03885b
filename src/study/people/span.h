// Between which days something happened that a date tells of.
#pragma once

#include "study/acts/date.h"

#include <QDate>

namespace study {

// Both days are among them; invalid ones: whenever.
struct DaySpan
{
    QDate from = {}, to = {};

    bool operator==(const DaySpan&) const = default;
    bool isValid() const { return from.isValid() && to.isValid(); }
    bool isOneDay() const { return isValid() && from == to; }
};

// How far off a date told "about" may be, on both sides: a tenth of an age of 50, from which such dates are mostly
// computed.
inline constexpr int aboutYears = 5;
DaySpan around(QDate day, bool about);

// The year or the month where no more is told. Invalid where the date stands for no day.
DaySpan daysOf(const PartialDate& date);

} // namespace study
