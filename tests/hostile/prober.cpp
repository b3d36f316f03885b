#include "prober.h"

#include "failure.h"
#include "language.h"
#include "quiet.h"
#include "watcher.h"

#include "shell/application.h"
#include "store/session.h"

#include <QDataStream>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QTimer>

#include <cstdlib>
#include <sys/time.h>
#include <unistd.h>

namespace {

constexpr int mostQuestions = 30; // of one step; more would be a program that doesn't stop asking

// Ends the process where this much time is spent from here on, or three times as much is waited: other programs of a
// busy machine don't count against ours, but who hangs spends nothing. 0 takes both away.
void limitTo(unsigned seconds)
{
    const itimerval spent{{}, {time_t(seconds), 0}};
    setitimer(ITIMER_PROF, &spent, nullptr);
    alarm(3 * seconds);
}

class Prober : public QObject
{
public:
    Prober(Stage& stage, const QString& folder, unsigned seconds, const QString& steps)
        : stage_(stage), file_(folder + "/look"), seconds_(seconds),
          watcher_(stage, [this](const QString& reason) { unforeseen(reason); })
    {
        QFile file(ORV_HOSTILE_STEPS "/" + steps);
        if (!file.open(QIODevice::ReadOnly)) end("the steps can't be read");
        lines_ = QString::fromUtf8(file.readAll()).split('\n');
        QTimer::singleShot(0, this, &Prober::go);
    }

    void finish()
    {
        look_.over = true;
        save();
    }

private:
    void go()
    {
        for (const QString& line : std::as_const(lines_))
            if (!line.isEmpty() && !line.startsWith('#')) play(line);
        if (stage_.runs() && !programEnding()) end("the program can't be ended");
    }

    void play(const QString& line)
    {
        if (programEnding() && !leaving_) return end("the program has ended by itself");
        if (line == "menu mnuSair") leaving_ = true;
        look_.step = line;
        save();
        const Step step = parseStep(line, forms());
        const bool prepares = line.startsWith("answer") || line.startsWith("pick");
        if (!prepares) prepareAnswers();
        limitTo(seconds_);
        QElapsedTimer clock;
        clock.start();
        try {
            Play play(stage_, step);
            language()[step.form].play(play);
        } catch (const Failure&) {
            // Nothing that a person could do here.
        }
        limitTo(0);
        note(line, int(clock.elapsed()));
        if (prepares) return;
        stage_.state.answers.clear();
        stage_.state.picks.clear();
    }

    void prepareAnswers()
    {
        while (stage_.state.answers.size() < mostQuestions)
            stage_.state.answers << Answer::No;
        while (stage_.state.picks.size() < mostQuestions)
            stage_.state.picks << QString();
    }

    void note(const QString& line, int milliseconds)
    {
        if (milliseconds > look_.slowest) {
            look_.slowest = milliseconds;
            look_.slowestStep = line;
        }
        if (cnBDP.state() == jet::Connection::Open) look_.opened = true;
    }

    void save()
    {
        stage_.save();
        look_.write(file_);
    }

    // The toolkit's dialog doesn't take what is no file: a person gives up there.
    void unforeseen(const QString& reason)
    {
        if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) return dialog->reject();
        end(reason);
    }

    void end(const QString& failure)
    {
        look_.failure = failure;
        save();
        std::_Exit(EXIT_SUCCESS);
    }

    Stage& stage_;
    QString file_;
    unsigned seconds_;
    Watcher watcher_;
    Look look_;
    bool leaving_ = false; // the end of the program is asked for
    QStringList lines_;
};

} // namespace

bool Look::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    QDataStream in(&file);
    in >> over >> opened >> failure >> step >> slowest >> slowestStep;
    return in.status() == QDataStream::Ok;
}

void Look::write(const QString& path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) qFatal("what was seen can't be written");
    QDataStream out(&file);
    out << over << opened << failure << step << slowest << slowestStep;
}

int probe(const QStringList& arguments, char** argv)
{
    keepQuietAboutThePlatform();
    Application::setAttribute(Qt::AA_DontUseNativeDialogs);
    Application application(argv);
    Stage stage(arguments.value(0));
    Prober prober(stage, arguments.value(0), arguments.value(1).toUInt(), arguments.value(2));
    const int status = Application::exec();
    prober.finish();
    stage.takeDown();
    return status;
}
