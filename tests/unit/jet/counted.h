// What the engine does for a piece of work, statement by statement.
#pragma once

#include <QtGlobal>

#include <sqlite3.h>

namespace jet::test {

// Counts from its beginning to its end what the connection's statements do, also those that nobody keeps. One at a time
// on a connection; a statement that is still under way when the count is asked for isn't among its steps.
class Counted
{
public:
    explicit Counted(sqlite3* database) : database_(database)
    {
        sqlite3_trace_v2(database_, SQLITE_TRACE_ROW | SQLITE_TRACE_PROFILE, note, this);
    }
    ~Counted() { sqlite3_trace_v2(database_, 0, nullptr, nullptr); }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    qint64 rows() const { return rows_; }   // that statements have given
    qint64 steps() const { return steps_; } // of the engine's machine: it takes several for a row that it looks at

private:
    static int note(unsigned what, void* counted, void* statement, void*)
    {
        auto& self = *static_cast<Counted*>(counted);
        if (what == SQLITE_TRACE_ROW)
            ++self.rows_;
        else
            self.steps_ += sqlite3_stmt_status(static_cast<sqlite3_stmt*>(statement), SQLITE_STMTSTATUS_VM_STEP, 1);
        return 0;
    }

    sqlite3* database_;
    qint64 rows_ = 0, steps_ = 0;
};

} // namespace jet::test
