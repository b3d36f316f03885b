#include "study/statistics/distribution.h"

#include "study/statistics/quantiles.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace study::statistics {

namespace {

// The value at a rank from 0 to n − 1, and the one at the next rank; the last one is its own next.
std::pair<qint32, qint32> valuesAt(const std::map<qint32, qint64>& counts, qint64 rank)
{
    qint64 before = 0;
    for (auto it = counts.begin(); it != counts.end(); ++it) {
        before += it->second;
        if (before <= rank) continue;
        const auto next = std::next(it);
        return {it->first, before == rank + 1 && next != counts.end() ? next->first : it->first};
    }
    return {};
}

// How many of n values may stand below the lower limit of the median; −1 where n is too small for one: of five values
// all are on one side of it once in sixteen times.
qint64 belowMedianLimit(qint64 n)
{
    if (n < 1 || headsAtMost(0, n) > lowerQuantile) return -1;
    qint64 fits = 0, tooMany = n / 2 + 1;
    while (tooMany - fits > 1) {
        const qint64 middle = fits + (tooMany - fits) / 2;
        (middle < n && headsAtMost(middle, n) <= lowerQuantile ? fits : tooMany) = middle;
    }
    return fits;
}

} // namespace

Distribution::Distribution(std::map<qint32, qint64> counts) : counts_(std::move(counts))
{
    std::erase_if(counts_, [](const auto& entry) { return entry.second == 0; });
    for (const auto& entry : counts_)
        n_ += entry.second;
}

Distribution Distribution::of(const Tally& tally, quint16 count, int dimension, std::array<qint32, 4> at)
{
    return Distribution(tally.along(count, dimension, at));
}

std::optional<double> Distribution::mean() const
{
    if (n_ == 0) return {};
    double sum = 0;
    for (const auto& [value, count] : counts_)
        sum += static_cast<double>(value) * static_cast<double>(count);
    return sum / static_cast<double>(n_);
}

std::optional<double> Distribution::deviation() const
{
    if (n_ < 2) return {};
    const double centre = *mean();
    double sum = 0;
    for (const auto& [value, count] : counts_)
        sum += (value - centre) * (value - centre) * static_cast<double>(count);
    return std::sqrt(sum / static_cast<double>(n_ - 1));
}

std::optional<double> Distribution::quantile(double p) const
{
    if (n_ == 0) return {};
    const double rank = std::clamp(p, 0.0, 1.0) * static_cast<double>(n_ - 1);
    const double whole = std::floor(rank);
    const auto [value, next] = valuesAt(counts_, static_cast<qint64>(whole));
    return value + (rank - whole) * (static_cast<double>(next) - value);
}

std::optional<Interval> Distribution::meanInterval() const
{
    if (n_ < 2) return {};
    return statistics::meanInterval(*mean(), *deviation(), static_cast<double>(n_));
}

std::optional<Interval> Distribution::medianInterval() const
{
    const qint64 rank = belowMedianLimit(n_);
    if (rank < 0) return {};
    return Interval{static_cast<double>(valuesAt(counts_, rank).first),
                    static_cast<double>(valuesAt(counts_, n_ - 1 - rank).first)};
}

qint64 Distribution::below(qint32 value) const
{
    qint64 sum = 0;
    for (auto it = counts_.begin(); it != counts_.end() && it->first < value; ++it)
        sum += it->second;
    return sum;
}

} // namespace study::statistics
