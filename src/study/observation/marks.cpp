#include "study/observation/marks.h"

#include "study/parish/codes.h"
#include "study/parish/locality.h"

#include <algorithm>
#include <iterator>

namespace study::observation {

using parish::Assistance;
using parish::Date;
using parish::Family;
using parish::Home;
using parish::Membership;
using parish::Person;

namespace {

bool isLocalResidence(const parish::Place& place, const Home& home)
{
    return place.isKnown() && isLocal(place, home);
}

Mark lastAssistanceOfAResident(const Person& person, const Residences& residences, DaysApart apart)
{
    const auto proves = [&](const Assistance* row) {
        return row->date.isKnown() && !isApart(row->date, apart) && residences.isResident(row->date);
    };
    const auto row = std::find_if(person.assisted.rbegin(), person.assisted.rend(), proves);
    return row == person.assisted.rend() ? Mark() : Mark{(*row)->date, Proof::Assistance};
}

// Of a child: what it shows of its parents. One that is grown up may be buried without them.
Mark lastOfChild(const Person& child, const Home& home)
{
    Mark mark;
    if (isBornHere(child, home)) takeLater(mark, child.birth, Proof::ChildBorn);
    if (diedHere(child, home) && diedAsAChild(child)) takeLater(mark, child.death, Proof::ChildBuried);
    return mark;
}

} // namespace

bool isBornHere(const Person& person, const Home& home)
{
    return person.birth.isKnown() && isLocal(person.birthPlace, home);
}

bool diedHere(const Person& person, const Home& home)
{
    return person.death.isKnown() && isLocal(person.deathPlace, home);
}

Residences::Residences(const Person& person, const Home& home)
{
    add(person.residences, home);
    for (const Membership* row : person.unions)
        if (row->family) add(row->family->residences, home);
    std::ranges::sort(stays_, {}, &Stay::day);
}

bool Residences::isResident(const Date& at) const
{
    const auto behind = std::ranges::upper_bound(stays_, at.day, {}, &Stay::day);
    return behind != stays_.begin() && std::prev(behind)->local;
}

Mark Residences::first() const
{
    const auto stay = std::ranges::find_if(stays_, &Stay::local);
    return stay == stays_.end() ? Mark() : Mark{stay->date, Proof::Residence};
}

Mark Residences::last(DaysApart apart) const
{
    const auto stay = std::find_if(stays_.rbegin(), stays_.rend(),
                                   [&](const Stay& one) { return one.local && !isApart(one.date, apart); });
    return stay == stays_.rend() ? Mark() : Mark{stay->date, Proof::Residence};
}

void Residences::add(std::span<const parish::Residence> rows, const Home& home)
{
    for (const parish::Residence& row : rows)
        if (row.date.isKnown()) stays_.push_back({row.date.day, isLocalResidence(row.place, home), row.date});
}

OwnMarks ownMarks(const Person& person, const Home& home, DaysApart apart)
{
    const Residences residences(person, home);
    OwnMarks marks;
    marks.firstResidence = residences.first();
    marks.lived = residences.last(apart);
    takeLater(marks.lived, lastOf(person.professions, Proof::Profession, apart));
    takeLater(marks.lived, lastOf(person.signatures, Proof::Signature, apart));
    takeLater(marks.lived, lastOf(person.passports, Proof::Passport, apart));
    takeLater(marks.lived, lastAssistanceOfAResident(person, residences, apart));
    for (const Membership* row : person.unions)
        if (row->family && isLocal(row->family->place, home))
            takeLater(marks.marriage, row->family->marriage, Proof::Marriage);
    return marks;
}

bool hasMarried(const Person& person)
{
    return std::ranges::any_of(person.unions, [](const Membership* row) {
        return row->family && (row->family->marriage.isKnown() || isMarried(*row->family));
    });
}

bool diedAsAChild(const Person& person)
{
    if (person.birth.isKnown()) return completedYears(person.birth, person.death) < endOfChildhood;
    return person.ageAtDeath ? *person.ageAtDeath < endOfChildhood : person.minor.value_or(false);
}

bool isPosthumousOf(const Person* parent, const Person& child, const Family& family)
{
    return parent == family.husband && child.filiation == parish::filiation::posthumous;
}

Mark lastOfChildren(const Person& parent, const Family& family, const Home& home)
{
    Mark mark;
    for (const Person* child : family.children)
        if (!isPosthumousOf(&parent, *child, family)) takeLater(mark, lastOfChild(*child, home));
    return mark;
}

Mark lastOfChildren(const Person& parent, const Home& home)
{
    Mark mark;
    for (const Membership* row : parent.unions)
        if (row->family) takeLater(mark, lastOfChildren(parent, *row->family, home));
    return mark;
}

} // namespace study::observation
