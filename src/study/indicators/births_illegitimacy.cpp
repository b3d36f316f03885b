// Births out of wedlock, and their mothers.
#include "study/indicators/births.h"
#include "study/indicators/natality.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators {

using natality::Row;
using parish::Date;
using parish::Family;
using parish::Person;

namespace {

namespace outOfWedlock {

// Births: legitimacy, period. Illegitimate ones: whether the father is known, period. Mothers: illegitimate births, and
// whether they married behind the first. Ages: hundredths at the first of them.
constexpr quint16 births = 0, fathers = 1, mothers = 2, ages = 3, unmapped = 4, motherless = 5, firstReason = 6;
constexpr std::array<const char*, 6> ownNames{"nascimentos",  "pai-conhecido",         "maes",
                                              "idade-da-mae", "filiacao-desconhecida", "sem-mae"};
constexpr auto counts = natality::joined(ownNames, natality::noBirthNames);
constexpr std::array<const char*, 2> ownTold{"nascimentos de filiação desconhecida (fora de ambas as partes)",
                                             "nascimentos ilegítimos sem mãe conhecida"};
constexpr auto whyNot = natality::reasonsFrom(unmapped, natality::joined(ownTold, natality::noBirthTold));

void countBirth(const Person& child, const Study& study, Taker& taker)
{
    const Legitimacy legitimacy = legitimacyOf(child, study.settings);
    const qint32 period = periodOf(child.birth.year(), study.settings);
    const Who who{&child, child.origin};
    taker.count({births, {static_cast<qint32>(legitimacy), period}}, who);
    if (legitimacy == Legitimacy::Unknown) taker.count({unmapped, {}}, who);
    if (legitimacy != Legitimacy::Illegitimate) return;
    taker.count({fathers, {child.father() ? 1 : 0, period}}, who);
    if (!child.mother()) taker.count({motherless, {}}, who);
}

// Those of her children who were counted as illegitimate, by birth.
std::vector<const Person*> illegitimateOf(const Person& mother, const Study& study)
{
    std::vector<const Person*> children;
    const Family* last = nullptr;
    for (const parish::Membership* row : mother.unions) {
        if (!row->family || row->family->wife != &mother || row->family == last) continue;
        last = row->family; // a row that stands twice is one family
        for (const Person* child : row->family->children)
            if (natality::lackOfBirth(*child, study, false) == natality::NoBirth::None &&
                legitimacyOf(*child, study.settings) == Legitimacy::Illegitimate)
                children.push_back(child);
    }
    std::stable_sort(children.begin(), children.end(), [](const Person* one, const Person* other) {
        return one->birth.middle() < other->birth.middle();
    });
    return children;
}

bool marriedBehind(const Person& mother, const Date& birth)
{
    return std::any_of(mother.unions.begin(), mother.unions.end(), [&](const parish::Membership* row) {
        return row->family && row->family->marriage.isKnown() && row->family->marriage.middle() > birth.middle();
    });
}

void countMother(const Person& mother, const Study& study, Taker& taker)
{
    const std::vector<const Person*> children = illegitimateOf(mother, study);
    if (children.empty()) return;
    const Date& first = children.front()->birth;
    const Who who{&mother, children.front()->origin};
    taker.count({mothers, {static_cast<qint32>(children.size()), marriedBehind(mother, first) ? 1 : 0}}, who);
    if (mother.birth.isKnown() && mother.birth.middle() < first.middle())
        taker.count({ages, {natality::hundredthsOfAge(mother.birth, first)}}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    natality::eachBirth(study, share, firstReason, false, taker,
                        [&](const Person& child) { countBirth(child, study, taker); });
    for (const parish::Person& person : peopleOf(study, share))
        countMother(person, study, taker);
}

Row rowOf(const Reading& reading, const QString& name, qint32 period)
{
    const auto of = [&](Legitimacy legitimacy) {
        return reading.part(births, {static_cast<qint32>(legitimacy), period, Reading::any, Reading::any});
    };
    const Reading::Part legitimate = of(Legitimacy::Legitimate), legitimised = of(Legitimacy::Legitimised),
                        illegitimate = of(Legitimacy::Illegitimate), foundling = of(Legitimacy::Foundling),
                        unknown = of(Legitimacy::Unknown);
    Reading::Part all = legitimate;
    all += legitimised;
    all += illegitimate;
    return {report::text(name),         counted(legitimate), counted(legitimised), counted(illegitimate),
            percent(illegitimate, all), counted(foundling),  counted(unknown)};
}

Table ratioTable(const Reading& reading, const Settings& settings)
{
    Table table{"ilegitimidade",
                "Nascimentos ilegítimos",
                {textColumn("Período"), countColumn("Legítimos"), countColumn("Legitimados"), countColumn("Ilegítimos"),
                 decimalColumn("Ilegítimos entre os três", "%"), countColumn("Expostos, à parte"),
                 countColumn("Filiação desconhecida, à parte")},
                {},
                {"Os expostos não entram na razão, pois vêm também de fora; os de filiação desconhecida também não."}};
    table.rows.push_back(rowOf(reading, "Todos", Reading::any));
    for (const qint32 period : reading.values(births, 1))
        table.rows.push_back(rowOf(reading, periodName(period, settings), period));
    return table;
}

report::Chart ratioChart(const Reading& reading, const Settings& settings)
{
    std::vector<std::pair<QString, double>> values;
    for (const qint32 period : reading.values(births, 1)) {
        const Row row = rowOf(reading, periodName(period, settings), period);
        const Cell& ratio = row[4];
        if (const double* value = std::get_if<double>(&ratio.value);
            value && ratio.standing != report::Standing::Suppressed)
            values.emplace_back(periodName(period, settings), *value);
    }
    return natality::bars("razao", "Nascimentos ilegítimos por cem", "período", "%", values);
}

struct Mothers
{
    Reading::Part all = {}, repeaters = {}, married = {};
    qint64 births = 0, ofRepeaters = 0;
};

Mothers mothersOf(const Reading& reading)
{
    Mothers found;
    found.all = reading.part(mothers);
    found.married = reading.part(mothers, {Reading::any, 1, Reading::any, Reading::any});
    for (const qint32 children : reading.values(mothers, 0)) {
        const Reading::Part some = reading.part(mothers, {children, Reading::any, Reading::any, Reading::any});
        found.births += children * some.n;
        if (children < 2) continue;
        found.repeaters += some;
        found.ofRepeaters += children * some.n;
    }
    return found;
}

Table motherTable(const Reading& reading)
{
    const Mothers found = mothersOf(reading);
    const Reading::Spread years = reading.spread(ages, 0);
    const Reading::Part named = reading.part(fathers, {1, Reading::any, Reading::any, Reading::any}),
                        all = reading.part(fathers);
    Table table{"maes-de-ilegitimos",
                "Mães e pais de filhos ilegítimos",
                {textColumn("Medida"), countColumn("Número"), countColumn("Base"), decimalColumn("Parte", "%"),
                 decimalColumn("Média", "anos")},
                {},
                {}};
    const auto add = [&](const char* name, const Reading::Part& part, const Reading::Part& base) {
        table.rows.push_back(
            {report::text(QString::fromUtf8(name)), counted(part), counted(base), percent(part, base), {}});
    };
    add("Mães com dois filhos ilegítimos ou mais", found.repeaters, found.all);
    table.rows.push_back({report::text("Nascimentos ilegítimos dessas mães"),
                          report::number(found.ofRepeaters, found.repeaters.keys),
                          report::number(found.births, found.all.keys),
                          report::share(found.ofRepeaters, found.births, 100, found.repeaters.keys),
                          {}});
    add("Mães que casaram depois", found.married, found.all);
    add("Nascimentos ilegítimos com pai conhecido", named, all);
    table.rows.push_back({report::text("Idade da mãe ao primeiro filho ilegítimo"),
                          report::number(years.values.n(), years.keys),
                          counted(found.all),
                          {},
                          meanCell(years, 100)});
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(illegitimacy.title);
    return {ratioTable(reading, settings), ratioChart(reading, settings), motherTable(reading),
            leftOutTable(reading, whyNot)};
}

} // namespace outOfWedlock

} // namespace

const Subject illegitimacy = {
    .id = "ilegitimidade",
    .group = "Nascimentos",
    .title = "Nascimentos ilegítimos",
    .method =
        "Ilegítimos por cem nascidos na paróquia, pela filiação do baptismo, como o estudo a agrupa; onde ela não "
        "diz nada, pela situação da família de origem. Legitimados, expostos e desconhecidos contam-se à parte, e "
        "os dois últimos não entram na razão. As mães são as dos nascimentos contados.",
    .counts = outOfWedlock::counts,
    .reasons = outOfWedlock::whyNot,
    .fill = outOfWedlock::fill,
    .figures = outOfWedlock::figures,
};

} // namespace study::indicators
