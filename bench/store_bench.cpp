// Creating a BDP from the full reference data, beside the bare engine inserting the same rows into the same tables.
#include "platform/desktop/desktop.h"
#include "store/modBD.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>
#include <sys/resource.h>

#include <string>
#include <vector>

namespace {

void createByProgram(const QString& path)
{
    Desktop::setProgramFolder(ORV_DATA_DIR);
    EscreveBDP(path);
}

struct Table
{
    std::string insert;
    int columns = 0;
    std::vector<std::string> values; // row by row
};

struct Contents
{
    std::vector<std::string> schema;
    std::vector<Table> tables;
};

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

Table tableOf(sqlite3* database, const std::string& name)
{
    Table table;
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

// What a BDP made by the program holds: the columns that the data files set, and their rows.
Contents contentsOf(const QString& path)
{
    Contents contents;
    sqlite3* database = nullptr;
    sqlite3_open(path.toUtf8().constData(), &database);
    contents.schema = texts(database, "select sql from sqlite_master where sql is not null");
    for (const std::string& name : texts(database, "select name from sqlite_master where type = 'table'")) {
        Table table = tableOf(database, name);
        if (table.columns > 0) contents.tables.push_back(std::move(table));
    }
    sqlite3_close(database);
    return contents;
}

void createByEngine(const QString& path, const Contents& contents)
{
    sqlite3* database = nullptr;
    sqlite3_open(path.toUtf8().constData(), &database);
    sqlite3_exec(database, "begin", nullptr, nullptr, nullptr);
    for (const std::string& sql : contents.schema)
        sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
    for (const Table& table : contents.tables) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database, table.insert.c_str(), -1, &statement, nullptr);
        for (std::size_t at = 0; at < table.values.size();) {
            for (int i = 0; i < table.columns; ++i, ++at)
                sqlite3_bind_text(statement, i + 1, table.values[at].data(), int(table.values[at].size()),
                                  SQLITE_STATIC);
            sqlite3_step(statement);
            sqlite3_reset(statement);
        }
        sqlite3_finalize(statement);
    }
    sqlite3_exec(database, "commit", nullptr, nullptr, nullptr);
    sqlite3_close(database);
}

long peakKilobytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void CreatingABdpByTheBareEngine(benchmark::State& state)
{
    const QTemporaryDir folder;
    createByProgram(folder.filePath("model.orv"));
    const Contents contents = contentsOf(folder.filePath("model.orv"));
    for ([[maybe_unused]] auto turn : state) {
        const QString path = folder.filePath("bare.orv");
        createByEngine(path, contents);
        state.PauseTiming();
        QFile::remove(path);
        state.ResumeTiming();
    }
}

// Also tells by how much the peak of the memory grew from the first to the last of the runs.
void CreatingABdp(benchmark::State& state)
{
    const QTemporaryDir folder;
    createByProgram(folder.filePath("first.orv"));
    const long before = peakKilobytes();
    for ([[maybe_unused]] auto turn : state) {
        const QString path = folder.filePath("nova.orv");
        createByProgram(path);
        state.PauseTiming();
        QFile::remove(path);
        state.ResumeTiming();
    }
    state.counters["kB_grown"] = double(peakKilobytes() - before);
}

BENCHMARK(CreatingABdpByTheBareEngine)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CreatingABdp)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
