// A transaction of one routine.
#pragma once

#include "platform/jet/connection.h"

#include <utility>

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

// Runs a routine that has no transaction: what it has written before an error stays written. But a power cut leaves
// all of it or nothing, as it reaches the disk in one go.
// Precondition: an open connection; Error 3709 otherwise.
template <class Routine>
void inOneGo(Connection& connection, Routine&& routine)
{
    Transaction transaction(connection);
    try {
        std::forward<Routine>(routine)();
    } catch (...) {
        try {
            transaction.commit();
        } catch (const Error&) { // the first failure, such as a full disk, says more
        }
        throw;
    }
    transaction.commit();
}

} // namespace jet
