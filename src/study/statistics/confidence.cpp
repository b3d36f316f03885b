#include "study/statistics/confidence.h"

#include "study/statistics/quantiles.h"

#include <algorithm>
#include <cmath>

namespace study::statistics {

namespace {

} // namespace

Interval poissonInterval(double events, double exposure)
{
    const double low = events > 0 ? chiSquareQuantile(lowerQuantile, 2 * events) / 2 : 0;
    const double high = chiSquareQuantile(upperQuantile, 2 * events + 2) / 2;
    return {low / exposure, high / exposure};
}

Interval wilsonInterval(double part, double whole)
{
    const double z = normalQuantile(upperQuantile);
    const double share = part / whole;
    const double weight = 1 + z * z / whole;
    const double centre = (share + z * z / (2 * whole)) / weight;
    const double half = z * std::sqrt(share * (1 - share) / whole + z * z / (4 * whole * whole)) / weight;
    // None and all are limits of their own; the root gives them but for its last digits.
    const double low = part <= 0 ? 0 : std::max(0.0, centre - half);
    const double high = part >= whole ? 1 : std::min(1.0, centre + half);
    return {low, high};
}

std::optional<Interval> meanInterval(double mean, double deviation, double n)
{
    if (n < 2) return {};
    const double half = studentQuantile(upperQuantile, n - 1) * deviation / std::sqrt(n);
    return Interval{mean - half, mean + half};
}

} // namespace study::statistics
