#include "study/indicators/childhood.h"

#include "study/indicators/deaths.h"
#include "study/indicators/scope.h"
#include "study/observation/limits.h"

#include <algorithm>

namespace study::indicators {

using parish::Date;

namespace {

// Two years between two dates of which one isn't exact tell nothing about the first year.
constexpr int doubtfulDays = 730;

// Those that October 1582 left out are none.
qint32 daysOf(const QDate& from, const QDate& until)
{
    return parish::daysBetween(parish::dateOf(from, true), parish::dateOf(until, true));
}

bool isDoubtful(const parish::Person& child)
{
    if (!child.death.isKnown() || (child.birth.isExact() && child.death.isExact())) return false;
    return daysOf(child.birth.middle(), child.death.middle()) < doubtfulDays;
}

// The first day that no book of burials covers, a child's book up to seven years; nothing where they go on.
Date endOfBooks(const Date& birth, const Settings& settings)
{
    const int born = birth.middle().year();
    for (int age = 0; age <= 15; ++age)
        if (!settings.covers(age <= endOfInnocence ? Series::ChildBurials : Series::Burials, born + age))
            return parish::dateOf(QDate(born + age, 1, 1), true);
    return {};
}

// The first known marriage of the child itself.
Date ownMarriage(const parish::Person& child)
{
    Date first;
    for (const parish::Membership* union_ : child.unions)
        if (union_->family && union_->family->marriage.isKnown() &&
            (!first.isKnown() || union_->family->marriage.day < first.day))
            first = union_->family->marriage;
    return first;
}

void endAt(Date& end, const Date& other)
{
    if (other.isKnown() && other.middle() < end.middle()) end = other;
}

Unwatched whyNotAsked(const parish::Person& child, const Study& study, Legitimacy legitimacy)
{
    const Settings& settings = study.settings;
    if (!child.birth.isKnown()) {
        const bool young = child.death.isKnown() && settings.period.holds(child.death.middle().year()) &&
                           isWanted(child.gender, settings) && ageAtDeathOf(child).isYoung(15);
        return young ? Unwatched::DiedUnlinked : Unwatched::NotAsked;
    }
    const int year = child.birth.middle().year();
    if (!settings.period.holds(year) || !isWanted(child.gender, settings)) return Unwatched::NotAsked;
    if (!isHere(child.birthPlace, study)) return Unwatched::BornElsewhere;
    if (settings.which != Which::All && legitimacy == Legitimacy::Unknown) return Unwatched::UnknownFiliation;
    if (!isWanted(legitimacy, settings)) return Unwatched::NotAsked;
    if (!settings.covers(Series::Baptisms, year) || !settings.covers(Series::ChildBurials, year))
        return Unwatched::OutOfBooks;
    return Unwatched::Watched;
}

Unwatched whyUndated(const parish::Person& child)
{
    if (child.death.isKnown() && child.birth.isExact() && child.death.isExact() && child.death.day < child.birth.day)
        return Unwatched::DeathBeforeBirth;
    if (isDoubtful(child)) return Unwatched::Approximate;
    const Date typed = observation::typedFrom(child);
    const bool isLater = typed.isKnown() && typed.day > child.birth.day && typed.date() > child.birth.middle();
    return isLater ? Unwatched::ObservedLater : Unwatched::Watched;
}

} // namespace

qint32 ageInDays(const Date& birth, const Date& at)
{
    const QDate from = birth.middle();
    const QDate to = at.middle();
    const int years = parish::completedYears(birth, at);
    QDate last(from.year() + years, from.month(), from.day());
    if (!last.isValid()) last = QDate(from.year() + years, 3, 1);
    // The year that lost ten days has its birthdays as every other.
    return years * daysOfAnAge + std::min(daysOf(last, to), daysOfAnAge - 1);
}

Date seenUntil(const parish::Person& child, const Study& study)
{
    Date end = observation::familyEndFor(child, study.parish, study.unions).day;
    if (!end.isKnown()) return end;
    endAt(end, ownMarriage(child));
    endAt(end, endOfBooks(child.birth, study.settings));
    endAt(end, observation::typedUntil(child));
    return end;
}

Childhood childhoodOf(const parish::Person& child, const Study& study)
{
    Childhood life;
    life.legitimacy = legitimacyOf(child, study.settings);
    life.why = whyNotAsked(child, study, life.legitimacy);
    if (!life.isWatched()) return life;
    life.exact = child.birth.isExact() && (!child.death.isKnown() || child.death.isExact());
    life.why = whyUndated(child);
    if (life.why == Unwatched::DeathBeforeBirth || life.why == Unwatched::Approximate) return life;

    if (child.death.isKnown()) life.death = ageInDays(child.birth, child.death);
    if (!life.isWatched()) return life;
    const Date end = seenUntil(child, study);
    if (!end.isKnown() || end.middle() <= child.birth.middle()) {
        life.why = Unwatched::FamilyUnseen;
        return life;
    }
    life.seen = std::min(ageInDays(child.birth, end), endOfChildhood);
    life.died = life.death && *life.death <= life.seen && *life.death < endOfChildhood;
    life.until = life.died ? *life.death : life.seen;
    return life;
}

bool isTold(const Childhood& life, const parish::Person& child, quint16 firstReason, Taker& taker)
{
    if (!life.isWatched() && life.why != Unwatched::NotAsked)
        taker.count({reasonOf(life.why, firstReason)}, {&child, child.origin});
    return life.isWatched();
}

} // namespace study::indicators
