// The open file behind a Connection, shared with the recordsets and statements that read it.
#pragma once

#include "platform/jet/changes.h"
#include "platform/jet/claim.h"
#include "platform/jet/connection.h"
#include "platform/jet/prepared.h"
#include "platform/jet/watch.h"

#include <QString>

#include <set>

struct sqlite3;

namespace jet {

class KeyList;
class Rest;
class Statement;

struct Database
{
    Database() = default;
    ~Database() { close(); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    sqlite3* handle = nullptr; // null: closed
    QString path;
    Claim claim;
    Connection::Observer observer;
    bool executing = false;
    int opened = 0; // grows with each open: what was made before belongs to another file

    int level = 0;     // open transaction levels
    int abandoned = 0; // how many of them, the innermost ones, are left behind by their routine

    std::set<Statement*> statements; // in use
    PreparedStatements prepared;     // and not in use

    std::set<Rest*> rests;         // of lists that are still to be read
    KeyList* collecting = nullptr; // what the statement that runs appends to (functions.h)

    Changes changes;
    Watch watch;

    void close();       // rolls back and finalises; in the middle of a statement, only ends that
    void readRests();   // before a statement that writes. Throws Error
    void beforeWrite(); // of a statement
    // Error 3709; engineFailure in the middle of a statement, while somebody is asked whether it goes on.
    void requireOpen();

    // Another number after each commit of another connection.
    qint64 version();

    // Runs engine SQL of our own, of which nothing but the success is of interest. Throws Error.
    void run(const char* sql);
    // The error that the engine has just reported. A failure that took the transaction with it takes the levels, too.
    [[noreturn]] void fail(int code);

    void begin();
    void end(bool keep); // the innermost level
    void dropAbandoned();
};

// While it lives, all that is read is of one state of the file, which is locked once for it, and not by each statement.
// Precondition: nothing is written meanwhile; the database outlives it.
class OneState
{
public:
    explicit OneState(
        Database& database); // throws Error; within a transaction, and within another one, it does nothing
    ~OneState();
    OneState(const OneState&) = delete;
    OneState& operator=(const OneState&) = delete;

private:
    Database& database_;
    bool begun_ = false;
};

} // namespace jet
