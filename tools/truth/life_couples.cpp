#include "life.h"

#include <algorithm>
#include <utility>

namespace truth {

namespace {

constexpr int triesForAGroom = 40;
constexpr double deathInChildbirth = 0.008;
constexpr double childOfASingleMother = 0.005; // a year

// Of a hundred single women of this age, how many marry within the year.
int marriagesAt(int age)
{
    return age < 20 ? 3 : age < 25 ? 11 : age < 30 ? 17 : age < 35 ? 11 : age < 45 ? 4 : 1;
}

} // namespace

void Life::marryAll()
{
    const std::vector<PersonId> candidates = single_;
    for (const PersonId id : candidates) {
        const Person& bride = person(id);
        if (bride.male || bride.foundling || bride.death <= QDate(year_, 1, 1)) continue;
        const bool isWidow = !bride.unions.empty();
        const bool neverMarries = id % 100 < static_cast<int>(rates_.celibacy * 100);
        if (!isWidow && (neverMarries || !random_.chance(marriagesAt(year_ - bride.birth.year())))) continue;
        const QDate day = dayOf(year_);
        if (!bride.livesHere(day)) continue;
        const bool isOutsider = happens(random_, rates_.outsiders);
        const int age = std::max(19, year_ - bride.birth.year() + random_.between(-4, 9));
        const PersonId groom = isOutsider ? grown(true, age, day) : groomFor(person(id), day);
        if (groom != 0) wed(groom, id, day, true);
    }
}

PersonId Life::groomFor(const Person& bride, QDate day)
{
    for (int tries = 0; tries < triesForAGroom; ++tries) {
        const auto at = static_cast<std::size_t>(random_.between(0, static_cast<int>(single_.size()) - 1));
        const Person& man = person(single_[at]);
        const int older = yearsBetween(man.birth, day) - yearsBetween(bride.birth, day);
        if (!man.male || !man.livesHere(day) || yearsBetween(man.birth, day) < 18) continue;
        if (older < -7 || older > 14 || (man.origin != 0 && man.origin == bride.origin)) continue;
        const PersonId id = man.id;
        single_[at] = single_.back();
        single_.pop_back();
        return id;
    }
    return 0;
}

void Life::wed(PersonId husband, PersonId wife, QDate day, bool here)
{
    const CoupleId id = newCouple(husband, wife, day).id;
    couple(id).weddedHere = here;
    const int home =
        random_.chance(60) && person(wife).locality != 0 ? person(wife).locality : person(husband).locality;
    couple(id).locality = home != 0 ? home : random_.between(1, world_.localities);
    for (const PersonId one : {husband, wife}) {
        person(one).locality = couple(id).locality;
        person(one).until = person(one).death; // who would have gone away stays
    }
    planChildren(id, day.addDays(random_.chance(12) ? random_.between(60, 250) : random_.between(265, 700)),
                 leaving(couple(id)));
    planWidowhood(couple(id));
}

// The day from which the couple lives elsewhere; a day that is never reached where it stays.
QDate Life::leaving(const Couple& couple)
{
    const QDate begin = std::max(couple.wedding, person(couple.husband).from);
    const bool outsiderGoesHome = couple.weddedHere && !person(couple.husband).bornHere && random_.chance(30);
    if (outsiderGoesHome) return begin.addDays(1);
    if (!happens(random_, rates_.leavers)) return {lastYear + 200, 1, 1};
    return begin.addDays(random_.between(200, 20 * 365));
}

void Life::planChildren(CoupleId id, QDate first, QDate leaving)
{
    const PersonId husband = couple(id).husband, wife = couple(id).wife;
    const QDate last = person(wife).birth.addYears(random_.between(36, 45));
    QDate day = first;
    const bool isBarren = random_.chance(6);
    while (!isBarren && day < last && day < leaving && day < person(wife).death &&
           day < person(husband).death.addDays(250)) {
        const QDate nursed = planBirth(id, day);
        if (happens(random_, rates_.twins)) planBirth(id, day);
        if (happens(random_, deathInChildbirth)) {
            person(wife).death = person(wife).until = day.addDays(random_.between(0, 20));
            break;
        }
        day = std::max(nursed, day.addDays(60)).addDays(random_.between(320, 840));
    }
    for (const PersonId one : {husband, wife})
        if (leaving < person(one).death) person(one).until = leaving;
    for (const PersonId child : couple(id).children)
        person(child).until = std::max(person(child).from, std::min(person(child).until, leaving));
}

QDate Life::planBirth(CoupleId id, QDate day)
{
    Person& child = born(random_.chance(51), day);
    child.origin = id;
    child.locality = couple(id).locality;
    if (happens(random_, child.male ? rates_.emigrants : rates_.emigrants / 3)) {
        const QDate gone = day.addDays(random_.between(12 * 365, 30 * 365));
        if (gone < child.death) child.until = gone;
    }
    couple(id).children.push_back(child.id);
    births_[day.year()].push_back(child.id);
    constexpr int nursing = 300; // days
    return std::min(day.addDays(nursing), child.death);
}

void Life::planWidowhood(const Couple& couple)
{
    const Person& husband = person(couple.husband);
    const Person& wife = person(couple.wife);
    const Person& left = husband.death < wife.death ? wife : husband;
    const QDate since = std::min(husband.death, wife.death);
    const int age = yearsBetween(left.birth, since);
    const bool marries = left.male ? age < 60 && happens(random_, rates_.remarriedWidowers)
                                   : age < 42 && happens(random_, rates_.remarriedWidows);
    if (marries && left.until > since)
        widowed_[std::max(year_, since.year()) + random_.between(0, 2)].push_back(left.id);
}

void Life::childrenOutOfWedlock()
{
    const std::vector<PersonId> women = single_;
    for (const PersonId id : women) {
        if (person(id).male || year_ - person(id).birth.year() > 42 || !happens(random_, childOfASingleMother))
            continue;
        const QDate day = dayOf(year_);
        if (!person(id).livesHere(day) || !person(id).unions.empty()) continue;
        CoupleId& own = alone_[id];
        if (own == 0) own = newCouple(0, id, {}).id;
        person(id).unions.clear(); // she may marry yet
        couple(own).locality = person(id).locality;
        planBirth(own, day);
    }
    const auto births = static_cast<double>(births_[year_].size());
    for (double due = births * rates_.foundlings; happens(random_, std::min(due, 1.0)); due -= 1) {
        Person& child = born(random_.chance(50), dayOf(year_));
        child.foundling = true;
        child.locality = random_.between(1, world_.localities);
        births_[year_].push_back(child.id);
        if (due <= 1) break;
    }
}

} // namespace truth
