#include "life.h"
#include "researcher.h"

#include <algorithm>

namespace truth {

namespace {

// How surely one of a couple is found by themself, where the couple wasn't.
constexpr double ofAFather = 0.55, ofAMother = 0.45;
constexpr double ofParentsOfSpouses = 0.8;

} // namespace

Number Researcher::newCard(const Mention& mention)
{
    const Person& who = world_.person(mention.who);
    Card& one = bdp_.people.emplace_back();
    one.number = static_cast<Number>(bdp_.people.size()) - 1;
    one.who = mention.who;
    one.name = mention.shown;
    one.plain = mention.name;
    one.male = who.male;
    one.foundling = who.foundling;
    if (random_.chance(30)) one.nickname = who.nickname;
    one.lastSeen = day_.year();
    cardsOf_[mention.who].push_back(one.number);
    byName_[nameKey(one.plain)].push_back(one.number);
    return one.number;
}

Number Researcher::newFamily(CoupleId which, Number husband, Number wife)
{
    FamilyCard& one = bdp_.families.emplace_back();
    one.number = static_cast<Number>(bdp_.families.size()) - 1;
    one.which = which;
    one.husband = husband;
    one.wife = wife;
    one.lastSeen = day_.year();
    familiesOf_[which].push_back(one.number);
    for (const Number spouse : {husband, wife})
        if (spouse != 0) card(spouse).unions.push_back(one.number);
    return one.number;
}

Number Researcher::spouseCard(const Mention& mention, double chance)
{
    const Number number = found(mention, chance);
    // Who is buried doesn't marry.
    const bool canBe = number != 0 && !(card(number).death.isValid() && card(number).death <= day_);
    return canBe ? number : newCard(mention);
}

Number Researcher::familyFor(const Parents& parents, double chance)
{
    if (parents.couple == 0) return 0;
    if (const Number known = foundCouple(parents, chance)) return known;
    Number spouses[2]{};
    for (const bool isFather : {true, false}) {
        const Mention& mention = isFather ? parents.father : parents.mother;
        if (!mention) continue;
        Number number = found(mention, isFather ? ofAFather : ofAMother);
        // Parents are grown and, but for the father of a posthumous child, alive.
        if (number != 0 && card(number).death.isValid() && card(number).death < day_.addDays(-280)) number = 0;
        if (number != 0 && card(number).birth.isValid() && yearsBetween(card(number).birth, day_) < 15) number = 0;
        const Number person = number != 0 ? number : newCard(mention);
        spouses[isFather ? 0 : 1] = person;
    }
    const Number family = newFamily(parents.couple, spouses[0], spouses[1]);
    for (const bool isFather : {true, false}) {
        const Mention& mention = isFather ? parents.father : parents.mother;
        const Number number = spouses[isFather ? 0 : 1];
        if (number != 0 && card(number).who != mention.who)
            bdp_.wrong.push_back({"uniao", number, family, mention.who});
    }
    return family;
}

void Researcher::tellOrigin(Number person, const Parents& parents)
{
    if (card(person).origin != 0 || parents.couple == 0) return;
    Number family = foundCouple(parents, ofParentsOfSpouses);
    const int lot = random_.between(1, 100);
    if (family == 0 && lot <= 45) {
        const Number father = parents.father ? newCard(parents.father) : 0;
        const Number mother = parents.mother ? newCard(parents.mother) : 0;
        family = newFamily(parents.couple, father, mother);
    }
    if (family == 0 && lot <= 75) {
        QStringList names;
        for (const Mention& parent : {parents.father, parents.mother})
            if (parent) names << parent.shown;
        card(person).notes << (card(person).male ? "Filho de " : "Filha de ") + names.join(" e ") + '.';
    }
    card(person).origin = family;
}

void Researcher::rename(Number person, const Mention& mention)
{
    Card& one = card(person);
    if (mention.name.full().size() <= one.plain.full().size()) return;
    one.name = mention.shown;
    one.plain = mention.name;
    byName_[nameKey(one.plain)].push_back(person);
}

void Researcher::see(Number person, const Mention& mention)
{
    card(person).lastSeen = std::max(card(person).lastSeen, day_.year());
    if (mention.locality != 0 && random_.chance(60)) reside(person, 0, mention.locality);
    tellTrade(person, mention);
}

void Researcher::tellTrade(Number person, const Mention& mention)
{
    if (mention.trade != 0 && random_.chance(80)) bdp_.trades.push_back({person, day_, mention.trade});
}

void Researcher::seeFamily(Number family, int locality)
{
    FamilyCard& one = bdp_.family(family);
    one.lastSeen = std::max(one.lastSeen, day_.year());
    for (const Number spouse : {one.husband, one.wife})
        if (spouse != 0) card(spouse).lastSeen = std::max(card(spouse).lastSeen, day_.year());
    if (locality == 0 || locality == one.locality) return;
    one.locality = locality;
    reside(0, family, locality);
}

void Researcher::reside(Number person, Number family, int locality)
{
    if (resided_.insert({person, family, day_}).second) bdp_.residences.push_back({person, family, day_, locality});
}

void Researcher::bury(Number person, const Act& act)
{
    Card& one = card(person);
    one.death = day_;
    one.deathLocality = act.subject.locality;
    one.ageAtDeath = act.ageAtDeath;
    one.stateAtDeath = act.subject.state;
    one.lastSeen = std::max(one.lastSeen, day_.year());
    if (!one.birth.isValid() && act.ageAtDeath > 0 && random_.chance(35))
        one.birth = QDate(day_.year() - act.ageAtDeath, 1, 1); // reckoned back
}

} // namespace truth
