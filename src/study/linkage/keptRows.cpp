#include "study/linkage/keptRows.h"

#include "common/niveis.h"
#include "platform/jet/recordset.h"
#include "store/lixo.h"
#include "study/acts/register_tables.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace study::linkage {

namespace {

QString number(const QJsonValue& value)
{
    return QString::number(value.toDouble(), 'f', 0);
}

QString ownerOf(const QJsonObject& row)
{
    return row.contains("nind") ? " do indivíduo nº " + number(row["nind"]) : QString();
}

// Nothing but these tables is written to, whatever stands in a BDP.
const QStringList& writable()
{
    static const QStringList all = [] {
        QStringList names{"individuo", "familia", "profissao", "infocomplementar"};
        for (const Reference& reference : references())
            names << reference.table;
        for (const DadosDoNivel& level : niveis)
            names << level.tabela;
        return names;
    }();
    return all;
}

} // namespace

Title titleOf(const QString& table, const QJsonObject& row)
{
    if (table == "individuo") return {"A ficha do indivíduo nº " + number(row["nind"])};
    if (table == "familia" || table == "familias") return {"A ficha da família nº " + number(row["nfamilia"])};
    if (table == "residencia")
        return {(row["tiporesid"].toString().toLower() == "f" ? "Uma residência da família nº "
                                                              : "Uma residência do indivíduo nº ") +
                number(row["numero"])};
    if (table == "assistente") return {"Um assistente do acto nº " + number(row["entidade"]), true};
    if (table == "profissao") return {"A profissão " + number(row["codprof"])};
    if (table == "infocomplementar") return {"O código " + row["codigo"].toString(), true};
    if (table.startsWith("estudo_")) return {"O que os actos dizem" + ownerOf(row), true};
    return {"Uma linha da tabela «" + table + "»" + ownerOf(row)};
}

QString titleOf(const Named& named)
{
    const QString value = named.value.isDouble() ? number(named.value) : named.value.toString();
    switch (named.target) {
    case Target::Person:
        return "O indivíduo nº " + value;
    case Target::Family:
        return "A família nº " + value;
    case Target::Place:
        return "O local " + value;
    case Target::Profession:
        return "A profissão " + value;
    case Target::Code:
        break;
    }
    return "O código " + value;
}

QJsonObject Kept::restored(const QJsonObject& now) const
{
    QJsonObject row = now;
    for (auto column = before.begin(); column != before.end(); ++column)
        row.insert(column.key(), column.value());
    return row;
}

std::optional<QList<Kept>> readChanges(const QString& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isArray()) return {};
    QList<Kept> all;
    for (const QJsonValue one : document.array()) {
        Kept step{.table = one["tabela"].toString(),
                  .place = one["lugar"].toInteger(),
                  .key = {},
                  .before = one["antes"].toObject(),
                  .after = one["depois"].toObject(),
                  .left = {},
                  .loose = {}};
        if (one["chave"].isObject()) step.key = one["chave"].toObject();
        if (one["ficou"].isObject()) step.left = one["ficou"].toObject();
        if (one["soltas"].isArray()) step.loose = one["soltas"].toVariant().toStringList();
        if (!writable().contains(step.table) || step.before.isEmpty()) return {};
        all << step;
    }
    return all;
}

// Its columns may be read back out of a file that anybody has written: they must be those of the table.
bool areColumns(jet::Connection& bdp, const Kept& step)
{
    QStringList known;
    for (jet::Recordset row(bdp, jet::NativeSql("select lower(name) from pragma_table_info(?)", {step.table}));
         !row.eof(); row.moveNext())
        known << row[0].toString();
    const auto fits = [&](const QJsonObject& columns) {
        return std::ranges::all_of(columns.keys(), [&](const QString& column) { return known.contains(column); });
    };
    return fits(step.before) && fits(step.after) && fits(step.key.value_or(QJsonObject())) &&
           fits(step.left.value_or(QJsonObject()));
}

bool Deleted::has(const Named& named) const
{
    const qint64 which = named.value.toInteger();
    return (named.target == Target::Person && people.contains(which)) ||
           (named.target == Target::Family && families.contains(which));
}

Deleted deletedSince(jet::Connection& bdp, const QDateTime& moment)
{
    Deleted found;
    if (!lixo::temLixo(bdp)) return found;
    for (jet::Recordset row(bdp, jet::NativeSql("select tipo, numero, familias from estudo_lixo where quando >= ?",
                                                {moment.toString(tables::timeFormat)}));
         !row.eof(); row.moveNext())
    {
        const auto which = qint64(row["numero"].toDouble());
        (row["tipo"].toString() == "f" ? found.families : found.people) << which;
        for (const QString& family : row["familias"].toString().split(',', Qt::SkipEmptyParts))
            found.families << family.toLongLong();
    }
    return found;
}

} // namespace study::linkage
