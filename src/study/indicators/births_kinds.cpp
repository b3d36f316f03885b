// Births of twins, and of boys and girls.
#include "study/indicators/births.h"
#include "study/indicators/confinements.h"
#include "study/indicators/natality.h"

#include <algorithm>

namespace study::indicators {

using natality::Named;
using natality::Row;
using parish::Family;
using parish::Gender;
using parish::Person;

namespace {

namespace pairs {

// Confinements: children, period. Those of two by their sexes: Sexes, period. Children too near: 0, period.
constexpr quint16 confinements = 0, bySex = 1, tooNear = 2, apart = 3, approximate = 4, firstReason = 5;
constexpr std::array<const char*, 5> ownNames{"partos", "gemeos-por-sexo", "nascimentos-proximos", "sem-familia",
                                              "sem-data-exacta"};
constexpr auto counts = natality::joined(ownNames, natality::noBirthNames);
constexpr std::array<const char*, 2> ownTold{"nascimentos sem família de origem", "nascimentos sem data exacta"};
constexpr auto whyNot = natality::reasonsFrom(apart, natality::joined(ownTold, natality::noBirthTold));
constexpr int nearestSiblings = 200; // days: from 4 on, nearer ones contradict themselves

enum class Sexes : qint32
{
    Boys,
    Girls,
    Unlike,
    Untold
};

Sexes sexesOf(const Confinement& twins)
{
    const Gender one = twins.children[0]->gender, other = twins.children[1]->gender;
    if (one == Gender::Undetermined || other == Gender::Undetermined) return Sexes::Untold;
    if (one != other) return Sexes::Unlike;
    return one == Gender::Male ? Sexes::Boys : Sexes::Girls;
}

// A pair is of both sexes, whichever of them is asked for.
bool isBirthOf(const Person& child, const Study& study)
{
    const natality::NoBirth lack = natality::lackOfBirth(child, study);
    return lack == natality::NoBirth::None || lack == natality::NoBirth::Sex;
}

// A confinement is that of its first child, and counts where that one does.
void countFamily(const Family& family, const Study& study, Taker& taker)
{
    const Confinement* last = nullptr;
    const std::vector<Confinement> all = confinementsOf(family);
    for (const Confinement& one : all) {
        const Person& child = *one.children.front();
        if (!one.day.isExact() || !isBirthOf(child, study)) continue;
        const Who who{&child, &family};
        const qint32 period = periodOf(one.day.year(), study.settings);
        taker.count({confinements, {static_cast<qint32>(one.children.size()), period}}, who);
        if (one.children.size() == 2) taker.count({bySex, {static_cast<qint32>(sexesOf(one)), period}}, who);
        if (last && parish::daysBetween(last->day, one.day) <= nearestSiblings)
            taker.count({tooNear, {0, period}}, who);
        last = &one;
    }
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i)
        countFamily(study.parish.families()[i], study, taker);
    natality::eachBirth(study, share, firstReason, true, taker, [&](const Person& child) {
        if (!child.origin)
            taker.count({apart, {}}, {&child, nullptr});
        else if (!child.birth.isExact())
            taker.count({approximate, {}}, {&child, child.origin});
    });
}

Reading::Part ofTwins(const Reading& reading, qint32 period)
{
    Reading::Part part;
    for (const qint32 children : reading.values(confinements, 0))
        if (children > 1) part += reading.part(confinements, {children, period, Reading::any, Reading::any});
    return part;
}

Row rateRow(const Reading& reading, const QString& name, qint32 period)
{
    const Reading::Part all = reading.part(confinements, {Reading::any, period, Reading::any, Reading::any});
    const Reading::Part some = ofTwins(reading, period);
    return {report::text(name), counted(all), counted(some), report::share(some.n, all.n, 1000, some.keys),
            counted(reading.part(tooNear, {Reading::any, period, Reading::any, Reading::any}))};
}

Table rateTable(const Reading& reading, const Settings& settings)
{
    Table table{"gemeos",
                "Partos de gémeos",
                {textColumn("Período"), countColumn("Partos"), countColumn("Partos de gémeos"),
                 decimalColumn("Partos de gémeos", "‰"), countColumn("Nascimentos 4 a 200 dias depois de outro")},
                {},
                {"São de ordinário 8 a 16 por mil. Muito abaixo de 8, faltam baptismos, ou um dos gémeos não foi "
                 "baptizado.",
                 "Dois filhos a 4 até 200 dias um do outro são um erro de data ou de filiação."}};
    table.rows.push_back(rateRow(reading, "Todos", Reading::any));
    for (const qint32 period : reading.values(confinements, 1))
        table.rows.push_back(rateRow(reading, periodName(period, settings), period));
    return table;
}

Table sexTable(const Reading& reading)
{
    const auto at = [&](Sexes sexes) {
        return reading.part(bySex, {static_cast<qint32>(sexes), Reading::any, Reading::any, Reading::any});
    };
    const Reading::Part boys = at(Sexes::Boys), girls = at(Sexes::Girls), unlike = at(Sexes::Unlike);
    Reading::Part same = boys, known = unlike;
    same += girls;
    known += same;
    Table table{"sexo-dos-gemeos",
                "Pares de gémeos, pelo sexo",
                {textColumn("Pares"), countColumn("Número"), decimalColumn("Parte dos pares de sexo conhecido", "%")},
                {},
                {}};
    const auto add = [&](const char* name, const Reading::Part& part, const Cell& share) {
        table.rows.push_back({report::text(QString::fromUtf8(name)), counted(part), share});
    };
    add("Dois rapazes", boys, percent(boys, known));
    add("Duas raparigas", girls, percent(girls, known));
    add("Do mesmo sexo", same, percent(same, known));
    add("De sexo diferente", unlike, percent(unlike, known));
    add("De sexo por determinar", at(Sexes::Untold), {});
    // W. Weinberg: as many pairs of two eggs are of one sex as of two.
    const qint64 ofTwoEggs = std::min(2 * unlike.n, known.n);
    table.rows.push_back({report::text("Dizigóticos (Weinberg)"), report::number(ofTwoEggs, unlike.keys),
                          report::share(ofTwoEggs, known.n, 100, known.keys)});
    table.rows.push_back({report::text("Monozigóticos (Weinberg)"), report::number(known.n - ofTwoEggs, known.keys),
                          report::share(known.n - ofTwoEggs, known.n, 100, known.keys)});
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(twins.title);
    return {rateTable(reading, settings), sexTable(reading), leftOutTable(reading, whyNot)};
}

} // namespace pairs

namespace sex {

// Births: gender, period, legitimacy.
constexpr quint16 births = 0, firstReason = 1;
constexpr std::array<const char*, 1> ownNames{"nascimentos"};
constexpr auto counts = natality::joined(ownNames, natality::noBirthNames);
constexpr auto whyNot = natality::reasonsFrom(firstReason, natality::noBirthTold);

void fill(const Study& study, const Share& share, Taker& taker)
{
    natality::eachBirth(study, share, firstReason, true, taker, [&](const Person& child) {
        taker.count({births,
                     {static_cast<qint32>(child.gender), periodOf(child.birth.year(), study.settings),
                      static_cast<qint32>(legitimacyOf(child, study.settings))}},
                    {&child, child.origin});
    });
}

Cell ratioCell(const Reading::Part& boys, const Reading::Part& girls)
{
    static constexpr qint64 least = 20;
    const qint64 all = boys.n + girls.n;
    if (girls.n == 0) return {};
    std::vector<Key> keys = boys.keys;
    keys.insert(keys.end(), girls.keys.begin(), girls.keys.end());
    Cell cell = report::number(100 * static_cast<double>(boys.n) / static_cast<double>(girls.n), keys);
    if (all < least) {
        cell.standing = report::Standing::Suppressed;
        return cell;
    }
    const statistics::Interval share =
        statistics::wilsonInterval(static_cast<double>(boys.n), static_cast<double>(all));
    if (share.high < 1)
        cell.interval = statistics::Interval{100 * share.low / (1 - share.low), 100 * share.high / (1 - share.high)};
    return cell;
}

Row rowOf(const Reading& reading, const QString& name, Reading::At at)
{
    const auto of = [&](Gender gender) {
        at[0] = static_cast<qint32>(gender);
        return reading.part(births, at);
    };
    const Reading::Part boys = of(Gender::Male), girls = of(Gender::Female), untold = of(Gender::Undetermined);
    return {report::text(name), counted(boys), counted(girls), counted(untold), ratioCell(boys, girls)};
}

Reading::At atLegitimacy(Legitimacy legitimacy)
{
    return {Reading::any, Reading::any, static_cast<qint32>(legitimacy), Reading::any};
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(sexRatio.title);
    Table table{"relacao-de-masculinidade",
                "Relação de masculinidade ao nascimento",
                {textColumn("Nascimentos"), countColumn("Rapazes"), countColumn("Raparigas"),
                 countColumn("Sexo por determinar"), decimalColumn("Rapazes por 100 raparigas", "")},
                {},
                {"Esperam-se 104 a 107. Com menos de uns 4000 nascimentos só se vêem defeitos grandes: com 800, o "
                 "intervalo de 95 % é de cerca de 15 pontos para cada lado."}};
    table.rows.push_back(rowOf(reading, "Todos", Reading::everywhere));
    table.rows.push_back(rowOf(reading, "Legítimos", atLegitimacy(Legitimacy::Legitimate)));
    table.rows.push_back(rowOf(reading, "Ilegítimos", atLegitimacy(Legitimacy::Illegitimate)));
    table.rows.push_back(rowOf(reading, "Expostos", atLegitimacy(Legitimacy::Foundling)));
    for (const Named& period : natality::periodsOf(reading, births, 1, settings))
        table.rows.push_back(rowOf(reading, period.name, period.at));
    return {table, leftOutTable(reading, whyNot)};
}

} // namespace sex

} // namespace

const Subject twins = {
    .id = "gemeos",
    .group = "Nascimentos",
    .title = "Partos de gémeos",
    .method =
        "São gémeos os filhos da mesma família nascidos com 3 dias de diferença, quando muito, em datas exactas. A "
        "taxa é a dos partos de gémeos por mil partos nascidos na paróquia. Pela regra de Weinberg, os pares de dois "
        "óvulos são o dobro dos de sexo diferente.",
    .counts = pairs::counts,
    .reasons = pairs::whyNot,
    .fill = pairs::fill,
    .figures = pairs::figures,
};

const Subject sexRatio = {
    .id = "relacao-de-masculinidade",
    .group = "Nascimentos",
    .title = "Relação de masculinidade ao nascimento",
    .method =
        "Rapazes por 100 raparigas entre os nascidos na paróquia com data de nascimento, exacta ou não. Os de sexo "
        "por determinar ficam à parte. O intervalo de 95 % é o de Wilson, da parte dos rapazes.",
    .counts = sex::counts,
    .reasons = sex::whyNot,
    .fill = sex::fill,
    .figures = sex::figures,
};

} // namespace study::indicators
