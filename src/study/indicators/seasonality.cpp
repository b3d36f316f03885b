#include "study/indicators/seasonality.h"

#include "study/statistics/seasons.h"

#include <QCalendar>

#include <algorithm>

namespace study::indicators {

namespace {

using report::Chart;
using report::Standing;

constexpr int monthsOfYear = 12, quarters = 4, firstMonthOfGestation = 9;
constexpr std::array<double, monthsOfYear> daysOfMonths = {31, 28.25, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::array<double, quarters> daysOfQuarters = {90.25, 91, 92, 92};

struct Index
{
    double value = 0;
    statistics::Interval interval = {};
};

// Per day, of 100 a day of the mean year. Precondition: all > 0.
Index dailyRatio(qint64 n, qint64 all, double days)
{
    const auto part = static_cast<double>(n), whole = static_cast<double>(all);
    const double scale = 100 * parish::daysOfAYear / days;
    const statistics::Interval share = statistics::wilsonInterval(part, whole);
    return {part / whole * scale, {share.low * scale, share.high * scale}};
}

Cell indexCell(const Index& index, qint64 all, const std::vector<Key>& keys)
{
    Cell cell = report::number(index.value, keys);
    cell.interval = index.interval;
    if (all < leastBySeason) cell.standing = Standing::Suppressed;
    return cell;
}

// The events of one group, by month or quarter.
struct CountedEvents
{
    std::vector<Reading::Part> parts = {};
    Reading::Part all = {};
};

CountedEvents countedBy(const Reading& reading, const ByMonth& shown, const ByMonth::Group& group, int parts)
{
    CountedEvents events;
    for (int part = 1; part <= parts; ++part) {
        Reading::At at = group.at;
        at[static_cast<std::size_t>(shown.dimension)] = part;
        events.parts.push_back(reading.part(shown.count, at));
        events.all += events.parts.back();
    }
    return events;
}

QString testOf(const statistics::Months& counts)
{
    const auto even = statistics::evenness(counts);
    if (!even) return {};
    static constexpr double least = 0.001;
    const QString probability =
        even->probability < least ? QString("p < 0,001") : "p = " + decimalComma(even->probability, 3);
    return QString("Igualdade de todos os dias do ano: χ² = %1, 11 graus de liberdade, %2.")
        .arg(decimalComma(even->chiSquare, 1), probability);
}

QString suffixed(const QString& text, const QString& between, const QString& name)
{
    return name.isEmpty() ? text : text + between + name;
}

Table monthTable(const ByMonth& shown, const ByMonth::Group& group, const CountedEvents& events, const QString& id)
{
    Table table{id,
                suffixed(shown.title, ": ", group.name),
                {textColumn("Mês"), countColumn("Nº"), decimalColumn("Razão diária", "100 = média do ano"),
                 decimalColumn("Número proporcional", "soma 1200")},
                {},
                {}};
    statistics::Months counts = {};
    for (std::size_t month = 0; month < counts.size(); ++month)
        counts[month] = static_cast<double>(events.parts[month].n);
    const auto proportional = statistics::proportionalNumbers(counts);
    for (int month = 0; month < monthsOfYear; ++month) {
        const auto i = static_cast<std::size_t>(month);
        const Reading::Part& part = events.parts[i];
        Cell henry = proportional ? report::number((*proportional)[i], part.keys) : Cell();
        if (events.all.n < leastBySeason) henry.standing = Standing::Suppressed;
        table.rows.push_back({report::text(monthName(month + 1)), counted(part),
                              indexCell(dailyRatio(part.n, events.all.n, daysOfMonths[i]), events.all.n, part.keys),
                              henry});
    }
    table.rows.push_back({report::text("Ano"), counted(events.all), Cell(), Cell()});
    table.notes
        << "Só datas exactas. Razão diária: acontecimentos por dia do mês sobre os por dia do ano (365,25 dias; "
           "Fevereiro 28,25), vezes 100.";
    if (events.all.n < leastBySeason)
        table.notes << QString("Menos de %1 %2: os índices não se mostram.").arg(leastBySeason).arg(shown.events);
    else
        table.notes << testOf(counts);
    return table;
}

report::Plot plotOf(const ByMonth::Group& group, const CountedEvents& events)
{
    report::Plot plot{group.name, {}};
    for (int month = 0; month < monthsOfYear; ++month) {
        const auto i = static_cast<std::size_t>(month);
        const Index index = dailyRatio(events.parts[i].n, events.all.n, daysOfMonths[i]);
        plot.points.push_back({static_cast<double>(month), index.value, index.interval});
    }
    return plot;
}

// "1750–1799: mais em Fevereiro (242), menos em Dezembro (28)."
QString described(const report::Plot& plot)
{
    const auto less = [](const report::Point& one, const report::Point& other) { return *one.y < *other.y; };
    const auto [lowest, highest] = std::minmax_element(plot.points.begin(), plot.points.end(), less);
    const auto month = [](const report::Point& point) {
        return QString("%1 (%2)").arg(monthName(static_cast<int>(point.x) + 1), decimalComma(*point.y, 0));
    };
    const QString name = plot.name.isEmpty() ? QString() : plot.name + ": ";
    return name + QString("mais em %1, menos em %2.").arg(month(*highest), month(*lowest));
}

} // namespace

std::optional<int> monthOf(const parish::Date& date)
{
    if (!date.isExact()) return {};
    return date.date().month();
}

std::optional<int> quarterOf(const parish::Date& date)
{
    if (!date.isKnown() || date.precision == parish::Precision::Year) return {};
    static constexpr int monthsOfAQuarter = 3;
    return (date.date().month() - 1) / monthsOfAQuarter + 1;
}

int monthOfConception(int monthOfBirth)
{
    return (monthOfBirth - 1 + monthsOfYear - firstMonthOfGestation) % monthsOfYear + 1;
}

std::optional<int> dayOfWeek(const parish::Date& date)
{
    if (!date.isExact()) return {};
    const QDate day = date.date();
    if (day >= QDate(1582, 10, 15)) return day.dayOfWeek();
    static const QCalendar julian(QCalendar::System::Julian);
    return julian.dateFromParts(day.year(), day.month(), day.day()).dayOfWeek();
}

QString monthName(int month)
{
    static const char* const names[] = {"Janeiro", "Fevereiro", "Março",    "Abril",   "Maio",     "Junho",
                                        "Julho",   "Agosto",    "Setembro", "Outubro", "Novembro", "Dezembro"};
    return names[month - 1];
}

QString dayOfWeekName(int day)
{
    static const char* const names[] = {"segunda-feira", "terça-feira", "quarta-feira", "quinta-feira",
                                        "sexta-feira",   "sábado",      "domingo"};
    return names[day - 1];
}

QString quarterName(int quarter)
{
    static const char* const names[] = {"Janeiro a Março", "Abril a Junho", "Julho a Setembro", "Outubro a Dezembro"};
    return names[quarter - 1];
}

std::vector<report::Figure> monthFigures(const Reading& reading, const ByMonth& shown)
{
    std::vector<report::Figure> figures;
    Chart chart{shown.id + "-grafico",
                shown.title,
                report::Drawing::Lines,
                "mês",
                "razão diária (100 = média do ano)",
                {},
                {},
                {}};
    for (int month = 1; month <= monthsOfYear; ++month)
        chart.categories << monthName(month);
    QStringList words;
    for (std::size_t i = 0; i < shown.groups.size(); ++i) {
        const ByMonth::Group& group = shown.groups[i];
        const CountedEvents events = countedBy(reading, shown, group, monthsOfYear);
        if (events.all.n == 0) continue;
        const QString id = shown.groups.size() == 1 ? shown.id : QString("%1-%2").arg(shown.id).arg(i + 1);
        figures.emplace_back(monthTable(shown, group, events, id));
        if (events.all.n < leastBySeason) continue;
        chart.plots.push_back(plotOf(group, events));
        if (group.name.isEmpty() && shown.groups.size() > 1) chart.plots.back().name = "Todos";
        words << described(chart.plots.back());
    }
    chart.described = words.join(' ');
    if (!chart.plots.empty()) figures.emplace_back(chart);
    return figures;
}

Table quarterTable(const Reading& reading, const ByMonth& shown)
{
    Table table{shown.id, shown.title, {textColumn("Grupo"), countColumn("Nº")}, {}, {}};
    for (int quarter = 1; quarter <= quarters; ++quarter)
        table.columns.push_back(decimalColumn(quarterName(quarter), "100 = média do ano"));
    for (const ByMonth::Group& group : shown.groups) {
        const CountedEvents events = countedBy(reading, shown, group, quarters);
        if (events.all.n == 0) continue;
        std::vector<Cell> row = {report::text(group.name.isEmpty() ? QString("Todos") : group.name),
                                 counted(events.all)};
        for (std::size_t i = 0; i < daysOfQuarters.size(); ++i)
            row.push_back(indexCell(dailyRatio(events.parts[i].n, events.all.n, daysOfQuarters[i]), events.all.n,
                                    events.parts[i].keys));
        table.rows.push_back(row);
    }
    table.notes << "Datas exactas e aproximadas, sem aquelas de que só se sabe o ano.";
    return table;
}

} // namespace study::indicators
