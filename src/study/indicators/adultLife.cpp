#include "study/indicators/adultLife.h"

#include "study/indicators/scope.h"
#include "study/observation/limits.h"
#include "study/parish/codes.h"

namespace study::indicators {

using parish::Date;
using parish::Family;
using parish::Membership;
using parish::Person;

namespace {

// The marriages stand by date, the undated ones first.
const Family* firstMarriage(const Person& person)
{
    for (const Membership* row : person.unions)
        if (row->family && row->family->marriage.isKnown()) return row->family;
    return nullptr;
}

void takeEarlier(Date& found, const Date& other, const Date& notBefore)
{
    if (!other.isKnown() || other.middle() < notBefore.middle()) return;
    if (!found.isKnown() || other.middle() < found.middle()) found = other;
}

// A widow or widower of this person, as later acts call the one who is left.
void takeWidowhood(Date& found, const Person& spouse, const Family& family, const Date& alive)
{
    Date next; // the spouse's next marriage: what is told behind it is about another one
    for (const Membership* row : spouse.unions)
        if (row->family && row->family != &family && row->family->marriage.isKnown() && family.marriage.isKnown() &&
            row->family->marriage.middle() > family.marriage.middle())
            takeEarlier(next, row->family->marriage, family.marriage);
    const auto isOfThisUnion = [&](const Date& day) {
        return day.isKnown() && (!next.isKnown() || day.middle() <= next.middle());
    };
    takeEarlier(found, next, alive);
    for (const parish::Assistance* act : spouse.assisted)
        if (act->state == parish::civil::widowed && isOfThisUnion(act->date)) takeEarlier(found, act->date, alive);
    if (spouse.stateAtDeath == parish::civil::widowed && isOfThisUnion(spouse.death))
        takeEarlier(found, spouse.death, alive);
}

// The first act behind the last proof of life that tells of somebody as dead.
Date toldDead(const Person& person, const Date& alive)
{
    Date found;
    for (const Membership* row : person.unions) {
        if (!row->family) continue;
        if (const Person* spouse = parish::spouseOf(person, *row->family))
            takeWidowhood(found, *spouse, *row->family, alive);
        const bool isHusband = &person == row->family->husband;
        for (const Person* child : row->family->children) {
            const parish::Code left = isHusband ? child->motherState : child->fatherState;
            if (left == parish::civil::widowed) takeEarlier(found, child->birth, alive);
            for (const parish::Assistance* act : child->assisted)
                if ((isHusband ? act->fatherDead : act->motherDead) == true) takeEarlier(found, act->date, alive);
        }
    }
    return found;
}

// Limits.

// The first day, up to another one, on which a death wouldn't stand in the books.
Date endOfBooks(const Date& from, const Date& until, const Settings& settings)
{
    for (int year = from.middle().year(); year <= until.middle().year(); ++year)
        if (!settings.covers(Series::Burials, year)) return parish::dateOf(QDate(year, 1, 1), true);
    return {};
}

void leaveAt(End& end, const Date& limit, const Date& from)
{
    if (!limit.isKnown() || end.day.middle() <= limit.middle()) return;
    end = {limit.middle() < from.middle() ? from : limit, false};
}

void keepWithinLimits(End& end, const AdultLife& life, const Person& person, const Settings& settings)
{
    if (!end.day.isKnown()) return;
    leaveAt(end, observation::typedUntil(person), life.from);
    leaveAt(end, endOfBooks(life.from, end.day, settings), life.from);
    if (end.day.middle() < life.from.middle()) end = {life.from, false};
}

std::array<End, 4> endsOf(const Person& person, const Family& family, const Study& study)
{
    const observation::Union& union_ = study.unionOf(family);
    const observation::Presence& presence = study.presenceOf(person);
    std::array<End, 4> ends;
    End& least = ends[static_cast<std::size_t>(Estimate::Least)];
    End& most = ends[static_cast<std::size_t>(Estimate::Most)];
    End& censored = ends[static_cast<std::size_t>(Estimate::Censored)];
    if (union_.isClosed())
        ends[static_cast<std::size_t>(Estimate::Closed)] = {
            union_.end, person.death.isKnown() && person.death.middle() == union_.end.middle()};
    if (person.death.isKnown()) {
        least = most = censored = {person.death, true};
        // A death elsewhere is known only because somebody told of it: time is seen up to the last act here.
        if (!isHere(person.deathPlace, study)) {
            const Date& seen = presence.until.day;
            censored = {seen.isKnown() && seen.middle() > family.marriage.middle() ? seen : family.marriage, false};
        }
        return ends;
    }
    const Date& proof = presence.aliveUntil.day;
    const Date alive = proof.isKnown() && proof.middle() > family.marriage.middle() ? proof : family.marriage;
    const Date dead = toldDead(person, alive);
    least = dead.isKnown() ? End{dead, true} : End{alive, false};
    most = {alive, true};
    censored = {alive, false};
    return ends;
}

NoAdult whyNot(const Person& person, const AdultLife& life, const Study& study)
{
    const Settings& settings = study.settings;
    const int year = life.marriage.middle().year(), begins = life.from.middle().year();
    if (!settings.period.holds(year) || !isWanted(person.gender, settings)) return NoAdult::NotAsked;
    if (person.gender == parish::Gender::Undetermined) return NoAdult::Sexless;
    if (!isHere(life.family->place, study)) return NoAdult::Elsewhere;
    if (!settings.covers(Series::Marriages, year) || !settings.covers(Series::Burials, begins))
        return NoAdult::OutOfBooks;
    if (!life.birth.isKnown()) return NoAdult::NoBirth;
    const bool wrong = life.birth.middle() >= life.marriage.middle() ||
                       (person.death.isKnown() && person.death.middle() < life.marriage.middle()) ||
                       study.unionOf(*life.family).isContradictory();
    return wrong ? NoAdult::Contradiction : NoAdult::None;
}

} // namespace

AdultLife adultLifeOf(const Person& person, const Study& study)
{
    AdultLife life;
    life.family = firstMarriage(person);
    if (!life.family) return life;
    life.marriage = life.family->marriage;
    const Date typed = observation::typedFrom(person);
    life.from = typed.isKnown() && typed.middle() > life.marriage.middle() ? typed : life.marriage;
    life.birth = person.birth;
    if (!life.birth.isKnown() && study.settings.derivedBirths && life.family->wife == &person)
        life.birth = study.unionOf(*life.family).wifeBirth;
    life.why = whyNot(person, life, study);
    if (life.why != NoAdult::None) return life;
    life.ends = endsOf(person, *life.family, study);
    for (End& end : life.ends)
        keepWithinLimits(end, life, person, study.settings);
    return life;
}

} // namespace study::indicators
