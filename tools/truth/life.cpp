#include "life.h"

#include <algorithm>
#include <cmath>

namespace truth {

namespace {

constexpr int oldest = 98;
constexpr double arrivalsPerInhabitant = 0.0007; // couples a year
constexpr int inhabitantsOfALocality = 70;

// Deaths of a year of age from twenty on, about those of a mean of forty years left at twenty.
double riskAt(int age)
{
    return 0.004 + 0.00007 * std::exp(0.1 * age);
}

} // namespace

int yearsBetween(QDate from, QDate to)
{
    const int years = to.year() - from.year();
    const bool reached = to.month() > from.month() || (to.month() == from.month() && to.day() >= from.day());
    return reached ? years : years - 1;
}

QDate deathOf(QDate birth, const Rates& rates, demo::Random& random)
{
    if (happens(random, rates.infantDeaths)) // half of them in the first month
        return birth.addDays(random.chance(50) ? random.between(0, 28) : random.between(29, 364));
    if (happens(random, rates.childDeaths)) // most of them before the fifth birthday
        return birth.addDays(std::min(random.between(365, 3650), random.between(365, 3650)));
    int age = 10;
    while (age < oldest && !happens(random, age < 20 ? riskAt(0) : riskAt(age)))
        ++age;
    return birth.addYears(age).addDays(random.between(0, 364));
}

World lived(int inhabitants, const Rates& rates, std::uint32_t seed)
{
    return Life(inhabitants, rates, seed).run();
}

World Life::run()
{
    world_.localities = std::clamp(inhabitants_ / inhabitantsOfALocality, 6, 99);
    settle();
    for (; year_ <= lastYear; ++year_) {
        beginYear();
        marryAll();
        childrenOutOfWedlock();
        nameBirthsOfTheYear();
    }
    appointPriests();
    teachTrades();
    return std::move(world_);
}

Person& Life::born(bool male, QDate birth)
{
    Person& one = world_.people.emplace_back();
    one.id = static_cast<PersonId>(world_.people.size()) - 1;
    one.male = male;
    one.birth = one.from = birth;
    one.death = one.until = deathOf(birth, rates_, random_);
    one.bornHere = true;
    return one;
}

Couple& Life::newCouple(PersonId husband, PersonId wife, QDate wedding)
{
    Couple& one = world_.couples.emplace_back();
    one.id = static_cast<CoupleId>(world_.couples.size()) - 1;
    one.husband = husband;
    one.wife = wife;
    one.wedding = wedding;
    if (husband != 0) person(husband).unions.push_back(one.id);
    if (wife != 0) person(wife).unions.push_back(one.id);
    return one;
}

PersonId Life::grown(bool male, int age, QDate day)
{
    const QDate birth = day.addYears(-age).addDays(-random_.between(0, 364));
    PersonId parents[2]{};
    for (const bool isFather : {true, false}) {
        Person& parent = born(isFather, birth.addYears(-random_.between(20, 40)));
        parent.death = std::max(parent.death, birth.addYears(random_.between(1, 30)));
        parent.outside = true;
        parent.bornHere = false;
        name(parent, parent.birth.year());
        parents[isFather ? 0 : 1] = parent.id;
    }
    const CoupleId origin = newCouple(parents[0], parents[1], birth.addYears(-2)).id;
    Person& one = born(male, birth);
    while (one.death <= day.addDays(30))
        one.death = deathOf(birth, rates_, random_);
    one.until = one.death;
    one.from = day;
    one.bornHere = false;
    one.origin = origin;
    couple(origin).children.push_back(one.id);
    name(one, birth.year());
    return one.id;
}

void Life::arrive(QDate day)
{
    const int age = random_.between(21, 40);
    const PersonId wife = grown(false, age, day), husband = grown(true, age + random_.between(-2, 7), day);
    const QDate wedding = day.addDays(-random_.between(30, 365 * (age - 19)));
    const CoupleId id = newCouple(husband, wife, wedding).id;
    couple(id).locality = random_.between(1, world_.localities);
    person(wife).locality = person(husband).locality = couple(id).locality;
    for (QDate birth = wedding.addDays(random_.between(300, 600)); birth < day;
         birth = birth.addDays(random_.between(600, 1300)))
    {
        Person& child = born(random_.chance(51), birth);
        while (child.death <= day)
            child.death = deathOf(birth, rates_, random_);
        child.from = day;
        child.until = child.death;
        child.bornHere = false;
        child.origin = id;
        child.locality = couple(id).locality;
        couple(id).children.push_back(child.id);
        name(child, birth.year());
    }
    const std::vector<PersonId>& brought = couple(id).children;
    const QDate last = brought.empty() ? wedding : person(brought.back()).birth;
    planChildren(id, std::max(day, last.addDays(280)).addDays(random_.between(20, 900)), leaving(couple(id)));
    planWidowhood(couple(id));
}

void Life::settle()
{
    constexpr int peopleOfACouple = 5;
    for (int i = 0; i < inhabitants_ / peopleOfACouple; ++i)
        arrive(QDate(firstYear, 1, 1).addDays(-random_.between(0, 30)));
}

void Life::beginYear()
{
    const QDate day(year_, 1, 1);
    if (year_ > firstYear) {
        const double expected = static_cast<double>(residents_.size()) * arrivalsPerInhabitant;
        int arrivals = static_cast<int>(expected) + (happens(random_, expected - std::floor(expected)) ? 1 : 0);
        for (; arrivals > 0; --arrivals)
            arrive(dayOf(year_));
    }
    residents_.clear();
    single_.clear();
    for (const Person& one : world_.people) {
        if (!one.livesHere(day) || one.name.given.isEmpty()) continue;
        residents_.push_back(one.id);
        if (one.unions.empty() && yearsBetween(one.birth, day) >= 16) single_.push_back(one.id);
    }
    for (const PersonId id : widowed_[year_ - 1])
        if (person(id).livesHere(day)) single_.push_back(id);
}

// They come from elsewhere, and die here or go.
void Life::appointPriests()
{
    for (int year = firstYear; year <= lastYear;) {
        const PersonId priest = grown(true, random_.between(26, 45), QDate(year, 1, 1));
        Person& one = person(priest);
        one.locality = random_.between(1, world_.localities);
        const QDate leaves(year + random_.between(4, 25), 1, 1);
        one.until = std::min(one.death, leaves);
        const int until = std::max(year + 1, one.until.year());
        world_.ministries.push_back({priest, year, until});
        year = until;
    }
}

// Most live of the land; sons mostly do what their fathers did.
void Life::teachTrades()
{
    constexpr int ofTheLand = 1, others = 12;
    for (Person& one : world_.people) {
        if (!one.male || one.outside || one.id == 0) continue;
        const int ofTheFather = world_.person(world_.father(one.id)).trade;
        one.trade = ofTheFather != 0 && random_.chance(70) ? ofTheFather
                    : random_.chance(60)                   ? ofTheLand
                                                           : random_.between(2, others);
    }
    for (const Ministry& ministry : world_.ministries)
        person(ministry.priest).trade = 0;
}

} // namespace truth
