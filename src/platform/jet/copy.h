// Copies of a BDP, page by page.
#pragma once

#include <QString>

#include <atomic>
#include <chrono>

struct sqlite3;

namespace jet {

// Whether the file under the path that the engine has opened is another one by now, or has gone.
bool hasMoved(sqlite3* database);

// A copy of the committed state, as Connection::copyTo() promises it, of the file that `database` has open by the path
// `source`.
void copyDatabase(sqlite3* database, const QString& source, const QString& target);

// Copies what `from` sees into the empty file `copy`, which nobody else has open, and syncs nothing. Gives up as
// soon as it is clear that this takes longer than that time, and returns false then. Throws Error, naming `source` or
// `target`, whichever has failed.
bool copyPages(sqlite3* from, const QString& copy, const QString& source, const QString& target,
               std::chrono::milliseconds time = std::chrono::milliseconds::max());

// The same from the file `source` by a connection of its own, in steps between which the file is free for its writers;
// a write begins the copy anew. Returns false once `stop` is set. For a thread of its own.
bool copyInSteps(const QString& source, const QString& copy, const QString& target, const std::atomic<bool>& stop);

} // namespace jet
