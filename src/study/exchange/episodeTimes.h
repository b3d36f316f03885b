// Times as event history has them: decimal years, exact ages, and the spells that a time at risk is cut into.
//
// A spell lasts from the moment behind its beginning to its end, and what ends it happens at its end: Surv(enter, exit,
// event). So every spell has a length. What happens on the day on which a time at risk begins has lasted half a day,
// which the next spell of the same life lacks. Where somebody enters, an event, and an end of observation are of one
// day, they come in this order.
#pragma once

#include "study/parish/date.h"

#include <QByteArray>

#include <vector>

namespace study::exchange {

// "1765-06-27", of the middle; "" for an unknown date.
QByteArray isoDay(const parish::Date& date);

// Days since 0000-01-01 of the Gregorian calendar, over 365.2425, to three decimals: 1765-06-27 is "1765.487". A date
// of which the year alone is told stands in its middle. "" for an unknown date.
QByteArray decimalYear(const parish::Date& date);

// The beginning of a day, or the noon that ends half a day of risk.
struct Moment
{
    parish::Date day = {};
    bool isNoon = false;

    bool operator==(const Moment&) const = default;
};

// Half days from the one to the other, without the days that October 1582 left out. Precondition: both are known.
qint64 halfDaysBetween(const Moment& from, const Moment& until);

// The exact age in years, to three decimals: completed years and the part of the year that has gone since the last
// birthday. Two different moments have different ages. Precondition: both are known, the origin isn't the later one.
QByteArray ageAt(const parish::Date& origin, const Moment& moment);

// Half days as days: "0.5", "365".
QByteArray daysOf(qint64 halfDays);

struct Spell
{
    Moment from = {}, until = {};
    bool event = false;

    qint64 halfDays() const { return halfDaysBetween(from, until); }
    bool operator==(const Spell&) const = default;
};

// One behind the other, cut at those of the days that lie within; the last one ends in the event, if there is one. None
// where there is neither time nor event. Dates count by their middles; all are known.
std::vector<Spell> spellsOf(const Moment& from, const parish::Date& until, bool event,
                            std::vector<parish::Date> cuts = {});

} // namespace study::exchange
