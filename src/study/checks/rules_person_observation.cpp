// People: the window in which they are observed.
#include "study/checks/check.h"
#include "study/checks/facts.h"
#include "study/checks/parts.h"
#include "study/checks/signs.h"
#include "study/checks/words.h"

#include <algorithm>

namespace study::checks {

using parish::Date;
using parish::Person;

namespace {

void endsBeforeItBegins(const Person& person, Check& check)
{
    if (!person.observedFrom.isValid() || !person.observedUntil.isValid()) return;
    if (person.observedFrom <= person.observedUntil) return;
    check.report({.text = QString("%1 está em observação desde %2, e só até %3.")
                              .arg(named(person), told(exact(person.observedFrom)), told(exact(person.observedUntil))),
                  .people = {&person},
                  .when = exact(person.observedUntil)});
}

// Beyond what an approximate date may be off.
bool isTooEarly(const Date& later, const Date& earlier, const Check& check)
{
    const double days = daysTooEarly(later, earlier) - check.tolerance({later, earlier}) * parish::daysOfAYear;
    return days > check.limit("dias");
}

void isObservedOutsideTheLife(const Person& person, Check& check)
{
    const Date from = exact(person.observedFrom), until = exact(person.observedUntil);
    QStringList faults;
    if (isTooEarly(from, person.birth, check))
        faults << QString("desde %1, antes de nascer em %2").arg(told(from), told(person.birth));
    if (isTooEarly(person.death, until, check))
        faults << QString("até %1, depois de morrer em %2").arg(told(until), told(person.death));
    if (faults.isEmpty()) return;
    check.report({.text = QString("%1 está em observação %2.").arg(named(person), faults.join(", e ")),
                  .people = {&person},
                  .when = faults.size() == 1 && faults[0].startsWith("até") ? until : from});
}

// What was done in the parish itself, the own death too, if anything was after that day.
std::optional<Sign> lastActHere(const Person& person, const Check& check)
{
    std::optional<Sign> last;
    auto signs = signsOfLife(person);
    std::erase_if(signs,
                  [&](const Sign& sign) { return daysTooEarly(person.death, sign.date) > 0; }); // posthumous children
    if (person.death.isKnown()) signs.push_back({person.death, "óbito", person.deathPlace});
    for (const Sign& sign : signs)
        if ((sign.isOfTheParish || isIn(sign.place, check.parish().home())) &&
            (!last || sign.date.day >= last->date.day))
            last = sign;
    return last;
}

void isSeenBehindTheEnd(const Person& person, Check& check)
{
    const Date until = exact(person.observedUntil);
    if (!until.isKnown()) return;
    const auto last = lastActHere(person, check);
    if (!last || !isTooEarly(until, last->date, check)) return;
    check.report({.text = QString("%1 está em observação até %2, e tem um acto posterior na freguesia: %3 em %4.")
                              .arg(named(person), told(until), last->what, told(last->date)),
                  .people = {&person},
                  .when = last->date});
}

// Somebody who was born here, and whom nothing shows elsewhere before the observation begins.
void beginsLate(const Person& person, Check& check)
{
    const Date from = exact(person.observedFrom);
    if (!from.isKnown() || !person.birth.isKnown() || !isIn(person.birthPlace, check.parish().home())) return;
    if (!isTooEarly(person.birth, from, check)) return;
    const auto isElsewhere = [&](const parish::Residence& row) {
        return row.place.isKnown() && !isIn(row.place, check.parish().home()) && row.date.day <= from.day;
    };
    if (std::ranges::any_of(person.residences, isElsewhere)) return;
    if (person.origin && std::ranges::any_of(person.origin->residences, isElsewhere)) return;
    if (!person.passports.empty() && person.passports.front().date.day <= from.day) return;
    check.report({.text = QString("%1 nasceu na freguesia em %2, e só está em observação desde %3.")
                              .arg(named(person), told(person.birth), told(from)),
                  .people = {&person},
                  .when = person.birth});
}

bool hasRows(const Person& person)
{
    return !person.residences.empty() || !person.professions.empty() || !person.signatures.empty() ||
           !person.bequests.empty() || !person.suffrages.empty() || !person.passports.empty();
}

void isCutOff(const Person& person, Check& check)
{
    if (person.birth.isKnown() || person.death.isKnown() || hasRows(person)) return;
    if (person.origin || !person.unions.empty()) return;
    if (!person.assisted.empty() || !person.godparents.empty() || check.facts().mentioned.contains(&person)) return;
    check.report({.text = QString("%1 não tem datas, família nem actos.").arg(named(person)), .people = {&person}});
}

} // namespace

std::vector<Rule> personObservationRules()
{
    const Limit days{"dias", 0, "Dias que se admitem"};
    return {
        {"P-16",
         Severity::Impossible,
         "Observação que acaba antes de começar",
         endsBeforeItBegins,
         {},
         "Datas trocadas."},
        {"P-17",
         Severity::Unlikely,
         "Observação fora da vida",
         isObservedOutsideTheLife,
         {days},
         "A data do nascimento ou do óbito foi corrigida, e a da observação ficou."},
        {"P-18",
         Severity::Unlikely,
         "Acto na freguesia depois do fim da observação",
         isSeenBehindTheEnd,
         {days},
         "Saiu da freguesia e voltou."},
        {"P-19",
         Severity::Information,
         "Observação que começa depois do nascimento na freguesia",
         beginsLate,
         {days},
         "Esteve fora, e só quem transcreveu o sabe."},
        {"P-20",
         Severity::Information,
         "Pessoa sem datas, família nem actos",
         isCutOff,
         {},
         "Pode ter sido inserida antes dos actos."},
    };
}

} // namespace study::checks
