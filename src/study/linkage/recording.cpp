// Changes of rows that are noted, and written together with the decision that has made them.
#include "platform/jet/jsonrow.h"
#include "platform/jet/recordset.h"
#include "study/linkage/decisions_p.h"
#include "study/linkage/references.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <limits>
#include <vector>

namespace study::linkage {

namespace {

constexpr auto placeColumn = "_lugar_na_tabela";

Row rowOf(QJsonObject values)
{
    const qint64 place = values.take(QLatin1String(placeColumn)).toInteger();
    return {.place = place, .values = std::move(values)};
}

// As the tables compare: a text beside a column of numbers counts as the number it reads, and a number beside a column
// of texts as its text.
bool isEqual(const QJsonValue& stored, const QJsonValue& wanted)
{
    if (stored.isDouble() && wanted.isString()) {
        bool isNumber = false;
        const double number = wanted.toString().toDouble(&isNumber);
        return isNumber && number == stored.toDouble();
    }
    if (stored.isString() && wanted.isDouble()) return stored.toString() == wanted.toVariant().toString();
    return stored == wanted;
}

bool has(const QJsonObject& row, const QJsonObject& values)
{
    return std::ranges::all_of(values.keys(),
                               [&](const QString& column) { return isEqual(row[column], values[column]); });
}

// Those columns whose values are others, of the first row.
QJsonObject differing(const QJsonObject& one, const QJsonObject& other)
{
    QJsonObject found;
    for (auto column = one.begin(); column != one.end(); ++column)
        if (column.value() != other[column.key()]) found.insert(column.key(), column.value());
    return found;
}

} // namespace

QStringList keyColumns(jet::Connection& bdp, const QString& table, const QJsonObject& row)
{
    QStringList columns;
    for (jet::Recordset column(
             bdp, jet::NativeSql("select lower(name) from pragma_table_info(?) where pk > 0 order by pk", {table}));
         !column.eof(); column.moveNext())
        columns << column[0].toString();
    return columns.isEmpty() ? row.keys() : columns;
}

QJsonObject only(const QJsonObject& row, const QStringList& columns)
{
    QJsonObject found;
    for (const QString& column : columns)
        found.insert(column, row[column]);
    return found;
}

// What has no word of its own in JSON is compared afterwards.
QList<Row> storedRows(const jet::Connection& bdp, const QString& table, const QJsonObject& having)
{
    QStringList conditions{"1 = 1"};
    QVariantList values;
    for (auto column = having.begin(); column != having.end(); ++column) {
        if (column.value().isObject()) continue;
        if (column.value().isNull()) {
            conditions << column.key() + " is null";
            continue;
        }
        conditions << column.key() + " = ?";
        values << column.value().toVariant();
    }
    const QList<QJsonObject> stored =
        jet::jsonRows(bdp, jet::NativeSql(QString("select rowid as %1, * from %2 where %3 order by rowid")
                                              .arg(placeColumn, table, conditions.join(" and ")),
                                          values));
    QList<Row> rows;
    rows.reserve(stored.size());
    for (const QJsonObject& one : stored)
        rows << rowOf(one);
    return rows;
}

bool Recording::isThere(const QString& table) const
{
    if (tables_.isEmpty())
        for (const QString& one : bdp_.tables())
            tables_ << one.toLower();
    return tables_.contains(table);
}

QList<Row> Recording::rows(const QString& table, const QJsonObject& having) const
{
    if (!isThere(table)) return {};
    QList<Row> found = storedRows(bdp_, table, having);
    found.removeIf([&](const Row& row) { return changes_.contains({table, row.place}); });
    for (auto change = changes_.lower_bound({table, std::numeric_limits<qint64>::min()});
         change != changes_.end() && change->first.first == table; ++change)
        if (change->second.after && has(*change->second.after, having))
            found << Row{.place = change->first.second, .values = *change->second.after};
    std::ranges::sort(found, {}, &Row::place);
    return found;
}

std::optional<QJsonObject> Recording::row(const QString& table, qint64 place) const
{
    if (const auto change = changes_.find({table, place}); change != changes_.end()) return change->second.after;
    const QList<QJsonObject> stored = jet::jsonRows(
        bdp_,
        jet::NativeSql(QString("select rowid as %1, * from %2 where rowid = ?").arg(placeColumn, table), {place}));
    if (stored.isEmpty()) return {};
    return rowOf(stored.first()).values;
}

Recording::Change& Recording::changeOf(const QString& table, qint64 place)
{
    const auto known = changes_.find({table, place});
    if (known != changes_.end()) return known->second;
    const std::optional<QJsonObject> stored = row(table, place);
    if (!stored) throw jet::Error{jet::number::noCurrentRow, "Uma linha da tabela \"" + table + "\" já não existe."};
    return changes_.try_emplace({table, place}, Change{.before = *stored, .after = *stored}).first->second;
}

void Recording::set(const QString& table, qint64 place, const QJsonObject& columns)
{
    Change& change = changeOf(table, place);
    if (!change.after) return;
    for (auto column = columns.begin(); column != columns.end(); ++column)
        change.after->insert(column.key(), column.value());
    if (*change.after == change.before) changes_.erase({table, place});
}

void Recording::remove(const QString& table, qint64 place)
{
    changeOf(table, place).after.reset();
}

int Recording::count() const
{
    return int(changes_.size());
}

int Recording::count(const QString& table) const
{
    return int(std::ranges::count_if(changes_, [&](const auto& change) { return change.first.first == table; }));
}

QByteArray Recording::mark() const
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const auto& [where, change] : changes_) {
        hash.addData((where.first + QString::number(where.second)).toUtf8());
        for (const QJsonObject& state : {change.before, change.after.value_or(QJsonObject())})
            hash.addData(QJsonDocument(state).toJson(QJsonDocument::Compact));
    }
    return hash.result();
}

namespace {

// Whether the way back needs the row just as it was left: where it is a row of the record itself, or found by what was
// set. Of people and families that only lead to it, what else is altered doesn't stand in the way.
bool isWholeKept(const QString& table, const QJsonObject& row, const QJsonObject& set)
{
    if (table != "individuo" && table != "familia") return true;
    return linksIn(table, row, set.keys()).size() < set.size();
}

} // namespace

// Tells which links of a row lead nowhere before the decision is written.
class LooseLinks
{
public:
    explicit LooseLinks(jet::Connection& bdp) : presence_(bdp) {}

    void goes(const Named& named) { going_.push_back(named); } // with the decision itself

    QJsonArray of(const QString& table, const QJsonObject& row, const QStringList& columns)
    {
        QJsonArray found;
        for (const ColumnLink& link : linksIn(table, row, columns)) {
            const bool isGoing = std::ranges::any_of(going_, [&](const Named& one) { return isOne(one, link.named); });
            if (!isGoing && !presence_.has(link.named)) found << link.column;
        }
        return found;
    }

private:
    Presence presence_;
    std::vector<Named> going_;
};

QJsonObject Recording::noted(const QString& table, qint64 place, const Change& change, LooseLinks& links) const
{
    QJsonObject entry{{"tabela", table}, {"lugar", place}};
    if (!change.after) {
        entry["antes"] = change.before;
        entry["soltas"] = links.of(table, change.before, change.before.keys());
        return entry;
    }
    const QJsonObject before = differing(change.before, *change.after), after = differing(*change.after, change.before);
    entry["chave"] = only(*change.after, keyColumns(bdp_, table, *change.after));
    entry["antes"] = before;
    entry["depois"] = after;
    entry["soltas"] = links.of(table, change.before, before.keys());
    if (isWholeKept(table, *change.after, after)) entry["ficou"] = *change.after;
    return entry;
}

// What goes first leaves its key to what takes it.
qint64 Recording::keep(const Ruling& what)
{
    LooseLinks links(bdp_);
    for (const auto& [where, change] : changes_)
        if (const auto named = change.after ? std::nullopt : namedBy(where.first, change.before)) links.goes(*named);
    QJsonArray all;
    for (const auto& [where, change] : changes_)
        all << noted(where.first, where.second, change, links);
    for (const auto& [where, change] : changes_)
        if (!change.after)
            bdp_.execute(jet::NativeSql(QString("delete from %1 where rowid = ?").arg(where.first), {where.second}));
    for (const auto& [where, change] : changes_)
        if (change.after) jet::updateJsonRow(bdp_, where.first, where.second, differing(*change.after, change.before));
    return kept(bdp_, what, count(), QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Compact)));
}

} // namespace study::linkage
