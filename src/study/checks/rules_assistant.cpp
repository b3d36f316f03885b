// What cannot be of those who assisted at acts.
#include "study/checks/actKinship.h"
#include "study/checks/codes.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <array>

namespace study::checks {

using parish::Assistance;
using parish::Date;
using parish::Family;
using parish::Person;

namespace {

// The card has the last word on the day; the row has a copy of it.
Date dayOf(const Assistance& row)
{
    const Date onTheCard = dayOfAct(row);
    return onTheCard.isKnown() ? onTheCard : row.date;
}

// "baptismo de Rui (nº 1) em 14/02/1702".
QString actWithDay(const Assistance& row)
{
    return actOf(row) + " em " + told(dayOf(row));
}

// A case of the person who assisted, of the act, and of whoever else is added.
Check::Found foundOf(const Person& assistant, const Assistance& row, const QString& text)
{
    Check::Found found{.text = text, .people = {&assistant}, .families = {}, .when = dayOf(row)};
    addOnce(found.people, row.child);
    addOnce(found.families, row.family);
    return found;
}

void assistsAfterDeath(const Person& person, Check& check)
{
    QStringList acts;
    Check::Found found{.text = {}, .people = {&person}, .families = {}, .when = person.death};
    Severity worst = Severity::Information;
    for (const Assistance* row : person.assisted) {
        const int days = daysTooEarly(person.death, dayOf(*row));
        if (days <= check.limit("dias")) continue;
        acts << actWithDay(*row);
        addOnce(found.people, row->child);
        addOnce(found.families, row->family);
        worst = std::min(worst, check.gravity(days, {person.death, dayOf(*row)}));
    }
    if (acts.isEmpty()) return;
    found.text =
        QString("%1 morreu em %2, mas assistiu depois a: %3.").arg(named(person), told(person.death), few(acts));
    check.report(found, worst);
}

void assistsTooYoung(const Person& person, Check& check)
{
    if (!person.birth.isKnown()) return;
    for (const Assistance* row : person.assisted) {
        const Date day = dayOf(*row);
        if (!day.isKnown() || row->child == &person) continue;
        const auto youngest = static_cast<int>(check.limit(row->godparent && row->child ? "baptismo" : "testemunha"));
        const int days = daysShortOf(youngest, person.birth, day);
        if (days <= 0 || check.mayBeOfTheDates(days, {person.birth, day})) continue;
        const int unborn = daysTooEarly(day, person.birth);
        const bool impossible = unborn > 0 && !check.mayBeOfTheDates(unborn, {person.birth, day});
        const QString how =
            unborn > 0 ? QString("antes de nascer em ") + told(person.birth)
                       : QString("com %1: nasceu em %2")
                             .arg(yearsTold(std::max(0, completedYears(person.birth, day))), told(person.birth));
        check.report(foundOf(person, *row, QString("%1 assistiu ao %2 %3.").arg(named(person), actWithDay(*row), how)),
                     impossible ? Severity::Impossible : Severity::Unlikely);
    }
}

// The rows of a couple stand in the order of the numbers.
bool isOneOf(const Family& couple, const Person& person)
{
    const auto numberOf = [](const parish::Membership& row) { return row.member.number; };
    return std::ranges::binary_search(couple.members, person.number, {}, numberOf);
}

// Who the assistant is at the act itself: "a própria criança"; nothing where it is somebody else.
QString ownPart(const Person& person, const Assistance& row)
{
    if (row.child == &person) return "a própria pessoa que se baptiza";
    if (row.child && row.child->father() == &person) return "o pai da criança";
    if (row.child && row.child->mother() == &person) return "a mãe da criança";
    if (row.family && isOneOf(*row.family, person)) return wordFor(person, "o noivo", "a noiva");
    return {};
}

void assistsAtTheOwnAct(const Person& person, Check& check)
{
    for (const Assistance* row : person.assisted)
        if (const QString part = ownPart(person, *row); !part.isEmpty())
            check.report(
                foundOf(person, *row,
                        QString("%1 consta como %2 no %3, mas é %4.")
                            .arg(named(person), row->godparent ? wordFor(person, "padrinho", "madrinha") : "testemunha",
                                 actWithDay(*row), part)));
}

void assistsForTheSpousesChild(const Person& person, Check& check)
{
    for (const Assistance* row : person.assisted) {
        if (!row->child || !row->godparent || !ownPart(person, *row).isEmpty()) continue;
        for (const parish::Membership* own : person.unions) {
            const Person* spouse = own->family ? spouseOf(person, *own->family) : nullptr;
            const bool isFather = spouse && spouse == row->child->father();
            if (!isFather && (!spouse || spouse != row->child->mother())) continue;
            Check::Found found = foundOf(person, *row,
                                         QString("%1 é %2 no %3, e casou com %4 da criança, %5.")
                                             .arg(named(person), wordFor(person, "padrinho", "madrinha"),
                                                  actWithDay(*row), isFather ? "o pai" : "a mãe", named(*spouse)));
            addOnce(found.people, spouse);
            addOnce<Family>(found.families, own->family);
            check.report(found);
            break;
        }
    }
}

struct Elder
{
    const Person* person;
    parish::Flag dead;
    const char *article, *role;
};

void tellsAnothersDeathWrongly(const Person& person, Check& check)
{
    for (const Assistance* row : person.assisted) {
        const Date day = dayOf(*row);
        for (const Elder& elder :
             {Elder{person.father(), row->fatherDead, "o", "pai"}, Elder{person.mother(), row->motherDead, "a", "mãe"}})
        {
            if (!elder.person || !elder.dead) continue;
            const Date death = elder.person->death;
            const int days = *elder.dead ? daysTooEarly(day, death) : daysTooEarly(death, day);
            if (days == 0 || check.mayBeOfTheDates(days, {day, death})) continue;
            const QString how =
                *elder.dead ? wordFor(*elder.person, "falecido", "falecida") : wordFor(*elder.person, "vivo", "viva");
            Check::Found found = foundOf(person, *row,
                                         QString("No %1, %2 %3 %4, %5, consta como %6, mas morreu em %7.")
                                             .arg(actWithDay(*row), elder.article, elder.role, of(person),
                                                  named(*elder.person), how, told(death)));
            found.people.push_back(elder.person);
            check.report(found);
        }
    }
}

void isNoSuchKin(const Person& person, Check& check)
{
    for (const Assistance* row : person.assisted) {
        const Family* family = row->family;
        for (const auto& [code, whose] :
             {std::pair(row->kinToChild, row->child), std::pair(row->kinToGroom, family ? family->husband : nullptr),
              std::pair(row->kinToBride, family ? family->wife : nullptr)})
        {
            if (!code || !whose || whose == &person) continue;
            const QString why = whyNotKin(*code, person, *whose, check);
            if (why.isEmpty()) continue;
            Check::Found found =
                foundOf(person, *row,
                        QString("%1 consta no %2 como %3 %4, mas %5.")
                            .arg(named(person), actWithDay(*row),
                                 described(check.parish(), "Paren", QString::number(*code)), of(*whose), why));
            addOnce(found.people, whose);
            check.report(found);
        }
    }
}

// Why the marriage contradicts the state on that day, as the end of a sentence; "" where it doesn't.
QString whyNotSo(const Person& person, const parish::Membership& row, int state, const Date& day, const Check& check)
{
    const Date marriage = row.family->marriage;
    const Person* spouse = spouseOf(person, *row.family);
    const Date death = spouse ? spouse->death : Date();
    const bool hadMarried = isSurelyBefore(marriage, day, check);
    if (state == single && hadMarried) return "casou em " + told(marriage);
    if (spouse && state == widowed && hadMarried && isSurelyBefore(day, death, check))
        return QString("%1, com quem casou em %2, só morreu em %3").arg(named(*spouse), told(marriage), told(death));
    if (state == married && isSurelyBefore(day, marriage, check)) return "só casou em " + told(marriage);
    if (spouse && state == married && isSurelyBefore(death, day, check))
        return QString("%1, com quem casou, morreu em %2").arg(named(*spouse), told(death));
    return {};
}

// Why, and by which marriage.
struct Contradiction
{
    QString why = {};
    const Family* family = nullptr;
};

// Single and widowed are contradicted by any marriage, married only by all.
Contradiction whyNotOfThisState(const Person& person, int state, const Date& day, const Check& check)
{
    Contradiction last;
    for (const parish::Membership* row : person.unions) {
        if (!row->family || isUnmarried(*row->family)) continue;
        const QString reason = whyNotSo(person, *row, state, day, check);
        if (reason.isEmpty() && state == married) return {};
        if (!reason.isEmpty()) last = {reason, row->family};
    }
    return last;
}

void isOfAnotherState(const Person& person, Check& check)
{
    for (const Assistance* row : person.assisted) {
        const Date day = dayOf(*row);
        if (!row->state || !day.isKnown()) continue;
        const auto [why, family] = whyNotOfThisState(person, *row->state, day, check);
        if (!family) continue;
        Check::Found found =
            foundOf(person, *row,
                    QString("%1 consta como %2 no %3, mas %4.")
                        .arg(named(person), described(check.parish(), "EstCi", QString::number(*row->state)),
                             actWithDay(*row), why));
        addOnce(found.people, spouseOf(person, *family));
        addOnce<Family>(found.families, family);
        check.report(found);
    }
}

} // namespace

std::vector<Rule> assistantRules()
{
    return {
        {"T-02",
         Severity::Impossible,
         "Assistente já falecido",
         assistsAfterDeath,
         {{"dias", 0, "Dias que se admitem"}},
         "O óbito é de um homónimo, ou o assistente o é; quem se fez representar estava vivo."},
        {"T-03",
         Severity::Unlikely,
         "Assistente novo demais",
         assistsTooYoung,
         {{"baptismo", 7, "Idade mínima dos padrinhos (anos)"},
          {"testemunha", 14, "Idade mínima das testemunhas (anos)"}},
         "Crianças foram padrinhos; mais vezes o padrinho é um homónimo mais velho."},
        {"T-04",
         Severity::Impossible,
         "Assistente ao próprio acto",
         assistsAtTheOwnAct,
         {},
         "Os pais não podiam ser padrinhos; um homónimo deles podia."},
        {"T-06",
         Severity::Unlikely,
         "Padrinho que casou com o pai ou a mãe",
         assistsForTheSpousesChild,
         {},
         "O parentesco espiritual era impedimento; com dispensa, ou entre homónimos, encontra-se."},
        {"T-07",
         Severity::Unlikely,
         "Pai ou mãe do assistente vivo ou falecido",
         tellsAnothersDeathWrongly,
         {},
         "A ficha grava «vivo» onde ninguém marcou que faleceu, e o acto pode tê-lo calado."},
        {"T-08",
         Severity::Unlikely,
         "Parentesco que não pode ser",
         isNoSuchKin,
         {{"geracao", 12, "Menor diferença entre gerações (anos)"}},
         "O parentesco é o do outro noivo, ou conta-se por afinidade; a família de origem de um deles está errada."},
        {"T-09",
         Severity::Unlikely,
         "Estado civil do assistente",
         isOfAnotherState,
         {},
         "Um casamento ou um óbito que se não conhece; um homónimo solteiro."},
    };
}

} // namespace study::checks
