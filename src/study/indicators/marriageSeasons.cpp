// When in the year, and on which day of the week, people marry; and what the forbidden times did to it.
#include "study/indicators/marriages.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reasons.h"
#include "study/indicators/seasonality.h"
#include "study/parish/calendar.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace closedTimes {

using parish::Family;
using report::Figure;

// Of the dimensions: period, then month, quarter or day of the week; of Season the year and the season.
enum Count : quint16
{
    Month,
    Quarter,
    WeekDay,
    Season,
    Undated,
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    Inexact
};

constexpr const char* counts[] = {"mês",
                                  "trimestre",
                                  "dia da semana",
                                  "tempo do ano",
                                  "sem data",
                                  "noutra paróquia",
                                  "fora do período",
                                  "fora dos livros",
                                  "data aproximada"};

constexpr Reason leftOut[] = {{Undated, reasons::noMarriage},
                              {Elsewhere, reasons::notLocal},
                              {OutOfPeriod, reasons::outsidePeriod},
                              {OutOfBooks, reasons::outsideBooks},
                              {Inexact, "data aproximada (fora de tudo menos dos trimestres, se não é só o ano)"}};

enum Time : qint32
{
    Advent,
    Lent,
    Carnival,
    Rest
};
constexpr Time times[] = {Advent, Lent, Carnival, Rest};
constexpr const char* namesOfTimes[] = {"Advento fechado (do 1.º domingo do Advento ao dia de Reis)",
                                        "Quaresma fechada (de Cinzas ao domingo depois da Páscoa)",
                                        "Carnaval (os 14 dias antes de Cinzas)", "Resto do ano"};
constexpr int daysOfCarnival = 14, daysOfLent = 54, firstYearOfFeasts = 326, lastYearOfFeasts = 9999;

Time timeOf(QDate day)
{
    switch (parish::closedSeason(day)) {
    case parish::ClosedSeason::Advent:
        return Advent;
    case parish::ClosedSeason::Lent:
        return Lent;
    case parish::ClosedSeason::None:
        break;
    }
    const QDate ashes = parish::ashWednesday(day.year());
    return day < ashes && day >= ashes.addDays(-daysOfCarnival) ? Carnival : Rest;
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    const auto families = study.parish.families();
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const Family& family = families[i];
        if (!isTaken(family, study, Undated, taker)) continue;
        const auto add = [&](Count count, qint32 first, qint32 second) {
            taker.count({count, {first, second}}, {nullptr, &family});
        };
        const int year = family.marriage.year();
        const qint32 period = periodOf(year, study.settings);
        if (const auto quarter = quarterOf(family.marriage)) add(Quarter, period, *quarter);
        const auto month = monthOf(family.marriage);
        if (!month) {
            add(Inexact, 0, 0);
            continue;
        }
        add(Month, period, *month);
        add(WeekDay, period, *dayOfWeek(family.marriage));
        if (year >= firstYearOfFeasts) add(Season, year, timeOf(family.marriage.date()));
    }
}

// Figures

constexpr qint32 any = Reading::any;

// How many days of these years each time has.
std::array<double, std::size(times)> daysOf(const std::vector<int>& years)
{
    std::array<double, std::size(times)> days = {};
    for (const int year : years) {
        static constexpr int epiphany = 6, changeOfCalendar = 1582, daysLeftOut = 10;
        const double advent = parish::adventSunday(year).daysTo(QDate(year, 12, 31)) + 1.0 + epiphany;
        const double all = QDate(year, 1, 1).daysInYear() - (year == changeOfCalendar ? daysLeftOut : 0);
        days[Advent] += advent;
        days[Lent] += daysOfLent;
        days[Carnival] += daysOfCarnival;
        days[Rest] += all - advent - daysOfLent - daysOfCarnival;
    }
    return days;
}

// The years that the books cover, within the period of the study: by the settings, else from the first to the last
// marriage.
std::vector<int> yearsCovered(const Reading& reading, const Settings& settings)
{
    const std::vector<qint32> seen = reading.values(Season, 0);
    if (seen.empty()) return {};
    const YearSpan& books = settings.books[static_cast<std::size_t>(Series::Marriages)];
    const int first = std::max(books.first, settings.period.first);
    const auto lastOf = [](int one, int other) {
        return one == 0 || other == 0 ? std::max(one, other) : std::min(one, other);
    };
    const int last = lastOf(books.last, settings.period.last);
    std::vector<int> years;
    for (int year = std::max(first != 0 ? first : seen.front(), firstYearOfFeasts);
         year <= std::min(last != 0 ? last : seen.back(), lastYearOfFeasts); ++year)
        if (settings.period.holds(year) && settings.covers(Series::Marriages, year)) years.push_back(year);
    return years;
}

struct Row
{
    Reading::Part part = {};
    double days = 0;
};

Cell indexOf(const Row& row, const Row& all)
{
    if (row.days <= 0 || all.part.n <= 0) return {};
    const auto n = static_cast<double>(row.part.n);
    Cell cell = report::number(n / row.days / (static_cast<double>(all.part.n) / all.days) * 100, row.part.keys);
    if (all.part.n < leastBySeason) cell.standing = report::Standing::Suppressed;
    return cell;
}

std::array<Row, std::size(times)> rowsOf(const Reading& reading, const std::vector<int>& years, int from, int until)
{
    std::vector<int> inside;
    std::copy_if(years.begin(), years.end(), std::back_inserter(inside),
                 [from, until](int year) { return year >= from && year < until; });
    const auto days = daysOf(inside);
    std::array<Row, std::size(times)> rows = {};
    for (const Time time : times)
        rows[static_cast<std::size_t>(time)] = {reading.within(Season, 0, from, until, {any, time, any, any}),
                                                days[static_cast<std::size_t>(time)]};
    return rows;
}

Row sumOf(const std::array<Row, std::size(times)>& rows)
{
    Row all;
    for (const Row& row : rows) {
        all.part += row.part;
        all.days += row.days;
    }
    return all;
}

constexpr int forEver = 10000;

Table closedTable(const Reading& reading, const std::vector<int>& years)
{
    Table table{"tempos-proibidos",
                "Casamentos nos tempos proibidos e no Carnaval",
                {textColumn("Tempo"), countColumn("Nº"), countColumn("Dias"),
                 decimalColumn("Índice", "100 = média de todos os dias")},
                {},
                {}};
    if (years.empty()) return table;
    const auto rows = rowsOf(reading, years, 0, forEver);
    const Row all = sumOf(rows);
    for (const Time time : times) {
        const Row& row = rows[static_cast<std::size_t>(time)];
        table.rows.push_back(
            {report::text(namesOfTimes[time]), counted(row.part), report::number(row.days), indexOf(row, all)});
    }
    table.rows.push_back({report::text("Todos os dias"), counted(all.part), report::number(all.days), Cell()});
    table.notes << QString("Anos de %1 a %2, sem as lacunas dos livros (%3 anos). A Páscoa é a de cada ano.")
                       .arg(years.front())
                       .arg(years.back())
                       .arg(years.size());
    return table;
}

Table closedByPeriod(const Reading& reading, const std::vector<int>& years, const Settings& settings)
{
    Table table{"tempos-por-periodo",
                "Índices dos tempos proibidos e do Carnaval, por períodos",
                {textColumn("Período")},
                {},
                {}};
    table.columns.push_back(countColumn("Casamentos"));
    for (const char* name : {"Advento fechado", "Quaresma fechada", "Carnaval", "Resto do ano"})
        table.columns.push_back(decimalColumn(name, "100 = média de todos os dias"));
    for (const qint32 period : reading.values(Month, 0)) {
        const auto rows = rowsOf(reading, years, period, period + settings.cohortYears);
        const Row all = sumOf(rows);
        std::vector<Cell> row = {report::text(periodName(period, settings)), counted(all.part)};
        for (const Row& one : rows)
            row.push_back(indexOf(one, all));
        table.rows.push_back(row);
    }
    return table;
}

Table weekTable(const Reading& reading)
{
    static constexpr int daysOfAWeek = 7;
    Table table{"dia-da-semana",
                "Casamentos por dia da semana",
                {textColumn("Dia"), countColumn("Nº"), decimalColumn("Em 100", "%"),
                 decimalColumn("Índice", "100 = média dos dias")},
                {},
                {}};
    const Reading::Part all = reading.part(WeekDay);
    if (all.n == 0) return table;
    for (int day = 1; day <= daysOfAWeek; ++day) {
        const Reading::Part part = reading.part(WeekDay, {any, day, any, any});
        table.rows.push_back({report::text(dayOfWeekName(day)), counted(part), percent(part, all),
                              indexOf({part, 1}, {all, daysOfAWeek})});
    }
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    std::vector<Figure> all =
        monthFigures(reading, {"casamentos-por-mes", "Casamentos por mês", "casamentos", Month, 1, {{}}});
    ByMonth byPeriod{"casamentos-por-periodo", "Casamentos por mês e período", "casamentos", Month, 1, {}};
    ByMonth byQuarter{"casamentos-por-trimestre", "Casamentos por trimestre", "casamentos", Quarter, 1, {}};
    for (const auto& [period, name] : periodsOf(reading, {Month, Quarter}, settings)) {
        const ByMonth::Group group{name, {period, any, any, any}};
        byQuarter.groups.push_back(group);
        if (period != any) byPeriod.groups.push_back(group);
    }
    if (byPeriod.groups.size() > 1)
        for (const Figure& figure : monthFigures(reading, byPeriod))
            all.push_back(figure);
    all.emplace_back(quarterTable(reading, byQuarter));
    const std::vector<int> years = yearsCovered(reading, settings);
    all.emplace_back(closedTable(reading, years));
    all.emplace_back(closedByPeriod(reading, years, settings));
    all.emplace_back(weekTable(reading));
    all.emplace_back(leftOutTable(reading, leftOut));
    return all;
}

} // namespace closedTimes

} // namespace

const Subject marriageSeasons = {
    "sazonalidade-dos-casamentos",
    "Nupcialidade",
    "Sazonalidade dos casamentos",
    "Contam-se os casamentos de data exacta, por dia e não por mês, para que a duração dos meses não conte. Os tempos "
    "proibidos movem-se com a Páscoa e calculam-se para cada ano que os livros cobrem. Abaixo de 100 casamentos os "
    "índices são obra do acaso e não se mostram.",
    closedTimes::counts,
    closedTimes::leftOut,
    closedTimes::fill,
    closedTimes::figures};

} // namespace study::indicators
