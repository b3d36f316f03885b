// Where the couples come from.
#include "study/indicators/marriages.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"

namespace study::indicators {

namespace {

namespace homes {

using parish::Family;
using parish::Place;
using report::Figure;

// Of the dimensions: period, origin of the groom, origin of the bride; of Locality whether it is the same one.
enum Count : quint16
{
    Couples,
    Locality,
    Undated,
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    OneSpouse,
    UnknownOrigin
};

constexpr const char* counts[] = {"casais",          "lugares",         "sem data",      "noutra paróquia",
                                  "fora do período", "fora dos livros", "um só cônjuge", "origem desconhecida"};

constexpr Reason leftOut[] = {
    {Undated, reasons::noMarriage},
    {Elsewhere, reasons::notLocal},
    {OutOfPeriod, reasons::outsidePeriod},
    {OutOfBooks, reasons::outsideBooks},
    {OneSpouse, "só um cônjuge conhecido, ou sexos por determinar"},
    {UnknownOrigin, "origem de um dos cônjuges desconhecida (na matriz, mas fora das percentagens)"}};

constexpr qint32 any = Reading::any;
constexpr auto parishItself = static_cast<qint32>(Origin::Parish), unknown = static_cast<qint32>(Origin::Unknown);

enum SameLocality : qint32
{
    Other,
    Same
};

void fill(const Study& study, const Share& share, Taker& taker)
{
    const auto families = study.parish.families();
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const Family& family = families[i];
        if (!isTaken(family, study, Undated, taker)) continue;
        const auto add = [&](Count which, const Reading::At& at) { taker.count({which, at}, {nullptr, &family}); };
        if (!family.husband || !family.wife) {
            add(OneSpouse, {});
            continue;
        }
        const Place his = originPlaceOf(*family.husband), hers = originPlaceOf(*family.wife);
        const Origin groom = originOf(his, study), bride = originOf(hers, study);
        const qint32 period = periodOf(family.marriage.year(), study.settings);
        add(Couples, {period, static_cast<qint32>(groom), static_cast<qint32>(bride)});
        if (groom == Origin::Unknown || bride == Origin::Unknown) add(UnknownOrigin, {});
        if (groom != Origin::Parish || bride != Origin::Parish) continue;
        if (const auto same = parish::inOneLocality(his, hers)) add(Locality, {period, *same ? Same : Other});
    }
}

// Both origins known.
Reading::Part known(const Reading& reading, qint32 period, qint32 groom, qint32 bride)
{
    Reading::Part all;
    for (qint32 his = 0; his < unknown; ++his)
        for (qint32 hers = 0; hers < unknown; ++hers)
            if ((groom == any || groom == his) && (bride == any || bride == hers))
                all += reading.part(Couples, {period, his, hers, any});
    return all;
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    Table table{"endogamia",
                "Endogamia por lugar",
                {textColumn("Casados em"), countColumn("Casamentos"), countColumn("De origens conhecidas"),
                 countColumn("Ambos da paróquia"), decimalColumn("Endogamia", "%"),
                 decimalColumn("Noivos da paróquia", "%"), decimalColumn("Noivas da paróquia", "%"),
                 countColumn("Ambos de lugares conhecidos da paróquia"), decimalColumn("Do mesmo lugar", "%")},
                {},
                {"O casamento celebrava-se por costume na paróquia da noiva: os livros de uma paróquia têm noivas da "
                 "terra a mais.",
                 "Origem: o lugar do nascimento; à falta dele, a residência dos pais."}};
    for (const auto& [period, name] : periodsOf(reading, {Couples}, settings)) {
        const Reading::Part all = known(reading, period, any, any);
        const Reading::Part both = known(reading, period, parishItself, parishItself);
        const Reading::Part inside = reading.part(Locality, {period, any, any, any});
        table.rows.push_back({report::text(name), counted(reading.part(Couples, {period, any, any, any})), counted(all),
                              counted(both), percent(both, all),
                              percent(known(reading, period, parishItself, any), all),
                              percent(known(reading, period, any, parishItself), all), counted(inside),
                              percent(reading.part(Locality, {period, Same, any, any}), inside)});
    }
    return table;
}

Table matrix(const Reading& reading)
{
    Table table{"matriz", "Origem do noivo (linhas) e da noiva (colunas)", {textColumn("Noivo")}, {}, {}};
    if (reading.sum(Couples) == 0) return table;
    for (qint32 bride = 0; bride < origins; ++bride)
        table.columns.push_back(countColumn(told(static_cast<Origin>(bride))));
    table.columns.push_back(countColumn("todas"));
    for (qint32 groom = 0; groom < origins; ++groom) {
        std::vector<Cell> row = {report::text(told(static_cast<Origin>(groom)))};
        for (qint32 bride = 0; bride < origins; ++bride)
            row.push_back(counted(reading.part(Couples, {any, groom, bride, any})));
        row.push_back(counted(reading.part(Couples, {any, groom, any, any})));
        table.rows.push_back(row);
    }
    std::vector<Cell> sums = {report::text("todos")};
    for (qint32 bride = 0; bride < origins; ++bride)
        sums.push_back(counted(reading.part(Couples, {any, any, bride, any})));
    sums.push_back(counted(reading.part(Couples)));
    table.rows.push_back(sums);
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {byPeriod(reading, settings), matrix(reading), leftOutTable(reading, leftOut)};
}

} // namespace homes

} // namespace

const Subject placeEndogamy = {
    "endogamia-por-lugar",
    "Nupcialidade",
    "Endogamia por lugar",
    "Contam-se os casamentos pela origem do noivo e da noiva: o lugar do nascimento ou, à falta dele, onde os pais "
    "residiam. A taxa é a dos casamentos em que ambos são da paróquia, entre os de origens conhecidas. As paróquias "
    "vizinhas são as da lista do estudo.",
    homes::counts,
    homes::leftOut,
    homes::fill,
    homes::figures};

} // namespace study::indicators
