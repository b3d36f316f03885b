#include "study/indicators/natality.h"

#include <algorithm>
#include <cmath>

namespace study::indicators::natality {

using parish::Date;
using parish::Family;
using parish::Person;

Date settled(const Date& date)
{
    return parish::dateOf(date.middle(), true);
}

Date anniversary(const Date& of, int years)
{
    const QDate day = of.middle();
    const QDate then(day.year() + years, day.month(), day.day());
    return parish::dateOf(then.isValid() ? then : QDate(day.year() + years, 3, 1), true);
}

int completedMonths(const Date& from, const Date& to)
{
    const QDate first = from.middle(), last = to.middle();
    int months = 12 * (last.year() - first.year()) + last.month() - first.month();
    if (first.addMonths(months) > last) --months;
    return months;
}

qint32 hundredthsOfAge(const Date& birth, const Date& at)
{
    return static_cast<qint32>(std::lround(100 * parish::exactAge(birth, at)));
}

qint32 groupOf(int value, int breadth)
{
    const int rest = value % breadth;
    return value - (rest < 0 ? rest + breadth : rest);
}

bool isLocal(const parish::Place& place, const Study& study)
{
    return !place.isKnown() || parish::isIn(place, study.parish.home());
}

bool isFirstMarriage(const Person* person, const Family& family)
{
    static constexpr int widowed = 3;
    if (!person) return false;
    for (const parish::Membership* row : person->unions) {
        const bool here = row->family == &family;
        if (here && (row->order.value_or(1) > 1 || row->state == widowed)) return false;
        if (!here && row->family && row->family->marriage.isKnown() && family.marriage.isKnown() &&
            row->family->marriage.middle() < family.marriage.middle())
            return false;
    }
    return true;
}

bool isMarital(const Family& family)
{
    static constexpr const char* others[]{"3", "4", "5", "6", "7", "8", "10"};
    return std::none_of(std::begin(others), std::end(others),
                        [&](const char* code) { return family.situation.trimmed() == QLatin1String(code); });
}

qint32 cohortOf(const Date& marriage, const Date& event, const Settings& settings)
{
    return periodOf((settings.byMarriageCohort ? marriage : event).year(), settings);
}

std::vector<report::Figure> withoutData(const QString& title)
{
    return {Table{"sem-dados", title, {}, {}, {"sem dados"}}};
}

} // namespace study::indicators::natality
