// Confinements: what is born at one time counts once where intervals are measured.
#pragma once

#include "study/parish/snapshot.h"

#include <vector>

namespace study::indicators {

inline constexpr int daysOfTwins = 3; // so many days apart at most

struct Confinement
{
    parish::Date day = {};                            // of its first child
    std::vector<const parish::Person*> children = {}; // at least one, in the order of their births

    bool operator==(const Confinement&) const = default;
    bool isOfTwins() const { return children.size() > 1; }
};

// Of the children with a known birth, by day. Only exact days make twins: two births that are about one year or one day
// need not be of one confinement.
std::vector<Confinement> confinementsOf(const parish::Family& family);

// Each child has an exact birth.
bool hasExactBirths(const parish::Family& family);

} // namespace study::indicators
