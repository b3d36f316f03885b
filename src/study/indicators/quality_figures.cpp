#include "study/indicators/quality_p.h"
#include "study/indicators/quotients.h"
#include "study/statistics/mortality.h"

#include <algorithm>
#include <set>

namespace study::indicators::quality_counts {

namespace {

using At = Reading::At;
constexpr qint32 any = Reading::any;
constexpr qint64 leastBase = 20;
constexpr qint64 leastInfants = 50;
constexpr qint32 fourWeeks = 28;

Cell perThousand(const Reading::Part& part, const Reading::Part& whole)
{
    return whole.n > 0 ? report::share(part.n, whole.n, 1000, part.keys) : Cell();
}

// Men by a hundred women, with the interval of the share of men.
Cell sexRatio(const Reading::Part& men, const Reading::Part& women)
{
    const qint64 both = men.n + women.n;
    if (women.n <= 0) return {};
    Cell cell = report::number(static_cast<double>(men.n) / static_cast<double>(women.n) * 100, men.keys + women.keys);
    if (both < leastBase) {
        cell.standing = report::Standing::Suppressed;
        return cell;
    }
    const auto share = statistics::wilsonInterval(static_cast<double>(men.n), static_cast<double>(both));
    if (share.high < 1)
        cell.interval = statistics::Interval{share.low / (1 - share.low) * 100, share.high / (1 - share.high) * 100};
    return cell;
}

Cell quotientOf(const Reading::Part& part, const Reading::Part& whole)
{
    if (whole.n <= 0) return {};
    Cell cell = report::number(static_cast<double>(part.n) / static_cast<double>(whole.n), part.keys);
    if (whole.n < leastBase) cell.standing = report::Standing::Suppressed;
    return cell;
}

struct Decade
{
    Reading::Part births, exact, newYears, men, women, undetermined, deaths, deathsLinked, spouses, spousesLinked,
        confinements, twins, firstBirths, early;
};

Decade decadeOf(const Reading& reading, qint32 decade)
{
    const auto gender = [&](parish::Gender of) {
        return reading.part(Births, {decade, static_cast<qint32>(of), any, any});
    };
    return {reading.part(Births, {decade, any, any, any}),
            reading.part(Births, {decade, any, 0, any}),
            reading.part(NewYears, {decade, any, any, any}),
            gender(parish::Gender::Male),
            gender(parish::Gender::Female),
            gender(parish::Gender::Undetermined),
            reading.part(Deaths, {decade, any, any, any}),
            reading.part(Deaths, {decade, 1, any, any}),
            reading.part(Spouses, {decade, any, any, any}),
            reading.part(Spouses, {decade, 1, any, any}),
            reading.part(Confinements, {decade, any, any, any}),
            reading.part(Twins, {decade, any, any, any}),
            reading.part(FirstBirths, {decade, any, any, any}),
            reading.part(FirstBirths, {decade, 1, any, any})};
}

std::vector<qint32> decades(const Reading& reading)
{
    std::set<qint32> all;
    for (const quint16 count : {Births, Deaths, Spouses})
        for (const qint32 decade : reading.values(count, 0))
            all.insert(decade);
    return {all.begin(), all.end()};
}

QString decadeTold(qint32 decade)
{
    return decade == any ? "Todos os anos" : QString("%1–%2").arg(decade).arg(decade + 9);
}

Table births(const Reading& reading, const std::vector<qint32>& rows)
{
    Table table{"nascimentos",
                "Nascimentos, por dez anos",
                {textColumn("Anos"), countColumn("Nascimentos"), decimalColumn("Com data exacta", "%"),
                 decimalColumn("Em 1 de Janeiro", "%"), decimalColumn("Rapazes por 100 raparigas", ""),
                 decimalColumn("Sexo indeterminado", "%"), countColumn("Partos"),
                 decimalColumn("Partos de gémeos", "‰")}};
    for (const qint32 row : rows) {
        const Decade of = decadeOf(reading, row);
        table.rows.push_back({report::text(decadeTold(row)), counted(of.births), percent(of.exact, of.births),
                              percent(of.newYears, of.births), sexRatio(of.men, of.women),
                              percent(of.undetermined, of.births), counted(of.confinements),
                              perThousand(of.twins, of.confinements)});
    }
    table.notes = {"Esperam-se 0,3 % em 1 de Janeiro, 105 rapazes por 100 raparigas e cerca de 10 ‰ de partos de "
                   "gémeos. Muito menos gémeos quer dizer que faltam baptismos de crianças que morreram logo."};
    return table;
}

Table links(const Reading& reading, const std::vector<qint32>& rows)
{
    Table table{"ligacoes",
                "Óbitos e casamentos ligados ao nascimento, por dez anos",
                {textColumn("Anos"), countColumn("Óbitos"), decimalColumn("Com nascimento", "%"),
                 decimalColumn("Óbitos por nascimento", "", 2), countColumn("Cônjuges"),
                 decimalColumn("Com nascimento", "%"), countColumn("Primeiros filhos"),
                 decimalColumn("Antes de 8 meses", "%")}};
    for (const qint32 row : rows) {
        const Decade of = decadeOf(reading, row);
        table.rows.push_back({report::text(decadeTold(row)), counted(of.deaths), percent(of.deathsLinked, of.deaths),
                              quotientOf(of.deaths, of.births), counted(of.spouses),
                              percent(of.spousesLinked, of.spouses), counted(of.firstBirths),
                              percent(of.early, of.firstBirths)});
    }
    return table;
}

Table families(const Reading& reading)
{
    Table table{"familias-por-classe",
                "Famílias por classe",
                {textColumn("Classe"), countColumn("Famílias"), decimalColumn("De todas", "%"),
                 countColumn("Com outro tipo na ficha")}};
    const Reading::Part all = reading.part(Families);
    if (all.n == 0) return table;
    for (const qint32 which : reading.values(Families, 0)) {
        const auto of = reading.part(Families, {which, any, any, any});
        table.rows.push_back({report::text(QString::fromUtf8(classes.at(static_cast<std::size_t>(which)))), counted(of),
                              percent(of, all), counted(reading.part(Families, {which, 1, any, any}))});
    }
    table.rows.push_back(
        {report::text("Todas"), counted(all), Cell(), counted(reading.part(Families, {any, 1, any, any}))});
    table.notes = {"M: casamento conhecido; E: desconhecido; F: fim da união conhecido; O: desconhecido; I: nascimento "
                   "da mulher no registo; I′: tirado de uma idade declarada; II: desconhecido."};
    return table;
}

Table familiesByDecade(const Reading& reading)
{
    Table table{"familias-por-anos", "Famílias por classe, por dez anos do casamento", {textColumn("Anos")}};
    const std::vector<qint32> found = reading.values(Families, 0);
    if (found.empty()) return table;
    for (const qint32 which : found)
        table.columns.push_back(countColumn(QString::fromUtf8(classes.at(static_cast<std::size_t>(which)))));
    table.columns.push_back(countColumn("Todas"));
    for (const qint32 decade : reading.values(Families, 2)) {
        table.rows.push_back({report::text(decade == 0 ? QString("sem data do casamento") : decadeTold(decade))});
        for (const qint32 which : found)
            table.rows.back().push_back(counted(reading.part(Families, {which, any, decade, any})));
        table.rows.back().push_back(counted(reading.part(Families, {any, any, decade, any})));
    }
    return table;
}

std::optional<double> whipple(const Reading& reading, quint16 count)
{
    std::map<int, qint64> ages;
    const Reading::Spread spread = reading.spread(count, 0);
    for (const auto& [age, n] : spread.values.counts())
        ages[age] = n;
    return statistics::whippleIndex(ages);
}

void addWhipple(Table& table, const Reading& reading, quint16 count, const QString& name)
{
    const auto base = reading.within(count, 0, 23, 63); // the ages of the index
    const std::optional<double> index = whipple(reading, count);
    Cell cell = index ? report::number(*index, base.keys) : Cell();
    if (base.n < leastBase) cell.standing = report::Standing::Suppressed;
    table.rows.push_back({report::text(name), cell, counted(base)});
}

Cell endogenous(const Reading& reading, const Reading::Part& infants)
{
    if (infants.n < leastInfants) return {};
    const auto days = reading.spread(InfantDeaths, 0);
    std::array<double, 12> cumulated = {};
    for (std::size_t i = 0; i < cumulated.size(); ++i)
        cumulated[i] = static_cast<double>(days.values.below(statistics::endsOfMonths[i]));
    const auto line = statistics::endogenousBySquares(cumulated);
    if (!line) return {};
    Cell cell = report::number(std::max(line->endogenous, 0.0) / cumulated.back() * 100, infants.keys);
    if (line->bent) cell.standing = report::Standing::Grey;
    return cell;
}

Table signs(const Reading& reading)
{
    Table table{"sinais", "Sinais da base", {textColumn("Sinal"), {"Valor", "", 1}, countColumn("De quantos")}};
    const auto people = reading.part(People), unlinked = reading.part(People, {1, any, any, any});
    if (people.n == 0) return table;
    const auto undetermined = reading.part(People, {any, static_cast<qint32>(parish::Gender::Undetermined), any, any});
    const auto infants = reading.part(InfantDeaths);
    const auto month = reading.within(InfantDeaths, 0, 0, fourWeeks);
    table.rows = {{report::text("Pessoas sem família de origem nem família própria (%)"), percent(unlinked, people),
                   counted(people)},
                  {report::text("Pessoas de sexo indeterminado (%)"), percent(undetermined, people), counted(people)},
                  {report::text("Óbitos do primeiro mês entre os de menos de um ano (%)"), percent(month, infants),
                   counted(infants)},
                  {report::text("Mortalidade endógena na dos menores de um ano (%)"), endogenous(reading, infants),
                   counted(infants)}};
    addWhipple(table, reading, AgesAtDeath, "Índice de Whipple das idades declaradas ao óbito");
    addWhipple(table, reading, AgesAtMarriage, "Índice de Whipple das idades declaradas ao casamento");
    table.notes = {
        "Whipple: 100 sem preferência por idades que acabam em 0 ou 5, 500 se todas acabam assim.",
        "Nos registos completos cerca de metade dos óbitos de menos de um ano é do primeiro mês; muito menos "
        "quer dizer que faltam óbitos de recém-nascidos."};
    return table;
}

report::Chart chartOf(const Reading& reading, const std::vector<qint32>& rows)
{
    report::Chart chart{"cobertura", "Cobertura por dez anos", report::Drawing::Lines, "anos", "percentagem"};
    std::vector<Cell> exact, deaths, spouses;
    for (const qint32 row : rows) {
        if (row == any) continue;
        const Decade of = decadeOf(reading, row);
        chart.categories << decadeTold(row);
        exact.push_back(percent(of.exact, of.births));
        deaths.push_back(percent(of.deathsLinked, of.deaths));
        spouses.push_back(percent(of.spousesLinked, of.spouses));
    }
    chart.plots = {plotOf("nascimentos com data exacta", exact), plotOf("óbitos com nascimento", deaths),
                   plotOf("cônjuges com nascimento", spouses)};
    chart.described =
        "Percentagem, em cada dez anos, de nascimentos com data exacta, de óbitos e de cônjuges de que se "
        "conhece o nascimento.";
    return chart;
}

} // namespace

std::vector<report::Figure> figures(const Tally& tally, const Settings&)
{
    const Reading reading(tally);
    std::vector<qint32> rows = decades(reading);
    const report::Chart chart = chartOf(reading, rows);
    if (!rows.empty()) rows.push_back(any);
    return {births(reading, rows), links(reading, rows),          chart, families(reading), familiesByDecade(reading),
            signs(reading),        leftOutTable(reading, reasons)};
}

} // namespace study::indicators::quality_counts
