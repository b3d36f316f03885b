// Time at risk, split at birthdays and at the limits of periods.
//
// Time is counted in half days, half-open [from, until), and made into years only at the end.
#pragma once

#include "study/indicators/settings.h"
#include "study/parish/date.h"

#include <optional>
#include <vector>

namespace study::indicators {

inline constexpr qint64 halfDaysOfADay = 2;
double yearsOf(qint64 halfDays); // of 365.25 days

// The completed ages at which groups begin, ascending, and behind them the end of the last one: {15, 20, … 50}.
using Ages = std::vector<int>;
const Ages& fertileAges();                    // groups of five years from 15 to 50
Ages fiveYearAges(int first, int behindLast); // {20, 25, … 80} for 20 and 80

// The first age of the group that a completed age, or a day, is in; nothing outside of all groups.
std::optional<int> ageGroup(int completedYears, const Ages& ages);
std::optional<int> ageGroup(const parish::Date& origin, const parish::Date& day, const Ages& ages);

// How long somebody was at risk. Dates count by their middle; all are known.
struct Episode
{
    parish::Date origin = {}; // what ages count from: the birth, or the marriage for durations
    parish::Date from = {}, until = {};
    bool endsInEvent = false; // what is measured has ended it: on the day of entry that counts half a day

    bool operator==(const Episode&) const = default;
};

// The part of an episode that is in one group of ages, and in one period.
struct Slice
{
    int age = 0;    // the first of its group
    int period = 0; // the first year of it; 0 where there was no split by periods
    qint64 halfDays = 0;

    bool operator==(const Slice&) const = default;
};

// In the order of time; nothing where the episode has no length (but for an event on the day of entry), ends before it
// begins, or is in no group.
std::vector<Slice> split(const Episode& episode, const Ages& ages);
// At each 1 January between two periods as well. Time outside of the settings' period doesn't count.
std::vector<Slice> splitByPeriod(const Episode& episode, const Ages& ages, const Settings& settings);

} // namespace study::indicators
