// People: what one column says beside another.
#include "study/checks/check.h"
#include "study/checks/codes.h"
#include "study/checks/parts.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <algorithm>
#include <cstdlib>

namespace study::checks {

using parish::Person;

namespace {

void hasNoName(const Person& person, Check& check)
{
    const auto letters = std::ranges::count_if(person.name, [](QChar letter) { return letter.isLetter(); });
    if (letters >= check.limit("letras")) return;
    const QString name = person.name.trimmed();
    const QString number = "O indivíduo nº " + parish::shown(person.number);
    check.report({.text = name.isEmpty() ? number + " não tem nome."
                                         : QString("%1 não tem nome que se leia: «%2».").arg(number, name),
                  .people = {&person}});
}

void hasAMotherOfNoAge(const Person& person, Check& check)
{
    if (person.motherAge != 0) return;
    check.report(
        {.text = QString("%1 tem 0 como idade da mãe: a idade foi apagada.").arg(named(person)), .people = {&person}});
}

// "a mãe, Ana (nº 2), nascida em 14/02/1702, tinha 25 anos, e está indicada a idade de 40 anos"; "" where they agree.
QString otherAgeOf(const Person* parent, const char* who, parish::Code stated, const Person& child, const Check& check)
{
    if (!parent || !stated || *stated == 0 || !parent->birth.isKnown() || !child.birth.isKnown()) return {};
    const int age = std::max(0, completedYears(parent->birth, child.birth));
    const double off = std::abs(*stated - age) - check.tolerance({parent->birth, child.birth});
    if (daysTooEarly(child.birth, parent->birth) > 0 || off <= check.limit("anos")) return {};
    return QString("%1, %2, %3 em %4, tinha %5, e a idade indicada é de %6")
        .arg(who, named(*parent), wordFor(*parent, "nascido", "nascida"), told(parent->birth), yearsTold(age),
             yearsTold(*stated));
}

void hasParentsOfAnotherAge(const Person& person, Check& check)
{
    QStringList faults;
    std::vector<const Person*> people{&person};
    const auto look = [&](const Person* parent, const char* who, parish::Code stated) {
        const QString fault = otherAgeOf(parent, who, stated, person, check);
        if (fault.isEmpty()) return;
        faults << fault;
        people.push_back(parent);
    };
    look(person.father(), "o pai", person.fatherAge);
    look(person.origin ? motherIn(*person.origin) : nullptr, "a mãe", person.motherAge);
    if (faults.isEmpty()) return;
    check.report(
        {.text = QString("Quando nasceu %1 em %2, %3.").arg(named(person), told(person.birth), faults.join("; ")),
         .people = people,
         .families = {person.origin},
         .when = person.birth});
}

void hasAWillOfBothKinds(const Person& person, Check& check)
{
    if (!person.will.value_or(false) || !person.writtenWill.value_or(false)) return;
    check.report({.text = QString("%1 está ao mesmo tempo com testamento e com escritura.").arg(named(person)),
                  .people = {&person},
                  .when = person.death});
}

void hasAnExecutorWhoCannotBe(const Person& person, Check& check)
{
    const Person* const executor = person.executor.person;
    if (!executor) return;
    if (executor == &person)
        return check.report({.text = QString("%1 está como %2.")
                                         .arg(named(person), wordFor(person, "testamenteiro de si próprio",
                                                                     "testamenteira de si própria")),
                             .people = {&person},
                             .when = person.death});
    const int days = daysTooEarly(executor->death, person.death);
    if (days == 0 || check.mayBeOfTheDates(days, {executor->death, person.death})) return;
    check.report(
        {.text = QString("%1, %2 %3, morreu em %4, antes d%5, que morreu em %6.")
                     .arg(named(*executor), wordFor(*executor, "testamenteiro", "testamenteira"), of(person),
                          told(executor->death), wordFor(person, "o testador", "a testadora"), told(person.death)),
         .people = {&person, executor},
         .when = person.death});
}

void isOfAnotherFiliation(const Person& person, Check& check)
{
    if (!person.origin || !person.filiation) return;
    const bool contradicts = (person.filiation == legitimate && isUnmarried(*person.origin)) ||
                             (isOutOfWedlock(person.filiation) && isLegitimate(*person.origin));
    if (!contradicts) return;
    check.report(
        {.text = QString("%1 tem a filiação %2, e a sua família de origem, %3, a situação %4.")
                     .arg(named(person), described(check.parish(), "Filia", QString::number(*person.filiation)),
                          named(*person.origin), described(check.parish(), "SitFa", person.origin->situation)),
         .people = {&person},
         .families = {person.origin},
         .when = person.birth});
}

void isNotPosthumous(const Person& person, Check& check)
{
    const Person* const father = person.father();
    if (person.filiation != posthumous || !father) return;
    const int days = daysTooEarly(person.birth, father->death);
    if (days == 0) return;
    check.report({.text = QString("%1 está como %2 e nasceu em %3; o pai, %4, só morreu em %5.")
                              .arg(named(person), wordFor(person, "filho póstumo", "filha póstuma"), told(person.birth),
                                   named(*father), told(father->death)),
                  .people = {&person, father},
                  .families = {person.origin},
                  .when = person.birth},
                 check.gravity(days, {person.birth, father->death}));
}

void isAFoundlingWithParents(const Person& person, Check& check)
{
    if (person.filiation != foundling || !person.origin || person.origin->situation == fosterFamily) return;
    if (!person.father() && !person.mother()) return;
    check.report({.text = QString("%1 está como %2, e tem família de origem: %3.")
                              .arg(named(person), wordFor(person, "exposto", "exposta"), named(*person.origin)),
                  .people = {&person},
                  .families = {person.origin},
                  .when = person.birth});
}

} // namespace

std::vector<Rule> personColumnRules()
{
    return {
        {"P-21",
         Severity::Information,
         "Nome que não se lê",
         hasNoName,
         {{"letras", 2, "Letras de um nome, pelo menos"}},
         "O livro não dá o nome, como o de um recém-nascido."},
        {"P-22",
         Severity::Information,
         "Idade da mãe apagada",
         hasAMotherOfNoAge,
         {},
         "A ficha escreve 0 quando se apaga a idade da mãe."},
        {"P-23",
         Severity::Unlikely,
         "Idade indicada de um dos pais diferente da calculada",
         hasParentsOfAnotherAge,
         {{"anos", 3, "Diferença admitida (anos)"}},
         "Quem declara uma idade arredonda-a; a ligação a um homónimo."},
        {"P-24",
         Severity::Information,
         "Testamento e escritura ao mesmo tempo",
         hasAWillOfBothKinds,
         {},
         "A ficha deixa ficar o que já estava escolhido."},
        {"P-25",
         Severity::Unlikely,
         "Testamenteiro que não o podia ser",
         hasAnExecutorWhoCannotBe,
         {},
         "O testamento é muito anterior ao óbito, e não foi mudado."},
        {"P-28",
         Severity::Unlikely,
         "Filiação contrária à situação da família",
         isOfAnotherFiliation,
         {},
         "Os pais casaram depois, e um dos dois campos ficou como estava."},
        {"P-29",
         Severity::Impossible,
         "Filho póstumo com o pai vivo",
         isNotPosthumous,
         {},
         "O óbito é de um homónimo do pai."},
        {"P-30",
         Severity::Unlikely,
         "Exposto com pais",
         isAFoundlingWithParents,
         {},
         "Os pais vieram buscá-lo mais tarde; a família é a que o criou."},
    };
}

} // namespace study::checks
