#include "study/indicators/years.h"

#include <algorithm>

namespace study::indicators {

namespace {

bool isCovered(int year, const Settings& settings)
{
    for (const Series series : {Series::Baptisms, Series::Marriages, Series::Burials, Series::ChildBurials})
        if (settings.covers(series, year)) return true;
    return false;
}

} // namespace

YearSpan yearsOf(const Reading& reading, std::span<const quint16> counts, const Settings& settings)
{
    YearSpan years;
    for (const quint16 count : counts)
        for (const qint32 year : reading.values(count, 0)) {
            if (!isCovered(year, settings)) continue;
            years.first = years.first == 0 ? year : std::min(years.first, year);
            years.last = std::max(years.last, year);
        }
    return years;
}

std::map<int, double> byYear(const Reading& reading, quint16 count, Series series, const YearSpan& years,
                             const Settings& settings, Reading::At at)
{
    std::map<int, double> values;
    if (years.first == 0) return values;
    for (int year = years.first; year <= years.last; ++year)
        if (settings.covers(series, year) && settings.period.holds(year)) values[year] = 0;
    at[0] = Reading::any;
    const Reading::Spread spread = reading.spread(count, 0, at);
    for (const auto& [year, n] : spread.values.counts())
        if (const auto found = values.find(year); found != values.end()) found->second = static_cast<double>(n);
    return values;
}

report::Plot lineOf(const QString& name, const std::map<int, double>& values, const YearSpan& years)
{
    report::Plot plot{name};
    for (int year = years.first; year != 0 && year <= years.last; ++year) {
        const auto found = values.find(year);
        plot.points.push_back(
            {static_cast<double>(year), found == values.end() ? std::nullopt : std::optional(found->second)});
    }
    return plot;
}

Cell yearCell(const Reading& reading, quint16 count, const std::map<int, double>& values, int year, Reading::At at)
{
    if (values.count(year) == 0) return {};
    at[0] = year;
    return counted(reading.part(count, at));
}

Cell valueCell(const std::map<int, double>& values, int year, std::vector<Key> from)
{
    const auto found = values.find(year);
    return found == values.end() ? Cell() : report::number(found->second, std::move(from));
}

} // namespace study::indicators
