#include "kinship.h"

namespace demo {
namespace {

bool isOneOf(Nind person, const Parents& parents)
{
    return person && (person == parents.father || person == parents.mother);
}

bool shareAParent(const Parents& one, const Parents& other)
{
    return isOneOf(one.father, other) || isOneOf(one.mother, other);
}

} // namespace

Parents parentsOf(const Parish& parish, const Person& person)
{
    if (!person.origin) return {};
    const Family& family = parish.family(person.origin);
    return {family.husband.person, family.wife.person};
}

int kinship(const Parish& parish, const Person& who, const Person& toWhom)
{
    if (who.sex == Sex::unknown || who.number == toWhom.number) return 0;
    const auto parentsOfNumber = [&](Nind person) {
        return person ? parentsOf(parish, parish.person(person)) : Parents();
    };
    const Parents mine = parentsOf(parish, who), theirs = parentsOf(parish, toWhom);
    const Parents myFathers = parentsOfNumber(mine.father), myMothers = parentsOfNumber(mine.mother);
    const Parents theirFathers = parentsOfNumber(theirs.father), theirMothers = parentsOfNumber(theirs.mother);
    const auto code = [&](int male) { return who.sex == Sex::female ? male + 1 : male; };

    if (isOneOf(who.number, theirs)) return code(kin::father);
    if (isOneOf(toWhom.number, mine)) return code(kin::son);
    if (who.origin && who.origin == toWhom.origin) return code(kin::brother);
    if (shareAParent(mine, theirs)) return code(kin::halfBrother);
    if (isOneOf(who.number, theirFathers)) return code(kin::fathersFather);
    if (isOneOf(who.number, theirMothers)) return code(kin::mothersFather);
    if (isOneOf(toWhom.number, myFathers) || isOneOf(toWhom.number, myMothers)) return code(kin::grandson);
    if (shareAParent(mine, theirFathers)) return code(kin::fathersBrother);
    if (shareAParent(mine, theirMothers)) return code(kin::mothersBrother);
    if (shareAParent(theirs, myFathers) || shareAParent(theirs, myMothers)) return code(kin::nephew);
    for (const Parents& my : {myFathers, myMothers})
        if (shareAParent(my, theirFathers) || shareAParent(my, theirMothers)) return code(kin::cousin);
    return 0;
}

} // namespace demo
