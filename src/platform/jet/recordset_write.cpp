#include "platform/jet/recordset.h"

#include "platform/jet/date.h"
#include "platform/jet/dialect.h"
#include "platform/jet/errors.h"
#include "platform/jet/recordset_p.h"

#include <QLocale>

#include <sqlite3.h>

#include <algorithm>
#include <cmath>

namespace jet {

namespace {

constexpr double largestWhole = 9007199254740992.0; // beyond it, not every whole number is a double

Error mismatch(const Recordset::Private::Field& field, const QString& text, const char* wanted)
{
    return {number::typeMismatch, QStringLiteral("\"%1\" não é %2 (coluna \"%3\" da tabela \"%4\").")
                                      .arg(text, QString::fromUtf8(wanted), field.column, field.table)};
}

// Whole numbers as such, so that they read without ".0" everywhere.
QVariant storedNumber(double value)
{
    if (std::nearbyint(value) == value && std::abs(value) <= largestWhole) return QVariant(qint64(value));
    return value;
}

double numberOf(const Recordset::Private::Field& field, const QVariant& value)
{
    if (value.typeId() != QMetaType::QString) return value.toDouble();
    bool ok = false;
    const QString text = value.toString().trimmed();
    const double number = QLocale::c().toDouble(text, &ok);
    if (!ok || !std::isfinite(number) || text.contains(u',')) throw mismatch(field, text, "um número");
    return number;
}

QString storedText(const QVariant& value)
{
    if (value.typeId() == QMetaType::QDate) return value.toDate().toString(QStringLiteral("dd/MM/yyyy"));
    if (value.typeId() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    return value.toString();
}

// What the column keeps for a value that the program gives. Throws Error 13.
QVariant stored(const Recordset::Private::Field& field, const QVariant& value)
{
    if (value.isNull()) return {};
    switch (field.type) {
    case Type::Date: {
        const auto date =
            value.typeId() == QMetaType::QDate ? std::optional(value.toDate()) : readDate(value.toString());
        if (!date) throw mismatch(field, value.toString(), "uma data");
        return storedDate(*date);
    }
    case Type::Bit:
        return QVariant(qint64(numberOf(field, value) != 0));
    case Type::Number:
        return storedNumber(numberOf(field, value));
    case Type::Text:
    case Type::Unknown:
        break;
    }
    return storedText(value);
}

// A stored value as a reader of the field gets it.
QVariant shown(const Recordset::Private::Field& field, const QVariant& value)
{
    if (value.isNull()) return {};
    switch (field.type) {
    case Type::Date:
        return readStoredDate(value.toString()).value_or(QDate());
    case Type::Bit:
        return value.toBool();
    case Type::Number:
        return value.toDouble();
    default:
        return value;
    }
}

Error notUpdatable(const QString& what)
{
    return {number::notUpdatable, QStringLiteral("%1 não pode ser alterado nesta consulta.").arg(what)};
}

QString nameList(const std::vector<QString>& columns)
{
    QStringList names;
    for (const QString& column : columns)
        names << quoted(column);
    return names.join(u',');
}

} // namespace

void Recordset::addNew()
{
    d->requireOpen();
    if (!d->select.simple) throw notUpdatable(QStringLiteral("Um registo novo"));
    d->dropPending();
    d->adding = true;
}

void Recordset::set(const QString& field, const QVariant& value)
{
    d->requireOpen();
    const int index = d->fieldIndex(field);
    if (!d->adding) d->currentKey();
    if (d->fields[index].column.isEmpty()) throw notUpdatable(QStringLiteral("O campo \"%1\"").arg(field));
    d->pending[index] = value;
}

void Recordset::update()
{
    d->requireOpen();
    try {
        if (d->adding)
            d->insertPending();
        else if (!d->pending.empty())
            d->updatePending();
    } catch (...) {
        d->dropPending();
        throw;
    }
    d->dropPending();
}

void Recordset::cancelUpdate()
{
    d->requireOpen();
    d->dropPending();
}

void Recordset::deleteRow()
{
    d->requireOpen();
    d->dropPending();
    d->readRest();
    const qint64 key = d->currentKey();
    if (!d->select.simple) throw notUpdatable(QStringLiteral("O registo"));
    d->write(QStringLiteral("delete from %1 where rowid = ?").arg(quoted(d->select.table)), {key});
    const int position = d->position;
    d->all.erase(d->chosen ? d->placeOf(key) : position);
    if (d->chosen) d->chosen->erase(d->chosen->begin() + position);
    d->moveTo(position);
    d->onDeleted = true;
}

void Recordset::Private::dropPending()
{
    adding = false;
    pending.clear();
}

// Runs one statement that writes one row. False where the row has gone.
bool Recordset::Private::write(const QString& sql, const std::vector<QVariant>& values)
{
    database->dropAbandoned();
    Statement statement(*database, sql);
    for (size_t i = 0; i < values.size(); ++i)
        statement.bind(int(i) + 1, values[i]);
    statement.step();
    return sqlite3_changes(database->handle) > 0;
}

void Recordset::Private::insertPending()
{
    std::vector<QString> columns;
    std::vector<QVariant> values;
    QStringList places;
    for (const auto& [field, value] : pending) {
        columns.push_back(fields[field].column);
        values.push_back(stored(fields[field], value));
        places << QStringLiteral("?");
    }
    const QString into = QLatin1String("insert into ") + quoted(select.table);
    if (columns.empty())
        write(into + QLatin1String(" default values"), {});
    else
        write(QStringLiteral("%1 (%2) values (%3)").arg(into, nameList(columns), places.join(u',')), values);
    const qint64 key = sqlite3_last_insert_rowid(database->handle);
    all.append(key);
    asOf.reset(); // the new row stands last, wherever it belongs
    if (chosen) chosen->push_back(key);
    moveTo(count() - 1);
}

void Recordset::Private::updatePending()
{
    const qint64 key = currentKey();
    const QString table = fields[pending.begin()->first].table;
    QStringList changes;
    std::vector<QVariant> values;
    for (const auto& [field, value] : pending) {
        if (fields[field].table != table) throw notUpdatable(QStringLiteral("O registo de duas tabelas"));
        changes << quoted(fields[field].column) + QLatin1String(" = ?");
        values.push_back(stored(fields[field], value));
    }
    const std::vector<QVariant> written = values;
    const QString condition = keyCondition(table, values);
    if (!write(QStringLiteral("update %1 set %2 where %3").arg(quoted(table), changes.join(u','), condition), values))
        throw noCurrentRow();
    rowRead = false;
    if (select.simple) return;
    size_t next = 0;
    for (const auto& change : pending)
        cells[size_t(key) * fields.size() + size_t(change.first)] = shown(fields[change.first], written[next++]);
}

// What finds the current row in the table; the values of its places are put behind `values`.
QString Recordset::Private::keyCondition(const QString& table, std::vector<QVariant>& values)
{
    if (select.simple) {
        values.emplace_back(currentKey());
        return QStringLiteral("rowid = ?");
    }
    QStringList conditions;
    int keyColumns = 0;
    Statement columns(*database, QStringLiteral("select name from pragma_table_info(?) where pk > 0"));
    columns.bind(1, table);
    for (; columns.step(); ++keyColumns) {
        const QString column =
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(columns.handle(), 0)));
        for (size_t i = 0; i < fields.size(); ++i) {
            if (fields[i].table != table || fields[i].column.compare(column, Qt::CaseInsensitive) != 0) continue;
            conditions << quoted(column) + QLatin1String(" = ?");
            values.push_back(stored(fields[i], currentRow()[i]));
        }
    }
    // A key column that is missing, or that stands there twice as the select reads the table twice.
    if (keyColumns == 0 || conditions.size() != keyColumns)
        throw notUpdatable(QStringLiteral("O registo da tabela \"%1\"").arg(table));
    return conditions.join(QLatin1String(" and "));
}

} // namespace jet
