// Marriages of kin: as notes tell of a dispensation, and as far as the ancestors are linked.
#include "study/indicators/inbreeding.h"
#include "study/indicators/marriages.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"

#include <algorithm>
#include <map>

namespace study::indicators {

namespace {

namespace kindred {

using parish::Family;
using parish::Person;
using report::Figure;

// Of the dimensions: period, then whether notes tell of a dispensation, the degree that the ancestors show, or F of the
// children in inbreedingUnits.
enum Count : quint16
{
    Dispensed,
    Degree,
    Undated,
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    UnknownParents,
    Inbreeding
};

constexpr const char* counts[] = {
    "dispensa",           "grau",           "sem data", "noutra paróquia", "fora do período", "fora dos livros",
    "pais desconhecidos", "consanguinidade"};

constexpr Reason leftOut[] = {
    {Undated, reasons::noMarriage},
    {Elsewhere, reasons::notLocal},
    {OutOfPeriod, reasons::outsidePeriod},
    {OutOfBooks, reasons::outsideBooks},
    {UnknownParents, "só pelos graus e pela consanguinidade: sem pai ou mãe de um dos cônjuges"}};

constexpr qint32 any = Reading::any;
constexpr int farthest = farthestDegree; // the prohibitions went so far

// Each ancestor with the generations up to them, the fewest; the person with none.
using Ancestors = std::map<const Person*, int>;

void gather(const Person* person, int generation, Ancestors& ancestors)
{
    if (!person || generation > farthest) return;
    const auto [place, isNew] = ancestors.try_emplace(person, generation);
    if (!isNew && place->second <= generation) return;
    place->second = generation;
    gather(fatherByBlood(*person), generation + 1, ancestors);
    gather(motherByBlood(*person), generation + 1, ancestors);
}

// By the canon law: the generations of the longer side to the nearest common ancestor; 0 where none is known.
int degreeOf(const Person& one, const Person& other)
{
    Ancestors his, hers;
    gather(&one, 0, his);
    gather(&other, 0, hers);
    int degree = 0;
    for (const auto& [ancestor, generation] : his) {
        const auto shared = hers.find(ancestor);
        if (shared == hers.end()) continue;
        const int longer = std::max({1, generation, shared->second});
        if (degree == 0 || longer < degree) degree = longer;
    }
    return degree;
}

bool hasBothParents(const Person& person)
{
    return fatherByBlood(person) && motherByBlood(person);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    const auto families = study.parish.families();
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const Family& family = families[i];
        if (!isTaken(family, study, Undated, taker)) continue;
        const auto add = [&](Count which, const Reading::At& at) { taker.count({which, at}, {nullptr, &family}); };
        const qint32 period = periodOf(family.marriage.year(), study.settings);
        add(Dispensed, {period, family.kinDispensed ? 1 : 0});
        if (!family.husband || !family.wife || !hasBothParents(*family.husband) || !hasBothParents(*family.wife))
            add(UnknownParents, {});
        else {
            add(Degree, {period, degreeOf(*family.husband, *family.wife)});
            add(Inbreeding, {period, inbreedingOfChildren(*family.husband, *family.wife)});
        }
    }
}

Table dispensations(const Reading& reading, const Settings& settings)
{
    Table table{"dispensas",
                "Dispensas de parentesco ditas nas notas",
                {textColumn("Casados em"), countColumn("Casamentos"), countColumn("Com dispensa"),
                 decimalColumn("Com dispensa, em 100", "%")},
                {},
                {"Um mínimo: só as que se transcreveram nas notas do casamento."}};
    for (const auto& [period, name] : periodsOf(reading, {Dispensed}, settings)) {
        const Reading::Part all = reading.part(Dispensed, {period, any, any, any});
        const Reading::Part with = reading.part(Dispensed, {period, 1, any, any});
        table.rows.push_back({report::text(name), counted(all), counted(with), percent(with, all)});
    }
    return table;
}

Table degrees(const Reading& reading, const Settings& settings)
{
    Table table{"graus",
                "Consanguinidade pelos antepassados ligados",
                {textColumn("Casados em"), countColumn("Casamentos de pais conhecidos")},
                {},
                {"Grau canónico do antepassado comum mais próximo. Um mínimo: os antepassados que faltam na base não "
                 "mostram parentesco."}};
    for (int degree = 1; degree <= farthest; ++degree)
        table.columns.push_back(countColumn(QString("%1.º grau").arg(degree)));
    table.columns.push_back(countColumn("Sem parentesco conhecido"));
    table.columns.push_back(decimalColumn("Até ao 4.º grau, em 100", "%"));
    for (const auto& [period, name] : periodsOf(reading, {Degree}, settings)) {
        const Reading::Part all = reading.part(Degree, {period, any, any, any});
        std::vector<Cell> row = {report::text(name), counted(all)};
        for (int degree = 1; degree <= farthest; ++degree)
            row.push_back(counted(reading.part(Degree, {period, degree, any, any})));
        row.push_back(counted(reading.part(Degree, {period, 0, any, any})));
        row.push_back(percent(reading.within(Degree, 1, 1, farthest + 1, {period, any, any, any}), all));
        table.rows.push_back(row);
    }
    return table;
}

struct Class
{
    const char* name;
    qint32 from, until; // units, until past the end
};
constexpr qint32 whole = inbreedingUnits;
constexpr Class classes[] = {{"1/16 e mais", whole / 16, whole + 1},
                             {"1/64 a menos de 1/16", whole / 64, whole / 16},
                             {"menos de 1/64, acima de 0", 1, whole / 64}};

// The mean F in thousandths, of marriages whose F is in a range.
Cell meanInThousandths(const Reading& reading, qint32 from, qint32 period)
{
    std::map<qint32, qint64> units;
    Reading::Spread spread = reading.spread(Inbreeding, 1, {period, any, any, any});
    for (const auto& [value, n] : spread.values.counts())
        if (value >= from) units[value] = n;
    if (from > 0) spread.keys = reading.within(Inbreeding, 1, from, whole + 1, {period, any, any, any}).keys;
    spread.values = statistics::Distribution(std::move(units));
    static constexpr double thousand = 1000;
    return meanCell(spread, whole / thousand);
}

Table inbreeding(const Reading& reading, const Settings& settings)
{
    Table table{"consanguinidade",
                "Coeficiente de consanguinidade (F) dos filhos, pelos antepassados ligados",
                {textColumn("Casados em"), countColumn("Casamentos de pais conhecidos"),
                 countColumn("Com F acima de 0"), decimalColumn("Com F acima de 0, em 100", "%"),
                 decimalColumn("F médio de todos", "milésimos", 2),
                 decimalColumn("F médio dos que o têm acima de 0", "milésimos", 2)},
                {},
                {"F: a probabilidade de um filho receber do pai e da mãe o mesmo gene de um antepassado. Contam-se os "
                 "caminhos por todos os antepassados comuns, até quatro gerações de cada lado: ½ por cada geração, e "
                 "mais uma.",
                 "Primos direitos, 62,5 milésimos (1/16); segundos primos, 15,6 (1/64). Um mínimo: os antepassados que "
                 "faltam na base não mostram parentesco."}};
    for (const Class& each : classes)
        table.columns.push_back(countColumn(QString("F de ") + each.name));
    for (const auto& [period, name] : periodsOf(reading, {Inbreeding}, settings)) {
        const Reading::At at = {period, any, any, any};
        const Reading::Part couples = reading.part(Inbreeding, at),
                            some = reading.within(Inbreeding, 1, 1, whole + 1, at);
        std::vector<Cell> row = {report::text(name),
                                 counted(couples),
                                 counted(some),
                                 percent(some, couples),
                                 meanInThousandths(reading, 0, period),
                                 meanInThousandths(reading, 1, period)};
        for (const Class& each : classes)
            row.push_back(counted(reading.within(Inbreeding, 1, each.from, each.until, at)));
        table.rows.push_back(row);
    }
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {dispensations(reading, settings), degrees(reading, settings), inbreeding(reading, settings),
            leftOutTable(reading, leftOut)};
}

} // namespace kindred

} // namespace

const Subject kinEndogamy = {
    "endogamia-de-parentesco",
    "Nupcialidade",
    "Casamentos entre parentes",
    "Contam-se os casamentos cujas notas dizem uma dispensa de parentesco e, à parte, os graus de consanguinidade que "
    "os "
    "antepassados ligados mostram, até ao quarto grau canónico, com o coeficiente de consanguinidade dos filhos. Tudo "
    "são mínimos: o que não se transcreveu ou não se ligou não se vê. A afinidade só a dizem as dispensas.",
    kindred::counts,
    kindred::leftOut,
    kindred::fill,
    kindred::figures};

} // namespace study::indicators
