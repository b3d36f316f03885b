#include "platform/jet/files.h"

#include "platform/jet/connection.h"
#include "platform/jet/errors.h"
#include "platform/jet/guard.h"

#include <QFileInfo>
#include <QTemporaryFile>

#include <sqlite3.h>

#include <filesystem>
#include <memory>

namespace jet {

namespace {

namespace fs = std::filesystem;

constexpr int busyMilliseconds = 250;

fs::path nativePath(const QString& path)
{
    const QByteArray utf8 = path.toUtf8(); // which has a place holder for what is no character
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

bool isWritable(const fs::file_status& status)
{
    constexpr auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (status.permissions() & write) != fs::perms::none;
}

Error denied(const QString& path)
{
    return {number::permissionDenied, QStringLiteral("Não é permitido escrever no ficheiro \"%1\".").arg(path)};
}

// The folder that the file stands or would stand in.
fs::file_status requireFolderOf(const QString& path)
{
    std::error_code ignored;
    const fs::file_status status = fs::status(fs::absolute(nativePath(path), ignored).parent_path(), ignored);
    if (!fs::is_directory(status))
        throw Error{number::pathNotFound, QStringLiteral("A pasta do ficheiro \"%1\" não existe.").arg(path)};
    return status;
}

void requireWritableFolderOf(const QString& path)
{
    [[maybe_unused]] const fs::file_status status = requireFolderOf(path);
#ifdef Q_OS_UNIX // elsewhere the mark says nothing about a folder
    if (!isWritable(status) || !QFileInfo(QFileInfo(path).absolutePath()).isWritable())
        throw Error{number::permissionDenied,
                    QStringLiteral("Não é permitido escrever na pasta do ficheiro \"%1\".").arg(path)};
#endif
}

struct CloseEngine
{
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Engine = std::unique_ptr<sqlite3, CloseEngine>;

void run(const Engine& engine, const char* sql, const QString& path)
{
    const int code = sqlite3_exec(engine.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) throw engineError(engine.get(), code, path);
}

// Throws engineFailure where another program is at work on the file, which is to be replaced. What is no database is
// in nobody's hands. The locks alone are looked at: a journal beside the file would be played back by a transaction.
void requireUnlocked(const QString& path)
{
    const Engine engine(openEngine(path, Access::ReadWrite));
    sqlite3_file* file = nullptr;
    sqlite3_file_control(engine.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    for (int waited = 0;; waited += sqlite3_sleep(busyMilliseconds / 10)) {
        int code = file->pMethods->xLock(file, SQLITE_LOCK_SHARED);
        if (code == SQLITE_OK) code = file->pMethods->xLock(file, SQLITE_LOCK_EXCLUSIVE);
        file->pMethods->xUnlock(file, SQLITE_LOCK_NONE);
        if ((code & 0xff) != SQLITE_BUSY) return;
        if (waited >= busyMilliseconds) throw engineError(nullptr, SQLITE_BUSY, path);
    }
}

// Of a copy: whether it is the new file that failed.
bool failedInWriting(int code)
{
    const bool reading = code == SQLITE_IOERR_READ || code == SQLITE_IOERR_SHORT_READ;
    return (code & 0xff) == SQLITE_FULL || ((code & 0xff) == SQLITE_IOERR && !reading);
}

// What the engine may leave beside a file when its program is killed.
void removeCompanions(const QString& path)
{
    std::error_code ignored;
    for (const char* suffix : {"-journal", "-wal", "-shm"})
        fs::remove(nativePath(path + QLatin1String(suffix)), ignored);
}

} // namespace

void requireWritableFile(const QString& path)
{
    std::error_code ignored;
    const fs::file_status status = fs::status(nativePath(path), ignored);
    if (!fs::exists(status)) {
        requireFolderOf(path);
        throw Error{number::fileNotFound, QStringLiteral("O ficheiro \"%1\" não existe.").arg(path)};
    }
    if (fs::is_directory(status))
        throw Error{number::engineFailure, QStringLiteral("\"%1\" é uma pasta, não uma BDP.").arg(path)};
    if (!fs::is_regular_file(status))
        throw Error{number::engineFailure, QStringLiteral("O ficheiro \"%1\" não é uma BDP.").arg(path)};
    if (!isWritable(status)) throw denied(path);
    requireWritableFolderOf(QFileInfo(path).canonicalFilePath()); // behind a link: the journal stands there
}

sqlite3* openEngine(const QString& path, Access access)
{
    int flags = SQLITE_OPEN_READWRITE;
    if (access == Access::ReadOnly)
        flags = SQLITE_OPEN_READONLY;
    else if (access == Access::Create)
        flags |= SQLITE_OPEN_CREATE;
    // The absolute path keeps the engine from seeing more than a file in names such as ":memory:".
    const auto absolute = fs::absolute(nativePath(path)).u8string();
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(reinterpret_cast<const char*>(absolute.c_str()), &database, flags, nullptr);
    Engine engine(database);
    if (code != SQLITE_OK) throw engineError(nullptr, code, path);
    // Opened read-only where read and write were asked for: the system doesn't let us write.
    if (access != Access::ReadOnly && sqlite3_db_readonly(database, "main") == 1) throw denied(path);
    sqlite3_extended_result_codes(database, 1);
    sqlite3_busy_timeout(database, busyMilliseconds);
    guardEngine(database);
    return engine.release();
}

void requireWhole(sqlite3* database, const QString& path)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "select page_count * page_size from pragma_page_count, pragma_page_size", -1,
                       &statement, nullptr);
    const int code = sqlite3_step(statement);
    const auto expected = code == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : 0;
    sqlite3_finalize(statement);
    std::error_code ignored;
    const auto size = sqlite3_int64(fs::file_size(nativePath(path), ignored));
    if (code != SQLITE_ROW || size < expected || (size > 0 && expected == 0))
        throw engineError(nullptr, SQLITE_CORRUPT, path);
}

void createDatabase(const QString& path)
{
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(nativePath(path), ignored)))
        throw Error{number::fileExists, QStringLiteral("O ficheiro \"%1\" já existe.").arg(path)};
    requireWritableFolderOf(path);
    removeCompanions(path);
    const Engine engine(openEngine(path, Access::Create));
    // Writes the header. Nothing can be lost with it yet: a file that a power cut leaves empty is a database too.
    run(engine, "pragma synchronous = off; pragma user_version = 0", path);
}

void requireReplaceable(const QString& path)
{
    requireWritableFile(path);
    requireWritableFolderOf(path);
    requireUnlocked(path);
}

void replaceDatabase(const QString& made, const QString& path)
{
    requireReplaceable(path);
    removeCompanions(path); // they belong to the file that goes: the engine would play them back into the new one
    std::error_code error;
    fs::rename(nativePath(made), nativePath(path), error);
    if (error) throw denied(path);
}

void copyDatabase(const QString& source, const QString& target)
{
    const fs::path to = nativePath(target);
    std::error_code error;
    if (fs::equivalent(nativePath(source), to, error))
        throw Error{number::permissionDenied,
                    QStringLiteral("\"%1\" é a BDP aberta: não pode ser copiada sobre si própria.").arg(target)};
    requireWritableFolderOf(target);
    const fs::file_status status = fs::status(to, error);
    if (fs::exists(status)) {
        if (!fs::is_regular_file(status) || !isWritable(status)) throw denied(target);
        requireUnlocked(target);
    }

    QTemporaryFile temporary(target + QStringLiteral(".XXXXXX"));
    if (!temporary.open()) throw denied(target);
    {
        const Engine from(openEngine(source, Access::ReadOnly));
        const Engine copy(openEngine(temporary.fileName(), Access::ReadWrite));
        run(copy, "pragma journal_mode = memory; pragma synchronous = full", target);
        sqlite3_backup* backup = sqlite3_backup_init(copy.get(), "main", from.get(), "main");
        if (backup) sqlite3_backup_step(backup, -1);
        const int code = backup ? sqlite3_backup_finish(backup) : sqlite3_extended_errcode(copy.get());
        if (code != SQLITE_OK) throw engineError(copy.get(), code, failedInWriting(code) ? target : source);
    }
    const fs::path made = nativePath(temporary.fileName());
    fs::permissions(made, fs::status(nativePath(source)).permissions(), error);
    temporary.close();
    removeCompanions(target); // as in replaceDatabase()
    fs::rename(made, to, error);
    if (error) throw denied(target);
    temporary.setAutoRemove(false);
}

} // namespace jet
