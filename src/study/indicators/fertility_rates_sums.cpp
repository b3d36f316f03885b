// Sums of the rates of marital fertility, and the model of natural fertility.
#include "study/indicators/fertility_rates.h"

#include <algorithm>
#include <cmath>

namespace study::indicators::rates {

namespace {

constexpr double normalOf95 = 1.959963984540054; // quantile of 97.5 %
constexpr int leastForModel = 100;               // births: under them M and m are suppressed
constexpr double poorFit = 0.01;                 // mean squared error of the regression

// A row of the sums: what it is of, and which part of the tally.
struct Line
{
    QString name = {};
    Chosen chosen = {};
    Reading::At at = Reading::everywhere;
};

std::vector<Line> linesOf(const Reading& reading, const Settings& settings)
{
    const Chosen all = chosenBy(settings);
    Chosen exact = all, first = all, later = all, registered = all;
    exact.knowns = {Known::Exactly};
    first.orders = {Order::First};
    later.orders = {Order::Later};
    registered.knowns = {Known::Exactly, Known::About};
    std::vector<Line> lines{{"Todas as famílias contadas", all},
                            {"Nascimento exacto da mulher", exact},
                            {"Primeiros casamentos da mulher", first},
                            {"Outros casamentos da mulher", later}};
    if (settings.derivedBirths) lines.push_back({"Nascimento da mulher no registo", registered});
    for (const qint32 period : periodsOf(reading, all))
        lines.push_back({periodName(period, settings), all, {Reading::any, Reading::any, period, Reading::any}});
    return lines;
}

using Ages = std::array<Base, 7>;

// Groups from 20–24 (1) or 25–29 (2) on, as many as asked for.
std::vector<statistics::Borne> bornesOf(const Ages& ages, std::size_t first, std::size_t last)
{
    std::vector<statistics::Borne> bornes;
    for (std::size_t i = first; i < last; ++i)
        bornes.push_back(ages[i].borne());
    return bornes;
}

Base sumOf(const Ages& ages, std::size_t first)
{
    Base sum;
    for (std::size_t i = first; i < ages.size(); ++i) {
        sum.births += ages[i].births;
        sum.halfDays += ages[i].halfDays;
    }
    return sum;
}

report::Standing standingOf(const Ages& ages, const Base& sum)
{
    if (sum.births.n < 5 || sum.years() < 20) return report::Standing::Suppressed;
    for (std::size_t i = 1; i < ages.size(); ++i)
        if (ages[i].years() < 20) return report::Standing::Grey;
    return report::Standing::Sound;
}

Cell totalCell(const Ages& ages, std::size_t first, const Settings& settings)
{
    const std::optional<statistics::Estimate> total =
        statistics::totalMaritalFertility(bornesOf(ages, first, ages.size()));
    if (!total) return {};
    const Base sum = sumOf(ages, first);
    const double factor = inflationOf(settings), error = normalOf95 * total->error * factor;
    Cell cell = report::number(total->value * factor, sum.keys());
    cell.standing = standingOf(ages, sum);
    if (cell.standing != report::Standing::Suppressed)
        cell.interval =
            statistics::Interval{std::max(0.0, total->value * factor - error), total->value * factor + error};
    return cell;
}

Cell errorCell(const Ages& ages, const Settings& settings)
{
    const std::optional<statistics::Estimate> total = statistics::totalMaritalFertility(bornesOf(ages, 1, ages.size()));
    if (!total) return {};
    const Base sum = sumOf(ages, 1);
    Cell cell = report::number(total->error * inflationOf(settings), sum.keys());
    cell.standing = standingOf(ages, sum);
    return cell;
}

Cell indexCell(const Ages& ages, const Settings& settings)
{
    std::array<statistics::Borne, 7> groups;
    for (std::size_t i = 0; i < ages.size(); ++i)
        groups[i] = ages[i].borne();
    const std::optional<double> index = statistics::coaleIndex(groups);
    if (!index) return {};
    const Base sum = sumOf(ages, 0);
    Cell cell = report::number(*index * inflationOf(settings), sum.keys());
    if (sum.births.n < 5 || sum.years() < 20) cell.standing = report::Standing::Suppressed;
    return cell;
}

} // namespace

Table sumsTable(const Reading& reading, const Settings& settings)
{
    Table table{"somas",
                "Descendência teórica e índice I_g′",
                {textColumn("Famílias"), countColumn("Número de famílias"), countColumn("Nascimentos"),
                 decimalColumn("Anos vividos por mulheres casadas", "anos", 2),
                 decimalColumn("Descendência teórica 20–49", "filhos", 3), decimalColumn("Erro-padrão", "filhos", 3),
                 decimalColumn("Descendência teórica 25–49", "filhos", 3), decimalColumn("I_g′", "", 3)},
                {},
                {}};
    for (const Line& line : linesOf(reading, settings)) {
        const Ages ages = byAge(reading, line.chosen, line.at);
        const Base all = baseOf(reading, line.chosen, line.at);
        if (all.halfDays.n == 0) continue;
        const bool cohorts = settings.byMarriageCohort || line.at == Reading::everywhere;
        table.rows.push_back({report::text(line.name), cohorts ? counted(all.families) : Cell(), counted(all.births),
                              report::number(all.years(), all.halfDays.keys), totalCell(ages, 1, settings),
                              errorCell(ages, settings), totalCell(ages, 2, settings), indexCell(ages, settings)});
    }
    table.notes << "Descendência teórica: filhos de uma mulher casada aos 20 anos exactos que viva casada até aos 50; "
                   "cinco vezes a soma das taxas dos seis grupos de 20–24 a 45–49. O grupo 15–19 não entra."
                << "I_g′: sobre famílias em observação; não é o índice I_g de um recenseamento.";
    return table;
}

namespace {

std::vector<double> ratesOf(const Ages& ages, std::size_t first, std::size_t last)
{
    std::vector<double> rates;
    for (std::size_t i = first; i < last; ++i)
        if (const double years = ages[i].years(); years > 0)
            rates.push_back(static_cast<double>(ages[i].births.n) / years);
    return rates.size() == last - first ? rates : std::vector<double>();
}

Cell modelCell(double value, double error, bool ofLevel, const Base& sum)
{
    Cell cell = report::number(value, sum.keys());
    if (sum.births.n < leastForModel) {
        cell.standing = report::Standing::Suppressed;
        return cell;
    }
    if (error > 0 && ofLevel)
        cell.interval = statistics::Interval{value * std::exp(-error), value * std::exp(error)};
    else if (error > 0)
        cell.interval = statistics::Interval{value - error, value + error};
    return cell;
}

Row modelRow(const QString& of, const QString& way, const std::optional<statistics::CoaleTrussell>& model,
             const Base& sum, const Settings& settings)
{
    Row row{report::text(of), report::text(way), counted(sum.births), {}, {}, {}, {}, {}};
    if (!model) return row;
    const auto given = [&](const std::optional<double>& value) {
        return value ? modelCell(*value, 0, false, sum) : Cell();
    };
    row[3] = modelCell(model->level * inflationOf(settings), normalOf95 * model->levelLogError.value_or(0), true, sum);
    row[4] = given(model->levelLogError);
    row[5] = modelCell(model->control, normalOf95 * model->controlError.value_or(0), false, sum);
    row[6] = given(model->controlError);
    row[7] = given(model->squaredError);
    return row;
}

// A regression that leaves so much over is no model of these rates: M and m are grey. Returns whether it is one.
bool markPoor(Row& row)
{
    const double* const error = std::get_if<double>(&row[7].value);
    if (!error || *error <= poorFit || row[3].standing == report::Standing::Suppressed) return false;
    for (Cell* cell : {&row[3], &row[5]})
        cell->standing = report::Standing::Grey;
    return true;
}

} // namespace

Table controlTable(const Reading& reading, const Settings& settings)
{
    Table table{"m-e-m",
                "Modelo de fecundidade natural: M e m",
                {textColumn("Famílias"), textColumn("Estimador"), countColumn("Nascimentos"), decimalColumn("M", "", 3),
                 decimalColumn("Erro-padrão de ln M", "", 3), decimalColumn("m", "", 3),
                 decimalColumn("Erro-padrão de m", "", 3), decimalColumn("Erro quadrático médio", "", 4)},
                {},
                {}};
    QStringList poor;
    for (const Line& line : linesOf(reading, settings)) {
        const Ages ages = byAge(reading, line.chosen, line.at);
        const Base sum = sumOf(ages, 1);
        if (sum.halfDays.n == 0) continue;
        const std::vector<double> five = ratesOf(ages, 1, 6);
        table.rows.push_back(modelRow(line.name, "máxima verosimilhança de Poisson, 20–49",
                                      statistics::coaleTrussellByPoisson(bornesOf(ages, 1, ages.size())), sum,
                                      settings));
        if (five.empty()) continue;
        table.rows.push_back(
            modelRow(line.name, "mínimos quadrados, 20–44", statistics::coaleTrussellBySquares(five), sum, settings));
        if (markPoor(table.rows.back())) poor << line.name;
        table.rows.push_back(modelRow(line.name, "M de 20–24 e média de m, 25–44",
                                      statistics::coaleTrussellByMeans(five), sum, settings));
    }
    table.notes << "r(a) = M·n(a)·exp(m·v(a)), com as tabelas n e v de 1978; pedem-se 100 nascimentos."
                << "Um m abaixo de 0,2 não mostra limitação dos nascimentos. Erro quadrático médio, de ln r de 20–24 a "
                   "40–44: nos mínimos quadrados, 0 perfeito, 0,005 medíocre, 0,01 péssimo.";
    if (!poor.isEmpty())
        table.notes << "O modelo não descreve estas taxas (erro quadrático médio acima de 0,01), e M e m não se podem "
                       "ler: " +
                           poor.join("; ") + '.';
    return table;
}

} // namespace study::indicators::rates
