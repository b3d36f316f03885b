#include "study/people/dates.h"

#include "study/parish/age.h"

namespace study {

namespace {

// How many days lie between two things at the least and at the most.
struct Distance
{
    qint64 least, most;
};

Distance between(const DaySpan& first, const DaySpan& second)
{
    return {first.to.daysTo(second.from), first.from.daysTo(second.to)};
}

// Known for certain where both dates are whole ones.
Dates sameOrPossible(const DaySpan& known, const DaySpan& act)
{
    return {.verdict = known.isOneDay() && act.isOneDay() ? Dates::SameAct : Dates::Possible};
}

// Somebody who has been baptised already isn't, but the act may have been entered before.
Dates ofTheChild(const DaySpan& act, const DaySpan& birth, const DaySpan& death)
{
    if (death.isValid() && death.to < act.from) return {.verdict = Dates::DeadAlready};
    if (!birth.isValid()) return {};
    const Distance days = between(birth, act);
    if (days.most < 0 || days.least > limits::birthToBaptism) return {.verdict = Dates::HasABirth};
    return sameOrPossible(birth, act);
}

Dates byAge(const Sought& sought, const DaySpan& birth)
{
    if (!birth.isValid()) return {};
    if (birth.from > sought.days.to) return {.verdict = Dates::NotYetBorn};
    const int most = completedYears(birth.from, sought.days.to), least = completedYears(birth.to, sought.days.from);
    if (most < sought.limits.youngest) return {.verdict = Dates::TooYoung, .age = most};
    return least > sought.limits.oldest ? Dates{.verdict = Dates::TooOld, .age = least} : Dates{};
}

Dates byDeath(const Sought& sought, const DaySpan& death, Role role)
{
    if (!death.isValid()) return {};
    const Distance dead = between(death, sought.days);
    if (role == Role::Deceased)
        return dead.least > limits::deathToBurial || dead.most < -limits::deathToBurial
                   ? Dates{.verdict = Dates::HasADeath}
                   : sameOrPossible(death, sought.days);
    if (sought.dead) return {.verdict = dead.most < 0 ? Dates::DiedLater : Dates::Possible};
    const bool tooLong = sought.limits.daysDead && dead.least > *sought.limits.daysDead;
    return {.verdict = tooLong ? Dates::DeadAlready : Dates::Possible};
}

} // namespace

void BirthSpan::hasDone(QDate day, limits::Ages ages)
{
    if (!day.isValid()) return;
    const QDate latest = day.addYears(-ages.youngest), earliest = day.addYears(-ages.oldest);
    if (!to.isValid() || latest < to) to = latest;
    if (!from.isValid() || earliest > from) from = earliest;
}

Dates judgedSpan(const Sought& sought, const BirthSpan& span, QDate seen)
{
    if (!sought.days.isValid() || !span.to.isValid()) return {};
    const bool tooOld = completedYears(span.to, sought.days.from) > sought.limits.oldest;
    const bool tooYoung = completedYears(span.from, sought.days.to) < sought.limits.youngest;
    return tooOld || tooYoung ? Dates{.verdict = Dates::OtherTimes, .seen = seen} : Dates{};
}

Dates judgedDates(const Sought& sought, const PersonRow& person, Role role, AboutDates about)
{
    if (sought.sex != Sex::Unknown && person.sex != Sex::Unknown && sought.sex != person.sex)
        return {.verdict = Dates::OtherSex};
    if (!sought.days.isValid()) return {};
    const DaySpan birth = around(person.birth, about.birth), death = around(person.death, about.death);
    if (role == Role::Child) return ofTheChild(sought.days, birth, death);
    const Dates age = byAge(sought, birth);
    return age.isImpossible() ? age : byDeath(sought, death, role);
}

QString inWords(const Dates& dates, const PersonRow& person, Role role)
{
    const bool woman = person.sex == Sex::Female;
    const QString birth = shown(partialDate(person.birth)), death = shown(partialDate(person.death));
    switch (dates.verdict) {
    case Dates::Possible:
        return {};
    case Dates::SameAct:
        return role == Role::Deceased ? "óbito em " + death : "nascimento em " + birth;
    case Dates::OtherSex:
        return woman ? "é mulher" : "é homem";
    case Dates::NotYetBorn:
        return "só nasceu em " + birth;
    case Dates::TooYoung:
        return "tinha " + yearsTold(dates.age);
    case Dates::TooOld:
        return "teria " + yearsTold(dates.age);
    case Dates::DeadAlready:
        return (woman ? "já morta em " : "já morto em ") + death;
    case Dates::DiedLater:
        return "só morreu em " + death;
    case Dates::HasABirth:
        return "já tem nascimento em " + birth;
    case Dates::HasADeath:
        return "já tem óbito em " + death;
    case Dates::OtherTimes:
        return "vivia em " + shown(partialDate(dates.seen));
    }
    return {};
}

} // namespace study
