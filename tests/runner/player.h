// Plays one scenario in this process, from the step where it stands to its end or to the end of the process.
#pragma once

#include "language.h"
#include "watcher.h"

#include <QTimer>

// Runs in the application's event loop, one step at a time. What comes of it stands in the state of the stage.
// The process ends by itself when the scenario is over, has failed, or is to be restarted; the event loop is left only
// where the program ends it.
class Player : public QObject
{
public:
    Player(Stage& stage, const Scenario& scenario);

private:
    void tick();
    void play();
    void playWithin();
    void perform(const Step& step);
    void turnedTo(const QString& form);
    [[noreturn]] void end();
    [[noreturn]] void endWith(const QString& failure);

    Stage& stage_;
    const Scenario& scenario_;
    Watcher watcher_;
    QTimer timer_;
    int idle_ = 0;         // ticks behind the splash without a step
    QString active_;       // the form that was active last
    bool playing_ = false; // a step is under way; the timer then ticks inside a wait of the program
};

// The process that plays a scenario: reads what is to be played from its arguments, and returns its exit status.
int playScenario(const QStringList& arguments, char** argv);
