#include "clerk.h"

#include "codes.h"
#include "life.h"

#include <algorithm>

namespace truth {

namespace {

constexpr int grandparentsFrom = 1705; // they come into the acts in the course of the 18th century
constexpr int grownFrom = 14;
constexpr int triesForAWitness = 80;

// The last marriage before the day; 0: none.
CoupleId marriageBefore(const World& world, const Person& person, QDate day)
{
    CoupleId last = 0;
    for (const CoupleId id : person.unions)
        if (world.couple(id).wedding <= day) last = id;
    return last;
}

int stateOn(const World& world, const Person& person, QDate day)
{
    const CoupleId id = marriageBefore(world, person, day.addDays(-1));
    if (id == 0) return demo::single;
    const Couple& couple = world.couple(id);
    const PersonId other = couple.husband == person.id ? couple.wife : couple.husband;
    return world.person(other).death < day ? demo::widowed : demo::married;
}

} // namespace

void Clerk::begin(int year)
{
    if (year < habits_.until) return;
    habits_.until = year + random_.between(4, 18);
    habits_.shortening = random_.between(40, 170) / 100.0;
    habits_.spelling = random_.between(20, 200) / 100.0;
    habits_.percentOfAges = static_cast<int>(rates_.ageTold * random_.between(40, 150));
    habits_.percentOfGrandparents = year < grandparentsFrom ? 0 : std::min(100, (year - grandparentsFrom) * 3);
    if (random_.chance(25)) habits_.percentOfGrandparents /= 5;
    habits_.percentOfStates = random_.between(10, 90);
    habits_.percentOfPlaces = random_.between(40, 100);
    habits_.percentOfTrades = std::max(0, random_.between(-20, 30));
}

// A missing last element is no other name; now and then the name really is another one.
Name Clerk::said(const Person& person, QDate day)
{
    const bool isLate = !person.laterName.given.isEmpty() && yearsBetween(person.birth, day) > 22;
    Name name = isLate && random_.chance(75) ? person.laterName : person.name;
    if (random_.chance(25)) name.second.clear();
    for (qsizetype i = name.surnames.size() - 1; i >= 0; --i) {
        const double rate = isDevotion(name.surnames[i]) ? rates_.devotionLeftOut : rates_.elementLeftOut;
        const bool isTheOnlyOne = name.surnames.size() == 1 && person.male;
        if (happens(random_, std::min(0.9, rate * habits_.shortening * (isTheOnlyOne ? 0.3 : 1))))
            name.surnames.removeAt(i);
    }
    if (happens(random_, rates_.otherSurname)) {
        const PersonId parent = random_.chance(50) ? world_.father(person.id) : world_.mother(person.id);
        QStringList surnames = world_.person(parent).name.surnames;
        surnames.removeIf(isDevotion);
        if (!surnames.isEmpty()) name.surnames = {surnames.last()};
    }
    return name;
}

QString Clerk::spelled(const Name& name)
{
    QStringList words = name.full().split(' ', Qt::SkipEmptyParts);
    for (QString& word : words) {
        if (happens(random_, rates_.unread))
            word = random_.chance(50) ? QStringLiteral("?") : word.left(2) + "...";
        else if (happens(random_, rates_.misread))
            word = Spellings::misread(word, random_);
        else if (happens(random_, std::min(0.9, rates_.oldSpelling * habits_.spelling)))
            word = spellings_.old(word, random_);
    }
    return words.join(' ');
}

Mention Clerk::mention(PersonId who, QDate day, bool isAChild)
{
    if (who == 0) return {};
    const Person& person = world_.person(who);
    Mention one{.who = who, .name = isAChild ? Name{person.name.given, {}, {}} : said(person, day)};
    if (isAChild && random_.chance(60)) one.name.second = person.name.second;
    one.shown = spelled(one.name);
    one.dead = person.death < day;
    if (!person.outside && person.locality != 0 && random_.chance(habits_.percentOfPlaces))
        one.locality = person.locality;
    if (!isAChild && random_.chance(habits_.percentOfStates)) one.state = stateOn(world_, person, day);
    if (!isAChild && random_.chance(habits_.percentOfTrades)) one.trade = person.trade;
    return one;
}

Mention Clerk::priestOn(QDate day)
{
    const auto now = std::ranges::find_if(
        world_.ministries, [&](const Ministry& one) { return one.from <= day.year() && day.year() < one.until; });
    return now != world_.ministries.end() && happens(random_, rates_.priestTold) ? mention(now->priest, day)
                                                                                 : Mention();
}

Parents Clerk::parentsOfCouple(CoupleId couple, QDate day)
{
    if (couple == 0) return {};
    const Couple& one = world_.couple(couple);
    return {couple, mention(one.husband, day), mention(one.wife, day)};
}

Parents Clerk::parentsOf(PersonId who, QDate day)
{
    return parentsOfCouple(who == 0 ? 0 : world_.person(who).origin, day);
}

Mention Clerk::neighbour(QDate day, bool male)
{
    for (int tries = 0; tries < triesForAWitness; ++tries) {
        const Person& one = random_.pick(world_.people);
        if (one.male == male && !one.name.given.isEmpty() && one.livesHere(day) && yearsBetween(one.birth, day) >= 18)
            return mention(one.id, day);
    }
    return {};
}

int Clerk::ageTold(int age)
{
    const int slip = std::max(1, age / 10);
    int told = std::max(1, age + random_.between(-slip, slip) + random_.between(-1, 1));
    if (age >= 25 && happens(random_, rates_.ageHeaped))
        told = (told + 5) / 10 * 10;
    else if (age >= 20 && random_.chance(25))
        told = (told + 2) / 5 * 5;
    return told;
}

Act Clerk::baptism(const Person& child)
{
    if (!child.bornHere || child.outside || child.name.given.isEmpty() || happens(random_, rates_.actsLost))
        return Act();
    const QDate day = child.birth.addDays(std::min(random_.between(0, 12), random_.between(0, 12)));
    if (child.death < day) return Act();
    Act act{.kind = ActKind::Baptism, .date = day, .subject = mention(child.id, day, true)};
    act.parents = parentsOf(child.id, day);
    act.priest = priestOn(day);
    for (const bool paternal : {true, false})
        if (random_.chance(habits_.percentOfGrandparents))
            act.grandparents[paternal ? 0 : 1] =
                parentsOf(paternal ? act.parents.father.who : act.parents.mother.who, day);
    for (const PersonId godparent : {child.godfather, child.godmother})
        if (godparent != 0) act.others.push_back(mention(godparent, day));
    return act;
}

Act Clerk::marriage(const Couple& couple)
{
    if (!couple.weddedHere || happens(random_, rates_.actsLost)) return Act();
    const QDate day = couple.wedding;
    Act act{.kind = ActKind::Marriage, .date = day, .subject = mention(couple.husband, day)};
    act.bride = mention(couple.wife, day);
    act.couple = couple.id;
    act.priest = priestOn(day);
    for (Mention* one : {&act.subject, &act.bride}) {
        one->state = stateOn(world_, world_.person(one->who), day);
        if (random_.chance(8)) one->age = ageTold(yearsBetween(world_.person(one->who).birth, day));
        // Of who was married before, the first spouse is named rather than the parents.
        if (one->state != demo::single && random_.chance(60)) continue;
        (one == &act.subject ? act.parents : act.parentsOfBride) = parentsOf(one->who, day);
    }
    for (int witnesses = random_.between(2, 3); witnesses > 0; --witnesses)
        if (const Mention witness = neighbour(day, true)) act.others.push_back(witness);
    return act;
}

void Clerk::tellTheDead(Act& act, const Person& deceased)
{
    const int age = yearsBetween(deceased.birth, deceased.death);
    act.subject = mention(deceased.id, act.date, age < 8);
    if (random_.chance(age < 8 ? 20 : habits_.percentOfAges)) act.ageAtDeath = age < 8 ? age : ageTold(age);
    const CoupleId marriage = marriageBefore(world_, deceased, act.date);
    if (age >= grownFrom) act.subject.state = stateOn(world_, deceased, act.date);
    if (marriage != 0 && random_.chance(85)) {
        const Couple& couple = world_.couple(marriage);
        act.couple = marriage;
        act.spouse = mention(couple.husband == deceased.id ? couple.wife : couple.husband, act.date);
    } else if (marriage == 0 && random_.chance(age < 8 ? 92 : 75)) {
        act.parents = parentsOf(deceased.id, act.date);
        if (age < 8 && random_.chance(30)) act.parents.mother = {};
    }
}

// Small children were often buried without an act in the older books.
Act Clerk::burial(const Person& deceased)
{
    const bool isHere = !deceased.outside && deceased.until == deceased.death && deceased.from < deceased.death;
    if (!isHere || deceased.name.given.isEmpty() || happens(random_, rates_.actsLost)) return Act();
    const int year = deceased.death.year();
    if (year < firstYear || year > lastYear) return Act();
    const bool isSmall = yearsBetween(deceased.birth, deceased.death) < 7;
    if (isSmall && year < 1760 && !random_.chance(year < 1710 ? 15 : 55)) return Act();
    Act act{.kind = ActKind::Burial, .date = deceased.death};
    tellTheDead(act, deceased);
    act.priest = priestOn(act.date);
    return act;
}

} // namespace truth
