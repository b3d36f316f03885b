// Marriages: one after the other.
#include "study/checks/check.h"
#include "study/checks/codes.h"
#include "study/checks/parts.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <algorithm>
#include <map>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Gender;
using parish::Membership;
using parish::Person;

namespace {

// A union that is a marriage, as far as is told.
bool isMarriage(const Membership& row)
{
    return row.family && !isUnmarried(*row.family);
}

bool isDated(const Membership& row)
{
    return isMarriage(row) && row.family->marriage.isKnown();
}

const Person* spouseIn(const Membership& row)
{
    return spouseOf(*row.member.person, *row.family);
}

// "casou em 14/02/1702 com Ana (nº 2)"; who it was only where it is known.
QString wedding(const Membership& row, const char* verb)
{
    const Person* const spouse = spouseIn(row);
    return verb + told(row.family->marriage) + (spouse ? " com " + named(*spouse) : QString());
}

// Whether the second of both marriages may have been the first one, and nothing speaks against that order.
bool mayBeTheOtherWayRound(const Membership& first, const Membership& second, const Check& check)
{
    const Date &early = first.family->marriage, &late = second.family->marriage;
    const Person* const spouse = spouseIn(second);
    return check.mayBeOfTheDates(daysBetween(early, late), {early, late}) && spouse && spouse->death.isKnown() &&
           daysTooEarly(early, spouse->death) == 0;
}

// Who marries while somebody of an earlier marriage still lives: the one who lived longest is told.
void marriesTwice(const Person& person, Check& check)
{
    const Membership* longest = nullptr;
    for (const Membership* row : person.unions) {
        if (!isDated(*row)) continue;
        const Person* const spouse = spouseIn(*row);
        const Person* const before = longest ? spouseIn(*longest) : nullptr;
        const int days = before && before != spouse ? daysTooEarly(row->family->marriage, before->death) : 0;
        if (days > 0 && !mayBeTheOtherWayRound(*longest, *row, check))
            check.report({.text = QString("%1, que %2, %3, e %4 só morreu em %5.")
                                      .arg(named(person), wedding(*longest, "casou em "),
                                           wedding(*row, "voltou a casar em "), named(*before), told(before->death)),
                          .people = {&person, before},
                          .families = {longest->family, row->family},
                          .when = row->family->marriage},
                         std::max(check.gravity(days, {row->family->marriage, before->death}),
                                  check.gravity(daysBetween(longest->family->marriage, row->family->marriage),
                                                {longest->family->marriage, row->family->marriage})));
        if (spouse && spouse->death.isKnown() && (!before || before->death.day < spouse->death.day)) longest = row;
    }
}

// "o de 14/02/1702 (família nº 3) tem o número 2".
QString ofOrder(const Membership& row)
{
    const QString family = "família nº " + parish::shown(row.family->number);
    const QString which = row.family->marriage.isKnown()
                              ? QString("o de %1 (%2)").arg(told(row.family->marriage), family)
                              : "o da " + family;
    return QString("%1 tem o número %2").arg(which, QString::number(*row.order));
}

// Beside the dated marriage before that has the largest number.
void countsTheMarriagesWrong(const Person& person, Check& check)
{
    std::map<int, const Membership*> firstOf;
    const Membership* largest = nullptr;
    for (const Membership* row : unionsOf(person)) {
        if (!row->family || row->order.value_or(0) <= 0) continue;
        const Membership* wrong = firstOf[*row->order];
        if (!wrong && largest && *largest->order > *row->order &&
            daysTooEarly(largest->family->marriage, row->family->marriage) > 0)
            wrong = largest;
        if (wrong) {
            check.report(
                {.text = QString("Dos casamentos %1, %2, e %3.").arg(of(person), ofOrder(*wrong), ofOrder(*row)),
                 .people = {&person},
                 .families = {wrong->family, row->family},
                 .when = row->family->marriage});
            return;
        }
        firstOf[*row->order] = row;
        if (row->family->marriage.isKnown() && (!largest || *row->order > *largest->order)) largest = row;
    }
}

// The last marriage before this one; null: none that is known to be earlier. The unions stand in the order of their
// marriages, and somebody who stands for all unknown spouses has thousands.
const Membership* marriageBefore(const Person& person, const Family& family, const Check& check)
{
    const auto isEarlier = [&](const Membership* row) {
        return !row->family || row->family->marriage.day < family.marriage.day;
    };
    for (auto end = std::ranges::partition_point(person.unions, isEarlier); end != person.unions.begin();) {
        const Membership* row = *--end;
        if (row->family != &family && isDated(*row) && isSurelyBefore(row->family->marriage, family.marriage, check))
            return row;
    }
    return nullptr;
}

void isSingleThoughMarriedBefore(const Family& family, Check& check)
{
    QStringList faults;
    Check::Found found{.text = {}, .families = {&family}, .when = family.marriage};
    for (const Membership& row : family.members) {
        const Person* const person = row.member.person;
        if (!person || row.state != single || !isMarriage(row)) continue;
        const Membership* const before = marriageBefore(*person, family, check);
        if (!before) continue;
        faults << QString("%1 casou em %2 como %3, e já %4")
                      .arg(named(*person), told(family.marriage), wordFor(*person, "solteiro", "solteira"),
                           wedding(*before, "tinha casado em "));
        found.people.push_back(person);
        found.families.push_back(before->family);
    }
    if (faults.isEmpty()) return;
    found.text = faults.join("; ") + '.';
    check.report(found);
}

void isWidowedWithoutAMarriage(const Family& family, Check& check)
{
    QStringList faults;
    Check::Found found{.text = {}, .families = {&family}, .when = family.marriage};
    for (const Membership& row : family.members) {
        const Person* const person = row.member.person;
        if (!person || row.state != widowed) continue;
        const auto mayBeEarlier = [&](const Membership* other) {
            if (other->family == &family) return false;
            const bool areDated = other->family && other->family->marriage.isKnown() && family.marriage.isKnown();
            return !areDated || other->family->marriage.day <= family.marriage.day;
        };
        if (std::ranges::any_of(person->unions, mayBeEarlier)) continue;
        faults << QString("%1 casou em %2 como %3, e não tem casamento anterior")
                      .arg(named(*person), told(family.marriage), wordFor(*person, "viúvo", "viúva"));
        found.people.push_back(person);
    }
    if (faults.isEmpty()) return;
    found.text = faults.join("; ") + '.';
    check.report(found);
}

// Days from the death of the last spouse to this marriage; none where one of both dates isn't exact, or it was later.
std::optional<int> mourning(const Membership& last, const Membership& next)
{
    const Person* const dead = spouseIn(last);
    if (!dead || !dead->death.isExact() || !next.family->marriage.isExact()) return {};
    const int days = daysBetween(dead->death, next.family->marriage);
    return days < 0 ? std::optional<int>() : days;
}

void marriesSoon(const Person& person, Check& check)
{
    const auto unions = unionsOf(person);
    for (size_t later = 1; later < unions.size(); ++later) {
        const Membership &last = *unions[later - 1], &next = *unions[later];
        if (!isMarriage(last) || !isDated(next)) continue;
        const auto days = mourning(last, next);
        const bool atOnce = days && *days < check.limit("poucos");
        const bool soon = days && person.gender == Gender::Female && *days < check.limit("dias");
        if (!atOnce && !soon) continue;
        const Person& dead = *spouseIn(last);
        check.report({.text = QString("%1, %2 %3 desde %4, %5, %6 depois.")
                                  .arg(named(person), wordFor(person, "viúvo", "viúva"), of(dead), told(dead.death),
                                       wedding(next, "voltou a casar em "), inDays(*days)),
                      .people = {&person, &dead},
                      .families = {last.family, next.family},
                      .when = next.family->marriage},
                     atOnce ? Severity::Unlikely : Severity::Information);
    }
}

void marriesTooOften(const Person& person, Check& check)
{
    Check::Found found{.text = {}, .people = {&person}};
    QStringList weddings;
    for (const Membership* row : unionsOf(person)) {
        if (!isMarriage(*row)) continue;
        found.families.push_back(row->family);
        weddings << told(row->family->marriage);
        found.when = row->family->marriage;
    }
    if (static_cast<double>(weddings.size()) <= check.limit("casamentos")) return;
    found.text =
        QString("%1 tem %2 casamentos: %3.").arg(named(person), QString::number(weddings.size()), together(weddings));
    check.report(found);
}

} // namespace

std::vector<Rule> marriageOrderRules()
{
    return {
        {"M-08",
         Severity::Impossible,
         "Dois casamentos ao mesmo tempo",
         marriesTwice,
         {},
         "O primeiro foi anulado; o óbito é de um homónimo."},
        {"M-09",
         Severity::Unlikely,
         "Números dos casamentos fora de ordem",
         countsTheMarriagesWrong,
         {},
         "A ficha só escreve o número da mãe onde o do pai está preenchido."},
        {"M-10",
         Severity::Unlikely,
         "Solteiro, com um casamento anterior",
         isSingleThoughMarriedBefore,
         {},
         "Um dos casamentos é de um homónimo."},
        {"M-11",
         Severity::Information,
         "Viúvo, sem casamento anterior",
         isWidowedWithoutAMarriage,
         {},
         "Casou da primeira vez noutra freguesia."},
        {"M-17",
         Severity::Information,
         "Novo casamento logo depois da viuvez",
         marriesSoon,
         {{"dias", 300, "Dias de luto da viúva"}, {"poucos", 30, "Dias de luto de qualquer cônjuge"}},
         "O luto era costume, e não impedimento."},
        {"M-20",
         Severity::Unlikely,
         "Casamentos de mais",
         marriesTooOften,
         {{"casamentos", 4, "Número máximo de casamentos"}},
         "Homónimos juntos numa ficha."},
    };
}

} // namespace study::checks
