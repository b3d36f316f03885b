// Ages of the parents at the births of their children.
#include "study/indicators/births.h"
#include "study/indicators/natality.h"

#include <algorithm>

namespace study::indicators {

using natality::Row;
using parish::Person;

namespace {

namespace parenthood {

// Hundredths of a year, rank of the birth, period.
constexpr quint16 motherByBirth = 0, fatherByBirth = 1, motherTold = 2, fatherTold = 3, noMother = 4, noFather = 5,
                  orphan = 6, firstReason = 7;
constexpr std::array<const char*, 7> ownNames{"mae-pelo-registo", "pai-pelo-registo", "mae-declarada", "pai-declarada",
                                              "mae-sem-idade",    "pai-sem-idade",    "sem-familia"};
constexpr auto counts = natality::joined(ownNames, natality::noBirthNames);
constexpr std::array<const char*, 3> ownTold{"nascimentos sem idade da mãe", "nascimentos sem idade do pai",
                                             "nascimentos sem família de origem"};
constexpr auto whyNot = natality::reasonsFrom(noMother, natality::joined(ownTold, natality::noBirthTold));
constexpr qint32 lastRank = 10; // and later

// Among the births of the family that have a date; both of twins have the rank of the first.
qint32 rankOf(const Person& child)
{
    qint32 rank = 1;
    for (const Person* sibling : child.origin->children)
        if (sibling->birth.isKnown() && sibling->birth.middle() < child.birth.middle()) ++rank;
    return std::min(rank, lastRank);
}

struct Parent
{
    const Person* person = nullptr;
    parish::Code told = {};
    quint16 byBirth = 0, byTelling = 0, without = 0;
};

void countParent(const Person& child, const Parent& parent, const Settings& settings, Taker& taker)
{
    static constexpr qint32 year = 100, half = 50;
    const Who who{&child, child.origin};
    const qint32 rank = rankOf(child), period = periodOf(child.birth.year(), settings);
    const auto isBorn = [&] { return parent.person && parent.person->birth.isKnown(); };
    if (isBorn() && parent.person->birth.middle() < child.birth.middle())
        taker.count({parent.byBirth, {natality::hundredthsOfAge(parent.person->birth, child.birth), rank, period}},
                    who);
    else if (parent.told.value_or(0) > 0) // an age that was cleared is 0
        taker.count({parent.byTelling, {*parent.told * year + half, rank, period}}, who);
    else
        taker.count({parent.without, {}}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    natality::eachBirth(study, share, firstReason, true, taker, [&](const Person& child) {
        if (!child.origin) return taker.count({orphan, {}}, {&child, nullptr});
        countParent(child, {child.mother(), child.motherAge, motherByBirth, motherTold, noMother}, study.settings,
                    taker);
        countParent(child, {child.father(), child.fatherAge, fatherByBirth, fatherTold, noFather}, study.settings,
                    taker);
    });
}

Row rowOf(const Reading& reading, const QString& name, const Reading::At& at, quint16 mother, quint16 father)
{
    Row row{report::text(name)};
    for (const quint16 count : {mother, father}) {
        const Reading::Spread years = reading.spread(count, 0, at);
        row.push_back(report::number(years.values.n(), years.keys));
        row.push_back(meanCell(years, 100));
        row.push_back(deviationCell(years, 100));
    }
    return row;
}

QString rankName(qint32 rank)
{
    return rank == lastRank ? QString("%1.º e seguintes").arg(rank) : QString("%1.º").arg(rank);
}

Table tableOf(const QString& id, const QString& title, const Reading& reading, quint16 mother, quint16 father,
              const Settings& settings)
{
    Table table{id,
                title,
                {textColumn("Filho"), countColumn("Mães"), decimalColumn("Idade média da mãe", "anos"),
                 decimalColumn("Desvio-padrão da mãe", "anos"), countColumn("Pais"),
                 decimalColumn("Idade média do pai", "anos"), decimalColumn("Desvio-padrão do pai", "anos")},
                {},
                {}};
    const auto add = [&](const QString& name, const Reading::At& at) {
        if (reading.sum(mother, at) + reading.sum(father, at) > 0)
            table.rows.push_back(rowOf(reading, name, at, mother, father));
    };
    add("Todos", Reading::everywhere);
    for (qint32 rank = 1; rank <= lastRank; ++rank)
        add(rankName(rank), {Reading::any, rank, Reading::any, Reading::any});
    std::vector<qint32> periods = reading.values(mother, 2);
    for (const qint32 period : reading.values(father, 2))
        periods.push_back(period);
    std::sort(periods.begin(), periods.end());
    periods.erase(std::unique(periods.begin(), periods.end()), periods.end());
    for (const qint32 period : periods)
        add(periodName(period, settings), {Reading::any, Reading::any, period, Reading::any});
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(parentsAge.title);
    Table told = tableOf("idades-declaradas", "Idade dos pais ao nascimento dos filhos, declarada no baptismo", reading,
                         motherTold, fatherTold, settings);
    told.notes << "Só de pais sem data de nascimento. A um número de anos completos soma-se meio ano.";
    return {
        tableOf("idades", "Idade dos pais ao nascimento dos filhos", reading, motherByBirth, fatherByBirth, settings),
        told, leftOutTable(reading, whyNot)};
}

} // namespace parenthood

} // namespace

const Subject parentsAge = {
    .id = "idade-dos-pais",
    .group = "Nascimentos",
    .title = "Idade dos pais ao nascimento dos filhos",
    .method =
        "Idade exacta da mãe e do pai ao nascimento de cada filho nascido na paróquia, pela data de nascimento "
        "deles; as idades que o baptismo declara são uma tabela à parte. A ordem é entre os filhos da mesma família "
        "com data. Contam as famílias todas, também as que não são fechadas.",
    .counts = parenthood::counts,
    .reasons = parenthood::whyNot,
    .fill = parenthood::fill,
    .figures = parenthood::figures,
};

} // namespace study::indicators
