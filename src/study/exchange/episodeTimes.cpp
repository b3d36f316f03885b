#include "study/exchange/episodeTimes.h"

#include <algorithm>

namespace study::exchange {

using parish::Date;

namespace {

constexpr qint64 dayBeforeOurEra = 1721425; // the Julian day number of 31 December of the year 0
constexpr qint64 daysOfYearZero = 365;      // as toTime of event history has it: its 1 January is day 1
constexpr qint64 firstLeftOut = 2299151, firstBehind = 2299161; // 5 and 15 October 1582, as columns count them

// Of 365.2425 days: half days × 5000000 / 3652425 are thousandths of a year.
QByteArray thousandthsTold(qint64 thousandths)
{
    const QByteArray rest = QByteArray::number(thousandths % 1000).rightJustified(3, '0');
    return QByteArray::number(thousandths / 1000) + '.' + rest;
}

// Rounded, of whole numbers that aren't negative.
qint64 divided(qint64 amount, qint64 by)
{
    return (2 * amount + by) / (2 * by);
}

// Days one behind the other as they were lived.
qint64 livedDay(const QDate& date)
{
    const qint64 day = date.toJulianDay();
    if (day < firstLeftOut) return day;
    return std::max(firstLeftOut, day - (firstBehind - firstLeftOut));
}

qint64 halfDayOf(const Moment& moment)
{
    return 2 * livedDay(moment.day.middle()) + (moment.isNoon ? 1 : 0);
}

} // namespace

QByteArray decimalYear(const Date& date)
{
    if (!date.isKnown()) return {};
    const qint64 days = date.middle().toJulianDay() - dayBeforeOurEra + daysOfYearZero;
    return thousandthsTold(divided(days * 10000000, 3652425));
}

qint64 halfDaysBetween(const Moment& from, const Moment& until)
{
    return halfDayOf(until) - halfDayOf(from);
}

QByteArray ageAt(const Date& origin, const Moment& moment)
{
    const int years = parish::completedYears(origin, moment.day);
    const auto at = [&origin](int age) { return Moment{parish::dateOf(parish::birthday(origin, age), true)}; };
    const qint64 gone = halfDaysBetween(at(years), moment), year = halfDaysBetween(at(years), at(years + 1));
    return thousandthsTold(years * qint64{1000} + divided(gone * 1000, year));
}

QByteArray daysOf(qint64 halfDays)
{
    return QByteArray::number(halfDays / 2) + (halfDays % 2 != 0 ? ".5" : "");
}

std::vector<Spell> spellsOf(const Moment& from, const Date& until, bool event, std::vector<Date> cuts)
{
    const Moment end{until};
    std::ranges::sort(cuts, [](const Date& one, const Date& other) { return one.middle() < other.middle(); });
    std::vector<Spell> spells;
    Moment at = from;
    for (const Date& cut : cuts) {
        if (halfDaysBetween(at, {cut}) <= 0 || halfDaysBetween({cut}, end) <= 0) continue;
        spells.push_back({at, {cut}});
        at = {cut};
    }
    if (halfDaysBetween(at, end) > 0)
        spells.push_back({at, end, event});
    else if (event && spells.empty())
        spells.push_back({from, {from.day, true}, true});
    return spells;
}

} // namespace study::exchange
