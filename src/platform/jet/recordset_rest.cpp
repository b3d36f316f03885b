// A long list whose beginning is read first.
#include "platform/jet/recordset.h"

#include "platform/jet/recordset_p.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace jet {

int Recordset::Private::keysOfAPiece = 20000; // about a millisecond

// False where all is to be read at once: where what is read may be rolled back, where the order isn't one, or where the
// engine has to sort for it.
// Precondition: beginToFollow().
bool Recordset::Private::readBeginning()
{
    if (!asOf || database->level > 0) return false;
    all = KeyList(placing.isEmpty() ? KeyList::Order::ByKey : KeyList::Order::ByNumber);
    const Piece piece = appendPiece();
    if (!all.isOrdered() || piece == Piece::Sorted) return false;
    if (piece == Piece::Last) return true;
    Statement counting(*database, QLatin1String("select count(*) from ") + select.from);
    const int counted = counting.step() ? sqlite3_column_int(counting.handle(), 0) : 0;
    if (isDisturbed()) return false;
    if (counted > all.size())
        rest =
            std::make_unique<Rest>(*database, counted, Rest::Reader{[this] { readPiece(); }, [this] { readRest(); }});
    return true;
}

// Behind the rows that were read, by what orders them: so no statement has to stay open.
Recordset::Private::Piece Recordset::Private::appendPiece()
{
    const bool numbered = !placing.isEmpty();
    QString behind;
    QVariantList values;
    if (all.size() > 0) {
        behind = (numbered ? placing : quoted(select.alias) + QLatin1String(".rowid")) + QLatin1String(" > ?");
        values << (numbered ? QVariant(all.lastNumber()) : QVariant(all.keys().back()));
    }
    Statement statement(*database, keysSql(behind, select.order, placing) + QLatin1String(" limit ?"));
    statement.bindAll(values << keysOfAPiece);
    sqlite3_stmt_status(statement.handle(), SQLITE_STMTSTATUS_SORT, 1);
    int read = 0;
    for (; all.isOrdered() && statement.step(); ++read)
        all.append(sqlite3_column_int64(statement.handle(), 0),
                   numbered ? numberIn(statement.handle(), 1) : std::nullopt);
    if (read < keysOfAPiece) return Piece::Last;
    return sqlite3_stmt_status(statement.handle(), SQLITE_STMTSTATUS_SORT, 1) > 0 ? Piece::Sorted : Piece::Full;
}

void Recordset::Private::readTo(int place)
{
    while (rest && place >= all.size())
        readPiece();
}

void Recordset::Private::readRest()
{
    readTo(std::numeric_limits<int>::max());
}

// What is read belongs to one state of the file if nobody has written by the end of it. Rows of the same number may be
// missed between two pieces: then the count tells.
void Recordset::Private::readPiece()
{
    if (!isOpen()) return rest.reset();
    const Piece piece = appendPiece();
    if (isDisturbed() || !all.isOrdered()) return readAnew();
    if (piece == Piece::Full && all.size() < rest->count()) return;
    if (all.size() != rest->count()) return readAnew();
    rest.reset();
}

bool Recordset::Private::isDisturbed()
{
    if (!asOf) return true;
    Changes::Moment moment = *asOf;
    const auto touched = database->changes.since(moment, select.table);
    return !touched || !touched->empty() || database->version() != version;
}

// All of it, as by now. The cursor stays on its row.
void Recordset::Private::readAnew()
{
    const bool onRow = position >= 0 && position < count();
    const bool atEnd = position >= count();
    KeyList before = std::move(all);
    int place = position;
    try {
        beginToFollow();
        readAllKeys();
        if (onRow) place = placeOf(before.keys()[position]);
    } catch (...) {
        all = std::move(before);
        asOf.reset(); // it is still to be read anew
        throw;
    }
    rest.reset();
    onDeleted = onRow && place < 0;
    if (onDeleted) place = std::min(position, count());
    position = atEnd ? count() : place;
}

} // namespace jet
