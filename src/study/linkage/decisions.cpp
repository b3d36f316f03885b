#include "study/linkage/decisions.h"

#include "platform/jet/jsonrow.h"
#include "platform/jet/recordset.h"
#include "platform/time/clock.h"
#include "study/linkage/decisions_p.h"
#include "study/linkage/ownTables.h"

#include <algorithm>
#include <array>

namespace study::linkage {

namespace {

struct Words
{
    DecisionKind kind;
    const char* word;
    const char* shown;
};
constexpr std::array wordsOfDecisions{
    Words{DecisionKind::PeopleMerged, "pessoas", "Pessoas juntas"},
    Words{DecisionKind::FamiliesJoined, "familias", "Famílias juntas"},
    Words{DecisionKind::PlacesMerged, "lugares", "Lugares juntos"},
    Words{DecisionKind::ProfessionsMerged, "profissoes", "Profissões juntas"},
    Words{DecisionKind::CodesMerged, "codigos", "Códigos juntos"},
    Words{DecisionKind::NotTheSame, "diferentes", "Não são os mesmos"},
    Words{DecisionKind::NotTheSameFamily, "familias diferentes", "Não são a mesma família"},
    Words{DecisionKind::NotTheParents, "outros pais", "Não são os pais"},
    Words{DecisionKind::OriginSet, "pais", "Família de origem"},
    Words{DecisionKind::LinkRight, "certa", "Ligação certa"},
    Words{DecisionKind::TypesRecalculated, "tipos", "Tipos recalculados"},
};

const Words& wordsOf(DecisionKind kind)
{
    return *std::ranges::find(wordsOfDecisions, kind, &Words::kind);
}

DecisionKind kindOf(const QString& word)
{
    const auto* const found =
        std::ranges::find_if(wordsOfDecisions, [&](const Words& one) { return word == QLatin1String(one.word); });
    return found == wordsOfDecisions.end() ? DecisionKind::NotTheSame : found->kind;
}

QDateTime timeIn(const QVariant& column)
{
    return QDateTime::fromString(column.toString(), tables::timeFormat);
}

Decision decisionIn(const jet::Recordset& row)
{
    return {.id = qint64(row["id"].toDouble()),
            .when = timeIn(row["quando"]),
            .what = {.kind = kindOf(row["tipo"].toString()),
                     .title = row["titulo"].toString(),
                     .reason = row["razao"].toString(),
                     .kept = row["fica"].toString(),
                     .other = row["junto"].toString()},
            .rows = row["alteradas"].toInt(),
            .undone = timeIn(row["desfeita"])};
}

QVariant textOrNull(const QString& text)
{
    return text.isEmpty() ? QVariant() : QVariant(text);
}

} // namespace

const tables::Table& decisionTable()
{
    static const tables::Table table{
        "estudo_decisao",
        {"id", "quando", "tipo", "titulo", "razao", "fica", "junto", "alteradas", "linhas", "desfeita"},
        {"create table estudo_decisao (id integer primary key, quando varchar not null, tipo varchar not null, titulo "
         "varchar not null, razao varchar, fica varchar, junto varchar, alteradas integer not null, linhas text not "
         "null, desfeita varchar)",
         "create index estudo_decisao_tipo on estudo_decisao (tipo)"}};
    return table;
}

QString word(DecisionKind kind)
{
    return wordsOf(kind).word;
}

QString inWords(DecisionKind kind)
{
    return QString::fromUtf8(wordsOf(kind).shown);
}

bool hasDecisions(jet::Connection& bdp)
{
    return tables::exist(bdp, {decisionTable()});
}

qint64 kept(jet::Connection& bdp, const Ruling& what, int rows, const QString& changes)
{
    tables::make(bdp, {decisionTable()});
    bdp.execute(
        jet::NativeSql("insert into estudo_decisao (quando, tipo, titulo, razao, fica, junto, alteradas, "
                       "linhas) values (?, ?, ?, ?, ?, ?, ?, ?)",
                       {Clock::moment().toString(tables::timeFormat), word(what.kind), what.title,
                        textOrNull(what.reason), textOrNull(what.kept), textOrNull(what.other), rows, changes}));
    const jet::Recordset last(bdp, jet::NativeSql("select max(id) from estudo_decisao"));
    return qint64(last[0].toDouble());
}

QList<Decision> decisions(jet::Connection& bdp)
{
    QList<Decision> all;
    if (!hasDecisions(bdp)) return all;
    for (jet::Recordset row(bdp, jet::NativeSql("select id, quando, tipo, titulo, razao, fica, junto, alteradas, "
                                                "desfeita from estudo_decisao order by id desc"));
         !row.eof(); row.moveNext())
        all << decisionIn(row);
    return all;
}

std::optional<Decision> decision(jet::Connection& bdp, qint64 id)
{
    if (!hasDecisions(bdp)) return {};
    const jet::Recordset row(bdp, jet::NativeSql("select id, quando, tipo, titulo, razao, fica, junto, alteradas, "
                                                 "desfeita from estudo_decisao where id = ?",
                                                 {id}));
    if (row.eof()) return {};
    return decisionIn(row);
}

} // namespace study::linkage
