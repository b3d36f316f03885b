// The files of BDPs: opening, making, removing, copying them.
#pragma once

#include <QString>

struct sqlite3;

namespace jet {

// Throws fileNotFound, pathNotFound, engineFailure (a folder) or permissionDenied, also for the folder that the file
// stands in. What nobody may write counts as read-only for the superuser, too.
void requireWritableFile(const QString& path);

enum class Access
{
    ReadOnly,
    ReadWrite,
    Create
};

// Opens the engine on the file, exactly that of the path. Throws Error; nothing is left open then.
sqlite3* openEngine(const QString& path, Access access);

// Throws engineFailure where the file is shorter than its header says, if only by a byte: the engine itself would find
// that out at the first row that is missing.
void requireWhole(sqlite3* database, const QString& path);

// A copy of the committed state of `source`, as Connection::copyTo() promises it.
void copyDatabase(const QString& source, const QString& target);

} // namespace jet
