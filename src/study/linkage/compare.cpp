#include "study/linkage/compare.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace study::linkage {

namespace {

constexpr int daysOfASlip = 10;
constexpr double ofFiftyYears = 5; // the tolerance of a stated age of 50: ages beside it have more or less

bool isSurnameOfWoman(parish::Gender sex)
{
    return sex == parish::Gender::Female;
}

Level within(double years)
{
    return years <= 1    ? Level::Within1
           : years <= 3  ? Level::Within3
           : years <= 5  ? Level::Within5
           : years <= 10 ? Level::Within10
           : years <= 20 ? Level::Within20
                         : Level::Other;
}

} // namespace

Scale::Scale(const Model& model)
{
    for (size_t field = 0; field < fieldCount; ++field)
        for (size_t level = 0; level < levelCount; ++level)
            weights_[field][level] = model.weight(Field(field), Level(level));
}

void Comparison::clear()
{
    vetoed = false;
    bits = 0;
    signs.clear();
}

void Comparison::veto()
{
    vetoed = true;
    signs.clear();
}

void Comparison::add(const Sign& sign)
{
    bits += sign.bits;
    signs.push_back(sign);
}

void Comparer::addLevel(Field field, Level level, Of of, Comparison& to) const
{
    to.add({.field = field, .level = level, .of = of, .bits = scale_.weight(field, level).bits()});
}

static bool shareWord(const QStringList& one, const QStringList& other)
{
    return std::ranges::any_of(one, [&](const QString& word) { return other.contains(word); });
}

// A nickname and "o Velho" aren't set against each other: the old man may be the smith.
void Comparer::compareBynames(const Face& one, const Face& other, Of of, Comparison& to) const
{
    const auto differ = [](const QStringList& a, const QStringList& b) { return !a.isEmpty() && !b.isEmpty(); };
    if (shareWord(one.bynames, other.bynames) || shareWord(one.tags, other.tags))
        addLevel(Field::Nickname, Level::Equal, of, to);
    else if (differ(one.bynames, other.bynames) || differ(one.tags, other.tags))
        addLevel(Field::Nickname, Level::Other, of, to);
}

void Comparer::compareTitles(const Face& one, const Face& other, Of of, Comparison& to) const
{
    if (one.titles.isEmpty() || other.titles.isEmpty()) return;
    addLevel(Field::Title, shareWord(one.titles, other.titles) ? Level::Equal : Level::Other, of, to);
}

void Comparer::compareSelf(const Face& one, const Face& other, Of of, Comparison& to) const
{
    const parish::Gender sex =
        one.person->gender == parish::Gender::Undetermined ? other.person->gender : one.person->gender;
    const Field rest = isSurnameOfWoman(sex) ? Field::OtherNamesOfWoman : Field::OtherNames;
    if (!one.name->isEmpty() && !other.name->isEmpty()) {
        const bool agree = agreementOf(one.name->words[0].is, other.name->words[0].is).level != Level::Other;
        if (agree)
            compareNames(one.name, other.name, sex, Field::FirstName, rest, of, to);
        else if (!compareSecondGiven(*one.name, *other.name, sex, of, to))
            return to.veto();
    }
    compareParents(one, other, of, to);
    compareTimes(one, other, of, to);
    compareBynames(one, other, of, to);
    compareTitles(one, other, of, to);
}

void Comparer::compareParents(const Face& one, const Face& other, Of of, Comparison& to) const
{
    const parish::Family* origin = one.person->origin;
    if (origin && origin == other.person->origin) { // brothers of one name have all this, too
        addLevel(Field::SameOrigin, Level::Equal, of, to);
        return;
    }
    compareNames(one.father, other.father, parish::Gender::Male, Field::Father, Field::FatherSurnames, of, to);
    compareNames(one.mother, other.mother, parish::Gender::Female, Field::Mother, Field::MotherSurnames, of, to);
    compareGrandparents(one, other, of, to);
    if (one.father && other.father) return;
    if (!compareParentsSurname(one, other, of, to)) compareParentsSurname(other, one, of, to);
}

// Two days that the registers tell of one thing. What lies farther apart, and isn't vetoed, tells nothing.
void Comparer::compareDays(const parish::Date& one, const parish::Date& other, Field field, Of of, Comparison& to) const
{
    if (!one.isExact() || !other.isExact()) return;
    const int days = std::abs(one.day - other.day);
    if (days <= daysOfASlip) addLevel(field, days == 0 ? Level::SameDay : Level::SomeDays, of, to);
}

void Comparer::compareTimes(const Face& one, const Face& other, Of of, Comparison& to) const
{
    compareDays(one.person->death, other.person->death, Field::Death, of, to);
    compareBirths(one, other, of, to);
}

void Comparer::compareBirths(const Face& one, const Face& other, Of of, Comparison& to) const
{
    const parish::Person &a = *one.person, &b = *other.person;
    if (one.birthYear == 0 || other.birthYear == 0) return;
    const double years = std::abs(one.birthYear - other.birthYear);
    if (!one.birthTold || !other.birthTold) {
        // Of a couple these years are guessed by the same dates that its own times have, and would count thrice.
        if (of != Of::Person) return;
        const Level level = within(years);
        const double trust = (one.birthTold ? 1 : one.guessed) * (other.birthTold ? 1 : other.guessed);
        return to.add({.field = Field::Times,
                       .level = level,
                       .of = of,
                       .bits = trust * scale_.weight(Field::Times, level).bits()});
    }
    if (a.birth.isExact() && b.birth.isExact()) return compareDays(a.birth, b.birth, Field::Birth, of, to);
    const double scale = std::max(one.ageSlack, other.ageSlack) / ofFiftyYears;
    addLevel(Field::Birth, within(scale > 0 ? years / scale : years), of, to);
}

void Comparer::compareThings(std::span<const Whereabouts> one, std::span<const Whereabouts> other, Field field, Of of,
                             Comparison& to) const
{
    if (one.empty() || other.empty()) return;
    const Whereabouts* rarest = nullptr;
    for (const Whereabouts& a : one)
        for (const Whereabouts& b : other)
            if (a.place == b.place && (!rarest || a.share < rarest->share)) rarest = &a;
    if (!rarest) return addLevel(field, Level::Other, of, to);
    const double bits = std::max(0.0, scale_.weight(field, Level::Equal).bits(rarest->share));
    to.add({.field = field, .level = Level::Equal, .of = of, .bits = bits, .thing = rarest->place});
}

static bool shareOne(std::span<const Whereabouts> one, std::span<const Whereabouts> other)
{
    return std::ranges::any_of(one, [&](const Whereabouts& a) {
        return std::ranges::any_of(other, [&](const Whereabouts& b) { return a.place == b.place; });
    });
}

// By the locality; where that isn't told, by the parish. Two localities of one parish are more than two parishes.
template <class Record>
void Comparer::comparePlaces(const Record& one, const Record& other, Of of, Comparison& to) const
{
    if (one.places.empty() || other.places.empty())
        return compareThings(one.parishes, other.parishes, Field::Parish, of, to);
    if (!shareOne(one.places, other.places) && shareOne(one.parishes, other.parishes))
        return addLevel(Field::Place, Level::OfOneClass, of, to);
    compareThings(one.places, other.places, Field::Place, of, to);
}

// Two wives or husbands who aren't one, each with children while the other has some.
void Comparer::compareUnions(const Face& one, const Face& other, Comparison& to) const
{
    const auto overlap = [](const Days& a, const Days& b) {
        return a.to > 0 && b.to > 0 && a.from < b.to && b.from < a.to;
    };
    for (const Tie& a : one.ties)
        for (const Tie& b : other.ties) {
            if (!a.name || !b.name || a.spouse == b.spouse || !overlap(a.time, b.time)) continue;
            if (agreementOf(a.name->words.front().is, b.name->words.front().is).level == Level::Other)
                return addLevel(Field::Unions, Level::Equal, Of::Person, to);
        }
}

// The likest pair of their spouses.
void Comparer::compareSpouses(const Face& one, const Face& other, Comparison& to) const
{
    std::optional<Comparison> best;
    const parish::Gender sex = one.person->gender == parish::Gender::Male     ? parish::Gender::Female
                               : one.person->gender == parish::Gender::Female ? parish::Gender::Male
                                                                              : parish::Gender::Undetermined;
    for (const Tie& a : one.ties)
        for (const Tie& b : other.ties) {
            Comparison pair;
            compareNames(a.name, b.name, sex, Field::Spouse, Field::SpouseSurnames, Of::Person, pair);
            if (a.spouse && a.spouse == b.spouse) addLevel(Field::Same, Level::Equal, Of::Person, pair);
            if (!pair.signs.empty() && (!best || pair.bits > best->bits)) best = std::move(pair);
        }
    if (!best) return;
    for (const Sign& sign : best->signs)
        to.add(sign);
    compareUnions(one, other, to);
}

void Comparer::compare(const Face& one, const Face& other, Comparison& to) const
{
    if (isVetoed(one, other)) return to.veto();
    compareSelf(one, other, Of::Person, to);
    if (to.vetoed) return;
    compareSpouses(one, other, to);
    comparePlaces(one, other, Of::Person, to);
    compareThings(one.professions, other.professions, Field::Profession, Of::Person, to);
}

void Comparer::compareSpouse(const CoupleFace& one, const CoupleFace& other, bool husband, Comparison& to) const
{
    const Face* a = husband ? one.husband : one.wife;
    const Face* b = husband ? other.husband : other.wife;
    if (!a || !b) return;
    const Of of = husband ? Of::Husband : Of::Wife;
    if (a == b)
        addLevel(Field::Same, Level::Equal, of, to);
    else
        compareSelf(*a, *b, of, to);
}

void Comparer::compareTimesAndThings(const Face& one, const Face& other, Comparison& to) const
{
    compareTimes(one, other, Of::Person, to);
    comparePlaces(one, other, Of::Person, to);
    compareThings(one.professions, other.professions, Field::Profession, Of::Person, to);
}

void Comparer::compareTimesAndThings(const CoupleFace& one, const CoupleFace& other, Comparison& to) const
{
    compareIntervals(one, other, to);
    comparePlaces(one, other, Of::Couple, to);
}

// How far the time of the one couple is from that of the other; couples of many children have theirs side by side.
void Comparer::compareIntervals(const CoupleFace& one, const CoupleFace& other, Comparison& to) const
{
    compareDays(one.family->marriage, other.family->marriage, Field::Marriage, Of::Couple, to);
    if (one.time.from == 0 || other.time.from == 0) return;
    const int gap = std::max({0, one.time.from - other.time.to, other.time.from - one.time.to});
    addLevel(Field::Interval, within(gap / parish::daysOfAYear), Of::Couple, to);
}

void Comparer::compareGodparents(const CoupleFace& one, const CoupleFace& other, Comparison& to) const
{
    const bool shared = std::ranges::any_of(
        one.godparents, [&](qint64 number) { return std::ranges::binary_search(other.godparents, number); });
    if (shared) addLevel(Field::Godparents, Level::Equal, Of::Couple, to);
}

void Comparer::compare(const CoupleFace& one, const CoupleFace& other, Comparison& to) const
{
    if (isVetoed(one, other)) return to.veto();
    compareSpouse(one, other, true, to);
    if (!to.vetoed) compareSpouse(one, other, false, to);
    if (to.vetoed) return;
    compareIntervals(one, other, to);
    comparePlaces(one, other, Of::Couple, to);
    compareGodparents(one, other, to);
}

} // namespace study::linkage
