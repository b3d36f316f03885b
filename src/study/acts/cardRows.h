// The statements that the writer sends: for rows of the cards' tables, by the names that stand in the source alone.
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/plan.h"

#include <QStringList>

#include <optional>

namespace study::cards {

// A table that acts write to.
struct Table
{
    const char* name;
    QStringList key;     // columns that name a row; of `assistente`, which may have it twice, as its window takes them
    QStringList columns; // the others

    bool has(const QString& column) const { return key.contains(column) || columns.contains(column); }
};

const QList<Table>& tables();
const Table* table(const QString& name); // null for a table that acts don't write to

// Whether the change names a table, a key and columns of those: one that was read back out of a BDP may hold anything.
bool isKnown(const RowChange& change);

// One text for each table, whatever columns are set: the others are null, as the cards leave them.
// Precondition of these: isKnown(change); Error (invalidStatement) otherwise.
jet::NativeSql insertion(const RowChange& change);
jet::NativeSql alteration(const RowChange& change); // of a row by its key: sets `values`
jet::NativeSql deletion(const RowChange& change, qint64 rowid);
// The rows with that key: their rowid and all columns of the table that acts may write.
jet::NativeSql rowsOf(const RowChange& change);

} // namespace study::cards
