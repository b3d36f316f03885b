// What doesn't change of people and families.
#include "study/exchange/episodes_p.h"
#include "study/indicators/marriages.h"
#include "study/indicators/marriedLife.h"
#include "study/indicators/natality.h"

#include <algorithm>

namespace study::exchange {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

void addPlace(const parish::Place& place, const parish::Catalogue& catalogue, EpisodeFile& file)
{
    if (!place.isKnown()) {
        file.none();
        file.none();
        return;
    }
    file.text((place.level.isNull() ? QString() : QString(place.level)) + place.code);
    file.text(catalogue.name(place));
}

void addDated(const Date& date, EpisodeFile& file)
{
    file.dateAndYear(date);
    file.raw(word::of(date.precision));
}

void addMark(const observation::Mark& mark, EpisodeFile& file)
{
    file.dateAndYear(mark.day);
    file.raw(word::of(mark.by));
}

// The first profession that is told.
void addProfession(const Person& person, const parish::Catalogue& catalogue, EpisodeFile& file)
{
    const auto told = std::ranges::find_if(person.professions, [](const auto& row) { return row.code.has_value(); });
    const int code = told != person.professions.end() ? told->code.value_or(0) : 0;
    file.text(catalogue.professions.value(code));
    file.text(catalogue.hisco.value(code));
}

std::optional<qint64> highestSignature(const Person& person)
{
    std::optional<qint64> highest;
    for (const parish::Signature& row : person.signatures)
        if (row.level && (!highest || *row.level > *highest)) highest = *row.level;
    return highest;
}

std::optional<bool> isFirst(const indicators::Spouse& spouse, const Family& family)
{
    if (!spouse.isKnown()) return {};
    const indicators::Rank rank = indicators::rankOf(spouse, family);
    if (rank == indicators::Rank::Unknown) return {};
    return rank == indicators::Rank::First;
}

// An age by dates.
void addAge(const Person* person, const Date& at, EpisodeFile& file)
{
    file.age(person ? person->birth : Date(), at);
}

} // namespace

void writePerson(const Person& person, const EpisodeSource& source, EpisodeFile& file)
{
    const parish::Catalogue& catalogue = source.study.parish.catalogue();
    const observation::Presence& presence = source.study.presenceOf(person);
    file.person(&person);
    file.raw(word::of(person.gender));
    addDated(person.birth, file);
    addPlace(person.birthPlace, catalogue, file);
    addDated(person.death, file);
    addPlace(person.deathPlace, catalogue, file);
    file.family(person.origin);
    file.person(person.mother());
    file.person(person.father());
    file.raw(word::of(indicators::legitimacyOf(person, source.study.settings)));
    addMark(presence.from, file);
    addMark(presence.until, file);
    file.dateAndYear(presence.aliveUntil.day);
    addProfession(person, catalogue, file);
    file.number(highestSignature(person));
    file.endRow();
}

void writeFamily(const observation::Union& of, const EpisodeSource& source, EpisodeFile& file)
{
    const Family& family = *of.family;
    if (source.withheld.hides(&family)) return;
    const auto isWritten = [&](const Person* child) { return !source.withheld.hides(child); };
    const auto isDated = [&](const Person* child) { return isWritten(child) && child->birth.isKnown(); };
    file.family(&family);
    file.person(family.husband);
    file.person(family.wife);
    addDated(family.marriage, file);
    addPlace(family.place, source.study.parish.catalogue(), file);
    if (family.marriage.isKnown())
        file.number(indicators::periodOf(family.marriage.middle().year(), source.study.settings));
    else
        file.none();
    addAge(family.husband, family.marriage, file);
    addAge(family.wife, family.marriage, file);
    file.flag(isFirst(indicators::husbandIn(family), family));
    file.flag(isFirst(indicators::wifeIn(family), family));
    file.text(observation::className(of));
    file.number(of.computedType);
    file.dateAndYear(of.end);
    file.raw(word::of(of.endBy));
    file.text(observation::told(of.openBy));
    file.dateAndYear(of.wifeBirth);
    file.raw(word::of(of.wifeBirthBy));
    file.number(std::ranges::count_if(family.children, isWritten));
    file.number(std::ranges::count_if(family.children, isDated));
    file.endRow();
}

} // namespace study::exchange
