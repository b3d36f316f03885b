// A list that is opened again follows what was written since, where it can.
#include "platform/jet/recordset.h"

#include "platform/jet/recordset_p.h"

#include <sqlite3.h>

namespace jet {

namespace {

// Beyond it, the list is read again in less time.
bool isMany(size_t touched, int rows)
{
    return touched > 100 + size_t(rows) / 1000;
}

} // namespace

std::optional<double> numberIn(sqlite3_stmt* statement, int column)
{
    const int type = sqlite3_column_type(statement, column);
    if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) return {};
    return sqlite3_column_double(statement, column);
}

// Whether this is open already, and stands by now as if it had just been read; else it is closed, to be opened.
bool Recordset::Private::takesUp(const QString& sql, Language itsLanguage)
{
    try {
        if (isOpen() && sql == source && itsLanguage == language && follow()) return true;
    } catch (...) {
        *this = Private(database);
        throw;
    }
    *this = Private(database);
    database->requireOpen();
    source = sql;
    language = itsLanguage;
    return false;
}

// The version of the file is asked for last: if nobody else has written, what was looked up belongs to one state.
bool Recordset::Private::follow()
{
    if (!asOf) return false;
    const auto touched = database->changes.since(*asOf, select.table);
    if (!touched || isMany(touched->size(), all.size()) || (rest && !touched->empty())) return false;
    for (const qint64 key : *touched)
        if (!putAnew(key)) return false;
    if (database->version() != version) return false;
    sort.clear();
    filter.clear();
    chosen.reset();
    moveTo(0);
    return true;
}

// A row that was touched goes where it belongs by now, or out.
bool Recordset::Private::putAnew(qint64 key)
{
    Statement look = lookUp(key);
    if (!look.step()) {
        if (const int place = all.placeOf(key); place >= 0) all.erase(place);
        return true;
    }
    if (placing.isEmpty()) return all.put(key);
    const auto number = numberIn(look.handle(), 1);
    return number && all.put(key, number);
}

// The select has no condition, and no order but that of the keys or of one column of numbers.
void Recordset::Private::beginToFollow()
{
    asOf.reset();
    placing.clear();
    if (!select.where.isEmpty() || select.table.startsWith(QLatin1String("sqlite_"), Qt::CaseInsensitive)) return;
    if (!select.order.isEmpty()) {
        placing = placingColumn();
        if (placing.isEmpty()) return;
    }
    version = database->version(); // before the list is read: what others write meanwhile makes another one
    asOf = database->changes.now(select.table);
}

QString Recordset::Private::placingColumn() const
{
    const Tokens order = tokenize(select.order, Language::Native);
    const bool qualified = order.size() == 3 && order[0].isName() && order[1].is(".");
    if (!order.back().isName() || (order.size() != 1 && !qualified)) return {};
    const QString declared = declaredType(database->handle, select.table, order.back().text);
    return typeOf(declared) == Type::Number ? select.order : QString();
}

// The row as it is by now, with the number that places it in a second column. Precondition: no condition in the select.
Statement Recordset::Private::lookUp(qint64 key) const
{
    Statement look(*database, keysSql(quoted(select.alias) + QLatin1String(".rowid = ?"), {}, placing));
    look.bind(1, key);
    return look;
}

int Recordset::Private::placeOf(qint64 key)
{
    if (all.ascends() || placing.isEmpty()) return all.placeOf(key);
    Statement look = lookUp(key);
    return all.placeOf(key, look.step() ? numberIn(look.handle(), 1) : std::nullopt);
}

} // namespace jet
