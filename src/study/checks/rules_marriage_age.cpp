// Marriages: when, in the lives of both. Each case is of the family, once for both.
#include "study/checks/check.h"
#include "study/checks/codes.h"
#include "study/checks/parts.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <algorithm>
#include <cstdlib>

namespace study::checks {

using parish::Family;
using parish::Gender;
using parish::Membership;
using parish::Person;

namespace {

// What is wrong with one of a couple.
struct Fault
{
    QString text;
    Severity severity;
    const Person* person;
};

void report(const Family& family, const std::vector<Fault>& faults, const QString& before, const QString& between,
            Check& check)
{
    if (faults.empty()) return;
    Check::Found found{.text = {}, .families = {&family}, .when = family.marriage};
    QStringList texts;
    Severity worst = Severity::Information;
    for (const Fault& fault : faults) {
        texts << fault.text;
        found.people.push_back(fault.person);
        worst = std::min(worst, fault.severity);
    }
    found.text = before + texts.join(between) + '.';
    check.report(found, worst);
}

// Each of the couple once, in the order of their numbers.
std::vector<const Membership*> couple(const Family& family)
{
    std::vector<const Membership*> rows;
    for (const Membership& row : family.members) {
        const bool isTwice = !rows.empty() && rows.back()->member.person == row.member.person;
        if (row.member.person && !isTwice) rows.push_back(&row);
    }
    return rows;
}

QString marriageOf(const Family& family)
{
    return QString("O casamento de %1 (%2) é ").arg(told(family.marriage), named(family));
}

void marriesTheDead(const Family& family, Check& check)
{
    std::vector<Fault> faults;
    for (const Membership* row : couple(family)) {
        const Person& person = *row->member.person;
        const int days = daysTooEarly(person.death, family.marriage);
        if (days <= check.limit("dias")) continue;
        faults.push_back({QString("posterior à morte %1 em %2").arg(of(person), told(person.death)),
                          check.gravity(days, {person.death, family.marriage}), &person});
    }
    report(family, faults, marriageOf(family), " e ", check);
}

void marriesTheUnborn(const Family& family, Check& check)
{
    std::vector<Fault> faults;
    for (const Membership* row : couple(family)) {
        const Person& person = *row->member.person;
        const int days = daysTooEarly(family.marriage, person.birth);
        if (days == 0) continue;
        faults.push_back({QString("anterior ao nascimento %1 em %2").arg(of(person), told(person.birth)),
                          check.gravity(days, {person.birth, family.marriage}), &person});
    }
    report(family, faults, marriageOf(family), " e ", check);
}

// At the marriage, by the calendar; none where it can't be told, or the birth comes later.
std::optional<int> ageAt(const Family& family, const Person& person)
{
    if (!person.birth.isKnown() || !family.marriage.isKnown()) return {};
    if (daysTooEarly(family.marriage, person.birth) > 0) return {};
    return std::max(0, completedYears(person.birth, family.marriage)); // of a year alone, a few months too early
}

// "Ana (nº 2), nascida em 14/02/1702, casou em 03/05/1713 com 11 anos".
QString marriedAged(const Family& family, const Person& person, int age)
{
    return QString("%1, %2 em %3, casou em %4 com %5")
        .arg(named(person), wordFor(person, "nascido", "nascida"), told(person.birth), told(family.marriage),
             yearsTold(age));
}

// Whose sex isn't told, is taken for what is the less strange.
const char* sexOfLeast(const Person& person, double woman, double man)
{
    if (person.gender == Gender::Undetermined) return man < woman ? "homem" : "mulher";
    return person.gender == Gender::Male ? "homem" : "mulher";
}

double leastFor(const Person& person, const Check& check)
{
    return check.limit(sexOfLeast(person, check.limit("mulher"), check.limit("homem")));
}

double mostFor(const Person& person, const Check& check)
{
    if (person.gender == Gender::Undetermined) return std::max(check.limit("mulher"), check.limit("homem"));
    return check.limit(person.gender == Gender::Male ? "homem" : "mulher");
}

double canonicalAge(const Person& person, const Check& check)
{
    return check.limit("M-03", sexOfLeast(person, check.limit("M-03", "mulher"), check.limit("M-03", "homem")));
}

void marriesBelowTheCanonicalAge(const Family& family, Check& check)
{
    std::vector<Fault> faults;
    for (const Membership* row : couple(family)) {
        const Person& person = *row->member.person;
        const auto age = ageAt(family, person);
        if (!age || *age >= leastFor(person, check)) continue;
        const QDate old = person.birth.middle().addYears(static_cast<int>(leastFor(person, check)));
        const auto days = static_cast<int>(family.marriage.middle().daysTo(old));
        faults.push_back(
            {marriedAged(family, person, *age), check.gravity(days, {person.birth, family.marriage}), &person});
    }
    report(family, faults, {}, "; ", check);
}

void marriesYoung(const Family& family, Check& check)
{
    std::vector<Fault> faults;
    for (const Membership* row : couple(family)) {
        const Person& person = *row->member.person;
        const auto age = ageAt(family, person);
        if (!age || *age >= leastFor(person, check) || *age < canonicalAge(person, check)) continue;
        const int days = daysShortOf(static_cast<int>(leastFor(person, check)), person.birth, family.marriage);
        if (check.mayBeOfTheDates(days, {person.birth, family.marriage})) continue;
        faults.push_back({marriedAged(family, person, *age), Severity::Unlikely, &person});
    }
    report(family, faults, {}, "; ", check);
}

void marriesOld(const Family& family, Check& check)
{
    std::vector<Fault> faults;
    for (const Membership* row : couple(family)) {
        const Person& person = *row->member.person;
        const auto age = ageAt(family, person);
        if (!age || *age <= mostFor(person, check)) continue;
        const int days = 1 - daysShortOf(static_cast<int>(mostFor(person, check)) + 1, person.birth, family.marriage);
        if (!check.mayBeOfTheDates(days, {person.birth, family.marriage}))
            faults.push_back({marriedAged(family, person, *age), Severity::Unlikely, &person});
    }
    report(family, faults, {}, "; ", check);
}

void marriesAtAnotherAge(const Family& family, Check& check)
{
    std::vector<Fault> faults;
    for (const Membership* row : couple(family)) {
        const Person& person = *row->member.person;
        const auto age = ageAt(family, person);
        if (!age || !row->age || *row->age == 0) continue;
        const double off = std::abs(*row->age - *age) - check.tolerance({person.birth, family.marriage});
        if (off <= check.limit("anos")) continue;
        faults.push_back(
            {QString("%1, e a idade indicada é de %2").arg(marriedAged(family, person, *age), yearsTold(*row->age)),
             Severity::Unlikely, &person});
    }
    report(family, faults, {}, "; ", check);
}

void areOfFarAges(const Family& family, Check& check)
{
    const Person* const woman = motherIn(family);
    if (!family.husband || !woman || !family.husband->birth.isKnown() || !woman->birth.isKnown()) return;
    const Person &husband = *family.husband, &wife = *woman;
    const bool wifeIsOlder = wife.birth.middle() < husband.birth.middle();
    const Person &older = wifeIsOlder ? wife : husband, &younger = wifeIsOlder ? husband : wife;
    const int days = daysBeyond(older.birth, younger.birth, check.limit(wifeIsOlder ? "mulher" : "homem"));
    if (days == 0 || check.mayBeOfTheDates(days, {older.birth, younger.birth})) return;
    const int years = completedYears(older.birth, younger.birth);
    check.report(
        {.text = QString("%1, %2 em %3, é %4 mais %5 do que %6, %7, %8 em %9.")
                     .arg(named(older), wordFor(older, "nascido", "nascida"), told(older.birth), yearsTold(years),
                          wordFor(older, "velho", "velha"), wifeIsOlder ? "o marido" : "a mulher", named(younger),
                          wordFor(younger, "nascido", "nascida"), told(younger.birth)),
         .people = {&older, &younger},
         .families = {&family},
         .when = family.marriage});
}

// Who first has a child late, or long behind the marriage. All births have to be known: the first one may be missing.
void hasTheFirstChildLate(const Family& family, Check& check)
{
    if (family.children.empty() || !family.children.back()->birth.isKnown()) return;
    const Person& child = *family.children.front();
    QStringList faults;
    std::vector<const Person*> people{&child};
    const int late = daysBeyond(family.marriage, child.birth, check.limit("anos"));
    if (late > 0 && !check.mayBeOfTheDates(late, {family.marriage, child.birth}))
        faults << QString("%1 depois do casamento em %2")
                      .arg(yearsTold(completedYears(family.marriage, child.birth)), told(family.marriage));
    const Person* const mother = motherIn(family);
    if (mother && mother->birth.isKnown() && unionsOf(*mother).size() == 1) {
        const int age = completedYears(mother->birth, child.birth);
        const int old = 1 - daysShortOf(static_cast<int>(check.limit("idade")) + 1, mother->birth, child.birth);
        const bool isOld = old > 0 && !check.mayBeOfTheDates(old, {mother->birth, child.birth});
        if (isOld && age <= check.limit("C-05", "aviso")) { // C-05 tells who is older
            faults << QString("quando a mãe, %1, nascida em %2, tinha %3")
                          .arg(named(*mother), told(mother->birth), yearsTold(age));
            people.push_back(mother);
        }
    }
    if (faults.isEmpty()) return;
    check.report({.text = QString("%1, %2 da família nº %3, nasceu em %4, %5.")
                              .arg(named(child), wordFor(child, "primeiro filho", "primeira filha"),
                                   parish::shown(family.number), told(child.birth), faults.join(", ")),
                  .people = people,
                  .families = {&family},
                  .when = child.birth});
}

std::vector<Limit> ages(double woman, double man, const char* womans, const char* mans)
{
    return {{"mulher", woman, womans}, {"homem", man, mans}};
}

constexpr auto leastOfAWoman = "Idade mínima da mulher (anos)", leastOfAMan = "Idade mínima do homem (anos)";

} // namespace

std::vector<Rule> marriageAgeRules()
{
    return {
        {"M-01",
         Severity::Impossible,
         "Casamento depois da morte de um dos cônjuges",
         marriesTheDead,
         {{"dias", 0, "Dias que se admitem"}},
         "O óbito é de um homónimo; casamento por procuração, antes de se saber da morte."},
        {"M-02",
         Severity::Impossible,
         "Casamento antes do nascimento de um dos cônjuges",
         marriesTheUnborn,
         {},
         "O nascimento é de um homónimo mais novo."},
        {"M-03", Severity::Impossible, "Casamento abaixo da idade canónica", marriesBelowTheCanonicalAge,
         ages(12, 14, leastOfAWoman, leastOfAMan),
         "O nascimento é de uma irmã ou irmão mais novo; esponsais de futuro."},
        {"M-04", Severity::Unlikely, "Casamento muito novo", marriesYoung, ages(16, 18, leastOfAWoman, leastOfAMan),
         "Na nobreza casava-se cedo."},
        {"M-05", Severity::Unlikely, "Casamento muito tarde", marriesOld,
         ages(60, 75, "Idade máxima da mulher (anos)", "Idade máxima do homem (anos)"), "Viúvos que voltam a casar."},
        {"M-06",
         Severity::Unlikely,
         "Idade indicada ao casamento diferente da calculada",
         marriesAtAnotherAge,
         {{"anos", 2, "Diferença admitida (anos)"}},
         "Quem declara uma idade arredonda-a; a ligação a um homónimo."},
        {"M-07", Severity::Unlikely, "Grande diferença de idades", areOfFarAges,
         ages(15, 25, "Anos que a mulher pode ter a mais", "Anos que o homem pode ter a mais"),
         "Viúvos que voltam a casar."},
        {"M-18",
         Severity::Unlikely,
         "Primeiro filho muito tarde",
         hasTheFirstChildLate,
         {{"anos", 15, "Anos depois do casamento"}, {"idade", 45, "Idade máxima da mãe (anos)"}},
         "Faltam os primeiros filhos, nascidos noutra freguesia."},
    };
}

} // namespace study::checks
