#include "transcriber.h"

#include "kinship.h"

#include <algorithm>

namespace demo {
namespace {

constexpr int ordained = 32; // the age at which whoever takes orders has them
constexpr int godparentFrom = 14;
constexpr int witnessFrom = 18;

} // namespace

Transcriber::Transcriber(Parish& parish, std::uint32_t seed) : parish_(parish), random_(seed)
{
    for (const Family& family : parish.families)
        for (const Spouse& spouse : {family.husband, family.wife})
            if (spouse.person && family.situation == legitimateFamily && family.seenFrom.isValid())
                marriages_[spouse.person] << family.number;
    for (const Person& person : parish.people) {
        const int lot = random_.between(1, 100);
        const bool lettered = person.civilState == cleric || person.title == "Dom";
        const int unlettered = person.sex == Sex::female ? 88 : 55;
        literacy_[person.number] = lettered ? 5 : lot <= unlettered ? 1 : random_.between(2, 4);
    }
}

void Transcriber::run()
{
    for (Person& person : parish_.people)
        if (person.baptizedBy.person && person.sex != Sex::unknown) transcribeBaptism(person);
    for (Family& family : parish_.families) {
        if (family.marriedBy.person) transcribeWedding(family);
        addHomes(family);
    }
    for (Person& person : parish_.people) {
        if (person.buriedBy.person) transcribeBurial(person);
        addHomes(person);
        addProfessions(person);
        if (person.emigrant) addPassports(person);
    }
}

bool Transcriber::isAround(const Person& person, QDate day) const
{
    return person.seenFrom.isValid() && person.seenFrom <= day && person.isPresent(day);
}

// The living husband or wife, if there is one.
Nind Transcriber::spouseOn(Nind number, QDate day) const
{
    Nind spouse;
    for (const Nfam marriage : marriages_.value(number)) {
        const Family& family = which(marriage);
        if (family.seenFrom > day) break;
        spouse = family.husband.person == number ? family.wife.person : family.husband.person;
    }
    return spouse && who(spouse).death > day ? spouse : Nind();
}

int Transcriber::civilStateOn(const Person& person, QDate day) const
{
    if (person.civilState == cleric) return cleric;
    const QList<Nfam> marriages = marriages_.value(person.number);
    if (marriages.isEmpty() || which(marriages.first()).seenFrom > day) return single;
    return spouseOn(person.number, day) ? married : widowed;
}

QList<Nind> Transcriber::grownOn(QDate day, Sex sex, int age) const
{
    QList<Nind> grown;
    for (const Person& person : parish_.people) {
        const int from = person.civilState == cleric ? ordained : age;
        if (person.sex == sex && isAround(person, day) && completedYears(person.birth, day) >= from)
            grown << person.number;
    }
    return grown;
}

// One of the candidates, of whom there must be some; more often than not a relative.
Nind Transcriber::choose(const QList<Nind>& candidates, std::initializer_list<Nind> ofWhom)
{
    QList<Nind> relatives;
    if (random_.chance(55))
        std::ranges::copy_if(candidates, std::back_inserter(relatives), [&](Nind candidate) {
            return std::ranges::any_of(ofWhom,
                                       [&](Nind one) { return kinship(parish_, who(candidate), who(one)) != 0; });
        });
    return random_.pick(relatives.isEmpty() ? candidates : relatives);
}

// A priest who lives in the parish beside the one in office, if one does and is called.
Nind Transcriber::otherPriest(Nind inOffice, QDate day)
{
    QList<Nind> priests = grownOn(day, Sex::male, ordained);
    priests.removeIf([&](Nind number) { return number == inOffice || who(number).civilState != cleric; });
    return priests.isEmpty() || !random_.chance(20) ? Nind() : random_.pick(priests);
}

// The parish priest may leave an act to another one; the act then names both.
void Transcriber::share(Officiant& first, Officiant& second, QDate day)
{
    const Nind other = otherPriest(first.person, day);
    if (!other) return;
    second = first;
    first = {other, withLicence};
}

void Transcriber::transcribeBaptism(Person& child)
{
    share(child.baptizedBy, child.baptizedWith, child.birth);
    const Parents parents = parentsOf(parish_, child);
    QList<Nind> there{child.number, parents.father, parents.mother, child.baptizedBy.person, child.baptizedWith.person};
    Assistance row{.baptized = child.number, .day = child.birth};
    assist(row, Sex::male, there);
    if (random_.chance(85)) assist(row, Sex::female, there);
    row.godparent = false;
    for (int witnesses = random_.chance(20) ? 2 : 0; witnesses > 0; --witnesses)
        assist(row, Sex::male, there);
}

void Transcriber::transcribeWedding(Family& family)
{
    share(family.marriedBy, family.marriedWith, family.wedding.data);
    const Sighting wedding{family.wedding, "Assento de casamento"};
    sign(family.husband.person, wedding, "Noivo");
    sign(family.wife.person, wedding, "Noiva");

    QList<Nind> there{family.husband.person, family.wife.person, family.marriedBy.person, family.marriedWith.person};
    Assistance row{.wedded = family.number, .day = family.wedding.data};
    if (random_.chance(15)) assist(row, Sex::male, there);
    row.godparent = false;
    for (int witnesses = random_.between(2, 3); witnesses > 0; --witnesses)
        if (const Nind witness = assist(row, Sex::male, there)) sign(witness, wedding, "Testemunha");
}

void Transcriber::transcribeBurial(Person& dead)
{
    if (const Nind other = otherPriest(dead.buriedBy.person, dead.death)) dead.buriedBy = {other, curate};
    if (!dead.grave.isEmpty()) {
        const bool noble = dead.title == "Dom" || dead.title == "Dona";
        dead.church = noble               ? "Capela da casa do Paço"
                      : random_.chance(3) ? "Convento de São Francisco"
                                          : "Igreja paroquial de São Mamede";
    }
    if (dead.will) openWill(dead);
    if (dead.will || (completedYears(dead.birth, dead.death) >= 25 && random_.chance(25))) addSuffrages(dead);
}

// Finds who may assist, completes the row and adds it; whoever is there already doesn't come again. The
// assistant, none where nobody is fit: then there is no row.
Nind Transcriber::assist(Assistance row, Sex sex, QList<Nind>& there)
{
    QList<Nind> candidates = grownOn(row.day, sex, row.godparent ? godparentFrom : witnessFrom);
    candidates.removeIf([&](Nind number) { return there.contains(number); });
    if (candidates.isEmpty()) return {};

    const auto kinshipTo = [&](Nind other) { return kinship(parish_, who(row.person), who(other)); };
    if (row.baptized) {
        row.person = choose(candidates, {row.baptized});
        row.kinToBaptized = kinshipTo(row.baptized);
    } else {
        const Family& family = which(row.wedded);
        row.person = choose(candidates, {family.husband.person, family.wife.person});
        row.kinToGroom = kinshipTo(family.husband.person);
        row.kinToBride = kinshipTo(family.wife.person);
    }
    const Person& assistant = who(row.person);
    const Parents parents = parentsOf(parish_, assistant);
    const auto isDead = [&](Nind parent) { return parent && who(parent).death <= row.day; };
    row.civilState = civilStateOn(assistant, row.day);
    row.fatherDead = isDead(parents.father);
    row.motherDead = isDead(parents.mother);
    if (row.godparent && random_.chance(4)) row.notes = "Por procuração.";
    parish_.records.assistances << row;
    there << row.person;
    return row.person;
}

} // namespace demo
