#include "study/statistics/fertility.h"

#include "study/statistics/ageGroups.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace study::statistics {

namespace {

constexpr std::size_t modelGroups = 6; // 20–24 to 45–49
constexpr std::size_t groupsTo44 = 5;
constexpr std::array<double, modelGroups> natural{0.460, 0.431, 0.395, 0.322, 0.167, 0.024};
constexpr std::array<double, modelGroups> departure{0.000, -0.279, -0.667, -1.042, -1.414, -1.671};
constexpr std::array<double, 7> hutterites{0.300, 0.550, 0.502, 0.447, 0.406, 0.222, 0.061};

constexpr int mostSteps = 50;
constexpr double settled = 1e-10;
constexpr double absurd = 20; // an |m| that no population has: it runs away

bool areAllBorn(const std::vector<double>& rates, std::size_t n)
{
    return rates.size() >= n && std::all_of(rates.begin(), rates.begin() + static_cast<std::ptrdiff_t>(n),
                                            [](double rate) { return rate > 0; });
}

// Of ln r around the model, mean over the first n rates. Precondition: they are above 0.
double squaredErrorOf(const std::vector<double>& rates, std::size_t n, double logLevel, double control)
{
    double squares = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double error = std::log(rates[i] / natural[i]) - logLevel - control * departure[i];
        squares += error * error;
    }
    return squares / static_cast<double>(n);
}

// The sums behind a step of Newton: of what was born beyond the expected, and of the expected by the powers of v.
struct Sums
{
    double beyond = 0, beyondByV = 0;
    double expected = 0, expectedByV = 0, expectedByVV = 0;
    double likelihood = 0; // its logarithm, but for what doesn't depend on M and m

    double determinant() const { return expected * expectedByVV - expectedByV * expectedByV; }
};

Sums sumsAt(const std::vector<Borne>& groups, double logLevel, double control)
{
    Sums sums;
    for (std::size_t i = 0; i < std::min(groups.size(), modelGroups); ++i) {
        const auto& [births, years] = groups[i];
        if (!(years > 0)) continue;
        const double v = departure[i];
        const double expected = years * natural[i] * std::exp(logLevel + control * v);
        sums.beyond += births - expected;
        sums.beyondByV += v * (births - expected);
        sums.expected += expected;
        sums.expectedByV += v * expected;
        sums.expectedByVV += v * v * expected;
        sums.likelihood += births * (logLevel + control * v) - expected;
    }
    return sums;
}

// M where m is 0: what was born over what is expected. Nothing without births.
std::optional<double> levelOf(const std::vector<Borne>& groups)
{
    const Sums sums = sumsAt(groups, 0, 0);
    const double births = sums.beyond + sums.expected;
    if (!(births > 0) || !(sums.expected > 0)) return {};
    return births / sums.expected;
}

std::optional<double> squaredErrorOf(const std::vector<Borne>& groups, double logLevel, double control)
{
    std::vector<double> rates;
    for (std::size_t i = 0; i < std::min(groups.size(), groupsTo44); ++i)
        rates.push_back(groups[i].years > 0 ? groups[i].births / groups[i].years : 0);
    if (!areAllBorn(rates, groupsTo44)) return {};
    return squaredErrorOf(rates, groupsTo44, logLevel, control);
}

CoaleTrussell settledAt(const std::vector<Borne>& groups, const Sums& sums, double logLevel, double control)
{
    return {.level = std::exp(logLevel),
            .control = control,
            .levelLogError = std::sqrt(sums.expectedByVV / sums.determinant()),
            .controlError = std::sqrt(sums.expected / sums.determinant()),
            .squaredError = squaredErrorOf(groups, logLevel, control)};
}

} // namespace

std::optional<Estimate> totalMaritalFertility(const std::vector<Borne>& groups)
{
    if (groups.empty()) return {};
    double rates = 0, variance = 0;
    for (const auto& [births, years] : groups) {
        if (!(years > 0)) return {};
        rates += births / years;
        variance += births / (years * years);
    }
    return Estimate{yearsOfAGroup * rates, yearsOfAGroup * std::sqrt(variance)};
}

std::optional<CoaleTrussell> coaleTrussellByPoisson(const std::vector<Borne>& groups)
{
    const std::optional<double> level = levelOf(groups);
    if (!level) return {};
    double logLevel = std::log(*level), control = 0;
    for (int step = 0; step < mostSteps; ++step) {
        const Sums sums = sumsAt(groups, logLevel, control);
        const double determinant = sums.determinant();
        // Of one group alone M and m can't be told apart, but for the last digits of the sums.
        if (!(determinant > settled * sums.expected * sums.expectedByVV)) return {};
        double byLevel = (sums.expectedByVV * sums.beyond - sums.expectedByV * sums.beyondByV) / determinant;
        double byControl = (sums.expected * sums.beyondByV - sums.expectedByV * sums.beyond) / determinant;
        if (std::abs(byLevel) + std::abs(byControl) < settled) return settledAt(groups, sums, logLevel, control);
        // A step that leads down went too far; one that leads down by the last digits is at the top.
        const double least = sums.likelihood - settled * std::abs(sums.likelihood);
        while (sumsAt(groups, logLevel + byLevel, control + byControl).likelihood < least) {
            byLevel /= 2;
            byControl /= 2;
        }
        logLevel += byLevel;
        control += byControl;
        if (std::abs(control) > absurd) return {};
    }
    return {};
}

std::optional<CoaleTrussell> coaleTrussellBySquares(const std::vector<double>& rates)
{
    const std::size_t n = std::min(rates.size(), modelGroups);
    if (n < 2 || !areAllBorn(rates, n)) return {};
    double v = 0, y = 0, vv = 0, vy = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double logRatio = std::log(rates[i] / natural[i]);
        v += departure[i];
        y += logRatio;
        vv += departure[i] * departure[i];
        vy += departure[i] * logRatio;
    }
    const auto count = static_cast<double>(n);
    const double control = (count * vy - v * y) / (count * vv - v * v);
    const double logLevel = (y - control * v) / count;
    return CoaleTrussell{
        .level = std::exp(logLevel), .control = control, .squaredError = squaredErrorOf(rates, n, logLevel, control)};
}

std::optional<CoaleTrussell> coaleTrussellByMeans(const std::vector<double>& rates)
{
    if (!areAllBorn(rates, groupsTo44)) return {};
    const double level = rates[0] / natural[0];
    double sum = 0;
    for (std::size_t i = 1; i < groupsTo44; ++i)
        sum += std::log(rates[i] / (level * natural[i])) / departure[i];
    const double control = sum / static_cast<double>(groupsTo44 - 1);
    return CoaleTrussell{.level = level,
                         .control = control,
                         .squaredError = squaredErrorOf(rates, groupsTo44, std::log(level), control)};
}

std::optional<double> coaleIndex(const std::array<Borne, 7>& groups)
{
    double births = 0, most = 0;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        births += groups[i].births;
        most += groups[i].years * hutterites[i];
    }
    if (!(most > 0)) return {};
    return births / most;
}

} // namespace study::statistics
