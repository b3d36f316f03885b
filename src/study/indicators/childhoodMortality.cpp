#include "study/indicators/childhood.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"

namespace study::indicators {

namespace {

namespace children {

using At = Reading::At;
constexpr qint32 any = Reading::any;

// All but the last ones: period of the birth, gender, legitimacy, age: in days for those who die and leave, the group's
// number for the others.
enum Count : quint16
{
    Dies,     // while the family is seen, before 15
    Leaves,   // when it is seen for the last time, or with 15
    Seen,     // alive at the beginning of an age group, and the family is seen to its end
    SeenDied, // of these, dead in it
    Unlinked  // the first of the reasons
};
constexpr std::array<const char*, 12> names = {
    "obitos",          "saidas",          "vistos-ate-ao-fim", "vistos-obitos",   unwatchedNames[0], unwatchedNames[1],
    unwatchedNames[2], unwatchedNames[3], unwatchedNames[4],   unwatchedNames[5], unwatchedNames[6], unwatchedNames[7]};
constexpr std::array<Reason, 8> reasons = reasonsFrom(Unlinked);

struct Ages
{
    int first, end; // completed years: from the one, below the other
    const char* quotient;
};
constexpr std::array<Ages, 4> groups = {{{0, 1, "1q0"}, {1, 5, "4q1"}, {5, 10, "5q5"}, {10, 15, "5q10"}}};
constexpr Base base = {50, 50}; // at risk

void countSeen(const Childhood& life, const At& child, const Who& who, Taker& taker)
{
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const bool reached = !life.death || *life.death >= groups[i].first * daysOfAnAge;
        if (!reached || life.seen < groups[i].end * daysOfAnAge) return;
        const At at = {child[0], child[1], child[2], static_cast<qint32>(i)};
        taker.count({Seen, at}, who);
        if (life.death && *life.death < groups[i].end * daysOfAnAge) taker.count({SeenDied, at}, who);
    }
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& child : peopleOf(study, share)) {
        const Childhood life = childhoodOf(child, study);
        if (!isTold(life, child, Unlinked, taker)) continue;
        const Who who{&child, child.origin};
        const At at = {periodOf(child.birth.middle().year(), study.settings), numbered(child.gender),
                       static_cast<qint32>(life.legitimacy), life.until};
        taker.count({life.died ? Dies : Leaves, at}, who);
        countSeen(life, at, who, taker);
    }
}

// One age group by the three ways.
struct Quotients
{
    qint64 atRisk = 0;
    Reading::Part died = {}, left = {};
    std::optional<double> actuarial = {};
    Died km = {};
    Reading::Part seen = {}, seenDied = {};

    std::optional<double> classic() const
    {
        if (seen.n == 0) return {};
        return static_cast<double>(seenDied.n) / static_cast<double>(seen.n);
    }
};

std::vector<Quotients> quotientsOf(const Reading& reading, const Survival& survival, const Group& of)
{
    std::vector<Quotients> all;
    qint64 alive = survival.atStart;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        Quotients quotients{alive};
        const qint32 from = groups[i].first * daysOfAnAge, until = groups[i].end * daysOfAnAge;
        quotients.died = reading.within(Dies, 3, from, until, {of.period, of.gender, any, any});
        quotients.left = reading.within(Leaves, 3, from, until, {of.period, of.gender, any, any});
        if (alive > 0) {
            quotients.actuarial =
                statistics::actuarialQuotient(static_cast<double>(alive), static_cast<double>(quotients.died.n),
                                              static_cast<double>(quotients.left.n));
            quotients.km = diedBetween(survival.steps, from, until);
        }
        quotients.seen = reading.part(Seen, {of.period, of.gender, any, static_cast<qint32>(i)});
        quotients.seenDied = reading.part(SeenDied, {of.period, of.gender, any, static_cast<qint32>(i)});
        alive -= quotients.died.n + quotients.left.n;
        all.push_back(std::move(quotients));
    }
    return all;
}

QString agesTold(const Ages& ages)
{
    return ages.end - ages.first == 1 ? QString::number(ages.first)
                                      : QString("%1–%2").arg(ages.first).arg(ages.end - 1);
}

// Survivors of 1000 at the end of a group; nothing once a quotient is missing.
void pass(std::optional<double>& survivors, const std::optional<double>& quotient)
{
    survivors = survivors && quotient ? std::optional(*survivors * (1 - *quotient)) : std::nullopt;
}

Table tableOf(const Reading& reading, const Group& of, const QString& id, const QString& title)
{
    Table table{id,
                title,
                {textColumn("Idade"), countColumn("Em observação"), countColumn("Óbitos"), countColumn("Saídas"),
                 decimalColumn("q actuarial", "‰"), decimalColumn("Sobreviventes no fim (actuarial)", "‰"),
                 decimalColumn("q Kaplan–Meier", "‰"), countColumn("Vistos até ao fim"), countColumn("Óbitos destes"),
                 decimalColumn("q clássico", "‰"), decimalColumn("Sobreviventes no fim (clássico)", "‰")}};
    const Survival survival = survivalOf(reading, Dies, Leaves, {of.period, of.gender, any, any});
    if (survival.atStart == 0) return table;
    const std::vector<Quotients> all = quotientsOf(reading, survival, of);
    std::optional<double> actuarial = 1, classic = 1;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const Quotients& at = all[i];
        pass(actuarial, at.actuarial);
        pass(classic, at.classic());
        table.rows.push_back({report::text(agesTold(groups[i]) + " (" + groups[i].quotient + ")"),
                              report::number(at.atRisk, survival.keys), counted(at.died), counted(at.left),
                              estimated(at.actuarial, {}, at.atRisk, base, survival.keys),
                              estimated(actuarial, {}, at.atRisk, base, survival.keys),
                              estimated(at.km.probability, at.km.interval, at.atRisk, base, survival.keys),
                              counted(at.seen), counted(at.seenDied),
                              quotient(at.seenDied.n, at.seen.n, base, at.seen.keys),
                              estimated(classic, {}, at.seen.n, base, at.seen.keys)});
    }
    table.notes = {"Actuarial: q = d/(N − c/2), com d óbitos e c saídas; clássico: só famílias vistas até ao fim da "
                   "idade. Entre o nascimento e os quinze anos, 1000 menos os sobreviventes."};
    return table;
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    Table table{"quocientes-por-periodo",
                "Quocientes de mortalidade até aos 15 anos, por período e sexo",
                {textColumn("Nascimentos"), countColumn("Crianças")}};
    for (const Ages& ages : groups)
        table.columns.push_back(decimalColumn(ages.quotient, "‰"));
    table.columns.push_back(decimalColumn("15q0", "‰"));
    for (const Group& of : groupsOf(reading, {Dies, Leaves})) {
        const Survival survival = survivalOf(reading, Dies, Leaves, {of.period, of.gender, any, any});
        if (survival.atStart == 0) continue;
        table.rows.push_back({report::text(told(of, settings)), report::number(survival.atStart, survival.keys)});
        std::optional<double> survivors = 1;
        qint64 least = survival.atStart;
        for (const Quotients& at : quotientsOf(reading, survival, of)) {
            pass(survivors, at.actuarial);
            least = std::min(least, at.atRisk);
            table.rows.back().push_back(estimated(at.actuarial, {}, at.atRisk, base, survival.keys));
        }
        const std::optional<double> died = survivors ? std::optional(1 - *survivors) : std::nullopt;
        table.rows.back().push_back(estimated(died, {}, least, base, survival.keys));
    }
    table.notes = {"Quocientes actuariais; 15q0 = 1 − produto dos (1 − q)."};
    return table;
}

report::Chart chartOf(const Reading& reading)
{
    report::Chart chart{"sobreviventes", "Sobreviventes até aos 15 anos", report::Drawing::Steps, "idade (anos)",
                        "sobreviventes (‰)"};
    for (const Group& of :
         {Group{any, any}, Group{any, numbered(parish::Gender::Male)}, Group{any, numbered(parish::Gender::Female)}})
    {
        const Survival survival = survivalOf(reading, Dies, Leaves, {any, of.gender, any, any});
        if (survival.atStart < base.least) continue;
        report::Plot plot{genderTold(of.gender), {{0, 1000}}};
        for (const statistics::Step& step : survival.steps)
            plot.points.push_back({static_cast<double>(step.time) / daysOfAnAge, step.survival * 1000});
        plot.points.push_back({15, plot.points.back().y});
        chart.plots.push_back(std::move(plot));
    }
    chart.described = "De mil crianças, quantas estão vivas em cada idade, por Kaplan–Meier e por sexo.";
    return chart;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    std::vector<report::Figure> all = {
        tableOf(reading, {any, any}, "quocientes", "Quocientes de mortalidade até aos 15 anos"),
        tableOf(reading, {any, numbered(parish::Gender::Male)}, "quocientes-m", "Quocientes: rapazes"),
        tableOf(reading, {any, numbered(parish::Gender::Female)}, "quocientes-f", "Quocientes: raparigas"),
        byPeriod(reading, settings), chartOf(reading)};
    all.push_back(leftOutTable(reading, reasons));
    return all;
}

} // namespace children

} // namespace

const Subject childhoodMortality = {
    "mortalidade-ate-15-anos",
    "Mortalidade",
    "Mortalidade até aos 15 anos",
    "Contam as crianças nascidas na freguesia desde o nascimento até aos 15 anos, ao óbito, ao próprio casamento ou ao "
    "último acto que mostra a família presente, o que for primeiro. Dão-se os quocientes clássicos, que pedem a "
    "família "
    "vista até ao fim da idade, os actuariais e os de Kaplan–Meier. O óbito da própria criança nunca alonga o tempo em "
    "que a família é vista, e a última criança de uma família só conta se algo a segue.",
    children::names,
    children::reasons,
    children::fill,
    children::figures};

} // namespace study::indicators
