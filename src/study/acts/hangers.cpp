#include "study/acts/hangers.h"

#include "platform/jet/recordset.h"
#include "store/lixo_tabelas.h"
#include "study/acts/register.h"

#include <algorithm>

namespace study {

namespace {

using lixo::Tipo;

QSet<qint64> made(const QList<RowChange>& written, const char* table)
{
    QSet<qint64> numbers;
    for (const RowChange& change : written)
        if (change.before.isEmpty() && change.table == QLatin1String(table))
            numbers << qint64(change.key.first().second.toDouble());
    return numbers;
}

bool isOwn(const OwnRows& own, const QString& table, qint64 rowid, const QString& column)
{
    const RowChange* change = own.value({table, rowid});
    if (!change) return false;
    if (change->before.isEmpty()) return true;
    return std::ranges::any_of(change->values,
                               [&](const auto& set) { return set.first.compare(column, Qt::CaseInsensitive) == 0; });
}

// Columns that name a priest, an executor or an heir, which a deletion leaves as they are: no index leads to them, so
// they are looked through once for all who were made. New numbers follow each other.
constexpr const char* mentions[][2] = {
    {"individuo", "select rowid, testamenteiro, primpadrebapt, segpadrebapt, primpadreobito from individuo where "
                  "testamenteiro between ?1 and ?2 or primpadrebapt between ?1 and ?2 or segpadrebapt between ?1 and "
                  "?2 or primpadreobito between ?1 and ?2"},
    {"familia", "select rowid, primpadrecasam, segpadrecasam from familia where primpadrecasam between ?1 and ?2 or "
                "segpadrecasam between ?1 and ?2"},
    {"legadosprofanos", "select rowid, nindherd from legadosprofanos where nindherd between ?1 and ?2"},
};

bool isMentioned(jet::Connection& bdp, const QSet<qint64>& people, const OwnRows& own)
{
    if (people.isEmpty()) return false;
    const auto [first, last] = std::ranges::minmax(people);
    for (const auto& [table, select] : mentions)
        for (jet::Recordset row(bdp, jet::NativeSql(select, {first, last})); !row.eof(); row.moveNext())
            for (int column = 1; column < row.fieldCount(); ++column) {
                const auto nind = qint64(row[column].toDouble());
                if (people.contains(nind) && !isOwn(own, table, qint64(row[0].toDouble()), row.fieldName(column)))
                    return true;
            }
    return false;
}

bool isReferred(jet::Connection& bdp, qint64 number, Tipo kind, const OwnRows& own)
{
    for (const lixo::Referencia& link : lixo::referencias()) {
        if (link.tipo != kind) continue;
        const QString ofAnAct = link.tipoacto.isEmpty() ? "" : " and tipoacto = ?";
        QVariantList values{number};
        if (!link.tipoacto.isEmpty()) values << link.tipoacto;
        for (jet::Recordset row(
                 bdp, jet::NativeSql("select rowid from " + link.tabela + " where " + link.coluna + " = ?" + ofAnAct,
                                     values));
             !row.eof(); row.moveNext())
            if (!isOwn(own, link.tabela, qint64(row[0].toDouble()), link.coluna)) return true;
    }
    return false;
}

// Residences, professions and whatever else hangs on the record alone.
bool hasRows(jet::Connection& bdp, qint64 number, Tipo kind, const OwnRows& own)
{
    static const QStringList linked{"individuo", "familia", "familias", "assistente"};
    for (const lixo::Dependente& dependent : lixo::dependentesDe(kind)) {
        if (linked.contains(dependent.tabela)) continue;
        for (jet::Recordset row(
                 bdp,
                 jet::NativeSql("select rowid from " + dependent.tabela + " where " + dependent.condicao, {number}));
             !row.eof(); row.moveNext())
            if (!isOwn(own, dependent.tabela, qint64(row[0].toDouble()), {})) return true;
    }
    return false;
}

// So that the same one is told each time.
QList<qint64> inOrder(const QSet<qint64>& numbers)
{
    QList<qint64> all = numbers.values();
    std::ranges::sort(all);
    return all;
}

bool isInAnotherAct(jet::Connection& bdp, qint64 act, qint64 nind)
{
    return std::ranges::any_of(appearances(bdp, nind), [=](const Appearance& one) { return one.act != act; });
}

bool servesAnotherAct(jet::Connection& bdp, qint64 act, qint64 family)
{
    const jet::Recordset row(
        bdp, jet::NativeSql("select acto from estudo_familia where nfamilia = ? and acto <> ? limit 1", {family, act}));
    return !row.eof();
}

bool any(jet::Connection& bdp, const char* select, const QVariant& value)
{
    return !jet::Recordset(bdp, jet::NativeSql(select, {value})).eof();
}

} // namespace

QString laterUse(jet::Connection& bdp, qint64 act, const QList<RowChange>& written, const OwnRows& own)
{
    const QSet<qint64> people = made(written, "individuo");
    for (const qint64 nind : inOrder(people)) {
        const QString who = QString("O indivíduo nº %1, que veio com o acto, ").arg(nind);
        if (isInAnotherAct(bdp, act, nind)) return who + "está também noutro acto.";
        if (isReferred(bdp, nind, Tipo::Individuo, own) || hasRows(bdp, nind, Tipo::Individuo, own))
            return who + "já tem outros dados na BDP.";
    }
    if (isMentioned(bdp, people, own)) return "Alguém que veio com o acto já é padre, testamenteiro ou herdeiro.";
    for (const qint64 family : inOrder(made(written, "familia"))) {
        const QString which = QString("A família nº %1, que veio com o acto, ").arg(family);
        if (servesAnotherAct(bdp, act, family)) return which + "está também noutro acto.";
        if (isReferred(bdp, family, Tipo::Familia, own) || hasRows(bdp, family, Tipo::Familia, own))
            return which + "já tem outros dados na BDP.";
    }
    return {};
}

bool isUsed(jet::Connection& bdp, const RowChange& row)
{
    const QVariant code = row.key.first().second;
    if (row.table == "profissao") return any(bdp, "select 1 from profissoes where codprof = ? limit 1", code);
    static const char* const uses[] = {
        "select 1 from individuo where localnasc = ? limit 1",
        "select 1 from individuo where localobito = ? limit 1",
        "select 1 from familia where localcasam = ? limit 1",
        "select 1 from residencia where localresid = ? limit 1",
        "select 1 from passaporte where localdestino = ? limit 1",
        "select 1 from sitio where codlugar = ? limit 1",
    };
    return row.table == "lugar" &&
           std::ranges::any_of(uses, [&](const char* select) { return any(bdp, select, code); });
}

} // namespace study
