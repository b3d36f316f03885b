// Two families that are one.
#include "platform/jet/transaction.h"
#include "study/linkage/merge_p.h"
#include "study/linkage/types.h"
#include "study/linkage/verdicts.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace study::linkage {

QSet<qint64> membersOf(const Recording& recording, qint64 family)
{
    QSet<qint64> members;
    for (const Row& row : recording.rows("familias", {{"nfamilia", family}}))
        members << row.values["nind"].toInteger();
    return members;
}

namespace {

bool isChildOf(const Recording& recording, qint64 nind, qint64 family)
{
    const auto row = firstRow(recording, "individuo", {{"nind", nind}});
    return row && row->values["famorig"] == QJsonValue(family);
}

} // namespace

QString getsWhatItLacked(const QString& who, const Joined& row)
{
    if (row.filled.isEmpty()) return {};
    return who.left(1).toUpper() + who.mid(1) + " fica com: " + row.filled.join("; ") + ".";
}

void checkPlan(const MergePlan& plan, const MergeChoices& choices)
{
    if (!plan.isPossible()) throw MergeRefused{plan.refusals.first()};
    if (!choices.expected.isEmpty() && choices.expected != plan.mark) throw MergeRefused{changedSince};
}

QList<QPair<qint64, qint64>> possibleJoins(const MergePlan& plan)
{
    QList<QPair<qint64, qint64>> all;
    for (const SameCouple& couple : plan.couples)
        if (couple.refusals.isEmpty()) all << std::pair(couple.kept, couple.other);
    return all;
}

QJsonValue valueOf(jet::Connection& bdp, const QString& table, const QString& column, const QJsonObject& kept,
                   const QJsonObject& other, const Sides& sides)
{
    const QJsonObject set = joined(bdp, table, kept, other, sides).set;
    return set.contains(column) ? set[column] : kept[column];
}

std::optional<Row> firstRow(const Recording& recording, const QString& table, const QJsonObject& having)
{
    const QList<Row> rows = recording.rows(table, having);
    if (rows.isEmpty()) return {};
    return rows.first();
}

QString notesOf(const QJsonObject& kept, const QJsonObject& other, const Joined& joined, const Origins& origins)
{
    QString notes = kept["obs"].toString();
    const QString others = other["obs"].toString();
    if (notes.trimmed().isEmpty())
        notes = others;
    else if (!others.trimmed().isEmpty() && others.trimmed() != notes.trimmed())
        notes = withNote(notes, origin(origins.other, {others}));
    notes = withNote(notes, origin(origins.kept, joined.keptLost));
    return withNote(notes, origin(origins.other, joined.otherLost));
}

QString whyNoNotes(const QJsonObject& kept, const QJsonObject& other, const QString& notes)
{
    if (kept["obs"].isObject() || other["obs"].isObject()) return "As notas de um dos dois não se conseguem ler.";
    if (notes.size() > longestNotes) return "As notas dos dois juntas ficariam demasiado longas.";
    return {};
}

QStringList joinRefusals(const Recording& recording, qint64 kept, qint64 other)
{
    if (kept == other) return {"É a mesma família."};
    for (const qint64 family : {kept, other})
        if (!firstRow(recording, "familia", {{"nfamilia", family}}))
            return {QString("A família nº %1 não existe.").arg(family)};
    const QSet<qint64> one = membersOf(recording, kept), two = membersOf(recording, other);
    if (one.isEmpty() || two.isEmpty()) return {"Uma das famílias não tem cônjuges: não se sabe se é a mesma."};
    if (!one.contains(two) && !two.contains(one)) return {"As duas famílias não têm o mesmo casal."};
    QStringList refusals;
    for (const qint64 nind : one + two)
        for (const qint64 family : {kept, other})
            if (isChildOf(recording, nind, family))
                refusals << QString("O nº %1 seria filho da família em que é cônjuge.").arg(nind);
    return refusals;
}

QStringList toldApartRefusals(jet::Connection& bdp, qint64 kept, qint64 other)
{
    if (!verdicts(bdp).apart.has({Record::Kind::Family, kept}, {Record::Kind::Family, other})) return {};
    return {"Foi decidido que não são a mesma família: essa decisão tem de ser desfeita primeiro."};
}

QList<Difference> joinInto(Moving& moving, qint64 kept, qint64 other, const Sides& sides, QList<qint64>& following)
{
    Recording& recording = moving.recording;
    moving.sides = sides;
    moving.differences.clear();
    const auto one = firstRow(recording, "familia", {{"nfamilia", kept}});
    const auto two = firstRow(recording, "familia", {{"nfamilia", other}});
    if (!one || !two) return {};
    moving.followDay("c", {one->values["nfamilia"], one->values["datacasam"]},
                     {two->values["nfamilia"], two->values["datacasam"]},
                     valueOf(moving.bdp, "familia", "datacasam", one->values, two->values, sides));
    moving.moveAll({Target::Family, QJsonValue(other), {}}, QJsonValue(kept));
    Joined row = joined(moving.bdp, "familia", one->values, two->values, sides);
    joinFamilyTypes(row, moving.bdp, one->values, two->values, sides, following);
    const auto of = [](qint64 family) { return QString("Da família nº %1, junta").arg(family); };
    QString notes = notesOf(one->values, two->values, row, {.kept = of(kept), .other = of(other)});
    notes = withNote(
        notes, origin(QString("Das famílias nº %1 e nº %2, juntas").arg(kept).arg(other), moving.ofUnion.take(kept)));
    if (const QString why = whyNoNotes(one->values, two->values, notes); !why.isEmpty()) moving.refusals << why;
    moving.refusals += whyNotRead(row);
    if (notes != one->values["obs"].toString()) row.set.insert("obs", notes);
    if (const QString told = getsWhatItLacked(QString("a família nº %1").arg(kept), row); !told.isEmpty())
        moving.completed << told;
    recording.set("familia", one->place, row.set);
    recording.remove("familia", two->place);
    return row.differences + moving.differences;
}

QList<qint64> familiesAround(const Recording& recording, const QList<qint64>& people)
{
    QSet<qint64> found;
    for (const qint64 nind : people) {
        for (const Row& row : recording.rows("familias", {{"nind", nind}}))
            found << row.values["nfamilia"].toInteger();
        if (const auto row = firstRow(recording, "individuo", {{"nind", nind}});
            row && !row->values["famorig"].isNull())
            found << row->values["famorig"].toInteger();
    }
    QList<qint64> families = found.values();
    std::ranges::sort(families);
    return families;
}

namespace {

struct Join
{
    Moving moving;
    MergePlan plan;
};

Join joinOf(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices)
{
    Join join{.moving = Moving(bdp), .plan = {}};
    MergePlan& plan = join.plan;
    Recording& recording = join.moving.recording;
    plan.kept = join.moving.couple(kept);
    plan.other = join.moving.couple(other);
    plan.refusals = joinRefusals(recording, kept, other);
    plan.refusals += toldApartRefusals(bdp, kept, other);
    if (!plan.isPossible()) return join;
    QList<qint64> following{kept, other};
    following.removeIf([&](qint64 family) { return !followsDates(recording, family); });
    plan.differences = joinInto(join.moving, kept, other, choices.sides, following);
    plan.sentences = join.moving.told(QString("a família nº %1").arg(kept)) + join.moving.completed;
    for (const qint64 family : std::as_const(following))
        if (const QString told = settleType(recording, family); !told.isEmpty()) plan.sentences << told;
    plan.refusals += join.moving.refusals;
    plan.doubles = join.moving.doubles;
    plan.sentences += join.moving.twice;
    plan.mark = recording.mark();
    plan.sentences << QString("A família nº %1 deixa de existir.").arg(other) << copyIsMade;
    return join;
}

} // namespace

MergePlan planJoin(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices)
{
    return joinOf(bdp, kept, other, choices).plan;
}

qint64 joinFamilies(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices)
{
    jet::Transaction transaction(bdp);
    Join join = joinOf(bdp, kept, other, choices);
    checkPlan(join.plan, choices);
    const qint64 id = join.moving.recording.keep({.kind = DecisionKind::FamiliesJoined,
                                                  .title = "A " + join.plan.other + " é a " + join.plan.kept,
                                                  .reason = choices.reason,
                                                  .kept = QString::number(kept),
                                                  .other = QString::number(other)});
    transaction.commit();
    return id;
}

} // namespace study::linkage
