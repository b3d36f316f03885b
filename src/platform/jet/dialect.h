// The dialect of the system, and how it is handed to the engine.
#pragma once

#include "platform/jet/error.h"
#include "platform/jet/nativesql.h"

#include <QDate>
#include <QString>
#include <QVariant>

#include <optional>

struct sqlite3;

namespace jet {

class PreparedStatements;

// A date typed by the user: dd/mm/yyyy, where a day or a month below 10 may go without its nought, or the eight digits
// alone; four digits for the year (100 to 9999), in the proleptic Gregorian calendar. Nothing else is a date.
std::optional<QDate> readDate(const QString& text);

// Where a statement takes a text, dd/mm/yyyy with all its digits: day first, and where that is no date, month first.
std::optional<QDate> readDateEitherWay(const QString& text);

// One statement of the dialect in the engine's own. Throws Error (invalidStatement) for a date literal that is no date,
// an unfinished text, an empty statement, or text behind the first statement.
// `database` tells which columns are dates and texts; it may be null where the statement creates tables only.
// `prepared` keeps, for the next translation, the questions that are asked of the file itself; without it they aren't
// kept.
QString translate(const QString& statement, sqlite3* database, PreparedStatements* prepared = nullptr);

// The text of a statement in the engine's own SQL, which is left as it stands. Throws Error as translate() does.
QString checked(const NativeSql& statement);

// Adds the functions and collations that translated statements use.
void installFunctions(sqlite3* database);

} // namespace jet
