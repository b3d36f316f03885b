#include "dump.h"

#include "failure.h"

#include <QLocale>

#include <sqlite3.h>

#include <cmath>
#include <memory>

namespace {

struct Finalize
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

Statement prepare(sqlite3* db, const QString& select)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, select.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        fail(QString::fromUtf8(sqlite3_errmsg(db)) + " in " + quoted(select));
    return Statement(statement);
}

QString textOf(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

Value valueOf(sqlite3_stmt* statement, int column)
{
    const int type = sqlite3_column_type(statement, column);
    if (type == SQLITE_NULL) return {};
    if (type != SQLITE_FLOAT) return {false, textOf(statement, column)};
    const double number = sqlite3_column_double(statement, column);
    const bool whole = std::nearbyint(number) == number && std::abs(number) < 1e15;
    return {false,
            whole ? QString::number(qint64(number)) : QString::number(number, 'g', QLocale::FloatingPointShortest)};
}

bool step(sqlite3* db, const Statement& statement)
{
    const int status = sqlite3_step(statement.get());
    if (status != SQLITE_ROW && status != SQLITE_DONE) fail(QString::fromUtf8(sqlite3_errmsg(db)));
    return status == SQLITE_ROW;
}

constexpr auto ofTheBdp = " from sqlite_master where tbl_name not like 'estudo~_%' escape '~' "
                          "and name not like 'sqlite~_%' escape '~'";

} // namespace

QString Value::told() const
{
    return null ? "null" : quoted(text.size() > 200 ? text.left(200) + "..." : text);
}

QString Change::told() const
{
    const QString where = QStringLiteral("%1, row %2").arg(table).arg(rowid);
    if (!before) return where + " is new";
    if (!after) return where + " has gone";
    QStringList columns;
    for (auto column = after->columns.cbegin(); column != after->columns.cend(); ++column)
        if (const Value old = before->columns.value(column.key()); old != column.value())
            columns << column.key() + " was " + old.told() + ", is " + column.value().told();
    return where + ": " + columns.join("; ");
}

QList<Change> changes(const Dump& before, const Dump& after)
{
    QList<Change> found;
    QStringList tables = before.tables.keys() + after.tables.keys();
    tables.removeDuplicates();
    for (const QString& table : std::as_const(tables)) {
        const auto old = before.tables.constFind(table), now = after.tables.constFind(table);
        if (old != before.tables.cend())
            for (auto row = old->cbegin(); row != old->cend(); ++row) {
                const bool stays = now != after.tables.cend() && now->contains(row.key());
                const Row* is = stays ? &now->constFind(row.key()).value() : nullptr;
                if (!is || *is != row.value()) found.append({table, row.key(), &row.value(), is});
            }
        if (now != after.tables.cend())
            for (auto row = now->cbegin(); row != now->cend(); ++row)
                if (old == before.tables.cend() || !old->contains(row.key()))
                    found.append({table, row.key(), nullptr, &row.value()});
    }
    return found;
}

Store::Store(const QString& path)
{
    if (sqlite3_open_v2(path.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
        fail("the BDP can't be read: " + QString::fromUtf8(sqlite3_errmsg(db_)));
    sqlite3_busy_timeout(db_, 5000);
}

Store::~Store()
{
    sqlite3_close(db_);
}

Dump Store::dump() const
{
    Dump dump;
    QStringList tables;
    const Statement schema = prepare(db_, QString("select type, name, sql") + ofTheBdp + " order by name");
    while (step(db_, schema)) {
        if (textOf(schema.get(), 0) == "table") tables << textOf(schema.get(), 1);
        dump.schema += textOf(schema.get(), 2) + '\n';
    }
    for (const QString& table : std::as_const(tables)) {
        QMap<qint64, Row>& rows = dump.tables[table];
        const Statement all = prepare(db_, "select rowid, * from " + table);
        while (step(db_, all)) {
            Row& row = rows[sqlite3_column_int64(all.get(), 0)];
            for (int column = 1; column < sqlite3_column_count(all.get()); ++column)
                row.columns.insert(QString::fromUtf8(sqlite3_column_name(all.get(), column)).toLower(),
                                   valueOf(all.get(), column));
        }
    }
    return dump;
}
