// A session in a process of its own: a small BDP, the program on it, and round after round.
#pragma once

#include <QString>

namespace Inputs {

struct Session
{
    quint64 seed = 0;
    int first = 0, last = 0; // the rounds, each thrown by its own number: last isn't played any more
    QString only;            // the name of a window; empty: any
    QString folder;
};

// Plays in this process, and ends it. What came of it stands in the folder: "steps.txt", a scenario, and "outcome".
int playSession(const Session& session, char** argv);

} // namespace Inputs
