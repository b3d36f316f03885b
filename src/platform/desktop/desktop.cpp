#include "platform/desktop/desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <memory>

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
#include <unistd.h>
#endif

namespace {

std::function<int(const QString&)> opener;
QString folder;

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

constexpr int patienceInMilliseconds = 1500;

// What the opener's exit status tells.
int resultOf(int exitStatus)
{
    switch (exitStatus) {
    case 0:
        return Desktop::success;
    case 2:
        return Desktop::fileNotFound;
    case 3: // it found no tool to open anything with
    case 4: // the tool failed, mostly for want of a program
        return Desktop::noProgram;
    default:
        return Desktop::failure;
    }
}

// The opener may become the document's program. So it lives in a session of its own, is given no pipe of ours, and is
// left running when the patience is over: the process object stays until it ends, as its destructor would kill it.
int openAndWait(const QString& program, const QString& path)
{
    auto opening = std::make_unique<QProcess>();
    opening->setProcessChannelMode(QProcess::ForwardedChannels);
    opening->setStandardInputFile(QProcess::nullDevice());
    opening->setChildProcessModifier([] { ::setsid(); });
    opening->start(program, {path});
    if (!opening->waitForStarted()) return Desktop::noProgram;
    if (opening->waitForFinished(patienceInMilliseconds))
        return opening->exitStatus() == QProcess::NormalExit ? resultOf(opening->exitCode()) : Desktop::failure;
    QProcess* left = opening.release();
    QObject::connect(left, &QProcess::finished, left, &QObject::deleteLater);
    return Desktop::success;
}

#endif

// The desktop gets the text unchanged, without the toolkit's idea of a URL in between.
int handOver(const QString& text, bool document)
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!program.isEmpty() && document) return openAndWait(program, text);
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
    return opener ? opener(path) : handOver(QFileInfo(path).absoluteFilePath(), true);
}

int openUrl(const QString& url)
{
    return opener ? opener(url) : handOver(url, false);
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
