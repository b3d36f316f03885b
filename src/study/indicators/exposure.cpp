#include "study/indicators/exposure.h"

#include <algorithm>
#include <iterator>

namespace study::indicators {

using parish::Date;

namespace {

Date exactly(QDate day)
{
    return parish::dateOf(day, true);
}

// Days one behind the other, the last one past the end.
struct Time
{
    QDate from = {}, until = {};
};

Time cut(const Time& one, const Time& other)
{
    return {std::max(one.from, other.from), std::min(one.until, other.until)};
}

void addSlice(std::vector<Slice>& slices, const Slice& slice, const Time& time)
{
    if (time.from >= time.until) return;
    slices.push_back(slice);
    slices.back().halfDays = halfDaysOfADay * parish::daysBetween(exactly(time.from), exactly(time.until));
}

bool isEventOnEntry(const Episode& episode)
{
    return episode.endsInEvent && episode.from.middle() == episode.until.middle();
}

// The years that count, each period's part of [from, until) in its turn.
template <class Take>
void forEachPeriod(const Time& time, const Settings& settings, Take take)
{
    const auto newYear = [](int year) { return QDate(year, 1, 1); };
    Time counted = time;
    if (settings.period.first != 0) counted.from = std::max(counted.from, newYear(settings.period.first));
    if (settings.period.last != 0) counted.until = std::min(counted.until, newYear(settings.period.last + 1));
    while (counted.from < counted.until) {
        const int period = periodOf(counted.from.year(), settings);
        const QDate next = std::min(counted.until, newYear(period + std::max(1, settings.cohortYears)));
        take(period, Time{counted.from, next});
        counted.from = next;
    }
}

} // namespace

double yearsOf(qint64 halfDays)
{
    return static_cast<double>(halfDays) / (static_cast<double>(halfDaysOfADay) * parish::daysOfAYear);
}

const Ages& fertileAges()
{
    static constexpr int first = 15, behindLast = 50;
    static const Ages ages = fiveYearAges(first, behindLast);
    return ages;
}

Ages fiveYearAges(int first, int behindLast)
{
    static constexpr int breadth = 5;
    Ages ages;
    for (int age = first; age <= behindLast; age += breadth)
        ages.push_back(age);
    return ages;
}

std::optional<int> ageGroup(int completedYears, const Ages& ages)
{
    const auto behind = std::ranges::upper_bound(ages, completedYears);
    if (behind == ages.begin() || behind == ages.end()) return std::nullopt;
    return *std::prev(behind);
}

std::optional<int> ageGroup(const Date& origin, const Date& day, const Ages& ages)
{
    return ageGroup(parish::completedYears(origin, day), ages);
}

std::vector<Slice> split(const Episode& episode, const Ages& ages)
{
    std::vector<Slice> slices;
    if (isEventOnEntry(episode)) {
        if (const auto group = ageGroup(episode.origin, episode.from, ages)) slices.push_back({*group, 0, 1});
        return slices;
    }
    const Time whole{episode.from.middle(), episode.until.middle()};
    for (std::size_t group = 0; group + 1 < ages.size(); ++group) {
        const Time grouped{parish::birthday(episode.origin, ages[group]),
                           parish::birthday(episode.origin, ages[group + 1])};
        addSlice(slices, {ages[group]}, cut(whole, grouped));
    }
    return slices;
}

std::vector<Slice> splitByPeriod(const Episode& episode, const Ages& ages, const Settings& settings)
{
    std::vector<Slice> slices;
    if (isEventOnEntry(episode)) {
        const int year = episode.from.middle().year();
        if (!settings.period.holds(year)) return slices;
        slices = split(episode, ages);
        for (Slice& slice : slices)
            slice.period = periodOf(year, settings);
        return slices;
    }
    forEachPeriod({episode.from.middle(), episode.until.middle()}, settings, [&](int period, const Time& time) {
        for (Slice slice : split({episode.origin, exactly(time.from), exactly(time.until)}, ages)) {
            slice.period = period;
            slices.push_back(slice);
        }
    });
    return slices;
}

} // namespace study::indicators
