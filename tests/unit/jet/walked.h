// What the engine has to look at.
#pragma once

#include <sqlite3.h>

namespace jet::test {

// How many rows statements that are prepared still have walked over, one after the other, since this was asked last.
inline int rowsWalked(sqlite3* database)
{
    int rows = 0;
    for (sqlite3_stmt* each = nullptr; (each = sqlite3_next_stmt(database, each));)
        rows += sqlite3_stmt_status(each, SQLITE_STMTSTATUS_FULLSCAN_STEP, 1);
    return rows;
}

} // namespace jet::test
