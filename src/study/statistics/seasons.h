// Seasonality: per day, never per month.
#pragma once

#include <array>
#include <optional>

namespace study::statistics {

using Months = std::array<double, 12>;

// (n/d)/(N/365.25) × 100, with 28.25 days in February: the mean weighted by days is 100. Nothing where N is 0.
std::optional<Months> dailyRatios(const Months& counts);
// 1200 × (n/d)/Σ(n/d): the twelve sum to 1200. Nothing where N is 0.
std::optional<Months> proportionalNumbers(const Months& counts);
// χ² against numbers proportional to the days, and its probability with 11 degrees of freedom. Nothing where N is 0.
struct Even
{
    double chiSquare = 0, probability = 1;
};
std::optional<Even> evenness(const Months& counts);

} // namespace study::statistics
