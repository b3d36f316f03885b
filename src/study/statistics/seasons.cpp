#include "study/statistics/seasons.h"

#include "study/statistics/quantiles.h"

#include <cstddef>
#include <numeric>

namespace study::statistics {

namespace {

constexpr Months days{31, 28.25, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr double daysOfAYear = 365.25;
constexpr double degrees = 11;

double sumOf(const Months& months)
{
    return std::accumulate(months.begin(), months.end(), 0.0);
}

Months byDay(const Months& counts)
{
    Months each{};
    for (std::size_t month = 0; month < each.size(); ++month)
        each[month] = counts[month] / days[month];
    return each;
}

Months times(Months months, double factor)
{
    for (double& month : months)
        month *= factor;
    return months;
}

} // namespace

std::optional<Months> dailyRatios(const Months& counts)
{
    const double all = sumOf(counts);
    if (!(all > 0)) return {};
    return times(byDay(counts), 100 * daysOfAYear / all);
}

std::optional<Months> proportionalNumbers(const Months& counts)
{
    const Months each = byDay(counts);
    const double all = sumOf(each);
    if (!(all > 0)) return {};
    return times(each, 1200 / all);
}

std::optional<Even> evenness(const Months& counts)
{
    const double all = sumOf(counts);
    if (!(all > 0)) return {};
    double chiSquare = 0;
    for (std::size_t month = 0; month < counts.size(); ++month) {
        const double expected = all * days[month] / daysOfAYear;
        chiSquare += (counts[month] - expected) * (counts[month] - expected) / expected;
    }
    return Even{chiSquare, chiSquareTail(chiSquare, degrees)};
}

} // namespace study::statistics
