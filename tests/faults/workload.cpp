#include "workload.h"

#include "failure.h"
#include "language.h"
#include "quiet.h"
#include "recorder.h"

#include "shell/application.h"
#include "store/copiaDiaria.h"

#include <QDir>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace {

// Nothing is painted: nobody looks, and the threads that help in painting wouldn't be there any more in a process that
// has forked.
class NoPainting : public QObject
{
protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest ||
               event->type() == QEvent::Expose;
    }
};

} // namespace

QList<Scenario> readWorkloads(const QStringList& files, const QStringList& only)
{
    QList<Scenario> workloads;
    for (const QString& file : files) {
        const Script script = readScript(file, forms());
        if (!script.error.isEmpty()) qFatal("%s: %s", qPrintable(file), qPrintable(script.error));
        for (const Scenario& scenario : script.scenarios) {
            if (!only.isEmpty() && !only.contains(scenario.title)) continue;
            if (!scenario.error.isEmpty())
                qFatal("%s:%d: %s", qPrintable(file), scenario.errorLine, qPrintable(scenario.error));
            workloads << scenario;
        }
    }
    if (workloads.isEmpty()) qFatal("there is nothing to play");
    return workloads;
}

QString makeStage(const QString& parent, const QString& name)
{
    const QString folder = QDir(parent).canonicalPath() + '/' + name;
    QDir().mkpath(folder + "/dir");
    QFile::link(ORV_DATA_DIR, folder + "/program");
    return folder;
}

void prepareEnvironment(const QString& folder)
{
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile screen(folder + "/screen.json"); // the smallest one that the program has to fit
    if (screen.open(QIODevice::WriteOnly))
        screen.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1280, "height": 800,
                         "logicalDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
    qputenv("XDG_CONFIG_HOME", folder.toUtf8());
    qputenv("XDG_RUNTIME_DIR", folder.toUtf8());
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void leave(int status)
{
    std::fflush(nullptr);
    std::_Exit(status);
}

void runInApplication(const std::function<int()>& work)
{
    keepQuietAboutThePlatform();
    static char name[] = "orv-faults";
    static char* arguments[] = {name, nullptr};
    Application::setAttribute(Qt::AA_DontUseNativeDialogs);
    const Application application(arguments);
    NoPainting noPainting;
    QCoreApplication::instance()->installEventFilter(&noPainting);
    QTimer::singleShot(0, [&work] {
        int status = 2;
        try {
            status = work();
        } catch (const Failure& failure) {
            QTextStream(stdout) << failure.reason << '\n';
        }
        leave(status);
    });
    Application::exec();
    leave(3); // the program has ended by itself
}

Workload::Workload(const Scenario& scenario, const QString& stage, std::function<void(const QString&)> failed)
    : scenario_(scenario), stage_(stage), watcher_(stage_, std::move(failed))
{
}

QString Workload::told(int number) const
{
    const Step& step = scenario_.steps[number];
    QString text = QStringLiteral("line %1: ").arg(step.line) + QString(language()[step.form].form).section(' ', 0, 0);
    for (const Operand& operand : step.operands)
        text += ' ' + (operand.isText ? quoted(operand.text) : operand.text);
    return text;
}

bool Workload::is(int step, const char* word) const
{
    return QString(language()[scenario_.steps[step].form].form).section(' ', 0, 0) == QLatin1String(word);
}

QStringList Workload::play(int number)
{
    const Step& step = scenario_.steps[number];
    if (is(number, "restart")) fail("a workload is played in one process");
    if (is(number, "start")) recorder().begin(stage_.dir());
    stage_.state.step = number;
    const qsizetype before = stage_.state.boxes.size();
    Play play(stage_, step);
    language()[step.form].play(play);
    stage_.settle();
    esperaCopiaDiaria(); // so that each recording is the same
    QStringList boxes;
    for (qsizetype i = before; i < stage_.state.boxes.size(); ++i)
        boxes << stage_.state.boxes[i].text;
    recorder().mark(number, told(number), boxes);
    return boxes;
}
