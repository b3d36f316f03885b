#include "platform/jet/claim.h"

#include "platform/jet/disk.h"

#include <QFileInfo>
#include <QLockFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace jet {

#ifdef F_OFD_SETLK

namespace {

// Behind the bytes that the engine locks, and within what a disk of 32 bits can lock.
constexpr off_t lockedByte = 0x7ff00000;

bool lock(int descriptor)
{
    struct flock byte = {};
    byte.l_type = F_WRLCK;
    byte.l_whence = SEEK_SET;
    byte.l_start = lockedByte;
    byte.l_len = 1;
    return fcntl(descriptor, F_OFD_SETLK, &byte) == 0;
}

bool isRegular(int descriptor)
{
    struct stat file = {};
    return fstat(descriptor, &file) == 0 && S_ISREG(file.st_mode);
}

// Whether the path still leads to the file that was opened by it.
bool isThere(int descriptor, const std::filesystem::path& path)
{
    struct stat opened = {};
    struct stat found = {};
    return fstat(descriptor, &opened) == 0 && stat(path.c_str(), &found) == 0 && opened.st_dev == found.st_dev &&
           opened.st_ino == found.st_ino;
}

} // namespace

struct Claim::Private
{
    int descriptor = -1;
};

Claim::Outcome Claim::take(const QString& path)
{
    release();
    const std::filesystem::path file = nativePath(path);
    d_->descriptor = ::open(file.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (d_->descriptor < 0) return Outcome::Unknown;
    Outcome outcome = Outcome::Unknown;
    if (isRegular(d_->descriptor)) {
        if (lock(d_->descriptor))
            outcome = isThere(d_->descriptor, file) ? Outcome::Taken : Outcome::Unknown;
        else if (errno == EAGAIN || errno == EACCES)
            outcome = Outcome::Held;
    }
    if (outcome != Outcome::Taken) release();
    return outcome;
}

void Claim::release()
{
    if (d_->descriptor >= 0) ::close(d_->descriptor);
    d_->descriptor = -1;
}

#else

struct Claim::Private
{
    std::unique_ptr<QLockFile> file;
};

Claim::Outcome Claim::take(const QString& path)
{
    release();
    const QFileInfo info(path);
    if (!info.isFile()) return Outcome::Unknown;
    auto file = std::make_unique<QLockFile>(info.canonicalFilePath() + QStringLiteral(".lock"));
    file->setStaleLockTime(0); // only with the process
    if (!file->tryLock(0)) return file->error() == QLockFile::LockFailedError ? Outcome::Held : Outcome::Unknown;
    d_->file = std::move(file);
    return Outcome::Taken;
}

void Claim::release()
{
    d_->file.reset();
}

#endif

Claim::Claim() : d_(std::make_unique<Private>()) {}

Claim::~Claim()
{
    release();
}

} // namespace jet
