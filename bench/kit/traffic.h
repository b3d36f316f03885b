// Counts what a work asks of a connection.
#pragma once

#include "kit/result.h"

#include <QStringList>

#include <functional>

struct sqlite3;

namespace bench {

// Runs the work, and counts the statements and rows of that connection meanwhile. Counting slows it: no time is taken
// of a work that is counted. Without a connection nothing is counted.
Traffic trafficOf(sqlite3* database, const std::function<void()>& work);

// The texts of the statements that the work sends.
QStringList statementsOf(sqlite3* database, const std::function<void()>& work);

} // namespace bench
