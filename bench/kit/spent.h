// Time, by the clock and of the processor.
#pragma once

#include <functional>

namespace bench {

// Milliseconds. The clock counts what the disk takes, and what other programs of the machine do meanwhile; the
// processor counts all threads of this process, and the processes that it has started and seen end.
struct Spent
{
    double wall = 0;
    double cpu = 0;

    Spent& operator+=(const Spent& other);
};

Spent operator+(Spent a, const Spent& b);

// How long the work takes.
Spent spentBy(const std::function<void()>& work);

} // namespace bench
