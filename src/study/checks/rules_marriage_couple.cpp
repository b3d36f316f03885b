// Marriages: who the two are, and on what day.
#include "study/checks/check.h"
#include "study/checks/parts.h"
#include "study/checks/words.h"
#include "study/parish/calendar.h"

#include <algorithm>
#include <map>

namespace study::checks {

using parish::Family;
using parish::Gender;
using parish::Membership;
using parish::Person;

namespace {

QString familyNumber(const Family& family)
{
    return "na família nº " + parish::shown(family.number);
}

void areOfOneSex(const Family& family, Check& check)
{
    std::map<Gender, const Person*> firstOf;
    for (const Membership& row : family.members) {
        const Person* const person = row.member.person;
        if (!person || person->gender == Gender::Undetermined) continue;
        const Person*& first = firstOf[person->gender];
        if (!first) first = person;
        if (first == person) continue;
        check.report({.text = QString("%1 e %2 são cônjuges %3, e são %4.")
                                  .arg(named(*first), named(*person), familyNumber(family),
                                       person->gender == Gender::Male ? "ambos homens" : "ambas mulheres"),
                      .people = {first, person},
                      .families = {&family},
                      .when = family.marriage});
        return;
    }
}

void isMarriedToHimself(const Family& family, Check& check)
{
    const auto isSame = [](const Membership& one, const Membership& next) { // they stand in the order of the numbers
        return one.member.person && one.member.person == next.member.person;
    };
    const auto row = std::ranges::adjacent_find(family.members, isSame);
    if (row == family.members.end()) return;
    check.report(
        {.text =
             QString("%1 está mais de uma vez como cônjuge %2.").arg(named(*row->member.person), familyNumber(family)),
         .people = {row->member.person},
         .families = {&family},
         .when = family.marriage});
}

void hasNoCoupleOrTooMany(const Family& family, Check& check)
{
    static constexpr size_t couple = 2;
    if (family.members.empty() && !family.children.empty()) {
        const auto children = family.children.size();
        const QString counted = children == 1 ? QString("1 filho") : QString("%1 filhos").arg(children);
        check.report(
            {.text = QString("%1 não tem cônjuges, e tem %2.").arg(named(family), counted), .families = {&family}},
            Severity::Information);
    }
    if (family.members.size() <= couple) return;
    Check::Found found{.text = {}, .families = {&family}, .when = family.marriage};
    QStringList names;
    for (const Membership& row : family.members) {
        names << (row.member.person ? named(*row.member.person) : "o nº " + parish::shown(row.member.number));
        if (row.member.person) found.people.push_back(row.member.person);
    }
    found.text = QString("A família nº %1 tem %2 cônjuges: %3.")
                     .arg(parish::shown(family.number), QString::number(names.size()), together(names));
    check.report(found, Severity::Impossible);
}

void isInAClosedSeason(const Family& family, Check& check)
{
    if (!family.marriage.isExact()) return;
    const QDate day = family.marriage.date();
    const parish::ClosedSeason season = parish::closedSeason(day);
    if (season == parish::ClosedSeason::None) return;
    const auto shownDay = [](QDate date) { return told(parish::dateOf(date, true)); };
    const QString why = season == parish::ClosedSeason::Advent ? QString("entre o Advento e os Reis")
                                                               : "entre as Cinzas e a oitava da Páscoa, que foi em " +
                                                                     shownDay(parish::easter(day.year()));
    check.report({.text = QString("O casamento de %1 (%2) foi em tempo proibido, %3.")
                              .arg(told(family.marriage), named(family), why),
                  .families = {&family},
                  .when = family.marriage});
}

} // namespace

std::vector<Rule> marriageCoupleRules()
{
    return {
        {"M-14",
         Severity::Impossible,
         "Cônjuges do mesmo sexo",
         areOfOneSex,
         {},
         "O sexo de um deles está errado, ou a família tem o pai ou a mãe de um dos noivos."},
        {"M-15",
         Severity::Impossible,
         "A mesma pessoa duas vezes na família",
         isMarriedToHimself,
         {},
         "Linhas escritas por outro programa."},
        {"M-16",
         Severity::Impossible,
         "Família sem cônjuges, ou com mais de dois",
         hasNoCoupleOrTooMany,
         {},
         "Sem cônjuges: filhos de pais incógnitos. Com mais de dois: a ficha nunca mostra o terceiro."},
        {"M-19",
         Severity::Information,
         "Casamento em tempo proibido",
         isInAClosedSeason,
         {},
         "Casava-se com licença do bispo, e sem solenidade: é só uma lista."},
    };
}

} // namespace study::checks
