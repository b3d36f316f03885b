// What makes an act impossible to store, before anything is planned.
#include "platform/time/clock.h"
#include "study/acts/work.h"

#include "study/acts/register.h"

namespace study {

namespace {

constexpr int firstLikelyYear = 1400;
constexpr int nameColumn = 255;

constexpr auto actAlone = " Guarda-se só o acto, e nada se escreve nas fichas.";
constexpr auto orAlone = " Com todas as pessoas só no acto, guarda-se o acto sem fichas.";

// What would make the rows of the cards impossible is no matter to an act that writes none: it may be overruled then.
void objectToTheWhole(Work& work, const QString& rule, int person, const QString& text)
{
    const bool alone = work.isActAlone();
    work.object(rule, person, text + (alone ? actAlone : orAlone), !alone);
}

void objectToTheDate(Work& work)
{
    const PartialDate& date = work.act.date;
    if (!date.isPossible())
        return objectToTheWhole(work, "data-impossivel", -1, "A data " + shown(date) + " não existe no calendário.");
    if (!work.day)
        return objectToTheWhole(work, "sem-data", -1, "O acto não tem data que se possa guardar: falta o ano.");
    if (*work.day > Clock::moment().date())
        return work.object("data-futura", -1, "A data " + shown(date) + " ainda não chegou.");
    if (work.day->year() < firstLikelyYear)
        work.object("ano-improvavel", -1, QString("O ano %1 é pouco provável num registo.").arg(work.day->year()));
}

void objectToTheNumber(Work& work)
{
    const QString number = work.act.number.trimmed();
    if (!number.isEmpty() && actWith(work.bdp, work.act.kind, work.act.book, number))
        return work.object("acto-repetido", -1, "Este acto já está na BDP: " + reference(work.act) + '.');
    if (const auto like = actLike(work.bdp, work.act))
        if (const auto other = readAct(work.bdp, *like))
            work.object("acto-repetido", -1,
                        QString("Um acto desse dia e com esse nome já está na BDP: %1.").arg(reference(other->act)));
}

QString noCard(Role role)
{
    return role == Role::Child   ? "Quem foi baptizado fica sem ficha."
           : role == Role::Groom ? "O noivo fica sem ficha."
           : role == Role::Bride ? "A noiva fica sem ficha."
                                 : "O defunto fica sem ficha.";
}

void objectToTheSubjects(Work& work)
{
    const QList<Role> needed = work.act.kind == ActKind::Baptism    ? QList{Role::Child}
                               : work.act.kind == ActKind::Marriage ? QList{Role::Groom, Role::Bride}
                                                                    : QList{Role::Deceased};
    for (const Role role : needed) {
        const int person = personWith(work.act, role);
        const char* missing = role == Role::Child   ? "Falta quem foi baptizado."
                              : role == Role::Groom ? "Falta o noivo."
                              : role == Role::Bride ? "Falta a noiva."
                                                    : "Falta o defunto.";
        if (person < 0)
            objectToTheWhole(work, "sem-sujeito", -1, missing);
        else if (work.identity(person).kind == Identity::Kind::Kept)
            objectToTheWhole(work, "sem-sujeito", person, work.isActAlone() ? noCard(role) : QString(missing));
    }
}

void objectToTheIdentity(Work& work, int person)
{
    const Identity identity = work.identity(person);
    const QString name = storedName(work.act.people[person]), role = roleTitle(work.act, person);
    switch (identity.kind) {
    case Identity::Kind::Open:
        return work.object("sem-decisao", person,
                           QString("Falta decidir quem é %1 (%2).").arg(shownName(name).left(80), role), true);
    case Identity::Kind::New:
        if (name.isEmpty())
            work.object("sem-nome", person,
                        QString("Falta o nome (%1): uma ficha nova precisa dele.").arg(role) + orAlone, true);
        if (name.size() > nameColumn)
            work.object("nome-longo", person,
                        QString("O nome (%1) tem %2 letras; na ficha cabem %3.")
                            .arg(role, QString::number(name.size()), QString::number(nameColumn)),
                        true);
        return;
    case Identity::Kind::Known:
        if (identity.nind <= 0 || !work.ledger.person(identity.nind))
            work.object("nao-existe", person,
                        QString("O indivíduo nº %1 (%2) não existe na BDP.").arg(identity.nind).arg(role), true);
        return;
    case Identity::Kind::Kept:
        return;
    }
}

} // namespace

void objectToTheAct(Work& work)
{
    objectToTheDate(work);
    objectToTheNumber(work);
    objectToTheSubjects(work);
    for (int person = 0; person < work.count(); ++person)
        objectToTheIdentity(work, person);
}

} // namespace study
