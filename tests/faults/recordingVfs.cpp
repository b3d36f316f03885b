#include "recordingVfs.h"

#include "recorder.h"

#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace {

sqlite3_vfs* real = nullptr;

// The engine gives the memory for it: this, and behind it the real file.
struct File
{
    sqlite3_file base;
    sqlite3_file* below;
    QString* path; // null: a file without a name, which goes with its handle
    int file;
    bool syncsFolder; // the first sync of a new journal syncs its name, too
};

File& of(sqlite3_file* file)
{
    return *reinterpret_cast<File*>(file);
}

QString folderOf(const QString& path)
{
    return QFileInfo(path).path();
}

int closeFile(sqlite3_file* file)
{
    File& own = of(file);
    const int code = own.below->pMethods->xClose(own.below);
    delete own.path;
    own.path = nullptr;
    return code;
}

int readFile(sqlite3_file* file, void* buffer, int amount, sqlite3_int64 offset)
{
    File& own = of(file);
    switch (recorder().fault(Call::Read)) {
    case Fault::Error:
        return SQLITE_IOERR_READ;
    case Fault::Short: {
        const int half = amount / 2;
        own.below->pMethods->xRead(own.below, buffer, half, offset);
        std::memset(static_cast<char*>(buffer) + half, 0, size_t(amount - half));
        return SQLITE_IOERR_READ;
    }
    default:
        return own.below->pMethods->xRead(own.below, buffer, amount, offset);
    }
}

int writeSome(File& own, const void* buffer, int amount, sqlite3_int64 offset)
{
    const int code = own.below->pMethods->xWrite(own.below, buffer, amount, offset);
    if (code == SQLITE_OK && own.path)
        recorder().wrote(own.file, *own.path, offset, QByteArray(static_cast<const char*>(buffer), amount));
    return code;
}

int writeFile(sqlite3_file* file, const void* buffer, int amount, sqlite3_int64 offset)
{
    File& own = of(file);
    const Fault fault = recorder().fault(Call::Write);
    if (fault == Fault::None) return writeSome(own, buffer, amount, offset);
    if (fault != Fault::Error) writeSome(own, buffer, amount / 2, offset);
    return fault == Fault::Full ? SQLITE_FULL : SQLITE_IOERR_WRITE;
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size)
{
    File& own = of(file);
    const Fault fault = recorder().fault(Call::Truncate);
    if (fault == Fault::Error) return SQLITE_IOERR_TRUNCATE;
    const int code = own.below->pMethods->xTruncate(own.below, size);
    if (code == SQLITE_OK && own.path) recorder().truncated(own.file, *own.path, size);
    return fault == Fault::AfterWork ? SQLITE_IOERR_TRUNCATE : code;
}

int syncFile(sqlite3_file* file, int flags)
{
    File& own = of(file);
    const Fault fault = recorder().fault(Call::Sync);
    if (fault == Fault::Error) return SQLITE_IOERR_FSYNC;
    const int code = own.below->pMethods->xSync(own.below, flags);
    if (code == SQLITE_OK && own.path) {
        recorder().synced(own.file, *own.path);
        if (own.syncsFolder) recorder().syncedFolder(folderOf(*own.path));
        own.syncsFolder = false;
    }
    return fault == Fault::AfterWork ? SQLITE_IOERR_FSYNC : code;
}

int fileSize(sqlite3_file* file, sqlite3_int64* size)
{
    File& own = of(file);
    if (recorder().fault(Call::Size) != Fault::None) return SQLITE_IOERR_FSTAT;
    return own.below->pMethods->xFileSize(own.below, size);
}

int lockFile(sqlite3_file* file, int level)
{
    File& own = of(file);
    switch (recorder().fault(Call::Lock)) {
    case Fault::Error:
        return SQLITE_IOERR_LOCK;
    case Fault::Busy:
        return SQLITE_BUSY;
    default:
        return own.below->pMethods->xLock(own.below, level);
    }
}

int unlockFile(sqlite3_file* file, int level)
{
    File& own = of(file);
    return own.below->pMethods->xUnlock(own.below, level);
}

int checkReserved(sqlite3_file* file, int* reserved)
{
    File& own = of(file);
    return own.below->pMethods->xCheckReservedLock(own.below, reserved);
}

// Not passed on: a hint of the size and a chunk of growth, which would change the file past the record.
int controlFile(sqlite3_file* file, int operation, void* argument)
{
    File& own = of(file);
    if (operation == SQLITE_FCNTL_SIZE_HINT || operation == SQLITE_FCNTL_CHUNK_SIZE) return SQLITE_OK;
    return own.below->pMethods->xFileControl(own.below, operation, argument);
}

int sectorSize(sqlite3_file* file)
{
    File& own = of(file);
    return own.below->pMethods->xSectorSize(own.below);
}

int characteristics(sqlite3_file* file)
{
    File& own = of(file);
    return own.below->pMethods->xDeviceCharacteristics(own.below);
}

// Of the first version: no shared memory and no mapping, so nothing reaches the file past the record.
const sqlite3_io_methods methods{1,           closeFile,  readFile,        writeFile,  truncateFile,
                                 syncFile,    fileSize,   lockFile,        unlockFile, checkReserved,
                                 controlFile, sectorSize, characteristics, nullptr,    nullptr,
                                 nullptr,     nullptr,    nullptr,         nullptr};

int openFile(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* given)
{
    File* const made = new (file) File;
    File& own = *made;
    own.below = reinterpret_cast<sqlite3_file*>(&own + 1);
    own.file = -1;
    if (recorder().fault(Call::Open) != Fault::None) return SQLITE_CANTOPEN;
    const bool isNew = name && (flags & SQLITE_OPEN_CREATE) && !QFileInfo::exists(QString::fromUtf8(name));
    const int code = real->xOpen(real, name, own.below, flags, given);
    if (code != SQLITE_OK) {
        if (own.below->pMethods) own.below->pMethods->xClose(own.below);
        return code;
    }
    if (name) {
        own.path = new QString(QString::fromUtf8(name));
        own.file = recorder().opened(*own.path);
        own.syncsFolder = isNew && (flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_SUPER_JOURNAL | SQLITE_OPEN_WAL));
    }
    own.base.pMethods = &methods;
    return code;
}

int deleteFile(sqlite3_vfs*, const char* name, int syncsFolder)
{
    const Fault fault = recorder().fault(Call::Delete);
    if (fault == Fault::Error) return SQLITE_IOERR_DELETE;
    const int code = real->xDelete(real, name, syncsFolder);
    if (code == SQLITE_OK) {
        const QString path = QString::fromUtf8(name);
        recorder().unlinked(path);
        if (syncsFolder) recorder().syncedFolder(folderOf(path));
    }
    return fault == Fault::AfterWork ? SQLITE_IOERR_DIR_FSYNC : code;
}

int accessFile(sqlite3_vfs*, const char* name, int flags, int* result)
{
    if (recorder().fault(Call::Access) != Fault::None) return SQLITE_IOERR_ACCESS;
    return real->xAccess(real, name, flags, result);
}

int fullPath(sqlite3_vfs*, const char* name, int size, char* full)
{
    return real->xFullPathname(real, name, size, full);
}

// Nobody waits for a lock that a test has made up.
int sleepNot(sqlite3_vfs*, int microseconds)
{
    return microseconds;
}

} // namespace

void installRecordingVfs()
{
    real = sqlite3_vfs_find(nullptr);
    static sqlite3_vfs recording = *real;
    recording.zName = "recording";
    recording.szOsFile = int(sizeof(File)) + real->szOsFile;
    recording.pNext = nullptr;
    recording.xOpen = openFile;
    recording.xDelete = deleteFile;
    recording.xAccess = accessFile;
    recording.xFullPathname = fullPath;
    recording.xSleep = sleepNot;
    sqlite3_vfs_register(&recording, 1);
}

const char* realVfsName()
{
    return real ? real->zName : nullptr;
}
