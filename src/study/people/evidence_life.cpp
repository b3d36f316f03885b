// What the other acts of somebody's life tell of when they lived.
#include "study/acts/limits.h"
#include "study/people/dates.h"
#include "study/people/evidence.h"

#include <cmath>
#include <cstdlib>

namespace study {

namespace {

constexpr double seenLately = 1; // in bits: people of a parish are seen every few years as long as they live there
constexpr int lately = 3652;     // days before the act or behind it: ten years
constexpr double ofOtherTimes = -100;

constexpr limits::Ages eitherParent{limits::mother.youngest, limits::father.oldest}; // of whom the sex isn't known

// The days on which somebody did something, and what follows of their birth.
struct Life
{
    QDate act; // that is being judged
    BirthSpan born = {};
    QDate nearest = {}; // to the act

    void did(QDate day, limits::Ages ages)
    {
        if (!day.isValid()) return;
        born.hasDone(day, ages);
        if (!nearest.isValid() || std::abs(day.daysTo(act)) < std::abs(nearest.daysTo(act))) nearest = day;
    }
};

} // namespace

void Judge::judgeLife(const Sought& sought, const Person& candidate, Evidence& evidence)
{
    if (!sought.date.isValid() || evidence.impossible) return;
    Life life{.act = sought.date};
    const bool woman = candidate.is.sex == Sex::Female, man = candidate.is.sex == Sex::Male;
    const limits::Ages ofSpouse = man ? limits::groom : limits::bride;
    const limits::Ages ofParent = man ? limits::father : woman ? limits::mother : eitherParent;
    for (const qint64 number : kin_.familiesOf(candidate)) {
        const Family* family = kin_.family(number);
        if (!family) continue;
        life.did(family->marriage, ofSpouse);
        for (const Child& child : kin_.childrenOf(*family))
            life.did(child.birth, ofParent);
    }
    for (const Assistance& assistance : kin_.assistancesOf(candidate))
        life.did(assistance.date, assistance.godparent ? limits::godparent : limits::witness);
    const Dates dates = candidate.is.birth.isValid() ? Dates{} : judgedSpan(sought, life.born, life.nearest);
    if (dates.isImpossible()) {
        evidence.impossible = true;
        evidence.bits += ofOtherTimes;
        evidence.against << inWords(dates, candidate.is, act_.people.at(sought.person).role);
    } else if (life.nearest.isValid() && std::abs(life.nearest.daysTo(sought.date)) <= lately) {
        evidence.bits += seenLately;
        evidence.reasons.push_back({seenLately, "vivia em " + shown(partialDate(life.nearest))});
    }
}

} // namespace study
