// How much older the husband is than the wife, where both marry for the first time.
#include "study/indicators/marriages.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"

#include <cmath>

namespace study::indicators {

namespace {

namespace yearsApart {

using parish::Family;
using report::Chart;
using report::Figure;

// Of the dimensions: period, and the husband's age less the wife's, in hundredths of a year or in whole years.
enum Count : quint16
{
    Hundredths,
    WholeYears, // towards zero
    WifeOlder,  // by however little
    Undated,
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    OneSpouse,
    NotBothFirst,
    UnknownRank,
    NoBirth,
    BeforeBirth
};

constexpr const char* counts[] = {"diferença",       "anos inteiros",      "mulher mais velha", "sem data",
                                  "noutra paróquia", "fora do período",    "fora dos livros",   "um só cônjuge",
                                  "não primeiro",    "ordem desconhecida", "sem nascimento",    "antes do nascimento"};

constexpr Reason leftOut[] = {{Undated, reasons::noMarriage},
                              {Elsewhere, reasons::notLocal},
                              {OutOfPeriod, reasons::outsidePeriod},
                              {OutOfBooks, reasons::outsideBooks},
                              {OneSpouse, "só um cônjuge conhecido, ou sexos por determinar"},
                              {NotBothFirst, "não é o primeiro casamento de ambos"},
                              {UnknownRank, "não se sabe se é o primeiro casamento de ambos"},
                              {NoBirth, "sem nascimento de um dos cônjuges"},
                              {BeforeBirth, "casamento anterior ao nascimento"}};

constexpr double hundredths = 100;
constexpr qint32 any = Reading::any;

void count(const Family& family, const Study& study, Taker& taker)
{
    const auto add = [&](Count which, const Reading::At& at = {}) { taker.count({which, at}, {nullptr, &family}); };
    if (!isTaken(family, study, Undated, taker)) return;
    const Spouse husband = husbandIn(family), wife = wifeIn(family);
    if (!husband.isKnown() || !wife.isKnown()) return add(OneSpouse);
    const Rank his = rankOf(husband, family), hers = rankOf(wife, family);
    if (his == Rank::Later || hers == Rank::Later) return add(NotBothFirst);
    if (his == Rank::Unknown || hers == Rank::Unknown) return add(UnknownRank);
    const parish::Date &hisBirth = husband.person->birth, &herBirth = wife.person->birth;
    if (!hisBirth.isKnown() || !herBirth.isKnown()) return add(NoBirth);
    const QDate day = family.marriage.middle();
    if (hisBirth.middle() > day || herBirth.middle() > day) return add(BeforeBirth);
    const double gap = exactAge(hisBirth, family.marriage) - exactAge(herBirth, family.marriage);
    const qint32 period = periodOf(family.marriage.year(), study.settings);
    add(Hundredths, {period, static_cast<qint32>(std::lround(gap * hundredths))});
    add(WholeYears, {period, static_cast<qint32>(std::trunc(gap))});
    if (gap < 0) add(WifeOlder, {period});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    const auto families = study.parish.families();
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i)
        count(families[i], study, taker);
}

struct Class
{
    const char* name;
    qint32 from, until; // whole years, until past the end
};
constexpr qint32 farAway = 200;
constexpr Class classes[] = {{"Mulher mais velha 5 anos e mais", -farAway, -4},
                             {"Mulher mais velha 1–4 anos", -4, 0},
                             {"Mesma idade (menos de 1 ano)", 0, 1},
                             {"Marido mais velho 1–4 anos", 1, 5},
                             {"Marido mais velho 5–9 anos", 5, 10},
                             {"Marido mais velho 10 anos e mais", 10, farAway}};

// What is told of fewer couples is grey.
Cell greyOfFew(const Reading::Spread& gaps, Cell cell)
{
    static constexpr qint64 least = 20;
    if (gaps.values.n() < least && cell.standing == report::Standing::Sound) cell.standing = report::Standing::Grey;
    return cell;
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    Table table{"diferenca-de-idade",
                "Idade do marido menos idade da mulher",
                {textColumn("Casados em"), countColumn("Nº"), decimalColumn("Média", "anos"),
                 decimalColumn("Mediana", "anos"), decimalColumn("Desvio-padrão", "anos"),
                 decimalColumn("Mulher mais velha", "%")},
                {},
                {"Classes por anos inteiros da diferença entre as idades exactas; “mulher mais velha”, por pouco que "
                 "seja."}};
    for (const Class& each : classes)
        table.columns.push_back(decimalColumn(each.name, "%"));
    for (const auto& [period, name] : periodsOf(reading, {Hundredths}, settings)) {
        const Reading::At at = {period, any, any, any};
        const Reading::Spread gaps = reading.spread(Hundredths, 1, at);
        const Reading::Part all{gaps.values.n(), gaps.keys};
        std::vector<Cell> row = {report::text(name),
                                 counted(all),
                                 greyOfFew(gaps, meanCell(gaps, hundredths)),
                                 greyOfFew(gaps, medianCell(gaps, hundredths)),
                                 greyOfFew(gaps, deviationCell(gaps, hundredths)),
                                 percent(reading.part(WifeOlder, at), all)};
        for (const Class& each : classes)
            row.push_back(percent(reading.within(WholeYears, 1, each.from, each.until, at), all));
        table.rows.push_back(row);
    }
    return table;
}

Chart bars(const Reading& reading)
{
    Chart chart{
        "classes", "Diferença de idade entre marido e mulher", report::Drawing::Bars, "diferença", "casamentos", {}, {},
        {}};
    report::Plot plot;
    QStringList words;
    for (const Class& each : classes) {
        const qint64 n = reading.within(WholeYears, 1, each.from, each.until).n;
        plot.points.push_back({static_cast<double>(chart.categories.size()), static_cast<double>(n), {}});
        chart.categories << each.name;
        words << QString("%1: %2").arg(each.name).arg(n);
    }
    chart.plots = {plot};
    chart.described = words.join("; ") + '.';
    return chart;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    std::vector<Figure> all = {byPeriod(reading, settings)};
    if (reading.sum(WholeYears) > 0) all.emplace_back(bars(reading));
    all.emplace_back(leftOutTable(reading, leftOut));
    return all;
}

} // namespace yearsApart

} // namespace

const Subject ageGap = {
    "diferenca-de-idade",
    "Nupcialidade",
    "Diferença de idade entre os cônjuges",
    "Contam-se os casamentos que são o primeiro de ambos e em que se conhece o nascimento ou baptismo dos dois. A "
    "diferença é a idade exacta do marido menos a da mulher no dia do casamento. Faltam os casais com um cônjuge de "
    "fora, "
    "cujo baptismo está noutros livros.",
    yearsApart::counts,
    yearsApart::leftOut,
    yearsApart::fill,
    yearsApart::figures};

} // namespace study::indicators
