#include "study/indicators/godparents.h"

#include "study/indicators/scope.h"
#include "study/parish/codes.h"

namespace study::indicators {

using parish::Assistance;
using parish::Family;
using parish::Person;

namespace {

// The last residence up to a day, or the first behind it.
const parish::Residence* residenceOn(std::span<const parish::Residence> residences, QDate day)
{
    const parish::Residence* found = nullptr;
    for (const parish::Residence& each : residences) {
        if (!each.place.isKnown()) continue;
        if (found && (!each.date.isKnown() || each.date.middle() > day)) break;
        found = &each;
    }
    return found;
}

} // namespace

Kin kinOf(parish::Code code)
{
    static constexpr int lastKin = 62, lastNoKin = 72, unknownDegree = 71, last = 78;
    if (!code || *code <= 0 || *code > last) return UnknownKin;
    switch (*code) {
    case 5:
    case 6:
    case 19:
    case 20:
        return Paternal;
    case 7:
    case 8:
    case 21:
    case 22:
        return Maternal;
    case unknownDegree:
        return OtherKin;
    default:
        return *code > lastKin && *code <= lastNoKin ? NoKin : OtherKin;
    }
}

bool isCountedBaptism(const Person& child, const Study& study)
{
    if (!child.birth.isKnown() || !isHere(child.birthPlace, study)) return false;
    const int year = child.birth.middle().year();
    return study.settings.period.holds(year) && study.settings.covers(Series::Baptisms, year) &&
           isWanted(child.gender, study.settings) && isWanted(legitimacyOf(child, study.settings), study.settings);
}

bool isPerson(const Assistance& act, GivenNames& known)
{
    return act.assistant.person && !known.of(*act.assistant.person).isSaint;
}

bool isCleric(const Assistance& act)
{
    const Person& person = *act.assistant.person;
    return act.state == parish::civil::cleric || person.stateAtDeath == parish::civil::cleric;
}

const parish::Residence* homeOf(const Person& person, QDate day)
{
    if (const auto* own = residenceOn(person.residences, day)) return own;
    for (const parish::Membership* row : person.unions)
        if (row->family)
            if (const auto* shared = residenceOn(row->family->residences, day)) return shared;
    return nullptr;
}

const parish::Residence* homeOf(const Family& family, QDate day)
{
    if (const auto* own = residenceOn(family.residences, day)) return own;
    for (const Person* parent : {family.husband, family.wife})
        if (parent)
            if (const auto* theirs = residenceOn(parent->residences, day)) return theirs;
    return nullptr;
}

} // namespace study::indicators
