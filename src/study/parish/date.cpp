#include "study/parish/date.h"

#include "study/parish/age.h"

namespace study::parish {

namespace {

constexpr qint32 changeOfCalendar = 2299161; // 15 October 1582, the day behind 4 October
constexpr qint32 daysLeftOut = 10;

// Who was born on a 29 February has a birthday on 1 March in common years.
QDate birthdayIn(int year, QDate birth)
{
    int ofBirth = 0, month = 0, dayOfMonth = 0;
    birth.getDate(&ofBirth, &month, &dayOfMonth);
    const QDate day(year, month, dayOfMonth);
    return day.isValid() ? day : QDate(year, 3, 1);
}

double lived(QDate from, QDate to)
{
    return daysBetween(dateOf(from, true), dateOf(to, true));
}

} // namespace

QDate Date::middle() const
{
    const QDate stored = date();
    return precision == Precision::Year ? QDate(stored.year(), 7, 1) : stored;
}

Date dateOf(QDate day, bool exact)
{
    if (!day.isValid()) return {};
    const auto number = static_cast<qint32>(day.toJulianDay());
    if (exact) return {number, Precision::Exact};
    int year = 0, month = 0, dayOfMonth = 0;
    day.getDate(&year, &month, &dayOfMonth);
    return {number, month == 1 && dayOfMonth == 1 ? Precision::Year : Precision::About};
}

int daysBetween(const Date& from, const Date& to)
{
    const int days = to.day - from.day;
    if (from.day < changeOfCalendar - daysLeftOut && to.day >= changeOfCalendar) return days - daysLeftOut;
    if (to.day < changeOfCalendar - daysLeftOut && from.day >= changeOfCalendar) return days + daysLeftOut;
    return days;
}

QDate birthday(const Date& birth, int years)
{
    const QDate first = birth.middle();
    return birthdayIn(first.year() + years, first);
}

int completedYears(const Date& birth, const Date& at)
{
    return study::completedYears(birth.middle(), at.middle());
}

double exactAge(const Date& birth, const Date& at)
{
    const QDate from = birth.middle();
    const QDate to = at.middle();
    const int years = study::completedYears(from, to);
    const QDate last = birthday(birth, years);
    const QDate next = birthday(birth, years + 1);
    return years + lived(last, to) / lived(last, next);
}

QString shown(const Date& date)
{
    switch (date.precision) {
    case Precision::Unknown:
        return {};
    case Precision::Year:
        return "cerca de " + QString::number(date.year());
    case Precision::About:
        return "cerca de " + date.date().toString("dd/MM/yyyy");
    case Precision::Exact:
        break;
    }
    return date.date().toString("dd/MM/yyyy");
}

} // namespace study::parish
