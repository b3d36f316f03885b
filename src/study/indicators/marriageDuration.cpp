// How long marriages lasted, who died first, and where the couples lived.
#include "study/indicators/marriages.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"

#include <algorithm>
#include <cmath>

namespace study::indicators {

namespace {

namespace wedlock {

using observation::Union;
using parish::Family;
using report::Chart;
using report::Figure;

// Of the dimensions: period, then hundredths of a year, completed years, who, where.
enum Count : quint16
{
    Length,
    Years,
    FirstDead,
    Home,
    Undated,
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    OneSpouse,
    OpenUnion,
    EndBeforeMarriage
};

constexpr const char* counts[] = {"duração",       "anos completos",  "primeiro a morrer",     "residência",
                                  "sem data",      "noutra paróquia", "fora do período",       "fora dos livros",
                                  "um só cônjuge", "união aberta",    "fim antes do casamento"};

constexpr Reason leftOut[] = {{Undated, reasons::noMarriage},
                              {Elsewhere, reasons::notLocal},
                              {OutOfPeriod, reasons::outsidePeriod},
                              {OutOfBooks, reasons::outsideBooks},
                              {OneSpouse, "só um cônjuge conhecido, ou sexos por determinar"},
                              {OpenUnion, "fim da união desconhecido (fora da duração)"},
                              {EndBeforeMarriage, "fim da união anterior ao casamento"}};

constexpr double hundredths = 100;
constexpr qint32 any = Reading::any;

enum Dead : qint32
{
    Husband,
    Wife,
    SameDay
};
enum Where : qint32
{
    Here,
    Away,
    NotTold
};

Dead firstDead(const Union& union_)
{
    const bool his = union_.family->husband->death == union_.end, hers = union_.family->wife->death == union_.end;
    if (his == hers) return SameDay;
    return his ? Husband : Wife;
}

// The first residence of the couple from the marriage on.
Where homeOf(const Family& family, const parish::Home& home)
{
    for (const parish::Residence& row : family.residences) {
        const bool isBefore = row.date.isKnown() && row.date.middle() < family.marriage.middle();
        if (!isBefore && row.place.isKnown()) return isLocal(row.place, home) ? Here : Away;
    }
    return NotTold;
}

void count(const Union& union_, const Study& study, Taker& taker)
{
    const Family& family = *union_.family;
    const auto add = [&](Count which, const Reading::At& at = {}) { taker.count({which, at}, {nullptr, &family}); };
    if (!isTaken(family, study, Undated, taker)) return;
    const qint32 period = periodOf(family.marriage.year(), study.settings);
    add(Home, {period, homeOf(family, study.parish.home())});
    if (!union_.isUnion()) return add(OneSpouse);
    if (union_.openBy == observation::OpenBy::EndBeforeMarriage) return add(EndBeforeMarriage);
    if (!union_.isClosed()) return add(OpenUnion);
    if (union_.end.middle() < family.marriage.middle()) return add(EndBeforeMarriage);
    const double years = exactAge(family.marriage, union_.end);
    add(Length, {period, static_cast<qint32>(std::lround(years * hundredths))});
    add(Years, {period, static_cast<qint32>(std::floor(years))});
    add(FirstDead, {period, firstDead(union_)});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i)
        count(study.unions[i], study, taker);
}

constexpr qint32 forEver = 200, breadth = 5, lastClass = 30;

QString className(qint32 from)
{
    return from == lastClass ? QString("30 e mais") : QString("%1–%2").arg(from).arg(from + breadth - 1);
}

Reading::Part classOf(const Reading& reading, qint32 from, qint32 period)
{
    return reading.within(Years, 1, from, from == lastClass ? forEver : from + breadth, {period, any, any, any});
}

Table durations(const Reading& reading, const Settings& settings)
{
    Table table{
        "duracao",
        "Duração da união, por coorte de casamento",
        {textColumn("Casados em"), countColumn("Nº"), decimalColumn("Média", "anos"), decimalColumn("Mediana", "anos")},
        {},
        {"Só uniões fechadas, do casamento à primeira morte. As coortes perto do fim dos livros perdem as uniões "
         "longas."}};
    for (qint32 from = 0; from <= lastClass; from += breadth)
        table.columns.push_back(decimalColumn(className(from) + " anos", "%"));
    for (const auto& [period, name] : periodsOf(reading, {Length}, settings)) {
        const Reading::Spread lengths = reading.spread(Length, 1, {period, any, any, any});
        const Reading::Part all{lengths.values.n(), lengths.keys};
        std::vector<Cell> row = {report::text(name), counted(all), meanCell(lengths, hundredths),
                                 medianCell(lengths, hundredths)};
        for (qint32 from = 0; from <= lastClass; from += breadth)
            row.push_back(percent(classOf(reading, from, period), all));
        table.rows.push_back(row);
    }
    return table;
}

Chart bars(const Reading& reading)
{
    Chart chart{"classes-de-duracao", "Duração da união", report::Drawing::Bars, "anos", "uniões", {}, {}, {}};
    report::Plot plot;
    QStringList words;
    for (qint32 from = 0; from <= lastClass; from += breadth) {
        const qint64 n = classOf(reading, from, any).n;
        plot.points.push_back({static_cast<double>(chart.categories.size()), static_cast<double>(n), {}});
        chart.categories << className(from);
        words << QString("%1 anos: %2").arg(className(from)).arg(n);
    }
    chart.plots = {plot};
    chart.described = words.join("; ") + '.';
    return chart;
}

Table deaths(const Reading& reading, const Settings& settings)
{
    Table table{"primeiro-a-morrer",
                "Quem morre primeiro",
                {textColumn("Casados em"), countColumn("Nº"), countColumn("Marido"), countColumn("Mulher"),
                 countColumn("No mesmo dia"), decimalColumn("Marido, em 100", "%")},
                {},
                {}};
    for (const auto& [group, name] : periodsOf(reading, {FirstDead}, settings)) {
        const auto part = [&, period = group](qint32 who) { return reading.part(FirstDead, {period, who, any, any}); };
        table.rows.push_back({report::text(name), counted(part(any)), counted(part(Husband)), counted(part(Wife)),
                              counted(part(SameDay)), percent(part(Husband), part(any))});
    }
    return table;
}

Table homes(const Reading& reading, const Settings& settings)
{
    Table table{"residencia-do-casal",
                "Residência dos casais que casaram na paróquia",
                {textColumn("Casados em"), countColumn("Casamentos"), countColumn("Residência na paróquia"),
                 countColumn("Residência fora"), countColumn("Residência desconhecida"),
                 decimalColumn("Na paróquia, entre as conhecidas", "%")},
                {},
                {"A primeira residência do casal, do casamento em diante."}};
    for (const auto& [group, name] : periodsOf(reading, {Home}, settings)) {
        const auto part = [&, period = group](qint32 where) { return reading.part(Home, {period, where, any, any}); };
        Reading::Part known = part(Here);
        known += part(Away);
        table.rows.push_back({report::text(name), counted(part(any)), counted(part(Here)), counted(part(Away)),
                              counted(part(NotTold)), percent(part(Here), known)});
    }
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    std::vector<Figure> all = {durations(reading, settings)};
    if (reading.sum(Years) > 0) all.emplace_back(bars(reading));
    all.emplace_back(deaths(reading, settings));
    all.emplace_back(homes(reading, settings));
    all.emplace_back(leftOutTable(reading, leftOut));
    return all;
}

} // namespace wedlock

} // namespace

const Subject marriageDuration = {
    "duracao-da-uniao",
    "Nupcialidade",
    "Duração da união e residência",
    "Contam-se as uniões fechadas: do casamento à primeira morte do casal. Diz-se quem morreu primeiro e onde o casal "
    "residia. As uniões de fim desconhecido ficam de fora; são as de quem mais se mudou.",
    wedlock::counts,
    wedlock::leftOut,
    wedlock::fill,
    wedlock::figures};

} // namespace study::indicators
