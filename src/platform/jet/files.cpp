#include "platform/jet/files.h"

#include "platform/jet/claim.h"
#include "platform/jet/connection.h"
#include "platform/jet/disk.h"
#include "platform/jet/draft.h"
#include "platform/jet/errors.h"
#include "platform/jet/guard.h"

#include <QFileInfo>

#include <sqlite3.h>

namespace jet {

namespace {

namespace fs = std::filesystem;

constexpr int busyMilliseconds = 250;

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

void writeHeader(const QString& path)
{
    const Engine engine(openEngine(path, Access::ReadWrite));
    run(engine, "pragma synchronous = off; pragma user_version = 0", path);
}

// Another file may have the name that a place holder makes of it.
void requireReadableName(const QString& path)
{
    if (path.isValidUtf16() && !path.contains(QChar::ReplacementCharacter) && !path.contains(QChar::Null)) return;
    throw Error{
        number::pathNotFound,
        QStringLiteral("O nome \"%1\" tem caracteres que o programa não sabe ler. Mude o nome do ficheiro, ou o "
                       "da pasta onde ele está, e tente de novo.")
            .arg(QString(path).remove(QChar::Null))};
}

fs::file_status statusOfFile(const QString& path)
{
    requireReadableName(path);
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
    return status;
}

void claimReplaceable(const QString& path, Claim& claim)
{
    requireWritableFile(path);
    requireTarget(behindLinks(path), claim);
}

} // namespace

void requireFile(const QString& path)
{
    (void)statusOfFile(path);
}

void requireWritableFile(const QString& path)
{
    if (!isWritable(statusOfFile(path))) throw denied(path);
    requireWritableFolderOf(QFileInfo(path).canonicalFilePath()); // behind a link: the journal stands there
}

sqlite3* openEngine(const QString& path, Access access)
{
    // No handle is used by two threads: the copy of the day is made with handles of its own.
    const int flags = SQLITE_OPEN_NOMUTEX | (access == Access::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE);
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
    // No select: a file may hold tables of the names that it would read.
    const auto measure = [&](const char* pragma) -> sqlite3_int64 {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database, pragma, -1, &statement, nullptr);
        const sqlite3_int64 value = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : -1;
        sqlite3_finalize(statement);
        return value;
    };
    const sqlite3_int64 pages = measure("pragma page_count");
    const sqlite3_int64 expected = pages * measure("pragma page_size");
    std::error_code ignored;
    const auto size = sqlite3_int64(fs::file_size(nativePath(path), ignored));
    if (pages < 0 || size < expected || (size > 0 && expected == 0)) throw engineError(nullptr, SQLITE_CORRUPT, path);
}

void requireUnused(const QString& path, Claim& claim)
{
    if (claim.take(path) == Claim::Outcome::Held)
        throw Error{number::engineFailure,
                    QStringLiteral("O ficheiro \"%1\" já está aberto noutro programa, ou noutra janela do ORV. Feche-o "
                                   "lá primeiro.")
                        .arg(path)};
}

void requireTarget(const QString& path, Claim& claim)
{
    requireReadableName(path);
    requireWritableFolderOf(path);
    std::error_code ignored;
    const fs::file_status status = fs::status(nativePath(path), ignored);
    if (!fs::exists(status)) return;
    if (!fs::is_regular_file(status) || !isWritable(status)) throw denied(path);
    requireUnused(path, claim);
    requireUnlocked(path);
}

void createDatabase(const QString& path, const Fill& fill)
{
    requireReadableName(path);
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(nativePath(path), ignored)))
        throw Error{number::fileExists, QStringLiteral("O ficheiro \"%1\" já existe.").arg(path)};
    requireWritableFolderOf(path);
    Draft draft(path);
    writeHeader(draft.path());
    try {
        if (fill) fill(draft.path());
    } catch (const Error&) {
        try {
            draft.place();
        } catch (const Error&) { // the first failure, such as a full disk, says more
        }
        throw;
    }
    draft.place();
}

void requireReplaceable(const QString& path)
{
    Claim claim;
    claimReplaceable(path, claim);
}

void replaceDatabase(const QString& path, const Fill& fill)
{
    requireReplaceable(path);
    Draft draft(behindLinks(path));
    writeHeader(draft.path());
    fill(draft.path());
    Claim claim;
    claimReplaceable(path, claim);
    draft.replace();
}

} // namespace jet
