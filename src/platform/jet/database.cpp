#include "platform/jet/database.h"

#include "platform/jet/errors.h"
#include "platform/jet/rest.h"
#include "platform/jet/statement.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace jet {

void Database::close()
{
    if (!handle) return claim.release();
    if (watch.asking()) return watch.stop();
    if (observer.beforeClose) observer.beforeClose();
    while (!statements.empty())
        (*statements.begin())->finalize();
    prepared.clear();
    sqlite3_close(std::exchange(handle, nullptr)); // rolls back
    claim.release();                               // its end takes the engine's locks along
    path.clear();
    level = 0;
    abandoned = 0;
}

void Database::readRests()
{
    while (!rests.empty())
        (*rests.begin())->readAll();
}

void Database::beforeWrite()
{
    changes.statementBegins();
    if (observer.beforeWrite && sqlite3_txn_state(handle, "main") != SQLITE_TXN_WRITE) observer.beforeWrite();
}

void Database::requireOpen()
{
    if (!handle) throw connectionClosed();
    if (watch.asking())
        throw Error{number::engineFailure, QStringLiteral("A BDP está ocupada com a instrução anterior.")};
}

qint64 Database::version()
{
    Statement question(*this, QStringLiteral("pragma data_version"));
    return question.step() ? sqlite3_column_int64(question.handle(), 0) : 0;
}

void Database::run(const char* sql)
{
    requireOpen();
    const int code = sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) fail(code);
}

void Database::fail(int code)
{
    const Error error = engineError(handle, code, path);
    if (level > 0 && sqlite3_get_autocommit(handle)) {
        level = 0;
        abandoned = 0;
        changes.allLevelsAreRolledBack();
    }
    throw error;
}

// The outermost level is the engine's transaction, the deeper ones its savepoints, which it finds by their name from
// the innermost one outward: so they can all have the same.
void Database::begin()
{
    requireOpen();
    dropAbandoned();
    run(level == 0 ? "begin" : "savepoint orv");
    ++level;
    changes.levelBegins();
}

void Database::end(bool keep)
{
    requireOpen();
    const bool dropped = abandoned > 0;
    dropAbandoned();
    if (level == 0 && dropped && !keep) return; // what was to be rolled back has gone already
    if (level == 0) throw Error{number::engineFailure, QStringLiteral("Não há nenhuma transacção aberta.")};
    if (level == 1)
        run(keep ? "commit" : "rollback");
    else
        run(keep ? "release orv" : "rollback to orv; release orv");
    --level;
    keep ? changes.levelIsKept() : changes.levelIsRolledBack();
}

void Database::dropAbandoned()
{
    for (; abandoned > 0; --abandoned) {
        run(level == 1 ? "rollback" : "rollback to orv; release orv");
        --level;
        changes.levelIsRolledBack();
    }
}

OneState::OneState(Database& database) : database_(database)
{
    database_.requireOpen();
    if (!sqlite3_get_autocommit(database_.handle)) return;
    Statement(database_, QStringLiteral("begin")).step();
    begun_ = true;
}

OneState::~OneState()
{
    if (!begun_ || !database_.handle || sqlite3_get_autocommit(database_.handle)) return;
    try {
        Statement(database_, QStringLiteral("commit")).step();
    } catch (const Error&) {
        sqlite3_exec(database_.handle, "rollback", nullptr, nullptr, nullptr);
    }
}

} // namespace jet
