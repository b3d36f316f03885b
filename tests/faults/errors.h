// Calls fail while a workload is played, each in turn, and what becomes of it is looked at.
#pragma once

#include "fault.h"
#include "recording.h"
#include "script.h"

// One call that fails in one step.
struct Failing
{
    int step = 0;
    Plan plan;
};

struct ErrorTally
{
    qsizetype failing = 0;  // calls that failed
    qsizetype done = 0;     // after which the step was done all the same
    qsizetype repeated = 0; // after which it was not, and could be done again
    qsizetype problems = 0;
};

// `count` of them, drawn by the seed, of each fault as many, by the steps.
QList<Failing> failingOf(const Recording& recording, qsizetype count, quint32 seed);
QString told(const Recording& recording, const Failing& failing);

// Plays the workload, and at each step, in a process for each, what fails in it. Prints what is wrong.
// Precondition: an application runs, and the process has no connection yet.
ErrorTally playFailing(const Scenario& scenario, const Recording& recording, const QList<Failing>& all,
                       const QString& folder);
