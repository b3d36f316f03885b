// What cannot be between parents and children. Each case hangs on the family, and is told once for both parents.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QDate>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

struct Parent
{
    const Person* person;
    const char *article, *role, *born; // "o", "pai", "nascido"
};

std::vector<Parent> parentsOf(const Family& family)
{
    std::vector<Parent> parents;
    if (family.husband) parents.push_back({family.husband, "o", "pai", "nascido"});
    if (const Person* mother = motherIn(family)) parents.push_back({mother, "a", "mãe", "nascida"});
    const auto isHere = [&](const Person* one) {
        return std::ranges::any_of(parents, [one](const Parent& parent) { return parent.person == one; });
    };
    for (const parish::Membership& row : family.members)
        if (const Person* one = row.member.person; one && one->gender == parish::Gender::Undetermined && !isHere(one))
            parents.push_back({one, "o", "progenitor", "nascido"});
    return parents;
}

void isBornBeforeAParent(const Family& family, Check& check)
{
    for (const Person* child : family.children) {
        QStringList whom;
        Check::Found found{.text = {}, .people = {child}, .families = {&family}, .when = child->birth};
        Severity worst = Severity::Information;
        for (const Parent& parent : parentsOf(family)) {
            const int days = parent.person == child ? 0 : daysTooEarly(child->birth, parent.person->birth);
            if (days == 0) continue;
            whom << QString("d%1 %2, %3, %4 em %5")
                        .arg(parent.article, parent.role, named(*parent.person), parent.born,
                             told(parent.person->birth));
            found.people.push_back(parent.person);
            worst = std::min(worst, check.gravity(days, {child->birth, parent.person->birth}));
        }
        if (whom.isEmpty()) continue;
        found.text = QString("%1 nasceu em %2, antes %3.").arg(named(*child), told(child->birth), together(whom));
        check.report(found, worst);
    }
}

void reportOrphan(const Family& family, const Person& child, const Parent& parent, Severity severity, Check& check)
{
    const int days = daysTooEarly(parent.person->death, child.birth); // of a year from its end, as the rules count
    check.report({.text = QString("%1 nasceu em %2, %3 depois da morte d%4 %5, %6, em %7.")
                              .arg(named(child), told(child.birth), inDays(days), parent.article, parent.role,
                                   named(*parent.person), told(parent.person->death)),
                  .people = {&child, parent.person},
                  .families = {&family},
                  .when = child.birth},
                 severity);
}

// The card has one date for birth and baptism.
void isBornAfterTheMothersDeath(const Family& family, Check& check)
{
    const Person* const mother = motherIn(family);
    if (!mother) return;
    const Date death = mother->death;
    for (const Person* child : family.children) {
        if (child == mother) continue; // F-04 tells it
        const int days = daysTooEarly(death, child->birth);
        if (days <= check.limit("dias")) continue;
        const auto beyond = static_cast<int>(days - check.limit("baptismo"));
        reportOrphan(family, *child, {mother, "a", "mãe", "nascida"},
                     beyond > 0 ? check.gravity(beyond, {death, child->birth}) : Severity::Unlikely, check);
    }
}

void isBornLongAfterTheFathersDeath(const Family& family, Check& check)
{
    if (!family.husband) return;
    const Date death = family.husband->death;
    for (const Person* child : family.children) {
        if (child == family.husband) continue;
        const auto beyond = static_cast<int>(daysTooEarly(death, child->birth) - check.limit("dias"));
        if (beyond > 0)
            reportOrphan(family, *child, {family.husband, "o", "pai", "nascido"},
                         check.gravity(beyond, {death, child->birth}), check);
    }
}

void reportAge(const Family& family, const Person& child, const Parent& parent, Severity severity, Check& check)
{
    check.report({.text = QString("%1 nasceu em %2, quando %3 %4, %5, %6 em %7, tinha %8.")
                              .arg(named(child), told(child.birth), parent.article, parent.role, named(*parent.person),
                                   parent.born, told(parent.person->birth),
                                   yearsTold(std::max(0, completedYears(parent.person->birth, child.birth)))),
                  .people = {&child, parent.person},
                  .families = {&family},
                  .when = child.birth},
                 severity);
}

// By how many days the parent is younger than `years` at the birth; 0 where not, and where the parent isn't born yet,
// which C-01 tells.
int daysTooYoung(const Person& child, const Person& parent, double years)
{
    if (&child == &parent || !child.birth.isKnown() || !parent.birth.isKnown()) return 0;
    if (daysTooEarly(child.birth, parent.birth) > 0) return 0;
    return std::max(0, daysShortOf(static_cast<int>(years), parent.birth, child.birth));
}

// By how many days the parent has more than `years` completed years.
int daysTooOld(const Person& child, const Person& parent, double years)
{
    if (&child == &parent || !child.birth.isKnown() || !parent.birth.isKnown()) return 0;
    return std::max(0, 1 - daysShortOf(static_cast<int>(years) + 1, parent.birth, child.birth));
}

void hasAMotherTooYoung(const Family& family, Check& check)
{
    const Person* const woman = motherIn(family);
    if (!woman) return;
    const Person& mother = *woman;
    for (const Person* child : family.children) {
        const int days = daysTooYoung(*child, mother, check.limit("idade"));
        const int beyond = daysTooYoung(*child, mother, check.limit("impossivel"));
        if (days == 0 || check.mayBeOfTheDates(days, {child->birth, mother.birth})) continue;
        const bool impossible = beyond > 0 && !check.mayBeOfTheDates(beyond, {child->birth, mother.birth});
        reportAge(family, *child, {&mother, "a", "mãe", "nascida"},
                  impossible ? Severity::Impossible : Severity::Unlikely, check);
    }
}

void hasAMotherTooOld(const Family& family, Check& check)
{
    const Person* const woman = motherIn(family);
    if (!woman) return;
    const Person& mother = *woman;
    for (const Person* child : family.children) {
        const int days = daysTooOld(*child, mother, check.limit("aviso"));
        const int beyond = daysTooOld(*child, mother, check.limit("idade"));
        if (days == 0 || check.mayBeOfTheDates(days, {child->birth, mother.birth})) continue;
        reportAge(family, *child, {&mother, "a", "mãe", "nascida"},
                  beyond > 0 ? check.gravity(beyond, {child->birth, mother.birth}) : Severity::Unlikely, check);
    }
}

void hasAFatherOfAnOddAge(const Family& family, Check& check)
{
    if (!family.husband) return;
    const Person& father = *family.husband;
    for (const Person* child : family.children) {
        const int days = std::max(daysTooYoung(*child, father, check.limit("minimo")),
                                  daysTooOld(*child, father, check.limit("maximo")));
        if (days > 0 && !check.mayBeOfTheDates(days, {child->birth, father.birth}))
            reportAge(family, *child, {&father, "o", "pai", "nascido"}, Severity::Unlikely, check);
    }
}

void marriesBeforeTheParents(const Family& family, Check& check)
{
    for (const Person* child : family.children) {
        const auto first = std::ranges::find_if(child->unions, [](const parish::Membership* row) {
            return row->family && row->family->marriage.isKnown();
        });
        if (first == child->unions.end()) continue;
        const Family& own = *(*first)->family;
        const int days = daysTooEarly(own.marriage, family.marriage);
        if (days == 0) continue;
        check.report({.text = QString("%1 casou em %2 (%3), antes do casamento dos pais em %4.")
                                  .arg(named(*child), told(own.marriage), named(own), told(family.marriage)),
                      .people = {child},
                      .families = {&family, &own},
                      .when = own.marriage},
                     check.gravity(days, {own.marriage, family.marriage}));
    }
}

// What is before the mother's birth or after her death is told by other rules.
bool isOutsideHerObservation(const Person& child, const Person& mother, const Check& check)
{
    if (!child.birth.isKnown()) return false;
    const Date from = parish::dateOf(mother.observedFrom, true);
    const Date until = parish::dateOf(mother.observedUntil, true);
    const bool living = daysTooEarly(child.birth, mother.birth) == 0 && daysTooEarly(mother.death, child.birth) == 0;
    const int early = daysTooEarly(child.birth, from), late = daysTooEarly(until, child.birth);
    const int days = std::max(early, late);
    return living && days > 0 && !check.mayBeOfTheDates(days, {child.birth, early > 0 ? from : until});
}

void isBornOutsideTheMothersObservation(const Family& family, Check& check)
{
    const Person* const woman = motherIn(family);
    if (!woman) return;
    const Person& mother = *woman;
    QStringList outside;
    Check::Found found{.text = {}, .people = {&mother}, .families = {&family}, .when = family.marriage};
    for (const Person* child : family.children) {
        if (child == &mother || !isOutsideHerObservation(*child, mother, check)) continue;
        if (outside.isEmpty()) found.when = child->birth;
        outside << named(*child) + " em " + told(child->birth);
        found.people.push_back(child);
    }
    if (outside.isEmpty()) return;
    QStringList ends;
    if (mother.observedFrom.isValid()) ends << "desde " + told(mother.observedFrom);
    if (mother.observedUntil.isValid()) ends << "até " + told(mother.observedUntil);
    found.text = QString("%1 está em observação %2, e fora dela nasceram filhos seus: %3.")
                     .arg(named(mother), ends.join(' '), few(outside));
    check.report(found);
}

} // namespace

std::vector<Rule> childRules()
{
    return {
        {"C-01",
         Severity::Impossible,
         "Nascimento antes do nascimento do pai ou da mãe",
         isBornBeforeAParent,
         {},
         "Filho posto na família de um homónimo dos pais, mais novo."},
        {"C-02",
         Severity::Impossible,
         "Nascimento depois da morte da mãe",
         isBornAfterTheMothersDeath,
         {{"dias", 1, "Dias depois da morte da mãe que nada têm de estranho (dias)"},
          {"baptismo", 8, "Dias até ao baptismo, que pode vir depois do enterro da mãe (dias)"}},
         "A data é muitas vezes a do baptismo: a mãe que morreu de parto foi enterrada antes."},
        {"C-03",
         Severity::Impossible,
         "Nascimento muito depois da morte do pai",
         isBornLongAfterTheFathersDeath,
         {{"dias", 300, "Maior intervalo entre a morte do pai e o nascimento (dias)"}},
         "Um póstumo nasce dentro de 300 dias; um baptismo tardio pode passar deles."},
        {"C-04",
         Severity::Unlikely,
         "Mãe nova demais",
         hasAMotherTooYoung,
         {{"idade", 15, "Idade mínima da mãe (anos)"}, {"impossivel", 12, "Idade em que ninguém é mãe (anos)"}},
         "Há mães de catorze anos; mais vezes a mãe é uma homónima mais velha."},
        {"C-05",
         Severity::Impossible,
         "Mãe velha demais",
         hasAMotherTooOld,
         {{"idade", 50, "Idade máxima da mãe (anos)"}, {"aviso", 48, "Idade a partir da qual é rara (anos)"}},
         "Falta a segunda mulher do pai; a mãe é uma homónima mais nova."},
        {"C-06",
         Severity::Unlikely,
         "Pai novo ou velho demais",
         hasAFatherOfAnOddAge,
         {{"minimo", 16, "Idade mínima do pai (anos)"}, {"maximo", 70, "Idade máxima do pai (anos)"}},
         "Homens que casaram outra vez já velhos; um filho com o nome do pai tomado por ele."},
        {"C-13",
         Severity::Impossible,
         "Casamento de um filho antes do dos pais",
         marriesBeforeTheParents,
         {},
         "Pais que só casaram depois de terem filhos adultos; um segundo casamento dos mesmos, por dúvida do "
         "primeiro."},
        {"C-15",
         Severity::Unlikely,
         "Nascimento fora da observação da mãe",
         isBornOutsideTheMothersObservation,
         {},
         "A observação foi posta estreita de mais; ou o filho nasceu quando os pais viviam fora."},
    };
}

} // namespace study::checks
