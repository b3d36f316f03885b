#include "kit/files.h"

#include "parish/parish.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

namespace bench {

namespace {

// Not in the folder for temporary files, which may be in memory.
QDir folderOfTheRun()
{
    static const QTemporaryDir folder(QCoreApplication::applicationDirPath() + "/run-XXXXXX");
    if (!folder.isValid()) qFatal("no folder for the files: %s", qPrintable(folder.errorString()));
    return {folder.path()};
}

// So that no measure waits for what was written before it.
void bringToDisk(const QString& path)
{
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY);
    fsync(file);
    close(file);
}

} // namespace

QString parishOf(int people)
{
    const QString path = folderOfTheRun().filePath(QStringLiteral("%1.orv").arg(people));
    if (!QFile::exists(path)) {
        makeParish(path, people);
        bringToDisk(path);
    }
    return path;
}

QString newFolder()
{
    static int number = 0;
    const QString path = folderOfTheRun().filePath(QStringLiteral("f%1").arg(++number));
    QDir().mkpath(path);
    return path;
}

OwnParish::OwnParish(int people) : folder_(newFolder())
{
    std::filesystem::copy_file(parishOf(people).toStdString(), path().toStdString());
    bringToDisk(path());
}

OwnParish::~OwnParish()
{
    QDir(folder_).removeRecursively();
}

QString OwnParish::path() const
{
    return folder_ + "/parish.orv";
}

} // namespace bench
