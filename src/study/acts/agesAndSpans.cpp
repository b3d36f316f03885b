#include "study/acts/agesAndSpans.h"

#include "study/acts/work.h"

namespace study {

namespace {

bool isNewYear(const QDate& day)
{
    return day.month() == 1 && day.day() == 1;
}

constexpr int tolerance = 1, toleranceOfYears = 10; // in years

int slackOf(const DayKnown& one, const DayKnown& other)
{
    if (one.exact && other.exact) return 0;
    return isNewYear(one.day) && isNewYear(other.day) ? toleranceOfYears : tolerance;
}

DayKnown dayIn(const PlannedRow& row, const char* date, const char* flag)
{
    return {.day = row.stored(date).toDate(), .exact = row.stored(flag).toBool()};
}

} // namespace

QString dated(const QDate& day)
{
    return day.toString("dd/MM/yyyy");
}

DayKnown dayOf(const Work& work)
{
    return {.day = work.day.value_or(QDate()), .exact = work.exact};
}

DayKnown birthOf(const PlannedRow& person)
{
    return dayIn(person, "datanasc", "DnascFixa");
}

DayKnown deathOf(const PlannedRow& person)
{
    return dayIn(person, "dataobito", "dobitofixa");
}

bool isBefore(const DayKnown& one, const DayKnown& other, int days)
{
    if (!one.isKnown() || !other.isKnown()) return false;
    return one.day.addDays(days).addYears(slackOf(one, other)) < other.day;
}

std::optional<AgeThen> ageAt(const DayKnown& birth, const DayKnown& day)
{
    if (!birth.isKnown() || !day.isKnown()) return {};
    int years = day.day.year() - birth.day.year();
    if (birth.day.addYears(years) > day.day) --years;
    return AgeThen{.years = years, .slack = slackOf(birth, day)};
}

} // namespace study
