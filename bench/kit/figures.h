// What is worked out from the times of many turns. Nothing here measures.
#pragma once

#include <utility>
#include <vector>

namespace bench {

// The middle one of the values, or the mean of the middle two; 0 of none.
double median(std::vector<double> values);

// By which power of the size the time grows: the slope of the logarithm of the time on that of the size, by least
// squares. 0 of fewer than two sizes.
// Precondition: sizes and times are above 0.
double exponent(const std::vector<std::pair<double, double>>& timesBySize);

// How many times as long the last tenth of the turns takes as the first, by their medians; 1 of fewer than twenty.
double drift(const std::vector<double>& turns);

} // namespace bench
