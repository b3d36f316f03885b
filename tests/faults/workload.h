// The workloads: scenarios, played in the real windows with the recorder below them.
#pragma once

#include "script.h"
#include "stage.h"
#include "watcher.h"

#include <functional>

// The scenarios of the files; ends the process with a word where one can't be read or has nothing to play.
QList<Scenario> readWorkloads(const QStringList& files, const QStringList& only);

// A folder with what a stage needs, below `parent`.
QString makeStage(const QString& parent, const QString& name);

// What the windows need of the environment; told before there is an application. The folder stays while they are used.
void prepareEnvironment(const QString& folder);

// Runs `work` within the event loop of an application of its own and ends the process, with what it returns. A Failure
// that comes out of it is printed, and the status is 2.
[[noreturn]] void runInApplication(const std::function<int()>& work);

// The end of a process that forked: nothing of it is taken down.
[[noreturn]] void leave(int status);

// A scenario as the tests of faults play it: one step after the other, to the end or to the first that can't be done.
// Precondition: an application runs.
class Workload
{
public:
    // `failed` is told what came up unforeseen, and doesn't return.
    Workload(const Scenario& scenario, const QString& stage, std::function<void(const QString&)> failed);

    int steps() const { return int(scenario_.steps.size()); }
    QString told(int step) const;
    bool is(int step, const char* word) const; // the first word of the step

    // The recorder begins before the program starts, and marks the end of each step from there on. Returns the texts of
    // the boxes that came up. Throws Failure.
    QStringList play(int step);
    Stage& stage() { return stage_; }

private:
    const Scenario& scenario_;
    Stage stage_;
    Watcher watcher_;
};
