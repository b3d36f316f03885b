#include "stage.h"

#include "failure.h"

#include "platform/desktop/desktop.h"
#include "platform/forms/forms.h"
#include "platform/jet/connection.h"
#include "shell/frmORV.h"
#include "shell/startup.h"
#include "store/modBD.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTest>
#include <QThread>

#include <algorithm>

Stage::Stage(const QString& folder, const QString& shots) : folder_(folder), shots_(shots)
{
    state.read(folder_ + "/state");
    Desktop::setProgramFolder(program());
    Desktop::setOpener([this](const QString& what) {
        state.opened.append(what);
        save();
        return Desktop::success;
    });
}

QString Stage::filled(QString text) const
{
    return text.replace("{dir}", dir()).replace("{program}", program()).replace("{documents}", documents());
}

QString Stage::path(const QString& text) const
{
    return QDir::cleanPath(QDir(dir()).absoluteFilePath(filled(text)));
}

QString Stage::shot(const QString& text) const
{
    return shots_.isEmpty() ? path(text) : QDir::cleanPath(QDir(shots_).absoluteFilePath(filled(text)));
}

void Stage::touched(const QString& path)
{
    if (path == program() || path.startsWith(program() + '/')) state.programFolderTouched = true;
}

void Stage::makeBdp(const QString& path, bool bare)
{
    if (QFileInfo::exists(path)) fail(QStringLiteral("there is a file %1 already").arg(path));

    // The scenarios of one run share what the untouched data files give.
    const QString ready = folder_ + (bare ? "/../bare.orv" : "/../full.orv");
    const bool shared = !state.programFolderTouched;
    if (shared && QFile::copy(ready, path)) return;

    try {
        jet::createDatabase(path);
        jet::Connection bdp;
        bdp.open(path);
        CriaTabelas(bdp, program() + "/CriarTab.dat");
        if (!bare) CarregaDadosIniciais(bdp);
    } catch (const jet::Error& error) {
        fail(QStringLiteral("the BDP can't be made: %1 %2").arg(error.number).arg(error.description));
    }
    if (!shared) return;
    const QString mine = QStringLiteral("%1.%2").arg(ready).arg(QCoreApplication::applicationPid());
    if (QFile::copy(path, mine) && !QFile::rename(mine, ready)) QFile::remove(mine);
}

void Stage::start(const QString& commandLine)
{
    if (runs()) fail("the program runs already");
    state.ended = false;
    save();
    prepareApplication();
    QWidget* window = &startProgram(commandLine);
    window_ = window;
    settle();
    if (!runs() || !window->isVisible()) return;
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window, 10000)) fail("the main window doesn't become active");
    settle();
}

void Stage::needsProgram() const
{
    if (!runs()) fail(state.ended ? "the program has ended" : "the program isn't started");
}

void Stage::takeDown()
{
    Forms::clear();
    delete window_;
}

namespace {

constexpr qint64 longestWork = 60000; // milliseconds

// Whether a form works on a thread of its own; what comes of it is seen when it is done.
bool isAtWork()
{
    const QList<QWidget*>& loaded = Forms::loaded();
    return std::any_of(loaded.begin(), loaded.end(),
                       [](const QWidget* form) { return form->property("atWork").toBool(); });
}

} // namespace

void Stage::settle()
{
    ++settling_;
    const auto over = qScopeGuard([this] { --settling_; });
    QElapsedTimer clock;
    clock.start();
    auto* dispatcher = QAbstractEventDispatcher::instance();
    bool more = false;
    do {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        more = dispatcher->processEvents(QEventLoop::AllEvents) && clock.elapsed() < 1000;
        if (!more && isAtWork()) QThread::msleep(1);
    } while (more || (isAtWork() && clock.elapsed() < longestWork));
}
