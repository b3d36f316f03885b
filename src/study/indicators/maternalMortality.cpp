#include "study/indicators/confinements.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace mothers {

constexpr qint32 any = Reading::any;

// Period of the confinement; its order in the family, up to 10, 0 where the marriage isn't known; days to the death.
enum Count : quint16
{
    Confinements,
    Deaths,      // of the mother, within 60 days
    NoMother,    // the first of the reasons
    Approximate, // of the confinement
    ApproximateDeath,
    DeadBefore,
    Elsewhere,
    OutOfBooks
};
constexpr std::array<const char*, 8> names = {
    "partos",           "obitos-da-mae",   "sem-mae",           "parto-aproximado",
    "obito-aproximado", "mae-morta-antes", "fora-da-freguesia", "fora-dos-livros"};
constexpr std::array<Reason, 6> reasons = {
    {{NoMother, "parto sem mãe conhecida"},
     {Approximate, "nascimento sem data exacta"},
     {ApproximateDeath, "óbito da mãe sem data exacta, a menos de dois anos do parto"},
     {DeadBefore, "mãe morta antes do parto"},
     {Elsewhere, "nascimento fora da freguesia"},
     {OutOfBooks, "parto fora dos livros de baptismos ou de óbitos"}}};

constexpr int longest = 60, shortest = 42; // days
constexpr int doubtfulDays = 730;
constexpr qint32 lastOrder = 10;
constexpr Base base = {100, 200}; // confinements

void countConfinement(const Confinement& confinement, const parish::Family& family, qint32 order, const Study& study,
                      Taker& taker)
{
    const Settings& settings = study.settings;
    const parish::Person& child = *confinement.children.front();
    const int year = confinement.day.middle().year();
    const Who who{family.wife ? family.wife : &child, &family};
    if (!settings.period.holds(year) || !isWanted(legitimacyOf(child, settings), settings)) return;
    if (!isHere(child.birthPlace, study)) return taker.count({Elsewhere}, who);
    if (!settings.covers(Series::Baptisms, year) || !settings.covers(Series::Burials, year))
        return taker.count({OutOfBooks}, who);
    if (!family.wife) return taker.count({NoMother}, who);
    if (!confinement.day.isExact()) return taker.count({Approximate}, who);
    const parish::Date& death = family.wife->death;
    const qint32 period = periodOf(year, settings);
    if (death.isKnown()) {
        const int days = parish::daysBetween(confinement.day, death);
        if (!death.isExact() && days > -doubtfulDays && days < doubtfulDays)
            return taker.count({ApproximateDeath}, who);
        if (days < 0) return taker.count({DeadBefore}, who);
        if (days <= longest) taker.count({Deaths, {period, order, days}}, who);
    }
    taker.count({Confinements, {period, order}}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Family& family : familiesOf(study, share)) {
        qint32 order = 0;
        for (const Confinement& confinement : confinementsOf(family)) {
            order = family.marriage.isKnown() ? std::min(order + 1, lastOrder) : 0;
            countConfinement(confinement, family, order, study, taker);
        }
    }
}

std::vector<Cell> rowOf(const Reading& reading, const QString& name, qint32 period, qint32 order)
{
    const Reading::At at = {period, order, any, any};
    const auto confinements = reading.part(Confinements, at), deaths = reading.part(Deaths, at);
    const auto early = reading.within(Deaths, 2, 0, shortest + 1, at);
    return {report::text(name), counted(confinements),
            counted(deaths),    quotient(deaths.n, confinements.n, base, deaths.keys + confinements.keys),
            counted(early),     quotient(early.n, confinements.n, base, early.keys + confinements.keys)};
}

std::vector<Column> columns(const QString& first)
{
    return {textColumn(first),
            countColumn("Partos"),
            countColumn("Óbitos até 60 dias"),
            decimalColumn("Por mil partos", "‰"),
            countColumn("Óbitos até 42 dias"),
            decimalColumn("Por mil partos (42 dias)", "‰")};
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    Table table{"por-periodo", "Óbitos de mães depois do parto, por período", columns("Partos de")};
    for (const qint32 period : reading.values(Confinements, 0))
        table.rows.push_back(rowOf(reading, periodName(period, settings), period, any));
    if (!table.rows.empty()) table.rows.push_back(rowOf(reading, "Todo o período", any, any));
    table.notes = {"Em bruto: as mães morrem também de outras causas, e faltam as que morreram sem que a criança fosse "
                   "baptizada."};
    return table;
}

Table byOrder(const Reading& reading)
{
    Table table{"por-ordem", "Óbitos de mães depois do parto, por ordem do parto", columns("Ordem")};
    for (const qint32 order : reading.values(Confinements, 1)) {
        const QString name = order == 0           ? QString("casamento desconhecido")
                             : order == lastOrder ? QString("%1.º e seguintes").arg(order)
                                                  : QString("%1.º").arg(order);
        table.rows.push_back(rowOf(reading, name, any, order));
    }
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {byPeriod(reading, settings), byOrder(reading), leftOutTable(reading, reasons)};
}

} // namespace mothers

} // namespace

const Subject maternalMortality = {
    "mortalidade-materna",
    "Mortalidade",
    "Mortalidade materna",
    "Contam os partos de mães conhecidas, com data exacta; os gémeos são um parto. A mãe que morre até 60 dias depois, "
    "ou até 42, conta como óbito; quem não tem óbito conhecido conta como viva. O valor é em bruto: não desconta as "
    "mortes por outras causas nem junta as que morreram com a criança por baptizar.",
    mothers::names,
    mothers::reasons,
    mothers::fill,
    mothers::figures};

} // namespace study::indicators
