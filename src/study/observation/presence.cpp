#include "study/observation/presence.h"

#include "study/observation/limits.h"
#include "study/observation/marks.h"
#include "study/parish/locality.h"

#include <algorithm>
#include <array>

namespace study::observation {

using parish::Date;
using parish::Family;
using parish::Home;
using parish::Membership;
using parish::Person;

namespace {

// Couples.

// What shows a husband and a wife at once, and is no birth of theirs.
Mark seenTogether(const Family& family, const Home& home)
{
    Mark mark;
    for (const Person* child : family.children)
        if (diedHere(*child, home) && diedAsAChild(*child)) takeLater(mark, child->death, Proof::ChildBuried);
    takeLater(mark, exactly(family.observedUntil), Proof::Researcher);
    return mark;
}

// The family of a child.

std::vector<const Person*> parentsOf(const Family& family)
{
    std::vector<const Person*> parents;
    for (const Person* one : {family.husband, family.wife})
        if (one) parents.push_back(one);
    return parents;
}

// A marriage of a brother or a sister shows the parents here where they are said to live here then.
void takeMarriages(Mark& mark, const Person& sibling, const std::vector<const Person*>& parents, const Home& home)
{
    for (const Membership* row : sibling.unions) {
        if (!row->family || !row->family->marriage.isKnown() || !isLocal(row->family->place, home)) continue;
        const Date& day = row->family->marriage;
        if (mark.day.isKnown() && !isBefore(mark.day, day)) continue;
        const auto isResident = [&](const Person* parent) { return Residences(*parent, home).isResident(day); };
        if (std::ranges::any_of(parents, isResident)) mark = {day, Proof::Sibling};
    }
}

void takeSiblings(Mark& mark, const Person& child, const std::vector<const Person*>& parents, const Home& home)
{
    for (const Person* sibling : child.origin->children) {
        if (sibling == &child) continue;
        if (isBornHere(*sibling, home)) takeLater(mark, sibling->birth, Proof::Sibling);
        if (diedHere(*sibling, home) && !hasMarried(*sibling)) takeLater(mark, sibling->death, Proof::Sibling);
        takeMarriages(mark, *sibling, parents, home);
    }
}

// A parent's own rows, and the children of other unions.
Mark lastOfParent(const Person& parent, const Family& family, const Home& home, DaysApart apart)
{
    if (diedHere(parent, home)) return {parent.death, Proof::Death};
    const OwnMarks own = ownMarks(parent, home, apart);
    Mark mark = own.lived;
    takeLater(mark, own.marriage);
    for (const Membership* row : parent.unions)
        if (row->family && row->family != &family)
            takeLater(mark, lastOfChildren(parent, *row->family, home).day, Proof::Sibling);
    takeLater(mark, typedUntil(parent), Proof::Researcher);
    return mark;
}

// No home is left behind the last death of the parents; unknown where not all are known.
Date endOfHome(const std::vector<const Person*>& parents)
{
    Date end;
    for (const Person* parent : parents) {
        if (!parent->death.isKnown()) return {};
        if (!end.isKnown() || isBefore(end, parent->death)) end = parent->death;
    }
    return end;
}

Mark lastOfFamily(const Person& child, const Union& its, const Home& home)
{
    const Family& family = *its.family;
    const auto parents = parentsOf(family);
    if (parents.empty()) return {};
    const std::array<qint32, 1> burial{child.death.day};
    const DaysApart apart = child.death.isKnown() ? DaysApart(burial) : DaysApart();
    Mark mark;
    for (const Person* parent : parents)
        takeLater(mark, lastOfParent(*parent, family, home, apart));
    takeLater(mark, exactly(family.observedUntil), Proof::Researcher);
    const Date end = endOfHome(parents);
    if (!end.isKnown() || mark.day != end) takeSiblings(mark, child, parents, home);
    if (end.isKnown() && mark.day.isKnown() && isBefore(end, mark.day)) mark = {end, Proof::Death};
    if (its.isClosed() && mark.by == Proof::Death && mark.day == its.end) mark.by = Proof::Spouse;
    return mark;
}

// People.

class Observer
{
public:
    Observer(const parish::Snapshot& parish, const std::vector<Union>& unions)
        : parish_(parish), home_(parish.home()), unions_(unions)
    {
    }

    Presence presence(const Person& person) const
    {
        const Mark death{person.death, Proof::Death};
        Presence presence;
        if (isBornHere(person, home_) && diedHere(person, home_)) { // most people: no other row is asked
            presence = {{person.birth, Proof::Birth}, death, death};
        } else {
            const OwnMarks own = ownMarks(person, home_);
            const Mark children = lastOfChildren(person, home_);
            presence.aliveUntil = person.death.isKnown() ? death : lastAlive(person, own, children);
            presence.from = begin(person, own);
            if (presence.from.day.isKnown()) presence.until = end(person, own, children, presence.from);
        }
        if (presence.isObserved()) restrict(presence, person);
        return presence;
    }

    Mark familyEnd(const Person& child) const
    {
        if (!child.origin) return {};
        const auto place = static_cast<std::size_t>(child.origin - parish_.families().data());
        const Mark mark = lastOfFamily(child, unions_[place], home_);
        const bool proves = mark.day.isKnown() && !(child.birth.isKnown() && isBefore(mark.day, child.birth));
        return proves ? mark : Mark();
    }

private:
    Mark begin(const Person& person, const OwnMarks& own) const
    {
        if (isBornHere(person, home_)) return {person.birth, Proof::Birth};
        Mark mark = own.firstResidence;
        for (const Membership* row : person.unions)
            if (row->family && isLocal(row->family->place, home_) && livesHere(*row->family))
                takeEarlier(mark, {row->family->marriage, Proof::Marriage});
        return mark;
    }

    // Whether a couple stayed where it was married: an act behind the marriage shows one of them, or a child.
    bool livesHere(const Family& family) const
    {
        const Date& marriage = family.marriage;
        const auto shows = [&](const Mark& mark) { return mark.day.isKnown() && isBefore(marriage, mark.day); };
        const auto isShown = [&](const Person* one) {
            return (diedHere(*one, home_) && isBefore(marriage, one->death)) ||
                   shows(lastOfChildren(*one, family, home_)) || shows(ownMarks(*one, home_).lived) ||
                   Residences(*one, home_).isResident(marriage);
        };
        return marriage.isKnown() && std::ranges::any_of(parentsOf(family), isShown);
    }

    Mark end(const Person& person, const OwnMarks& own, const Mark& children, const Mark& from) const
    {
        if (diedHere(person, home_)) return {person.death, Proof::Death};
        Mark mark = from;
        takeLater(mark, own.lived);
        takeLater(mark, own.marriage);
        takeLater(mark, children);
        if (from.by == Proof::Birth && isBefore(mark.day, childhoodEnd(person))) mark = endOfAChild(person, from);
        if (person.death.isKnown() && isBefore(person.death, mark.day)) mark = {person.death, mark.by};
        return mark;
    }

    static Date childhoodEnd(const Person& person) { return exactly(birthday(person.birth, endOfChildhood)); }

    // A child is seen as long as its family is, and leaves it as it grows up.
    Mark endOfAChild(const Person& person, const Mark& birth) const
    {
        Mark mark = familyEnd(person);
        if (!mark.day.isKnown()) return birth;
        const Date grown = childhoodEnd(person);
        return {isBefore(grown, mark.day) ? grown : mark.day, Proof::Parents};
    }

    static Mark lastAlive(const Person& person, const OwnMarks& own, const Mark& children)
    {
        Mark mark{person.birth, person.birth.isKnown() ? Proof::Birth : Proof::None};
        takeLater(mark, own.lived);
        takeLater(mark, children);
        takeLater(mark, lastOf(person.residences, Proof::Residence));
        if (!person.assisted.empty()) takeLater(mark, person.assisted.back()->date, Proof::Assistance);
        for (const Membership* row : person.unions)
            if (row->family) takeLater(mark, lifeInFamily(person, *row->family));
        return mark;
    }

    // Marriage and children, wherever.
    static Mark lifeInFamily(const Person& person, const Family& family)
    {
        Mark mark;
        takeLater(mark, family.marriage, Proof::Marriage);
        for (const Person* child : family.children)
            if (!isPosthumousOf(&person, *child, family)) takeLater(mark, child->birth, Proof::ChildBorn);
        return mark;
    }

    static void restrict(Presence& presence, const Person& person)
    {
        const Date from = typedFrom(person);
        const Date until = typedUntil(person);
        if (from.isKnown() && isBefore(presence.from.day, from)) presence.from = {from, Proof::Researcher};
        if (until.isKnown() && isBefore(until, presence.until.day)) presence.until = {until, Proof::Researcher};
        if (isBefore(presence.until.day, presence.from.day)) presence.from = presence.until = {};
    }

    const parish::Snapshot& parish_;
    const Home& home_;
    const std::vector<Union>& unions_;
};

} // namespace

std::vector<Presence> presencesOf(const parish::Snapshot& parish, const std::vector<Union>& unions,
                                  const parish::Snapshot::GoesOn& goesOn)
{
    static constexpr std::size_t peopleBetweenQuestions = 4096;
    const Observer observer(parish, unions);
    std::vector<Presence> presences;
    const auto people = parish.people();
    presences.reserve(people.size());
    for (const Person& person : people) {
        if (goesOn && presences.size() % peopleBetweenQuestions == 0 &&
            !goesOn(static_cast<double>(presences.size()) / static_cast<double>(people.size())))
            throw parish::Snapshot::Interrupted{};
        presences.push_back(observer.presence(person));
    }
    return presences;
}

Mark familyEndFor(const Person& child, const parish::Snapshot& parish, const std::vector<Union>& unions)
{
    return Observer(parish, unions).familyEnd(child);
}

Mark coupleSeenUntil(const Union& of, const parish::Snapshot& parish)
{
    if (!of.isUnion() || of.isClosed() || of.isContradictory() || !of.marriage.isKnown()) return {};
    const Family& family = *of.family;
    const Mark both = seenTogether(family, parish.home());
    std::vector<qint32> births;
    for (const Person* child : family.children)
        if (child->birth.isKnown()) births.push_back(child->birth.day);
    Mark couple;
    for (const Person* one : {family.husband, family.wife}) {
        Mark mark = ownMarks(*one, parish.home(), births).lived;
        takeLater(mark, both);
        if (diedHere(*one, parish.home())) takeLater(mark, one->death, Proof::Death);
        if (!mark.day.isKnown()) return {};
        takeEarlier(couple, mark);
    }
    for (const Person* one : {family.husband, family.wife})
        takeEarlier(couple, {one->death, Proof::Death});
    takeEarlier(couple, {of.endBound, Proof::Spouse});
    return isBefore(of.marriage, couple.day) ? couple : Mark();
}

QString told(Proof proof)
{
    switch (proof) {
    case Proof::None:
        return {};
    case Proof::Birth:
        return "nascimento";
    case Proof::Marriage:
        return "casamento";
    case Proof::ChildBorn:
        return "nascimento de um filho";
    case Proof::ChildBuried:
        return "óbito de um filho";
    case Proof::Residence:
        return "residência";
    case Proof::Profession:
        return "profissão";
    case Proof::Signature:
        return "assinatura";
    case Proof::Assistance:
        return "assistência a um acto";
    case Proof::Passport:
        return "passaporte";
    case Proof::Death:
        return "óbito";
    case Proof::Parents:
        return "presença dos pais";
    case Proof::Spouse:
        return "primeiro óbito do casal";
    case Proof::Sibling:
        return "acto de um irmão";
    case Proof::Researcher:
        return "limite escrito na ficha";
    }
    return {};
}

} // namespace study::observation
