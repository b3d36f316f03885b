// Two places, two professions, two codes that are one.
#include "common/marca.h"
#include "common/niveis.h"
#include "common/numeros.h"
#include "platform/jet/transaction.h"
#include "study/linkage/merge_p.h"

#include <utility>
#include <vector>

namespace study::linkage {

namespace {

// A table whose rows have a code and a name.
struct Coded
{
    QString table, code;
    std::vector<ColumnGroup> columns; // the name first
    Named kept, other;
    QJsonObject more = {}; // columns that all have the same value
};

struct Merged
{
    Moving moving;
    MergePlan plan;
};

QString title(const Coded& coded, const Named& named, const Recording& recording)
{
    QJsonObject having = coded.more;
    having.insert(coded.code, named.value);
    const QString code = textoDoNumero(named.value.toVariant());
    const auto row = firstRow(recording, coded.table, having);
    return row ? semMarca(row->values[QLatin1String(coded.columns.front().column)].toString()) + " (" + code + ")"
               : code;
}

QStringList missing(const Coded& coded, const Merged& merged)
{
    if (coded.kept.value == coded.other.value) return {"É o mesmo código."};
    for (const Named* named : {&coded.kept, &coded.other}) {
        QJsonObject having = coded.more;
        having.insert(coded.code, named->value);
        const qsizetype rows = merged.moving.recording.rows(coded.table, having).size();
        if (rows != 1) return {"O código " + textoDoNumero(named->value.toVariant()) + " não existe."};
    }
    return {};
}

// The name of a place or code of the program's is its own: the other one goes to the notes, unasked.
bool isNameAsked(const Coded& coded, const QJsonObject& kept, const QJsonObject& other)
{
    const auto isOwn = [&](const QJsonObject& row) {
        return temMarca(row[QLatin1String(coded.columns.front().column)].toString());
    };
    return isOwn(kept) || !isOwn(other);
}

Joined joinedColumns(const Coded& coded, Merged& merged, const QJsonObject& kept, const QJsonObject& other,
                     const MergeChoices& choices)
{
    const ColumnGroup& name = coded.columns.front();
    const bool asksName = isNameAsked(coded, kept, other);
    Joined row =
        joined(merged.moving.bdp, ColumnGroups(coded.columns).subspan(asksName ? 0 : 1), kept, other, choices.sides);
    const QString one = shown(merged.moving.bdp, name, kept), two = shown(merged.moving.bdp, name, other);
    if (!asksName && one != two) row.otherLost.prepend("nome " + two);
    return row;
}

// The row of the one that goes, in that of the other.
void joinRows(const Coded& coded, Merged& merged, const MergeChoices& choices)
{
    Recording& recording = merged.moving.recording;
    QJsonObject one = coded.more, two = coded.more;
    one.insert(coded.code, coded.kept.value);
    two.insert(coded.code, coded.other.value);
    const auto kept = firstRow(recording, coded.table, one), other = firstRow(recording, coded.table, two);
    if (!kept || !other) return;
    Joined row = joinedColumns(coded, merged, kept->values, other->values, choices);
    merged.plan.differences = row.differences;
    merged.plan.refusals += whyNotRead(row);
    if (kept->values.contains("obs")) {
        const auto of = [](const Named& named) {
            return "Do código " + textoDoNumero(named.value.toVariant()) + ", junto";
        };
        const QString notes =
            notesOf(kept->values, other->values, row, {.kept = of(coded.kept), .other = of(coded.other)});
        if (const QString why = whyNoNotes(kept->values, other->values, notes); !why.isEmpty())
            merged.plan.refusals << why;
        if (notes != kept->values["obs"].toString()) row.set.insert("obs", notes);
    } else {
        for (const QString& lost : row.keptLost + row.otherLost)
            merged.plan.sentences << "Perde-se, porque esta tabela não tem notas: " + lost + ".";
    }
    if (const QString told = getsWhatItLacked(merged.plan.kept, row); !told.isEmpty()) merged.plan.sentences << told;
    if (other->values["prioridade"].toDouble() > kept->values["prioridade"].toDouble())
        row.set.insert("prioridade", other->values["prioridade"]);
    recording.set(coded.table, kept->place, row.set);
    recording.remove(coded.table, other->place);
}

Merged mergedOf(jet::Connection& bdp, const Coded& coded, const MergeChoices& choices)
{
    Merged merged{.moving = Moving(bdp), .plan = {}};
    MergePlan& plan = merged.plan;
    plan.kept = title(coded, coded.kept, merged.moving.recording);
    plan.other = title(coded, coded.other, merged.moving.recording);
    plan.refusals = missing(coded, merged);
    if (!plan.isPossible()) return merged;
    merged.moving.moveAll(coded.other, coded.kept.value);
    plan.sentences = merged.moving.told(plan.kept);
    plan.doubles = merged.moving.doubles;
    joinRows(coded, merged, choices);
    plan.refusals += merged.moving.refusals;
    plan.sentences << plan.other + " deixa de existir na tabela." << copyIsMade;
    plan.mark = merged.moving.recording.mark();
    return merged;
}

qint64 keep(Merged& merged, DecisionKind kind, const Coded& coded, const QString& mark, const MergeChoices& choices)
{
    checkPlan(merged.plan, choices);
    return merged.moving.recording.keep({.kind = kind,
                                         .title = merged.plan.other + " é " + merged.plan.kept,
                                         .reason = choices.reason,
                                         .kept = mark + textoDoNumero(coded.kept.value.toVariant()),
                                         .other = mark + textoDoNumero(coded.other.value.toVariant())});
}

std::optional<Coded> placesOf(const QString& letter, const QString& kept, const QString& other)
{
    const DadosDoNivel* level = nivelDaLetra(letter);
    if (!level) return {};
    std::vector<ColumnGroup> columns{{level->nome, "nome", Shown::Name}};
    for (const DadosDoNivel& above : niveis)
        if (level->superior && QLatin1String(above.codigo) == QLatin1String(level->superior))
            columns.push_back({level->superior, "fica em", Shown::Place, "", above.tipo});
    if (level->nivel == Nivel::Zona) columns.push_back({"tipo", "tipo de zona", Shown::Code, "", "TipZo"});
    return Coded{.table = level->tabela,
                 .code = level->codigo,
                 .columns = std::move(columns),
                 .kept = {Target::Place, kept, letter},
                 .other = {Target::Place, other, letter}};
}

// The columns by which a place lies in another one, and the parish that an act has made a new place in.
void moveBelow(Merged& merged, const Coded& coded)
{
    Recording& recording = merged.moving.recording;
    const auto follow = [&](const QString& table, const QString& column) {
        int rows = 0;
        for (const Row& row : recording.rows(table, {{column, coded.other.value}})) {
            recording.set(table, row.place, {{column, coded.kept.value}});
            ++rows;
        }
        return rows;
    };
    int below = 0;
    const QString gone = coded.other.value.toString();
    bool areNamedByIt = false;
    for (const DadosDoNivel& level : niveis) {
        if (!level.superior || coded.code != QLatin1String(level.superior)) continue;
        for (const Row& row : recording.rows(level.tabela, {{coded.code, coded.other.value}}))
            areNamedByIt |= level.inicio > 0 && row.values[QLatin1String(level.codigo)].toString().startsWith(gone);
        below += follow(level.tabela, coded.code);
    }
    if (coded.table == "paroquia") follow("estudo_sentido", "paroquia");
    merged.plan.mark = recording.mark();
    if (areNamedByIt)
        merged.plan.sentences << "Os códigos dos lugares que ficam dentro continuam a começar por " + gone +
                                     ": quem for buscar os lugares pelo começo do código não os vê em " +
                                     merged.plan.kept + ".";
    if (below > 0)
        merged.plan.sentences.prepend(below == 1 ? "1 lugar que fica dentro passa para " + merged.plan.kept + "."
                                                 : QString::number(below) + " lugares que ficam dentro passam para " +
                                                       merged.plan.kept + ".");
}

Merged mergedPlaces(jet::Connection& bdp, const std::optional<Coded>& coded, const MergeChoices& choices)
{
    if (!coded) return {.moving = Moving(bdp), .plan = {.refusals = {"Não há lugares desse nível."}}};
    Merged merged = mergedOf(bdp, *coded, choices);
    if (!merged.plan.isPossible()) return merged;
    const bool isParish = coded->table == "paroquia", isCountry = coded->table == "pais";
    for (const Row& own : merged.moving.recording.rows("infopar", {}))
        if ((isParish && own.values["cod"] == coded->other.value) ||
            (isCountry && own.values["pais"] == coded->other.value))
            merged.plan.refusals << merged.plan.other + " é a freguesia, ou o país, desta BDP: tem de ficar.";
    moveBelow(merged, *coded);
    return merged;
}

Coded professionsOf(qint64 kept, qint64 other)
{
    return {.table = "profissao",
            .code = "codprof",
            .columns = {{"profissao", "nome", Shown::Name}},
            .kept = {Target::Profession, QJsonValue(kept), {}},
            .other = {Target::Profession, QJsonValue(other), {}}};
}

Coded codesOf(const QString& category, const QString& kept, const QString& other)
{
    return {.table = "infocomplementar",
            .code = "codigo",
            .columns = {{"descricao", "nome", Shown::Name}},
            .kept = {Target::Code, kept, category},
            .other = {Target::Code, other, category},
            .more = {{"categoria", category}}};
}

Merged mergedCodes(jet::Connection& bdp, const Coded& coded, const MergeChoices& choices)
{
    Merged merged = mergedOf(bdp, coded, choices);
    QJsonObject having = coded.more;
    having.insert(coded.code, coded.other.value);
    const Recording stored(bdp);
    const auto other = firstRow(stored, coded.table, having);
    if (other && !temMarca(other->values[QLatin1String(coded.columns.front().column)].toString()))
        merged.plan.refusals << merged.plan.other +
                                    " é um código do programa: só saem os que o utilizador acrescentou.";
    return merged;
}

} // namespace

MergePlan planPlaces(jet::Connection& bdp, const QString& level, const QString& kept, const QString& other,
                     const MergeChoices& choices)
{
    return mergedPlaces(bdp, placesOf(level, kept, other), choices).plan;
}

qint64 mergePlaces(jet::Connection& bdp, const QString& level, const QString& kept, const QString& other,
                   const MergeChoices& choices)
{
    jet::Transaction transaction(bdp);
    const auto coded = placesOf(level, kept, other);
    Merged merged = mergedPlaces(bdp, coded, choices);
    if (!coded) throw MergeRefused{merged.plan.refusals.first()};
    const qint64 id = keep(merged, DecisionKind::PlacesMerged, *coded, level, choices);
    transaction.commit();
    return id;
}

MergePlan planProfessions(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices)
{
    return mergedOf(bdp, professionsOf(kept, other), choices).plan;
}

qint64 mergeProfessions(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices)
{
    jet::Transaction transaction(bdp);
    const Coded coded = professionsOf(kept, other);
    Merged merged = mergedOf(bdp, coded, choices);
    const qint64 id = keep(merged, DecisionKind::ProfessionsMerged, coded, {}, choices);
    transaction.commit();
    return id;
}

MergePlan planCodes(jet::Connection& bdp, const QString& category, const QString& kept, const QString& other,
                    const MergeChoices& choices)
{
    return mergedCodes(bdp, codesOf(category, kept, other), choices).plan;
}

qint64 mergeCodes(jet::Connection& bdp, const QString& category, const QString& kept, const QString& other,
                  const MergeChoices& choices)
{
    jet::Transaction transaction(bdp);
    const Coded coded = codesOf(category, kept, other);
    Merged merged = mergedCodes(bdp, coded, choices);
    const qint64 id = keep(merged, DecisionKind::CodesMerged, coded, category, choices);
    transaction.commit();
    return id;
}

} // namespace study::linkage
