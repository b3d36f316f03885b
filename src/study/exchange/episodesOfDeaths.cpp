// Episodes of children and of the married, until they die.
#include "study/exchange/episodes_p.h"
#include "study/indicators/adultMortality_p.h"
#include "study/indicators/childhood.h"
#include "study/indicators/confinements.h"
#include "study/indicators/marriages.h"
#include "study/indicators/natality.h"

#include <algorithm>
#include <iterator>

namespace study::exchange {

using indicators::AdultLife;
using indicators::Childhood;
using indicators::End;
using indicators::Estimate;
using parish::Date;
using parish::Person;

namespace {

constexpr int endOfChildhood = 15;

// Children

Date endOf(const Childhood& life, const Person& child, const indicators::Study& study)
{
    if (life.died) return child.death;
    const Date birthday = indicators::natality::anniversary(child.birth, endOfChildhood);
    const Date seen = indicators::seenUntil(child, study);
    return seen.middle() < birthday.middle() ? seen : birthday;
}

bool isTwin(const Person& child)
{
    if (!child.origin) return false;
    for (const indicators::Confinement& one : indicators::confinementsOf(*child.origin))
        if (std::ranges::find(one.children, &child) != one.children.end()) return one.isOfTwins();
    return false;
}

// By the births of the couple that have a date.
std::optional<qint64> orderOf(const Person& child)
{
    if (!child.origin) return {};
    const auto& all = child.origin->children;
    return 1 + std::distance(all.begin(), std::ranges::find(all, &child));
}

const char* toldOf(indicators::Unwatched why)
{
    static constexpr auto reasons = indicators::reasonsFrom(0);
    return reasons[indicators::reasonOf(why, 0)].told;
}

// The married

struct Standing
{
    Date from = {};
    bool isWidowed = false;
};

// From the first marriage on, as far as dates tell it.
std::vector<Standing> standingsOf(const Person& person, const indicators::Study& study)
{
    std::vector<Standing> all;
    for (const parish::Membership* row : person.unions) {
        if (!row->family || !indicators::isMarriage(*row->family) || !row->family->marriage.isKnown()) continue;
        all.push_back({row->family->marriage, false});
        const Person* spouse = parish::spouseOf(person, *row->family);
        const observation::Union& union_ = study.unionOf(*row->family);
        if (union_.isClosed() && spouse && spouse->death == union_.end) all.push_back({union_.end, true});
    }
    std::ranges::stable_sort(
        all, [](const Standing& one, const Standing& other) { return one.from.middle() < other.from.middle(); });
    return all;
}

bool isWidowed(const std::vector<Standing>& standings, const Date& at)
{
    bool widowed = false;
    for (const Standing& one : standings)
        if (one.from.middle() <= at.middle()) widowed = one.isWidowed;
    return widowed;
}

// Precondition: neither None nor NotAsked.
const char* toldOf(indicators::NoAdult why)
{
    const int place = static_cast<int>(why) - static_cast<int>(indicators::NoAdult::Sexless);
    return indicators::adult_counts::reasons[static_cast<std::size_t>(place)].told;
}

} // namespace

void writeChildhood(const Person& person, const EpisodeSource& source, EpisodeFile& file)
{
    const indicators::Study& study = source.study;
    const Childhood life = indicators::childhoodOf(person, study);
    if (life.why == indicators::Unwatched::NotAsked) return;
    if (!life.isWatched()) return file.leaveOut(toldOf(life.why));
    const Date end = endOf(life, person, study);
    const bool isAge = !life.died && life.until == indicators::endOfChildhood;
    const std::optional<qint64> order = orderOf(person);
    const bool isOfTwins = isTwin(person);
    int number = 0;
    for (const Spell& spell : spellsOf({person.birth}, end, life.died, deathsOfParents(person))) {
        file.person(&person);
        file.family(person.origin);
        file.person(person.mother());
        file.person(person.father());
        file.raw(word::of(person.gender));
        file.dateAndYear(person.birth);
        file.number(indicators::periodOf(person.birth.middle().year(), study.settings));
        file.raw(word::of(life.legitimacy));
        file.age(person.mother() ? person.mother()->birth : Date(), person.birth);
        file.number(order);
        file.flag(isOfTwins);
        file.days(++number, spell);
        file.risk(person.birth, spell);
        file.flag(isDead(person.mother(), spell.from.day));
        file.flag(isDead(person.father(), spell.from.day));
        file.raw(life.died ? "death" : isAge ? "age" : "unseen");
        file.flag(!life.exact);
        file.endRow();
    }
}

void writeAdulthood(const Person& person, const EpisodeSource& source, EpisodeFile& file)
{
    const indicators::Study& study = source.study;
    const AdultLife life = indicators::adultLifeOf(person, study);
    if (life.why == indicators::NoAdult::NotAsked) return;
    if (life.why != indicators::NoAdult::None) return file.leaveOut(toldOf(life.why));
    const End& end = life.ends[static_cast<std::size_t>(Estimate::Censored)];
    const std::vector<Standing> standings = standingsOf(person, study);
    std::vector<Date> cuts;
    cuts.reserve(standings.size());
    for (const Standing& one : standings)
        cuts.push_back(one.from);
    int number = 0;
    for (const Spell& spell : spellsOf({life.from}, end.day, end.dies, cuts)) {
        file.person(&person);
        file.family(life.family);
        file.person(parish::spouseOf(person, *life.family));
        file.raw(word::of(person.gender));
        file.dateAndYear(life.birth);
        file.dateAndYear(life.marriage);
        file.number(indicators::periodOf(life.marriage.middle().year(), study.settings));
        file.days(++number, spell);
        file.risk(life.birth, spell);
        file.raw(isWidowed(standings, spell.from.day) ? "widowed" : "married");
        file.flag(!life.birth.isExact() || !life.marriage.isExact() || (end.dies && !end.day.isExact()));
        file.endRow();
    }
}

void writeBounds(const Person& person, const EpisodeSource& source, EpisodeFile& file)
{
    const AdultLife life = indicators::adultLifeOf(person, source.study);
    if (life.why != indicators::NoAdult::None) return;
    for (const auto& [estimate, name] :
         {std::pair{Estimate::Closed, "closed"}, {Estimate::Least, "least"}, {Estimate::Most, "most"}})
    {
        const End& end = life.ends[static_cast<std::size_t>(estimate)];
        if (!end.day.isKnown()) continue;
        for (const Spell& spell : spellsOf({life.from}, end.day, end.dies)) {
            file.person(&person);
            file.raw(name);
            file.family(life.family);
            file.raw(word::of(person.gender));
            file.dateAndYear(life.birth);
            file.number(indicators::periodOf(life.marriage.middle().year(), source.study.settings));
            file.between(spell.from.day, spell.until.day);
            file.risk(life.birth, spell);
            file.endRow();
        }
    }
}

} // namespace study::exchange
