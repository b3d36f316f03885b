#include "study/statistics/survival.h"

#include "study/statistics/ageGroups.h"
#include "study/statistics/quantiles.h"

#include <algorithm>
#include <cmath>

namespace study::statistics {

namespace {

// `spread` is the sum of Greenwood: events/(atRisk·(atRisk − events)) over the times so far.
std::optional<Interval> intervalOf(double survival, double spread)
{
    if (survival <= 0 || survival >= 1) return {};
    const double factor = std::exp(normalQuantile(upperQuantile) * std::sqrt(spread) / std::abs(std::log(survival)));
    return Interval{std::pow(survival, factor), std::pow(survival, 1 / factor)};
}

// What a time with events adds to the sum.
double spreadOf(double gone, double exposed)
{
    return gone < exposed ? gone / (exposed * (exposed - gone)) : 0;
}

std::vector<Step>::const_iterator behind(const std::vector<Step>& steps, qint32 time)
{
    return std::upper_bound(steps.begin(), steps.end(), time,
                            [](qint32 asked, const Step& step) { return asked < step.time; });
}

double quotientOf(double rate)
{
    return std::min(1.0, yearsOfAGroup * rate / (1 + yearsOfAGroup / 2 * rate));
}

bool canBeTabled(const std::vector<Exposed>& groups)
{
    const auto isExposed = [](const Exposed& group) { return group.years > 0; };
    return !groups.empty() && groups.back().deaths > 0 && std::all_of(groups.begin(), groups.end(), isExposed);
}

} // namespace

std::vector<Step> kaplanMeier(const std::map<qint32, Exits>& exits, qint64 atStart)
{
    std::vector<Step> steps;
    qint64 atRisk = atStart;
    double survival = 1, spread = 0;
    for (const auto& [time, exit] : exits) {
        if (exit.events > 0 && atRisk > 0) {
            const auto exposed = static_cast<double>(atRisk);
            const auto gone = static_cast<double>(std::min(exit.events, atRisk));
            survival *= 1 - gone / exposed;
            spread += spreadOf(gone, exposed);
            steps.push_back({.time = time,
                             .atRisk = atRisk,
                             .events = exit.events,
                             .survival = survival,
                             .interval = intervalOf(survival, spread)});
        }
        atRisk += exit.entered - exit.events - exit.left;
    }
    return steps;
}

double survivalAt(const std::vector<Step>& steps, qint32 time)
{
    const auto next = behind(steps, time);
    return next == steps.begin() ? 1 : std::prev(next)->survival;
}

std::optional<Interval> survivalIntervalAt(const std::vector<Step>& steps, qint32 time)
{
    const auto next = behind(steps, time);
    return next == steps.begin() ? std::nullopt : std::prev(next)->interval;
}

std::optional<Interval> survivalIntervalBetween(const std::vector<Step>& steps, qint32 from, qint32 until)
{
    double survival = 1, spread = 0;
    for (auto step = behind(steps, from); step != steps.end() && step->time <= until; ++step) {
        const auto exposed = static_cast<double>(step->atRisk);
        const auto gone = static_cast<double>(std::min(step->events, step->atRisk));
        survival *= 1 - gone / exposed;
        spread += spreadOf(gone, exposed);
    }
    return intervalOf(survival, spread);
}

std::optional<double> actuarialQuotient(double atRisk, double events, double left)
{
    const double exposed = atRisk - left / 2;
    if (atRisk <= 0 || exposed <= 0) return {};
    return std::min(1.0, events / exposed);
}

std::vector<LifeRow> lifeTable(int firstAge, const std::vector<Exposed>& groups)
{
    if (!canBeTabled(groups)) return {};
    std::vector<LifeRow> rows;
    double survivors = 1;
    for (const Exposed& group : groups) {
        const bool isOpen = &group == &groups.back();
        const double rate = static_cast<double>(group.deaths) / group.years;
        const double quotient = isOpen ? 1 : quotientOf(rate);
        const double next = isOpen ? 0 : survivors * (1 - quotient);
        rows.push_back({.age = firstAge + static_cast<int>(yearsOfAGroup) * static_cast<int>(rows.size()),
                        .quotient = quotient,
                        .survivors = survivors,
                        .years = isOpen ? survivors / rate : yearsOfAGroup / 2 * (survivors + next)});
        survivors = next;
    }
    double left = 0;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        left += row->years;
        row->expectation = row->survivors > 0 ? left / row->survivors : 0;
    }
    return rows;
}

} // namespace study::statistics
