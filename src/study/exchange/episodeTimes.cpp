#include "study/exchange/episodeTimes.h"

#include <algorithm>
#include <array>

namespace study::exchange {

using parish::Date;

namespace {

constexpr qint64 dayBeforeOurEra = 1721425; // the Julian day number of 31 December of the year 0
constexpr qint64 daysOfYearZero = 365;      // as toTime of event history has it: its 1 January is day 1
constexpr qint64 partsOfADay = 10000, partsOfAYear = 3652425, thousand = 1000;
constexpr int lastOfFourDigits = 9999;
constexpr qint64 firstLeftOut = 2299151, firstBehind = 2299161; // 5 and 15 October 1582, as columns count them

char digitOf(int number) // its last one
{
    return static_cast<char>('0' + number % 10);
}

QByteArray thousandthsTold(qint64 thousandths)
{
    QByteArray told = QByteArray::number(thousandths / thousand);
    const auto rest = static_cast<int>(thousandths % thousand);
    const std::array<char, 4> digits{'.', digitOf(rest / 100), digitOf(rest / 10), digitOf(rest)};
    return told.append(digits.data(), static_cast<qsizetype>(digits.size()));
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

QByteArray isoDay(const Date& date)
{
    if (!date.isKnown()) return {};
    int year = 0, month = 0, day = 0;
    date.middle().getDate(&year, &month, &day);
    if (year < 0 || year > lastOfFourDigits) return date.middle().toString(Qt::ISODate).toLatin1();
    const std::array<char, 10> told{digitOf(year / 1000),
                                    digitOf(year / 100),
                                    digitOf(year / 10),
                                    digitOf(year),
                                    '-',
                                    digitOf(month / 10),
                                    digitOf(month),
                                    '-',
                                    digitOf(day / 10),
                                    digitOf(day)};
    return {told.data(), static_cast<qsizetype>(told.size())};
}

QByteArray decimalYear(const Date& date)
{
    if (!date.isKnown()) return {};
    const qint64 days = date.middle().toJulianDay() - dayBeforeOurEra + daysOfYearZero;
    return thousandthsTold(divided(days * thousand * partsOfADay, partsOfAYear));
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
    return thousandthsTold(years * thousand + divided(gone * thousand, year));
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
