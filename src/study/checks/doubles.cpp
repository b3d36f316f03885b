#include "study/checks/doubles.h"

#include "study/checks/signs.h"
#include "study/checks/words.h"
#include "study/names/names.h"

#include <algorithm>
#include <cstdlib>

namespace study::checks {

using parish::Date;
using parish::Gender;
using parish::Person;

namespace {

using parish::daysOfAYear;
constexpr int posthumousDays = 300; // that a child may be born behind its father's death

bool isBeyondDoubtBefore(const Date& one, const Date& other, const Check& check, int days = 0)
{
    return daysTooEarly(one, other) > days + check.tolerance({one, other}) * daysOfAYear;
}

// What is known of the one lies within what may be the life of the other.
bool fitsIntoTheLifeOf(const Person& other, const Person& one, const Check& check)
{
    if (isBeyondDoubtBefore(other.death, one.birth, check)) return false;
    const auto signs = signsOfLife(one);
    if (signs.empty()) return true;
    return !isBeyondDoubtBefore(signs.front().date, other.birth, check) &&
           !isBeyondDoubtBefore(other.death, signs.back().date, check, posthumousDays);
}

bool areMarriedToEachOther(const Person& one, const Person& other)
{
    return std::ranges::any_of(one.unions, [&](const parish::Membership* row) {
        return row->family && spouseOf(one, *row->family) == &other;
    });
}

} // namespace

bool mayBeEqual(const Date& one, const Date& other, const Check& check)
{
    if (!one.isKnown() || !other.isKnown()) return true;
    return std::abs(daysBetween(one, other)) <= check.tolerance({one, other}) * daysOfAYear;
}

bool mayBeOne(const Person& one, const Person& other, const Check& check)
{
    if (&one == &other) return false;
    const bool sexes =
        one.gender == other.gender || one.gender == Gender::Undetermined || other.gender == Gender::Undetermined;
    if (!sexes || (one.origin && other.origin && one.origin != other.origin)) return false;
    if (!mayBeEqual(one.birth, other.birth, check) || !mayBeEqual(one.death, other.death, check)) return false;
    return fitsIntoTheLifeOf(other, one, check) && fitsIntoTheLifeOf(one, other, check) &&
           !areMarriedToEachOther(one, other);
}

bool isFullName(const QString& standardName)
{
    const auto isName = [](const NameParts::Word& word) { return !word.particle; };
    return std::ranges::count_if(partsOf(standardName).words, isName) > 1;
}

} // namespace study::checks
