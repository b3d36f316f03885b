#include "study/indicators/childhood.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"
#include "study/observation/limits.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace orphans {

using At = Reading::At;
constexpr qint32 any = Reading::any;

// Period of the child's birth; what the count tells.
enum Count : quint16
{
    Observed,   // place of the age in `ages`, or `atMarriage`; which parents are dead, by Dead
    ParentDies, // father 0, mother 1; child's age in days, to 25 years
    ParentLeaves,
    Told,      // by who assisted at an act: place of the age; which parents are told to be dead
    NoParents, // the first of the reasons
    ParentUnseen,
    DeadBeforeBirth
};
constexpr std::array<const char*, 7> names = {"vistos",          "obitos-dos-pais", "saidas-dos-pais",  "declarados",
                                              "pais-incognitos", "pais-nao-vistos", "pais-mortos-antes"};
constexpr std::array<Reason, 3> reasons = {
    {{NoParents, "criança sem pai nem mãe conhecidos"},
     {ParentUnseen, "sem prova de vida do pai ou da mãe depois do nascimento, ou só observados mais tarde"},
     {DeadBeforeBirth, "pai morto mais de 300 dias antes do nascimento, ou mãe mais de 8 dias"}}};

constexpr std::array<int, 5> ages = {1, 5, 10, 15, 20};
constexpr qint32 atMarriage = 5;
constexpr int oldest = 25;
constexpr int posthumousDays = 300, untilBaptism = 8;
constexpr Base base = {20, 50};

enum Dead : qint32
{
    Neither,
    Father,
    Mother,
    Both
};

// A parent's life, from the birth of the child on.
struct Parent
{
    parish::Date death = {}, alive = {}; // proved, the last one
    parish::Date from = {};              // observed, where a later day than the own birth was typed

    bool isKnown() const { return death.isKnown() || alive.isKnown(); }
    bool isSeenOn(QDate day) const { return !from.isKnown() || from.middle() <= day; }
    // Nothing where that isn't known, or the parent isn't observed yet: had it died, nobody would know.
    std::optional<bool> isDeadOn(QDate day) const
    {
        if (!isSeenOn(day)) return {};
        if (death.isKnown()) return death.middle() <= day;
        return alive.isKnown() && alive.middle() >= day ? std::optional(false) : std::nullopt;
    }
};

Parent parentOf(const parish::Person* person, const Study& study)
{
    if (!person) return {};
    const Parent parent{person->death, study.presenceOf(*person).aliveUntil.day, observation::typedFrom(*person)};
    const parish::Date typed = observation::typedUntil(*person);
    const parish::Date& end = parent.death.isKnown() ? parent.death : parent.alive;
    return typed.isKnown() && end.isKnown() && typed.middle() < end.middle() ? Parent{{}, typed, parent.from} : parent;
}

bool isDeadBefore(const parish::Person& child, const Parent& parent, int allowedDays)
{
    return parent.death.isKnown() && parish::daysBetween(parent.death, child.birth) > allowedDays;
}

std::optional<qint32> deadOf(std::optional<bool> father, std::optional<bool> mother)
{
    if (!father || !mother) return {};
    return (*father ? Father : Neither) + (*mother ? Mother : Neither);
}

parish::Date firstMarriage(const parish::Person& child)
{
    for (const parish::Membership* own : child.unions)
        if (own->family && own->family->marriage.isKnown()) return own->family->marriage;
    return {};
}

// The child itself has to be alive there.
void countAges(const parish::Person& child, const std::array<Parent, 2>& parents, qint32 period, Taker& taker)
{
    const auto count = [&](QDate day, qint32 place) {
        const auto dead = deadOf(parents[0].isDeadOn(day), parents[1].isDeadOn(day));
        if (dead) taker.count({Observed, {period, place, *dead}}, {&child, child.origin});
    };
    for (std::size_t i = 0; i < ages.size(); ++i) {
        const QDate day = parish::birthday(child.birth, ages[i]);
        if (child.death.isKnown() && child.death.middle() < day) break;
        count(day, static_cast<qint32>(i));
    }
    const parish::Date marriage = firstMarriage(child);
    const bool isAlive = !child.death.isKnown() || marriage.middle() <= child.death.middle();
    if (marriage.isKnown() && marriage.middle() > child.birth.middle() && isAlive) count(marriage.middle(), atMarriage);
}

// From the child's birth on, whether the child lives or not.
void countSurvival(const parish::Person& child, const Parent& parent, qint32 which, qint32 period, Taker& taker)
{
    const Who who{&child, child.origin};
    const parish::Date& end = parent.death.isKnown() ? parent.death : parent.alive;
    const bool isLater = !parent.isSeenOn(child.birth.middle());
    if (isLater || !end.isKnown() || (!parent.death.isKnown() && end.middle() <= child.birth.middle()))
        return taker.count({ParentUnseen}, who);
    // A father of a posthumous child has died at its birth.
    const qint32 age = end.middle() <= child.birth.middle() ? 0 : ageInDays(child.birth, end);
    const bool dies = parent.death.isKnown() && age < oldest * daysOfAnAge;
    taker.count({dies ? ParentDies : ParentLeaves, {period, which, std::min(age, oldest * daysOfAnAge)}}, who);
}

// What a child that assists at an act is told by: its own parents, dead or not.
void countStatements(const parish::Person& person, qint32 period, const Settings& settings, Taker& taker)
{
    for (const parish::Assistance* act : person.assisted) {
        if (!act->fatherDead || !act->motherDead || !act->date.isKnown() || act->date.middle() < person.birth.middle())
            continue;
        if (!settings.period.holds(act->date.middle().year())) continue;
        const int age = parish::completedYears(person.birth, act->date);
        const auto group = std::upper_bound(ages.begin(), ages.end(), age) - ages.begin();
        const qint32 dead = (*act->fatherDead ? Father : Neither) + (*act->motherDead ? Mother : Neither);
        taker.count({Told, {period, static_cast<qint32>(group), dead}}, {&person, person.origin});
    }
}

void countChild(const parish::Person& child, const Study& study, Taker& taker)
{
    const Settings& settings = study.settings;
    if (!child.birth.isKnown()) return;
    const int year = child.birth.middle().year();
    if (!settings.period.holds(year) || !isWanted(child.gender, settings) || !isHere(child.birthPlace, study) ||
        !isWanted(legitimacyOf(child, settings), settings))
        return;
    const qint32 period = periodOf(year, settings);
    countStatements(child, period, settings, taker);
    if (!child.father() && !child.mother()) return taker.count({NoParents}, {&child, child.origin});
    const std::array<Parent, 2> parents = {parentOf(child.father(), study), parentOf(child.mother(), study)};
    if (isDeadBefore(child, parents[0], posthumousDays) || isDeadBefore(child, parents[1], untilBaptism))
        return taker.count({DeadBeforeBirth}, {&child, child.origin});
    if (child.father()) countSurvival(child, parents[0], 0, period, taker);
    if (child.mother()) countSurvival(child, parents[1], 1, period, taker);
    countAges(child, parents, period, taker);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        countChild(person, study, taker);
}

Reading::Part partOf(const Reading& reading, quint16 count, const At& at, std::initializer_list<qint32> dead)
{
    Reading::Part part;
    for (const qint32 who : dead)
        part += reading.part(count, {at[0], at[1], who, any});
    return part;
}

void addShares(std::vector<Cell>& row, const Reading& reading, quint16 count, const At& at)
{
    const auto all = reading.part(count, at);
    row.push_back(counted(all));
    row.push_back(percent(partOf(reading, count, at, {Father, Both}), all));
    row.push_back(percent(partOf(reading, count, at, {Mother, Both}), all));
    row.push_back(percent(partOf(reading, count, at, {Both}), all));
}

std::vector<Column> columns(const QString& first, const QString& who)
{
    return {textColumn(first), countColumn(who), decimalColumn("Órfãos de pai", "%"),
            decimalColumn("Órfãos de mãe", "%"), decimalColumn("De pai e mãe", "%")};
}

Table byAge(const Reading& reading, qint32 period, const QString& id, const QString& title)
{
    Table table{id, title, columns("Idade da criança", "Crianças vivas, com os pais vistos")};
    for (qint32 place = 0; place <= atMarriage; ++place) {
        const At at = {period, place, any, any};
        if (reading.sum(Observed, at) == 0) continue;
        table.rows.push_back(
            {report::text(place == atMarriage ? QString("Primeiro casamento")
                                              : QString::number(ages[static_cast<std::size_t>(place)]))});
        addShares(table.rows.back(), reading, Observed, at);
    }
    table.notes = {"Só contam as crianças de que se sabe se os dois pais estavam vivos nessa idade."};
    return table;
}

Table statements(const Reading& reading)
{
    static constexpr std::array<const char*, 6> groups = {"0", "1–4", "5–9", "10–14", "15–19", "20 e mais"};
    Table table{"declarados", "O que dizem os actos a que as pessoas assistiram",
                columns("Idade da pessoa", "Declarações")};
    for (const qint32 group : reading.values(Told, 1)) {
        table.rows.push_back({report::text(groups.at(static_cast<std::size_t>(group)))});
        addShares(table.rows.back(), reading, Told, {any, group, any, any});
    }
    return table;
}

Table survivalTable(const Reading& reading)
{
    Table table{"risco",
                "Probabilidade de ter perdido o pai ou a mãe (Kaplan–Meier)",
                {textColumn("Idade"), decimalColumn("Perdeu o pai", "‰"), decimalColumn("Perdeu a mãe", "‰")}};
    const std::array<Survival, 2> parents = {survivalOf(reading, ParentDies, ParentLeaves, {any, 0, any, any}, 2),
                                             survivalOf(reading, ParentDies, ParentLeaves, {any, 1, any, any}, 2)};
    if (parents[0].atStart + parents[1].atStart == 0) return table;
    for (const int age : ages) {
        table.rows.push_back({report::text(QString::number(age))});
        for (const Survival& parent : parents) {
            const Died died = diedBetween(parent.steps, 0, age * daysOfAnAge);
            table.rows.back().push_back(estimated(died.probability, died.interval, parent.atStart, base, parent.keys));
        }
    }
    table.notes = {
        "Desde o nascimento da criança, viva ela ou não, até ao óbito do pai ou da mãe ou à sua última prova "
        "de vida."};
    return table;
}

report::Chart chartOf(const Reading& reading)
{
    report::Chart chart{"risco", "Pais vivos, pela idade da criança", report::Drawing::Steps, "idade da criança (anos)",
                        "vivos (‰)"};
    for (const qint32 which : {0, 1}) {
        const Survival parent = survivalOf(reading, ParentDies, ParentLeaves, {any, which, any, any}, 2);
        if (parent.atStart < base.least) continue;
        report::Plot plot{which == 0 ? "pai" : "mãe", {{0, 1000}}};
        for (const statistics::Step& step : parent.steps)
            plot.points.push_back({static_cast<double>(step.time) / daysOfAnAge, step.survival * 1000});
        chart.plots.push_back(std::move(plot));
    }
    chart.described = "De mil crianças, quantas têm ainda o pai, e quantas a mãe, em cada idade.";
    return chart;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    std::vector<report::Figure> all = {byAge(reading, any, "orfaos", "Órfãos por idade")};
    for (const qint32 period : reading.values(Observed, 0))
        all.push_back(byAge(reading, period, QString("orfaos-%1").arg(period),
                            "Órfãos por idade: nascidos em " + periodName(period, settings)));
    all.push_back(survivalTable(reading));
    all.push_back(chartOf(reading));
    all.push_back(statements(reading));
    all.push_back(leftOutTable(reading, reasons));
    return all;
}

} // namespace orphans

} // namespace

const Subject orphanhood = {
    "orfandade",
    "Mortalidade",
    "Orfandade",
    "Contam as crianças nascidas na freguesia de quem se conhece o pai ou a mãe. Dá-se quantas tinham perdido um ou "
    "ambos em cada idade e ao primeiro casamento, pelas datas, e à parte o que dizem os actos a que assistiram. Quem "
    "não tem óbito conhecido só conta como vivo até à última prova de vida.",
    orphans::names,
    orphans::reasons,
    orphans::fill,
    orphans::figures};

} // namespace study::indicators
