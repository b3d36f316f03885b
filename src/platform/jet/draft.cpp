#include "platform/jet/draft.h"

#include "platform/jet/disk.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace jet {

namespace {

constexpr int attemptsToClaim = 5;
constexpr int daysOfALeftover = 1; // where it can't be told whether a program has it in work

constexpr auto companions = {"-journal", "-wal", "-shm"};

bool stands(const QString& path)
{
    std::error_code ignored;
    return std::filesystem::exists(std::filesystem::symlink_status(nativePath(path), ignored));
}

// The draft that a file in its folder is, or belongs to.
QString draftOf(QString path)
{
    for (const char* suffix : companions)
        if (path.endsWith(QLatin1String(suffix))) path.chop(qsizetype(qstrlen(suffix)));
    return path;
}

// Who may write no more than a share of the disk stands before a full one, too.
bool isFull(const std::error_code& reason)
{
#ifdef EDQUOT
    if (reason == std::error_code(EDQUOT, std::generic_category())) return true;
#endif
    return reason == std::errc::no_space_on_device;
}

bool isLeftOver(const QString& draft)
{
    if (!stands(draft)) return true; // its companion is alone
    Claim claim;
    switch (claim.take(draft)) {
    case Claim::Outcome::Taken:
        return true;
    case Claim::Outcome::Held:
        return false;
    case Claim::Outcome::Unknown:
        break;
    }
    return QFileInfo(draft).lastModified() < QDateTime::currentDateTime().addDays(-daysOfALeftover);
}

} // namespace

Error writeError(const std::error_code& reason, const QString& path)
{
    if (reason == std::errc::filename_too_long)
        return {number::pathNotFound, QStringLiteral("O nome do ficheiro \"%1\" é demasiado longo.").arg(path)};
    if (reason == std::errc::not_a_directory)
        return {number::pathNotFound, QStringLiteral("\"%1\" não é uma pasta.").arg(path)};
    if (isFull(reason))
        return {number::diskFull, QStringLiteral("O disco está cheio: não foi possível escrever em \"%1\".").arg(path)};
    if (reason == std::errc::io_error)
        return {number::engineFailure,
                QStringLiteral("Não foi possível escrever o ficheiro \"%1\": o disco falhou.").arg(path)};
    if (reason == std::errc::file_exists)
        return {number::fileExists, QStringLiteral("O ficheiro \"%1\" já existe.").arg(path)};
    return {number::permissionDenied, QStringLiteral("Não é permitido escrever no ficheiro \"%1\".").arg(path)};
}

void removeCompanions(const QString& path)
{
    bool removed = false;
    for (const char* suffix : companions) {
        const QString companion = path + QLatin1String(suffix);
        if (!stands(companion)) continue;
        disk().remove(companion);
        removed = true;
    }
    if (removed) disk().syncFolder(folderOf(path));
}

void removeLeftovers(const QString& folder)
{
    const QDir dir(folder);
    const auto found =
        dir.entryInfoList({QStringLiteral("*.orvtmp-*")}, QDir::Files | QDir::Hidden | QDir::System | QDir::NoSymLinks);
    for (const QFileInfo& file : found) {
        if (!file.isFile() || !isTemporaryName(file.fileName())) continue;
        const QString draft = draftOf(file.filePath());
        if (!isLeftOver(draft)) continue;
        disk().remove(draft);
        for (const char* suffix : companions)
            if (stands(draft + QLatin1String(suffix))) disk().remove(draft + QLatin1String(suffix));
    }
}

Draft::Draft(const QString& target) : target_(target)
{
    removeLeftovers(folderOf(target));
    for (int i = 0; i < attemptsToClaim; ++i) { // another program may take it for a leftover before it is claimed
        std::error_code error;
        path_ = makeTemporary(target, error);
        if (error) throw writeError(error, target);
        const Claim::Outcome outcome = claim_.take(path_);
        if (outcome == Claim::Outcome::Taken) return;
        if (outcome == Claim::Outcome::Unknown && stands(path_)) return;
    }
    throw writeError(std::make_error_code(std::errc::permission_denied), target);
}

Draft::~Draft()
{
    if (path_.isEmpty()) return;
    disk().remove(path_);
    for (const char* suffix : companions)
        if (stands(path_ + QLatin1String(suffix))) disk().remove(path_ + QLatin1String(suffix));
}

void Draft::sync()
{
    if (const auto error = disk().syncFile(path_)) throw writeError(error, target_);
}

void Draft::place()
{
    take(false);
}

void Draft::replace()
{
    take(true);
}

void Draft::take(bool over)
{
    sync();
    if (!over && stands(target_)) throw writeError(std::make_error_code(std::errc::file_exists), target_);
    removeCompanions(target_);
    if (const auto error = over ? disk().replace(path_, target_) : disk().place(path_, target_))
        throw writeError(error, target_);
    path_.clear();
    // A folder that nobody may read can't be synced; that the disk fails is told.
    const auto error = disk().syncFolder(folderOf(target_));
    if (error == std::errc::io_error || isFull(error)) throw writeError(error, target_);
}

} // namespace jet
