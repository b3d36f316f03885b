// From the end of a union to the survivor's next marriage: how long it took, and who married again at all.
#include "study/indicators/natality.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reading.h"
#include "study/indicators/widowhood.h"
#include "study/statistics/survival.h"

#include <algorithm>
#include <cmath>

namespace study::indicators {

namespace {

namespace secondMarriages {

using observation::Union;
using parish::Date;
using parish::Family;
using parish::Gender;
using parish::Person;
using report::Chart;
using report::Figure;

// Of the dimensions: period of the widowhood, sex, age group with children (see groupOf()), days.
enum Count : quint16
{
    Interval, // both days known to a few
    Again,
    Left,
    NoUnion,
    OpenUnion,
    OutOfPeriod,
    NoSurvivor,
    UndatedMarriage,
    NotSeen,
    NotByMonth,
    Enter // who is observed only later: days to the one before that
};

constexpr const char* counts[] = {"intervalo",        "novo casamento",  "saída de observação", "sem casal",
                                  "união aberta",     "fora do período", "sem sobrevivente",    "casamento sem data",
                                  "não visto depois", "só o ano",        "entrada mais tarde"};

constexpr Reason leftOut[] = {{NoUnion, told(NoWidowhood::NoUnion)},
                              {OpenUnion, told(NoWidowhood::OpenUnion)},
                              {OutOfPeriod, told(NoWidowhood::OutOfPeriod)},
                              {NoSurvivor, told(NoWidowhood::NoSurvivor)},
                              {UndatedMarriage, told(NoWidowhood::UndatedMarriage)},
                              {NotSeen, told(NoWidowhood::NotSeen)},
                              {NotByMonth, "só no intervalo em meses: de uma das datas só se sabe o ano"}};

constexpr qint32 any = Reading::any;
constexpr int agesByChildren = 10; // group = age × 10 + children

enum Age : qint32
{
    UnknownAge,
    Under30,
    From30,
    From40,
    From50
};
enum Children : qint32
{
    WithoutChildren,
    WithChildren
};

Age ageOf(const Person& person, const Date& at)
{
    if (!person.birth.isKnown() || person.birth.middle() > at.middle()) return UnknownAge;
    const int years = completedYears(person.birth, at);
    if (years < 30) return Under30;
    if (years < 40) return From30;
    return years < 50 ? From40 : From50;
}

qint32 groupOf(const Person& survivor, const Family& family, const Date& at)
{
    return ageOf(survivor, at) * agesByChildren + (dependentsOf(family, at) > 0 ? WithChildren : WithoutChildren);
}

Count reasonOf(NoWidowhood why)
{
    switch (why) {
    case NoWidowhood::OpenUnion:
        return OpenUnion;
    case NoWidowhood::OutOfPeriod:
        return OutOfPeriod;
    case NoWidowhood::NoSurvivor:
        return NoSurvivor;
    case NoWidowhood::UndatedMarriage:
        return UndatedMarriage;
    case NoWidowhood::NotSeen:
        return NotSeen;
    case NoWidowhood::None:
    case NoWidowhood::NotAsked:
    case NoWidowhood::NoUnion:
        break;
    }
    return NoUnion;
}

qint32 daysFrom(const Date& from, const Date& to)
{
    return std::max(0, parish::daysBetween(natality::settled(from), natality::settled(to)));
}

void count(const Union& union_, const Study& study, Taker& taker)
{
    const Widowhood widowhood = widowhoodOf(union_, study);
    const Family* const family = union_.family;
    const Person* const survivor = widowhood.survivor;
    const auto leave = [&](Count reason) { taker.count({reason, {}}, {survivor, family}); };
    if (widowhood.why == NoWidowhood::NotAsked) return;
    if (!widowhood.isCounted()) return leave(reasonOf(widowhood.why));
    const Date& end = widowhood.end;
    const Reading::At at = {periodOf(end.year(), study.settings), static_cast<qint32>(survivor->gender),
                            groupOf(*survivor, *family, end), daysFrom(end, widowhood.until)};
    if (const qint32 entry = daysFrom(end, widowhood.from); entry > 0)
        taker.count({Enter, {at[0], at[1], at[2], entry - 1}}, {survivor, family});
    if (!widowhood.marries) return taker.count({Left, at}, {survivor, family});
    taker.count({Again, at}, {survivor, family});
    const auto isYear = [](const Date& day) { return day.precision == parish::Precision::Year; };
    if (isYear(end) || isYear(widowhood.until)) return leave(NotByMonth);
    taker.count({Interval, at}, {survivor, family});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i)
        count(study.unions[i], study, taker);
}

// Figures

struct Group
{
    QString name;
    qint32 sex = any;
    std::vector<qint32> codes = {any}; // of groupOf()
    qint32 period = any;
};

std::vector<Group> groupsFor(qint32 sex, const char* people)
{
    std::vector<Group> groups = {{people, sex}};
    static constexpr const char* ages[] = {"idade desconhecida", "menos de 30 anos", "30–39 anos", "40–49 anos",
                                           "50 anos e mais"};
    const auto named = [people](const char* what) { return QString("%1, %2").arg(people, what); };
    for (const qint32 age : {Under30, From30, From40, From50, UnknownAge})
        groups.push_back(
            {named(ages[age]), sex, {age * agesByChildren + WithoutChildren, age * agesByChildren + WithChildren}});
    for (const auto& [children, name] : {std::pair{WithChildren, "com filhos menores de 15 anos"},
                                         std::pair{WithoutChildren, "sem filhos menores de 15 anos"}})
    {
        Group group{named(name), sex, {}};
        for (qint32 age = UnknownAge; age <= From50; ++age)
            group.codes.push_back(age * agesByChildren + children);
        groups.push_back(group);
    }
    return groups;
}

std::vector<Group> allGroups(const Reading& reading, const Settings& settings)
{
    constexpr auto male = static_cast<qint32>(Gender::Male), female = static_cast<qint32>(Gender::Female);
    std::vector<Group> all = groupsFor(male, "Viúvos");
    for (const Group& group : groupsFor(female, "Viúvas"))
        all.push_back(group);
    for (const auto& [period, name] : periodsOf(reading, {Again, Left}, settings))
        if (period != any) {
            all.push_back({"Viúvos de " + name, male, {any}, period});
            all.push_back({"Viúvas de " + name, female, {any}, period});
        }
    return all;
}

Reading::Spread spreadOf(const Reading& reading, quint16 which, const Group& group)
{
    std::map<qint32, qint64> days;
    Reading::Spread all;
    for (const qint32 code : group.codes) {
        const Reading::Spread part = reading.spread(which, 3, {group.period, group.sex, code, any});
        for (const auto& [day, n] : part.values.counts())
            days[day] += n;
        all.keys.insert(all.keys.end(), part.keys.begin(), part.keys.end());
    }
    all.values = statistics::Distribution(std::move(days));
    return all;
}

// Within so many months: the day that completes them counts in.
qint32 lastDayOf(int months)
{
    return static_cast<qint32>(std::lround(months * natality::daysOfAMonth));
}

Table intervals(const Reading& reading, const std::vector<Group>& groups)
{
    Table table{"intervalos",
                "Da viuvez ao novo casamento: quem voltou a casar",
                {textColumn("Grupo"), countColumn("Nº"), decimalColumn("Mediana", "meses"),
                 decimalColumn("1.º quartil", "meses"), decimalColumn("3.º quartil", "meses"),
                 decimalColumn("Média", "meses")},
                {},
                {"Só de quem voltou a casar: nada diz de quantos o fizeram. O mês tem 30,4375 dias."}};
    constexpr int limits[] = {3, 6, 12, 24};
    for (const int months : limits)
        table.columns.push_back(decimalColumn(QString("Até %1 meses").arg(months), "%"));
    for (const Group& group : groups) {
        const Reading::Spread days = spreadOf(reading, Interval, group);
        if (days.values.n() == 0) continue;
        const Reading::Part all{days.values.n(), days.keys};
        std::vector<Cell> row = {report::text(group.name),
                                 counted(all),
                                 medianCell(days, natality::daysOfAMonth),
                                 quantileCell(days, 0.25, natality::daysOfAMonth),
                                 quantileCell(days, 0.75, natality::daysOfAMonth),
                                 meanCell(days, natality::daysOfAMonth)};
        for (const int months : limits) {
            Reading::Part within;
            for (const qint32 code : group.codes)
                within += reading.within(Interval, 3, 0, lastDayOf(months) + 1, {group.period, group.sex, code, any});
            row.push_back(percent(within, all));
        }
        table.rows.push_back(row);
    }
    return table;
}

struct Curve
{
    std::vector<statistics::Step> steps = {};
    qint64 all = 0, atStart = 0, again = 0; // all: with those who are observed only later
    qint32 last = 0;                        // day on which somebody is still seen
    std::vector<Key> keys = {};
};

Curve curveOf(const Reading& reading, const Group& group)
{
    const Reading::Spread again = spreadOf(reading, Again, group), left = spreadOf(reading, Left, group);
    const Reading::Spread later = spreadOf(reading, Enter, group);
    std::map<qint32, statistics::Exits> exits;
    for (const auto& [day, n] : again.values.counts())
        exits[day].events += n;
    for (const auto& [day, n] : left.values.counts())
        exits[day].left += n;
    for (const auto& [day, n] : later.values.counts())
        exits[day].entered += n;
    Curve curve;
    curve.all = again.values.n() + left.values.n();
    curve.atStart = curve.all - later.values.n();
    curve.again = again.values.n();
    if (curve.all == 0) return curve;
    curve.steps = statistics::kaplanMeier(exits, curve.atStart);
    curve.last = exits.rbegin()->first;
    curve.keys = again.keys;
    curve.keys.insert(curve.keys.end(), left.keys.begin(), left.keys.end());
    return curve;
}

// The share who have remarried until then, in %. Nothing where nobody is followed so long, unless all have remarried,
// nor where nobody is observed from the beginning.
Cell remarriedUntil(const Curve& curve, qint32 day)
{
    static constexpr qint64 leastBase = 20;
    const double survival = statistics::survivalAt(curve.steps, day);
    if (curve.atStart == 0 || (day > curve.last && survival > 0)) return {};
    Cell cell = report::number((1 - survival) * 100, curve.keys);
    if (const auto interval = statistics::survivalIntervalAt(curve.steps, day))
        cell.interval = statistics::Interval{(1 - interval->high) * 100, (1 - interval->low) * 100};
    if (curve.all < leastBase) cell.standing = report::Standing::Grey;
    return cell;
}

Table chances(const Reading& reading, const std::vector<Group>& groups)
{
    Table table{"probabilidades",
                "Probabilidade de voltar a casar (Kaplan–Meier)",
                {textColumn("Grupo"), countColumn("Nº em observação"), countColumn("Voltaram a casar")},
                {},
                {"Da viuvez ao novo casamento; quem não casou sai na morte ou na última notícia de vida. Conta também "
                 "quem nunca voltou a casar. Quem só é observado mais tarde entra então.",
                 "“Alguma vez” é um mínimo: até onde alguém foi seguido. O mês tem 30,4375 dias."}};
    constexpr int limits[] = {12, 24, 60, 120};
    for (const int months : limits)
        table.columns.push_back(decimalColumn(QString("Até %1 meses").arg(months), "%"));
    table.columns.push_back(decimalColumn("Alguma vez", "%"));
    for (const Group& group : groups) {
        const Curve curve = curveOf(reading, group);
        if (curve.all == 0) continue;
        std::vector<Cell> row = {report::text(group.name), report::number(curve.all, curve.keys),
                                 report::number(curve.again, curve.keys)};
        for (const int months : limits)
            row.push_back(remarriedUntil(curve, lastDayOf(months)));
        row.push_back(remarriedUntil(curve, curve.last));
        table.rows.push_back(row);
    }
    return table;
}

Chart curves(const Reading& reading)
{
    Chart chart{"por-casar",
                "Viúvos e viúvas por voltar a casar",
                report::Drawing::Steps,
                "anos de viuvez",
                "ainda por casar (%)",
                {},
                {},
                {}};
    QStringList words;
    for (const auto& [sex, name] : {std::pair{Gender::Male, "Viúvos"}, std::pair{Gender::Female, "Viúvas"}}) {
        const Curve curve = curveOf(reading, {name, static_cast<qint32>(sex)});
        if (curve.atStart == 0) continue;
        report::Plot plot{name, {{0, 100, {}}}};
        for (const statistics::Step& step : curve.steps) {
            report::Point point{step.time / parish::daysOfAYear, step.survival * 100, {}};
            if (step.interval)
                point.interval = statistics::Interval{step.interval->low * 100, step.interval->high * 100};
            plot.points.push_back(point);
        }
        const double left = statistics::survivalAt(curve.steps, curve.last) * 100;
        plot.points.push_back({curve.last / parish::daysOfAYear, left, {}});
        words << QString("%1: %2 % por casar no fim da observação.").arg(name, decimalComma(left, 0));
        chart.plots.push_back(plot);
    }
    chart.described = words.join(' ');
    return chart;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    const std::vector<Group> groups = allGroups(reading, settings);
    std::vector<Figure> all = {intervals(reading, groups), chances(reading, groups)};
    if (const Chart chart = curves(reading); !chart.isEmpty()) all.emplace_back(chart);
    all.emplace_back(leftOutTable(reading, leftOut));
    return all;
}

} // namespace secondMarriages

} // namespace

const Subject remarriage = {
    "novo-casamento",
    "Nupcialidade",
    "Novo casamento dos viúvos",
    "Contam-se as uniões cujo fim se conhece e de que se sabe quem sobreviveu. A probabilidade segue todos os viúvos, "
    "desde a viuvez até ao novo casamento, à morte ou à última notícia de vida. O intervalo médio dos que voltaram a "
    "casar nada diz dos outros: leiam-se os dois.",
    secondMarriages::counts,
    secondMarriages::leftOut,
    secondMarriages::fill,
    secondMarriages::figures};

} // namespace study::indicators
