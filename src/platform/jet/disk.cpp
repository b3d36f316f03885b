#include "platform/jet/disk.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <fcntl.h>
#ifdef Q_OS_UNIX
#include <unistd.h>
#else
#include <io.h>
#endif

#include <cerrno>
#include <cstdio>

namespace jet {

namespace {

namespace fs = std::filesystem;

constexpr auto markOfADraft = ".orvtmp-";
constexpr int lettersOfADraft = 6;
constexpr int attemptsToName = 100;

Disk* replaced = nullptr;

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

#ifdef Q_OS_UNIX
std::error_code syncThrough(const fs::path& path, int flags)
{
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return lastError();
#ifdef F_FULLFSYNC // the usual call leaves it in the drive's memory there
    const bool synced = ::fcntl(descriptor, F_FULLFSYNC) == 0 || ::fsync(descriptor) == 0;
#else
    const bool synced = ::fsync(descriptor) == 0;
#endif
    const std::error_code error = synced ? std::error_code() : lastError();
    ::close(descriptor);
    return error;
}
#endif

} // namespace

fs::path nativePath(const QString& path)
{
    const QByteArray utf8 = path.toUtf8();
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::error_code Disk::replace(const QString& from, const QString& to)
{
    std::error_code error;
    fs::rename(nativePath(from), nativePath(to), error);
    return error;
}

std::error_code Disk::place(const QString& from, const QString& to)
{
    const fs::path source = nativePath(from);
    const fs::path target = nativePath(to);
    std::error_code error;
#ifdef Q_OS_LINUX
    if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return {};
    if (errno != EINVAL && errno != ENOSYS) return lastError();
#endif
    // A second name is never given over another file, but not every disk knows of second names.
    fs::create_hard_link(source, target, error);
    if (!error) {
        fs::remove(source, error);
        return {};
    }
    if (fs::exists(fs::symlink_status(target, error))) return std::make_error_code(std::errc::file_exists);
    fs::rename(source, target, error);
    return error;
}

std::error_code Disk::remove(const QString& path)
{
    std::error_code error;
    fs::remove(nativePath(path), error);
    return error;
}

std::error_code Disk::syncFile(const QString& path)
{
#ifdef Q_OS_UNIX
    return syncThrough(nativePath(path), O_RDWR);
#else
    const int descriptor = ::_wopen(nativePath(path).c_str(), _O_RDWR | _O_BINARY);
    if (descriptor < 0) return lastError();
    const std::error_code error = ::_commit(descriptor) == 0 ? std::error_code() : lastError();
    ::_close(descriptor);
    return error;
#endif
}

std::error_code Disk::syncFolder([[maybe_unused]] const QString& path)
{
#ifdef Q_OS_UNIX
    const std::error_code error = syncThrough(nativePath(path), O_RDONLY | O_DIRECTORY);
    return error == std::errc::invalid_argument ? std::error_code() : error; // a disk that knows of no such thing
#else
    return {};
#endif
}

std::error_code Disk::makeFile(const QString& path)
{
#ifdef Q_OS_UNIX
    constexpr mode_t asOthersLet = 0666;
    const int descriptor = ::open(nativePath(path).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, asOthersLet);
    if (descriptor < 0) return lastError();
    ::close(descriptor);
    return {};
#else
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return {};
    return QFileInfo(path).exists() ? std::make_error_code(std::errc::file_exists)
                                    : std::make_error_code(std::errc::permission_denied);
#endif
}

std::error_code Disk::makeFolder(const QString& path)
{
    std::error_code error;
    fs::create_directory(nativePath(path), error);
    return error == std::errc::file_exists ? std::make_error_code(std::errc::not_a_directory) : error;
}

std::uintmax_t Disk::available(const QString& folder)
{
    std::error_code error;
    const auto bytes = fs::space(nativePath(folder), error).available;
    return error ? std::uintmax_t(-1) : bytes;
}

Disk& disk()
{
    static Disk real{};
    return replaced ? *replaced : real;
}

void setDisk(Disk* replacement)
{
    replaced = replacement;
}

QString folderOf(const QString& path)
{
    return QFileInfo(path).path();
}

QString behindLinks(QString path)
{
    constexpr int mostLinks = 40; // as many as the system follows
    for (int i = 0; i < mostLinks && QFileInfo(path).isSymbolicLink(); ++i)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

QString temporaryName(const QString& target)
{
    static const auto alphabet = QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789");
    QString name = target + QLatin1String(markOfADraft);
    for (int i = 0; i < lettersOfADraft; ++i)
        name += alphabet[QRandomGenerator::global()->bounded(alphabet.size())];
    return name;
}

namespace {
const QRegularExpression& temporaryPattern()
{
    static const QRegularExpression pattern(QStringLiteral("^(.+)\\.orvtmp-[a-z0-9]{6}(-journal|-wal|-shm)?\\z"),
                                            QRegularExpression::DotMatchesEverythingOption);
    return pattern;
}
} // namespace

bool isTemporaryName(const QString& name)
{
    return temporaryPattern().match(name).hasMatch();
}

QString targetOf(const QString& path)
{
    const auto match = temporaryPattern().match(path);
    return match.hasMatch() ? match.captured(1) : path;
}

QString makeTemporary(const QString& target, std::error_code& error)
{
    for (int i = 0; i < attemptsToName; ++i) {
        const QString name = temporaryName(target);
        error = disk().makeFile(name);
        if (!error) return name;
        if (error != std::errc::file_exists) break;
    }
    return {};
}

} // namespace jet
