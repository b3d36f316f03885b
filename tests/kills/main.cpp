// orv-kills: enters people into the real program by the keyboard, kills it at any moment, and looks at the file.
#include "dice.h"
#include "screen.h"
#include "witness.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <csignal>
#include <exception>

namespace {

constexpr int toStart = 30000;   // milliseconds that a start may take
constexpr qint64 toEnter = 1500; // after which the program is killed at the latest

// A person as it is typed on the card: name, sex, title, nickname, notes; then "conf&Irmar".
QByteArray person(const QString& mark)
{
    return QStringLiteral("type --delay 1 \"Pessoa %1\"\n"
                          "key --delay 1 Tab Tab space Tab\n"
                          "type --delay 1 \"Titulo %1\"\n"
                          "key --delay 1 Tab\n"
                          "type --delay 1 \"Alcunha %1\"\n"
                          "key --delay 1 Tab Tab Tab\n"
                          "type --delay 1 \"Obs %1\"\n"
                          "key alt+i\n")
        .arg(mark)
        .toLatin1();
}

class Killer
{
public:
    Killer(const Screen& screen, QString program, QString bdp, quint64 seed)
        : screen_(screen), program_(std::move(program)), bdp_(std::move(bdp)), witness_(bdp_), seed_(seed)
    {
    }

    // One start, some people, one kill. What is wrong afterwards; empty where nothing is.
    QString kill(int number)
    {
        Dice dice(seed_, quint64(number));
        QProcess orv;
        const QByteArray window = start(orv);
        if (window.isEmpty()) return "the program doesn't take up the BDP";
        beginEntry(window);
        enterUntilTheKill(number, dice, orv.processId());
        orv.waitForFinished();
        witness_.look();
        return witness_.judge();
    }

    // The start after the last kill.
    bool isTakenUp() const
    {
        QProcess orv;
        const bool takenUp = !start(orv).isEmpty();
        orv.kill();
        orv.waitForFinished();
        return takenUp;
    }

    const Witness& witness() const { return witness_; }
    int inTheMiddle() const { return inTheMiddle_; }

private:
    // The program's window, once it has the BDP; else nothing.
    QByteArray start(QProcess& orv) const
    {
        orv.setProcessEnvironment(screen_.environment());
        orv.start(program_, {bdp_});
        const QByteArray window = screen_.waitForWindow(orv.processId(), "BDP: ", toStart);
        if (!window.isEmpty()) return window;
        orv.kill();
        orv.waitForFinished();
        return {};
    }

    // The card of a person with its next blank. Showing it moves the focus of the bare screen away from the window.
    void beginEntry(const QByteArray& window) const
    {
        screen_.play("windowfocus --sync " + window + "\nkey ctrl+i\n");
        QThread::msleep(400);
        screen_.play("windowfocus --sync " + window + "\nkey alt+i\n");
    }

    void enterUntilTheKill(int number, Dice& dice, qint64 process)
    {
        const bool inACommit = dice.chance(50);
        const int moment = dice.below(toEnter);
        const int inside = dice.below(3000); // microseconds behind the first sign of a commit
        QElapsedTimer clock;
        clock.start();
        QProcess hands;
        for (int count = 1; clock.elapsed() < moment || (inACommit && clock.elapsed() < 2 * toEnter);) {
            if (hands.state() == QProcess::NotRunning)
                screen_.start(hands, person(QStringLiteral("%1 %2").arg(number).arg(count++)));
            hands.waitForFinished(1);
            if (inACommit && clock.elapsed() > moment && witness_.journalStands()) {
                QThread::usleep(ulong(inside));
                break;
            }
            witness_.look();
        }
        ::kill(pid_t(process), SIGKILL);
        if (witness_.journalStands()) ++inTheMiddle_;
        hands.waitForFinished(); // a key that is left down would go to the next start
    }

    const Screen& screen_;
    QString program_;
    QString bdp_;
    Witness witness_;
    quint64 seed_;
    int inTheMiddle_ = 0;
};

bool attack(const QString& program, int kills, quint64 seed)
{
    QTextStream out(stdout);
    const QTemporaryDir folder;
    const QString bdp = folder.filePath("paroquia.orv");
    QFile::copy(ORV_DEMO, bdp);
    QFile::setPermissions(bdp, QFile::ReadOwner | QFile::WriteOwner);
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
    const Screen screen;
    Killer killer(screen, program, bdp, seed);
    int failed = 0;
    for (int number = 1; number <= kills; ++number) {
        const QString reason = killer.kill(number);
        if (reason.isEmpty()) continue;
        ++failed;
        out << "not ok kill " << number << " of seed " << seed << ": " << reason << '\n' << Qt::flush;
    }
    if (!killer.isTakenUp()) {
        ++failed;
        out << "not ok: the program doesn't take up the BDP after the last kill\n";
    }
    const int people = killer.witness().acknowledged();
    out << people << " people acknowledged; " << killer.inTheMiddle() << " kills left a journal\n";
    if (people < kills / 4) {
        out << "not ok: too few people were entered for the kills to tell anything\n";
        ++failed;
    }
    out << kills - failed << " passed, " << failed << " failed\n";
    return failed == 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Kills the program while people are entered, and looks at what is left.");
    parser.addHelpOption();
    const QCommandLineOption seed("seed", "The chance behind the moments.", "N", "1");
    const QCommandLineOption count("count", "How many kills.", "N", "20");
    const QCommandLineOption program("program", "The program.", "FILE", ORV_PROGRAM);
    parser.addOptions({seed, count, program});
    parser.process(application);
    try {
        const bool kept = attack(parser.value(program), parser.value(count).toInt(), parser.value(seed).toULongLong());
        return kept ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        QTextStream(stderr) << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
