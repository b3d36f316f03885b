#include "platform/jet/recordset.h"

#include "platform/jet/alphabet.h"
#include "platform/jet/date.h"
#include "platform/jet/errors.h"
#include "platform/jet/functions.h"
#include "platform/jet/recordset_p.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace jet {

namespace {

using Keys = Recordset::Private::Keys;
using SortedKeys = Recordset::Private::SortedKeys;

bool contains(const SortedKeys& sorted, qint64 key)
{
    return std::binary_search(sorted.begin(), sorted.end(), key);
}

SortedKeys sortedCopy(const Keys& keys)
{
    SortedKeys sorted(keys.begin(), keys.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

// "field", "field asc" or "field desc".
struct Order
{
    QString field;
    bool descending = false;

    explicit Order(const QString& text)
    {
        const Tokens tokens = tokenize(text);
        const bool directed = tokens.size() == 2 && (tokens[1].is("asc") || tokens[1].is("desc"));
        if (!tokens[0].isName() || (tokens.size() != 1 && !directed))
            throw invalidStatement(QStringLiteral("Erro de sintaxe na ordem \"%1\".").arg(text));
        field = tokens[0].text;
        descending = directed && tokens[1].is("desc");
    }
};

// Nulls stand first.
bool standsBefore(const QVariant& a, const QVariant& b)
{
    if (a.isNull() || b.isNull()) return a.isNull() && !b.isNull();
    if (a.typeId() == QMetaType::QDate && b.typeId() == QMetaType::QDate) return a.toDate() < b.toDate();
    if (a.typeId() == QMetaType::QString || b.typeId() == QMetaType::QString)
        return compareAlphabetically(a.toString(), b.toString()) < 0;
    return a.toDouble() < b.toDouble();
}

// As a column would hold it.
QVariant storedValue(const QVariant& value)
{
    if (value.typeId() == QMetaType::QDate) return storedDate(value.toDate());
    return value.typeId() == QMetaType::Bool ? QVariant(value.toLongLong()) : value;
}

} // namespace

void Recordset::find(const QString& criterion)
{
    d->requireOpen();
    if (d->count() == 0) return;
    if (d->position < 0 || d->position >= d->count()) throw noCurrentRow();
    d->moveTo(d->firstOf(d->matches(criterion)));
}

void Recordset::setSort(const QString& order)
{
    d->requireOpen();
    const QString before = std::exchange(d->sort, order);
    try {
        d->choose();
    } catch (...) {
        d->sort = before;
        throw;
    }
}

void Recordset::setFilter(const QString& criterion)
{
    d->requireOpen();
    const QString before = std::exchange(d->filter, criterion);
    try {
        d->choose();
    } catch (...) {
        d->filter = before;
        throw;
    }
}

QString Recordset::Private::columnSql(int field) const
{
    return quoted(select.alias) + u'.' + quoted(fields[field].column);
}

// The place of the first one from the current row on; behind the last row where there is none.
int Recordset::Private::firstOf(const SortedKeys& matches)
{
    if (matches.empty()) return count();
    if (!chosen && matches.size() == 1) {
        int found = placeOf(matches.front());
        if (found < 0 && rest) {
            readRest();
            found = placeOf(matches.front());
        }
        return found >= position ? found : count();
    }
    readRest();
    const auto found =
        std::find_if(rows().begin() + position, rows().end(), [&](qint64 key) { return contains(matches, key); });
    return int(found - rows().begin());
}

Recordset::Private::SortedKeys Recordset::Private::matches(const QString& criterion)
{
    const Criterion wanted(criterion);
    const int field = fieldIndex(wanted.field());
    // Of all that is looked for, the number of a record: one text for all of them.
    if (const auto number = wanted.wholeNumber(); number && isColumn(field) && fields[field].type == Type::Number)
        return sortedCopy(readKeys(keysSql(columnSql(field) + QLatin1String(" = ?"), {}), {*number}));
    const QString condition = wanted.condition(fields[field].type);
    if (isColumn(field)) return sortedCopy(readKeys(keysSql(columnSql(field) + condition, {})));
    readRest();
    Statement test(*database,
                   QStringLiteral("select ?1 collate %1%2").arg(QLatin1String(functions::caseBlind), condition));
    Keys result;
    for (const qint64 key : all.keys()) {
        const auto values = readRow(key);
        if (values.empty()) continue;
        test.bind(1, storedValue(values[field]));
        if (test.step() && sqlite3_column_int(test.handle(), 0)) result.push_back(key);
        test.reset();
    }
    return sortedCopy(result);
}

void Recordset::Private::choose()
{
    if (!sort.isEmpty() || !filter.isEmpty()) readRest();
    std::optional<Keys> keys;
    if (!sort.isEmpty()) {
        const Order order(sort);
        const int field = fieldIndex(order.field);
        keys = all.keys();
        if (isColumn(field)) {
            keys = readKeys(keysSql({}, columnSql(field) + orderCollation(fields[field].type) +
                                            QLatin1String(order.descending ? " desc" : "")));
            const SortedKeys known = sortedCopy(all.keys());
            std::erase_if(*keys, [&](qint64 key) { return !contains(known, key); });
        } else {
            sortByValues(*keys, field, order.descending);
        }
    }
    if (!filter.isEmpty()) {
        const SortedKeys wanted = matches(filter);
        if (!keys) keys = all.keys();
        std::erase_if(*keys, [&](qint64 key) { return !contains(wanted, key); });
    }
    chosen = std::move(keys);
    moveTo(0);
}

void Recordset::Private::sortByValues(Keys& keys, int field, bool descending)
{
    std::vector<std::pair<QVariant, qint64>> values;
    for (const qint64 key : keys)
        if (const auto cellsOfRow = readRow(key); !cellsOfRow.empty()) values.emplace_back(cellsOfRow[field], key);
    std::stable_sort(values.begin(), values.end(), [&](const auto& a, const auto& b) {
        return descending ? standsBefore(b.first, a.first) : standsBefore(a.first, b.first);
    });
    keys.clear();
    for (const auto& value : values)
        keys.push_back(value.second);
}

} // namespace jet
