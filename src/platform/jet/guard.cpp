#include "platform/jet/guard.h"

#include "platform/jet/functions.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace jet {

namespace {

struct Switch
{
    int option;
    int on;
};
constexpr Switch switches[]{
    {SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0}, // takes an address from a statement
    {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
    {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
    {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    {SQLITE_DBCONFIG_ENABLE_FKEY, 0}, // would delete and alter rows by itself
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    {SQLITE_DBCONFIG_DEFENSIVE, 1},
    {SQLITE_DBCONFIG_DQS_DML, 0}, // a name between double quotes is never a text
    {SQLITE_DBCONFIG_DQS_DDL, 0},
};

struct Limit
{
    int id;
    int value;
};
constexpr int megabyte = 1024 * 1024;
constexpr Limit limits[]{
    {SQLITE_LIMIT_LENGTH, 16 * megabyte},    // of a text and of a row: notes have 65,535 characters at most
    {SQLITE_LIMIT_SQL_LENGTH, 4 * megabyte}, // of a statement with such texts in it
    {SQLITE_LIMIT_EXPR_DEPTH, 200},          // a search has one level for each field that was filled
    {SQLITE_LIMIT_COMPOUND_SELECT, 100},     // the system has none; a view of another program is read with the schema
    {SQLITE_LIMIT_ATTACHED, 0},
    {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 1000}, // of the engine's own like and glob, whose time may grow with its power
    {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
    {SQLITE_LIMIT_WORKER_THREADS, 0},
};

template <size_t count>
bool isAmong(const std::array<std::string_view, count>& names, const char* name)
{
    return name && std::any_of(names.begin(), names.end(),
                               [&](std::string_view known) { return sqlite3_stricmp(known.data(), name) == 0; });
}

// What statements of the system and their translations call, the checks of columns, and what the engine itself calls
// where it adds a column.
constexpr auto known = std::to_array<std::string_view>({
    functions::comparedDate,
    functions::collect,
    "format",
    "cint",
    "first",
    "like",
    "count",
    "min",
    "max",
    "sum",
    "total",
    "avg",
    "group_concat",
    "abs",
    "round",
    "length",
    "lower",
    "upper",
    "trim",
    "ltrim",
    "rtrim",
    "substr",
    "instr",
    "replace",
    "coalesce",
    "ifnull",
    "nullif",
    "typeof",
    "date",
    "glob",
    "printf",
    "sqlite_rename_column",
    "sqlite_rename_table",
    "sqlite_rename_test",
    "sqlite_rename_quotefix",
    "sqlite_drop_column",
});

// Those that look.
constexpr auto questions = std::to_array<std::string_view>({
    "table_info",
    "table_xinfo",
    "page_count",
    "page_size",
    "data_version",
    "integrity_check",
    "quick_check",
});

// Those that set something of this connection; DEFENSIVE sees to it that no journal mode without a way back is set.
constexpr auto settings = std::to_array<std::string_view>({
    "journal_mode",
    "synchronous",
    "cache_size",
    "max_page_count",
    "user_version",
});

bool isPragmaAllowed(const char* name)
{
    return isAmong(questions, name) || isAmong(settings, name);
}

bool isPrefixed(const char* name, const char* prefix)
{
    return name && sqlite3_strnicmp(name, prefix, int(std::string_view(prefix).size())) == 0;
}

// Tables that the engine makes for itself tell it how to go about a statement: those of a file may mislead it.
bool isReadable(const char* table)
{
    static constexpr auto schema =
        std::to_array<std::string_view>({"sqlite_master", "sqlite_temp_master", "sqlite_schema", "sqlite_sequence"});
    return !isPrefixed(table, "sqlite_") || isAmong(schema, table);
}

bool isMain(const char* database)
{
    // Null: a table that is only counted. "temp" is where the engine looks for what an altered column may touch.
    return !database || sqlite3_stricmp(database, "main") == 0 || sqlite3_stricmp(database, "temp") == 0;
}

int authorize(void*, int action, const char* first, const char* second, const char* database, const char* inner)
{
    const auto only = [](bool allowed) { return allowed ? SQLITE_OK : SQLITE_DENY; };
    if (inner) return SQLITE_DENY; // the body of a trigger or a view
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
    case SQLITE_ALTER_TABLE:
    case SQLITE_REINDEX:
        return SQLITE_OK;
    case SQLITE_READ:
        return only(isMain(database) && isReadable(first));
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
    case SQLITE_CREATE_TABLE:
    case SQLITE_CREATE_INDEX:
        return only(isMain(database));
    case SQLITE_FUNCTION:
        return only(isAmong(known, second));
    case SQLITE_PRAGMA:
        return only(isPragmaAllowed(first));
    default:
        return SQLITE_DENY;
    }
}

} // namespace

void guardEngine(sqlite3* database)
{
    for (const Switch& each : switches)
        sqlite3_db_config(database, each.option, each.on, nullptr);
    for (const Limit& limit : limits)
        sqlite3_limit(database, limit.id, limit.value);
    // Without their modules there are no virtual tables. The function goes first, as it looks into one of them.
    for (const int arguments : {1, 2})
        sqlite3_create_function(database, "fts3_tokenizer", arguments, SQLITE_UTF8, nullptr, nullptr, nullptr, nullptr);
    sqlite3_drop_modules(database, nullptr);
    sqlite3_set_authorizer(database, authorize, nullptr);
}

} // namespace jet
