#include "inputs/driver.h"

#include "inputs/windows.h"
#include "place.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int enough = 100;   // failures after which no further session is begun
constexpr int patience = 120; // seconds without a step after which a session counts as hung

struct Settings
{
    quint64 seed = 1;
    int rounds = 500;
    int inSession = 20;
    int atOnce = 1;
    QString only, failures;
};

QString contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// One session on its way.
struct Job
{
    int first, last;
    QString folder;
    QProcess process;
    QTimer watch;
    QDateTime begun = QDateTime::currentDateTime();
    bool hung = false;

    QString outcome() const { return contents(folder + "/outcome"); }

    // Why it failed; empty where it didn't.
    QString failure()
    {
        if (hung) return QStringLiteral("no step was done in %1 seconds").arg(patience);
        if (QFileInfo::exists(folder + "/outcome") && process.exitStatus() == QProcess::NormalExit)
            return outcome().section('\n', 1);
        return "the process has crashed or ended by itself\n" + QString::fromUtf8(process.readAllStandardError());
    }
};

class Driver
{
public:
    explicit Driver(Settings settings) : settings_(std::move(settings)), environment_(playEnvironment(folder_.path()))
    {
        for (int first = 0; first < settings_.rounds; first += settings_.inSession)
            waiting_.append({first, std::min(first + settings_.inSession, settings_.rounds)});
    }

    bool run()
    {
        for (int i = 0; i < settings_.atOnce; ++i)
            next();
        QCoreApplication::exec();
        out_ << QStringLiteral("%1 rounds: %2 edits and searches, %3 stored, %4 refused, %5 given up, %6 not begun\n")
                    .arg(counts_[0])
                    .arg(counts_[1])
                    .arg(counts_[2])
                    .arg(counts_[3])
                    .arg(counts_[4])
                    .arg(counts_[5]);
        out_ << counts_[0] - failed_ << " passed, " << failed_ << " failed\n";
        out_.flush();
        return failed_ == 0;
    }

private:
    void next()
    {
        if (waiting_.isEmpty()) {
            if (running_ == 0) QTimer::singleShot(0, [] { QCoreApplication::exit(); });
            return;
        }
        const auto [first, last] = waiting_.takeFirst();
        start(first, last, [this](Job& job) { over(job); });
    }

    void start(int first, int last, const std::function<void(Job&)>& over)
    {
        ++running_;
        auto job = std::make_shared<Job>();
        job->first = first;
        job->last = last;
        job->folder = QStringLiteral("%1/%2").arg(QDir(folder_.path()).canonicalPath()).arg(++sessions_);
        QDir().mkpath(job->folder + "/dir");
        copyProgramFolder(ORV_DATA_DIR, job->folder + "/program");
        makeDocumentsFolder(job->folder);
        QProcessEnvironment own = environment_;
        own.insert("XDG_CONFIG_HOME", job->folder);
        job->process.setProcessEnvironment(own);
        job->process.setWorkingDirectory(job->folder + "/dir");
        job->watch.callOnTimeout([watched = job.get()] { lookAt(*watched); });
        QObject::connect(&job->process, &QProcess::finished, &job->process, [this, job, over] {
            job->watch.stop();
            --running_;
            over(*job);
            QDir(job->folder).removeRecursively();
            QTimer::singleShot(0, [this, job] {
                job->process.disconnect(); // it has held the job until now
                next();
            });
        });
        job->process.start(QCoreApplication::applicationFilePath(),
                           {"--play", QString::number(settings_.seed), QString::number(first), QString::number(last),
                            settings_.only, job->folder});
        job->watch.start(5000);
    }

    static void lookAt(Job& job)
    {
        const QFileInfo steps(job.folder + "/steps.txt");
        const QDateTime last = steps.exists() ? steps.lastModified() : job.begun;
        if (last.secsTo(QDateTime::currentDateTime()) > patience) {
            job.hung = true;
            job.process.kill();
        }
    }

    void over(Job& job)
    {
        const QStringList told = job.outcome().section('\n', 0, 0).split(' ');
        for (qsizetype i = 0; i < qsizetype(counts_.size()); ++i)
            counts_[i] += told.value(i).toInt();
        const QString failure = job.failure();
        if (failure.isEmpty()) return;
        // The round alone may show it, too; what was played before it is left out then. The rest of the session is
        // played by another.
        const int round = roundOf(job);
        if (round + 1 < job.last) waiting_.prepend({round + 1, job.last});
        const QString steps = contents(job.folder + "/steps.txt");
        if (round == job.first) return tell(round, failure, steps);
        start(round, round + 1, [=, this](Job& alone) {
            const QString again = alone.failure();
            if (again.isEmpty())
                tell(round, failure, steps);
            else
                tell(round, again, contents(alone.folder + "/steps.txt"));
        });
    }

    // The one under way when the session ended.
    static int roundOf(const Job& job)
    {
        const QString steps = contents(job.folder + "/steps.txt");
        const qsizetype at = steps.lastIndexOf("\n# round ");
        return at < 0 ? job.first : steps.mid(at + 9).section(':', 0, 0).toInt();
    }

    void tell(int round, const QString& failure, const QString& steps)
    {
        if (++failed_ == enough) waiting_.clear();
        out_ << "not ok seed " << settings_.seed << ", round " << round << ": " << failure << '\n';
        if (settings_.failures.isEmpty()) {
            out_ << steps << '\n';
        } else {
            const QString path = QStringLiteral("%1/%2-%3.txt").arg(settings_.failures).arg(settings_.seed).arg(round);
            QFile file(path);
            if (file.open(QIODevice::WriteOnly)) file.write(steps.toUtf8());
            out_ << "   played again by: orv-scenario " << path << '\n';
        }
        out_.flush();
    }

    Settings settings_;
    QTemporaryDir folder_;
    QProcessEnvironment environment_;
    QTextStream out_{stdout};
    QList<std::pair<int, int>> waiting_;
    std::array<int, 6> counts_{};
    int running_ = 0, sessions_ = 0, failed_ = 0;
};

} // namespace

int Inputs::runInputs(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Fills the fields of all windows at random, and looks at what is stored.");
    parser.addHelpOption();
    const QCommandLineOption seed("seed", "The seed; the same one gives the same rounds.", "N", "1");
    const QCommandLineOption rounds("rounds", "How many rounds.", "N", "500");
    const QCommandLineOption session("session", "Rounds on one BDP.", "N", "20");
    const QCommandLineOption jobs("jobs", "Sessions at once.", "N", QString::number(QThread::idealThreadCount()));
    const QCommandLineOption only("only", "The name of a window; --list tells them.", "NAME");
    const QCommandLineOption failures("failures", "Where the steps of what failed are written.", "DIR");
    const QCommandLineOption list("list", "The names of the windows.");
    parser.addOptions({seed, rounds, session, jobs, only, failures, list});
    parser.process(application);
    if (parser.isSet(list)) {
        for (const Window& window : windows())
            QTextStream(stdout) << window.name << '\n';
        return EXIT_SUCCESS;
    }
    if (parser.isSet(failures)) QDir().mkpath(parser.value(failures));
    const auto atLeastOne = [&](const QCommandLineOption& option) { return std::max(1, parser.value(option).toInt()); };
    Driver driver({parser.value(seed).toULongLong(), atLeastOne(rounds), atLeastOne(session), atLeastOne(jobs),
                   parser.value(only), parser.value(failures)});
    return driver.run() ? EXIT_SUCCESS : EXIT_FAILURE;
}
