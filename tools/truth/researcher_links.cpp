#include "life.h"
#include "researcher.h"

#include <algorithm>
#include <cmath>

namespace truth {

namespace {

constexpr double yearsToForget = 120;
constexpr double confusionByNamesakes = 0.02; // each of them
constexpr int mostNamesakes = 12;
constexpr double ofBuriedChildren = 0.8;

} // namespace

QString Researcher::nameKey(const Name& name)
{
    return name.surnames.isEmpty() ? name.given : name.given + '|' + name.surnames.last();
}

double Researcher::rarity(const Name& name) const
{
    const auto found = byName_.find(nameKey(name));
    const int others = found == byName_.end() ? 0 : static_cast<int>(found->second.size());
    return 1 / (1 + confusionByNamesakes * std::min(others, mostNamesakes));
}

// From 0 to 1, for somebody who knows what the old spellings mean.
double Researcher::clarity(const Mention& mention, const Card& card) const
{
    const QStringList& one = mention.name.surnames;
    const QStringList& other = card.plain.surnames;
    const auto hasAll = [](const QStringList& all, const QStringList& part) {
        return std::ranges::all_of(part, [&](const QString& word) { return all.contains(word); });
    };
    double value = one == other ? 1 : hasAll(one, other) || hasAll(other, one) ? 0.88 : 0.45;
    if (mention.name.second != card.plain.second && !mention.name.second.isEmpty() && !card.plain.second.isEmpty())
        value *= 0.7;
    if (mention.shown.contains('?') || mention.shown.contains("...")) value *= 0.7;
    if (card.plain.surnames.isEmpty() && card.birth.isValid()) value = std::max(value, 0.8); // the baptised has none
    const int years = std::abs(day_.year() - card.lastSeen);
    return value * rarity(mention.name) * std::exp(-years / yearsToForget);
}

bool Researcher::isAlive(const Card& card) const
{
    const bool isDead = card.death.isValid() && card.death < day_;
    const bool isGrown = !card.birth.isValid() || yearsBetween(card.birth, day_) >= 14;
    const bool isSeen = std::abs(day_.year() - card.lastSeen) < (card.birth.isValid() ? 60 : 35);
    return !isDead && isGrown && isSeen;
}

// Somebody else of the same name, whom a hurried eye takes for the same.
Number Researcher::namesake(const Mention& mention)
{
    const auto named = byName_.find(nameKey(mention.name));
    if (named == byName_.end() || mention.name.surnames.isEmpty()) return 0;
    const Number number = random_.pick(named->second);
    const Card& other = card(number);
    const bool fits = other.who != mention.who && other.male == world_.person(mention.who).male && isAlive(other);
    return fits && happens(random_, rates_.wrongLink / 0.4) && random_.chance(40) ? number : 0;
}

Number Researcher::found(const Mention& mention, double chance)
{
    const auto own = cardsOf_.find(mention.who);
    if (own != cardsOf_.end()) {
        // The one that was in hand last comes to mind first.
        const Number last =
            *std::ranges::max_element(own->second, {}, [this](Number one) { return card(one).lastSeen; });
        const Number number = random_.chance(75) ? last : random_.pick(own->second);
        const bool isBuried = !mention.dead && card(number).death.isValid() && card(number).death < day_;
        if (!isBuried && happens(random_, std::min(0.97, chance * attention_ * clarity(mention, card(number)))))
            return number;
    }
    return namesake(mention);
}

Number Researcher::foundCouple(const Parents& parents, double chance)
{
    const auto own = familiesOf_.find(parents.couple);
    if (parents.couple == 0 || own == familiesOf_.end()) return 0;
    const Number last =
        *std::ranges::max_element(own->second, {}, [this](Number one) { return bdp_.family(one).lastSeen; });
    const Number number = random_.chance(85) ? last : random_.pick(own->second);
    const FamilyCard& family = bdp_.family(number);
    // Two names together are clearer than either of them.
    double clear = 1;
    for (const auto& [spouse, mention] :
         {std::pair(family.husband, &parents.father), std::pair(family.wife, &parents.mother)})
        if (spouse != 0 && *mention) clear *= std::pow(clarity(*mention, card(spouse)), 0.12);
    return happens(random_, std::min(0.98, chance * std::min(1.05, attention_ * 1.05) * clear)) ? number : 0;
}

// The child of this family that is buried; where a name was given again, now and then the wrong one.
Number Researcher::childToBury(const Act& act, Number family)
{
    const auto own = cardsOf_.find(act.subject.who);
    Number right = 0;
    if (own != cardsOf_.end())
        for (const Number one : own->second)
            if (!card(one).death.isValid()) right = one;
    if (family != 0)
        for (const Number one : bdp_.family(family).baptized) {
            const Card& other = card(one);
            const bool isNamesake = other.who != act.subject.who && other.plain.given == act.subject.name.given &&
                                    !other.death.isValid() && other.birth.isValid() && other.birth <= day_ &&
                                    other.male == world_.person(act.subject.who).male;
            if (isNamesake && happens(random_, 0.25)) return other.number;
        }
    const double chance = family != 0 ? ofBuriedChildren * attention_ : 0.25;
    return right != 0 && happens(random_, chance) ? right : 0;
}

} // namespace truth
