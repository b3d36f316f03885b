#include "attack.h"

#include "cases.h"
#include "mutations.h"
#include "verdict.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int wholeLook = 300;   // seconds
constexpr int rowsOfTheWork = 2; // of a table, that the steps of the work alter
constexpr int workEvery = 4;     // of the mutants; with the others somebody only looks through them

// The people of the demonstration that stand nearest to its beginning, and the places that they need: small enough for
// damage to meet something that is looked at.
constexpr auto leaveFew = R"(
    delete from individuo where nind > 60;
    delete from familias where nind > 60;
    delete from familia where nfamilia not in (select nfamilia from familias);
    delete from assistente where nind > 60;
    delete from residencia where numero > 60;
    delete from profissoes where nind > 60;
    delete from assinatura where nind > 60 and rowid > 5;
    delete from legadosprofanos where nind > 60 and rowid > 5;
    delete from rituaismorte where nind > 60 and rowid > 5;
    delete from passaporte where nind > 60 and rowid > 5;
    delete from paroquia where prioridade = 0 and rowid % 50 > 0;
    delete from concelho where rowid % 20 > 0 and codconcelho not in (select codconcelho from paroquia);
    delete from pais where rowid % 20 > 0 and codpais <> 'PT';
    delete from profissao where rowid > 60;
    vacuum
)";

QProcessEnvironment environmentOf(const QString& folder)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(name, folder);
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"})
        environment.insert(name, "exitcode=99:" + environment.value(name));
    return environment;
}

void copyFolder(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    const auto entries = QDir(from).entryInfoList(QDir::Files | QDir::System | QDir::Hidden);
    for (const QFileInfo& entry : entries)
        if (entry.isFile()) QFile::copy(entry.filePath(), to + '/' + entry.fileName());
}

} // namespace

struct Attacker::Job
{
    QString name;
    const Case* known = nullptr; // else a mutant of this number
    int number = 0;
    bool works = false; // else it only looks
    QString folder;
    std::unique_ptr<Site> site;
    std::unique_ptr<Before> before;
    QProcess process;
    QTimer limit;

    void make(quint64 seed, const QString& good)
    {
        site = std::make_unique<Site>(folder + "/dir");
        site->furnish(good);
        if (known) return known->make(*site);
        Dice dice(seed, quint64(number));
        name += mutate(*site, dice);
    }
};

Attacker::Attacker(Attack attack) : attack_(std::move(attack)) {}

Attacker::~Attacker() = default;

bool Attacker::makeGood()
{
    good_ = folder_.path() + "/boa.orv";
    if (!QFile::copy(ORV_DEMO, good_)) return false;
    return Raw(good_).run(leaveFew);
}

void Attacker::collect()
{
    const auto add = [this]() -> Job& { return *jobs_.emplace_back(std::make_unique<Job>()); };
    for (const Case& known : cases()) {
        const bool asked = attack_.only.isEmpty() ? attack_.withCases : attack_.only.contains(known.title);
        if (!asked) continue;
        for (const bool works : {false, true}) {
            Job& job = add();
            job.known = &known;
            job.works = works;
            job.name = known.title;
        }
    }
    for (int number = 0; attack_.only.isEmpty() && number < attack_.count; ++number) {
        Job& job = add();
        job.number = attack_.first + number;
        job.works = job.number % workEvery == 0;
        job.name = QStringLiteral("%1/%2 ").arg(attack_.seed).arg(job.number);
    }
}

void Attacker::startNext()
{
    if (started_ == jobs_.size()) return;
    Job& job = *jobs_[started_++];
    job.folder = QStringLiteral("%1/%2").arg(QDir(folder_.path()).canonicalPath()).arg(started_);
    QDir().mkpath(job.folder);
    QFile::setPermissions(job.folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile::link(ORV_DATA_DIR, job.folder + "/program");
    job.make(attack_.seed, good_);
    job.before = std::make_unique<Before>(*job.site, job.folder);

    job.process.setProcessEnvironment(environmentOf(job.folder));
    job.process.setWorkingDirectory(job.site->folder());
    job.process.setProcessChannelMode(QProcess::MergedChannels);
    job.limit.setSingleShot(true);
    job.limit.callOnTimeout(&job.process, &QProcess::kill);
    job.limit.start(wholeLook * 1000);
    QObject::connect(&job.process, &QProcess::finished, &job.process, [this, &job] { over(job); });
    job.process.start(QCoreApplication::applicationFilePath(),
                      {"--probe", job.folder, QString::number(attack_.seconds), job.works ? "work.txt" : "walk.txt"});
}

void Attacker::over(Job& job)
{
    Look look;
    State state;
    look.read(job.folder + "/look");
    state.read(job.folder + "/state");
    const Ending ending{job.process.exitStatus(), job.process.exitCode(), attack_.seconds};
    const Wanted wanted = job.known ? job.known->wanted : Wanted::Anything;
    const int mayChange = !job.works ? 0 : wanted == Wanted::Calm ? rowsOfTheWork : anyNumber;
    QString reason = verdict(*job.site, *job.before, look, state, ending, mayChange);
    if (reason.isEmpty()) reason = unmet(wanted, look, state);
    opened_ += look.opened ? 1 : 0;
    slowest_ = std::max(slowest_, look.slowest);
    tell(job, reason);

    QDir(job.folder).removeRecursively();
    job.site.reset();
    job.before.reset();
    if (++done_ == jobs_.size()) return QCoreApplication::exit();
    startNext();
}

void Attacker::tell(const Job& job, const QString& reason)
{
    QTextStream out(stdout);
    const QString name = job.name + (job.works ? ", worked in" : "");
    if (reason.isEmpty()) {
        out << "ok " << name << '\n';
        return;
    }
    ++failed_;
    out << "not ok " << name << ": " << reason << '\n';
    const QString words = QString::fromUtf8(const_cast<QProcess&>(job.process).readAll()).trimmed().left(20000);
    if (!words.isEmpty()) out << "   | " << QString(words).replace('\n', "\n   | ") << '\n';
    if (!attack_.keep.isEmpty()) out << "   kept: " << kept(job) << '\n';
}

// The file made once more, as it was before the look.
QString Attacker::kept(const Job& job)
{
    const QString name =
        job.known ? QString(job.name).replace(' ', '_') : QStringLiteral("%1_%2").arg(attack_.seed).arg(job.number);
    const QString to = attack_.keep + '/' + name;
    Job again;
    again.known = job.known;
    again.number = job.number;
    again.folder = job.folder + "/de_novo";
    again.make(attack_.seed, good_);
    copyFolder(again.site->folder(), to);
    return to;
}

bool Attacker::run()
{
    QTextStream out(stdout);
    if (!makeGood()) {
        out << "The good BDP can't be made.\n";
        return false;
    }
    collect();
    if (jobs_.empty()) {
        out << "Nothing to do.\n";
        return false;
    }
    for (int i = 0; i < std::max(1, QThread::idealThreadCount()); ++i)
        startNext();
    QCoreApplication::exec();
    out << opened_ << " opened, " << int(jobs_.size()) - opened_ << " refused; the slowest step took " << slowest_
        << " ms\n";
    out << int(jobs_.size()) - failed_ << " passed, " << failed_ << " failed\n";
    return failed_ == 0;
}
