#include "chronicle.h"

#include <algorithm>

namespace demo {
namespace {

constexpr int founders = 12;
constexpr int fertileFrom = 16;

} // namespace

Parish Chronicle::run()
{
    at(firstDay, [this] { settleFounders(true); });
    for (int i = 1; i < founders; ++i)
        at(firstDay.addDays(random_.between(20, 1500)), [this] { settleFounders(false); });
    for (QDate day = firstDay.addYears(8); day < lastDay; day = day.addDays(random_.between(1500, 4500)))
        at(day, [this] { findFoundling(); });
    while (!agenda_.empty() && agenda_.begin()->first <= lastDay) {
        auto entry = agenda_.extract(agenda_.begin());
        today_ = entry.key();
        entry.mapped()();
    }
    return std::move(parish_);
}

Local Chronicle::inParish()
{
    if (random_.chance(45)) return {parishCode, "F"};
    const int locality = random_.between(1, static_cast<int>(localities().size()));
    const auto code = QStringLiteral("%1%2").arg(parishCode).arg(locality, 2, 10, QChar('0'));
    const int sites = static_cast<int>(localities()[locality - 1].sites.size());
    if (sites == 0 || random_.chance(70)) return {code, "L"};
    return {QStringLiteral("%1%2").arg(code).arg(random_.between(1, sites), 2, 10, QChar('0')), "S"};
}

QDate Chronicle::birthAtAge(int youngest, int oldest)
{
    return today_.addDays(-random_.between(youngest * 366, oldest * 365));
}

// Days from a birth to the death.
int Chronicle::lifespan()
{
    const int lot = random_.between(1, 100);
    if (lot <= 17) return random_.between(0, 364);
    if (lot <= 30) return random_.between(365, 7 * 365);
    if (lot <= 36) return random_.between(7 * 365, 18 * 365);
    return adultLifespan(18);
}

int Chronicle::adultLifespan(int age)
{
    const int years = random_.chance(30) ? random_.between(20, 48) : random_.between(45, 86);
    const int more = random_.between(2, 20);
    return std::max(years, age + more) * 365 + random_.between(0, 364);
}

Person& Chronicle::add(Sex sex, QDate birth, QDate death)
{
    Person person;
    person.number = parish_.nextPerson();
    person.sex = sex;
    person.birth = birth;
    person.birthTold = {birth, true};
    person.death = death;
    parish_.people.append(person);
    at(death, [this, number = person.number] { bury(number); });
    return parish_.people.last();
}

// Somebody born elsewhere, first seen today; the own register doesn't hold the birth.
Person& Chronicle::addNewcomer(Sex sex, QDate birth)
{
    Person& person = add(sex, birth, birth.addDays(adultLifespan(completedYears(birth, today_))));
    person.name = givenName(random_, sex, birth.year());
    person.surname = sex == Sex::female && random_.chance(40) ? devotionalName(random_) : familyName(random_);
    person.name += ' ' + person.surname;
    if (!random_.chance(25)) person.birthTold = {};
    if (random_.chance(75)) person.birthPlace = {random_.pick(neighbours()), "F"};
    person.seenFrom = today_;
    return person;
}

void Chronicle::appointPriest()
{
    Person& priest = addNewcomer(Sex::male, birthAtAge(27, 40));
    priest.title = "Padre";
    priest.civilState = cleric;
    priest.birthTold = {};
    priest.note("Pároco desta freguesia.");
    priest_ = priest.number;
    const QDate successor = std::min(priest.death.addDays(1), today_.addDays(random_.between(15 * 365, 30 * 365)));
    if (successor <= priest.death) {
        priest.left = successor;
        priest.seenTo = successor.addDays(-1);
    }
    at(successor, [this] { appointPriest(); });
}

// A couple married before the first register of marriages, seen first at a child's baptism.
void Chronicle::settleFounders(bool noble)
{
    const Nind husband = addNewcomer(Sex::male, birthAtAge(25, 38)).number;
    const Nind wife = addNewcomer(Sex::female, birthAtAge(20, 30)).number;
    for (Person* spouse : {&who(husband), &who(wife)}) {
        spouse->civilState = married;
        spouse->marriages = 1;
        if (noble) {
            spouse->title = spouse->sex == Sex::male ? "Dom" : "Dona";
            spouse->surname = "de Abreu e Lima";
            spouse->note("Da casa do Paço.");
            spouse->name = givenName(random_, spouse->sex, 1620) + ' ' + spouse->surname;
        }
    }
    Family& family = addFamily(husband, wife);
    family.notes = "Casados antes do primeiro livro de casamentos.";
    if (!priest_) appointPriest(); // who writes down the first act
    bear(family.number);
}

void Chronicle::findFoundling()
{
    const Sex sex = random_.chance(50) ? Sex::male : Sex::female;
    Person& child = add(sex, today_, today_.addDays(lifespan()));
    child.surname = devotionalName(random_); // for children to come
    child.name = givenName(random_, sex, today_.year()) + (sex == Sex::male ? " Exposto" : " Exposta");
    child.filiation = foundling;
    child.birthTold.fixa = false;
    child.birthPlace = {parishCode, "F"};
    child.baptizedBy = {priest_, parishPriest};
    child.seenFrom = today_;
    child.note((sex == Sex::male ? "Enjeitado à porta de " : "Enjeitada à porta de ") +
               random_.pick(localities()).name + "; a idade é a que mostrava ter.");
    planLife(child);
}

void Chronicle::planBirth(Nfam family, int fewest, int most)
{
    after(fewest, most, [this, family] { bear(family); });
}

void Chronicle::bear(Nfam number)
{
    const Family family = parish_.family(number);
    const Person& mother = who(family.wife.person);
    const int age = ageToday(mother);
    const bool fathered = !family.husband.person || who(family.husband.person).death > today_.addDays(-pregnancy);
    if (!mother.isPresent(today_) || !fathered || age >= fertileTo || age < fertileFrom) return;

    const bool twins = random_.chance(2);
    bearOne(family, twins);
    if (twins) bearOne(family, true);
    if (random_.chance(1)) dieInChildbed(family.wife.person);
    const bool last = family.situation != legitimateFamily || random_.chance(age > 37 ? 40 : 5);
    if (!last) planBirth(number, 550, 1250);
}

void Chronicle::bearOne(const Family& family, bool twin)
{
    const bool unnamed = random_.chance(1);
    const Sex sex = unnamed ? Sex::unknown : random_.chance(51) ? Sex::male : Sex::female;
    Person& child = add(sex, today_, today_.addDays(unnamed ? 0 : lifespan()));
    child.origin = family.number;
    child.filiation = family.situation == legitimateFamily ? legitimate : fatherUnknown;
    child.birthPlace = inParish();
    child.baptizedBy = {priest_, parishPriest};
    child.seenFrom = today_;
    if (unnamed) {
        child.name = "Criança sem nome";
        child.note("Baptizada em casa pela parteira, por perigo de vida.");
        return;
    }
    nameChild(child, family);
    if (twin)
        child.note("De parto duplo.");
    else if (random_.chance(3))
        child.note("Baptismo em casa, por necessidade; santos óleos depois, na igreja.");
    planLife(child);
}

void Chronicle::dieInChildbed(Nind number)
{
    Person& mother = who(number);
    const QDate day = today_.addDays(random_.between(1, 15));
    if (day >= mother.death) return;
    mother.death = day;
    at(day, [this, number] { bury(number); });
}

void Chronicle::nameChild(Person& child, const Family& family)
{
    const Person& mother = who(family.wife.person);
    const Person& parent = family.husband.person ? who(family.husband.person) : mother;
    const bool devout = child.sex == Sex::female && random_.chance(45);
    child.surname = devout ? devotionalName(random_) : random_.chance(75) ? parent.surname : mother.surname;
    if (parent.title == "Dom") child.title = child.sex == Sex::male ? "Dom" : "Dona";

    // The name of a living brother or sister is avoided, that of a dead one often given again.
    const auto taken = [&](const QString& name) {
        return std::ranges::any_of(parish_.people, [&](const Person& other) {
            return other.origin == family.number && other.number != child.number && other.isPresent(today_) &&
                   other.name.startsWith(name + ' ');
        });
    };
    QString given = givenName(random_, child.sex, today_.year());
    for (int i = 0; i < 5 && taken(given); ++i)
        given = givenName(random_, child.sex, today_.year());
    child.name = given + ' ' + child.surname;
}

void Chronicle::planLife(const Person& child)
{
    const int age = child.sex == Sex::male ? random_.between(20, 31) : random_.between(18, 26);
    const QDate day = child.birth.addDays(366LL * age);
    if (day < child.death) at(day, [this, number = child.number] { comeOfAge(number); });
}

// What becomes of a grown child: some leave, some take orders; the men who stay look for a wife, the women wait.
void Chronicle::comeOfAge(Nind number)
{
    Person& person = who(number);
    if (random_.chance(8)) person.nickname = nickname(random_, person.sex);
    if (person.sex == Sex::male) {
        const int lot = random_.between(1, 100);
        if (lot <= 15) {
            person.emigrant = true;
            return leave(number, "Ausentou-se para o Brasil.");
        }
        if (lot <= 22) return leave(number, "Casou fora da freguesia.");
        if (lot <= 25) {
            person.title = "Padre";
            person.civilState = cleric;
            return;
        }
        if (lot <= 92) after(365, 2500, [this, number] { seekBride(number); });
        return;
    }
    if (person.civilState != single) return;
    const int lot = random_.between(1, 100);
    if (lot <= 16) return leave(number, "Casou fora da freguesia.");
    if (lot <= 24) after(300, 4000, [this, number] { bearOutOfWedlock(number); });
}

void Chronicle::leave(Nind number, const QString& note)
{
    Person& person = who(number);
    person.left = today_;
    person.seenTo = today_;
    person.note(note);
}

} // namespace demo
