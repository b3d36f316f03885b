#include "runner.h"

#include "failure.h"
#include "language.h"
#include "place.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QTextStream>

#include <algorithm>

namespace {

void removeFolder(const QString& path)
{
    const auto writable = [](const QString& what) {
        QFile::setPermissions(what, QFile::permissions(what) | QFile::WriteOwner | QFile::ExeOwner);
    };
    writable(path);
    QDirIterator inside(path, QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (inside.hasNext())
        writable(inside.next());
    QDir(path).removeRecursively();
}

} // namespace

// One scenario on its way: the process that plays it, and a new one after each end that isn't the scenario's.
struct Runner::Job
{
    QString file;
    int index = 0;
    Scenario scenario;
    QString folder;
    State state;
    int errorLine = 0; // of a mistake in the text
    int seconds = 0;   // that it may take
    bool done = false;
    QString lastWords; // of a process that crashed
    QProcess process;
    QTimer limit; // runs out where the scenario takes too long
    QElapsedTimer clock;
    qint64 milliseconds = 0; // that it has taken

    void fail(const QString& reason)
    {
        state.failure = reason;
        done = true;
    }

    // A mistake in the text: it isn't played.
    void refuse(int line, const QString& reason)
    {
        errorLine = line;
        fail(reason);
    }

    // What the report names: the line, the title, and why it failed.
    QString told() const
    {
        const Step step = scenario.steps.value(state.step);
        const bool passed = state.failure.isEmpty();
        int line = errorLine;
        if (line == 0) line = passed || step.line == 0 ? scenario.line : step.line;
        QString text = line > 0 ? QStringLiteral("%1:%2").arg(file).arg(line) : file;
        if (!scenario.title.isEmpty()) text += ' ' + scenario.title;
        if (!passed) text += ": " + state.failure;
        if (!passed && !step.origin.isEmpty()) text += " (" + step.origin + ')';
        return text;
    }

    void startProcess(const QString& shots)
    {
        process.start(QCoreApplication::applicationFilePath(),
                      {"--play", QFileInfo(file).absoluteFilePath(), QString::number(index), folder, shots});
    }

    void crash()
    {
        fail("the process crashed");
        QString told = QString::fromUtf8(process.readAllStandardError()).trimmed();
        lastWords = "   | " + told.replace('\n', "\n   | ");
    }

    // Looks at how the process ended. False where the scenario goes on in a new one.
    bool isOver()
    {
        const bool told = state.read(folder + "/state");
        if (!limit.isActive())
            fail(QStringLiteral("not over after %1 seconds").arg(seconds));
        else if (process.error() == QProcess::FailedToStart)
            fail("the process can't be started: " + process.errorString());
        else if (process.exitStatus() == QProcess::CrashExit || process.exitCode() == sanitizerExit || !told)
            crash();
        else
            done = state.finished || !state.failure.isEmpty();
        if (done) return true;
        if (!state.restarting) {
            state.ended = true;
            state.write(folder + "/state");
        }
        return false;
    }
};

Runner::Runner(Options options)
    : options_(std::move(options)), temporary_(options_.folder.isEmpty() ? std::make_unique<QTemporaryDir>() : nullptr),
      folder_(temporary_ ? temporary_->path() : options_.folder),
      environment_(playEnvironment(folder_, options_.shots.isEmpty() ? plainScreen : pictureScreen))
{
}

Runner::~Runner() = default;

bool Runner::chosen(const QString& title) const
{
    return options_.only.isEmpty() || options_.only.contains(title);
}

void Runner::collect()
{
    const auto add = [this](const QString& file, int index, const Scenario& scenario) -> Job& {
        jobs_.push_back(std::make_unique<Job>());
        Job& job = *jobs_.back();
        job.file = file;
        job.index = index;
        job.scenario = scenario;
        if (!scenario.error.isEmpty()) job.refuse(scenario.errorLine, scenario.error);
        return job;
    };
    for (const QString& file : options_.files) {
        const Script script = readScript(file, forms());
        if (!script.error.isEmpty()) add(file, 0, {}).refuse(script.errorLine, script.error);
        for (int index = 0; index < script.scenarios.size(); ++index)
            if (chosen(script.scenarios[index].title)) add(file, index, script.scenarios[index]);
    }
    for (const QString& title : options_.only)
        if (std::none_of(jobs_.begin(), jobs_.end(), [&](const auto& job) { return job->scenario.title == title; }))
            add("--only", 0, {}).fail("no scenario has the title " + quoted(title));
}

void Runner::startNext()
{
    while (started_ < jobs_.size() && jobs_[started_]->done)
        ++started_;
    if (started_ == jobs_.size()) return;
    Job& job = *jobs_[started_];
    job.folder = QStringLiteral("%1/%2").arg(QDir(folder_).canonicalPath()).arg(++started_);
    QDir().mkpath(job.folder + "/dir");
    copyProgramFolder(options_.programFolder, job.folder + "/program");
    for (const QString& file : options_.bring)
        copyToAlter(file, job.folder + "/dir/" + QFileInfo(file).fileName());

    makeDocumentsFolder(job.folder);
    QProcessEnvironment own = environment_;
    own.insert("XDG_CONFIG_HOME", job.folder); // what the user has chosen, and where their documents are
    job.process.setProcessEnvironment(own);
    job.process.setWorkingDirectory(job.folder + "/dir");
    job.seconds = options_.seconds;
    job.limit.setSingleShot(true);
    job.limit.callOnTimeout(&job.process, &QProcess::kill);
    job.limit.start(options_.seconds * options_.second);
    job.clock.start();
    const auto over = [this, &job] {
        if (!job.isOver()) return job.startProcess(options_.shots);
        job.milliseconds = job.clock.elapsed();
        report();
        startNext();
    };
    QObject::connect(&job.process, &QProcess::finished, &job.process, over);
    QObject::connect(&job.process, &QProcess::errorOccurred, &job.process, [over](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) over();
    });
    job.startProcess(options_.shots);
}

void Runner::print(const Job& job)
{
    QTextStream out(stdout);
    const bool passed = job.state.failure.isEmpty();
    ++(passed ? passed_ : failed_);
    out << (passed ? "ok " : "not ok ") << job.told() << '\n';
    if (!job.lastWords.isEmpty()) out << job.lastWords << '\n';
    if (options_.cost && passed)
        for (const Account& account : job.state.accounts.report())
            out << "   cost" << (account.title.isEmpty() ? QString() : ' ' + quoted(account.title)) << ": "
                << account.cost.told() << '\n';
    if (!passed && options_.keep && !job.folder.isEmpty())
        out << "   kept: " << job.folder << '\n';
    else if (!job.folder.isEmpty())
        removeFolder(job.folder);
}

void Runner::report()
{
    while (reported_ < jobs_.size() && jobs_[reported_]->done)
        print(*jobs_[reported_++]);
    if (reported_ == jobs_.size()) QCoreApplication::exit();
}

void Runner::printSlowest() const
{
    std::vector<const Job*> jobs;
    for (const auto& job : jobs_)
        jobs.push_back(job.get());
    std::stable_sort(jobs.begin(), jobs.end(),
                     [](const Job* a, const Job* b) { return a->milliseconds > b->milliseconds; });
    jobs.resize(std::min(jobs.size(), size_t(options_.slowest)));
    QTextStream out(stderr);
    for (const Job* job : jobs)
        out << job->milliseconds << " ms " << job->told() << '\n';
}

bool Runner::run()
{
    collect();
    const int atOnce = isOffscreen() ? options_.jobs : 1;
    for (int i = 0; i < atOnce; ++i)
        startNext();
    QTimer::singleShot(0, [this] { report(); });
    QCoreApplication::exec();
    if (temporary_) temporary_->setAutoRemove(!options_.keep || failed_ == 0);
    printSlowest();
    QTextStream(stdout) << passed_ << " passed, " << failed_ << " failed\n";
    return failed_ == 0;
}
