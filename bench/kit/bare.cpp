#include "kit/bare.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <utility>

namespace bench {

namespace {

volatile double sink; // so that no reading is left out

void readColumn(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        sink = static_cast<double>(sqlite3_column_int64(statement, column));
        break;
    case SQLITE_FLOAT:
        sink = sqlite3_column_double(statement, column);
        break;
    case SQLITE_NULL:
        break;
    default:
        sink = sqlite3_column_text(statement, column)[0] + sqlite3_column_bytes(statement, column);
    }
}

void bindText(sqlite3_stmt* statement, int at, const char* text, int bytes)
{
    sqlite3_bind_text(statement, at, text, bytes, SQLITE_STATIC);
}

void bind(sqlite3_stmt* statement, int at, const Value& value)
{
    if (const auto* number = std::get_if<double>(&value))
        sqlite3_bind_double(statement, at, *number);
    else if (const auto* text = std::get_if<const char*>(&value))
        bindText(statement, at, *text, -1);
    else if (const auto* bytes = std::get_if<QByteArray>(&value))
        bindText(statement, at, bytes->constData(), static_cast<int>(bytes->size()));
    else
        sqlite3_bind_null(statement, at);
}

int stepAll(sqlite3_stmt* statement, const std::function<void()>& row)
{
    int rows = 0;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
        ++rows;
        row();
    }
    return code == SQLITE_DONE ? rows : -1;
}

} // namespace

sqlite3* openBare(const QString& path)
{
    sqlite3* database = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &database,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK ||
        sqlite3_exec(database, "pragma journal_mode = delete; pragma synchronous = extra", nullptr, nullptr, nullptr) !=
            SQLITE_OK)
    {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), sqlite3_errmsg(database));
        std::abort();
    }
    return database;
}

Bare::Bare(const QString& path) : database_(openBare(path)) {}

Bare::~Bare()
{
    for (const auto& [sql, statement] : prepared_)
        sqlite3_finalize(statement);
    sqlite3_close(database_);
}

void Bare::fail(const char* sql) const
{
    std::fprintf(stderr, "%s: %s\n", sqlite3_errmsg(database_), sql);
    std::abort();
}

sqlite3_stmt* Bare::bound(const char* sql, std::initializer_list<Value> values)
{
    sqlite3_stmt*& statement = prepared_[sql];
    if (!statement &&
        sqlite3_prepare_v3(database_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        fail(sql);
    int at = 0;
    for (const Value& value : values)
        bind(statement, ++at, value);
    return statement;
}

int Bare::run(const char* sql, std::initializer_list<Value> values)
{
    sqlite3_stmt* statement = bound(sql, values);
    const int columns = sqlite3_column_count(statement);
    const int rows = stepAll(statement, [&] {
        for (int column = 0; column < columns; ++column)
            readColumn(statement, column);
    });
    if (rows < 0) fail(sql);
    sqlite3_reset(statement);
    return rows;
}

double Bare::number(const char* sql, std::initializer_list<Value> values)
{
    sqlite3_stmt* statement = bound(sql, values);
    double result = 0;
    if (stepAll(statement, [&] { result = sqlite3_column_double(statement, 0); }) < 0) fail(sql);
    sqlite3_reset(statement);
    return result;
}

QByteArray Bare::text(const char* sql, std::initializer_list<Value> values)
{
    sqlite3_stmt* statement = bound(sql, values);
    const int columns = sqlite3_column_count(statement);
    QByteArray result;
    const int rows = stepAll(statement, [&] {
        for (int column = 0; column < columns; ++column)
            result.append(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                          sqlite3_column_bytes(statement, column));
    });
    if (rows < 0) fail(sql);
    sqlite3_reset(statement);
    return result;
}

void Bare::execute(const QByteArray& statements)
{
    if (sqlite3_exec(database_, statements.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(statements.constData());
}

} // namespace bench
