// A measure: one event of the program, and the same work done bare.
#pragma once

#include "kit/result.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

struct sqlite3;

namespace bench {

// Both sides of one measure, on one size. A turn is a number of steps, mostly one; in each of them the program comes
// first, then the bare side, which paints what the program has painted.
class Sides
{
public:
    virtual ~Sides() = default;

    virtual int steps() const { return 1; }
    virtual void prepare(int) {} // what the user does before the event; no time is taken
    virtual void ours(int step) = 0;
    virtual void bare(int step) = 0;
    virtual void finish(int) {} // no time is taken
    // Whether the bare side shows a window of its own in that step, and paints nothing of the program's.
    virtual bool showsItself(int) const { return false; }

    // Their connections, whose traffic is counted in one turn; null: it isn't.
    virtual sqlite3* ourHandle() const { return nullptr; }
    virtual sqlite3* bareHandle() const { return nullptr; }
};

struct Measure
{
    QByteArray name;  // "insert-person": on the command line
    QByteArray event; // "insert and confirm of a person": in the table
    Goal goal = {};
    std::function<std::unique_ptr<Sides>(int people)> make;
    int turns = 40;
    int times = 1;     // how often a turn does the work: the figures are those of one
    bool sized = true; // false: it has nothing to do with the number of people
};

// All measures, in the order of the table.
const std::vector<Measure>& measures();

// The results at one size: a turn that warms up, one whose traffic is counted, and those that are timed.
AtSize measured(const Measure& measure, int people);

} // namespace bench
