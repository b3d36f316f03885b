#include "life.h"

#include <algorithm>

namespace truth {

namespace {

constexpr int godparentFrom = 13;
constexpr int triesForANeighbour = 60;
constexpr int percentOfRelatives = 35, percentOfTwoSiblingsOfOneName = 4;

} // namespace

void Life::nameBirthsOfTheYear()
{
    std::vector<PersonId> births = births_[year_];
    std::ranges::sort(births, {}, [this](PersonId id) { return std::pair(person(id).birth, id); });
    for (const PersonId id : births) {
        chooseGodparents(person(id));
        name(person(id), year_);
    }
    births_.erase(year_);
}

// Somebody who lives here, of the same place where one is soon found.
PersonId Life::neighbour(bool male, QDate day, int locality)
{
    for (int tries = 0; tries < triesForANeighbour; ++tries) {
        const Person& one = person(random_.pick(residents_));
        const bool isNear = tries > triesForANeighbour / 2 || one.locality == locality;
        if (one.male == male && isNear && one.livesHere(day) && yearsBetween(one.birth, day) >= godparentFrom)
            return one.id;
    }
    return 0;
}

void Life::chooseGodparents(Person& child)
{
    std::vector<PersonId> relatives;
    for (const PersonId parent : {world_.father(child.id), world_.mother(child.id)}) {
        if (parent == 0) continue;
        const Couple& old = couple(person(parent).origin);
        relatives.insert(relatives.end(), {old.husband, old.wife});
        relatives.insert(relatives.end(), old.children.begin(), old.children.end());
        std::erase(relatives, parent);
    }
    for (const bool male : {true, false}) {
        PersonId& chosen = male ? child.godfather : child.godmother;
        if (!relatives.empty() && random_.chance(percentOfRelatives)) {
            const Person& one = person(random_.pick(relatives));
            if (one.id != 0 && one.male == male && one.livesHere(child.birth) &&
                yearsBetween(one.birth, child.birth) >= godparentFrom)
                chosen = one.id;
        }
        if (chosen == 0) chosen = neighbour(male, child.birth, child.locality);
    }
}

bool Life::isTaken(const Person& child, const QString& given) const
{
    return std::ranges::any_of(world_.couple(child.origin).children, [&](PersonId id) {
        const Person& other = world_.person(id);
        return id != child.id && other.male == child.male && other.name.given == given && other.death > child.birth;
    });
}

QString Life::givenNameOf(const Person& child, int year)
{
    for (const PersonId id : couple(child.origin).children) {
        const Person& dead = person(id);
        if (id != child.id && dead.male == child.male && dead.birth < child.birth && dead.death < child.birth &&
            !dead.name.given.isEmpty() && !isTaken(child, dead.name.given) && happens(random_, rates_.nameGivenAgain))
            return dead.name.given;
    }
    for (int tries = 0; tries < 12; ++tries) {
        const int lot = random_.between(1, 100);
        const PersonId godparent = child.male ? child.godfather : child.godmother;
        const PersonId parent = child.male ? world_.father(child.id) : world_.mother(child.id);
        QString given;
        if (lot <= 30 && godparent != 0)
            given = person(godparent).name.given;
        else if (lot <= 42 && parent != 0)
            given = person(parent).name.given;
        else if (lot <= 46 && child.godfather != 0)
            given = forSex(person(child.godfather).name.given, child.male);
        else
            given = givenName(random_, child.male, year);
        if (!isTaken(child, given) || random_.chance(percentOfTwoSiblingsOfOneName)) return given;
    }
    return givenName(random_, child.male, year);
}

// What can be handed on: no devotions.
QStringList Life::inherited(PersonId from) const
{
    QStringList surnames = world_.person(from).name.surnames;
    surnames.removeIf(isDevotion);
    return surnames.mid(std::max(0, static_cast<int>(surnames.size()) - 1));
}

QStringList Life::surnamesOf(const Person& one, int year)
{
    const PersonId father = world_.father(one.id), mother = world_.mother(one.id);
    const int lot = random_.between(1, 100);
    if (one.foundling) return lot <= 50 ? QStringList{devotion(random_)} : QStringList{};
    if (!one.male && lot <= (year < 1700 ? 15 : 30)) return {devotion(random_)};
    if (!one.male && lot <= 45) return {};
    QStringList surnames;
    const int whose = random_.between(1, 100);
    if (whose <= (one.male ? 55 : 35))
        surnames = inherited(father);
    else if (whose <= (one.male ? 67 : 65))
        surnames = inherited(mother);
    else if (whose <= 75)
        surnames = inherited(mother) + inherited(father);
    else if (whose <= 83)
        surnames = inherited(one.male ? one.godfather : one.godmother);
    else if (whose <= 88 && year < 1720 && father != 0)
        surnames << patronymic(person(father).name.given);
    surnames.removeAll(QString());
    surnames.removeDuplicates();
    if (surnames.isEmpty()) surnames << familyName(random_);
    if (random_.chance(12)) surnames.prepend(familyName(random_));
    surnames.removeDuplicates();
    return surnames;
}

void Life::name(Person& one, int year)
{
    one.name.given = givenNameOf(one, year);
    one.name.second = secondName(random_, one.male, one.name.given, year);
    one.name.surnames = surnamesOf(one, year);
    if (happens(random_, rates_.nameOfLaterLife)) {
        one.laterName = one.name;
        one.laterName.surnames = surnamesOf(one, year);
    }
    static const QStringList ofMen{"o Ruivo", "o Torto", "o Galego", "o Moleiro", "o Novo", "o Velho", "o Surdo"};
    static const QStringList ofWomen{"a Ruiva", "a Galega", "a Moleira", "a Nova", "a Velha", "a Tecedeira"};
    if (random_.chance(3)) one.nickname = random_.pick(one.male ? ofMen : ofWomen);
}

} // namespace truth
