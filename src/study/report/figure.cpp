#include "study/report/figure.h"

#include "study/report/smallNumbers.h"

#include <algorithm>
#include <cmath>

namespace study::report {

using statistics::Distribution;
using statistics::Interval;
using statistics::Key;

namespace {

constexpr qint64 eventsOfARate = 5;
constexpr double yearsOfARate = 20;
constexpr qint64 baseOfAShare = 20;
constexpr qint64 soundMean = 10, leastMean = 5;
constexpr double thousand = 1000;
constexpr double baseOfADecimal = 100;

std::optional<Interval> times(const std::optional<Interval>& interval, double factor)
{
    if (!interval) return {};
    return Interval{interval->low * factor, interval->high * factor};
}

Cell suppressedUnless(bool enough, Cell cell)
{
    if (enough) return cell;
    cell.standing = Standing::Suppressed;
    cell.interval.reset();
    return cell;
}

// Of a base so small one event more makes a difference in the digits before the comma.
std::optional<int> decimalsOf(double base, double per)
{
    if (per != thousand || base >= baseOfADecimal) return {};
    return 0;
}

// A cell without a value that can still be asked what was looked at.
Cell nothing(std::vector<Key> from)
{
    return {.from = std::move(from)};
}

Cell ofValues(const std::optional<double>& value, const std::optional<Interval>& interval, qint64 n, double perUnit,
              std::vector<Key> from)
{
    if (!value) return nothing(std::move(from));
    Cell cell = number(*value / perUnit, std::move(from));
    cell.interval = times(interval, 1 / perUnit);
    if (n < soundMean) cell.standing = Standing::Grey;
    return suppressedUnless(n >= leastMean, std::move(cell));
}

QString digits(double value, int decimals)
{
    const QString all = QString::number(value, 'f', decimals);
    const bool isZero = std::none_of(all.cbegin(), all.cend(), [](QChar c) { return c >= '1' && c <= '9'; });
    return isZero && all.startsWith('-') ? all.mid(1) : all;
}

// What the cell says, with a point; nothing where it says nothing.
std::optional<QString> told(const Cell& cell, const Column& column)
{
    if (const auto* words = std::get_if<QString>(&cell.value)) return *words;
    const auto* value = std::get_if<double>(&cell.value);
    if (!value || !std::isfinite(*value)) return {};
    return digits(*value, std::max(0, std::min(column.decimals, cell.decimals.value_or(column.decimals))));
}

} // namespace

bool Chart::isEmpty() const
{
    return std::none_of(plots.begin(), plots.end(), [](const Plot& plot) {
        return std::any_of(plot.points.begin(), plot.points.end(), [](const Point& point) { return point.y; });
    });
}

Cell text(const QString& value)
{
    return {.value = value};
}

Cell number(int value, std::vector<Key> from)
{
    return number(static_cast<double>(value), std::move(from));
}

Cell number(qint64 value, std::vector<Key> from)
{
    return number(static_cast<double>(value), std::move(from));
}

Cell number(double value, std::vector<Key> from)
{
    Cell cell = nothing(std::move(from));
    if (std::isfinite(value)) cell.value = value;
    return cell;
}

Cell rate(qint64 events, double years, double per, std::vector<Key> from)
{
    if (!(years > 0) || events < 0) return nothing(std::move(from));
    const auto counted = static_cast<double>(events);
    Cell cell = number(counted / years * per, std::move(from));
    cell.interval = times(statistics::poissonInterval(counted, years), per);
    cell.decimals = decimalsOf(years, per);
    return suppressedUnless(events >= eventsOfARate && years >= yearsOfARate, std::move(cell));
}

Cell share(qint64 part, qint64 whole, double per, std::vector<Key> from)
{
    if (whole <= 0 || part < 0 || part > whole) return nothing(std::move(from));
    const auto counted = static_cast<double>(part);
    const auto base = static_cast<double>(whole);
    Cell cell = number(counted / base * per, std::move(from));
    cell.interval = times(statistics::wilsonInterval(counted, base), per);
    cell.decimals = decimalsOf(base, per);
    return suppressedUnless(whole >= baseOfAShare, std::move(cell));
}

Cell mean(const Distribution& of, double perUnit, std::vector<Key> from)
{
    return ofValues(of.mean(), of.meanInterval(), of.n(), perUnit, std::move(from));
}

Cell median(const Distribution& of, double perUnit, std::vector<Key> from)
{
    return ofValues(of.median(), of.medianInterval(), of.n(), perUnit, std::move(from));
}

QString ruleOfSmallNumbers()
{
    return QString(
               "Não se mostra (*) uma taxa de menos de %1 acontecimentos ou de %2 anos de observação, uma proporção de "
               "menos de %3 casos, uma média ou mediana de menos de %4. De %4 a %5 casos, uma média ou mediana lê-se "
               "com reserva (†).")
        .arg(eventsOfARate)
        .arg(yearsOfARate)
        .arg(baseOfAShare)
        .arg(leastMean)
        .arg(soundMean - 1);
}

QString shown(const Cell& cell, const Column& column)
{
    if (cell.standing == Standing::Suppressed) return "*";
    const std::optional<QString> value = told(cell, column);
    if (!value) return "–";
    return std::holds_alternative<QString>(cell.value) ? *value : QString(*value).replace('.', ',');
}

QString plain(const Cell& cell, const Column& column)
{
    return cell.standing == Standing::Suppressed ? QString() : told(cell, column).value_or(QString());
}

} // namespace study::report
