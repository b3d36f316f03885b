// Rates of marital fertility by age: tables and charts.
#include "study/indicators/fertility_rates.h"

#include <algorithm>

namespace study::indicators::rates {

using report::Chart;
using report::Figure;

namespace {

constexpr int firstAge = 15, groups = 7;
constexpr std::array<int, 5> marriedAt{15, 20, 25, 30, 35};

Row cellsOf(const Base& base, const Settings& settings)
{
    return {counted(base.births), report::number(base.years(), base.halfDays.keys), rateCell(base, settings)};
}

void appendCells(Row& row, const Base& base, const Settings& settings)
{
    for (Cell& cell : cellsOf(base, settings))
        row.push_back(std::move(cell));
}

std::vector<Column> columnsOf(const QStringList& texts)
{
    std::vector<Column> columns;
    for (const QString& title : texts)
        columns.push_back(textColumn(title));
    columns.push_back(countColumn("Nascimentos"));
    columns.push_back(decimalColumn("Anos vividos por mulheres casadas", "anos", 2));
    columns.push_back(decimalColumn("Taxa", "‰", 1));
    return columns;
}

void noteInflation(Table& table, const Settings& settings)
{
    if (settings.missingBirths > 0)
        table.notes << QString("Taxas multiplicadas por %1, pelos nascimentos que faltam nos livros; os nascimentos "
                               "contados estão como foram encontrados.")
                           .arg(decimalComma(inflationOf(settings), 3));
}

// One row for each age, and all of them.
Table ageTable(const QString& id, const QString& title, const Reading& reading, const Chosen& chosen,
               const Settings& settings)
{
    const Base all = baseOf(reading, chosen);
    Table table{id, title, columnsOf({"Idade da mulher"}), {}, {}};
    for (int i = 0; i < groups; ++i) {
        const int age = firstAge + 5 * i;
        Row row{report::text(groupName(age))};
        appendCells(row, baseOf(reading, chosen, {age, Reading::any, Reading::any, Reading::any}), settings);
        table.rows.push_back(row);
    }
    Row total{report::text("15–49")};
    appendCells(total, all, settings);
    table.rows.push_back(total);
    table.notes << QString("Famílias: %1.").arg(all.families.n);
    if (settings.openFamilies)
        table.notes << "As famílias abertas contam até ao último dia em que marido e mulher são vistos, sem contar os "
                       "nascimentos dos seus filhos.";
    noteInflation(table, settings);
    return table;
}

using natality::Named;

std::vector<Named> byAgeAtMarriage()
{
    std::vector<Named> all;
    all.reserve(marriedAt.size());
    for (const int age : marriedAt)
        all.push_back({groupAtMarriageName(age), {Reading::any, age, Reading::any, Reading::any}});
    return all;
}

std::vector<Named> byPeriod(const Reading& reading, const Chosen& chosen, const Settings& settings)
{
    std::vector<Named> all;
    for (const qint32 period : periodsOf(reading, chosen))
        all.push_back({periodName(period, settings), {Reading::any, Reading::any, period, Reading::any}});
    return all;
}

QString periodTitle(const Settings& settings)
{
    return settings.byMarriageCohort ? "Coorte de casamento" : "Período";
}

// One row for each age of each group; ages that nobody lived are left away.
Table groupedTable(const QString& id, const QString& title, const QString& head, const std::vector<Named>& named,
                   const Reading& reading, const Chosen& chosen, const Settings& settings)
{
    Table table{id, title, columnsOf({head, "Idade da mulher"}), {}, {}};
    for (const Named& group : named) {
        const std::array<Base, groups> ages = byAge(reading, chosen, group.at);
        for (int i = 0; i < groups; ++i) {
            const Base& base = ages[static_cast<std::size_t>(i)];
            if (base.births.n == 0 && base.halfDays.n == 0) continue;
            Row row{report::text(group.name), report::text(groupName(firstAge + 5 * i))};
            appendCells(row, base, settings);
            table.rows.push_back(row);
        }
    }
    noteInflation(table, settings);
    return table;
}

qint32 longestOf(const Reading& reading, const Chosen& chosen)
{
    qint32 last = 0;
    const auto look = [&](quint16 exposure) {
        for (const qint32 years : reading.values(exposure, 3))
            last = std::max(last, years);
    };
    for (const Known known : chosen.knowns)
        for (const Order order : chosen.orders)
            look(static_cast<quint16>(firstExposure + seriesOf(known, order)));
    look(agelessExposure);
    return last;
}

// With the wife's age, to her fiftieth birthday; without it (MF II), to the end of the union; and both.
Table durationTable(const Reading& reading, const Chosen& chosen, const Settings& settings)
{
    Table table{"taxas-por-duracao",
                "Taxas de fecundidade legítima por duração do casamento",
                columnsOf({"Anos de casamento", "Famílias"}),
                {},
                {}};
    const bool haveAgeless = reading.sum(agelessFamilies) > 0;
    const qint32 longest = longestOf(reading, chosen);
    const auto add = [&](qint32 years, const char* families, const Base& base) {
        if (base.births.n == 0 && base.halfDays.n == 0) return;
        Row row{report::text(groupName(years)), report::text(families)};
        appendCells(row, base, settings);
        table.rows.push_back(row);
    };
    for (qint32 years = 0; years <= longest; years += 5) {
        const Reading::At at{Reading::any, Reading::any, Reading::any, years};
        Base base = baseOf(reading, chosen, at);
        const Base ageless = agelessBaseOf(reading, at);
        add(years, "com idade da mulher", base);
        if (!haveAgeless) continue;
        add(years, "sem idade da mulher", ageless);
        base += ageless;
        add(years, "todas", base);
    }
    if (haveAgeless)
        table.notes << QString("Famílias fechadas sem idade da mulher: %1. Seguem-se até ao fim da união, e não só até "
                               "aos 50 anos dela: nas durações longas as suas taxas são mais baixas.")
                           .arg(reading.sum(agelessFamilies));
    noteInflation(table, settings);
    return table;
}

// `without` is the age group that isn't compared with those of the other plots; 0 for none.
report::Plot plotOf(const QString& name, const std::array<Base, groups>& ages, qint32 without, const Settings& settings)
{
    report::Plot plot{name, {}};
    for (int i = 0; i < groups; ++i) {
        const Cell cell = rateCell(ages[static_cast<std::size_t>(i)], settings);
        report::Point point;
        point.x = i;
        if (const double* value = std::get_if<double>(&cell.value);
            value && cell.standing != report::Standing::Suppressed && firstAge + 5 * i != without)
        {
            point.y = *value;
            point.interval = cell.interval;
        }
        plot.points.push_back(point);
    }
    return plot;
}

QString described(const Chart& chart)
{
    QStringList plots;
    for (const report::Plot& plot : chart.plots) {
        QStringList points;
        for (const report::Point& point : plot.points)
            if (point.y)
                points << chart.categories.value(static_cast<int>(point.x)) + " " + decimalComma(*point.y, 0) + " ‰";
        if (!points.isEmpty()) plots << (plot.name.isEmpty() ? QString() : plot.name + ": ") + points.join(", ");
    }
    return chart.title + ". " + plots.join("; ") + ".";
}

Chart chartOf(const QString& id, const QString& title, const std::vector<Named>& named, const Reading& reading,
              const Chosen& chosen, const Settings& settings)
{
    Chart chart{.id = id,
                .title = title,
                .drawing = report::Drawing::Lines,
                .xTitle = "idade da mulher (anos)",
                .yTitle = "taxa (‰)",
                .categories = {},
                .plots = {},
                .described = {}};
    for (int i = 0; i < groups; ++i)
        chart.categories << groupName(firstAge + 5 * i);
    // Where the wife was married in an age group, that group begins with all couples at one point of their lives.
    for (const Named& group : named) {
        const qint32 marriage = group.at[1] == Reading::any ? 0 : group.at[1];
        chart.plots.push_back(plotOf(group.name, byAge(reading, chosen, group.at), marriage, settings));
    }
    const auto isBare = [](const report::Plot& plot) {
        return std::none_of(plot.points.begin(), plot.points.end(), [](const report::Point& one) { return one.y; });
    };
    chart.plots.erase(std::remove_if(chart.plots.begin(), chart.plots.end(), isBare), chart.plots.end());
    chart.described = described(chart);
    return chart;
}

// Both kinds of marriages apart, where there are both.
void appendOrders(std::vector<Figure>& figures, const Reading& reading, const Chosen& chosen, const Settings& settings)
{
    Chosen one = chosen;
    one.orders = {Order::Later};
    const bool both = baseOf(reading, one).families.n > 0;
    if (both)
        figures.emplace_back(ageTable(
            "taxas-recasamentos", "Taxas de fecundidade legítima por idade, casamentos da mulher depois do primeiro",
            reading, one, settings));
    one.orders = {Order::First};
    if (both && baseOf(reading, one).families.n > 0)
        figures.emplace_back(ageTable("taxas-primeiros-casamentos",
                                      "Taxas de fecundidade legítima por idade, primeiros casamentos da mulher",
                                      reading, one, settings));
}

} // namespace

Cell rateCell(const Base& base, const Settings& settings)
{
    if (base.halfDays.n == 0) return {};
    Cell cell = report::rate(base.births.n, base.years(), 1000, base.keys());
    const double factor = inflationOf(settings);
    if (double* value = std::get_if<double>(&cell.value)) *value *= factor;
    if (cell.interval) cell.interval = statistics::Interval{cell.interval->low * factor, cell.interval->high * factor};
    return cell;
}

Chosen chosenBy(const Settings& settings)
{
    Chosen chosen;
    if (!settings.derivedBirths) chosen.knowns = {Known::Exactly, Known::About};
    return chosen;
}

std::vector<qint32> periodsOf(const Reading& reading, const Chosen& chosen)
{
    std::vector<qint32> periods;
    for (const Known known : chosen.knowns)
        for (const Order order : chosen.orders)
            for (const quint16 first : {firstExposure, firstBirths})
                for (const qint32 period : reading.values(first + seriesOf(known, order), 2))
                    periods.push_back(period);
    std::sort(periods.begin(), periods.end());
    periods.erase(std::unique(periods.begin(), periods.end()), periods.end());
    return periods;
}

std::vector<Figure> figuresOf(const Reading& reading, const Settings& settings)
{
    const Chosen chosen = chosenBy(settings);
    const std::vector<Named> ages = byAgeAtMarriage(), periods = byPeriod(reading, chosen, settings);
    const QString title = "Taxas de fecundidade legítima por idade";
    const QString period = settings.byMarriageCohort ? " e coorte de casamento" : " e período";
    std::vector<Figure> figures{ageTable("taxas-por-idade", title, reading, chosen, settings),
                                sumsTable(reading, settings), controlTable(reading, settings),
                                chartOf("taxas", title, {{}}, reading, chosen, settings)};
    appendOrders(figures, reading, chosen, settings);
    Table married = groupedTable("taxas-por-idade-ao-casamento", title + " e idade ao casamento", "Idade ao casamento",
                                 ages, reading, chosen, settings);
    married.notes << "O grupo de idades em que está o casamento não se compara com o mesmo grupo das casadas mais "
                     "cedo, e não está "
                     "no gráfico.";
    figures.emplace_back(married);
    figures.emplace_back(
        chartOf("taxas-idade-ao-casamento", title + " e idade ao casamento", ages, reading, chosen, settings));
    figures.emplace_back(
        groupedTable("taxas-por-periodo", title + period, periodTitle(settings), periods, reading, chosen, settings));
    figures.emplace_back(chartOf("taxas-periodo", title + period, periods, reading, chosen, settings));
    figures.emplace_back(durationTable(reading, chosen, settings));
    return figures;
}

} // namespace study::indicators::rates
