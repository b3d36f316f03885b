#include "study/indicators/adultMortality_p.h"
#include "study/indicators/childhood.h"
#include "study/indicators/exposure.h"
#include "study/indicators/mortality.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace adults {

using namespace adult_counts;
using At = Reading::At;

// Groups of five years from 20, and all from 80 on.
const Ages& adultAges()
{
    static const Ages ages = [] {
        Ages made = fiveYearAges(firstAge, lastAge);
        made.push_back(endOfAges);
        return made;
    }();
    return ages;
}

std::optional<Count> reasonOf(NoAdult why)
{
    switch (why) {
    case NoAdult::None:
    case NoAdult::NotAsked:
        break;
    case NoAdult::Sexless:
        return Sexless;
    case NoAdult::Elsewhere:
        return Elsewhere;
    case NoAdult::OutOfBooks:
        return OutOfBooks;
    case NoAdult::NoBirth:
        return NoBirth;
    case NoAdult::Contradiction:
        return Contradiction;
    }
    return {};
}

void countRates(const AdultLife& life, Estimate estimate, const End& end, const At& who, const Who& person,
                Taker& taker)
{
    const auto place = static_cast<qint32>(estimate);
    taker.count({Lives, {who[0], who[1], place}}, person);
    for (const Slice& slice : split({life.birth, life.from, end.day, end.dies}, adultAges()))
        taker.count({Years, {who[0], who[1], place, slice.age}}, person, slice.halfDays);
    const auto group = end.dies ? ageGroup(life.birth, end.day, adultAges()) : std::nullopt;
    if (group) taker.count({Deaths, {who[0], who[1], place, *group}}, person);
}

// Who isn't married at the exact age, or is observed only later, never enters: nobody comes into the group later.
void countFrom(const AdultLife& life, Estimate estimate, const End& end, const At& who, const Who& person, Taker& taker)
{
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const parish::Date entry = parish::dateOf(parish::birthday(life.birth, starts[i]), true);
        if (life.from.middle() > entry.date() || end.day.middle() < entry.date()) continue;
        const qint32 place = startPlace(estimate, i);
        taker.count({LivesFrom, {who[0], who[1], place}}, person);
        for (const Slice& slice : split({life.birth, entry, end.day, end.dies}, adultAges()))
            taker.count({YearsFrom, {who[0], who[1], place, slice.age}}, person, slice.halfDays);
        const auto group = end.dies ? ageGroup(life.birth, end.day, adultAges()) : std::nullopt;
        if (group) taker.count({DeathsFrom, {who[0], who[1], place, *group}}, person);
    }
}

void countDays(const AdultLife& life, const End& end, const At& who, const Who& person, Taker& taker)
{
    const qint32 entry = std::max(ageInDays(life.birth, life.from), firstAge * daysOfAnAge);
    const qint32 exit = ageInDays(life.birth, end.day);
    if (exit < entry) return;
    taker.count({Enter, {who[0], who[1], entry - 1}}, person);
    taker.count({end.dies ? Dies : Leaves, {who[0], who[1], exit}}, person);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share)) {
        const AdultLife life = adultLifeOf(person, study);
        const Who who{&person, life.family};
        if (const auto reason = reasonOf(life.why)) taker.count({*reason}, who);
        if (life.why != NoAdult::None) continue;
        const At at = {periodOf(life.marriage.middle().year(), study.settings), numbered(person.gender)};
        for (const Estimate estimate : estimates) {
            const End& end = life.ends[static_cast<std::size_t>(estimate)];
            if (!end.day.isKnown()) {
                taker.count({Open}, who);
                continue;
            }
            countRates(life, estimate, end, at, who, taker);
            countFrom(life, estimate, end, at, who, taker);
        }
        countDays(life, life.ends[static_cast<std::size_t>(Estimate::Censored)], at, who, taker);
    }
}

} // namespace adults

} // namespace

const Subject adultMortality = {
    "mortalidade-dos-adultos",
    "Mortalidade",
    "Mortalidade dos adultos casados",
    "Contam os casados na freguesia, desde o primeiro casamento, se se conhece o nascimento. Quem não tem óbito "
    "conhecido entra de quatro maneiras: a máxima exagera sempre a mortalidade, e a mínima só não a exagera se quem "
    "partiu foi visto até partir. Contar só os óbitos conhecidos também a exagera, porque quem morre novo morre mais "
    "vezes onde casou.",
    adult_counts::names,
    adult_counts::reasons,
    adults::fill,
    adult_counts::figures};

} // namespace study::indicators
