#include "study/indicators/deaths.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"
#include "study/indicators/years.h"
#include "study/statistics/mortality.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace worstYears {

using At = Reading::At;
constexpr qint32 any = Reading::any;

// Year; who is buried, by Buried, where it is a burial.
enum Count : quint16
{
    Burials,
    HarvestBurials, // year from 1 August on, that it begins in
    Baptisms,
    Marriages,
    Conceptions, // nine months before the birth
    Elsewhere,   // the first of the reasons
    OutOfBooks,
    NoHarvest
};
constexpr std::array<const char*, 8> names = {"obitos",     "obitos-ano-agricola", "baptismos",       "casamentos",
                                              "concepcoes", "fora-da-freguesia",   "fora-dos-livros", "so-o-ano"};
constexpr std::array<Reason, 3> reasons = {
    {{Elsewhere, "óbito fora da freguesia"},
     {OutOfBooks, "óbito de um ano fora dos livros ou numa lacuna"},
     {NoHarvest, "óbito de que só se sabe o ano: conta no ano civil, não no agrícola"}}};

constexpr int firstMonthOfHarvest = 8;
constexpr int monthsOfPregnancy = 9;
constexpr int yearsOfBase = 10, yearsAside = 5;
constexpr double leastMean = 10;                   // deaths a year: with fewer, chance alone makes crises
constexpr double smallRatio = 1.5, greatRatio = 4; // of L. Del Panta and M. Livi Bacci, 1977

void countBurial(const parish::Person& person, const Study& study, Taker& taker)
{
    const parish::Date& death = person.death;
    if (!death.isKnown() || !isWanted(person.gender, study.settings)) return;
    const Who who{&person, nullptr};
    if (!isHere(person.deathPlace, study)) return taker.count({Elsewhere}, who);
    const Buried buried = buriedAs(person);
    const int year = death.middle().year();
    const Series series = buried == Buried::Child ? Series::ChildBurials : Series::Burials;
    if (!study.settings.covers(series, year)) return taker.count({OutOfBooks}, who);
    taker.count({Burials, {year, static_cast<qint32>(buried)}}, who);
    if (death.precision == parish::Precision::Year) return taker.count({NoHarvest}, who);
    const int harvest = death.date().month() >= firstMonthOfHarvest ? year : year - 1;
    taker.count({HarvestBurials, {harvest, static_cast<qint32>(buried)}}, who);
}

void countBirth(const parish::Person& person, const Study& study, Taker& taker)
{
    if (!person.birth.isKnown() || !isHere(person.birthPlace, study)) return;
    const int year = person.birth.middle().year();
    if (!study.settings.covers(Series::Baptisms, year)) return;
    taker.count({Baptisms, {year}}, {&person, person.origin});
    if (person.birth.isExact())
        taker.count({Conceptions, {person.birth.date().addMonths(-monthsOfPregnancy).year()}},
                    {&person, person.origin});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share)) {
        countBurial(person, study, taker);
        countBirth(person, study, taker);
    }
    for (const parish::Family& family : familiesOf(study, share)) {
        if (!family.marriage.isKnown() || !isHere(family.place, study)) continue;
        const int year = family.marriage.middle().year();
        if (study.settings.covers(Series::Marriages, year)) taker.count({Marriages, {year}}, {nullptr, &family});
    }
}

// A series of deaths: which ones, and in which years.
struct Deaths
{
    const char* id;
    const char* title;
    quint16 count;
    qint32 who; // by Buried, or any
};

bool isAgriculturalYearWhole(int year, Series series, const Settings& settings)
{
    return settings.covers(series, year) && settings.covers(series, year + 1);
}

std::map<int, double> deathsOf(const Reading& reading, const Deaths& of, const Settings& settings)
{
    static constexpr std::array<quint16, 1> burials = {Burials};
    const YearSpan years = yearsOf(reading, burials, settings);
    std::map<int, double> deaths;
    for (int year = years.first; year != 0 && year <= years.last; ++year) {
        bool whole = true;
        for (const Series series : {Series::Burials, Series::ChildBurials}) {
            const bool needed = of.who == any || (series == Series::Burials) == (of.who != qint32(Buried::Child));
            const bool has = of.count == HarvestBurials
                                 ? year < years.last && isAgriculturalYearWhole(year, series, settings)
                                 : settings.covers(series, year);
            whole = whole && (has || !needed);
        }
        if (whole) deaths[year] = 0;
    }
    const Reading::Spread spread = reading.spread(of.count, 0, {any, of.who, any, any});
    for (const auto& [year, n] : spread.values.counts())
        if (const auto found = deaths.find(year); found != deaths.end()) found->second = static_cast<double>(n);
    return deaths;
}

const char* magnitudeTold(int magnitude)
{
    static constexpr std::array<const char*, 7> magnitudes = {"–",         "1, menor",  "2, média",     "3, forte",
                                                              "4, grande", "5, enorme", "6, catástrofe"};
    return magnitudes[static_cast<std::size_t>(magnitude)];
}

const char* ratioTold(double ratio)
{
    if (ratio >= greatRatio) return "grande";
    return ratio >= smallRatio ? "pequena" : "–";
}

Cell greyedBy(Cell cell, double mean)
{
    if (mean < leastMean && cell.standing == report::Standing::Sound) cell.standing = report::Standing::Grey;
    return cell;
}

std::vector<Column> indexColumns()
{
    return {textColumn("Ano"),
            countColumn("Óbitos"),
            decimalColumn("Média dos 10 anos antes", ""),
            decimalColumn("Índice (desvio por n)", "", 2),
            decimalColumn("Índice (desvio por n − 1)", "", 2),
            textColumn("Magnitude"),
            decimalColumn("Razão aos 10 vizinhos", "", 2),
            textColumn("Crise pela razão")};
}

// Both indices of all years of one series.
struct Indices
{
    std::map<int, double> deaths = {};
    std::map<int, statistics::Crisis> byN = {}, byNLessOne = {};
    std::map<int, double> ratios = {};

    bool isCrisis(int year) const
    {
        const auto found = byN.find(year);
        const auto ratio = ratios.find(year);
        return (found != byN.end() && found->second.magnitude > 0) ||
               (ratio != ratios.end() && ratio->second >= smallRatio);
    }
};

Indices indicesOf(const Reading& reading, const Deaths& of, const Settings& settings)
{
    using statistics::Spread;
    Indices indices{deathsOf(reading, of, settings)};
    indices.byN = statistics::crises(indices.deaths, Spread::ByN, settings.skipCrises);
    indices.byNLessOne = statistics::crises(indices.deaths, Spread::ByNLessOne, settings.skipCrises);
    indices.ratios = statistics::neighbourRatios(indices.deaths);
    return indices;
}

// The years that the index of this one is measured by.
std::vector<int> yearsBefore(const Indices& indices, int year, const Settings& settings)
{
    std::vector<int> years;
    for (int before = year - yearsOfBase; before < year; ++before) {
        const auto found = indices.deaths.find(before);
        const auto crisis = indices.byN.find(before);
        const bool skipped = settings.skipCrises && crisis != indices.byN.end() && crisis->second.magnitude > 0;
        if (found != indices.deaths.end() && !skipped) years.push_back(before);
    }
    return years;
}

// 0 where there are none.
double meanBefore(const Indices& indices, int year, const Settings& settings)
{
    const std::vector<int> years = yearsBefore(indices, year, settings);
    double sum = 0;
    for (const int before : years)
        sum += indices.deaths.at(before);
    return years.empty() ? 0 : sum / static_cast<double>(years.size());
}

std::vector<Key> keysOf(const Reading& reading, const Deaths& of, const std::vector<int>& years)
{
    std::vector<Key> keys;
    for (const int year : years)
        keys = std::move(keys) + reading.part(of.count, {year, of.who, any, any}).keys;
    return keys;
}

std::vector<int> neighboursOf(int year)
{
    std::vector<int> years;
    for (int other = year - yearsAside; other <= year + yearsAside; ++other)
        if (other != year) years.push_back(other);
    return years;
}

Cell indexCell(const std::map<int, statistics::Crisis>& indices, int year, double mean, const std::vector<Key>& from)
{
    const auto found = indices.find(year);
    return found == indices.end() ? Cell() : greyedBy(report::number(found->second.index, from), mean);
}

std::vector<Cell> rowOf(const Reading& reading, const Deaths& of, const Indices& indices, int year,
                        const Settings& settings)
{
    const Reading::Part dead = reading.part(of.count, {year, of.who, any, any});
    const auto index = indices.byN.find(year);
    const auto ratio = indices.ratios.find(year);
    const bool hasIndex = index != indices.byN.end(), hasRatio = ratio != indices.ratios.end();
    const double mean = meanBefore(indices, year, settings);
    const std::vector<Key> before = keysOf(reading, of, yearsBefore(indices, year, settings));
    const double neighbours = hasRatio && ratio->second > 0 ? static_cast<double>(dead.n) / ratio->second : leastMean;
    return {report::text(of.count == HarvestBurials ? QString("%1/%2").arg(year).arg(year + 1) : QString::number(year)),
            counted(dead),
            hasIndex ? report::number(mean, before) : Cell(),
            indexCell(indices.byN, year, mean, dead.keys + before),
            indexCell(indices.byNLessOne, year, mean, dead.keys + before),
            hasIndex ? report::text(magnitudeTold(index->second.magnitude)) : Cell(),
            hasRatio ? greyedBy(report::number(ratio->second, dead.keys + keysOf(reading, of, neighboursOf(year))),
                                neighbours)
                     : Cell(),
            hasRatio ? report::text(ratioTold(ratio->second)) : Cell()};
}

Table indexTable(const Reading& reading, const Deaths& of, const Settings& settings)
{
    const Indices indices = indicesOf(reading, of, settings);
    Table table{of.id, of.title, indexColumns()};
    for (const auto& entry : indices.deaths)
        if (settings.period.holds(entry.first))
            table.rows.push_back(rowOf(reading, of, indices, entry.first, settings));
    table.notes = {"Índice: óbitos do ano menos a média dos dez anos anteriores, em desvios-padrão desses anos. "
                   "Os primeiros dez anos, e os que têm uma lacuna entre os dez anteriores, não têm índice.",
                   "Razão: óbitos do ano pela média dos cinco anos antes e cinco depois, sem os dois maiores e os dois "
                   "menores; a partir de 1,5 é uma crise pequena, a partir de 4 uma grande.",
                   "A cinzento: média inferior a dez óbitos por ano, em que o acaso faz crises."};
    if (settings.skipCrises)
        table.notes << "Os anos que são crises ficam fora da base dos índices seguintes, e da média dela.";
    return table;
}

Table crisisYears(const Reading& reading, const Settings& settings)
{
    static constexpr Deaths all = {"", "", Burials, any};
    const Indices indices = indicesOf(reading, all, settings);
    Table table{"anos-de-crise",
                "Anos de crise, com os casamentos e os baptismos",
                {textColumn("Ano"), textColumn("Magnitude"), countColumn("Óbitos"), countColumn("Adultos"),
                 countColumn("Menores de 7"), countColumn("Casamentos"), countColumn("Concepções"),
                 countColumn("Baptismos"), countColumn("Casamentos do ano seguinte"),
                 countColumn("Baptismos do ano seguinte")}};
    for (const auto& entry : indices.deaths) {
        const int year = entry.first;
        if (!indices.isCrisis(year) || !settings.period.holds(year)) continue;
        const auto index = indices.byN.find(year);
        const auto of = [&](quint16 count, int when, qint32 who = any) {
            return counted(reading.part(count, {when, who, any, any}));
        };
        // A year without a book is a gap, and no zero.
        const auto inBook = [&](Series series, quint16 count, int when) {
            return settings.covers(series, when) ? of(count, when) : Cell();
        };
        table.rows.push_back(
            {report::text(QString::number(year)),
             index == indices.byN.end()
                 ? Cell()
                 : greyedBy(report::text(magnitudeTold(index->second.magnitude)), meanBefore(indices, year, settings)),
             of(Burials, year), of(Burials, year, qint32(Buried::Adult)), of(Burials, year, qint32(Buried::Child)),
             inBook(Series::Marriages, Marriages, year), inBook(Series::Baptisms, Conceptions, year),
             inBook(Series::Baptisms, Baptisms, year), inBook(Series::Marriages, Marriages, year + 1),
             inBook(Series::Baptisms, Baptisms, year + 1)});
    }
    table.notes = {
        "Anos de magnitude 1 ou mais, ou com uma razão aos vizinhos de 1,5 ou mais. A cinzento: média inferior a dez "
        "óbitos por ano, em que o acaso faz crises."};
    return table;
}

report::Chart chartOf(const Reading& reading, const Settings& settings)
{
    static constexpr Deaths all = {"", "", Burials, any};
    const std::map<int, double> deaths = deathsOf(reading, all, settings);
    report::Chart chart{"obitos-e-crises", "Óbitos por ano e índice de crise", report::Drawing::Lines, "ano",
                        "óbitos; desvios-padrão"};
    chart.described = "Óbitos de cada ano e o seu índice de crise; acima de 1 há crise.";
    if (deaths.empty()) return chart;
    std::map<int, double> indices;
    for (const auto& [year, crisis] : statistics::crises(deaths, statistics::Spread::ByN, settings.skipCrises))
        indices[year] = crisis.index;
    YearSpan years = {deaths.begin()->first, deaths.rbegin()->first};
    if (settings.period.first != 0) years.first = std::max(years.first, settings.period.first);
    if (settings.period.last != 0) years.last = std::min(years.last, settings.period.last);
    if (years.last < years.first) return chart;
    chart.plots = {lineOf("óbitos", deaths, years), lineOf("índice", indices, years)};
    return chart;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    static constexpr Deaths all = {"indices", "Índices de crise por ano civil", Burials, any};
    static constexpr Deaths adults = {"indices-adultos", "Índices de crise: adultos", Burials, qint32(Buried::Adult)};
    static constexpr Deaths children = {"indices-menores", "Índices de crise: menores de 7 anos", Burials,
                                        qint32(Buried::Child)};
    static constexpr Deaths harvest = {"indices-ano-agricola", "Índices de crise por ano agrícola (Agosto a Julho)",
                                       HarvestBurials, any};
    const Reading reading(tally);
    return {crisisYears(reading, settings),          chartOf(reading, settings),
            indexTable(reading, all, settings),      indexTable(reading, adults, settings),
            indexTable(reading, children, settings), indexTable(reading, harvest, settings),
            leftOutTable(reading, reasons)};
}

} // namespace worstYears

} // namespace

const Subject mortalityCrises = {
    "crises-de-mortalidade",
    "Mortalidade",
    "Crises de mortalidade",
    "Contam os óbitos da freguesia por ano, todos, de adultos e de menores de sete anos. Cada ano é comparado com os "
    "dez anteriores, em desvios-padrão, e com os cinco de cada lado. Com menos de dez óbitos por ano o acaso basta "
    "para "
    "fazer crises, e os livros de óbitos de menores começam muitas vezes mais tarde.",
    worstYears::names,
    worstYears::reasons,
    worstYears::fill,
    worstYears::figures};

} // namespace study::indicators
