#include "beside.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

// Time of the processor, as other programs of the machine would count as ours in any other.
static double secondsOf(const std::function<void()>& work)
{
    const std::clock_t start = std::clock();
    work();
    return double(std::clock() - start) / CLOCKS_PER_SEC;
}

void compare(benchmark::State& state, const std::function<void()>& ours, const std::function<void()>& bare)
{
    ours(); // both start with a warm cache
    bare();
    double ourTime = 0;
    double bareTime = 0;
    for ([[maybe_unused]] auto turn : state) {
        const double time = secondsOf(ours);
        bareTime += secondsOf(bare);
        ourTime += time;
        state.SetIterationTime(time);
    }
    state.counters["ratio"] = ourTime / bareTime;
}

void readAll(sqlite3* database, const QByteArray& select)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, select, -1, &statement, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "%s: %s\n", sqlite3_errmsg(database), select.constData());
        std::abort(); // a measure of nothing
    }
    while (sqlite3_step(statement) == SQLITE_ROW)
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            benchmark::DoNotOptimize(sqlite3_column_text(statement, i));
    sqlite3_finalize(statement);
}
