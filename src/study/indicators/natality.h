// What the subjects of fertility and of births share: dates, and the choice of families.
#pragma once

#include "study/indicators/reading.h"

namespace study::indicators::natality {

inline constexpr double daysOfAMonth = parish::daysOfAYear / 12;
inline constexpr qint32 any = Reading::any;

// The day that arithmetic is done with: the middle of the year where only that is meant. Precondition: known.
parish::Date settled(const parish::Date& date);
// The day on which so many years are completed; that of a 29 February is 1 March in common years.
parish::Date anniversary(const parish::Date& of, int years);
// Months by the calendar: from 10 June to 10 February are 8; the last day of a shorter month completes one, too.
// Negative before. Precondition: both are known.
int completedMonths(const parish::Date& from, const parish::Date& to);
// Exact age in hundredths of a year. Precondition: both are known, the birth isn't the later one.
qint32 hundredthsOfAge(const parish::Date& birth, const parish::Date& at);
qint32 groupOf(int value, int breadth = 5); // its lowest value: 20 for 24; downwards below 0, too

// Acts without a place count as those of the parish.
bool isLocal(const parish::Place& place, const Study& study);
// As the act and the BDP tell it: no other marriage before, no order above the first, not widowed. False for nobody.
bool isFirstMarriage(const parish::Person* person, const parish::Family& family);
// Of a marriage: legitimate, presumed so, made so later, or untold.
bool isMarital(const parish::Family& family);
// In the way of the settings: the period of the marriage, or that of the event.
qint32 cohortOf(const parish::Date& marriage, const parish::Date& event, const Settings& settings);

// Names of counts one behind another, and the reasons told for counts from `first` on.
template <std::size_t A, std::size_t B>
constexpr std::array<const char*, A + B> joined(const std::array<const char*, A>& one,
                                                const std::array<const char*, B>& other)
{
    std::array<const char*, A + B> all{};
    for (std::size_t i = 0; i < A + B; ++i)
        all[i] = i < A ? one[i] : other[i - A];
    return all;
}
template <std::size_t N>
constexpr std::array<Reason, N> reasonsFrom(quint16 first, const std::array<const char*, N>& told)
{
    std::array<Reason, N> all{};
    for (std::size_t i = 0; i < N; ++i)
        all[i] = {static_cast<quint16>(first + i), told[i]};
    return all;
}

// What stands where nothing was counted.
std::vector<report::Figure> withoutData(const QString& title);

} // namespace study::indicators::natality
