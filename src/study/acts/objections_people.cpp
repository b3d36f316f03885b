// What contradicts: each person of an act beside what the BDP knows of them.
#include "study/acts/agesAndSpans.h"
#include "study/acts/limits.h"
#include "study/acts/work.h"
#include "study/parish/age.h"

namespace study {

namespace {

constexpr int lifeBefore = 100, lifeAfter = 90; // of the window of observation, in years

// Who has to be alive: grandparents, spouses and those mentioned needn't.
bool takesPart(const Work& work, int person)
{
    const Role role = work.act.people[person].role;
    if (role == Role::Child || role == Role::Groom || role == Role::Bride || role == Role::Celebrant ||
        role == Role::Proxy)
        return true;
    return isAssistant(role);
}

void objectToTheDead(Work& work, int person)
{
    const DayKnown death = deathOf(*work.row(person));
    if (!death.isKnown()) return;
    const ActPerson& one = work.act.people[person];
    const bool parentOfTheChild = (one.role == Role::Father || one.role == Role::Mother) && work.owner(person) >= 0 &&
                                  work.act.people[work.owner(person)].role == Role::Child;
    if (!takesPart(work, person) && !parentOfTheChild) return;
    const int days = !parentOfTheChild          ? 0
                     : one.role == Role::Father ? limits::posthumous
                                                : limits::baptisedAfterMother;
    if (!isBefore(death, dayOf(work), days)) return;
    work.object("morto-antes", person,
                QString("%1 (%2) morreu em %3, antes do acto.")
                    .arg(work.label(person), roleTitle(work.act, person), dated(death.day)));
}

void objectToTheUnborn(Work& work, int person)
{
    const DayKnown birth = birthOf(*work.row(person));
    if (work.act.people[person].role == Role::Child || !isBefore(dayOf(work), birth)) return;
    work.object("nascido-depois", person,
                QString("%1 (%2) nasceu em %3, depois do acto.")
                    .arg(work.label(person), roleTitle(work.act, person), dated(birth.day)));
}

void objectToTheYoung(Work& work, int person)
{
    const Role role = work.act.people[person].role;
    if (!isAssistant(role)) return;
    const int least = role == Role::Witness ? limits::witness.youngest : limits::godparent.youngest;
    const auto age = ageAt(birthOf(*work.row(person)), dayOf(work));
    if (!age || age->years < 0 || age->years + age->slack >= least) return;
    work.object(
        "novo-de-mais", person,
        QString("%1 (%2) tinha %3.").arg(work.label(person), roleTitle(work.act, person), yearsTold(age->years)));
}

void objectToTheSex(Work& work, int person)
{
    const Sex told = sexOf(work.act, person);
    const QString known = work.row(person)->stored("sexo").toString();
    const QString wanted = told == Sex::Male ? "m" : told == Sex::Female ? "f" : known;
    if ((known != "m" && known != "f") || known == wanted) return;
    work.object("sexo-trocado", person,
                QString("%1 é de sexo %2 na BDP, e no acto é %3.")
                    .arg(work.label(person), known == "m" ? "masculino" : "feminino", roleTitle(work.act, person)));
}

// The window of observation, as the cards test it. Who has died before, or was born after, is told by other rules.
void objectToTheAbsent(Work& work, int person)
{
    const Role role = work.act.people[person].role;
    if (!isAssistant(role) && role != Role::Celebrant) return;
    const PlannedRow& row = *work.row(person);
    const int year = work.day->year();
    const auto within = [&](const QDate& day) {
        return year - lifeBefore < day.year() && day.year() < year + lifeAfter;
    };
    bool present = true;
    const QDate birth = row.stored("datanasc").toDate(), begin = row.stored("inicioobs").toDate();
    const QDate death = row.stored("dataobito").toDate(), end = row.stored("fimobs").toDate();
    if (birth.isValid())
        present = birth.year() >= year - lifeBefore;
    else if (begin.isValid())
        present = within(begin);
    else if (death.isValid())
        present = death.year() <= year + lifeAfter;
    else if (end.isValid())
        present = within(end);
    if (present) return;
    work.object("fora-de-tempo", person,
                QString("%1 (%2) não se encontra no espaço temporal permitido.")
                    .arg(work.label(person), roleTitle(work.act, person)));
}

void objectToTheSubject(Work& work, int person)
{
    const PlannedRow& row = *work.row(person);
    const Role role = work.act.people[person].role;
    const DayKnown birth = birthOf(row), death = deathOf(row);
    if (role == Role::Child && birth.isKnown())
        work.object("ja-baptizado", person,
                    QString("%1 já tem data de nascimento ou baptismo: %2.").arg(work.label(person), dated(birth.day)));
    if (role == Role::Deceased && death.isKnown())
        work.object("ja-sepultado", person,
                    QString("%1 já tem data de óbito: %2.").arg(work.label(person), dated(death.day)));
}

// The same person twice: whom the act is about is nobody else in it, and nobody assists twice. A grandmother may be
// godmother, and a priest godfather.
bool mayBeBoth(const Work& work, int one, int other)
{
    const auto isSubject = [&](int person) { return subjects(work.act).contains(person); };
    if (isSubject(one) || isSubject(other)) return false;
    const Role first = work.act.people[one].role, second = work.act.people[other].role;
    if (isAssistant(first) && isAssistant(second)) return false;
    const auto isParentOfSubject = [&](int person) {
        const Role role = work.act.people[person].role;
        return (role == Role::Father || role == Role::Mother) && work.owner(person) >= 0 &&
               isSubject(work.owner(person));
    };
    const bool assists = isAssistant(first) || isAssistant(second);
    if (work.act.kind == ActKind::Baptism && assists && (isParentOfSubject(one) || isParentOfSubject(other)))
        return false;
    return work.owner(one) != other && work.owner(other) != one;
}

void objectToTheSame(Work& work, int person)
{
    for (int other = 0; other < person; ++other) {
        if (work.number(other) != work.number(person) || mayBeBoth(work, other, person)) continue;
        const bool couple = work.owner(person) == other ||
                            (subjects(work.act).contains(person) && subjects(work.act).contains(other)) ||
                            (work.owner(person) >= 0 && work.owner(person) == work.owner(other) &&
                             work.act.people[person].role != work.act.people[other].role);
        work.object("mesma-pessoa", person,
                    QString("%1 é no acto duas pessoas: %2 e %3.")
                        .arg(work.label(person), roleTitle(work.act, other), roleTitle(work.act, person)),
                    couple);
    }
}

// A second father of the same person, a second husband: nothing would link the card.
void objectToTheSecond(Work& work, int person)
{
    const ActPerson& one = work.act.people[person];
    static const QList<Role> single{Role::Father, Role::Mother, Role::Spouse, Role::EarlierSpouse};
    if (!single.contains(one.role) || work.owner(person) < 0) return;
    for (int other = 0; other < person; ++other) {
        const ActPerson& first = work.act.people[other];
        const bool isEarlier = one.role == Role::EarlierSpouse && one.ordinal == 0;
        if (first.role != one.role || first.of != one.of || first.ordinal != one.ordinal || isEarlier) continue;
        if (work.number(other) == work.number(person)) continue; // told by another rule
        return work.object("repetido", person,
                           QString("O acto já tem %1: %2. Seria mais alguém: %3.")
                               .arg(roleTitle(work.act, other), work.label(other), work.label(person)));
    }
}

} // namespace

void objectToThePeople(Work& work)
{
    for (int person = 0; person < work.count(); ++person) {
        if (work.number(person) == 0) continue;
        objectToTheSame(work, person);
        objectToTheSecond(work, person);
        if (work.isNew(person) || !work.day) continue;
        objectToTheSubject(work, person);
        objectToTheSex(work, person);
        objectToTheDead(work, person);
        objectToTheUnborn(work, person);
        objectToTheYoung(work, person);
        objectToTheAbsent(work, person);
    }
}

} // namespace study
