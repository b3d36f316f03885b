// Rows as JSON, and back, whatever they hold.
#pragma once

#include "platform/jet/connection.h"

#include <QJsonObject>
#include <QList>

namespace jet {

// The rows of a select, each an object of its columns, whose names are in small letters: null, a number or a text; what
// JSON has no word for is an object of its own ("blob" or "texto", a text that isn't UTF-8, in base64; "real", an
// infinite number). A whole number has no decimal point: its column makes it a fraction again where it keeps fractions.
// A parameter is numbered (?1) or not; the values are whole numbers, doubles and texts. Throws Error.
QList<QJsonObject> jsonRows(const Connection& connection, const NativeSql& select);

// Adds a row of that kind to the table. Throws Error, also for a column that the table doesn't have; nothing is added
// then. The column "rowid" gives the row its place among those without an order.
void insertJsonRow(Connection& connection, const QString& table, const QJsonObject& row);

// Sets those columns of the row of that place (rowid). Throws as insertJsonRow(); nothing is changed then.
void updateJsonRow(Connection& connection, const QString& table, qint64 place, const QJsonObject& columns);

} // namespace jet
