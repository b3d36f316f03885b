#include "study/indicators/adultMortality_p.h"
#include "study/indicators/childhood.h"
#include "study/indicators/exposure.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators::adult_counts {

namespace {

using At = Reading::At;
constexpr qint32 any = Reading::any;

constexpr std::array<const char*, 4> estimateIds = {"fechadas", "minima", "maxima", "censurada"};
constexpr std::array<const char*, 4> estimateTold = {"uniões fechadas", "mínima", "máxima",
                                                     "até à última prova de vida"};

constexpr const char* noBoundTold =
    "A mínima só é um limite para quem algum acto diz morto: morreu, o mais tardar, nesse dia. Para quem nenhum acto "
    "diz morto não há limite: sai à última prova de vida, e tanto pode ter morrido logo depois como ter vivido mais "
    "anos, que não contam.";

constexpr double leastYears = 20;  // of a cell
constexpr qint64 leastDeaths = 10; // of a table
constexpr Base base = {20, 50};

// The rates of one estimate, and the life table that they make. Groups at the end without deaths or years are one with
// those before them.
struct Part
{
    int first = firstAge;
    std::vector<statistics::Exposed> groups = {};
    std::vector<statistics::LifeRow> rows = {};
    qint64 deaths = 0;
    double years = 0;
};

void closeTable(std::vector<statistics::Exposed>& groups)
{
    while (groups.size() > 1 && (groups.back().deaths == 0 || !(groups.back().years > 0))) {
        const statistics::Exposed last = groups.back();
        groups.pop_back();
        groups.back().years += last.years;
        groups.back().deaths += last.deaths;
    }
}

// Whose rates: those of a cohort and gender by an estimate, from the marriage on or from an exact age.
struct Whose
{
    qint32 cohort = any, gender = any, place = 0;
    int first = firstAge;
    quint16 years = Years, deaths = Deaths;

    At at(qint32 age = any) const { return {cohort, gender, place, age}; }
};

Whose fromMarriage(qint32 cohort, qint32 gender, Estimate estimate)
{
    return {cohort, gender, static_cast<qint32>(estimate)};
}

Whose fromAge(qint32 gender, Estimate estimate, std::size_t start)
{
    return {any, gender, startPlace(estimate, start), starts[start], YearsFrom, DeathsFrom};
}

Part partOf(const Reading& reading, const Whose& whose)
{
    Part part{whose.first};
    for (int age = whose.first; age <= lastAge; age += groupYears) {
        part.groups.push_back(
            {yearsOf(reading.sum(whose.years, whose.at(age))), reading.sum(whose.deaths, whose.at(age))});
        part.years += part.groups.back().years;
        part.deaths += part.groups.back().deaths;
    }
    while (!part.groups.empty() && !(part.groups.front().years > 0)) {
        part.groups.erase(part.groups.begin());
        part.first += groupYears;
    }
    closeTable(part.groups);
    part.rows = statistics::lifeTable(part.first, part.groups);
    return part;
}

Cell standing(Cell cell, bool enough)
{
    if (!enough) {
        cell.standing = report::Standing::Suppressed;
        cell.interval.reset();
    }
    return cell;
}

// By thousand, what so few years stand behind bears no decimals.
Cell byThousand(double share, double years, std::vector<Key> from)
{
    static constexpr double leastForADecimal = 100;
    Cell cell = report::number(share * 1000, std::move(from));
    if (years < leastForADecimal) cell.decimals = 0;
    return cell;
}

// At risk in the group that has the fewest, of those from one age on, before another.
double fewestYears(const Part& part, int from, int until)
{
    double fewest = part.years;
    int age = part.first;
    for (const statistics::Exposed& group : part.groups) {
        if (age >= from && age < until) fewest = std::min(fewest, group.years);
        age += groupYears;
    }
    return fewest;
}

// Who is at risk, and who dies, from one age on, before another.
std::vector<Key> keysOf(const Reading& reading, const Whose& whose, qint32 from, qint32 until = endOfAges)
{
    return reading.within(whose.years, 3, from, until, whose.at()).keys +
           reading.within(whose.deaths, 3, from, until, whose.at()).keys;
}

QString groupTold(const Part& part, std::size_t group)
{
    const int age = part.first + static_cast<int>(group) * groupYears;
    return group + 1 == part.groups.size() ? QString("%1 e mais").arg(age)
                                           : QString("%1–%2").arg(age).arg(age + groupYears - 1);
}

Table lifeTableOf(const Reading& reading, const Whose& whose, const QString& id, const QString& title)
{
    Table table{id,
                title,
                {textColumn("Idade"), decimalColumn("Anos em risco", "anos"), countColumn("Óbitos"),
                 decimalColumn("5qx", "‰"), decimalColumn("Sobreviventes", "‰"), decimalColumn("Esperança", "anos")}};
    const Part part = partOf(reading, whose);
    const bool sound = part.deaths >= leastDeaths;
    for (std::size_t i = 0; i < part.rows.size(); ++i) {
        const auto& row = part.rows[i];
        const bool open = i + 1 == part.rows.size();
        const auto keys = [&](quint16 count) {
            return open ? reading.within(count, 3, row.age, endOfAges, whose.at()).keys
                        : std::vector<Key>{{count, whose.at(row.age)}};
        };
        const std::vector<Key> deaths = keys(whose.deaths), years = keys(whose.years);
        const bool enough = sound && part.groups[i].years >= leastYears;
        const int lived = std::max(row.age, part.first + groupYears); // who is left tells of the groups before
        table.rows.push_back({report::text(groupTold(part, i)), report::number(part.groups[i].years, years),
                              report::number(part.groups[i].deaths, deaths),
                              standing(byThousand(row.quotient, part.groups[i].years, deaths), enough),
                              standing(byThousand(row.survivors, fewestYears(part, part.first, lived),
                                                  keysOf(reading, whose, part.first, lived)),
                                       sound),
                              standing(report::number(row.expectation, keysOf(reading, whose, row.age)), sound)});
    }
    if (whose.place == static_cast<qint32>(Estimate::Least)) table.notes << noBoundTold;
    if (part.rows.empty() && part.years > 0) table.notes << "Sem óbitos ou sem anos que bastem para uma tábua.";
    return table;
}

std::optional<double> expectationAt(const Part& part, int age)
{
    for (const auto& row : part.rows)
        if (row.age == age) return row.expectation;
    return {};
}

std::optional<double> diedUntil(const Part& part, int from, int until)
{
    std::optional<double> alive, left;
    for (const auto& row : part.rows) {
        if (row.age == from) alive = row.survivors;
        if (row.age == until) left = row.survivors;
    }
    if (!alive || !left || !(*alive > 0)) return {};
    return 1 - *left / *alive;
}

void addSummary(Table& table, const Reading& reading, const Group& group, const Settings& settings)
{
    for (const Estimate estimate : estimates) {
        const auto place = static_cast<qint32>(estimate);
        const Part part = partOf(reading, fromMarriage(group.period, group.gender, estimate));
        const bool sound = part.deaths >= leastDeaths;
        const std::vector<Key> deaths = {{Deaths, {group.period, group.gender, place, any}}};
        const auto cell = [&](std::optional<double> value) {
            return value ? standing(report::number(*value, deaths), sound) : Cell();
        };
        const auto died = diedUntil(part, 20, 50);
        table.rows.push_back({report::text(told(group, settings)),
                              report::text(estimateTold[static_cast<std::size_t>(place)]),
                              counted(reading.part(Lives, {group.period, group.gender, place, any})),
                              report::number(part.years, {{Years, {group.period, group.gender, place, any}}}),
                              report::number(part.deaths, deaths), cell(expectationAt(part, 20)),
                              cell(expectationAt(part, 30)), cell(expectationAt(part, 50)),
                              died ? standing(byThousand(*died, fewestYears(part, 20, 50), deaths), sound) : Cell()});
    }
}

Table summary(const Reading& reading, const Settings& settings)
{
    Table table{"resumo",
                "Esperança de vida dos casados, por quatro estimativas",
                {textColumn("Casamentos"), textColumn("Estimativa"), countColumn("Pessoas"),
                 decimalColumn("Anos em risco", "anos"), countColumn("Óbitos"), decimalColumn("e20", "anos"),
                 decimalColumn("e30", "anos"), decimalColumn("e50", "anos"), decimalColumn("30q20", "‰")}};
    for (const Group& group : groupsOf(reading, {Lives}))
        if (group.gender != any && reading.sum(Lives, {group.period, group.gender, any, any}) > 0)
            addSummary(table, reading, group, settings);
    table.notes = {
        "Uniões fechadas: até ao fim da união, de que se conhece o primeiro óbito. Mínima: quem não tem óbito morre "
        "quando um acto o diz morto pela primeira vez, e sai à última prova de vida se nenhum o diz. Máxima: morre à "
        "última prova de vida. A última: sai à última prova de vida.",
        noBoundTold, "5qx = 5m/(1 + 2,5m), com m óbitos por ano em risco."};
    return table;
}

// By the estimate and the exact age at which the group is taken together.
Table fromExactAges(const Reading& reading)
{
    Table table{"desde-idade-exacta",
                "Dos que já estão casados numa idade exacta, desde essa idade",
                {textColumn("Desde"), textColumn("Estimativa"), countColumn("Pessoas"),
                 decimalColumn("Anos em risco", "anos"), countColumn("Óbitos"), decimalColumn("5qx", "‰"),
                 decimalColumn("Esperança", "anos")}};
    for (const parish::Gender gender : {parish::Gender::Male, parish::Gender::Female})
        for (std::size_t start = 0; start < starts.size(); ++start)
            for (const Estimate estimate : estimates) {
                const Whose whose = fromAge(numbered(gender), estimate, start);
                const auto lives = reading.part(LivesFrom, whose.at());
                if (lives.n == 0) continue;
                const Part part = partOf(reading, whose);
                const std::vector<Key> deaths = {{DeathsFrom, whose.at()}};
                const bool has = part.rows.size() > 1 && part.rows.front().age == whose.first;
                const bool sound = part.deaths >= leastDeaths;
                Cell quotientCell, expectation;
                if (has) {
                    const double years = part.groups.front().years;
                    quotientCell =
                        standing(byThousand(part.rows.front().quotient, years, deaths), sound && years >= leastYears);
                    expectation = standing(report::number(part.rows.front().expectation, deaths), sound);
                }
                table.rows.push_back(
                    {report::text(QString("%1 anos, %2").arg(whose.first).arg(genderTold(whose.gender))),
                     report::text(estimateTold[static_cast<std::size_t>(estimate)]), counted(lives),
                     report::number(part.years, {{YearsFrom, whose.at()}}), report::number(part.deaths, deaths),
                     quotientCell, expectation});
            }
    table.notes = {"Quem casa depois dessa idade não entra; nas outras tábuas entra no dia em que casa."};
    return table;
}

std::vector<statistics::Step> stepsOf(const Reading& reading, qint32 gender, std::map<qint32, statistics::Exits>& exits)
{
    const At at = {any, gender, any, any};
    const auto enter = reading.spread(Enter, 2, at), dies = reading.spread(Dies, 2, at);
    const auto leaves = reading.spread(Leaves, 2, at);
    for (const auto& [day, n] : enter.values.counts())
        exits[day].entered += n;
    for (const auto& [day, n] : dies.values.counts())
        exits[day].events += n;
    for (const auto& [day, n] : leaves.values.counts())
        exits[day].left += n;
    return statistics::kaplanMeier(exits, 0);
}

// At risk when an age is reached.
qint64 atRiskAt(const std::map<qint32, statistics::Exits>& exits, qint32 age)
{
    qint64 atRisk = 0;
    for (auto exit = exits.begin(); exit != exits.end() && exit->first < age; ++exit)
        atRisk += exit->second.entered - exit->second.events - exit->second.left;
    return atRisk;
}

// Who dies or leaves at this age or later: those at risk, and who marries behind it.
std::vector<Key> leavingFrom(const Reading& reading, qint32 age, const At& at)
{
    const qint32 end = endOfAges * daysOfAnAge;
    return reading.within(Dies, 2, age, end, at).keys + reading.within(Leaves, 2, age, end, at).keys;
}

// Men and women beside each other.
struct Watched
{
    qint32 gender = 0;
    std::map<qint32, statistics::Exits> exits = {};
    std::vector<statistics::Step> steps = {};
    bool isSound = false; // enough of them die at the ages of the table
};

Table byKaplanMeier(const Reading& reading)
{
    Table table{"kaplan-meier",
                "Quocientes por Kaplan–Meier, até à última prova de vida",
                {textColumn("Idade"), countColumn("Homens no início"), decimalColumn("Homens, 5qx", "‰"),
                 countColumn("Mulheres no início"), decimalColumn("Mulheres, 5qx", "‰")}};
    std::array<Watched, 2> both = {{{numbered(parish::Gender::Male)}, {numbered(parish::Gender::Female)}}};
    for (Watched& watched : both) {
        const At at = {any, watched.gender, any, any};
        watched.steps = stepsOf(reading, watched.gender, watched.exits);
        watched.isSound = reading.within(Dies, 2, firstAge * daysOfAnAge, lastAge * daysOfAnAge, at).n >= leastDeaths;
    }
    if (both[0].exits.empty() && both[1].exits.empty()) return table;
    for (int age = firstAge; age < lastAge; age += groupYears) {
        const qint32 from = age * daysOfAnAge, until = from + groupYears * daysOfAnAge;
        table.rows.push_back({report::text(QString("%1–%2").arg(age).arg(age + groupYears - 1))});
        for (const Watched& watched : both) {
            const At at = {any, watched.gender, any, any};
            const std::vector<Key> keys =
                reading.within(Dies, 2, from, until, at).keys + reading.within(Leaves, 2, from, until, at).keys;
            const qint64 atRisk = atRiskAt(watched.exits, from);
            const Died died = diedBetween(watched.steps, from, until);
            table.rows.back().push_back(report::number(atRisk, leavingFrom(reading, from, at)));
            Cell quotientCell = estimated(died.probability, died.interval, atRisk, base, keys);
            if (!watched.isSound && died.probability && atRisk > 0) quotientCell = standing(quotientCell, false);
            table.rows.back().push_back(std::move(quotientCell));
        }
    }
    table.notes = {"No início da idade estão os que já casaram; os que casam depois entram nesse dia."};
    return table;
}

report::Chart chartOf(const Reading& reading, parish::Gender gender)
{
    const bool men = gender == parish::Gender::Male;
    report::Chart chart{men ? "sobreviventes-m" : "sobreviventes-f",
                        men ? "Sobreviventes dos casados: homens" : "Sobreviventes dos casados: mulheres",
                        report::Drawing::Lines, "idade (anos)", "sobreviventes (‰)"};
    for (const Estimate estimate : estimates) {
        const Part part = partOf(reading, fromMarriage(any, numbered(gender), estimate));
        if (part.deaths < leastDeaths) continue;
        report::Plot plot{estimateTold[static_cast<std::size_t>(estimate)]};
        for (const auto& row : part.rows)
            plot.points.push_back({static_cast<double>(row.age), row.survivors * 1000});
        chart.plots.push_back(std::move(plot));
    }
    chart.described = "De mil casados vivos na primeira idade, quantos chegam a cada uma das seguintes, pelas quatro "
                      "estimativas.";
    return chart;
}

} // namespace

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    std::vector<report::Figure> all = {summary(reading, settings)};
    for (const parish::Gender gender : {parish::Gender::Male, parish::Gender::Female}) {
        all.push_back(chartOf(reading, gender));
        const QString sex = gender == parish::Gender::Male ? "m" : "f", people = genderTold(numbered(gender));
        for (const Estimate estimate : estimates) {
            const auto place = static_cast<std::size_t>(estimate);
            all.push_back(lifeTableOf(
                reading, fromMarriage(any, numbered(gender), estimate),
                QString("tabua-%1-%2").arg(estimateIds[place], sex),
                QString("Tábua de mortalidade: %1, %2").arg(people, QString::fromUtf8(estimateTold[place]))));
        }
    }
    all.push_back(fromExactAges(reading));
    for (const parish::Gender gender : {parish::Gender::Male, parish::Gender::Female})
        for (std::size_t start = 0; start < starts.size(); ++start)
            all.push_back(lifeTableOf(
                reading, fromAge(numbered(gender), Estimate::Censored, start),
                QString("tabua-desde-%1-%2").arg(starts[start]).arg(gender == parish::Gender::Male ? "m" : "f"),
                QString("Tábua de mortalidade desde os %1 anos exactos: %2, até à última prova de vida")
                    .arg(starts[start])
                    .arg(genderTold(numbered(gender)))));
    all.push_back(byKaplanMeier(reading));
    all.push_back(leftOutTable(reading, reasons));
    return all;
}

} // namespace study::indicators::adult_counts
