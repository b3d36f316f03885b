// What was found of one measure, what it should be, and whether it is.
#pragma once

#include "kit/spent.h"

#include <QString>
#include <QStringList>

#include <map>

namespace bench {

// What a side has asked of the engine and drawn, in one turn.
struct Traffic
{
    int statements = 0;
    int rows = 0;       // that the engine has handed out
    int changes = 0;    // rows written
    double painted = 0; // thousands of pixels
};

// One side: the medians of its turns.
struct Side
{
    Spent event;   // until the event returns, or the bare statements have run
    Spent painted; // and until all that waits to be painted is on the screen
    Traffic traffic;
};

struct AtSize
{
    Side ours;
    Side bare;
    double drift = 1;  // how much more of the processor's time the last turns take than the first
    double keptKb = 0; // of memory that most turns keep
};

struct Goal
{
    double ratio = 0;           // how many times the bare side it may take, with the painting on both sides; 0: no goal
    bool flat = true;           // the exponent of growth is at most flatExponent, and it takes no more than `most`
    std::map<int, double> ms{}; // how many milliseconds it may take, by the number of people; 0: at every size
    double drift = 0;           // how much longer the last turns may take than the first; 0: no goal
    double keptKb = -1;         // how much memory a turn may keep; below 0: no goal
    double most = 100;          // milliseconds at any size, where it is to be flat
};

inline constexpr double flatExponent = 0.1;

// What was measured at each number of people; 0 where it doesn't depend on them.
using Results = std::map<int, AtSize>;

double ratioWithPainting(const AtSize& result);
double ratioWithoutPainting(const AtSize& result);
double ratioOfProcessor(const AtSize& result); // with the painting

// Our time, with the painting; of what writes, less what the bare side waits for the disk: that is the machine's, and
// hides what grows.
double ownTime(const AtSize& result);
double exponentOf(const Results& results); // of our own time

// In words: "≤ 1.5 ×, flat".
QString inWords(const Goal& goal);
// What the results miss, each with its figure; none: they are as they should be. A bare side that asks for more rows,
// writes more or paints more than ours is told here as well, as a measure that flatters is worth nothing.
QStringList missed(const Goal& goal, const Results& results);

} // namespace bench
