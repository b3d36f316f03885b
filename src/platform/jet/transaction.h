// A transaction of one routine.
#pragma once

#include "platform/jet/connection.h"

namespace jet {

// Begins a transaction. It is rolled back where the routine is left without commit(), by an error too: so the error is
// reported with nothing pending.
// Precondition: an open connection, which outlives it; Error 3709 otherwise.
class Transaction
{
public:
    explicit Transaction(Connection& connection) : connection_(connection) { connection_.beginTrans(); }
    ~Transaction()
    {
        if (!open_) return;
        try {
            connection_.rollbackTrans();
        } catch (const Error&) { // the failure that led here tells more
        }
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit()
    {
        connection_.commitTrans();
        open_ = false;
    }

private:
    Connection& connection_;
    bool open_ = true;
};

} // namespace jet
