// What an import has made, as it was left: to see whether anybody has touched it since.
#pragma once

#include "platform/jet/connection.h"
#include <QByteArray>
#include <QHash>
#include <QString>

#include <vector>

namespace study::exchange {

// Rows that belong to a record: to whom a column of theirs leads, as far as a condition holds.
struct OwnedTable
{
    const char* table;
    const char* owner; // the column
    const char* kind;  // of the record: namespace imported
    const char* condition;
};
const std::vector<OwnedTable>& ownedTables();

// Marks of the records of one kind, by their number or code: another one where any value of any of their rows is
// another one, or a row came or went. Of the keys of `of` alone. Throws jet::Error.
QHash<QString, QByteArray> marksOf(const jet::Connection& bdp, const QString& kind,
                                   const QHash<QString, QByteArray>& of);

} // namespace study::exchange
