// A report with invented figures, every kind of them.
#pragma once

#include "study/report/report.h"

#include <QTimeZone>

#include <cmath>

namespace sample {

using namespace study::report;
using study::statistics::Interval;

inline Cell of(double value, Standing standing = Standing::Sound, std::optional<Interval> interval = {})
{
    return {.value = value, .standing = standing, .interval = interval};
}

inline Table agesTable()
{
    return {.id = "idades",
            .title = "Idade média ao primeiro casamento",
            .columns = {{.title = "Coorte", .isText = true},
                        {.title = "n"},
                        {.title = "Média", .unit = "anos", .decimals = 1},
                        {.title = "Menos de 20", .unit = "%", .decimals = 1}},
            .rows = {{text("1700–1749"), of(1234), of(24.31, Standing::Sound, Interval{23.86, 24.76}), of(12.5)},
                     {text("1750–1799"), of(8), of(25.04, Standing::Grey, Interval{21, 29.08}), {}},
                     {text("1800–1849"), of(3), of(27.5, Standing::Suppressed, Interval{1, 99}),
                      of(0, Standing::Suppressed)}},
            .notes = {"Uma nota com <sinais> & \"aspas\"."}};
}

inline Table leftOutTable()
{
    return {.id = "nao-contados",
            .title = "Não contados",
            .columns = {{.title = "Razão", .isText = true}, {.title = "n"}},
            .rows = {{text("sem nascimento da mulher"), of(31)}, {text("datas aproximadas, \"talvez\""), of(12)}}};
}

// A table too broad for a telephone, and for paper at the usual size.
inline Table seasonsTable()
{
    Table table{
        .id = "meses", .title = "Índice de casamentos por mês", .columns = {{.title = "Período", .isText = true}}};
    for (const char* month :
         {"Jan.", "Fev.", "Mar.", "Abr.", "Mai.", "Jun.", "Jul.", "Ago.", "Set.", "Out.", "Nov.", "Dez."})
        table.columns.push_back({.title = month, .decimals = 1});
    for (int decade = 1700; decade < 2000; decade += 5) {
        std::vector<Cell> row{text(QString("%1–%2").arg(decade).arg(decade + 4))};
        for (int month = 0; month < 12; ++month)
            row.push_back(of(100 + 60 * std::sin(month + decade)));
        table.rows.push_back(row);
    }
    return table;
}

inline Chart linesChart()
{
    Chart chart{.id = "linhas",
                .title = "Idade média ao casamento",
                .drawing = Drawing::Lines,
                .xTitle = "ano do casamento",
                .yTitle = "idade (anos)",
                .plots = {{"Homens", {}}, {"Mulheres", {}}},
                .described = "A idade dos homens está acima da das mulheres em toda a série."};
    for (int i = 0; i < 12; ++i) {
        chart.plots[0].points.push_back({1700.0 + 10 * i, 26.5 + 0.5 * (i % 3), Interval{25.0 + i % 3, 28.5}});
        chart.plots[1].points.push_back({1700.0 + 10 * i, i == 5 ? std::optional<double>() : 23.5 + 0.4 * (i % 4)});
    }
    return chart;
}

inline Chart pyramidChart()
{
    Chart chart{.id = "piramide",
                .title = "Pirâmide de idades",
                .drawing = Drawing::Pyramid,
                .xTitle = "idade (anos)",
                .yTitle = "pessoas",
                .plots = {{"Homens", {}}, {"Mulheres", {}}},
                .described = "A base é larga."};
    for (int i = 0; i < 16; ++i) {
        chart.categories << QString("%1–%2").arg(5 * i).arg(5 * i + 4);
        chart.plots[0].points.push_back({double(i), 120.0 - 7 * i});
        chart.plots[1].points.push_back({double(i), 118.0 - 6 * i});
    }
    return chart;
}

inline Chart barsChart()
{
    Chart chart{.id = "barras",
                .title = "Casamentos por mês",
                .drawing = Drawing::Bars,
                .yTitle = "índice (100 = média)",
                .categories = {"Jan.", "Fev.", "Mar.", "Abr.", "Mai.", "Jun."},
                .plots = {{"1700–1749", {}}, {"1750–1799", {}}, {"1800–1849", {}}}};
    for (int plot = 0; plot < 3; ++plot)
        for (int i = 0; i < 6; ++i)
            chart.plots[std::size_t(plot)].points.push_back(
                {double(i), 80.0 + 20 * ((i + plot) % 4), Interval{70, 150}});
    return chart;
}

inline Chart survivalChart()
{
    Chart chart{.id = "sobrevivencia",
                .title = "Sobreviventes até aos 5 anos",
                .drawing = Drawing::Steps,
                .xTitle = "idade (anos)",
                .yTitle = "sobreviventes (‰)",
                .plots = {{"", {}}}};
    for (int i = 0; i <= 10; ++i)
        chart.plots[0].points.push_back({0.5 * i, 1000.0 - 40 * i, Interval{980.0 - 45 * i, 1000.0 - 35 * i}});
    return chart;
}

inline Chart ratesChart()
{
    Chart chart{.id = "taxas",
                .title = "Taxas de fecundidade legítima",
                .drawing = Drawing::Points,
                .xTitle = "idade (anos)",
                .yTitle = "taxa (‰)",
                .categories = {"15–19", "20–24", "25–29", "30–34", "35–39", "40–44", "45–49"},
                .plots = {{"1700–1749", {}}, {"1750–1799", {}}}};
    for (int plot = 0; plot < 2; ++plot)
        for (int i = 0; i < 7; ++i) {
            const double rate = 420.0 - 60 * i - 20 * plot;
            chart.plots[std::size_t(plot)].points.push_back({double(i), rate, Interval{rate * 0.8, rate * 1.2}});
        }
    return chart;
}

inline Report report()
{
    const QDateTime read(QDate(2026, 11, 22), QTime(9, 30), QTimeZone::utc());
    return {.title = "Estudo demográfico",
            .parish = "São Mamede <de Moinhos>",
            .parishCode = "030899",
            .program = "ORV 1.0.6",
            .made = read.addSecs(90),
            .sources = {{.path = "/home/ana/moinhos & vale.orv",
                         .bytes = 12345678,
                         .sha256 = QString(64, 'a'),
                         .readAt = read}},
            .settings = {{"Período", "1700–1850"}, {"Dimensão das coortes", "50 anos"}},
            .chapters = {{"Nupcialidade",
                          {{"idade-ao-casamento",
                            "Idade ao primeiro casamento",
                            "Contam os primeiros casamentos com nascimento conhecido. A idade é a exacta.",
                            {agesTable(), linesChart(), leftOutTable()}},
                           {"meses-do-casamento", "Sazonalidade", "Índice de 100.", {barsChart(), seasonsTable()}}}},
                         {"Fecundidade e mortalidade",
                          {{"fecundidade", "Fecundidade por idade", "", {ratesChart()}},
                           {"sobrevivencia", "Sobrevivência", "", {survivalChart(), pyramidChart()}},
                           {"vazio", "Sem dados", "", {Table{.id = "vazio", .title = "Nada"}, Chart{.id = "nada"}}}}}}};
}

} // namespace sample
