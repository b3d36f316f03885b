#include "study/indicators/deaths.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"

namespace study::indicators {

namespace {

namespace deathAges {

using At = Reading::At;
constexpr qint32 any = Reading::any;

// Period of the death, gender, then what the count tells.
enum Count : quint16
{
    ByDates, // age in completed years; hundredths of a year
    ByAct,   // age as told, in completed years
    ByClass, // place of the class in `vague`
    Ageless, // the first of the reasons
    Elsewhere,
    OutOfBooks,
    Contradictory
};
constexpr std::array<const char*, 7> names = {"idade-pelas-datas", "idade-declarada", "so-por-classe", "sem-idade",
                                              "fora-da-freguesia", "fora-dos-livros", "obito-antes"};
constexpr std::array<Reason, 4> reasons = {{{Ageless, "óbito sem idade nem classe"},
                                            {Elsewhere, "óbito fora da freguesia"},
                                            {OutOfBooks, "óbito fora dos livros ou numa lacuna"},
                                            {Contradictory, "óbito anterior ao nascimento"}}};

enum Vague : qint32
{
    Young,
    Minor,
    Grown
};
constexpr std::array<const char*, 3> vague = {"menores de 7, sem idade", "outros menores, sem idade",
                                              "adultos, sem idade"};

struct Ages
{
    int first, end;
};
constexpr std::array<Ages, 11> classes = {
    {{0, 1}, {1, 5}, {5, 10}, {10, 20}, {20, 30}, {30, 40}, {40, 50}, {50, 60}, {60, 70}, {70, 80}, {80, 1000}}};
constexpr double hundredths = 100;

qint32 vagueOf(const AgeAtDeath& age)
{
    if (age.isYoung(endOfInnocence + 1)) return Young;
    return age.below ? Minor : Grown;
}

void countDeath(const parish::Person& person, const Study& study, Taker& taker)
{
    const Settings& settings = study.settings;
    const int year = person.death.middle().year();
    const Who who{&person, nullptr};
    if (!isAskedFor(person, study, taker, {Elsewhere, OutOfBooks})) return;
    const bool exact = person.birth.isExact() && person.death.isExact();
    if (exact && person.death.day < person.birth.day) return taker.count({Contradictory}, who);
    const AgeAtDeath age = ageAtDeathOf(person);
    const At at = {periodOf(year, settings), numbered(person.gender), age.years.value_or(0)};
    switch (age.by) {
    case AgeAtDeath::By::Nothing:
        return taker.count({Ageless}, who);
    case AgeAtDeath::By::Class:
        return taker.count({ByClass, {at[0], at[1], vagueOf(age)}}, who);
    case AgeAtDeath::By::Statement:
        return taker.count({ByAct, at}, who);
    case AgeAtDeath::By::Dates:
        break;
    }
    const bool forward = person.birth.middle() <= person.death.middle();
    const double years = forward ? parish::exactAge(person.birth, person.death) : 0;
    taker.count({ByDates, {at[0], at[1], at[2], static_cast<qint32>(years * hundredths)}}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        if (person.death.isKnown()) countDeath(person, study, taker);
}

// A statement is of completed years: half a year is added in the mean.
Cell statedMean(const Reading::Spread& stated)
{
    Cell cell = meanCell(stated, 1);
    if (double* value = std::get_if<double>(&cell.value)) *value += 0.5;
    if (cell.interval) cell.interval = statistics::Interval{cell.interval->low + 0.5, cell.interval->high + 0.5};
    return cell;
}

Table means(const Reading& reading, const Settings& settings)
{
    Table table{"idade-media",
                "Idade média ao óbito, por período e sexo",
                {textColumn("Óbitos"), countColumn("Pelas datas"), decimalColumn("Idade média", "anos"),
                 decimalColumn("Idade mediana", "anos"), decimalColumn("Dos de 20 e mais", "anos"),
                 countColumn("Idade declarada"), decimalColumn("Idade média declarada", "anos")}};
    for (const Group& group : groupsOf(reading, {ByDates, ByAct})) {
        const At at = {group.period, group.gender, any, any};
        const auto exact = reading.spread(ByDates, 3, at), stated = reading.spread(ByAct, 2, at);
        std::map<qint32, qint64> grown;
        for (const auto& [age, n] : exact.values.counts())
            if (age >= 20 * hundredths) grown[age] = n;
        const Reading::Spread adults{statistics::Distribution(grown), reading.within(ByDates, 2, 20, 1000, at).keys};
        table.rows.push_back({report::text(told(group, settings)), report::number(exact.values.n(), exact.keys),
                              meanCell(exact, hundredths), medianCell(exact, hundredths), meanCell(adults, hundredths),
                              report::number(stated.values.n(), stated.keys), statedMean(stated)});
    }
    table.notes = {"Só descreve: a idade média ao óbito depende de quantos há de cada idade, e não mede a mortalidade.",
                   "As idades declaradas são anos completos; à sua média juntou-se meio ano."};
    return table;
}

Table classesOf(const Reading& reading, qint32 gender, const QString& id, const QString& title)
{
    Table table{id,
                title,
                {textColumn("Idade"), countColumn("Pelas datas"), countColumn("Declarada"), countColumn("Todos"),
                 decimalColumn("De todos", "%")}};
    const At at = {any, gender, any, any};
    Reading::Part all = reading.part(ByDates, at);
    all += reading.part(ByAct, at);
    all += reading.part(ByClass, at);
    if (all.n == 0) return table;
    const auto add = [&](const QString& name, const Reading::Part& exact, const Reading::Part& stated) {
        Reading::Part both = exact;
        both += stated;
        table.rows.push_back({report::text(name), counted(exact), counted(stated), counted(both), percent(both, all)});
    };
    for (const Ages& ages : classes) {
        const QString name = ages.end == 1000             ? QString("%1 e mais").arg(ages.first)
                             : ages.end == ages.first + 1 ? QString::number(ages.first)
                                                          : QString("%1–%2").arg(ages.first).arg(ages.end - 1);
        add(name, reading.within(ByDates, 2, ages.first, ages.end, at),
            reading.within(ByAct, 2, ages.first, ages.end, at));
    }
    for (const qint32 which : {Young, Minor, Grown})
        add(vague[static_cast<std::size_t>(which)], {}, reading.part(ByClass, {any, gender, which, any}));
    return table;
}

report::Chart chartOf(const Reading& reading)
{
    report::Chart chart{"idades-ao-obito", "Óbitos por idade e sexo", report::Drawing::Pyramid, "idade (anos)",
                        "óbitos"};
    chart.described = "Quantos homens e quantas mulheres morreram em cada grupo de idades.";
    if (reading.sum(ByDates) == 0 && reading.sum(ByAct) == 0) return chart;
    for (const parish::Gender gender : {parish::Gender::Male, parish::Gender::Female}) {
        report::Plot plot{genderTold(numbered(gender))};
        for (const Ages& ages : classes) {
            const At at = {any, numbered(gender), any, any};
            const qint64 n = reading.within(ByDates, 2, ages.first, ages.end, at).n +
                             reading.within(ByAct, 2, ages.first, ages.end, at).n;
            plot.points.push_back({static_cast<double>(plot.points.size()), static_cast<double>(n)});
        }
        chart.plots.push_back(std::move(plot));
    }
    for (const Ages& ages : classes)
        chart.categories << (ages.end == 1000 ? QString("%1+").arg(ages.first) : QString::number(ages.first));
    return chart;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {means(reading, settings),
            classesOf(reading, any, "idades", "Óbitos por idade"),
            classesOf(reading, numbered(parish::Gender::Male), "idades-m", "Óbitos por idade: homens"),
            classesOf(reading, numbered(parish::Gender::Female), "idades-f", "Óbitos por idade: mulheres"),
            chartOf(reading),
            leftOutTable(reading, reasons)};
}

} // namespace deathAges

} // namespace

const Subject ageAtDeath = {"idade-ao-obito",
                            "Mortalidade",
                            "Idade ao óbito",
                            "Contam os óbitos da freguesia, com a idade pelas datas de nascimento e óbito ou, à parte, "
                            "pela que o acto declara. "
                            "Quem não tem idade conta pela classe de paroquiano ou como menor. A idade média depende "
                            "da estrutura das idades da "
                            "população: não compara a mortalidade de dois tempos ou lugares.",
                            deathAges::names,
                            deathAges::reasons,
                            deathAges::fill,
                            deathAges::figures};

} // namespace study::indicators
