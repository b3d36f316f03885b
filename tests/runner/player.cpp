#include "player.h"

#include "cost.h"
#include "expectations.h"
#include "failure.h"
#include "quiet.h"

#include "platform/time/clock.h"
#include "shell/application.h"

#include <QThread>

#include <cstdlib>

#ifdef ORV_COVERAGE
extern "C" void __gcov_dump();
#endif

namespace {

constexpr int tickMilliseconds = 5;
constexpr int ticksOfPatience = 100;
constexpr std::chrono::seconds splashTime(3);

// Ends the process as a power cut would. Where lines are counted, it first hands in what it has counted.
[[noreturn]] void endProcess()
{
#ifdef ORV_COVERAGE
    __gcov_dump();
#endif
    std::_Exit(EXIT_SUCCESS);
}

} // namespace

Player::Player(Stage& stage, const Scenario& scenario)
    : stage_(stage), scenario_(scenario), watcher_(stage, [this](const QString& reason) { endWith(reason); })
{
    timer_.setSingleShot(true);
    timer_.callOnTimeout(this, &Player::tick);
    timer_.start(0);
}

void Player::tick()
{
    if (playing_) {
        if (watcher_.keptSplash() && !stage_.isSettling()) playWithin();
        timer_.start(tickMilliseconds);
        return;
    }
    play();
    timer_.start(0);
}

void Player::play()
{
    const bool over = stage_.state.next == scenario_.steps.size();
    try {
        if (over) {
            Expect::nothingLeft(stage_);
            stage_.state.finished = true;
            end();
        }
        playing_ = true;
        timer_.start(tickMilliseconds);
        perform(scenario_.steps[stage_.state.next]);
        playing_ = false;
    } catch (const Failure& failure) {
        endWith(failure.reason);
    }
}

// The program waits behind a splash that was left alone: goes on with what a person could do and see meanwhile. Where
// nothing of that is left, or is not to be seen for half a second, the splash's time is let pass.
void Player::playWithin()
{
    const State before = stage_.state;
    const bool over = before.next == scenario_.steps.size();
    if (over || within(scenario_.steps[before.next]) == Within::Never) return Clock::pass(splashTime);
    const Step& step = scenario_.steps[before.next];
    try {
        perform(step);
        idle_ = 0;
    } catch (const Failure& failure) {
        if (within(step) == Within::Always) endWith(failure.reason);
        stage_.state = before; // not to be seen yet
        stage_.save();
        if (++idle_ % ticksOfPatience == 0) Clock::pass(splashTime);
    }
}

void Player::perform(const Step& step)
{
    State& state = stage_.state;
    if (isRestart(step) && !std::exchange(state.restarting, false)) {
        state.step = state.next;
        state.restarting = true;
        end();
    }
    state.step = state.next++;
    stage_.save();
    Play play(stage_, step);
    state.accounts.spend(costOf(play));
    turnedTo(formOf(play));
    language()[step.form].play(play);
    turnedTo(activeForm());
}

void Player::turnedTo(const QString& form)
{
    if (form.isEmpty() || form == active_) return;
    active_ = form;
    stage_.state.accounts.spend({.windows = 1});
}

void Player::end()
{
    stage_.save();
    endProcess();
}

void Player::endWith(const QString& failure)
{
    stage_.state.failure = failure;
    end();
}

int playScenario(const QStringList& arguments, char** argv)
{
    keepQuietAboutThePlatform();
    const Script script = readScript(arguments.value(0), forms());
    const Scenario& scenario = script.scenarios[arguments.value(1).toInt()];
    Application::setAttribute(Qt::AA_DontUseNativeDialogs);
    Application application(argv);
    Application::setCursorFlashTime(0); // pictures taken twice are the same
    Stage stage(arguments.value(2), arguments.value(3));
    const Player player(stage, scenario);
    const int status = Application::exec();
    stage.takeDown();
    // An error that nothing handled has gone through the toolkit, which drops what it held.
    if (status != EXIT_SUCCESS) endProcess();
    return EXIT_SUCCESS;
}
