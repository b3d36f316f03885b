#include "researcher.h"

#include "codes.h"
#include "life.h"

#include <algorithm>

namespace truth {

namespace {

// How surely who is clearly named is found. Most sure of the parents of the last child, least of a witness.
constexpr double ofParents = 0.97, ofGodparents = 0.85, ofWitnesses = 0.6, ofSpouses = 0.86, ofTheDead = 0.84,
                 ofGrandparents = 0.75, ofTheCouple = 0.8, ofPriests = 0.92, ofTheSamePriest = 0.97;
constexpr int actsOfASitting = 60;

} // namespace

Bdp Researcher::enter(const std::vector<Act>& acts)
{
    int inThisSitting = 0;
    for (const Act& act : acts) {
        if (inThisSitting-- == 0) {
            inThisSitting = random_.between(actsOfASitting / 2, 2 * actsOfASitting);
            attention_ = random_.between(78, 112) / 100.0;
        }
        enter(act);
    }
    bdp_.acts = static_cast<int>(acts.size());
    return std::move(bdp_);
}

void Researcher::enter(const Act& act)
{
    day_ = act.date;
    if (act.kind == ActKind::Baptism)
        baptism(act);
    else if (act.kind == ActKind::Marriage)
        marriage(act);
    else
        burial(act);
}

void Researcher::baptism(const Act& act)
{
    const Number child = newCard(act.subject);
    card(child).birth = day_;
    card(child).birthIsExact = true;
    card(child).birthLocality = act.subject.locality;
    const Number family = familyFor(act.parents, ofParents);
    card(child).origin = family;
    if (family != 0) {
        bdp_.family(family).baptized.push_back(child);
        seeFamily(family, act.subject.locality);
        if (bdp_.family(family).which != act.parents.couple)
            bdp_.wrong.push_back({"familia de origem", child, family, act.subject.who});
    }
    const Number parents[]{bdp_.family(family).husband, bdp_.family(family).wife};
    for (const int side : {0, 1}) {
        const Parents& old = act.grandparents[side];
        const bool isRight = parents[side] != 0 && card(parents[side]).origin == 0 && old.couple != 0 &&
                             world_.person(card(parents[side]).who).origin == old.couple;
        if (!isRight) continue;
        if (const Number couple = foundCouple(old, ofGrandparents))
            card(parents[side]).origin = couple;
        else if (random_.chance(12))
            tellOrigin(parents[side], old);
    }
    godparents(act, child);
    const Number baptisedBy = priest(act);
    card(child).baptisedBy = baptisedBy;
}

Number Researcher::priest(const Act& act)
{
    if (!act.priest) return 0;
    // It mostly is the one of the act before.
    const bool isTheLast = lastPriest_ != 0 && card(lastPriest_).who == act.priest.who;
    Number person = isTheLast && happens(random_, ofTheSamePriest) ? lastPriest_ : found(act.priest, ofPriests);
    if (person == 0 || !card(person).unions.empty()) person = newCard(act.priest);
    lastPriest_ = person;
    card(person).priest = card(person).priest || random_.chance(60);
    see(person, act.priest);
    if (card(person).who != act.priest.who) bdp_.wrong.push_back({"padre", person, 0, act.priest.who});
    return person;
}

void Researcher::godparents(const Act& act, Number child)
{
    for (const Mention& mention : act.others) {
        Number person = found(mention, ofGodparents);
        if (person == 0) person = newCard(mention);
        if (person == bdp_.family(card(child).origin).husband || person == bdp_.family(card(child).origin).wife)
            continue;
        see(person, mention);
        bdp_.assistants.push_back({true, child, person, day_, mention.state});
        if (card(person).who != mention.who) bdp_.wrong.push_back({"assistente", person, 0, mention.who});
    }
}

void Researcher::marriage(const Act& act)
{
    Number family = foundCouple({act.couple, act.subject, act.bride}, ofTheCouple);
    if (family != 0 && bdp_.family(family).wedding.isValid()) family = 0;
    if (family == 0) {
        const Number groom = spouseCard(act.subject, ofSpouses * (act.parents.couple != 0 ? 1 : 0.7));
        const Number bride = spouseCard(act.bride, ofSpouses * (act.parentsOfBride.couple != 0 ? 1 : 0.7));
        family = newFamily(act.couple, groom, bride);
    }
    FamilyCard& one = bdp_.family(family);
    one.wedding = day_;
    one.states[0] = act.subject.state;
    one.states[1] = act.bride.state;
    one.ages[0] = act.subject.age;
    one.ages[1] = act.bride.age;
    const Number husband = one.husband, wife = one.wife;
    seeFamily(family, random_.chance(30) ? act.bride.locality : 0);
    rename(husband, act.subject);
    rename(wife, act.bride);
    // What an act tells of a stranger on whose card it came isn't entered twice wrongly.
    if (card(husband).who == act.subject.who) tellOrigin(husband, act.parents);
    if (card(wife).who == act.bride.who) tellOrigin(wife, act.parentsOfBride);
    for (const auto& [number, mention] : {std::pair(husband, &act.subject), std::pair(wife, &act.bride)})
        if (card(number).who != mention->who) bdp_.wrong.push_back({"uniao", number, family, mention->who});
    tellTrade(husband, act.subject);
    witnesses(act, family);
    const Number wedBy = priest(act);
    bdp_.family(family).priest = wedBy;
}

void Researcher::witnesses(const Act& act, Number family)
{
    for (const Mention& mention : act.others) {
        Number person = found(mention, ofWitnesses);
        if (person == 0 && random_.chance(80)) continue; // not entered
        if (person == 0) person = newCard(mention);
        if (person == bdp_.family(family).husband || person == bdp_.family(family).wife) continue;
        see(person, mention);
        bdp_.assistants.push_back({false, family, person, day_, mention.state});
        if (card(person).who != mention.who) bdp_.wrong.push_back({"assistente", person, 0, mention.who});
    }
}

void Researcher::burial(const Act& act)
{
    const Number buried = buriedOf(act);
    const Number buriedBy = priest(act);
    if (buriedBy != buried) card(buried).buriedBy = buriedBy;
}

Number Researcher::buriedOf(const Act& act)
{
    const Person& deceased = world_.person(act.subject.who);
    if (yearsBetween(deceased.birth, deceased.death) < 14 && act.parents.couple != 0) return childOf(act);
    const bool isClear = act.spouse || act.parents.couple != 0;
    Number person = found(act.subject, ofTheDead * (isClear ? 1 : 0.5));
    const bool cannotBe = person != 0 && (card(person).death.isValid() || card(person).birth > day_ ||
                                          card(person).lastSeen > day_.year());
    const bool isNew = person == 0 || cannotBe;
    if (isNew) person = newCard(act.subject);
    bury(person, act);
    tellTrade(person, act.subject);
    if (card(person).who != act.subject.who) bdp_.wrong.push_back({"obito", person, 0, act.subject.who});
    if (!isNew) return person;
    tellOrigin(person, act.parents);
    if (!act.spouse) return person;
    if (random_.chance(45)) {
        const Number spouse = spouseCard(act.spouse, ofSpouses);
        const bool male = card(person).male;
        newFamily(act.couple, male ? person : spouse, male ? spouse : person);
    } else
        card(person).notes << (act.spouse.dead ? "Viúv" : "Casad") + QString(card(person).male ? "o" : "a") + " com " +
                                  act.spouse.shown + '.';
    return person;
}

Number Researcher::childOf(const Act& act)
{
    const Number family = foundCouple(act.parents, ofParents * 0.9);
    Number person = childToBury(act, family);
    if (person == 0) {
        person = newCard(act.subject);
        if (family != 0)
            card(person).origin = family;
        else
            tellOrigin(person, act.parents);
    }
    bury(person, act);
    card(person).minor = yearsBetween(world_.person(act.subject.who).birth, day_) < 7;
    if (card(person).who != act.subject.who) bdp_.wrong.push_back({"obito", person, 0, act.subject.who});
    return person;
}

} // namespace truth
