// The turns of a measure: the program and the bare side, one after the other.
#pragma once

#include "kit/measure.h"
#include "kit/painted.h"

namespace bench {

class Turns
{
public:
    explicit Turns(Sides& sides) : sides_(sides) {}

    // One turn of both. What its steps take is added to the sides; where it is counted, so is what they ask for, and
    // their times are worth nothing.
    void run(Side& ours, Side& bare, bool counted = false);

private:
    void step(int step, Side& ours, Side& bare, bool counted);

    Sides& sides_;
    Painted painted_;
    Painted paintedBare_;
};

} // namespace bench
