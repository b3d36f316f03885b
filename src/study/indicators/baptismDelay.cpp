#include "study/indicators/annual.h"
#include "study/indicators/baptismDays.h"
#include "study/indicators/quotients.h"
#include "study/indicators/reasons.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace christenings {

using At = Reading::At;
using By = BaptismTold::By;
constexpr qint32 any = Reading::any;

// Period of the baptism, gender, how it is told (By), days from the birth to the baptism.
enum Count : quint16
{
    Delays,
    Untold, // the first of the reasons
    Unread,
    Approximate,
    Reversed,
    Elsewhere,
    OutOfBooks
};
constexpr std::array<const char*, 7> names = {"demoras",         "sem-indicacao",  "notas-por-ler",
                                              "data-aproximada", "baptismo-antes", "fora-da-freguesia",
                                              "fora-dos-livros"};
constexpr std::array<Reason, 6> leftOut = {
    {{Untold, "sem os dois dias: nem a lista nem as notas os dizem"},
     {Unread, "notas com as palavras indicadas, mas sem um dia que se leia depois delas"},
     {Approximate, "notas com um dia, e data da ficha aproximada"},
     {Reversed, "baptismo anterior ao nascimento"},
     {Elsewhere, reasons::notLocal},
     {OutOfBooks, reasons::outsideBooks}}};

constexpr std::array<int, 5> limits = {1, 3, 8, 15, 30}; // days; the constitutions of the dioceses asked for eight

std::optional<Count> whyNot(const BaptismTold& both)
{
    switch (both.by) {
    case By::Nothing:
        return Untold;
    case By::Unread:
        return Unread;
    case By::Approximate:
        return Approximate;
    case By::List:
    case By::Notes:
        break;
    }
    return both.days.birth > both.days.baptism ? std::optional(Reversed) : std::nullopt;
}

void countChild(const parish::Person& child, const BaptismReader& reader, const Study& study, Taker& taker)
{
    const Settings& settings = study.settings;
    if (!isWanted(child.gender, settings) || !isWanted(legitimacyOf(child, settings), settings)) return;
    const BaptismTold both = reader.read(child, study.parish.notesOf(child.number));
    if (!both.isTold() && !child.birth.isKnown()) return;
    const int year = both.isTold() ? both.days.baptism.year() : child.birth.middle().year();
    if (!settings.period.holds(year)) return;
    const Who who{&child, child.origin};
    if (!isHere(child.birthPlace, study)) return taker.count({Elsewhere}, who);
    if (!settings.covers(Series::Baptisms, year)) return taker.count({OutOfBooks}, who);
    if (const auto reason = whyNot(both)) return taker.count({*reason}, who);
    const int days =
        parish::daysBetween(parish::dateOf(both.days.birth, true), parish::dateOf(both.days.baptism, true));
    taker.count({Delays, {periodOf(year, settings), numbered(child.gender), static_cast<qint32>(both.by), days}}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    const BaptismReader reader(study.settings);
    for (const parish::Person& child : peopleOf(study, share))
        countChild(child, reader, study, taker);
}

std::vector<Column> columns(const QString& first)
{
    std::vector<Column> all = {textColumn(first), countColumn("Baptismos"), decimalColumn("1.º quartil", "dias"),
                               decimalColumn("Mediana", "dias"), decimalColumn("3.º quartil", "dias")};
    for (const int limit : limits)
        all.push_back(decimalColumn(limit == 1 ? QString("Até 1 dia") : QString("Até %1 dias").arg(limit), "%"));
    return all;
}

std::vector<Cell> rowOf(const Reading& reading, const QString& name, const At& at)
{
    const Reading::Spread delays = reading.spread(Delays, 3, at);
    const Reading::Part all = reading.part(Delays, at);
    std::vector<Cell> row = {report::text(name), counted(all), quantileCell(delays, 0.25, 1), medianCell(delays, 1),
                             quantileCell(delays, 0.75, 1)};
    for (const int limit : limits)
        row.push_back(percent(reading.within(Delays, 3, 0, limit + 1, at), all));
    return row;
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    Table table{"demora", "Dias entre o nascimento e o baptismo, por período e sexo", columns("Baptizados em")};
    for (const Group& group : groupsOf(reading, {Delays}))
        table.rows.push_back(rowOf(reading, told(group, settings), {group.period, group.gender, any, any}));
    table.notes = {"Quartis entre os valores vizinhos, em linha recta. No próprio dia: 0 dias."};
    return table;
}

Table bySource(const Reading& reading, const Settings& settings)
{
    Table table{"demora-por-fonte", "De onde vêm os dois dias", columns("Fonte")};
    for (const qint32 by : reading.values(Delays, 2))
        table.rows.push_back(
            rowOf(reading, by == static_cast<qint32>(By::List) ? "lista" : "notas da ficha", {any, any, by, any}));
    if (!settings.birthWords.isEmpty())
        table.notes << QString("Nas notas, o dia do nascimento vem depois de \"%1\"; a data da ficha é a do baptismo.")
                           .arg(settings.birthWords);
    if (!settings.baptismWords.isEmpty())
        table.notes << QString("Nas notas, o dia do baptismo vem depois de \"%1\"; a data da ficha é a do nascimento.")
                           .arg(settings.baptismWords);
    return table;
}

report::Chart chartOf(const Reading& reading)
{
    report::Chart chart{"demora", "Baptizados até cada dia", report::Drawing::Steps, "dias depois do nascimento",
                        "baptizados (%)"};
    const Reading::Part all = reading.part(Delays);
    chart.described = "De cem crianças, quantas estavam baptizadas em cada dia depois do nascimento.";
    static constexpr qint64 leastBase = 20;
    if (all.n < leastBase) return chart;
    report::Plot plot;
    for (int day = 0; day <= limits.back(); ++day)
        plot.points.push_back(
            {static_cast<double>(day),
             100.0 * static_cast<double>(reading.within(Delays, 3, 0, day + 1).n) / static_cast<double>(all.n)});
    chart.plots = {plot};
    return chart;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {byPeriod(reading, settings), chartOf(reading), bySource(reading, settings), leftOutTable(reading, leftOut)};
}

} // namespace christenings

} // namespace

const Subject baptismDelay = {
    "demora-do-baptismo",
    "Sociedade",
    "Demora do baptismo",
    "A ficha tem um só dia, do nascimento ou do baptismo: contam as crianças de que uma lista à parte, ou as notas da "
    "ficha depois de certas palavras, dizem também o outro. Indique nos ajustes as palavras ou a lista, e veja antes o "
    "que se lê. Quem morreu antes do baptismo não está aqui: quanto maior a demora, mais recém-nascidos faltam nos "
    "livros.",
    christenings::names,
    christenings::leftOut,
    christenings::fill,
    christenings::figures};

} // namespace study::indicators
