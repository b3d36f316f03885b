#include "chronicle.h"

#include <algorithm>
#include <cstdlib>

namespace demo {
namespace {

// The burial register of these years is lost.
const QDate lostFrom(1671, 1, 1);
const QDate lostTo(1679, 12, 31);

} // namespace

void Chronicle::seekBride(Nind number)
{
    const Person& groom = who(number);
    if (!groom.isPresent(today_) || groom.civilState == married || groom.civilState == cleric) return;
    Nind bride = random_.chance(80) ? findBride(groom) : Nind();
    if (!bride) bride = addNewcomer(Sex::female, birthAtAge(19, 30)).number;
    wed(number, bride);
}

// A single woman or a widow out of mourning, of fit age and of another family, if there is one.
Nind Chronicle::findBride(const Person& groom)
{
    QList<Nind> candidates;
    for (const Person& woman : parish_.people) {
        const int age = ageToday(woman);
        const bool free =
            woman.civilState == single || (woman.civilState == widowed && woman.widowedOn < today_.addDays(-300));
        if (woman.sex == Sex::female && free && woman.isPresent(today_) && age >= 18 && age <= 38 &&
            std::abs(age - ageToday(groom)) <= 15 && (!woman.origin || woman.origin != groom.origin))
            candidates.append(woman.number);
    }
    return candidates.isEmpty() ? Nind() : random_.pick(candidates);
}

void Chronicle::wed(Nind groom, Nind bride)
{
    Family& family = addFamily(groom, bride);
    family.wedding = {today_, true};
    family.place = {parishCode, "F"};
    family.marriedBy = {priest_, parishPriest};
    if (random_.chance(5)) family.notes = "Dispensados no quarto grau de consanguinidade.";
    for (Spouse* spouse : {&family.husband, &family.wife}) {
        Person& person = who(spouse->person);
        person.civilState = married;
        spouse->marriage = ++person.marriages;
    }
    planBirth(family.number, pregnancy, 600);
}

Family& Chronicle::addFamily(Nind husband, Nind wife)
{
    Family family;
    family.number = parish_.nextFamily();
    family.husband.person = husband;
    if (husband) family.husband.civilState = who(husband).civilState;
    family.wife.person = wife;
    family.wife.civilState = who(wife).civilState;
    family.seenFrom = today_;
    parish_.families.append(family);
    return parish_.families.last();
}

void Chronicle::bearOutOfWedlock(Nind number)
{
    const Person& mother = who(number);
    if (!mother.isPresent(today_) || mother.civilState != single || ageToday(mother) >= fertileTo) return;
    Family& family = addFamily({}, number);
    family.situation = fatherUnknownFamily;
    bear(family.number);
}

void Chronicle::bury(Nind number)
{
    Person& dead = who(number);
    if (dead.death != today_ || dead.deathTold.conhecida()) return; // died earlier than first laid down
    if (dead.left.isValid() && dead.left <= today_) return;
    const bool lost = today_ >= lostFrom && today_ <= lostTo;
    if (!lost) recordBurial(dead);
    leaveWidowed(dead);
}

void Chronicle::recordBurial(Person& dead)
{
    const int age = ageToday(dead);
    dead.deathTold = {today_, !random_.chance(3)};
    dead.seenTo = today_;
    dead.deathPlace = inParish();
    dead.buriedBy = {priest_, parishPriest};
    dead.cause = causeOfDeath(random_, age);
    dead.parishClass = dead.civilState == cleric ? clergy : age < 7 ? innocent : age < 12 ? ofConfession : ofCommunion;
    if (age < 7) {
        dead.sacraments = tooYoung;
    } else {
        const int lot = random_.between(1, 100);
        dead.sacraments = lot <= 75 ? allSacraments : lot <= 88 ? confessionOnly : suddenDeath;
        dead.grave = random_.chance(70) ? "Dentro da igreja" : "No adro";
    }
    if (age >= 25) {
        dead.will = random_.chance(18);
        if (random_.chance(30)) dead.shroud = random_.chance(60) ? "Hábito de São Francisco" : "Lençol";
    }
    // The age told at the burial is all that is known of the birth of some newcomers.
    if (!dead.birthTold.conhecida() && dead.civilState != cleric && random_.chance(55)) {
        dead.birth = QDate(dead.birth.year(), 1, 1);
        dead.birthTold = {dead.birth, false};
        dead.note("Nascimento calculado pela idade ao óbito.");
    }
}

// The marriage of the dead ends; a widower may look for another wife.
void Chronicle::leaveWidowed(const Person& dead)
{
    if (dead.civilState != married) return;
    const auto family = std::find_if(parish_.families.rbegin(), parish_.families.rend(), [&](const Family& one) {
        return one.situation == legitimateFamily &&
               (one.husband.person == dead.number || one.wife.person == dead.number);
    });
    if (dead.deathTold.conhecida()) family->seenTo = today_;
    Person& other = who(family->husband.person == dead.number ? family->wife.person : family->husband.person);
    if (!other.isPresent(today_)) return;
    other.civilState = widowed;
    other.widowedOn = today_;
    if (other.sex == Sex::male && ageToday(other) < 55 && random_.chance(60))
        after(150, 900, [this, number = other.number] { seekBride(number); });
}

} // namespace demo
