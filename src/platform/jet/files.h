// The files of BDPs: what is asked of them before they are opened, made or replaced.
#pragma once

#include <QString>

#include <sqlite3.h>

#include <memory>

namespace jet {

class Claim;

struct CloseEngine
{
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Engine = std::unique_ptr<sqlite3, CloseEngine>;

// Throws fileNotFound, pathNotFound (also for a name that can't be read) or engineFailure (a folder).
void requireFile(const QString& path);

// As requireFile(), and permissionDenied, also for the folder that the file stands in. What nobody may write counts as
// read-only for the superuser, too.
void requireWritableFile(const QString& path);

enum class Access
{
    ReadOnly,
    ReadWrite
};

// Opens the engine on the file, exactly that of the path. Throws Error; nothing is left open then.
sqlite3* openEngine(const QString& path, Access access);

// Throws engineFailure where the file is shorter than its header says, if only by a byte: the engine itself would find
// that out at the first row that is missing.
void requireWhole(sqlite3* database, const QString& path);

// Claims the file. Throws engineFailure where another program has it open; where that can't be told, nothing is
// claimed.
void requireUnused(const QString& path, Claim& claim);

// Whether a file can be made at `path`, in place of one that stands there, which is claimed until the place is taken.
// Throws pathNotFound, permissionDenied, or engineFailure for a file that another program is using.
// Precondition: no link stands at `path`, and no connection of this program has it open.
void requireTarget(const QString& path, Claim& claim);

} // namespace jet
