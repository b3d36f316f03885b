// Opens one file in the real windows, as somebody does who looks through it.
#pragma once

#include <QString>

// What a look through a file has brought, as far as it came.
struct Look
{
    bool over = false;   // to its end, with the program left in good order
    bool opened = false; // the program has taken the file
    QString failure;     // why it broke off
    QString step;        // the last step
    int slowest = 0;     // milliseconds of the slowest step
    QString slowestStep;

    bool read(const QString& path);
    void write(const QString& path) const;
};

// The process of one look: folder, limit in seconds for a step, the file of steps. How far it came stands in the
// folder, in the file "look", and the boxes in "state", the state of the stage. A step that takes longer ends the
// process by SIGPROF or, where it only waits, by SIGALRM.
int probe(const QStringList& arguments, char** argv);
