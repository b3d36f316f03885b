#include "study/checks/words.h"

#include "study/checks/check.h"
#include "study/checks/told.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace study::checks {

using parish::Date;
using parish::Precision;

namespace {

constexpr int daysOfACommonYear = 365;

Date lastDay(const Date& date)
{
    return date.precision == Precision::Year ? exact(QDate(date.year(), 12, 31)) : date;
}

} // namespace

QString inDays(int days)
{
    return howMany(days, "dia", "dias");
}

QString together(const QStringList& list)
{
    if (list.size() < 2) return list.join(QString());
    return list.mid(0, list.size() - 1).join(", ") + " e " + list.last();
}

QString wordFor(const parish::Person& person, const char* man, const char* woman)
{
    return QString::fromUtf8(person.gender == parish::Gender::Female ? woman : man);
}

QString inFamily(const parish::Family& family)
{
    return 'n' + named(family);
}

QString described(const parish::Snapshot& parish, const char* category, const QString& code)
{
    const QString description = parish.catalogue().description(category, code);
    return QString::fromUtf8("«") + (description.isEmpty() ? code : description) + QString::fromUtf8("»");
}

const parish::Person* motherIn(const parish::Family& family)
{
    const auto isWoman = [](const parish::Membership& row) {
        return row.member.person && row.member.person->gender == parish::Gender::Female;
    };
    const auto row = std::ranges::find_if(family.members, isWoman);
    return row == family.members.end() ? nullptr : row->member.person;
}

int daysTooEarly(const Date& later, const Date& earlier)
{
    if (!later.isKnown() || !earlier.isKnown()) return 0;
    return std::max(0, daysBetween(lastDay(later), earlier));
}

bool isSurelyBefore(const Date& first, const Date& second, const Check& check)
{
    const int days = daysTooEarly(first, second);
    return days > 0 && !check.mayBeOfTheDates(days, {first, second});
}

int daysBeyond(const Date& first, const Date& second, double years)
{
    if (!first.isKnown() || !second.isKnown()) return 0;
    const double whole = std::floor(years);
    const auto part = static_cast<qint64>((years - whole) * daysOfACommonYear);
    const QDate last = first.middle().addYears(static_cast<int>(whole)).addDays(part);
    return std::max(0, static_cast<int>(last.daysTo(second.middle())));
}

std::vector<const parish::Membership*> unionsOf(const parish::Person& person)
{
    std::vector<const parish::Membership*> unions;
    unions.reserve(person.unions.size());
    for (const parish::Membership* row : person.unions)
        if (unions.empty() || !row->family || row->family != unions.back()->family) unions.push_back(row);
    return unions;
}

std::vector<const parish::Person*> datedChildren(const parish::Family& family)
{
    std::vector<const parish::Person*> births;
    std::ranges::copy_if(family.children, std::back_inserter(births),
                         [](const parish::Person* child) { return child->birth.isKnown(); });
    return births;
}

} // namespace study::checks
