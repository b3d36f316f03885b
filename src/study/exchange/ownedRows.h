// Rows of several tables side by side, as their owners go by.
#pragma once

#include "platform/jet/rows.h"
#include "study/parish/snapshot.h"

namespace study::exchange {

// The rows of one select, which begins with the number of their owner and is ordered by it. Rows of owners that nobody
// asks for are passed over.
class OwnedRows
{
public:
    OwnedRows(const jet::Connection& bdp, const QString& select) : rows_(bdp, jet::NativeSql(select)) { forward(); }

    // Whether there is one more row of this owner; row() is on it then. Precondition: no higher one was asked for.
    bool next(qint64 owner);
    const jet::Rows& row() const { return rows_; }

private:
    void forward();

    jet::Rows rows_;
    bool over_ = false;
    bool taken_ = false; // the row that stands ready was given
    double owner_ = 0;   // of that row
};

// A column as a value of a card; empty where it is null.
parish::Code codeAt(const jet::Rows& row, int column);
// The date, and behind it the column that tells whether it is exact.
parish::Date dateAt(const jet::Rows& row, int column);
// A date without such a column.
parish::Date exactDateAt(const jet::Rows& row, int column);
// The code, and behind it the letter.
parish::Place placeAt(const jet::Rows& row, int column);

} // namespace study::exchange
