// The results of many measures as a table in Markdown.
#pragma once

#include "kit/result.h"

#include <QString>

namespace bench {

// The two lines above the rows.
QString heading();

// One row: what the event takes in the program and on the bare side at each size, how many times as long, what the goal
// is, and "ok" or what is missed.
QString row(const QString& event, const Goal& goal, const Results& results);

// What both sides have asked of the engine and painted: a line of text for each size, for whoever doubts a measure.
QString details(const QString& event, const Results& results);

} // namespace bench
