#include "place.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds longestWait = std::chrono::minutes(10); // for others who take pictures

QString folderOfOwnName()
{
    QTemporaryDir folder;
    folder.setAutoRemove(false);
    return folder.path();
}

} // namespace

PlayFolder::PlayFolder(bool sameName) : path_(sameName ? QDir::temp().filePath("orv-imagens") : folderOfOwnName())
{
    if (!sameName) return;
    alone_ = std::make_unique<QLockFile>(path_ + ".lock");
    alone_->setStaleLockTime({});
    if (!alone_->tryLock(longestWait.count())) path_ = folderOfOwnName();
    QDir(path_).removeRecursively();
    QDir().mkpath(path_);
}

PlayFolder::~PlayFolder()
{
    if (!kept_) QDir(path_).removeRecursively();
}

void copyToAlter(const QString& from, const QString& to)
{
    QFile::copy(from, to);
    QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner);
}

void copyProgramFolder(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    const auto names = QDir(from).entryList({"*.dat", "*.doc", "*.csv", "*.pdf"}, QDir::Files);
    for (const QString& name : names)
        copyToAlter(from + '/' + name, to + '/' + name);
}

bool isOffscreen()
{
    return qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen") == "offscreen";
}

QProcessEnvironment playEnvironment(const QString& folder, const PlayScreen& screen)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    if (isOffscreen()) {
        const QString text =
            QStringLiteral(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": %1, "height": %2,
                                            "logicalDpi": 96, "dpr": %3}]})")
                .arg(screen.width)
                .arg(screen.height)
                .arg(screen.scale);
        QFile file(folder + "/screen.json");
        if (file.open(QIODevice::WriteOnly)) file.write(text.toUtf8());
        environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName());
    }
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"})
        environment.insert(name, QStringLiteral("exitcode=%1:%2").arg(sanitizerExit).arg(environment.value(name)));
    return environment;
}
