// How two people are related by blood, as the register's time counted it.
#pragma once

#include "study/parish/snapshot.h"

#include <vector>

namespace study::checks {

// The nearest ancestors whom two people have in common: the lines are counted in generations from each of them. By the
// canonical computation the degree is the longer of the two lines: 1 for siblings, 2 for first cousins, 3 and 4 for the
// next ones. A line of 0 generations: one descends from the other.
struct Kinship
{
    int first = 0, second = 0;                         // generations up from the one, and from the other
    std::vector<const parish::Person*> ancestors = {}; // all of these lines, a couple as a rule; empty: not related

    bool isKnown() const { return !ancestors.empty(); }
    bool isDirect() const { return isKnown() && (first == 0 || second == 0); }
    int degree() const { return first > second ? first : second; }
};

// Looks so many generations up; ends there also where somebody is an ancestor of his own.
Kinship kinshipOf(const parish::Person& first, const parish::Person& second, int generations);

} // namespace study::checks
