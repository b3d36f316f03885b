// orv-faults: cuts the power while the program works, and makes the disk fail under it. README.md tells of both.
#include "powerLoss.h"
#include "recorder.h"
#include "recordingVfs.h"
#include "workload.h"

#include "failure.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
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
    int errors = 0;
    int reports = 10;
};

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
    const QCommandLineOption reports("reports", "How many failures are told of each workload.", "N", "10");
    parser.addOptions({points, errors, seed, only, cut, model, weaken, folder, reports});
    parser.addPositionalArgument("FILE...", "The workloads: files of scenarios.");
    parser.process(application);
    Options options;
    options.files = parser.positionalArguments();
    options.only = parser.values(only);
    options.points = parser.value(points).toLongLong();
    options.errors = parser.value(errors).toInt();
    options.seed = parser.value(seed).toUInt();
    if (parser.isSet(cut)) options.cut = parser.value(cut).toInt();
    options.model = parser.value(model);
    if (parser.value(weaken) == "folders") options.weaken = Weakened::FolderSyncs;
    if (parser.value(weaken) == "all") options.weaken = Weakened::AllSyncs;
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
    const auto* model = std::find_if(std::begin(models), std::end(models),
                                     [&](Model each) { return told(each) == options.model; });
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
        const qsizetype share = left * round / whole;
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

} // namespace

int main(int argc, char** argv)
{
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
    if (options.points > 0 || options.cut >= 0)
        status = inProcess([&] { return cutPower(recordings, options, folder); });
    return status == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
