// Who marries whom: single or widowed.
#include "study/indicators/marriages.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"

namespace study::indicators {

namespace {

namespace statuses {

using parish::Family;
using report::Figure;

// Of the dimensions: period, state of the husband, state of the wife.
enum Count : quint16
{
    Couples,
    Undated,
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    OneSpouse,
    UnknownState
};

constexpr const char* counts[] = {"casais",          "sem data",      "noutra paróquia",    "fora do período",
                                  "fora dos livros", "um só cônjuge", "estado desconhecido"};

constexpr Reason leftOut[] = {{Undated, reasons::noMarriage},
                              {Elsewhere, reasons::notLocal},
                              {OutOfPeriod, reasons::outsidePeriod},
                              {OutOfBooks, reasons::outsideBooks},
                              {OneSpouse, "só um cônjuge conhecido, ou sexos por determinar"},
                              {UnknownState, "estado civil anterior desconhecido"}};

constexpr qint32 any = Reading::any;
constexpr auto single = static_cast<qint32>(Before::Single), widowed = static_cast<qint32>(Before::Widowed);

void fill(const Study& study, const Share& share, Taker& taker)
{
    const auto families = study.parish.families();
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const Family& family = families[i];
        if (!isTaken(family, study, Undated, taker)) continue;
        const Spouse husband = husbandIn(family), wife = wifeIn(family);
        const auto add = [&](Count count, const Reading::At& at) { taker.count({count, at}, {nullptr, &family}); };
        if (!husband.isKnown() || !wife.isKnown()) {
            add(OneSpouse, {});
            continue;
        }
        const Before his = stateBefore(husband, family, study), hers = stateBefore(wife, family, study);
        if (his == Before::Unknown || hers == Before::Unknown)
            add(UnknownState, {});
        else
            add(Couples, {periodOf(family.marriage.year(), study.settings), static_cast<qint32>(his),
                          static_cast<qint32>(hers)});
    }
}

struct Combination
{
    const char* name;
    qint32 his, hers;
};
constexpr Combination combinations[] = {{"Solteiro e solteira", single, single},
                                        {"Solteiro e viúva", single, widowed},
                                        {"Viúvo e solteira", widowed, single},
                                        {"Viúvo e viúva", widowed, widowed}};

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    Table table{"estado-combinado", "Estado civil anterior dos cônjuges", {textColumn("Casados em")}, {}, {}};
    table.columns.push_back(countColumn("Casamentos"));
    for (const Combination& both : combinations) {
        table.columns.push_back(countColumn(both.name));
        table.columns.push_back(decimalColumn(QString(both.name) + ", em 100", "%"));
    }
    table.columns.push_back(decimalColumn("Segundas núpcias de um ou de ambos", "%"));
    for (const auto& [period, name] : periodsOf(reading, {Couples}, settings)) {
        const Reading::Part all = reading.part(Couples, {period, any, any, any});
        std::vector<Cell> row = {report::text(name), counted(all)};
        Reading::Part again;
        for (const Combination& both : combinations) {
            const Reading::Part part = reading.part(Couples, {period, both.his, both.hers, any});
            row.push_back(counted(part));
            row.push_back(percent(part, all));
            if (both.his == widowed || both.hers == widowed) again += part;
        }
        row.push_back(percent(again, all));
        table.rows.push_back(row);
    }
    table.notes << "Em 100 casamentos de estado conhecido de ambos.";
    return {table, leftOutTable(reading, leftOut)};
}

} // namespace statuses

} // namespace

const Subject combinedStatus = {
    "estado-combinado",
    "Nupcialidade",
    "Estado civil combinado",
    "Contam-se os casamentos em que se sabe se cada cônjuge era solteiro ou viúvo. O estado é o do assento; à falta "
    "dele, "
    "o número do casamento, ou uma união anterior que já tinha acabado. Um estado por dizer não se toma por solteiro: "
    "fica de fora e conta-se.",
    statuses::counts,
    statuses::leftOut,
    statuses::fill,
    statuses::figures};

} // namespace study::indicators
