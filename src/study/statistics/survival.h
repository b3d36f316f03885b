// Survival with leavers: E. L. Kaplan and P. Meier, 1958, and the actuarial table.
#pragma once

#include "study/statistics/confidence.h"

#include <QtGlobal>

#include <map>
#include <optional>
#include <vector>

namespace study::statistics {

// What happened at one time. Events come before leavings of the same time.
struct Exits
{
    qint64 events = 0, left = 0;
    qint64 entered = 0; // come under observation at this time, and at risk behind it

    bool operator==(const Exits&) const = default;
};

struct Step
{
    qint32 time = 0;
    qint64 atRisk = 0, events = 0;
    double survival = 1;                   // behind this time
    std::optional<Interval> interval = {}; // of the survival: Greenwood on the log(−log) scale; none at 0 and 1

    bool operator==(const Step&) const = default;
};

// One step for each time with events, ascending. `atStart` are at risk from the beginning; they may be fewer than
// leave, never more; 0 where all enter later. Who goes at the time of entering isn't at risk yet: let them enter
// before.
std::vector<Step> kaplanMeier(const std::map<qint32, Exits>& exits, qint64 atStart);
// Survival behind `time`; 1 before the first step.
double survivalAt(const std::vector<Step>& steps, qint32 time);
std::optional<Interval> survivalIntervalAt(const std::vector<Step>& steps, qint32 time);
// Of the survival behind `until` among those who had survived `from`: Greenwood's sum over the times between, on the
// same scale. None where it is 0 or 1.
std::optional<Interval> survivalIntervalBetween(const std::vector<Step>& steps, qint32 from, qint32 until);

// q = d/(N − c/2); nothing where nobody is at risk.
std::optional<double> actuarialQuotient(double atRisk, double events, double left);

// A life table from rates: 5qx = 5m/(1 + 2.5m), never above 1; the last group is open (L = l/m).
struct LifeRow
{
    int age = 0;                                                    // of its beginning
    double quotient = 0, survivors = 1, years = 0, expectation = 0; // survivors at the beginning, of 1
};
struct Exposed
{
    double years = 0;
    qint64 deaths = 0;
};
// Groups of five years from firstAge. Empty where a group has no exposure, or the open one no death.
std::vector<LifeRow> lifeTable(int firstAge, const std::vector<Exposed>& groups);

} // namespace study::statistics
