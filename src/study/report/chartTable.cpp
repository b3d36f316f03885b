#include "study/report/chartTable.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace study::report {

namespace {

constexpr int decimalsOfAShare = 2;

// By x, and by its turn where a series has it more than once.
using Place = std::pair<double, int>;
using PointsByPlace = std::map<Place, const Point*>;

PointsByPlace placesOf(const Plot& plot)
{
    PointsByPlace places;
    for (const Point& point : plot.points) {
        int turn = 0;
        while (places.contains({point.x, turn}))
            ++turn;
        places[{point.x, turn}] = &point;
    }
    return places;
}

bool isWhole(double value)
{
    return value == std::round(value);
}

int decimalsOf(const Plot& plot)
{
    const bool areWhole = std::ranges::all_of(
        plot.points, [](const Point& point) { return (!point.y || isWhole(*point.y)) && !point.interval; });
    return areWhole ? 0 : decimalsOfAShare;
}

Column columnOf(const Plot& plot, const Chart& chart)
{
    const QString title = plot.name.isEmpty()      ? chart.yTitle
                          : chart.yTitle.isEmpty() ? plot.name
                                                   : plot.name + ": " + chart.yTitle;
    return {title, {}, decimalsOf(plot), false};
}

Column columnOfPlaces(const Chart& chart, const std::map<Place, std::vector<Cell>>& rows)
{
    const bool areWhole = std::ranges::all_of(rows, [](const auto& row) { return isWhole(row.first.first); });
    return {chart.xTitle, {}, areWhole ? 0 : decimalsOfAShare, !chart.categories.isEmpty()};
}

Cell cellOfPlace(const Chart& chart, double x)
{
    return chart.categories.isEmpty() ? number(x) : text(chart.categories.value(static_cast<int>(std::lround(x))));
}

Cell cellOf(const Point& point)
{
    if (!point.y) return {};
    Cell cell = number(*point.y);
    cell.interval = point.interval;
    return cell;
}

} // namespace

Table tableOf(const Chart& chart)
{
    Table table;
    table.id = chart.id;
    table.title = chart.title;
    if (chart.isEmpty()) return table;
    std::map<Place, std::vector<Cell>> rows;
    std::vector<Column> columns;
    for (std::size_t series = 0; series < chart.plots.size(); ++series) {
        columns.push_back(columnOf(chart.plots[series], chart));
        for (const auto& [place, point] : placesOf(chart.plots[series])) {
            auto& row = rows[place];
            row.resize(chart.plots.size());
            row[series] = cellOf(*point);
        }
    }
    table.columns.push_back(columnOfPlaces(chart, rows));
    table.columns.insert(table.columns.end(), columns.begin(), columns.end());
    for (auto& [place, cells] : rows) {
        cells.insert(cells.begin(), cellOfPlace(chart, place.first));
        table.rows.push_back(std::move(cells));
    }
    return table;
}

} // namespace study::report
