#include "study/statistics/mortality.h"

#include "study/statistics/quantiles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace study::statistics {

const std::array<int, 12> endsOfMonths{31, 61, 91, 122, 153, 183, 212, 243, 273, 304, 334, 365};

namespace {

constexpr std::size_t monthsOfAYear = 12;
constexpr std::size_t halfYear = 6;
constexpr double mostBent = 0.25; // of the smaller slope
constexpr double nothing = 1e-9;  // of the deaths: last digits of the sums

constexpr int base = 10; // years before a crisis
constexpr std::size_t leastBase = 5;
constexpr int neighboursAside = 5;
constexpr std::ptrdiff_t extremes = 2;
constexpr int greatest = 6; // of the magnitudes

constexpr int whippleFrom = 23, whippleTo = 62;

double scaleOf(std::size_t month)
{
    const double logarithm = std::log10(endsOfMonths[month] + 1.0);
    return logarithm * logarithm * logarithm;
}

// Least squares over the ends of the months from first to last.
LineOfMonths lineThrough(const std::array<double, monthsOfAYear>& deaths, std::size_t first, std::size_t last)
{
    const auto n = static_cast<double>(last - first + 1);
    double x = 0, y = 0, xx = 0, xy = 0;
    for (std::size_t month = first; month <= last; ++month) {
        const double scale = scaleOf(month);
        x += scale;
        y += deaths[month];
        xx += scale * scale;
        xy += scale * deaths[month];
    }
    const double slope = (n * xy - x * y) / (n * xx - x * x);
    return {(y - slope * x) / n, slope};
}

bool isBent(double early, double late, double deaths)
{
    const double bend = std::abs(early - late);
    return bend > mostBent * std::min(std::abs(early), std::abs(late)) && bend > nothing * deaths;
}

std::optional<Endogenous> endogenousOf(const LineOfMonths& line, const std::array<double, monthsOfAYear>& deaths)
{
    if (!(deaths.back() > 0)) return {};
    const LineOfMonths early = lineThrough(deaths, 0, halfYear - 1);
    const LineOfMonths late = lineThrough(deaths, halfYear - 1, monthsOfAYear - 1);
    return Endogenous{line.start, line.slope, early, late, isBent(early.slope, late.slope, deaths.back())};
}

int magnitudeOf(double index)
{
    int magnitude = 0;
    for (double limit = 1; magnitude < greatest && index >= limit; limit *= 2)
        ++magnitude;
    return magnitude;
}

// What stands behind each of these years; empty where one of them is missing.
std::vector<std::pair<int, double>> seriesOf(const std::map<int, double>& byYear, int first, int last)
{
    std::vector<std::pair<int, double>> series;
    for (auto it = byYear.lower_bound(first); it != byYear.end() && it->first <= last; ++it)
        series.emplace_back(it->first, it->second);
    if (series.size() != static_cast<std::size_t>(last - first) + 1) series.clear();
    return series;
}

// Those of the series whose years are kept.
template <class Kept>
std::vector<double> valuesOf(const std::vector<std::pair<int, double>>& series, Kept kept)
{
    std::vector<double> values;
    for (const auto& [year, value] : series)
        if (kept(year)) values.push_back(value);
    return values;
}

double meanOf(const std::vector<double>& values)
{
    double sum = 0;
    for (const double value : values)
        sum += value;
    return sum / static_cast<double>(values.size());
}

double deviationOf(const std::vector<double>& values, Spread spread)
{
    const double mean = meanOf(values);
    double squares = 0;
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    const std::size_t n = spread == Spread::ByN ? values.size() : values.size() - 1;
    return std::sqrt(squares / static_cast<double>(n));
}

std::optional<Crisis> crisisOf(double deaths, const std::vector<double>& before, Spread spread)
{
    if (before.size() < leastBase) return {};
    const double deviation = deviationOf(before, spread);
    if (!(deviation > 0)) return {};
    const double index = (deaths - meanOf(before)) / deviation;
    return Crisis{index, magnitudeOf(index)};
}

} // namespace

std::optional<Endogenous> endogenousByLine(const std::array<double, 12>& cumulated)
{
    const double slope = (cumulated.back() - cumulated.front()) / (scaleOf(monthsOfAYear - 1) - scaleOf(0));
    return endogenousOf({cumulated.front() - slope * scaleOf(0), slope}, cumulated);
}

std::optional<Endogenous> endogenousBySquares(const std::array<double, 12>& cumulated)
{
    return endogenousOf(lineThrough(cumulated, 0, monthsOfAYear - 1), cumulated);
}

std::optional<Interval> endogenousInterval(EndogenousWay way, const std::array<double, 12>& cumulated, double births)
{
    static constexpr double perThousand = 1000;
    if (!(cumulated.back() > 0) || !(births > 0)) return {};
    double mean = 0, squares = 0;
    for (std::size_t month = 0; month < monthsOfAYear; ++month) {
        std::array<double, monthsOfAYear> one = {}; // of a child that dies in this month
        std::fill(one.begin() + static_cast<std::ptrdiff_t>(month), one.end(), perThousand);
        const double adds = way(one)->endogenous;
        const double died = (cumulated[month] - (month > 0 ? cumulated[month - 1] : 0)) / perThousand;
        mean += adds * died;
        squares += adds * adds * died;
    }
    const double half = normalQuantile(upperQuantile) * std::sqrt(std::max(0.0, squares - mean * mean) / births);
    return Interval{std::max(0.0, mean - half), std::max(0.0, mean + half)};
}

std::map<int, Crisis> crises(const std::map<int, double>& deathsByYear, Spread spread, bool skipCrises)
{
    std::map<int, Crisis> found;
    const auto isBase = [&found, skipCrises](int year) {
        const auto known = found.find(year);
        return !skipCrises || known == found.end() || known->second.magnitude == 0;
    };
    for (const auto& [year, deaths] : deathsByYear) {
        const auto before = seriesOf(deathsByYear, year - base, year - 1);
        if (const auto crisis = crisisOf(deaths, valuesOf(before, isBase), spread)) found.emplace(year, *crisis);
    }
    return found;
}

std::map<int, double> neighbourRatios(const std::map<int, double>& deathsByYear)
{
    std::map<int, double> ratios;
    for (const auto& entry : deathsByYear) {
        const int year = entry.first;
        const auto around = seriesOf(deathsByYear, year - neighboursAside, year + neighboursAside);
        std::vector<double> neighbours = valuesOf(around, [year](int other) { return other != year; });
        if (neighbours.empty()) continue;
        std::sort(neighbours.begin(), neighbours.end());
        const double mean = meanOf({neighbours.begin() + extremes, neighbours.end() - extremes});
        if (mean > 0) ratios.emplace(year, entry.second / mean);
    }
    return ratios;
}

std::map<int, double> movingAverage(const std::map<int, double>& byYear, int years)
{
    const int aside = years / 2;
    std::map<int, double> averages;
    for (const auto& entry : byYear) {
        const auto window = seriesOf(byYear, entry.first - aside, entry.first + aside);
        if (!window.empty()) averages.emplace(entry.first, meanOf(valuesOf(window, [](int) { return true; })));
    }
    return averages;
}

std::optional<double> whippleIndex(const std::map<int, qint64>& ages)
{
    qint64 all = 0, round = 0;
    for (auto it = ages.lower_bound(whippleFrom); it != ages.end() && it->first <= whippleTo; ++it) {
        all += it->second;
        if (it->first % 5 == 0) round += it->second;
    }
    if (all <= 0) return {};
    return 500.0 * static_cast<double>(round) / static_cast<double>(all);
}

std::optional<double> gini(const std::map<int, qint64>& holdings)
{
    double holders = 0, all = 0;
    for (const auto& [holding, count] : holdings) {
        holders += static_cast<double>(count);
        all += static_cast<double>(holding) * static_cast<double>(count);
    }
    if (holders <= 0) return {};
    if (all <= 0) return 0;
    double before = 0, unequal = 0; // Σ (2i − n − 1)·x over the holders i in the order of what they hold
    for (const auto& [holding, count] : holdings) {
        const auto these = static_cast<double>(count);
        unequal += these * (2 * before + these - holders) * holding;
        before += these;
    }
    return unequal / (holders * all);
}

} // namespace study::statistics
