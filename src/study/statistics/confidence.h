// Intervals of 95 %, and the quantiles behind them.
#pragma once

#include <optional>
#include <vector>

namespace study::statistics {

inline constexpr double lowerQuantile = 0.025, upperQuantile = 0.975; // of an interval of 95 %

struct Interval
{
    double low = 0, high = 0;

    bool operator==(const Interval&) const = default;
};

// Exact Poisson limits of a rate: χ²(0.025; 2d)/2E and χ²(0.975; 2d + 2)/2E; the lower one of no event is 0.
// Precondition: events >= 0, exposure > 0. Events by a unit of exposure.
Interval poissonInterval(double events, double exposure);
// E. B. Wilson, 1927. Precondition: 0 <= part <= whole, whole > 0. Shares from 0 to 1.
Interval wilsonInterval(double part, double whole);
// Of a mean, by Student's t. Nothing for fewer than two values.
std::optional<Interval> meanInterval(double mean, double deviation, double n);

} // namespace study::statistics
