// Names beside each other: first names, the others as sets, and a surname that was a parent's.
#include "study/linkage/compare.h"
#include "study/names/weights.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace study::linkage {

namespace {

constexpr double eachOtherWord = -0.5; // that both have beside one that agrees

} // namespace

WordAgreement agreementOf(const CodedWord& one, const CodedWord& other)
{
    const bool several = one.classes.size() > 1 || other.classes.size() > 1;
    const double weight = several && one.exact != other.exact ? spelling::ofSeveralReadings : 1;
    if (one.exact == other.exact) return {Level::Equal, weight};
    if (shareClass(one, other)) return {Level::OfOneClass, weight};
    if (one.known && other.known) return {};
    if (one.key.isEmpty() || other.key.isEmpty() || one.key[0] != other.key[0]) return {};
    return {likeness(one.key, other.key) >= spelling::likeEnough ? Level::Likened : Level::Other, 1};
}

void Comparer::compareFirst(const Name& one, const Name& other, parish::Gender sex, Field field, Of of,
                            Comparison& to) const
{
    const Word &a = one.words.front(), &b = other.words.front();
    const WordAgreement found = agreementOf(a.is, b.is);
    const double share = std::max(a.asFirst[size_t(sex)], b.asFirst[size_t(sex)]);
    const double bits = found.weight * scale_.weight(field, found.level).bits(share);
    to.add({.field = field, .level = found.level, .of = of, .bits = bits, .one = &one, .other = &other});
}

// "Maria Josefa" and "Josefa": who is the same goes by the second name as seldom as by another one altogether.
bool Comparer::compareSecondGiven(const Name& one, const Name& other, parish::Gender sex, Of of, Comparison& to) const
{
    const auto agreed = [](const Name& alone, const Name& longer) {
        return longer.words.size() > 1 ? agreementOf(alone.words[0].is, longer.words[1].is) : WordAgreement();
    };
    WordAgreement found = agreed(one, other);
    const Word* word = &one.words.front();
    if (found.level == Level::Other) {
        found = agreed(other, one);
        word = &other.words.front();
    }
    if (found.level == Level::Other) return false;
    const double seldom = scale_.weight(Field::FirstName, Level::Other).m;
    const double bits = found.weight * std::log2(seldom / word->asFirst[size_t(sex)]);
    to.add({.field = Field::FirstName, .level = found.level, .of = of, .bits = bits, .one = &one, .other = &other});
    return true;
}

namespace {

// Of the words behind the first ones each with the one of the other name that fits it best, none twice: those that are
// equal first, then those of one class, then those that are likened.
template <class Found>
void forEachAgreement(const Name& one, const Name& other, const Found& found)
{
    quint32 ours = 0, theirs = 0; // that are taken
    for (const Level wanted : {Level::Equal, Level::OfOneClass, Level::Likened})
        for (size_t i = 1; i < one.words.size(); ++i)
            for (size_t j = 1; j < other.words.size() && !(ours >> i & 1U); ++j) {
                if (theirs >> j & 1U) continue;
                const CodedWord &a = one.words[i].is, &b = other.words[j].is;
                if (wanted == Level::Equal && a.exact != b.exact) continue;
                if (wanted == Level::OfOneClass && !shareClass(a, b)) continue; // letters cost the most
                const WordAgreement agreement = agreementOf(a, b);
                if (agreement.level != wanted) continue;
                ours |= 1U << i;
                theirs |= 1U << j;
                found(one.words[i], other.words[j], agreement);
            }
}

} // namespace

// As sets, in whatever order; a name of fewer elements is no disagreement.
void Comparer::compareRest(const Name& one, const Name& other, parish::Gender sex, Field field, Of of,
                           Comparison& to) const
{
    if (one.words.size() < 2 || other.words.size() < 2) return;
    Sign sign{.field = field, .level = Level::Other, .of = of, .one = &one, .other = &other};
    size_t agreeing = 0;
    forEachAgreement(one, other, [&](const Word& a, const Word& b, const WordAgreement& found) {
        ++agreeing;
        const double share = std::max(a.asOther[size_t(sex)], b.asOther[size_t(sex)]);
        const Level level = a.is.devotional ? Level::Devotional : found.level;
        sign.bits += found.weight * std::max(0.0, scale_.weight(field, level).bits(share)) *
                     (level == Level::Devotional ? spelling::ofSeveralReadings : 1);
        sign.level = sign.level == Level::Other || level < sign.level ? level : sign.level;
    });
    const size_t others = std::min(one.words.size(), other.words.size()) - 1 - agreeing;
    if (agreeing > 0)
        sign.bits += double(others) * eachOtherWord;
    else if (one.devotionalAlone || other.devotionalAlone)
        return;
    else
        sign.bits = scale_.weight(field, Level::Other)
                        .bits(std::max(one.words[1].asOther[size_t(sex)], other.words[1].asOther[size_t(sex)]));
    to.add(sign);
}

bool Comparer::compareNames(const Name* one, const Name* other, parish::Gender sex, Field first, Field rest, Of of,
                            Comparison& to) const
{
    if (!one || !other || one->isEmpty() || other->isEmpty()) return false;
    compareFirst(*one, *other, sex, first, of, to);
    const bool agree = to.signs.back().level != Level::Other;
    if (agree) compareRest(*one, *other, sex, rest, of, to);
    return agree;
}

// By the parents of two parents of one first name. Those of one and the same parent tell nothing new.
void Comparer::compareGrandparents(const Face& one, const Face& other, Of of, Comparison& to) const
{
    using parish::Gender;
    const auto agree = [](const Face& a, const Face& b) {
        return !a.name->isEmpty() && !b.name->isEmpty() &&
               agreementOf(a.name->words[0].is, b.name->words[0].is).level != Level::Other;
    };
    const auto compareParentsOf = [&](const Face* a, const Face* b) {
        if (!a || !b || a == b || !agree(*a, *b)) return;
        for (const auto& [mine, theirs, sex] :
             {std::tuple(a->father, b->father, Gender::Male), std::tuple(a->mother, b->mother, Gender::Female)})
            if (mine && theirs && !mine->isEmpty() && !theirs->isEmpty())
                compareFirst(*mine, *theirs, sex, Field::Grandparents, of, to);
    };
    compareParentsOf(faces_.of(one.person->father()), faces_.of(other.person->father()));
    compareParentsOf(faces_.of(one.person->mother()), faces_.of(other.person->mother()));
}

// A child is baptised with a first name alone; its surname shows later, and often is that of a parent.
bool Comparer::compareParentsSurname(const Face& child, const Face& other, Of of, Comparison& to) const
{
    if (child.name->words.size() != 1 || other.name->words.size() < 2 || (!child.father && !child.mother)) return false;
    if (other.name->devotionalAlone) return false;
    Sign sign{.field = Field::ParentsSurname, .level = Level::Other, .of = of};
    double share = 0; // who has some surname of theirs
    double worth = 0; // of the agreement that is worth most
    for (const Name* parent : {child.father, child.mother}) {
        if (!parent) continue;
        for (size_t i = 1; i < parent->words.size(); ++i) {
            const Word& a = parent->words[i];
            if (a.is.devotional) continue;
            share += a.asOther[0];
            for (size_t j = 1; j < other.name->words.size(); ++j) {
                const WordAgreement found = agreementOf(a.is, other.name->words[j].is);
                if (found.level == Level::Other || found.weight <= worth) continue;
                worth = found.weight;
                sign.level = Level::Equal;
                sign.one = parent;
                sign.other = other.name;
            }
        }
    }
    if (!sign.one) {
        sign.one = child.father ? child.father : child.mother;
        sign.other = other.name;
    }
    const Weight& weight = scale_.weight(sign.field, sign.level);
    sign.bits = sign.level == Level::Equal ? worth * std::max(0.0, weight.bits(std::min(share, 1.0))) : weight.bits();
    to.add(sign);
    return true;
}

} // namespace study::linkage
