#include "study/indicators/widowhood.h"

#include "study/indicators/marriages.h"
#include "study/indicators/scope.h"
#include "study/observation/limits.h"

#include <algorithm>

namespace study::indicators {

using observation::Union;
using parish::Date;
using parish::Family;
using parish::Gender;
using parish::Person;

namespace {

constexpr int yearsOfADependent = 15;

bool isDependent(const Person& child, const Date& at)
{
    if (!child.birth.isKnown() || child.birth.middle() > at.middle()) return false;
    if (child.death.isKnown() && child.death.middle() <= at.middle()) return false;
    return completedYears(child.birth, at) < yearsOfADependent;
}

// The other of the two, where the end is the death of just one.
const Person* survivorOf(const Union& union_)
{
    const Person* const husband = union_.family->husband;
    const Person* const wife = union_.family->wife;
    const bool his = husband->death == union_.end, hers = wife->death == union_.end;
    if (his == hers) return nullptr;
    return his ? wife : husband;
}

struct Next
{
    const Family* family = nullptr; // with a date
    bool isUndated = false;         // there is another union, and it may be the next one
};

Next nextOf(const Person& survivor, const Union& union_)
{
    Next next;
    for (const parish::Membership* row : survivor.unions) {
        const Family* const family = row->family;
        if (!family || family == union_.family || !isMarriage(*family)) continue;
        const Date& day = family->marriage;
        if (!day.isKnown())
            next.isUndated = true;
        else if (day.middle() >= union_.end.middle() && !next.family)
            next.family = family;
    }
    return next;
}

// A limit that was typed holds for the next marriage too.
void observe(Widowhood& widowhood, const Family* next, const Study& study)
{
    const Person& survivor = *widowhood.survivor;
    const Date first = observation::typedFrom(survivor), last = observation::typedUntil(survivor);
    widowhood.from = first.isKnown() && first.middle() > widowhood.end.middle() ? first : widowhood.end;
    widowhood.until = next ? next->marriage : study.presenceOf(survivor).aliveUntil.day;
    widowhood.next = next;
    if (last.isKnown() && widowhood.until.isKnown() && last.middle() < widowhood.until.middle()) {
        widowhood.until = last;
        widowhood.next = nullptr;
    }
    widowhood.marries = widowhood.next != nullptr;
}

NoWidowhood whyNot(const Union& of, const Study& study)
{
    if (!of.isUnion()) return NoWidowhood::NoUnion;
    if (!of.isClosed()) return NoWidowhood::OpenUnion;
    return study.settings.period.holds(of.end.year()) ? NoWidowhood::None : NoWidowhood::OutOfPeriod;
}

} // namespace

Widowhood widowhoodOf(const Union& of, const Study& study)
{
    Widowhood widowhood;
    const auto none = [&widowhood](NoWidowhood why) {
        widowhood.why = why;
        return widowhood;
    };
    if (const NoWidowhood why = whyNot(of, study); why != NoWidowhood::None) return none(why);
    widowhood.end = of.end;
    widowhood.survivor = survivorOf(of);
    const Person* const survivor = widowhood.survivor;
    if (!survivor || survivor->gender == Gender::Undetermined) return none(NoWidowhood::NoSurvivor);
    if (!isWanted(survivor->gender, study.settings)) return none(NoWidowhood::NotAsked);
    const Next next = nextOf(*survivor, of);
    if (next.isUndated && !next.family) return none(NoWidowhood::UndatedMarriage);
    observe(widowhood, next.family, study);
    if (!widowhood.until.isKnown() || widowhood.until.middle() < widowhood.from.middle())
        return none(NoWidowhood::NotSeen);
    return widowhood;
}

int dependentsOf(const Family& family, const Date& at)
{
    return static_cast<int>(std::count_if(family.children.begin(), family.children.end(),
                                          [&at](const Person* child) { return isDependent(*child, at); }));
}

} // namespace study::indicators
