// Does one step after the other as a scenario would, and writes them down as one.
#pragma once

#include "dice.h"
#include "journal.h"
#include "stage.h"

// What came of a step.
struct Outcome
{
    bool done = false;          // false: a person couldn't do it, as with a field that is locked
    QStringList boxes;          // the texts of the boxes that weren't questions
    bool refusedByUser = false; // a question was answered with "no"

    bool error() const; // one of the boxes was an error
    void add(const Outcome& later);
};

// Questions are answered, and files picked, at random.
class StepPlayer
{
public:
    StepPlayer(Stage& stage, Journal& journal, Dice dice) : stage_(stage), journal_(journal), dice_(dice) {}

    // Throws Failure for a step that takes too long, and for a box that isn't in Portuguese.
    Outcome play(const QString& step);
    Outcome prepare(const QString& step); // one that isn't written down

private:
    QStringList plan();
    QStringList used(const QStringList& planned) const;
    QStringList seen(Outcome& outcome);

    Stage& stage_;
    Journal& journal_;
    Dice dice_;
};
