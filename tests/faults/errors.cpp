#include "errors.h"

#include "failure.h"
#include "recorder.h"
#include "recordingVfs.h"
#include "workload.h"

#include "platform/jet/recordset.h"
#include "store/copiaDiaria.h"
#include "store/session.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <random>

namespace {

constexpr unsigned longestSeconds = 60;

// How the process of one failing call ends.
enum Outcome
{
    Done = 10,
    Repeated,
    NotRepeated,
    NothingFailed,
    Problem
};

const Mark& markOf(const Recording& recording, int step)
{
    return *std::find_if(recording.marks.begin(), recording.marks.end(),
                         [step](const Mark& mark) { return mark.number == step; });
}

bool writes(const Recording& recording, qsizetype mark)
{
    const int before = mark == 0 ? 0 : recording.marks[mark - 1].state;
    return recording.marks[mark].state != before;
}

// What the engine says of itself in English.
bool isForeign(const QString& text)
{
    static const QRegularExpression words(
        QStringLiteral("\\b(database|disk|constraint|malformed|no such|out of memory|error|unable|locked|failed)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    return words.match(text).hasMatch();
}

// A daily copy that can't be made is no matter of the step.
Snapshot withoutCopies(Snapshot snapshot)
{
    for (const QString& name : snapshot.keys())
        if (name.startsWith("copias/")) snapshot.remove(name);
    return snapshot;
}

// The act in work is kept when the next field is left, or a box comes up: it may be older or newer than the step.
Snapshot withoutDraft(Snapshot snapshot)
{
    for (Content& content : snapshot)
        content.remove(draftTable);
    return snapshot;
}

// The files of a folder, to be put back in place: open handles stay good.
class Files
{
public:
    explicit Files(const QString& folder) : folder_(folder), hadCopies_(QDir(folder + "/copias").exists())
    {
        for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
            QFile file(folder + '/' + name);
            if (file.open(QIODevice::ReadOnly)) files_.insert(name, file.readAll());
        }
    }

    void putBack() const
    {
        for (const QString& name : QDir(folder_).entryList(QDir::Files | QDir::Hidden))
            if (!files_.contains(name)) QFile::remove(folder_ + '/' + name);
        if (!hadCopies_) QDir(folder_ + "/copias").removeRecursively();
        for (auto known = files_.begin(); known != files_.end(); ++known) {
            QFile file(folder_ + '/' + known.key());
            if (!file.open(QIODevice::ReadWrite) || file.write(known.value()) != known.value().size() ||
                !file.resize(known.value().size()))
                qFatal("%s can't be put back", qPrintable(file.fileName()));
        }
    }

private:
    QString folder_;
    bool hadCopies_;
    QMap<QString, QByteArray> files_;
};

// What is to be seen of one failing call, in a process of its own.
class Trial
{
public:
    Trial(Workload& workload, const Recording& recording, const Failing& failing)
        : workload_(workload), recording_(recording), failing_(failing), mark_(markOf(recording, failing.step)),
          after_(withoutCopies(recording.states[mark_.state]))
    {
        const auto number = &mark_ - recording.marks.constData();
        before_ = withoutCopies(recording.states[number == 0 ? 0 : recording.marks[number - 1].state]);
    }

    int play()
    {
        const State state = workload_.stage().state; // with the answers and picks of the step
        recorder().plan(failing_.plan);
        const QStringList boxes = tried();
        const bool fired = recorder().fired();
        recorder().plan({});
        if (!fired) return NothingFailed;

        const bool done = isIn(after_);
        if (done && isStillInWork()) return problem("it is done, and the act is in work still: " + halves());
        const bool silent = boxes == mark_.boxes && failure_.isEmpty();
        if (!done && silent) return problem("it isn't done, and nobody was told: " + halves());
        if (!done && !isIn(before_)) return problem("what stands there is half: " + halves());
        for (const QString& box : boxes)
            if (isForeign(box)) return problem("a box isn't Portuguese: " + box);
        if (const QString reason = unusable(); !reason.isEmpty()) return problem(reason);
        return done ? Done : repeat(state);
    }

private:
    int problem(const QString& reason) const
    {
        QTextStream(stdout) << "not ok " << ::told(recording_, failing_) << "\n   " << reason << Qt::endl;
        return Problem;
    }

    // Plays the step; what came up in it, wherever it ended.
    QStringList tried()
    {
        failure_.clear();
        const qsizetype before = workload_.stage().state.boxes.size();
        try {
            workload_.play(failing_.step);
        } catch (const Failure& failure) {
            failure_ = failure.reason;
            workload_.stage().settle();
            esperaCopiaDiaria();
        }
        QStringList boxes;
        for (const Box& box : workload_.stage().state.boxes.mid(before))
            boxes << box.text;
        return boxes;
    }

    // What was made under a new name before it was told that it can't be finished stays, and doesn't count.
    Snapshot now() const
    {
        Snapshot found = withoutCopies(snapshotOf(workload_.stage().dir()));
        if (withoutDraft(found) != withoutDraft(after_))
            for (const QString& name : found.keys())
                if (!before_.contains(name)) found.remove(name);
        return found;
    }

    bool isIn(const Snapshot& state) const { return withoutDraft(now()) == withoutDraft(state); }

    // What was stored is offered again at the next start. Where the commit is told as failed, it has to be.
    bool isStillInWork() const
    {
        return failing_.plan.fault != Fault::AfterWork && withoutDraft(before_) != withoutDraft(after_) &&
               now() != after_;
    }

    QString halves() const
    {
        QStringList all;
        const Snapshot found = now();
        for (const QString& name : (found.keys() + before_.keys() + after_.keys()))
            all << name + " before: " + difference(found.value(name), before_.value(name)) +
                       "; after: " + difference(found.value(name), after_.value(name));
        all.removeDuplicates();
        return all.join(" | ");
    }

    // The connection that stays open after the failure reads and writes, and commits what makes no difference.
    static QString unusable()
    {
        if (cnBDP.state() == jet::Connection::Closed) return {};
        try {
            cnBDP.beginTrans();
            cnBDP.execute("create table prova (numero long)");
            cnBDP.execute("insert into prova (numero) values (1)");
            const jet::Recordset row(cnBDP, "select numero from prova");
            cnBDP.rollbackTrans();
            if (!cnBDP.tables().contains("infopar", Qt::CaseInsensitive)) return {}; // of a BDP that is being made
            cnBDP.beginTrans();
            cnBDP.execute("insert into infopar (cod, nome) values ('prova', 'outra')");
            cnBDP.execute("delete from infopar where cod = 'prova'");
            cnBDP.commitTrans();
            return {};
        } catch (const jet::Error& error) {
            return "the connection is of no use any more: " + error.description;
        }
    }

    // The user does it again, with nothing failing.
    int repeat(const State& state)
    {
        workload_.stage().state.answers = state.answers;
        workload_.stage().state.picks = state.picks;
        workload_.stage().state.answers << Answer::Yes; // it may ask whether what was half made is to be replaced
        const QStringList boxes = tried();
        if (!failure_.isEmpty()) return isIn(before_) ? NotRepeated : problem("half, after it was tried again");
        if (isIn(after_)) return Repeated;
        if (isIn(before_) && boxes != mark_.boxes) return NotRepeated; // it says what is to be done first
        return problem("done again, it comes to something else: " + halves() + " with the boxes " + boxes.join(" / "));
    }

    Workload& workload_;
    const Recording& recording_;
    const Failing& failing_;
    const Mark& mark_;
    Snapshot before_;
    Snapshot after_;
    QString failure_;
};

// The trial in a process of its own, over the same disk.
int outcome(Trial& trial)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(longestSeconds);
        leave(trial.play());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void count(ErrorTally& tally, int outcome)
{
    if (outcome == NothingFailed) return;
    ++tally.failing;
    if (outcome == Done)
        ++tally.done;
    else if (outcome == Repeated)
        ++tally.repeated;
    else if (outcome != NotRepeated)
        ++tally.problems;
}

} // namespace

QList<Failing> failingOf(const Recording& recording, qsizetype count, quint32 seed)
{
    std::mt19937 draw(seed);
    QList<QList<Failing>> byFault;
    for (const Fault fault : faults) {
        QList<Failing> all;
        for (qsizetype mark = 0; mark < recording.marks.size(); ++mark)
            for (int at = 1; writes(recording, mark) && at <= recording.marks[mark].calls[int(fault)]; ++at)
                for (const bool lasting : {false, true})
                    all << Failing{recording.marks[mark].number, {at, fault, lasting}};
        std::shuffle(all.begin(), all.end(), draw);
        if (!all.isEmpty()) byFault << all;
    }
    std::sort(byFault.begin(), byFault.end(), [](const auto& a, const auto& b) { return a.size() < b.size(); });
    QList<Failing> chosen;
    for (qsizetype i = 0; i < byFault.size(); ++i) {
        const qsizetype share = (count - chosen.size()) / (byFault.size() - i);
        chosen += byFault[i].mid(0, share);
    }
    std::stable_sort(chosen.begin(), chosen.end(), [](const Failing& a, const Failing& b) { return a.step < b.step; });
    return chosen;
}

QString told(const Recording& recording, const Failing& failing)
{
    return QStringLiteral("--only \"%1\" --step %2 --fault %3 --call %4%5 (in %6)")
        .arg(recording.title)
        .arg(failing.step)
        .arg(::told(failing.plan.fault))
        .arg(failing.plan.at)
        .arg(failing.plan.lasting ? QString(" --lasting") : QString(), markOf(recording, failing.step).step);
}

ErrorTally playFailing(const Scenario& scenario, const Recording& recording, const QList<Failing>& all,
                       const QString& folder)
{
    ErrorTally tally;
    installRecordingVfs();
    installRecordingDisk();
    Workload workload(scenario, folder, [](const QString& reason) {
        QTextStream(stdout) << "   " << reason << Qt::endl;
        leave(Problem);
    });
    auto next = all.begin();
    for (int step = 0; step < workload.steps() && next != all.end(); ++step) {
        if (workload.is(step, "start")) recorder().begin(workload.stage().dir());
        const Files files(workload.stage().dir());
        for (; next != all.end() && next->step == step; ++next) {
            Trial trial(workload, recording, *next);
            const int how = outcome(trial);
            count(tally, how);
            if (how < Done)
                QTextStream(stdout) << "not ok " << told(recording, *next) << "\n   crashed or hung: " << how
                                    << Qt::endl;
            files.putBack();
        }
        if (!workload.is(step, "expect")) workload.play(step);
    }
    return tally;
}
