// People: sex, civil state and type beside what else is known.
#include "study/checks/check.h"
#include "study/checks/codes.h"
#include "study/checks/facts.h"
#include "study/checks/parts.h"
#include "study/checks/words.h"

#include <algorithm>
#include <iterator>

namespace study::checks {

using parish::Family;
using parish::Gender;
using parish::Membership;
using parish::Person;

namespace {

// "Rui (nº 1) morreu casado em 14/02/1803"; without the date where there is none.
QString diedAs(const Person& person, const char* man, const char* woman)
{
    const QString when = person.death.isKnown() ? " em " + told(person.death) : QString();
    return named(person) + " morreu " + wordFor(person, man, woman) + when;
}

// One whose family doesn't exist may be a marriage: that it is missing is told by another rule.
bool isUnmarriedUnion(const Membership* row)
{
    return row->family && isUnmarried(*row->family);
}

void hasNoFamily(const Person& person, Check& check)
{
    if (!person.stateAtDeath || !std::ranges::all_of(person.unions, isUnmarriedUnion)) return;
    QStringList where;
    std::vector<const Family*> families;
    for (const Membership* row : unionsOf(person)) {
        where << inFamily(*row->family);
        families.push_back(row->family);
    }
    const QString how = where.isEmpty() ? QString(", e não é cônjuge em nenhuma família.")
                                        : ", e só é cônjuge onde não houve casamento: " + together(where) + '.';
    static constexpr struct
    {
        int code;
        const char *man, *woman;
    } states[]{{married, "casado", "casada"},
               {widowed, "viúvo", "viúva"},
               {separated, "separado", "separada"},
               {divorced, "divorciado", "divorciada"}};
    for (const auto& [code, man, woman] : states)
        if (person.stateAtDeath == code)
            check.report({.text = diedAs(person, man, woman) + how,
                          .people = {&person},
                          .families = families,
                          .when = person.death});
}

void diesSingleThoughMarried(const Person& person, Check& check)
{
    if (person.stateAtDeath != single) return;
    std::vector<const Family*> families;
    QStringList unions;
    for (const Membership* row : unionsOf(person)) {
        if (!row->family || !isMarried(*row->family)) continue;
        families.push_back(row->family);
        const bool dated = row->family->marriage.isKnown();
        unions << inFamily(*row->family) + (dated ? ", casamento em " + told(row->family->marriage) : QString());
    }
    if (families.empty()) return;
    check.report({.text = QString("%1, e é cônjuge %2.").arg(diedAs(person, "solteiro", "solteira"), unions.join("; ")),
                  .people = {&person},
                  .families = families,
                  .when = person.death});
}

// The other one of each couple that isn't unmarried; nothing where one of them isn't known.
std::vector<const Person*> allSpousesOf(const Person& person)
{
    std::vector<const Person*> spouses;
    for (const Membership* row : unionsOf(person)) {
        if (isUnmarriedUnion(row)) continue;
        const Person* const spouse = row->family ? spouseOf(person, *row->family) : nullptr;
        if (!spouse) return {};
        spouses.push_back(spouse);
    }
    return spouses;
}

QString deathsOf(const std::vector<const Person*>& people)
{
    QStringList deaths;
    for (const Person* one : people)
        deaths << named(*one) + " morreu em " + told(one->death);
    return together(deaths);
}

std::vector<const Person*> withHimself(const Person& person, const std::vector<const Person*>& others)
{
    std::vector<const Person*> all{&person};
    std::ranges::copy(others, std::back_inserter(all));
    return all;
}

// By more than the limit, and more than the dates may be off.
bool isBeforeByTheLimit(const parish::Date& first, const parish::Date& second, const Check& check)
{
    const int days = daysTooEarly(first, second);
    return days > check.limit("dias") && !check.mayBeOfTheDates(days, {first, second});
}

void diesMarriedThoughWidowed(const Person& person, Check& check)
{
    if (person.stateAtDeath != married || !person.death.isKnown()) return;
    const auto spouses = allSpousesOf(person);
    const auto diedBefore = [&](const Person* spouse) {
        return isBeforeByTheLimit(spouse->death, person.death, check);
    };
    if (spouses.empty() || !std::ranges::all_of(spouses, diedBefore)) return;
    check.report(
        {.text = QString("%1, e já tinha enviuvado: %2.").arg(diedAs(person, "casado", "casada"), deathsOf(spouses)),
         .people = withHimself(person, spouses),
         .when = person.death});
}

void diesWidowedThoughMarried(const Person& person, Check& check)
{
    if (person.stateAtDeath != widowed || !person.death.isKnown()) return;
    std::vector<const Person*> alive;
    for (const Membership* row : unionsOf(person)) {
        const bool isMarriage = row->family && !isUnmarried(*row->family);
        const Person* const spouse = isMarriage ? spouseOf(person, *row->family) : nullptr;
        if (spouse && isBeforeByTheLimit(person.death, spouse->death, check)) alive.push_back(spouse);
    }
    if (alive.empty()) return;
    check.report({.text = QString("%1, e só depois %2.").arg(diedAs(person, "viúvo", "viúva"), deathsOf(alive)),
                  .people = withHimself(person, alive),
                  .when = person.death});
}

void hasAnotherType(const Person& person, Check& check)
{
    const QString type = typeByDates(person);
    const QString stored = person.type.trimmed();
    if (type == stored) return;
    check.report({.text = QString("%1 tem %2, e pelas datas é do tipo %3.")
                              .arg(named(person),
                                   stored.isEmpty() ? QString("o tipo por preencher")
                                                    : "o tipo " + described(check.parish(), "TipIn", stored),
                                   described(check.parish(), "TipIn", type)),
                  .people = {&person}});
}

void bearsANameOfTheOtherSex(const Person& person, Check& check)
{
    if (person.gender == Gender::Undetermined) return;
    const Facts::Bearers bearers = check.facts().bearers.value(firstNameKey(person));
    const bool isMan = person.gender == Gender::Male;
    const int others = isMan ? bearers.women : bearers.men;
    const int all = bearers.men + bearers.women;
    static constexpr double percent = 100;
    if (all < check.limit("pessoas") || others * percent < all * check.limit("percentagem")) return;
    check.report({.text = QString("%1 está como %2, e das %3 pessoas com esse primeiro nome %4 são %5.")
                              .arg(named(person), isMan ? "homem" : "mulher", QString::number(all),
                                   QString::number(others), isMan ? "mulheres" : "homens"),
                  .people = {&person}});
}

void isASpouseWithoutSex(const Person& person, Check& check)
{
    if (person.gender != Gender::Undetermined) return;
    std::vector<const Family*> families;
    QStringList names;
    for (const Membership* row : unionsOf(person))
        if (row->family) {
            families.push_back(row->family);
            names << inFamily(*row->family);
        }
    if (families.empty()) return;
    check.report({.text = QString("%1 é cônjuge %2, e tem o sexo por determinar.").arg(named(person), together(names)),
                  .people = {&person},
                  .families = families});
}

} // namespace

std::vector<Rule> personStateRules()
{
    return {
        {"P-06",
         Severity::Unlikely,
         "Casado ou viúvo ao óbito, sem família",
         hasNoFamily,
         {},
         "Casou noutra freguesia: falta a família, que só o óbito dá a conhecer."},
        {"P-07",
         Severity::Impossible,
         "Solteiro ao óbito, e cônjuge numa família legítima",
         diesSingleThoughMarried,
         {},
         "Uma mãe solteira numa família que não é legítima está certa, e não aparece aqui."},
        {"P-08",
         Severity::Unlikely,
         "Casado ao óbito, com todos os cônjuges já mortos",
         diesMarriedThoughWidowed,
         {{"dias", 0, "Dias entre os óbitos que se admitem"}},
         "Falta a família de um segundo casamento, noutra freguesia."},
        {"P-09",
         Severity::Unlikely,
         "Viúvo ao óbito, com um cônjuge que morreu depois",
         diesWidowedThoughMarried,
         {{"dias", 0, "Dias entre os óbitos que se admitem"}},
         "Era viúvo de um outro cônjuge, que a BDP não tem."},
        {"P-10",
         Severity::Information,
         "Tipo de indivíduo em desacordo com as datas",
         hasAnotherType,
         {},
         "A ficha nunca escreve por si os tipos 2 e 3; quem transcreve pode tê-lo escolhido."},
        {"P-11",
         Severity::Unlikely,
         "Sexo contrário ao do primeiro nome",
         bearsANameOfTheOtherSex,
         {{"pessoas", 10, "Pessoas com o nome, pelo menos"}, {"percentagem", 95, "De um só sexo, pelo menos (%)"}},
         "Há nomes dos dois sexos (Trindade, Nascimento, Cruz), e um primeiro nome não diz tudo (José Maria, Maria "
         "José)."},
        {"P-12",
         Severity::Impossible,
         "Cônjuge de sexo por determinar",
         isASpouseWithoutSex,
         {},
         "A ficha da família mostra-o no lugar da mãe."},
    };
}

} // namespace study::checks
