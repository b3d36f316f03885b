#include "study/indicators/childhood.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"
#include "study/statistics/mortality.h"

#include <cmath>

namespace study::indicators {

namespace {

namespace bourgeoisPichat {

using At = Reading::At;
using Months = std::array<double, 12>;
constexpr qint32 any = Reading::any;

// Period of the birth, gender, legitimacy, age in days.
enum Count : quint16
{
    Births,  // exact, and the family is seen a year
    Deaths,  // of these, under one, to the day
    Inexact, // the first of the reasons
    Short,
    Unlinked
};
constexpr std::array<const char*, 12> names = {
    "nascimentos",     "obitos",          "datas-nao-exactas", "vistos-menos-de-um-ano",
    unwatchedNames[0], unwatchedNames[1], unwatchedNames[2],   unwatchedNames[3],
    unwatchedNames[4], unwatchedNames[5], unwatchedNames[6],   unwatchedNames[7]};
constexpr std::array<Reason, 10> allReasons()
{
    std::array<Reason, 10> all = {{{Inexact, "nascimento ou óbito sem data exacta"},
                                   {Short, "família vista menos de um ano depois do nascimento"}}};
    const auto more = reasonsFrom(Unlinked);
    for (std::size_t i = 0; i < more.size(); ++i)
        all[i + 2] = more[i];
    return all;
}
constexpr std::array<Reason, 10> reasons = allReasons();

constexpr qint64 leastDeaths = 50;
constexpr double likelyLeast = 40; // ‰: less before 1850 tells of deaths that weren't written down
constexpr int lastOldYear = 1850;
constexpr double nearNothing = 10; // ‰: so few tell of them at any time

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& child : peopleOf(study, share)) {
        const Childhood life = childhoodOf(child, study);
        if (!isTold(life, child, Unlinked, taker)) continue;
        const Who who{&child, child.origin};
        if (!life.exact) {
            taker.count({Inexact}, who);
            continue;
        }
        if (life.seen < daysOfAnAge) {
            taker.count({Short}, who);
            continue;
        }
        const At at = {periodOf(child.birth.year(), study.settings), numbered(child.gender),
                       static_cast<qint32>(life.legitimacy), life.death.value_or(0)};
        taker.count({Births, {at[0], at[1], at[2]}}, who);
        if (life.death && *life.death < daysOfAnAge) taker.count({Deaths, at}, who);
    }
}

// Deaths by thousand births to the end of each month.
struct Cumulated
{
    Months months = {};
    Reading::Part births = {}, deaths = {};
};

Cumulated cumulatedOf(const Reading& reading, const Group& group)
{
    const At at = {group.period, group.gender, any, any};
    Cumulated of{{}, reading.part(Births, at), reading.part(Deaths, at)};
    if (of.births.n == 0) return of;
    const Reading::Spread days = reading.spread(Deaths, 3, at);
    for (std::size_t i = 0; i < of.months.size(); ++i)
        of.months[i] = static_cast<double>(days.values.below(statistics::endsOfMonths[i])) /
                       static_cast<double>(of.births.n) * 1000;
    return of;
}

Cell standing(Cell cell, const Cumulated& of)
{
    if (of.deaths.n >= leastDeaths) return cell;
    cell.standing = report::Standing::Suppressed;
    cell.interval.reset();
    return cell;
}

// By thousand births: fewer than a hundred bear no decimals.
Cell perThousand(double value, const Cumulated& of)
{
    static constexpr qint64 leastForADecimal = 100;
    Cell cell = report::number(value, of.deaths.keys + of.births.keys);
    if (of.births.n < leastForADecimal) cell.decimals = 0;
    return cell;
}

Cell endogenousCell(statistics::EndogenousWay way, const Cumulated& of)
{
    const auto by = way(of.months);
    if (!by) return {};
    if (by->endogenous >= 0) {
        Cell cell = perThousand(by->endogenous, of);
        cell.interval = statistics::endogenousInterval(way, of.months, static_cast<double>(of.births.n));
        return standing(cell, of);
    }
    Cell cell = report::text("0 (não aplicável)");
    cell.from = of.deaths.keys;
    return standing(cell, of);
}

Cell exogenousCell(const std::optional<statistics::Endogenous>& by, const Cumulated& of)
{
    if (!by || by->endogenous < 0) return {};
    return standing(perThousand(of.months.back() - by->endogenous, of), of);
}

// All deaths behind the first month, and so many before it as the line gives.
double scale(std::size_t month)
{
    const double logarithm = std::log10(statistics::endsOfMonths[month] + 1);
    return logarithm * logarithm * logarithm;
}

Cell shortcutCell(const Cumulated& of)
{
    if (of.births.n == 0 || of.deaths.n == 0) return {};
    const double factor = scale(11) / (scale(11) - scale(0));
    return standing(perThousand(factor * (of.months.back() - of.months.front()), of), of);
}

QString remark(const std::optional<statistics::Endogenous>& by, const Group& group)
{
    if (!by) return "–";
    if (by->bent) return "as duas metades do ano não fazem uma recta: não interpretar";
    const bool isOld = group.period != any && group.period < lastOldYear;
    if (by->endogenous < (isOld ? likelyLeast : nearNothing)) return "muito baixa: faltam óbitos de recém-nascidos?";
    return "recta";
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    Table table{"endogena",
                "Mortalidade endógena e exógena",
                {textColumn("Nascimentos"), countColumn("Vistos um ano"), countColumn("Óbitos"),
                 decimalColumn("Mortalidade infantil", "‰"), decimalColumn("Endógena (quadrados mínimos)", "‰"),
                 decimalColumn("Exógena (quadrados mínimos)", "‰"), decimalColumn("Declive", "", 3),
                 decimalColumn("Endógena (recta de 1 a 12 meses)", "‰"),
                 decimalColumn("Exógena (recta de 1 a 12 meses)", "‰"), decimalColumn("Exógena (atalho)", "‰"),
                 textColumn("Observação")}};
    for (const Group& group : groupsOf(reading, {Births})) {
        const Cumulated of = cumulatedOf(reading, group);
        const auto squares = statistics::endogenousBySquares(of.months), line = statistics::endogenousByLine(of.months);
        Cell remarkCell = report::text(of.deaths.n < leastDeaths ? "menos de 50 óbitos" : remark(squares, group));
        table.rows.push_back({report::text(told(group, settings)), counted(of.births), counted(of.deaths),
                              of.births.n > 0 ? standing(perThousand(of.months.back(), of), of) : Cell(),
                              endogenousCell(statistics::endogenousBySquares, of), exogenousCell(squares, of),
                              squares ? standing(report::number(squares->slope, of.deaths.keys), of) : Cell(),
                              endogenousCell(statistics::endogenousByLine, of), exogenousCell(line, of),
                              shortcutCell(of), std::move(remarkCell)});
    }
    table.notes = {"Óbitos acumulados até x dias: D(x) = A + B·log³(x + 1), com logaritmos decimais; A é a mortalidade "
                   "endógena. Todos os óbitos depois do primeiro mês são exógenos.",
                   "Atalho: 1,254 vezes os óbitos dos meses 2 a 12."};
    return table;
}

Table byMonth(const Reading& reading)
{
    Table table{"acumulados",
                "Óbitos acumulados até ao fim de cada mês",
                {textColumn("Até ao dia"), countColumn("Óbitos"), decimalColumn("Por mil nascimentos", "‰"),
                 decimalColumn("log³(x + 1)", "", 3), decimalColumn("Pela recta", "‰")}};
    const Cumulated of = cumulatedOf(reading, {});
    if (of.births.n == 0) return table;
    const auto squares = statistics::endogenousBySquares(of.months);
    for (std::size_t i = 0; i < of.months.size(); ++i)
        table.rows.push_back(
            {report::text(QString::number(statistics::endsOfMonths[i])),
             counted(reading.within(Deaths, 3, 0, statistics::endsOfMonths[i])),
             standing(perThousand(of.months[i], of), of), report::number(scale(i)),
             squares ? standing(perThousand(squares->endogenous + squares->slope * scale(i), of), of) : Cell()});
    return table;
}

report::Chart chartOf(const Reading& reading)
{
    report::Chart chart{"acumulados", "Óbitos acumulados no primeiro ano", report::Drawing::Points, "log³(x + 1)",
                        "óbitos acumulados (‰)"};
    chart.described =
        "Óbitos acumulados até ao fim de cada mês do primeiro ano, e a recta que os ajusta: onde ela corta "
        "o eixo está a mortalidade endógena.";
    const Cumulated of = cumulatedOf(reading, {});
    const auto squares = statistics::endogenousBySquares(of.months);
    if (!squares || of.deaths.n < leastDeaths) return chart;
    report::Plot observed{"óbitos"}, line{"recta"};
    line.points.push_back({0, squares->endogenous});
    for (std::size_t i = 0; i < of.months.size(); ++i) {
        observed.points.push_back({scale(i), of.months[i]});
        line.points.push_back({scale(i), squares->endogenous + squares->slope * scale(i)});
    }
    chart.plots = {observed, line};
    return chart;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {byPeriod(reading, settings), byMonth(reading), chartOf(reading), leftOutTable(reading, reasons)};
}

} // namespace bourgeoisPichat

} // namespace

const Subject endogenousMortality = {
    "mortalidade-endogena",
    "Mortalidade",
    "Mortalidade endógena e exógena",
    "Contam as crianças com nascimento e óbito exactos, cuja família é vista um ano depois do nascimento. A parte "
    "endógena lê-se na recta dos óbitos acumulados, e só quando as duas metades do ano dão a mesma recta e há "
    "cinquenta "
    "óbitos ou mais. Uma parte endógena muito baixa quer dizer que os recém-nascidos mortos não foram registados.",
    bourgeoisPichat::names,
    bourgeoisPichat::reasons,
    bourgeoisPichat::fill,
    bourgeoisPichat::figures};

} // namespace study::indicators
