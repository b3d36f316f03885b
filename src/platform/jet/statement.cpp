#include "platform/jet/statement.h"

#include "platform/jet/date.h"
#include "platform/jet/errors.h"

#include <sqlite3.h>

#include <utility>

namespace jet {

Statement::Statement(Database& database, const QString& sql) : sql_(sql)
{
    database.requireOpen();
    Prepared prepared = database.prepared.take(sql);
    kept_ = prepared.statement;
    if (!kept_) {
        const QByteArray utf8 = sql.toUtf8();
        const int code = sqlite3_prepare_v3(database.handle, utf8.constData(), int(utf8.size()) + 1,
                                            SQLITE_PREPARE_PERSISTENT, &prepared.statement, nullptr);
        if (code != SQLITE_OK) database.fail(code);
    }
    writes_ = !sqlite3_stmt_readonly(prepared.statement);
    heard_ = writes_ && Changes::hearsRowsOf(sql);
    enlist(&database, std::move(prepared));
}

Statement::Statement(Statement&& other) noexcept
{
    *this = std::move(other);
}

Statement& Statement::operator=(Statement&& other) noexcept
{
    if (this == &other) return *this;
    finalize();
    Database* database = other.database_;
    Prepared prepared = other.release();
    running_ = std::exchange(other.running_, false);
    sql_ = std::move(other.sql_);
    kept_ = other.kept_;
    writes_ = other.writes_;
    heard_ = other.heard_;
    if (prepared.statement) database->statements.erase(&other);
    enlist(database, std::move(prepared));
    return *this;
}

void Statement::enlist(Database* database, Prepared prepared)
{
    database_ = database;
    prepared_ = std::move(prepared);
    if (handle()) database->statements.insert(this);
}

Prepared Statement::release()
{
    return std::exchange(prepared_, {});
}

const std::vector<ResultColumn>& Statement::columns()
{
    if (!handle()) throw connectionClosed();
    const int readAnew = sqlite3_stmt_status(handle(), SQLITE_STMTSTATUS_REPREPARE, 0);
    if (std::exchange(prepared_.described, readAnew) == readAnew) return prepared_.columns;
    prepared_.columns.clear();
    for (int i = 0; i < sqlite3_column_count(handle()); ++i)
        prepared_.columns.push_back({QString::fromUtf8(sqlite3_column_name(handle(), i)),
                                     typeOf(QString::fromUtf8(sqlite3_column_decltype(handle(), i))),
                                     QString::fromUtf8(sqlite3_column_table_name(handle(), i)),
                                     QString::fromUtf8(sqlite3_column_origin_name(handle(), i))});
    return prepared_.columns;
}

void Statement::bind(int parameter, const QVariant& value)
{
    if (!handle()) throw connectionClosed();
    int code = SQLITE_OK;
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        code = sqlite3_bind_null(handle(), parameter);
        break;
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        code = sqlite3_bind_int64(handle(), parameter, value.toLongLong());
        break;
    case QMetaType::Double:
        code = sqlite3_bind_double(handle(), parameter, value.toDouble());
        break;
    case QMetaType::QDate:
        return bind(parameter, value.toDate().isValid() ? QVariant(storedDate(value.toDate())) : QVariant());
    case QMetaType::QString: {
        const QByteArray utf8 = value.toString().toUtf8();
        code = sqlite3_bind_text(handle(), parameter, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
        break;
    }
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        code = sqlite3_bind_blob(handle(), parameter, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
        break;
    }
    default:
        throw Error{number::typeMismatch, QStringLiteral("Um valor do tipo \"%1\" não pode ir numa instrução.")
                                              .arg(QString::fromLatin1(value.typeName()))};
    }
    if (code != SQLITE_OK) database_->fail(code);
}

void Statement::bindAll(const QVariantList& values)
{
    if (!handle()) throw connectionClosed();
    const int wanted = sqlite3_bind_parameter_count(handle());
    if (wanted != values.size())
        throw invalidStatement(
            QStringLiteral("A instrução leva %1 valor(es), mas foram dados %2.").arg(wanted).arg(values.size()));
    for (int i = 0; i < wanted; ++i)
        bind(i + 1, values[i]);
}

void Statement::bringUpToDate()
{
    if (!std::exchange(kept_, false)) return;
    step();
    reset();
}

bool Statement::step()
{
    if (!handle()) throw connectionClosed();
    if (!running_) {
        if (writes_) {
            database_->readRests();
            database_->beforeWrite();
        }
        database_->watch.begin();
        running_ = true;
    }
    const int code = sqlite3_step(handle());
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) {
        if (writes_) database_->changes.statementEnds(heard_);
        end();
        return false;
    }
    try {
        database_->fail(code);
    } catch (...) {
        reset();
        throw;
    }
}

void Statement::reset()
{
    if (handle()) sqlite3_reset(handle());
    end();
}

void Statement::end()
{
    if (std::exchange(running_, false)) database_->watch.end();
}

void Statement::finalize()
{
    if (!handle()) return;
    database_->statements.erase(this);
    database_->prepared.keep(sql_, release());
    end();
}

} // namespace jet
