#include "study/indicators/reading.h"

#include <algorithm>
#include <set>

namespace study::indicators {

namespace {

constexpr qint64 soundMean = 10, shownMean = 5;

bool matches(const Reading::At& at, const Reading::At& asked)
{
    for (std::size_t i = 0; i < at.size(); ++i)
        if (asked[i] != Reading::any && asked[i] != at[i]) return false;
    return true;
}

Cell measured(std::optional<double> value, const Reading::Spread& spread, double unit)
{
    if (!value) return {};
    Cell cell = report::number(*value / unit, spread.keys);
    const qint64 n = spread.values.n();
    if (n < soundMean) cell.standing = n < shownMean ? report::Standing::Suppressed : report::Standing::Grey;
    return cell;
}

std::optional<statistics::Interval> scaled(const std::optional<statistics::Interval>& interval, double unit)
{
    if (!interval) return {};
    return statistics::Interval{interval->low / unit, interval->high / unit};
}

} // namespace

Reading::Part& Reading::Part::operator+=(const Part& other)
{
    n += other.n;
    keys.insert(keys.end(), other.keys.begin(), other.keys.end());
    return *this;
}

template <class Take>
void Reading::each(quint16 count, const At& at, const Take& take) const
{
    const auto before = [](const std::pair<Key, qint64>& cell, quint16 sought) { return cell.first.count < sought; };
    for (auto cell = std::lower_bound(cells_.begin(), cells_.end(), count, before);
         cell != cells_.end() && cell->first.count == count; ++cell)
        if (matches(cell->first.at, at)) take(cell->first, cell->second);
}

Reading::Part Reading::part(quint16 count, const At& at) const
{
    Part found;
    bool isThere = false;
    each(count, at, [&](const Key&, qint64 n) {
        found.n += n;
        isThere = true;
    });
    if (isThere) found.keys = {{count, at}};
    return found;
}

std::vector<Reading::Part> Reading::cellsOf(quint16 count) const
{
    std::vector<Part> cells;
    each(count, everywhere, [&cells](const Key& key, qint64 n) { cells.push_back({n, {key}}); });
    return cells;
}

Reading::Part Reading::within(quint16 count, int dimension, qint32 from, qint32 until, const At& at) const
{
    Part found;
    std::set<qint32> there;
    each(count, at, [&](const Key& key, qint64 n) {
        const qint32 value = key.at[static_cast<std::size_t>(dimension)];
        if (value < from || value >= until) return;
        found.n += n;
        there.insert(value);
    });
    Key key{count, at};
    for (const qint32 value : there) {
        key.at[static_cast<std::size_t>(dimension)] = value;
        found.keys.push_back(key);
    }
    return found;
}

Reading::Spread Reading::spread(quint16 count, int dimension, const At& at) const
{
    std::map<qint32, qint64> counts;
    each(count, at, [&](const Key& key, qint64 n) { counts[key.at[static_cast<std::size_t>(dimension)]] += n; });
    Spread found;
    if (!counts.empty()) found.keys = {{count, at}};
    found.values = statistics::Distribution(std::move(counts));
    return found;
}

std::vector<qint32> Reading::values(quint16 count, int dimension, const At& at) const
{
    std::vector<qint32> found;
    each(count, at, [&](const Key& key, qint64) { found.push_back(key.at[static_cast<std::size_t>(dimension)]); });
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

Cell counted(const Reading::Part& part)
{
    return report::number(part.n, part.keys);
}

Cell percent(const Reading::Part& part, const Reading::Part& whole)
{
    if (whole.n <= 0) return {};
    return report::share(part.n, whole.n, 100, part.keys);
}

Cell meanCell(const Reading::Spread& spread, double unit)
{
    Cell cell = measured(spread.values.mean(), spread, unit);
    cell.interval = scaled(spread.values.meanInterval(), unit);
    return cell;
}

Cell deviationCell(const Reading::Spread& spread, double unit)
{
    return measured(spread.values.deviation(), spread, unit);
}

Cell quantileCell(const Reading::Spread& spread, double p, double unit)
{
    return measured(spread.values.quantile(p), spread, unit);
}

Cell medianCell(const Reading::Spread& spread, double unit)
{
    Cell cell = measured(spread.values.median(), spread, unit);
    cell.interval = scaled(spread.values.medianInterval(), unit);
    return cell;
}

Column textColumn(const QString& title)
{
    return {title, {}, 0, true};
}

Column countColumn(const QString& title)
{
    return {title, {}, 0, false};
}

Column decimalColumn(const QString& title, const QString& unit, int decimals)
{
    return {title, unit, decimals, false};
}

QString decimalComma(double value, int decimals)
{
    return QString::number(value, 'f', decimals).replace(u'.', u',');
}

QString periodName(qint32 first, const Settings& settings)
{
    return QString("%1–%2").arg(first).arg(first + settings.cohortYears - 1);
}

std::vector<std::pair<qint32, QString>> periodsOf(const Reading& reading, const std::vector<quint16>& counts,
                                                  const Settings& settings)
{
    std::set<qint32> periods;
    for (const quint16 count : counts)
        for (const qint32 period : reading.values(count, 0))
            periods.insert(period);
    std::vector<std::pair<qint32, QString>> named;
    named.reserve(periods.size() + 1);
    for (const qint32 period : periods)
        named.emplace_back(period, periodName(period, settings));
    if (!named.empty()) named.emplace_back(Reading::any, "Todos");
    return named;
}

Table leftOutTable(const Reading& reading, std::span<const Reason> reasons)
{
    Table table{"nao-contados", "Não contados", {textColumn("Razão"), countColumn("Casos")}, {}, {}};
    for (const Reason& reason : reasons)
        table.rows.push_back({report::text(reason.told), counted(reading.part(reason.count))});
    return table;
}

} // namespace study::indicators
