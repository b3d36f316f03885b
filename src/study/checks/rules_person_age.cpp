// People: from the birth to the death, and how long that is.
#include "study/checks/check.h"
#include "study/checks/codes.h"
#include "study/checks/parts.h"
#include "study/checks/signs.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <algorithm>
#include <cstdlib>

namespace study::checks {

using parish::Person;

namespace {

// Completed years, where they can be told; a death before the birth is a case of its own.
std::optional<int> ageAtDeath(const Person& person)
{
    if (!person.birth.isKnown() || !person.death.isKnown()) return {};
    if (daysTooEarly(person.death, person.birth) > 0) return {};
    return std::max(0, completedYears(person.birth, person.death)); // of a year alone, a few months too early
}

// "Rui (nº 1) morreu em 14/02/1803 com 101 anos (nasceu em 14/02/1702)".
QString diedAged(const Person& person, int age)
{
    return QString("%1 morreu em %2 com %3 (nasceu em %4)")
        .arg(named(person), told(person.death), yearsTold(age), told(person.birth));
}

void diesBeforeTheBirth(const Person& person, Check& check)
{
    const int days = daysTooEarly(person.death, person.birth);
    if (days <= check.limit("dias")) return;
    check.report({.text = named(person) + " morreu em " + told(person.death) + ", antes de nascer em " +
                          told(person.birth) + '.',
                  .people = {&person},
                  .when = person.death},
                 check.gravity(days, {person.birth, person.death}));
}

void diesTooOld(const Person& person, Check& check)
{
    const auto age = ageAtDeath(person);
    if (!age) return;
    const auto daysBehind = [&](double years) {
        return 1 - daysShortOf(static_cast<int>(years) + 1, person.birth, person.death);
    };
    const int days = daysBehind(check.limit("idade")), beyond = daysBehind(check.limit("impossivel"));
    if (days <= 0 || check.mayBeOfTheDates(days, {person.birth, person.death})) return;
    const bool impossible = beyond > 0 && !check.mayBeOfTheDates(beyond, {person.birth, person.death});
    check.report({.text = QString("%1 morreu em %2 com %3: nasceu em %4.")
                              .arg(named(person), told(person.death), yearsTold(*age), told(person.birth)),
                  .people = {&person},
                  .when = person.death},
                 impossible ? Severity::Impossible : Severity::Unlikely);
}

void isToldAnotherAge(const Person& person, Check& check)
{
    const auto age = ageAtDeath(person);
    if (!age || !person.ageAtDeath) return;
    static constexpr double percent = 100;
    const double off = std::abs(*person.ageAtDeath - *age) - check.tolerance({person.birth, person.death});
    if (off <= check.limit("anos") || off <= *age * check.limit("percentagem") / percent) return;
    check.report(
        {.text = QString("%1, e a idade indicada é de %2.").arg(diedAged(person, *age), yearsTold(*person.ageAtDeath)),
         .people = {&person},
         .when = person.death});
}

bool hasReached(const Person& person, int age, const Check& check)
{
    return age - check.tolerance({person.birth, person.death}) >= check.limit("idade");
}

void isNoMinor(const Person& person, Check& check)
{
    const auto age = ageAtDeath(person);
    if (!age || !person.minor.value_or(false) || !hasReached(person, *age, check)) return;
    check.report({.text = QString("%1, e está como menor.").arg(diedAged(person, *age)),
                  .people = {&person},
                  .when = person.death});
}

void isNoInnocent(const Person& person, Check& check)
{
    const auto age = ageAtDeath(person);
    if (!age || person.minor.value_or(false) || person.parishClass != innocent) return;
    if (!hasReached(person, *age, check)) return;
    check.report(
        {.text = QString("%1, e está na classe paroquial %2.")
                     .arg(diedAged(person, *age), described(check.parish(), "ClaPa", QString::number(innocent))),
         .people = {&person},
         .when = person.death});
}

void livesTooLong(const Person& person, Check& check)
{
    if (!person.birth.isKnown() || person.death.isKnown()) return;
    const auto signs = signsOfLife(person);
    if (signs.empty()) return;
    const Sign& last = signs.back();
    const int age = completedYears(person.birth, last.date);
    if (age - check.tolerance({person.birth, last.date}) <= check.limit("idade")) return;
    check.report({.text = QString("%1 nasceu em %2, não tem óbito e ainda aparece em %3 (%4), com %5.")
                              .arg(named(person), told(person.birth), told(last.date), last.what, yearsTold(age)),
                  .people = {&person},
                  .when = last.date});
}

void isTooSmallOrTooTall(const Person& person, Check& check)
{
    if (!person.height) return;
    static constexpr int grown = 18;
    const auto age = ageAtDeath(person);
    const auto isOfAChild = [&](const parish::Passport& row) {
        return person.birth.isKnown() && row.date.isKnown() && completedYears(person.birth, row.date) < grown;
    };
    const bool isChild = person.minor.value_or(false) || (age && *age < grown) ||
                         std::ranges::any_of(person.passports, isOfAChild); // which has the height
    const bool small = !isChild && *person.height < check.limit("minima");
    if (!small && *person.height <= check.limit("maxima")) return;
    check.report({.text = QString("%1 tem %2 cm de altura.").arg(named(person), QString::number(*person.height)),
                  .people = {&person}});
}

} // namespace

std::vector<Rule> personAgeRules()
{
    return {
        {"P-01",
         Severity::Impossible,
         "Óbito antes do nascimento",
         diesBeforeTheBirth,
         {{"dias", 0, "Dias que se admitem"}},
         "Engano no século."},
        {"P-02",
         Severity::Unlikely,
         "Idade excessiva ao óbito",
         diesTooOld,
         {{"idade", 100, "Idade máxima ao óbito (anos)"}, {"impossivel", 115, "Idade que ninguém atinge (anos)"}},
         "Dois homónimos juntos numa ficha; idades exageradas."},
        {"P-03",
         Severity::Unlikely,
         "Idade indicada ao óbito diferente da calculada",
         isToldAnotherAge,
         {{"anos", 2, "Diferença admitida (anos)"}, {"percentagem", 10, "E em percentagem da idade (%)"}},
         "Quem declara uma idade arredonda-a, muitas vezes para um múltiplo de 5 ou de 10."},
        {"P-04",
         Severity::Unlikely,
         "Menor que já não o era",
         isNoMinor,
         {{"idade", 7, "Idade com que se deixa de ser menor (anos)"}},
         "Em direito, era menor quem não tinha 25 anos; há livros que chamam menor a quem não tem 14."},
        {"P-05",
         Severity::Unlikely,
         "Inocente que já não o era",
         isNoInnocent,
         {{"idade", 8, "Idade com que já não se é inocente (anos)"}},
         "O pároco avaliou a idade a olho."},
        {"P-27",
         Severity::Information,
         "Vivo há tempo de mais",
         livesTooLong,
         {{"idade", 100, "Idade até à qual se pode aparecer num acto (anos)"}},
         "Um homónimo mais novo figura no acto."},
        {"P-31",
         Severity::Unlikely,
         "Altura fora do comum",
         isTooSmallOrTooTall,
         {{"minima", 120, "Altura mínima de um adulto (cm)"}, {"maxima", 210, "Altura máxima (cm)"}},
         "A medida está em palmos ou em polegadas; a criança não tem data de nascimento."},
    };
}

} // namespace study::checks
