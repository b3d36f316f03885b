#include "platform/jet/connection.h"

#include "platform/jet/copy.h"
#include "platform/jet/database.h"
#include "platform/jet/dialect.h"
#include "platform/jet/errors.h"
#include "platform/jet/files.h"
#include "platform/jet/functions.h"
#include "platform/jet/journal.h"
#include "platform/jet/statement.h"

#include <QScopedValueRollback>

#include <sqlite3.h>

#include <utility>

namespace jet {

namespace {

constexpr int patientMilliseconds = 5000;

QString pathOf(const QString& connectionString)
{
    static const QString key = QStringLiteral("Data Source=");
    const auto at = connectionString.indexOf(key, 0, Qt::CaseInsensitive);
    if (at < 0) return connectionString;
    const QString path = connectionString.mid(at + key.size());
    return path.startsWith(u' ') ? path.mid(1) : path;
}

// A select gives rows and changes nothing: what an abandoned transaction holds may wait behind it.
bool isSelect(const QString& statement)
{
    return statement.trimmed().startsWith(QLatin1String("select"), Qt::CaseInsensitive);
}

QStringList names(Database& database, const QString& sql)
{
    Statement statement(database, sql);
    QStringList result;
    while (statement.step())
        result << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement.handle(), 0)));
    return result;
}

} // namespace

Connection::Connection(OwnTables own) : database_(std::make_shared<Database>()), own_(std::move(own)) {}

Connection::~Connection()
{
    close();
}

void Connection::open(const QString& connectionString, Sharing sharing)
{
    if (database_->handle) throw Error{number::alreadyOpen, QStringLiteral("A ligação já está aberta.")};
    const QString path = pathOf(connectionString);
    const bool writes = sharing != Sharing::ReadOnly;
    if (writes)
        requireWritableFile(path);
    else
        requireFile(path);
    if (sharing == Sharing::Alone) requireUnused(path, database_->claim);
    try {
        database_->handle = openEngine(path, writes ? Access::ReadWrite : Access::ReadOnly);
        database_->path = path;
        ++database_->opened;
        requireHarmlessCompanions(database_->handle, path); // before the engine reads the file
        if (!writes) requireNoLog(database_->handle, path);
        installFunctions(database_->handle);
        installCollector(database_->handle, &database_->collecting);
        requireHarmlessSchema(database_->handle, path, own_);
        requireWhole(database_->handle, path);
        // One file at rest, on the disk with each commit, which is one once the journal's name is gone from the disk.
        // Last, as it writes where the file was used otherwise before.
        if (writes) database_->run("pragma journal_mode = delete; pragma synchronous = extra");
        database_->changes.install(database_->handle);
        database_->watch.install(database_->handle);
    } catch (...) {
        close();
        throw;
    }
}

void Connection::close()
{
    database_->close();
}

int Connection::state() const
{
    if (!database_->handle) return Closed;
    return database_->executing ? Executing : Open;
}

QString Connection::dataSource() const
{
    return database_->path;
}

int Connection::execute(const QString& statement)
{
    database_->requireOpen();
    if (!isSelect(statement)) database_->dropAbandoned();
    return run(translate(statement, database_->handle, &database_->prepared), {});
}

int Connection::execute(const NativeSql& statement)
{
    database_->requireOpen();
    if (!isSelect(statement.sql)) database_->dropAbandoned();
    return run(checked(statement), statement.values);
}

int Connection::run(const QString& sql, const QVariantList& values)
{
    Statement prepared(*database_, sql);
    prepared.bindAll(values);
    const QScopedValueRollback executing(database_->executing, true);
    const auto before = sqlite3_total_changes64(database_->handle);
    while (prepared.step()) {
    }
    return int(sqlite3_total_changes64(database_->handle) - before);
}

void Connection::onLongStatement(StatementGoesOn goesOn, std::function<void()> over)
{
    database_->watch.goesOn = std::move(goesOn);
    database_->watch.over = std::move(over);
}

void Connection::beginTrans()
{
    database_->begin();
}

void Connection::commitTrans()
{
    database_->end(true);
}

void Connection::rollbackTrans()
{
    database_->end(false);
}

int Connection::transactionLevel() const
{
    return database_->level;
}

void Connection::abandonAbove(int level)
{
    if (database_->level > level) database_->abandoned = std::max(database_->abandoned, database_->level - level);
}

// Virtual tables have no pages of their own, and their modules aren't there.
QStringList Connection::tables() const
{
    return names(*database_, QStringLiteral("select name from sqlite_master where type = 'table' and rootpage > 0 and "
                                            "name not like 'sqlite!_%' escape '!' order by rowid"));
}

QList<Connection::Column> Connection::columns() const
{
    QList<Column> result;
    for (const QString& table : tables()) {
        Statement statement(*database_, QStringLiteral("select name, type from pragma_table_info(?)"));
        statement.bind(1, table);
        while (statement.step()) {
            const auto text = [&](int column) {
                return QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(statement.handle(), column)));
            };
            result << Column{table, text(0), text(1)};
        }
    }
    return result;
}

void Connection::copyTo(const QString& path) const
{
    database_->requireOpen();
    database_->dropAbandoned(); // it may lock the file
    copyDatabase(database_->handle, database_->path, path);
}

bool Connection::hasMoved() const
{
    database_->requireOpen();
    return jet::hasMoved(database_->handle);
}

bool Connection::copyPages(const QString& draft, const QString& target, std::chrono::milliseconds time) const
{
    database_->requireOpen();
    const bool whole = jet::copyPages(database_->handle, draft, database_->path, target, time);
    if (!whole) sqlite3_busy_timeout(database_->handle, patientMilliseconds);
    return whole;
}

void Connection::setObserver(Observer observer)
{
    database_->observer = std::move(observer);
}

sqlite3* Connection::handle() const
{
    return database_->handle;
}

RoutineScope::RoutineScope(Connection& connection) : connection_(connection), level_(connection.transactionLevel()) {}

RoutineScope::~RoutineScope()
{
    connection_.abandonAbove(level_);
}

} // namespace jet
