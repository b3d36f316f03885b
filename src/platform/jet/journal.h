// What lies beside a file when it is opened. The engine plays a journal back into the file, whoever has put it there.
#pragma once

#include <QString>

struct sqlite3;

namespace jet {

// Throws engineFailure, naming what stands there, where the journal beside the file is none that a killed program of
// the file can have left: no regular file, one that names a further journal, or one whose pages, page size or first
// page aren't those of the file; and where a write-ahead log lies there, as the system leaves none. Nothing is touched,
// and a pipe isn't waited for.
// Precondition: nothing was read through the handle yet; no connection of this program is in a transaction on the file.
void requireHarmlessCompanions(sqlite3* database, const QString& path);

// Throws engineFailure where the file is used with a write-ahead log: who reads such a one makes files beside it.
void requireNoLog(sqlite3* database, const QString& path);

} // namespace jet
