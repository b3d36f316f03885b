// The connection to a BDP: statements, transactions, schema.
#pragma once

#include "platform/jet/error.h"
#include "platform/jet/nativesql.h"
#include "platform/jet/schemaCheck.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>

struct sqlite3;

namespace jet {

struct Database;
class Recordset;

// One open database file, spoken to in the dialect of the system (dialect.h), or in the engine's own SQL where values
// are bound (nativesql.h).
//
// One thread. No SELECT stays open between two calls, so the file can be altered, copied or replaced at any moment.
// Every failure throws Error and leaves the connection usable.
// Precondition of a statement, a transaction, a copy and a look at the schema: open; Error 3709 otherwise.
class Connection
{
public:
    enum State
    {
        Closed = 0,
        Open = 1,
        Executing = 4
    };

    // Whether other connections may have the file open as well. Those of the engine's own never ask.
    enum class Sharing
    {
        Shared,
        Alone,   // as seen by all connections, of any program, that ask to be alone, and by those who replace the file
        ReadOnly // as Shared, of a file or in a folder that nobody may write: a statement that writes is
                 // permissionDenied
    };

    // What somebody does at turns of the life of a connection. Neither may use it for a statement, or throw.
    struct Observer
    {
        std::function<void()> beforeWrite; // before a statement that writes, where nothing is written and pending yet
        std::function<void()> beforeClose; // while the file is still open
    };

    // `own`: the tables that no trigger, view, virtual table or calculated column of a file may touch; by default all.
    explicit Connection(OwnTables own = {});
    ~Connection(); // closes
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Opens the file named by the text behind "Data Source=" of the connection string, or by the whole string where it
    // has none. The path is taken untrimmed but for the one blank behind "=".
    // An existing, writable database file is needed: nothing is ever created by an open. An empty file counts as a
    // database. Throws fileNotFound, pathNotFound, permissionDenied (also where the file's folder can't be written, as
    // no transaction could begin there) or engineFailure (also where it is to be alone and isn't), naming the file; the
    // connection is closed then.
    // One that is only read may be read-only, and so may its folder; nothing is made beside it. It is refused where it
    // can't be read so: with a journal to be played back, or one that is used with a write-ahead log.
    // A file is refused with engineFailure, and nothing is touched, where its schema holds what requireHarmlessSchema()
    // refuses, or where what lies beside it isn't what a killed program leaves (requireHarmlessCompanions()).
    // Precondition: closed; Error 3705 otherwise.
    void open(const QString& connectionString, Sharing sharing = Sharing::Shared);

    // Rolls back what is pending and closes. Closing a closed connection does nothing.
    void close();

    int state() const;          // Closed or Open; Executing only inside a running statement
    QString dataSource() const; // path of the open file; "" when closed

    // Runs one statement that gives no rows, or whose rows nobody needs. Returns the number of rows changed.
    // Text behind the first statement, an empty text and a text of blanks are errors, and nothing is run.
    int execute(const QString& statement);
    int execute(const NativeSql& statement);

    // Asks `goesOn` again and again while one statement runs for long, with the time since its first row was asked for;
    // false ends the statement, with engineFailure: nothing of it is written, nor of the transaction that it wrote in.
    // `over` follows when a statement that was asked about has ended, in whatever way.
    // Neither may throw, and the connection takes no call before `over`.
    using StatementGoesOn = std::function<bool(std::chrono::milliseconds elapsed)>;
    void onLongStatement(StatementGoesOn goesOn, std::function<void()> over);

    // Transactions nest: each beginTrans() opens a level, commitTrans() and rollbackTrans() end the innermost one.
    // Only the commit of the outermost level reaches the disk.
    // Precondition of an end: a level is open; an error otherwise.
    void beginTrans();
    void commitTrans();
    void rollbackTrans();
    int transactionLevel() const; // open levels, abandoned ones included

    // Marks the levels above `level` as left behind by their routine. They are rolled back before the next statement
    // that writes, the next beginTrans() or copyTo(), whoever sends it; so nothing done later is lost with them.
    void abandonAbove(int level);

    // Names of tables, and (table, column) pairs, as the schema holds them.
    QStringList tables() const;
    struct Column
    {
        QString table;
        QString name;
        QString type;
    };
    QList<Column> columns() const;

    // Whether another file stands under the path by now, or none. What is open can be read and copied all the same, but
    // not written any more.
    bool hasMoved() const;

    // Writes a consistent copy of the committed state to `path`, over any file of that name: of the file that is open,
    // whatever stands under its path by now. The target is replaced only when the copy is whole and on the disk.
    // Abandoned levels are rolled back first. Throws permissionDenied where `path` is the open file itself (also
    // through a link), pathNotFound, diskFull ...; the target is then as it was.
    void copyTo(const QString& path) const;

    // Copies the pages of the file as it is into the empty file `draft`, which is to become `target`, and brings
    // nothing to the disk. Returns false where that takes longer; from then on a write is patient with those who read
    // the file meanwhile. Throws Error.
    // Precondition: nothing is written and pending.
    bool copyPages(const QString& draft, const QString& target, std::chrono::milliseconds time) const;

    // Kept over close() and open().
    void setObserver(Observer observer);

    // A statement prepared once for many rows.
    class Insert;

    // For Recordset and the benchmarks: the handle of the engine; null when closed.
    sqlite3* handle() const;

private:
    int run(const QString& sql, const QVariantList& values);

    std::shared_ptr<Database> database_;
    OwnTables own_;
    friend class Recordset;
    friend class JsonReader;
};

// One row is added by each run(), as by a statement with the values as texts: they take the types of their columns, or
// are refused by them.
// Precondition: the connection outlives it.
class Connection::Insert
{
public:
    Insert(Connection& connection, const QString& table, const QStringList& columns); // throws Error
    ~Insert();

    // Values in UTF-8 or not. Throws Error; the row is not added then.
    // Precondition: as many values as columns; an Error otherwise.
    void run(const QList<QByteArray>& values);
    void run(const QStringList& values);

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

// While it lives, a routine runs. Levels that the routine opened and did not end are abandoned when it is over.
// Precondition: the connection outlives it.
class RoutineScope
{
public:
    explicit RoutineScope(Connection& connection);
    ~RoutineScope();
    RoutineScope(const RoutineScope&) = delete;
    RoutineScope& operator=(const RoutineScope&) = delete;

private:
    Connection& connection_;
    int level_;
};

// What goes into a new database, at the path given. May throw Error.
using Fill = std::function<void(const QString& file)>;

// Makes a database file at `path`, replacing none: throws Error 58 where a file stands there, pathNotFound or
// permissionDenied where none can be made. It is made beside its place, which it takes when it is whole and on the
// disk; where `fill` throws, what was made before takes the place, too. Without `fill` it is empty, and any tool of the
// engine opens it.
void createDatabase(const QString& path, const Fill& fill = {});

// Whether the file at `path` can be replaced: throws fileNotFound, permissionDenied (also for a read-only file) or
// engineFailure (a folder, or a file that another program is using).
// Precondition: no connection of this program has it open.
void requireReplaceable(const QString& path);

// Puts a new database file in the place of the one at `path`, in one step, once it is whole and on the disk. Throws as
// requireReplaceable(), and what `fill` throws; the old file is then as it was.
// Precondition: no connection of this program has it open.
void replaceDatabase(const QString& path, const Fill& fill);

} // namespace jet
