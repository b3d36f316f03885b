#include "platform/jet/recordset.h"

#include "platform/jet/date.h"
#include "platform/jet/errors.h"
#include "platform/jet/functions.h"
#include "platform/jet/recordset_p.h"

#include <QScopedValueRollback>

#include <sqlite3.h>

namespace jet {

namespace {

QString columnText(sqlite3_stmt* statement, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                             sqlite3_column_bytes(statement, column));
}

// The aggregates of dates have no declared type: their values tell.
QVariant dateOrText(const QString& value)
{
    const auto date = readStoredDate(value);
    return date ? QVariant(*date) : QVariant(value);
}

QVariant valueOf(sqlite3_stmt* statement, int column, Type type)
{
    const int stored = sqlite3_column_type(statement, column);
    if (stored == SQLITE_NULL) return {};
    if (type == Type::Text) return columnText(statement, column);
    if (stored == SQLITE_TEXT || stored == SQLITE_BLOB) return dateOrText(columnText(statement, column));
    const double number = sqlite3_column_double(statement, column);
    return type == Type::Bit ? QVariant(number != 0) : QVariant(number);
}

} // namespace

Recordset::Recordset(Connection& connection) : d(std::make_unique<Private>(connection.database_)) {}

Recordset::Recordset(Connection& connection, const QString& select) : Recordset(connection)
{
    open(select);
}

Recordset::Recordset(Connection& connection, const NativeSql& select) : Recordset(connection)
{
    open(select);
}

Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::open(const QString& select)
{
    if (d->takesUp(select, Language::Dialect)) return;
    const OneState state(*d->database);
    d->open(analyseSelect(select, d->database->handle, &d->database->prepared));
}

void Recordset::open(const NativeSql& select)
{
    if (d->takesUp(select.sql, Language::Native)) return;
    d->open(analyseSelect(select));
}

void Recordset::close()
{
    *d = Private(d->database);
}

bool Recordset::isOpen() const
{
    return d->isOpen();
}

void Recordset::requery()
{
    d->requireOpen();
    const QString sort = d->sort;
    const QString filter = d->filter;
    const QString source = d->source;
    const Language language = d->language;
    Select select = std::move(d->select);
    close();
    d->open(std::move(select));
    d->source = source;
    d->language = language;
    d->sort = sort;
    d->filter = filter;
    d->choose();
}

int Recordset::fieldCount() const
{
    d->requireOpen();
    return int(d->fields.size());
}

QString Recordset::fieldName(int column) const
{
    d->requireOpen();
    if (column < 0 || column >= fieldCount()) throw noSuchField(QString::number(column));
    return d->fields[column].name;
}

QVariant Recordset::operator[](const QString& field) const
{
    d->requireOpen();
    return (*this)[d->fieldIndex(field)];
}

QVariant Recordset::operator[](int column) const
{
    d->requireOpen();
    if (column < 0 || column >= fieldCount()) throw noSuchField(QString::number(column));
    if (const auto changed = d->pending.find(column); changed != d->pending.end()) return changed->second;
    return d->adding ? QVariant() : d->currentRow()[column];
}

void Recordset::Private::requireOpen() const
{
    database->requireOpen();
    if (!isOpen()) throw recordsetClosed();
}

qint64 Recordset::Private::currentKey()
{
    if (!hasCurrentRow()) throw noCurrentRow();
    return rows()[position];
}

int Recordset::Private::fieldIndex(const QString& name) const
{
    for (size_t i = 0; i < fields.size(); ++i)
        if (fields[i].name.compare(name, Qt::CaseInsensitive) == 0) return int(i);
    throw noSuchField(name);
}

void Recordset::Private::open(Select analysed)
{
    const OneState state(*database);
    select = std::move(analysed);
    try {
        if (select.simple)
            loadKeys();
        else
            loadCells();
    } catch (const Error& error) {
        if (!select.simple || error.number != number::invalidStatement) throw;
        // An order by an alias of the list is nothing that the keys alone can be ordered by.
        select.simple = false;
        loadCells();
    }
    opened = database->opened;
}

// With `number`, a second column.
QString Recordset::Private::keysSql(const QString& condition, const QString& order, const QString& number) const
{
    const QString rowid = quoted(select.alias) + QLatin1String(".rowid");
    QString sql = QLatin1String("select ") + rowid;
    if (!number.isEmpty()) sql += u',' + number;
    sql += QLatin1String(" from ") + select.from;
    QStringList conditions;
    for (const QString& part : {select.where, condition})
        if (!part.isEmpty()) conditions << u'(' + part + u')';
    if (!conditions.isEmpty()) sql += QLatin1String(" where ") + conditions.join(QLatin1String(" and "));
    return sql + QLatin1String(" order by ") + (order.isEmpty() ? rowid : order); // else in the order of entry
}

// `more` are the values behind those of the select.
Recordset::Private::Keys Recordset::Private::readKeys(const QString& sql, const QVariantList& more) const
{
    Statement statement(*database, sql);
    statement.bindAll(select.values + more);
    Keys keys;
    while (statement.step())
        keys.push_back(sqlite3_column_int64(statement.handle(), 0));
    return keys;
}

void Recordset::Private::loadKeys()
{
    beginToFollow();
    if (!readBeginning()) readAllKeys();
    reader = Statement(
        *database,
        QStringLiteral("select %1 from %2 where %3.rowid = ?").arg(select.list, select.from, quoted(select.alias)));
    reader.bringUpToDate();
    fields = reader.columns();
}

// Precondition: beginToFollow().
void Recordset::Private::readAllKeys()
{
    if (!collectKeys()) stepOverKeys();
    if (!all.isOrdered()) asOf.reset();
}

// In whatever order the engine goes about it. False where that isn't the order of the list.
bool Recordset::Private::collectKeys()
{
    if (placing.isEmpty()) return false;
    all = KeyList(KeyList::Order::ByNumber);
    const QScopedValueRollback into(database->collecting, &all);
    Statement(*database, QStringLiteral("select %1(%2.rowid,%3) from %4")
                             .arg(QLatin1String(functions::collect), quoted(select.alias), placing, select.from))
        .step();
    return all.isOrdered();
}

void Recordset::Private::stepOverKeys()
{
    const bool numbered = !placing.isEmpty();
    all = KeyList(numbered ? KeyList::Order::ByNumber : KeyList::Order::ByKey);
    Statement statement(*database, keysSql({}, select.order, placing));
    statement.bindAll(select.values);
    while (statement.step())
        all.append(sqlite3_column_int64(statement.handle(), 0),
                   numbered ? numberIn(statement.handle(), 1) : std::nullopt);
}

void Recordset::Private::loadCells()
{
    Statement statement(*database, select.sql);
    statement.bindAll(select.values);
    bool standsOnRow = statement.step();
    fields = statement.columns();
    asOf.reset();
    rest.reset();
    all = KeyList();
    for (; standsOnRow; standsOnRow = statement.step()) {
        all.append(all.size());
        for (size_t i = 0; i < fields.size(); ++i)
            cells.push_back(valueOf(statement.handle(), int(i), fields[i].type));
    }
}

std::vector<QVariant> Recordset::Private::readRow(qint64 key)
{
    if (!select.simple)
        return {cells.begin() + key * qint64(fields.size()), cells.begin() + (key + 1) * qint64(fields.size())};
    reader.bind(1, key);
    std::vector<QVariant> values;
    if (reader.step())
        for (size_t i = 0; i < fields.size(); ++i)
            values.push_back(valueOf(reader.handle(), int(i), fields[i].type));
    reader.reset();
    return values; // empty: somebody has deleted the row
}

const std::vector<QVariant>& Recordset::Private::currentRow()
{
    const qint64 key = currentKey();
    if (!rowRead) {
        row = readRow(key);
        if (row.empty()) throw noCurrentRow();
        rowRead = true;
    }
    return row;
}

} // namespace jet
