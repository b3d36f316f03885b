#include "study/indicators/marriedLife.h"

#include "study/indicators/natality.h"

#include <algorithm>

namespace study::indicators {

using natality::anniversary;
using natality::groupOf;
using natality::settled;
using observation::Union;
using parish::Date;
using parish::Family;
using parish::Person;

namespace {

constexpr int firstAge = 15, lastAge = 50, longestMarriage = 100, daysOfPosthumous = 300;

// What a card copies from the dates of births, marriages and deaths adds nothing; what was typed instead restricts.
void restrictTo(QDate first, const Date& copiedFirst, QDate last, const Date& copiedLast, MarriedLife& life)
{
    if (first.isValid() && first != copiedFirst.date() && first > life.from.date())
        life.from = parish::dateOf(first, true);
    if (last.isValid() && last != copiedLast.date() && last < life.until.date())
        life.until = parish::dateOf(last, true);
}

void restrictToObservation(const Family& family, MarriedLife& life)
{
    restrictTo(family.observedFrom, family.marriage, family.observedUntil, {}, life);
    for (const Person* spouse : {family.husband, family.wife})
        if (spouse) restrictTo(spouse->observedFrom, spouse->birth, spouse->observedUntil, spouse->death, life);
    if (life.until.day < life.from.day) life.until = life.from;
}

bool isRead(int year, const Settings& settings)
{
    return settings.covers(Series::Baptisms, year) && (settings.byMarriageCohort || settings.period.holds(year));
}

// Whether a year of the life is read, and whether another one isn't.
struct Reach
{
    bool some = false, all = true;
};
Reach reachOf(const MarriedLife& life, const Settings& settings)
{
    Reach reach;
    for (int year = life.from.year(); year <= life.until.year(); ++year) {
        const bool read = isRead(year, settings);
        reach.some = reach.some || read;
        reach.all = reach.all && read;
    }
    return reach;
}

Lack lackOfUnion(const Union& of, const Date& end, const Settings& settings)
{
    if (!of.isUnion()) return Lack::Couple;
    if (!of.marriage.isKnown()) return Lack::Marriage;
    if (of.isContradictory()) return Lack::Contradiction;
    if (!end.isKnown()) return Lack::End;
    if (!natality::isMarital(*of.family)) return Lack::Situation;
    if (settings.byMarriageCohort && !settings.period.holds(of.marriage.year())) return Lack::Period;
    return settled(end).day < settled(of.marriage).day ? Lack::Contradiction : Lack::None;
}

Lack lackOfAge(const Union& of, const Settings& settings)
{
    if (!of.wifeBirth.isKnown()) return Lack::WifeBirth;
    if (of.wifeBirthBy != observation::BirthBy::Register && !settings.derivedBirths) return Lack::WifeStated;
    return settled(of.wifeBirth).day >= settled(of.marriage).day ? Lack::Contradiction : Lack::None;
}

// The husband's death ends the union, and the wife outlives him.
bool isWidow(const MarriedLife& life)
{
    const Person* husband = life.of->family->husband;
    const Person* wife = life.of->family->wife;
    const bool hisDeath =
        life.of->isClosed() && husband && husband->death.isKnown() && settled(husband->death) == life.end;
    return hisDeath && !(wife && wife->death.isKnown() && settled(wife->death).day <= life.end.day);
}

// The last day on which a birth counts.
qint32 lastDay(const MarriedLife& life)
{
    if (life.until != life.end || !isWidow(life)) return life.until.day;
    const Person* wife = life.of->family->wife;
    const qint32 last = life.end.day + daysOfPosthumous;
    return wife && wife->death.isKnown() ? std::min(last, settled(wife->death).day) : last;
}

Placed placed(const Person& child, const MarriedLife& life, qint32 last, const Settings& settings)
{
    const Legitimacy legitimacy = legitimacyOf(child, settings);
    if (legitimacy == Legitimacy::Illegitimate || legitimacy == Legitimacy::Foundling) return Placed::NotLegitimate;
    if (!child.birth.isKnown()) return Placed::Undated;
    const Date day = settled(child.birth);
    if (day.day < life.from.day) return Placed::Before;
    if (day.day > last) return Placed::Behind;
    if (life.wifeBirth.isKnown()) {
        const int age = parish::completedYears(life.wifeBirth, day);
        if (age < firstAge) return Placed::Young;
        if (age >= lastAge) return Placed::Behind;
    }
    return isRead(day.year(), settings) ? Placed::Within : Placed::Unread;
}

void placeBirths(MarriedLife& life, const Settings& settings)
{
    const qint32 last = lastDay(life);
    for (const Person* child : life.of->family->children) {
        const Date day = child->birth.isKnown() ? settled(child->birth) : Date();
        life.births.push_back({child, day, placed(*child, life, last, settings)});
    }
    std::stable_sort(life.births.begin(), life.births.end(),
                     [](const Birth& one, const Birth& other) { return one.day.day < other.day.day; });
}

// The union with its days; only where nothing of it lacks.
MarriedLife begun(const Union& of, const Date& end, const Settings& settings)
{
    MarriedLife life;
    life.of = &of;
    life.lack = lackOfUnion(of, end, settings);
    if (!life.isCounted()) return life;
    life.marriage = life.from = settled(of.marriage);
    life.end = life.until = settled(end);
    restrictToObservation(*of.family, life);
    return life;
}

MarriedLife finished(MarriedLife life, const Settings& settings)
{
    const Reach reach = reachOf(life, settings);
    if (!reach.some) life.lack = Lack::Books;
    life.isReadThroughout = reach.all;
    if (life.isCounted()) placeBirths(life, settings);
    return life;
}

} // namespace

std::vector<Birth> MarriedLife::within() const
{
    std::vector<Birth> inside;
    std::copy_if(births.begin(), births.end(), std::back_inserter(inside),
                 [](const Birth& birth) { return birth.placed == Placed::Within; });
    return inside;
}

std::size_t MarriedLife::placedAs(Placed placed) const
{
    return static_cast<std::size_t>(
        std::count_if(births.begin(), births.end(), [&](const Birth& birth) { return birth.placed == placed; }));
}

bool MarriedLife::isCompleteAt(int age) const
{
    return isCounted() && of->isClosed() && isReadThroughout && wifeBirth.isKnown() && ageAtMarriage < age &&
           from == marriage && until.day >= anniversary(wifeBirth, age).day;
}

MarriedLife marriedLifeOf(const Union& of, const Study& study)
{
    const bool takesOpen = study.settings.openFamilies && !of.isClosed();
    const Date end = takesOpen ? observation::coupleSeenUntil(of, study.parish).day : of.end;
    MarriedLife life = begun(of, end, study.settings);
    if (life.isCounted()) life.lack = lackOfAge(of, study.settings);
    if (!life.isCounted()) return life;
    life.wifeBirth = settled(of.wifeBirth);
    life.ageAtMarriage = parish::completedYears(life.wifeBirth, life.marriage);
    const Date fiftieth = anniversary(life.wifeBirth, lastAge);
    if (life.from.day >= fiftieth.day) life.lack = Lack::TooLate;
    if (life.until.day > fiftieth.day) life.until = fiftieth;
    return life.isCounted() ? finished(std::move(life), study.settings) : life;
}

MarriedLife closedLifeOf(const Union& of, const Study& study)
{
    MarriedLife life = begun(of, of.end, study.settings);
    return life.isCounted() ? finished(std::move(life), study.settings) : life;
}

namespace {

Stretch stretchAt(const Date& day, const MarriedLife& life, const Settings& settings)
{
    return {.age = life.wifeBirth.isKnown() ? groupOf(parish::completedYears(life.wifeBirth, day)) : 0,
            .duration = groupOf(parish::completedYears(life.marriage, day)),
            .period = natality::cohortOf(life.marriage, day, settings)};
}

// Where the age group, the duration, or the year with its books and its period may change; ascending, with both ends.
std::vector<qint32> cutsOf(const MarriedLife& life, const Settings& settings)
{
    std::vector<qint32> cuts{life.from.day, life.until.day};
    const auto cut = [&](const Date& day) {
        if (day.day > life.from.day && day.day < life.until.day) cuts.push_back(day.day);
    };
    for (int age = firstAge; age < lastAge && life.wifeBirth.isKnown(); age += 5)
        cut(anniversary(life.wifeBirth, age));
    for (int years = 5; years < longestMarriage; years += 5)
        cut(anniversary(life.marriage, years));
    for (int year = life.from.year() + 1; year <= life.until.year(); ++year) {
        const bool changes = isRead(year, settings) != isRead(year - 1, settings) ||
                             (!settings.byMarriageCohort && periodOf(year, settings) != periodOf(year - 1, settings));
        if (changes) cut(parish::dateOf(QDate(year, 1, 1), true));
    }
    std::sort(cuts.begin(), cuts.end());
    cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
    return cuts;
}

Date dayOf(qint32 day)
{
    return {day, parish::Precision::Exact};
}

} // namespace

std::vector<DatedStretch> datedStretchesOf(const MarriedLife& life, const Settings& settings)
{
    std::vector<DatedStretch> stretches;
    const std::vector<qint32> cuts = cutsOf(life, settings);
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
        DatedStretch part{stretchAt(dayOf(cuts[i]), life, settings), dayOf(cuts[i]), dayOf(cuts[i + 1])};
        const bool isYoung = life.wifeBirth.isKnown() && part.stretch.age < firstAge;
        if (isYoung || !isRead(part.from.year(), settings)) continue;
        part.stretch.halfDays = 2 * qint64(parish::daysBetween(part.from, part.until));
        stretches.push_back(part);
    }
    const std::vector<Birth> within = life.within();
    if (cuts.size() == 1 && !within.empty() && within.front().day == life.from) {
        stretches.push_back({stretchAt(life.from, life, settings), life.from, life.from});
        stretches.back().stretch.halfDays = 1;
    }
    return stretches;
}

std::vector<Stretch> stretchesOf(const MarriedLife& life, const Settings& settings)
{
    std::vector<Stretch> stretches;
    for (const DatedStretch& part : datedStretchesOf(life, settings))
        stretches.push_back(part.stretch);
    return stretches;
}

Stretch placeOf(const Birth& birth, const MarriedLife& life, const Settings& settings)
{
    return stretchAt(birth.day, life, settings);
}

void countLack(const MarriedLife& life, quint16 first, Taker& taker)
{
    if (life.isCounted()) return;
    const auto count = static_cast<quint16>(first + static_cast<int>(life.lack) - 1);
    taker.count({count, {}}, {nullptr, life.of->family});
}

void countPlacings(const MarriedLife& life, quint16 first, Taker& taker)
{
    for (const Birth& birth : life.births) {
        if (birth.placed == Placed::Within) continue;
        const auto count = static_cast<quint16>(first + static_cast<int>(birth.placed) - 1);
        taker.count({count, {}}, {birth.child, life.of->family});
    }
}

namespace {

constexpr int firstGroup = 15, lastGroup = 35;

} // namespace

int groupAtMarriage(int age)
{
    return std::clamp<int>(groupOf(age), firstGroup, lastGroup);
}

QString groupAtMarriageName(int group)
{
    if (group <= firstGroup) return "menos de 20";
    return group >= lastGroup ? QString("35 e mais") : groupName(group);
}

QString groupName(int first)
{
    return QString("%1–%2").arg(first).arg(first + 4);
}

} // namespace study::indicators
