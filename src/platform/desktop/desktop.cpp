#include "platform/desktop/desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace {

std::function<int(const QString&)> opener;
QString folder;

// The desktop gets the text unchanged, without the toolkit's idea of a URL in between.
int handOver(const QString& text)
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    const bool started = !program.isEmpty() && QProcess::startDetached(program, {text});
#elif defined(Q_OS_MACOS)
    const bool started = QProcess::startDetached(QStringLiteral("/usr/bin/open"), {text});
#else
    const QUrl url = QFileInfo::exists(text) ? QUrl::fromLocalFile(text) : QUrl(text);
    const bool started = QDesktopServices::openUrl(url);
#endif
    return started ? Desktop::success : Desktop::noProgram;
}

} // namespace

namespace Desktop {

int openDocument(const QString& path)
{
    if (!QFileInfo(path).isFile()) return fileNotFound;
    return opener ? opener(path) : handOver(QFileInfo(path).absoluteFilePath());
}

int openUrl(const QString& url)
{
    return opener ? opener(url) : handOver(url);
}

void setOpener(std::function<int(const QString&)> instead)
{
    opener = std::move(instead);
}

QString programFolder()
{
    if (!folder.isEmpty()) return folder;
    const QDir own(QCoreApplication::applicationDirPath());
    if (own.exists(QStringLiteral("CriarTab.dat"))) return own.absolutePath();
    return QDir::cleanPath(own.absoluteFilePath(QStringLiteral("../share/orv")));
}

void setProgramFolder(const QString& instead)
{
    folder = instead;
}

} // namespace Desktop
