#include "inputs/session.h"

#include "failure.h"
#include "inputs/round.h"
#include "language.h"
#include "quiet.h"
#include "script.h"
#include "watcher.h"

#include "shell/application.h"

#include <QTimer>

#include <cstdlib>

using namespace Inputs;

namespace {

// Round N is the same whatever was played before it.
Dice diceOf(quint64 seed, int round)
{
    return Dice(seed * 0x9e3779b97f4a7c15u + quint64(round) * 0xbf58476d1ce4e5b9u + 1);
}

class Player
{
public:
    Player(const Session& session, Stage& stage)
        : session_(session), stage_(stage),
          journal_(session.folder + "/steps.txt", QStringLiteral("inputs of seed %1, rounds %2 to %3")
                                                      .arg(session.seed)
                                                      .arg(session.first)
                                                      .arg(session.last - 1)),
          watcher_(stage, [this](const QString& reason) { end(reason); })
    {
    }

    [[noreturn]] void play()
    try {
        prepare();
        const Store store(stage_.state.bdp);
        for (int round = session_.first; round < session_.last; ++round)
            playRound(store, round);
        end({});
    } catch (const Failure& failure) {
        end(failure.reason);
    }

private:
    void prepare()
    {
        const Script script = readScript(INPUTS_SETTINGS, forms());
        if (!script.error.isEmpty() || script.scenarios.isEmpty()) fail("the settings can't be read: " + script.error);
        for (const Step& step : script.scenarios.first().steps) {
            Play play(stage_, step);
            language()[step.form].play(play);
        }
        journal_.note("with \"a little of everything\"");
        journal_.note("start \"demo.orv\"");
    }

    void playRound(const Store& store, int round)
    {
        Dice dice = diceOf(session_.seed, round);
        QList<Window> chosen;
        for (const Window& window : windows())
            if (session_.only.isEmpty() || window.name == session_.only) chosen << window;
        if (chosen.isEmpty()) fail("no window has the name " + quoted(session_.only));
        const Window& window = dice.among(chosen);
        journal_.note(QStringLiteral("# round %1: %2").arg(round).arg(window.name));
        at_ = QStringLiteral("round %1, %2: ").arg(round).arg(window.name);
        StepPlayer player(stage_, journal_, Dice(quint64(dice.below(1 << 30))));
        Round(player, journal_, store, dice, window, tally_).play();
    }

    // As a power cut would: nothing is closed.
    [[noreturn]] void end(const QString& failure)
    {
        QFile file(session_.folder + "/outcome");
        if (file.open(QIODevice::WriteOnly)) {
            const Tally& t = tally_;
            for (const int count : {t.rounds, t.begun, t.stored, t.refused, t.givenUp, t.skipped})
                file.write(QByteArray::number(count) + ' ');
            file.write('\n' + (failure.isEmpty() ? QString() : at_ + failure).toUtf8());
            file.close();
        }
        std::_Exit(EXIT_SUCCESS);
    }

    const Session& session_;
    Stage& stage_;
    Journal journal_;
    Watcher watcher_;
    Tally tally_;
    QString at_;
};

} // namespace

int Inputs::playSession(const Session& session, char** argv)
{
    keepQuietAboutThePlatform();
    Application::setAttribute(Qt::AA_DontUseNativeDialogs);
    Application application(argv);
    Stage stage(session.folder);
    Player player(session, stage);
    QTimer::singleShot(0, [&] { player.play(); });
    Application::exec();
    return EXIT_FAILURE; // the program has ended by itself
}
