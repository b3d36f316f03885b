// What is known of a scenario while it is played.
#pragma once

#include "cost.h"

#include <QList>
#include <QString>
#include <QStringList>

// A message box that came up.
struct Box
{
    QString text;
    QString title;
    QString icon;          // "none", "information", "question", "warning" or "critical"
    bool question = false; // had a choice, and an answer was ready for it
};

// How a question is answered: by a button, or by the Return key, which leaves it to the box.
enum class Answer
{
    No,
    Yes,
    Return
};

// It outlives the process that plays: the scenario goes on in a new one after a restart, or when the program has ended.
struct State
{
    int next = 0;            // the step to play next
    int step = -1;           // the step begun last
    bool finished = false;   // all steps have been played
    bool restarting = false; // the process ended for the restart that stands at `next`
    bool ended = false;      // the program has ended by itself, and was not started again
    QString failure;         // why the scenario failed; empty where it didn't

    QString bdp; // absolute path of the BDP that exec and expect sql use
    bool splashKept = false;
    bool programFolderTouched = false;
    QList<Answer> answers;
    QStringList picks;  // absolute paths; empty: cancel
    QList<Box> boxes;   // not yet expected, oldest first
    QStringList opened; // documents and URLs not yet expected
    Accounts accounts;  // of what a person has spent

    // False where the file holds none.
    bool read(const QString& file);
    void write(const QString& file) const;
};
