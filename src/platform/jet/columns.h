// The types of the columns, and how they are declared to the engine.
#pragma once

#include <QString>

#include <limits>

struct sqlite3;

namespace jet {

enum class Type
{
    Unknown,
    Text,
    Number,
    Date,
    Bit
};

// The range of a "long".
inline constexpr auto smallestLong = std::numeric_limits<qint32>::min(),
                      largestLong = std::numeric_limits<qint32>::max();

Type typeOf(const QString& declared);

// The declared type of a column; "" where the table or the column doesn't exist.
QString declaredType(sqlite3* database, const QString& table, const QString& column);
bool tableExists(sqlite3* database, const QString& table);

// Where a column stands: in "create table" a bit without a value is null, in "alter table" old rows get 0.
enum class Place
{
    NewTable,
    OldTable
};

// The engine's declaration of a column of the dialect: its type, its check, its collation. `type` is the dialect's
// word, `width` the text between its parentheses ("" where it has none). Throws Error for a type that the dialect
// doesn't have.
QString columnDeclaration(const QString& table, const QString& column, const QString& type, const QString& width,
                          Place place);

// A name between the engine's quotes.
QString quoted(const QString& name);

} // namespace jet
