#include "platform/jet/copy.h"

#include "platform/jet/claim.h"
#include "platform/jet/disk.h"
#include "platform/jet/draft.h"
#include "platform/jet/errors.h"
#include "platform/jet/files.h"

#include <sqlite3.h>

#include <utility>

namespace jet {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr int pagesAtOnce = 256; // a step holds the file for some milliseconds at most
constexpr auto rest = 2ms;       // and leaves it to its writer for as long

// Of a copy: whether it is the new file that failed.
bool failedInWriting(int code)
{
    const bool reading = code == SQLITE_IOERR_READ || code == SQLITE_IOERR_SHORT_READ;
    return (code & 0xff) == SQLITE_FULL || ((code & 0xff) == SQLITE_IOERR && !reading);
}

// One copy on its way.
class Copying
{
public:
    Copying(sqlite3* from, const QString& copy, const QString& source, const QString& target)
        : source_(source), target_(target), copy_(openEngine(copy, Access::ReadWrite))
    {
        // Nothing depends on the draft before it is whole; who places it syncs it.
        sqlite3_exec(copy_.get(), "pragma journal_mode = memory; pragma synchronous = off", nullptr, nullptr, nullptr);
        backup_ = sqlite3_backup_init(copy_.get(), "main", from, "main");
        if (!backup_) fail(sqlite3_extended_errcode(copy_.get()));
    }
    ~Copying() { sqlite3_backup_finish(backup_); }
    Copying(const Copying&) = delete;
    Copying& operator=(const Copying&) = delete;

    int step(int pages) { return sqlite3_backup_step(backup_, pages); }

    // After a step: whether all will be done in that time, by the pace so far, which the first moments don't tell.
    bool willEndWithin(Clock::duration time, Clock::duration spent) const
    {
        const int pages = sqlite3_backup_pagecount(backup_);
        const int done = pages - sqlite3_backup_remaining(backup_);
        return spent < time && (spent < time / 6 || spent * pages < time * done);
    }

    void finish()
    {
        const int code = sqlite3_backup_finish(std::exchange(backup_, nullptr));
        if (code != SQLITE_OK) fail(code);
    }

    [[noreturn]] void fail(int code)
    {
        throw engineError(copy_.get(), code, failedInWriting(code) ? target_ : source_);
    }

private:
    QString source_;
    QString target_;
    Engine copy_;
    sqlite3_backup* backup_ = nullptr;
};

bool isBusy(int code)
{
    return (code & 0xff) == SQLITE_BUSY || (code & 0xff) == SQLITE_LOCKED;
}

Error movedError(const QString& path)
{
    return engineError(nullptr, SQLITE_READONLY_DBMOVED, path);
}

} // namespace

bool hasMoved(sqlite3* database)
{
    int moved = 0;
    return sqlite3_file_control(database, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0;
}

bool copyPages(sqlite3* from, const QString& copy, const QString& source, const QString& target,
               std::chrono::milliseconds time)
{
    const bool limited = time != std::chrono::milliseconds::max();
    const auto start = Clock::now();
    Copying copying(from, copy, source, target);
    while (copying.step(limited ? pagesAtOnce : -1) == SQLITE_OK)
        if (!copying.willEndWithin(time, Clock::now() - start)) return false;
    copying.finish();
    return true;
}

bool copyInSteps(const QString& source, const QString& copy, const QString& target, const std::atomic<bool>& stop)
{
    const Engine from(openEngine(source, Access::ReadOnly));
    Copying copying(from.get(), copy, source, target);
    while (!stop) {
        const int code = copying.step(pagesAtOnce);
        if (code == SQLITE_DONE) {
            copying.finish();
            return true;
        }
        if (code != SQLITE_OK && !isBusy(code)) copying.fail(code);
        sqlite3_sleep(int(rest.count()));
    }
    return false;
}

void copyDatabase(sqlite3* database, const QString& source, const QString& target)
{
    std::error_code ignored;
    if (std::filesystem::equivalent(nativePath(source), nativePath(target), ignored))
        throw Error{number::permissionDenied,
                    QStringLiteral("\"%1\" é a BDP aberta: não pode ser copiada sobre si própria.").arg(target)};
    const QString place = behindLinks(target);
    Claim claim;
    requireTarget(place, claim);
    Draft draft(place);
    const std::filesystem::file_status original = std::filesystem::status(nativePath(source), ignored);
    if (std::filesystem::exists(original))
        std::filesystem::permissions(nativePath(draft.path()), original.permissions(), ignored);
    if (sqlite3_txn_state(database, "main") == SQLITE_TXN_WRITE) {
        // What isn't confirmed yet is no part of the copy, and only another connection doesn't see it.
        if (hasMoved(database)) throw movedError(source);
        const Engine reader(openEngine(source, Access::ReadOnly));
        copyPages(reader.get(), draft.path(), source, place);
    } else {
        copyPages(database, draft.path(), source, place);
    }
    draft.replace();
}

} // namespace jet
