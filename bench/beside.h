// Doing a work twice, through the program and through the bare engine, in the same run.
#pragma once

#include <QByteArray>

#include <benchmark/benchmark.h>

#include <functional>

struct sqlite3;

// Does both works in turn, counts the time of the first one, and tells how many times that of the second one it takes.
void compare(benchmark::State& state, const std::function<void()>& ours, const std::function<void()>& bare);

// Reads all rows of a statement, column by column, as text.
void readAll(sqlite3* database, const QByteArray& select);
