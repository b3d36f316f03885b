#include "study/people/span.h"

namespace study {

DaySpan around(QDate day, bool about)
{
    if (!day.isValid() || !about) return {day, day};
    return {day.addYears(-aboutYears), day.addYears(aboutYears)};
}

DaySpan daysOf(const PartialDate& date)
{
    const QDate first = date.standing().value_or(QDate());
    if (!first.isValid()) return {};
    QDate last = first;
    if (date.month == 0)
        last = first.addYears(1).addDays(-1);
    else if (date.day == 0)
        last = first.addMonths(1).addDays(-1);
    return {around(first, date.about).from, around(last, date.about).to};
}

} // namespace study
