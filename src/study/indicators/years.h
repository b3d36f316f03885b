// Events by the calendar year: the years that the books cover, and what they hold.
#pragma once

#include "study/indicators/reading.h"

namespace study::indicators {

// From the first to the last year with any of these counts (their first dimension is the year) that some book
// covers; none where nothing was counted.
YearSpan yearsOf(const Reading& reading, std::span<const quint16> counts, const Settings& settings);

// A number for each covered year, 0 where nothing happened; a gap has none. Further dimensions as given.
std::map<int, double> byYear(const Reading& reading, quint16 count, Series series, const YearSpan& years,
                             const Settings& settings, Reading::At at = Reading::everywhere);

// A line; broken where a year has no value.
report::Plot lineOf(const QString& name, const std::map<int, double>& values, const YearSpan& years);

// The number of a year with its people, or nothing for a gap.
Cell yearCell(const Reading& reading, quint16 count, const std::map<int, double>& values, int year,
              Reading::At at = Reading::everywhere);
// A computed value of a year, or nothing.
Cell valueCell(const std::map<int, double>& values, int year, std::vector<Key> from = {});

} // namespace study::indicators
