#include "study/acts/plan.h"

#include "platform/jet/recordset.h"
#include "study/acts/work.h"

#include <algorithm>

namespace study {

QVariant valueIn(const RowChange::Columns& columns, const QString& column)
{
    const auto isIt = [&](const auto& one) { return one.first.compare(column, Qt::CaseInsensitive) == 0; };
    const auto found = std::ranges::find_if(columns, isIt);
    return found == columns.end() ? QVariant() : found->second;
}

QVariant valueIn(const RowChange& row, const QString& column)
{
    const QVariant value = valueIn(row.key, column);
    return value.isNull() ? valueIn(row.values, column) : value;
}

static Sex knownSex(jet::Connection& bdp, qint64 nind)
{
    const jet::Recordset row(bdp, jet::NativeSql("select sexo from individuo where nind = ?", {nind}));
    const QString letter = row.eof() ? QString() : row[0].toString();
    return letter == "m" ? Sex::Male : letter == "f" ? Sex::Female : Sex::Unknown;
}

// An act is about one child, one couple or one deceased: what it tells of a second one would get no row. Twins, or a
// mother and her infant, are two acts; somebody who is kept in the act alone is no matter.
static void objectToFurtherSubjects(Work& work)
{
    const QList<Role> roles = work.act.kind == ActKind::Baptism    ? QList{Role::Child}
                              : work.act.kind == ActKind::Marriage ? QList{Role::Groom, Role::Bride}
                                                                   : QList{Role::Deceased};
    for (const int person : subjects(work.act)) {
        const auto isIt = [&](Role role) { return personWith(work.act, role) == person; };
        if (work.identity(person).kind == Identity::Kind::Kept || std::ranges::any_of(roles, isIt)) continue;
        work.object("outro-sujeito", person,
                    QString("Este acto já tem de quem trata: %1 (%2) precisa de um acto seu.")
                        .arg(shownName(nameOf(work.act.people[person])), roleTitle(work.act, person)),
                    true);
    }
}

Conclusions withKnownSexes(jet::Connection& bdp, const Act& told, const Conclusions& conclusions)
{
    Conclusions known = conclusions;
    for (int person = 0; person < told.people.size() && person < known.people.size(); ++person) {
        Identity& identity = known.people[person];
        if (identity.kind == Identity::Kind::Known && sexOf(told, person) == Sex::Unknown)
            identity.sex = knownSex(bdp, identity.nind);
    }
    return known;
}

Plan planned(jet::Connection& bdp, const Act& told, const Conclusions& conclusions)
{
    const Act act = withConcludedSexes(told, withKnownSexes(bdp, told, conclusions));
    Work work(bdp, act, conclusions);
    objectToTheAct(work);
    objectToFurtherSubjects(work);
    planPeople(work);
    switch (act.kind) {
    case ActKind::Baptism:
        planBaptism(work);
        break;
    case ActKind::Marriage:
        planMarriage(work);
        break;
    case ActKind::Burial:
        planBurial(work);
        break;
    }
    planDatedRows(work);
    settleFamilyTypes(work);
    if (work.plan.families.removeAll(work.plan.family) > 0) work.plan.families.prepend(work.plan.family);
    objectToThePeople(work);
    objectToTheFamilies(work);
    objectToTheNamesakes(work);
    tellWhatIsLeft(work);
    work.plan.rows = work.ledger.changes();
    tellOfTheColumns(work);
    if (work.isActAlone()) work.say("Guarda-se só o acto: nada se escreve nas fichas.");
    return work.plan;
}

} // namespace study
