// Families: what one column of the card says beside another.
#include "study/checks/check.h"
#include "study/checks/codes.h"
#include "study/checks/parts.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <algorithm>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Membership;
using parish::Person;

namespace {

void isEmpty(const Family& family, Check& check)
{
    if (!family.members.empty() || !family.children.empty()) return;
    check.report({.text = QString("%1 não tem cônjuges nem filhos.").arg(named(family)),
                  .families = {&family},
                  .when = family.marriage});
}

void isOfNoFamily(const Person& person, Check& check)
{
    if (value(person.originNumber) == 0 || person.origin) return;
    check.report({.text = QString("%1 tem como família de origem a nº %2, que não existe.")
                              .arg(named(person), parish::shown(person.originNumber)),
                  .people = {&person},
                  .when = person.birth});
}

// Rows of couples that have lost one end, or both.
void havePartnersMissing(const parish::Snapshot& parish, Check& check)
{
    for (const Membership& row : parish.memberships()) {
        const Person* const person = row.member.person;
        const QString family = "a família nº " + parish::shown(row.familyNumber);
        const QString number = "o indivíduo nº " + parish::shown(row.member.number);
        if (!person && row.family)
            check.report({.text = QString("%1 tem como cônjuge %2, que não existe.").arg(named(*row.family), number),
                          .families = {row.family},
                          .when = row.family->marriage});
        else if (person && !row.family)
            check.report(
                {.text = QString("%1 é cônjuge n%2, que não existe.").arg(named(*person), family), .people = {person}});
        else if (!person)
            check.report(
                {.text =
                     QString("Há uma linha de cônjuge sem ficha nenhuma: nem %1 nem %2 existem.").arg(family, number),
                 .about = family + ' ' + number});
    }
}

void isSpouseAndChild(const Person& person, Check& check)
{
    if (!person.origin) return;
    const auto isHere = [&](const Membership* row) { return row->family == person.origin; };
    if (std::ranges::none_of(person.unions, isHere)) return;
    check.report(
        {.text = QString("%1 é ao mesmo tempo cônjuge e %2 na família nº %3.")
                     .arg(named(person), wordFor(person, "filho", "filha"), parish::shown(person.originNumber)),
         .people = {&person},
         .families = {person.origin}});
}

void hasNoMarriage(const Family& family, Check& check)
{
    const bool says = family.situation == legitimateFamily || family.situation == madeLegitimate;
    if (!says || family.marriage.isKnown()) return;
    check.report({.text = QString("%1 tem a situação %2, e não tem data de casamento.")
                              .arg(named(family), described(check.parish(), "SitFa", family.situation)),
                  .families = {&family}});
}

void hasTheUnknownParent(const Family& family, Check& check)
{
    const bool father = family.situation == fatherUnknown && family.husband;
    const Person* const woman = motherIn(family);
    const bool mother = family.situation == motherUnknown && woman;
    if (!father && !mother) return;
    const Person& parent = father ? *family.husband : *woman;
    check.report({.text = QString("%1 tem a situação %2, e tem %3: %4.")
                              .arg(named(family), described(check.parish(), "SitFa", family.situation),
                                   father ? "pai" : "mãe", named(parent)),
                  .people = {&parent},
                  .families = {&family},
                  .when = family.marriage});
}

// Married here, or of somebody from here: what begins another day was typed, or is left from an earlier date.
void isObservedFromAnotherDay(const Family& family, Check& check)
{
    const Date from = exact(family.observedFrom);
    if (!from.isKnown() || !family.marriage.isKnown() || from.day == family.marriage.day) return;
    if (check.mayBeOfTheDates(daysBetween(from, family.marriage), {from, family.marriage})) return;
    const parish::Home& home = check.parish().home();
    const auto isFromHere = [&](const Person* one) { return one && isIn(one->birthPlace, home); };
    const auto livesHere = [&](const parish::Residence& row) { return isIn(row.place, home); };
    if (!isIn(family.place, home) && !isFromHere(family.husband) && !isFromHere(family.wife) &&
        std::ranges::none_of(family.residences, livesHere))
        return;
    check.report({.text = QString("%1 está em observação desde %2, e o casamento foi em %3.")
                              .arg(named(family), told(from), told(family.marriage)),
                  .families = {&family},
                  .when = family.marriage});
}

void isObservedBehindBothDeaths(const Family& family, Check& check)
{
    const Date until = exact(family.observedUntil);
    if (!family.husband || !family.wife || !until.isKnown()) return;
    for (const Person* one : {family.husband, family.wife}) {
        const double days =
            daysTooEarly(one->death, until) - check.tolerance({one->death, until}) * parish::daysOfAYear;
        if (days <= check.limit("dias")) return;
    }
    check.report({.text = QString("%1 está em observação até %2, depois da morte %3 em %4 e %5 em %6.")
                              .arg(named(family), told(until), of(*family.husband), told(family.husband->death),
                                   of(*family.wife), told(family.wife->death)),
                  .people = {family.husband, family.wife},
                  .families = {&family},
                  .when = until});
}

void hasAnotherType(const Family& family, Check& check)
{
    const QString stored = family.type ? QString::number(*family.type) : QString();
    const QString type = typeByDates(family);
    if (stored == type) return;
    check.report(
        {.text = QString("%1 %2, e pelas datas é do tipo %3.")
                     .arg(named(family), stored.isEmpty() ? QString("não tem tipo") : "está no tipo " + stored, type),
         .families = {&family},
         .when = family.marriage});
}

} // namespace

std::vector<Rule> familyCardRules()
{
    return {
        {"F-01", Severity::Unlikely, "Família vazia", isEmpty, {}, "Ficou depois de se eliminarem as pessoas."},
        {"F-02",
         Severity::Impossible,
         "Família de origem que não existe",
         isOfNoFamily,
         {},
         "A família foi eliminada."},
        {"F-03",
         Severity::Impossible,
         "Cônjuge ou família que não existe",
         havePartnersMissing,
         {},
         "Na ficha da família pode escrever-se um número que ninguém tem."},
        {"F-04",
         Severity::Impossible,
         "Cônjuge e filho na mesma família",
         isSpouseAndChild,
         {},
         "A família de origem é a de um filho com o mesmo nome."},
        {"F-06",
         Severity::Information,
         "Família legítima sem data de casamento",
         hasNoMarriage,
         {},
         "Casaram noutra freguesia: há uma situação para as famílias presumidas legítimas."},
        {"F-07",
         Severity::Unlikely,
         "Família com o pai ou a mãe que a situação dá por incógnito",
         hasTheUnknownParent,
         {},
         "O pai reconheceu o filho mais tarde, e a situação ficou."},
        {"F-08",
         Severity::Information,
         "Observação da família desde outra data que não a do casamento",
         isObservedFromAnotherDay,
         {},
         "Casaram aqui e vieram viver para cá mais tarde."},
        {"F-09",
         Severity::Unlikely,
         "Observação da família depois da morte de ambos",
         isObservedBehindBothDeaths,
         {{"dias", 0, "Dias que se admitem"}},
         "A casa continuou com os filhos."},
        {"F-16",
         Severity::Information,
         "Tipo de família em desacordo com as datas",
         hasAnotherType,
         {},
         "Quem transcreve pode tê-lo escolhido; a ficha propõe o tipo 7."},
    };
}

} // namespace study::checks
