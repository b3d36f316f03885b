// Endogenous mortality of infants, crises, and heaping of ages.
#pragma once

#include "study/statistics/confidence.h"

#include <QtGlobal>

#include <array>
#include <map>
#include <optional>
#include <vector>

namespace study::statistics {

// J. Bourgeois-Pichat, 1951: D(x) = A + B·log10³(x + 1) for deaths cumulated to the ends of the months 1 to 12. Nothing
// without deaths.
struct LineOfMonths
{
    double start = 0, slope = 0; // A and B
};
struct Endogenous
{
    double endogenous = 0;              // A, in the unit of the deaths; below 0: not applicable
    double slope = 0;                   // B
    LineOfMonths early = {}, late = {}; // by squares over months 1–6 and 6–12
    bool bent = false; // the slopes of months 1–6 and 6–12 differ by more than a quarter of the smaller one: A means
                       // nothing then
};
extern const std::array<int, 12> endsOfMonths;                                          // in days: 31, 61, … 365
std::optional<Endogenous> endogenousByLine(const std::array<double, 12>& cumulated);    // through months 1 and 12
std::optional<Endogenous> endogenousBySquares(const std::array<double, 12>& cumulated); // over the 12 ends
// Of A, by one of these ways, where the deaths are by thousand of so many births. A is linear in the deaths, so it is
// the mean of what each birth adds to it, nothing where the child lives, and has the error of a mean. Never below 0.
// Nothing without deaths or births.
using EndogenousWay = std::optional<Endogenous> (*)(const std::array<double, 12>& cumulated);
std::optional<Interval> endogenousInterval(EndogenousWay way, const std::array<double, 12>& cumulated, double births);

// J. Dupâquier, 1979: (D − M)/S over the ten years before. Nothing for the first ten years, for one with a gap among
// them, or where S is 0. Where crises are skipped, years of a magnitude don't count among the ten; nothing where fewer
// than five are left.
struct Crisis
{
    double index = 0;
    int magnitude = 0; // 1 (1 ≤ I < 2) to 6 (32 ≤ I); 0 for none

    bool operator==(const Crisis&) const = default;
};
enum class Spread
{
    ByN,
    ByNLessOne
};
std::map<int, Crisis> crises(const std::map<int, double>& deathsByYear, Spread spread, bool skipCrises);
// Deaths over the mean of the ten neighbours, five to either side, without their two highest and two lowest. By year;
// nothing where a neighbour is missing, or the mean is 0.
std::map<int, double> neighbourRatios(const std::map<int, double>& deathsByYear);

// Of k years, k odd; no value where one of them is missing.
std::map<int, double> movingAverage(const std::map<int, double>& byYear, int years);

// Ages ending in 0 and 5 among those from 23 to 62, × 500: 100 for none, 500 for all. Nothing without ages there.
std::optional<double> whippleIndex(const std::map<int, qint64>& ages);
// Of what each holder holds: 0 all the same, towards 1 one holds all. Nothing without holders.
std::optional<double> gini(const std::map<int, qint64>& holdings); // how much: how many hold so much

} // namespace study::statistics
