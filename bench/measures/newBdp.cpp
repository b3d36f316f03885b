#include "measures/newBdp.h"

#include <sqlite3.h>

#include <utility>

namespace bench {

namespace {

std::vector<std::string> texts(sqlite3* database, const std::string& select)
{
    std::vector<std::string> result;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, select.c_str(), -1, &statement, nullptr);
    const int columns = sqlite3_column_count(statement);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int i = 0; i < columns; ++i) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            result.emplace_back(text ? text : "");
        }
    }
    sqlite3_finalize(statement);
    return result;
}

bool isEmpty(sqlite3* database, const std::string& table, const std::string& column)
{
    return texts(database, "select count(" + column + ") from " + table).front() == "0";
}

NewBdp::Table tableOf(sqlite3* database, const std::string& name)
{
    NewBdp::Table table;
    std::string columns, places;
    for (const std::string& column : texts(database, "select name from pragma_table_info('" + name + "')")) {
        if (isEmpty(database, name, column)) continue;
        columns += (columns.empty() ? "" : ",") + column;
        places += table.columns++ ? ",?" : "?";
    }
    if (table.columns == 0) return table;
    table.insert = "insert into " + name + " (" + columns + ") values (" + places + ")";
    table.values = texts(database, "select " + columns + " from " + name);
    return table;
}

void insertRows(sqlite3* database, const NewBdp::Table& table)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, table.insert.c_str(), -1, &statement, nullptr);
    for (std::size_t at = 0; at < table.values.size();) {
        for (int i = 0; i < table.columns; ++i, ++at)
            sqlite3_bind_text(statement, i + 1, table.values[at].data(), int(table.values[at].size()), SQLITE_STATIC);
        sqlite3_step(statement);
        sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
}

} // namespace

NewBdp contentsOf(const QString& path)
{
    NewBdp contents;
    sqlite3* database = nullptr;
    sqlite3_open(path.toUtf8().constData(), &database);
    contents.schema = texts(database, "select sql from sqlite_master where sql is not null");
    for (const std::string& name : texts(database, "select name from sqlite_master where type = 'table'")) {
        NewBdp::Table table = tableOf(database, name);
        if (table.columns > 0) contents.tables.push_back(std::move(table));
    }
    sqlite3_close(database);
    return contents;
}

void writeContents(const NewBdp& contents, const QString& path)
{
    sqlite3* database = nullptr;
    sqlite3_open(path.toUtf8().constData(), &database);
    sqlite3_exec(database, "begin", nullptr, nullptr, nullptr);
    for (const std::string& sql : contents.schema)
        sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
    for (const NewBdp::Table& table : contents.tables)
        insertRows(database, table);
    sqlite3_exec(database, "commit", nullptr, nullptr, nullptr);
    sqlite3_close(database);
}

} // namespace bench
