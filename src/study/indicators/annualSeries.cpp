#include "study/indicators/annual.h"
#include "study/indicators/deaths.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"
#include "study/indicators/years.h"
#include "study/statistics/mortality.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace yearByYear {

using At = Reading::At;
constexpr qint32 any = Reading::any;

// Year; how sure the date is (0 exact, 1 about); who is buried, by Buried.
enum Count : quint16
{
    Baptisms,
    Marriages,
    Burials,
    Conceptions, // year of the conception: nine months before; exact dates alone
    Elsewhere,   // the first of the reasons
    OutOfPeriod,
    OutOfBooks
};
constexpr std::array<const char*, 7> names = {"baptismos",         "casamentos",      "obitos",         "concepcoes",
                                              "fora-da-freguesia", "fora-do-periodo", "fora-dos-livros"};
constexpr std::array<Reason, 3> reasons = {{{Elsewhere, "acto de outra freguesia"},
                                            {OutOfPeriod, "acto fora do período do estudo"},
                                            {OutOfBooks, "acto de um ano fora dos livros ou numa lacuna"}}};

constexpr int monthsOfPregnancy = 9;

struct Act
{
    quint16 count;
    parish::Date date;
    parish::Place place;
    Series series;
    qint32 kind = 0;
};

void countAct(const Act& act, const Who& who, const Study& study, Taker& taker)
{
    if (!act.date.isKnown()) return;
    const int year = act.date.middle().year();
    if (!isHere(act.place, study)) return taker.count({Elsewhere}, who);
    if (!study.settings.period.holds(year)) return taker.count({OutOfPeriod}, who);
    if (!study.settings.covers(act.series, year)) return taker.count({OutOfBooks}, who);
    taker.count({act.count, {year, act.date.isExact() ? 0 : 1, act.kind}}, who);
}

void countPerson(const parish::Person& person, const Study& study, Taker& taker)
{
    const Who who{&person, person.origin};
    if (!isWanted(person.gender, study.settings)) return;
    if (isWanted(legitimacyOf(person, study.settings), study.settings)) {
        countAct({Baptisms, person.birth, person.birthPlace, Series::Baptisms}, who, study, taker);
        const int born = person.birth.isExact() ? person.birth.year() : 0;
        if (born != 0 && isHere(person.birthPlace, study) && study.settings.covers(Series::Baptisms, born))
            taker.count({Conceptions, {person.birth.date().addMonths(-monthsOfPregnancy).year()}}, who);
    }
    const Buried as = buriedAs(person);
    countAct({Burials, person.death, person.deathPlace, as == Buried::Child ? Series::ChildBurials : Series::Burials,
              static_cast<qint32>(as)},
             who, study, taker);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        countPerson(person, study, taker);
    for (const parish::Family& family : familiesOf(study, share))
        countAct({Marriages, family.marriage, family.place, Series::Marriages}, {nullptr, &family}, study, taker);
}

// All series of a study, each with a value for each covered year alone.
struct AllSeries
{
    YearSpan years = {};
    std::map<int, double> baptisms = {}, marriages = {}, adults = {}, children = {}, ageless = {}, conceptions = {};
    std::map<int, double> burials = {};                                 // of all; where adults and children are covered
    std::map<int, double> balance = {}, sum = {};                       // natural; the sum begins anew behind a gap
    std::map<int, int> sumFrom = {};                                    // the first year of each sum
    std::map<int, double> baptismsByMarriage = {}, laggedBaptisms = {}; // by a marriage of the year, of five before
};

At buried(Buried who)
{
    return {any, any, static_cast<qint32>(who), any};
}

void balance(AllSeries& all)
{
    double sum = 0;
    int first = all.years.first;
    for (int year = all.years.first; year <= all.years.last; ++year) {
        const auto born = all.baptisms.find(year), dead = all.burials.find(year);
        if (born == all.baptisms.end() || dead == all.burials.end()) {
            sum = 0;
            first = year + 1;
            continue;
        }
        all.balance[year] = born->second - dead->second;
        all.sum[year] = sum += born->second - dead->second;
        all.sumFrom[year] = first;
    }
}

std::map<int, double> byMarriages(const AllSeries& all, int lag)
{
    std::map<int, double> ratios;
    for (const auto& [year, born] : all.baptisms)
        if (const auto found = all.marriages.find(year - lag); found != all.marriages.end() && found->second > 0)
            ratios[year] = born / found->second;
    return ratios;
}

// The births of a year's conceptions come until September of the next one: without its book the year isn't whole.
std::map<int, double> wholeConceptions(const Reading& reading, const YearSpan& years, const Settings& settings)
{
    std::map<int, double> whole = byYear(reading, Conceptions, Series::Baptisms, years, settings);
    int last = years.last; // the period of the study may end before the books
    for (const qint32 year : reading.values(Conceptions, 0))
        last = std::max(last, year);
    std::erase_if(whole, [&](const auto& entry) {
        return entry.first >= last || !settings.covers(Series::Baptisms, entry.first + 1);
    });
    return whole;
}

AllSeries seriesOf(const Reading& reading, const Settings& settings)
{
    static constexpr std::array<quint16, 3> counts = {Baptisms, Marriages, Burials};
    AllSeries all;
    all.years = yearsOf(reading, counts, settings);
    if (all.years.first == 0) return all;
    const auto series = [&](quint16 count, Series of, const At& at = Reading::everywhere) {
        return byYear(reading, count, of, all.years, settings, at);
    };
    all.baptisms = series(Baptisms, Series::Baptisms);
    all.conceptions = wholeConceptions(reading, all.years, settings);
    all.marriages = series(Marriages, Series::Marriages);
    all.adults = series(Burials, Series::Burials, buried(Buried::Adult));
    all.ageless = series(Burials, Series::Burials, buried(Buried::Ageless));
    all.children = series(Burials, Series::ChildBurials, buried(Buried::Child));
    for (const auto& [year, adults] : all.adults)
        if (const auto child = all.children.find(year); child != all.children.end())
            all.burials[year] = adults + child->second + all.ageless.at(year);
    balance(all);
    all.baptismsByMarriage = byMarriages(all, 0);
    all.laggedBaptisms = byMarriages(all, 5);
    return all;
}

// What the acts of these years were counted by, from the first to the last of them.
std::vector<Key> keysOf(const Reading& reading, quint16 count, int first, int last)
{
    return reading.within(count, 0, first, last + 1).keys;
}

// The cells that are worked out of those of a year, each with the keys of all that it was made of.
std::vector<Cell> workedOut(const Reading& reading, const AllSeries& all, int year)
{
    const auto ofBoth = [&](int first) {
        return keysOf(reading, Baptisms, first, year) + keysOf(reading, Burials, first, year);
    };
    const auto byMarriage = [&](int lag) {
        return keysOf(reading, Baptisms, year, year) + keysOf(reading, Marriages, year - lag, year - lag);
    };
    const auto first = all.sumFrom.find(year);
    return {valueCell(all.balance, year, ofBoth(year)),
            valueCell(all.sum, year, ofBoth(first == all.sumFrom.end() ? year : first->second)),
            valueCell(all.baptismsByMarriage, year, byMarriage(0)), valueCell(all.laggedBaptisms, year, byMarriage(5))};
}

Table acts(const Reading& reading, const AllSeries& all)
{
    Table table{"actos-por-ano",
                "Actos por ano",
                {textColumn("Ano"), countColumn("Baptismos"), countColumn("Casamentos"), countColumn("Óbitos"),
                 countColumn("Adultos"), countColumn("Menores de 7"), countColumn("Sem idade"),
                 countColumn("Concepções"), countColumn("Saldo natural"), countColumn("Saldo acumulado"),
                 decimalColumn("Baptismos por casamento", ""),
                 decimalColumn("Baptismos por casamento de 5 anos antes", "")}};
    if (all.years.first == 0) return table;
    for (int year = all.years.first; year <= all.years.last; ++year) {
        table.rows.push_back({report::text(QString::number(year)), yearCell(reading, Baptisms, all.baptisms, year),
                              yearCell(reading, Marriages, all.marriages, year),
                              yearCell(reading, Burials, all.burials, year),
                              yearCell(reading, Burials, all.adults, year, buried(Buried::Adult)),
                              yearCell(reading, Burials, all.children, year, buried(Buried::Child)),
                              yearCell(reading, Burials, all.ageless, year, buried(Buried::Ageless)),
                              yearCell(reading, Conceptions, all.conceptions, year)});
        for (Cell& cell : workedOut(reading, all, year))
            table.rows.back().push_back(std::move(cell));
    }
    table.notes = {"Um ano fora dos livros ou numa lacuna não tem valor; não é zero.",
                   "O saldo acumulado começa de novo depois de uma lacuna.",
                   "As concepções são os nascimentos com data exacta, nove meses antes; um ano a que falta o "
                   "livro do seguinte não tem valor."};
    return table;
}

constexpr int yearsOfBase = 10;

// Of ten years; nothing where one of them is missing, or all are empty.
std::optional<double> meanFrom(const std::map<int, double>& values, int first)
{
    double sum = 0;
    for (int year = first; year < first + yearsOfBase; ++year) {
        const auto found = values.find(year);
        if (found == values.end()) return {};
        sum += found->second;
    }
    return sum > 0 ? std::optional(sum / yearsOfBase) : std::nullopt;
}

// The mean that is 100 of an index: that of the ten years that the study sets, else of the first ones that follow each
// other.
std::optional<double> baseOf(const std::map<int, double>& values, const Settings& settings, int& first)
{
    if (settings.indexBase != 0) return meanFrom(values, first = settings.indexBase);
    int run = 0, last = 0;
    for (const auto& entry : values) {
        const int year = entry.first;
        if (run > 0 && year != last + 1) run = 0;
        last = year;
        if (++run == yearsOfBase) return meanFrom(values, first = year - yearsOfBase + 1);
    }
    return {};
}

// A series of acts with its moving average, and its index where it has a base of ten years.
struct Averaged
{
    QString name = {};
    quint16 count = 0;
    std::map<int, double> values = {}, means = {};
    std::optional<double> base = {};
    int firstOfBase = 0;
};

std::vector<Averaged> averagedOf(const AllSeries& all, const Settings& settings)
{
    std::vector<Averaged> series = {{"Baptismos", Baptisms, all.baptisms},
                                    {"Casamentos", Marriages, all.marriages},
                                    {"Óbitos", Burials, all.burials}};
    for (Averaged& one : series) {
        one.means = statistics::movingAverage(one.values, settings.movingAverage);
        one.base = baseOf(one.values, settings, one.firstOfBase);
    }
    return series;
}

void describe(Table& table, const Averaged& one, const Settings& settings)
{
    const QString years = QString("%1–%2").arg(one.firstOfBase).arg(one.firstOfBase + yearsOfBase - 1);
    const QString of = QString("média móvel de %1 anos").arg(settings.movingAverage);
    table.columns.push_back(decimalColumn(QString("%1, %2").arg(one.name, of), ""));
    table.columns.push_back(decimalColumn(QString("%1, índice").arg(one.name), ""));
    if (one.base)
        table.notes << QString("%1: 100 é a média de %2, que é de %3 por ano.")
                           .arg(one.name, years, decimalComma(*one.base, 1));
    else if (settings.indexBase != 0)
        table.notes << QString("%1: sem índice; aos anos de %2 falta um, ou estão todos vazios.").arg(one.name, years);
}

Cell indexCell(const Reading& reading, const Averaged& one, int year)
{
    const auto found = one.values.find(year);
    if (!one.base || found == one.values.end()) return {};
    return report::number(found->second / *one.base * 100,
                          keysOf(reading, one.count, year, year) +
                              keysOf(reading, one.count, one.firstOfBase, one.firstOfBase + yearsOfBase - 1));
}

Table averages(const Reading& reading, const AllSeries& all, const Settings& settings)
{
    Table table{"medias-moveis", "Médias móveis e índices por ano", {textColumn("Ano")}};
    const std::vector<Averaged> series = averagedOf(all, settings);
    for (const Averaged& one : series)
        describe(table, one, settings);
    const int aside = settings.movingAverage / 2;
    for (int year = all.years.first; year != 0 && year <= all.years.last; ++year) {
        std::vector<Cell> row = {report::text(QString::number(year))};
        for (const Averaged& one : series) {
            row.push_back(valueCell(one.means, year, keysOf(reading, one.count, year - aside, year + aside)));
            row.push_back(indexCell(reading, one, year));
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

Table approximates(const Reading& reading, const AllSeries& all)
{
    Table table{"datas-aproximadas",
                "Actos com data aproximada, por dez anos",
                {textColumn("Anos"), decimalColumn("Baptismos", "%"), decimalColumn("Casamentos", "%"),
                 decimalColumn("Óbitos", "%")}};
    if (all.years.first == 0) return table;
    for (int decade = all.years.first / 10 * 10; decade <= all.years.last; decade += 10) {
        table.rows.push_back({report::text(QString("%1–%2").arg(decade).arg(decade + 9))});
        for (const quint16 count : {Baptisms, Marriages, Burials}) {
            const auto about = reading.within(count, 0, decade, decade + 10, {any, 1, any, any});
            table.rows.back().push_back(percent(about, reading.within(count, 0, decade, decade + 10)));
        }
    }
    return table;
}

report::Chart chartOf(const AllSeries& all, const Settings& settings)
{
    report::Chart chart{"actos-por-ano", "Baptismos, casamentos e óbitos", report::Drawing::Lines, "ano", "actos"};
    const QString of = QString(", média de %1 anos").arg(settings.movingAverage);
    for (const auto& [name, values] :
         {std::pair(QString("baptismos"), &all.baptisms), std::pair(QString("casamentos"), &all.marriages),
          std::pair(QString("óbitos"), &all.burials)})
    {
        chart.plots.push_back(lineOf(name, *values, all.years));
        chart.plots.push_back(lineOf(name + of, statistics::movingAverage(*values, settings.movingAverage), all.years));
    }
    chart.described = "Actos de cada ano e as suas médias móveis; as linhas partem-se onde faltam livros.";
    return chart;
}

report::Chart balanceChart(const AllSeries& all)
{
    return {"saldo-natural",
            "Saldo natural",
            report::Drawing::Lines,
            "ano",
            "baptismos menos óbitos",
            {},
            {lineOf("saldo do ano", all.balance, all.years), lineOf("saldo acumulado", all.sum, all.years)},
            "Baptismos menos óbitos de cada ano, e a sua soma desde o início ou desde a última lacuna."};
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    const AllSeries all = seriesOf(reading, settings);
    return {acts(reading, all), chartOf(all, settings),     averages(reading, all, settings),
            balanceChart(all),  approximates(reading, all), leftOutTable(reading, reasons)};
}

} // namespace yearByYear

} // namespace

const Subject annualSeries = {
    "series-anuais",
    "População",
    "Séries anuais",
    "Contam os baptismos, casamentos e óbitos da freguesia, pelo ano da data, exacta ou aproximada. As médias móveis "
    "são centradas e não têm valor nos primeiros e nos últimos anos, nem onde falta um dos anos. Um ano sem livro é "
    "uma "
    "lacuna e não um zero: indique nos ajustes os anos que os livros cobrem.",
    yearByYear::names,
    yearByYear::reasons,
    yearByYear::fill,
    yearByYear::figures};

} // namespace study::indicators
