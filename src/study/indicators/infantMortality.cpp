#include "study/indicators/childhood.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"

#include <algorithm>
#include <set>

namespace study::indicators {

namespace {

namespace infants {

using At = Reading::At;
constexpr qint32 any = Reading::any;

// All but the last ones: period of the birth, gender, legitimacy, age in days.
enum Count : quint16
{
    Seen,       // families seen a year from the birth, whether the child died or not
    SeenDied,   // of these children, dead under one
    UnseenDied, // dead under one, and the family isn't seen a year from the birth
    Dies,       // while the family was seen, under one
    Leaves,     // the others, when the family was seen for the last time, or with one year
    ExactSeen,  // as Seen and SeenDied, to the day
    ExactDied,
    ExactDeaths, // all deaths under one with both dates exact
    DiedWhen,    // as SeenDied; the period is that of the death, and there is no age
    Unlinked     // the first of the reasons
};
constexpr std::array<const char*, 17> names = {"vistos-um-ano",   "vistos-obitos",   "nao-vistos-obitos",
                                               "obitos",          "saidas",          "vistos-exactos",
                                               "obitos-exactos",  "obitos-todos",    "obitos-pelo-ano-do-obito",
                                               unwatchedNames[0], unwatchedNames[1], unwatchedNames[2],
                                               unwatchedNames[3], unwatchedNames[4], unwatchedNames[5],
                                               unwatchedNames[6], unwatchedNames[7]};
constexpr std::array<Reason, 8> reasons = reasonsFrom(Unlinked);

constexpr Base base = {100, 200}; // births
constexpr qint32 firstWeek = 7, fourWeeks = 28;

bool diedAsInfant(const Childhood& life)
{
    return life.death && *life.death < daysOfAnAge;
}

void countSeen(const Childhood& life, const At& at, qint32 periodOfDeath, const Who& who, Taker& taker)
{
    const bool dead = diedAsInfant(life);
    if (!life.isWatched() || life.seen < daysOfAnAge) {
        if (dead) taker.count({UnseenDied, at}, who);
        return;
    }
    taker.count({Seen, {at[0], at[1], at[2]}}, who);
    if (dead) {
        taker.count({SeenDied, at}, who);
        taker.count({DiedWhen, {periodOfDeath, at[1], at[2]}}, who);
    }
    if (!life.exact) return;
    taker.count({ExactSeen, {at[0], at[1], at[2]}}, who);
    if (dead) taker.count({ExactDied, at}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& child : peopleOf(study, share)) {
        const Childhood life = childhoodOf(child, study);
        isTold(life, child, Unlinked, taker);
        const bool seenOnly = life.why == Unwatched::FamilyUnseen || life.why == Unwatched::ObservedLater;
        if (!life.isWatched() && !seenOnly) continue;
        const Who who{&child, child.origin};
        At at = {periodOf(child.birth.middle().year(), study.settings), numbered(child.gender),
                 static_cast<qint32>(life.legitimacy), life.death.value_or(0)};
        if (life.exact && diedAsInfant(life)) taker.count({ExactDeaths, at}, who);
        const qint32 periodOfDeath =
            child.death.isKnown() ? periodOf(child.death.middle().year(), study.settings) : at[0];
        if (life.why != Unwatched::ObservedLater) countSeen(life, at, periodOfDeath, who, taker);
        if (!life.isWatched()) continue;
        at[3] = std::min(life.until, daysOfAnAge);
        taker.count({life.died && life.until < daysOfAnAge ? Dies : Leaves, at}, who);
    }
}

std::vector<Cell> quotientCells(const Reading& reading, const At& at)
{
    const auto seen = reading.part(Seen, at), dead = reading.part(SeenDied, at), unseen = reading.part(UnseenDied, at);
    const Survival survival = survivalOf(reading, Dies, Leaves, at);
    const Died km = diedBetween(survival.steps, 0, daysOfAnAge);
    return {counted(seen),
            counted(dead),
            quotient(dead.n, seen.n, base, seen.keys),
            quotient(dead.n + unseen.n, seen.n + unseen.n, base, seen.keys + unseen.keys),
            report::number(survival.atStart, survival.keys),
            estimated(survival.atStart > 0 ? km.probability : std::nullopt, km.interval, survival.atStart, base,
                      survival.keys)};
}

std::vector<Column> quotientColumns(const QString& first)
{
    return {textColumn(first),
            countColumn("Nascimentos vistos um ano"),
            countColumn("Óbitos"),
            decimalColumn("1q0 clássico", "‰"),
            decimalColumn("1q0 com todos os óbitos", "‰"),
            countColumn("Em observação"),
            decimalColumn("1q0 Kaplan–Meier", "‰")};
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    Table table{"mortalidade-infantil", "Mortalidade infantil por período e sexo", quotientColumns("Nascimentos")};
    for (const Group& group : groupsOf(reading, {Dies, Leaves})) {
        std::vector<Cell> row = {report::text(told(group, settings))};
        for (Cell& cell : quotientCells(reading, {group.period, group.gender, any, any}))
            row.push_back(std::move(cell));
        table.rows.push_back(std::move(row));
    }
    table.notes = {"Clássico: óbitos com menos de um ano entre os nascimentos cuja família é vista um ano depois.",
                   "Com todos os óbitos: juntam-se os das famílias que não são vistas até ao fim do ano; é um máximo.",
                   "Kaplan–Meier: cada criança conta até ao último dia em que a família é vista."};
    return table;
}

Table byLegitimacy(const Reading& reading)
{
    static constexpr std::array<const char*, 5> titles = {"Legítimos", "Legitimados", "Ilegítimos", "Expostos",
                                                          "Filiação desconhecida"};
    Table table{"legitimidade", "Mortalidade infantil por legitimidade", quotientColumns("Filiação")};
    std::set<qint32> all;
    for (const quint16 count : {Dies, Leaves})
        for (const qint32 legitimacy : reading.values(count, 2))
            all.insert(legitimacy);
    for (const qint32 legitimacy : all) {
        std::vector<Cell> row = {report::text(titles[static_cast<std::size_t>(legitimacy)])};
        for (Cell& cell : quotientCells(reading, {any, any, legitimacy, any}))
            row.push_back(std::move(cell));
        table.rows.push_back(std::move(row));
    }
    return table;
}

// The other tables are of cohorts of births.
Table byPeriodOfDeath(const Reading& reading, const Settings& settings)
{
    Table table{"pelo-ano-do-obito",
                "Mortalidade infantil pelo período do óbito",
                {textColumn("Nascimentos e óbitos de"), countColumn("Nascimentos vistos um ano"), countColumn("Óbitos"),
                 decimalColumn("1q0 do período", "‰")}};
    for (const Group& group : groupsOf(reading, {Seen})) {
        const At at = {group.period, group.gender, any, any};
        const auto born = reading.part(Seen, at), dead = reading.part(DiedWhen, at);
        table.rows.push_back({report::text(told(group, settings)), counted(born), counted(dead),
                              quotient(dead.n, born.n, base, dead.keys + born.keys)});
    }
    table.notes = {"Cada óbito conta no período em que se deu, e divide-se pelos nascimentos do mesmo período; nos "
                   "outros quadros conta no do nascimento (coortes de nascimento)."};
    return table;
}

// Deaths from one day of age on, before another, with both dates exact.
Reading::Part diedFrom(const Reading& reading, const Group& group, qint32 from, qint32 until)
{
    return reading.within(ExactDied, 3, from, until, {group.period, group.gender, any, any});
}

Table byAge(const Reading& reading, const Settings& settings)
{
    Table table{"componentes",
                "Mortalidade neonatal e pós-neonatal",
                {textColumn("Nascimentos"), countColumn("Vistos um ano, datas exactas"), decimalColumn("0–6 dias", "‰"),
                 decimalColumn("0–27 dias", "‰"), decimalColumn("28–364 dias", "‰"),
                 decimalColumn("Menos de um ano", "‰")}};
    static constexpr std::array<std::pair<qint32, qint32>, 4> ages = {
        {{0, firstWeek}, {0, fourWeeks}, {fourWeeks, daysOfAnAge}, {0, daysOfAnAge}}};
    for (const Group& group : groupsOf(reading, {ExactSeen})) {
        const auto born = reading.part(ExactSeen, {group.period, group.gender, any, any});
        table.rows.push_back({report::text(told(group, settings)), counted(born)});
        for (const auto& age : ages) {
            const auto dead = diedFrom(reading, group, age.first, age.second);
            table.rows.back().push_back(quotient(dead.n, born.n, base, dead.keys));
        }
    }
    table.notes = {"Só nascimentos e óbitos com as duas datas exactas; óbitos por mil nascimentos."};
    return table;
}

Table byDay(const Reading& reading)
{
    Table table{"primeira-semana",
                "Óbitos da primeira semana, por dia",
                {textColumn("Idade"), countColumn("Óbitos"), decimalColumn("Por mil nascimentos", "‰")}};
    const auto born = reading.part(ExactSeen);
    if (born.n == 0) return table;
    for (qint32 day = 0; day < firstWeek; ++day) {
        const auto dead = reading.part(ExactDied, {any, any, any, day});
        table.rows.push_back({report::text(day == 1 ? QString("1 dia") : QString("%1 dias").arg(day)), counted(dead),
                              quotient(dead.n, born.n, base, dead.keys)});
    }
    return table;
}

Table allDeaths(const Reading& reading)
{
    Table table{"obitos-ate-um-ano",
                "Óbitos com menos de um ano, duas datas exactas",
                {textColumn("Idade"), countColumn("Óbitos"), decimalColumn("Dos de menos de um ano", "%")}};
    const auto all = reading.part(ExactDeaths);
    if (all.n == 0) return table;
    const auto month = reading.within(ExactDeaths, 3, 0, fourWeeks);
    const auto row = [&all](const QString& age, const Reading::Part& part) {
        return std::vector<Cell>{report::text(age), counted(part), percent(part, all)};
    };
    table.rows = {row("Menos de um ano", all), row("Menos de 28 dias", month),
                  row("No próprio dia", reading.part(ExactDeaths, {any, any, any, 0}))};
    table.notes = {"Contam todos, também os das famílias que não são vistas até ao fim do primeiro ano.",
                   "Nos registos completos cerca de metade destes óbitos é do primeiro mês."};
    return table;
}

report::Chart chartOf(const Reading& reading, const Settings& settings)
{
    report::Chart chart{"mortalidade-infantil", "Mortalidade infantil por período", report::Drawing::Points,
                        "período do nascimento", "1q0 (‰)"};
    std::vector<Cell> classic, km;
    for (const Group& group : groupsOf(reading, {Dies, Leaves})) {
        if (group.period == any || group.gender != any) continue;
        std::vector<Cell> cells = quotientCells(reading, {group.period, any, any, any});
        chart.categories << periodName(group.period, settings);
        classic.push_back(cells[2]);
        km.push_back(cells[5]);
    }
    chart.plots = {plotOf("clássico", classic), plotOf("Kaplan–Meier", km)};
    chart.described = "Quociente de mortalidade infantil de cada período, pelos dois métodos, com intervalos de 95 %.";
    return chart;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {byPeriod(reading, settings), chartOf(reading, settings),    byPeriodOfDeath(reading, settings),
            byLegitimacy(reading),       byAge(reading, settings),      byDay(reading),
            allDeaths(reading),          leftOutTable(reading, reasons)};
}

} // namespace infants

} // namespace

const Subject infantMortality = {
    "mortalidade-infantil",
    "Mortalidade",
    "Mortalidade infantil",
    "Contam as crianças nascidas na freguesia enquanto a família é vista por actos que não são os da própria criança. "
    "O quociente clássico pede a família vista um ano depois do nascimento; o de Kaplan–Meier deixa sair quem deixa "
    "de ser visto. O sub-registo dos que morreram antes do baptismo baixa as duas estimativas, sobretudo a neonatal.",
    infants::names,
    infants::reasons,
    infants::fill,
    infants::figures};

} // namespace study::indicators
