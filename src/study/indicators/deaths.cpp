#include "study/indicators/deaths.h"

#include "study/indicators/scope.h"
#include "study/parish/codes.h"

#include <algorithm>
#include <array>

namespace study::indicators {

namespace {

using parish::parishClass::innocent;
using parish::parishClass::minorWithConfession;
using parish::parishClass::minorWithoutConfession;

// Of full age, the head of a household, a cleric; the other classes (absent, poor, a slave) tell no age.
constexpr std::array<int, 3> grownClasses = {4, 5, 9};
constexpr int majority = 25; // of the Ordenações; a bound, and no more
constexpr int marriageable = 12;

bool wasMarried(const parish::Person& person)
{
    return person.stateAtDeath == parish::civil::married || person.stateAtDeath == parish::civil::widowed ||
           !person.unions.empty();
}

bool isGrownClass(parish::Code code)
{
    return code && std::find(grownClasses.begin(), grownClasses.end(), *code) != grownClasses.end();
}

AgeAtDeath ageByClass(const parish::Person& person)
{
    AgeAtDeath age{AgeAtDeath::By::Class};
    const bool isMinorOfAnAge =
        person.parishClass == minorWithoutConfession || person.parishClass == minorWithConfession;
    const bool isOlder = wasMarried(person) || isMinorOfAnAge || isGrownClass(person.parishClass);
    if (person.parishClass == innocent || (!isOlder && person.minor == true)) {
        age.below = endOfInnocence + 1;
        return age;
    }
    if (!isOlder) return {};
    age.least = wasMarried(person) ? marriageable : endOfInnocence + 1;
    if (!wasMarried(person) && isMinorOfAnAge) age.below = majority;
    return age;
}

} // namespace

bool AgeAtDeath::isYoung(int limit) const
{
    return years ? *years < limit : below && *below <= limit;
}

bool AgeAtDeath::isGrown(int limit) const
{
    return years ? *years >= limit : least && *least >= limit;
}

AgeAtDeath ageAtDeathOf(const parish::Person& person)
{
    if (person.birth.isKnown() && person.death.isKnown()) {
        const int years = parish::completedYears(person.birth, person.death);
        if (years >= 0) return {AgeAtDeath::By::Dates, years};
        // About the same time: the middles may stand the other way round.
        const bool exact = person.birth.isExact() && person.death.isExact();
        if (!exact && years == -1) return {AgeAtDeath::By::Dates, 0};
    }
    if (person.ageAtDeath && *person.ageAtDeath >= 0) return {AgeAtDeath::By::Statement, *person.ageAtDeath};
    return ageByClass(person);
}

Buried buriedAs(const parish::Person& person)
{
    const AgeAtDeath age = ageAtDeathOf(person);
    if (age.isYoung(endOfInnocence + 1)) return Buried::Child;
    return age.isGrown(endOfInnocence + 1) ? Buried::Adult : Buried::Ageless;
}

bool isAskedFor(const parish::Person& dead, const Study& study, Taker& taker, DeathsApart apart)
{
    const int year = dead.death.middle().year();
    const auto countApart = [&](quint16 which) {
        taker.count({which}, {&dead, nullptr});
        return false;
    };
    if (!study.settings.period.holds(year) || !isWanted(dead.gender, study.settings)) return false;
    if (!isHere(dead.deathPlace, study)) return countApart(apart.elsewhere);
    const Series series = buriedAs(dead) == Buried::Child ? Series::ChildBurials : Series::Burials;
    return study.settings.covers(series, year) || countApart(apart.outOfBooks);
}

} // namespace study::indicators
