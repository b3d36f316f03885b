// How often a property is tried.
#pragma once

#include <algorithm>

// Under the sanitizers, which look at each step and take ten times as long for it, half of the tries that the
// release has; never none.
constexpr int rounds(int wanted)
{
#ifdef __SANITIZE_ADDRESS__
    constexpr int share = 2;
    return std::max(1, wanted / share);
#else
    return wanted;
#endif
}
