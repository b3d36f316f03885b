// orv-faults: cuts the power while the program works, and makes the disk fail under it. README.md tells of both.
#include "errors.h"
#include "powerLoss.h"
#include "recorder.h"
#include "recordingVfs.h"
#include "workload.h"

#include "failure.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace {

struct Options
{
    QStringList files;
    QStringList only;
    qsizetype points = 2000;
    quint32 seed = 1;
    int cut = -1; // one point alone
    QString model;
    Weakened weaken = Weakened::No;
    QString folder; // where the last disk stays; empty: it goes
    qsizetype errors = 0;
    Failing failing; // one call alone: its number isn't 0
    int reports = 10;
};

Fault faultOf(const QString& text)
{
    const auto* fault =
        std::find_if(std::begin(faults), std::end(faults), [&](Fault each) { return told(each) == text; });
    if (fault == std::end(faults)) qFatal("there is no fault %s", qPrintable(text));
    return *fault;
}

Options optionsOf(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Cuts the power while the program works, and makes the disk fail under it.");
    parser.addHelpOption();
    const QCommandLineOption points("points", "How many cuts are tried.", "N", "2000");
    const QCommandLineOption errors("errors", "How many calls fail; none of them by default.", "N", "0");
    const QCommandLineOption seed("seed", "What the disks, and the choice of points, are drawn from.", "N", "1");
    const QCommandLineOption only("only", "Plays only the workloads of this title.", "TITLE");
    const QCommandLineOption cut("cut", "Tries this cut of them alone.", "K");
    const QCommandLineOption model("model", "In this model.", "MODEL", told(Model::AllKept));
    const QCommandLineOption weaken("weaken", "Takes syncs for not done: \"folders\" or \"all\".", "WHICH");
    const QCommandLineOption folder("folder", "Works there, and leaves the last disk.", "DIR");
    const QCommandLineOption step("step", "Makes a call fail in this step of them alone.", "N");
    const QCommandLineOption fault("fault", "With this fault.", "FAULT", told(Fault::Error));
    const QCommandLineOption call("call", "This call.", "N", "1");
    const QCommandLineOption lasting("lasting", "And all that follow.");
    const QCommandLineOption reports("reports", "How many failures are told of each workload.", "N", "10");
    parser.addOptions({points, errors, seed, only, cut, model, weaken, folder, step, fault, call, lasting, reports});
    parser.addPositionalArgument("FILE...", "The workloads: files of scenarios.");
    parser.process(application);
    Options options;
    options.files = parser.positionalArguments();
    options.only = parser.values(only);
    options.points = parser.value(points).toLongLong();
    options.errors = parser.value(errors).toLongLong();
    options.seed = parser.value(seed).toUInt();
    if (parser.isSet(cut)) options.cut = parser.value(cut).toInt();
    options.model = parser.value(model);
    if (parser.value(weaken) == "folders") options.weaken = Weakened::FolderSyncs;
    if (parser.value(weaken) == "all") options.weaken = Weakened::AllSyncs;
    if (parser.isSet(step))
        options.failing = {parser.value(step).toInt(),
                           {parser.value(call).toInt(), faultOf(parser.value(fault)), parser.isSet(lasting)}};
    options.folder = parser.value(folder);
    options.reports = parser.value(reports).toInt();
    return options;
}

// Disks in memory where there are some: nothing here needs a real one.
QString placeForDisks()
{
    const QFileInfo memory("/dev/shm");
    return (memory.isWritable() ? memory.filePath() : QDir::tempPath()) + "/orv-faults";
}

// Runs it in a process of its own, which has the windows. Returns its status; one that crashed has 255.
int inProcess(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0) runInApplication(work);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

// Plays it once, undisturbed.
int record(const Scenario& scenario, const QString& stage)
{
    installRecordingVfs();
    installRecordingDisk();
    Recording& recording = recorder().recording();
    recording.title = scenario.title;
    Workload workload(scenario, stage, [](const QString& reason) {
        QTextStream(stdout) << reason << '\n';
        leave(2);
    });
    for (int step = 0; step < workload.steps(); ++step) {
        try {
            workload.play(step);
        } catch (const Failure& failure) {
            fail(scenario.title + ", " + workload.told(step) + ": " + failure.reason);
        }
    }
    recorder().end();
    recording.write(stage + "/recording");
    return 0;
}

Point pointOf(const Options& options)
{
    const auto* model =
        std::find_if(std::begin(models), std::end(models), [&](Model each) { return told(each) == options.model; });
    if (model == std::end(models)) qFatal("there is no model %s", qPrintable(options.model));
    return {options.cut, *model, options.seed};
}

// Each workload gets its share of the points, by its length.
int cutPower(const QList<Recording>& recordings, const Options& options, const QString& folder)
{
    QTextStream out(stdout);
    qsizetype whole = 0;
    for (const Recording& recording : recordings)
        whole += pointsOfOneRound(recording);
    Tally all;
    qsizetype left = options.points;
    for (const Recording& recording : recordings) {
        const qsizetype round = pointsOfOneRound(recording);
        const qsizetype share = whole > 0 ? left * round / whole : 0;
        left -= share;
        whole -= round;
        const QList<Point> points =
            options.cut >= 0 ? QList{pointOf(options)} : pointsOf(recording, share, options.seed);
        const Tally tally = checkPoints(recording, points, folder, options.reports);
        out << (tally.failures == 0 ? "ok " : "not ok ") << recording.title << ": " << recording.operations.size()
            << " operations, " << tally.points << " points, " << tally.disks << " disks, " << tally.failures
            << " failures" << Qt::endl;
        all.points += tally.points;
        all.disks += tally.disks;
        all.failures += tally.failures;
    }
    out << "power cuts: " << all.points << " points, " << all.disks << " disks, " << all.failures << " failures"
        << Qt::endl;
    return all.failures == 0 ? 0 : 1;
}

// Each workload in a process of its own, with its share of the failing calls. Their tallies come back by a file.
int makeCallsFail(const QList<Scenario>& workloads, const QList<Recording>& recordings, const Options& options,
                  const QString& folder)
{
    QTextStream out(stdout);
    ErrorTally all;
    for (qsizetype i = 0; i < recordings.size(); ++i) {
        const Recording& recording = recordings[i];
        const qsizetype share = options.errors * (i + 1) / recordings.size() - options.errors * i / recordings.size();
        const QList<Failing> chosen =
            options.failing.plan.at > 0 ? QList{options.failing} : failingOf(recording, share, options.seed);
        const QString stage = makeStage(folder, QStringLiteral("failing%1").arg(i + 1));
        const int status = inProcess([&] {
            const ErrorTally tally = playFailing(workloads[i], recording, chosen, stage);
            QFile file(stage + "/tally");
            if (!file.open(QIODevice::WriteOnly)) return 1;
            QDataStream(&file) << tally.failing << tally.done << tally.repeated << tally.problems;
            return 0;
        });
        ErrorTally tally;
        QFile file(stage + "/tally");
        if (file.open(QIODevice::ReadOnly)) {
            QDataStream in(&file);
            in >> tally.failing >> tally.done >> tally.repeated >> tally.problems;
        }
        if (status != 0) ++tally.problems;
        out << (tally.problems == 0 ? "ok " : "not ok ") << recording.title << ": " << tally.failing
            << " calls failed, " << tally.done << " steps done all the same, " << tally.repeated << " done again, "
            << tally.problems << " problems" << Qt::endl;
        all.failing += tally.failing;
        all.problems += tally.problems;
    }
    out << "failing calls: " << all.failing << " calls, " << all.problems << " failures" << Qt::endl;
    return all.problems == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    installFailingMemory();
    const Options options = optionsOf(argc, argv);
    const QList<Scenario> workloads = readWorkloads(options.files, options.only);
    QTemporaryDir temporary(placeForDisks());
    const QString folder = options.folder.isEmpty() ? temporary.path() : options.folder;
    QDir().mkpath(folder);
    prepareEnvironment(folder);

    QList<Recording> recordings;
    for (const Scenario& scenario : workloads) {
        const QString stage = makeStage(folder, QStringLiteral("workload%1").arg(recordings.size() + 1));
        Recording recording;
        if (inProcess([&] { return record(scenario, stage); }) != 0 || !recording.read(stage + "/recording")) {
            QTextStream(stdout) << "not ok " << scenario.title << ": can't be played\n";
            return EXIT_FAILURE;
        }
        recordings << weakened(recording, options.weaken);
    }
    int status = 0;
    if (options.failing.plan.at == 0 && (options.points > 0 || options.cut >= 0))
        status = inProcess([&] { return cutPower(recordings, options, folder); });
    if (options.errors > 0 || options.failing.plan.at > 0)
        status += makeCallsFail(workloads, recordings, options, folder);
    return status == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
