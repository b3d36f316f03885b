// Births and conceptions by the month.
#include "study/indicators/births.h"
#include "study/indicators/confinements.h"
#include "study/indicators/natality.h"
#include "study/indicators/seasonality.h"

namespace study::indicators {

using parish::Person;

namespace {

namespace birthMonths {

// Month, period. Quarters: quarter, period; approximate days as well.
constexpr quint16 births = 0, conceptions = 1, firstBirths = 2, quarters = 3, monthless = 4, firstReason = 5;
constexpr std::array<const char*, 5> ownNames{"nascimentos", "concepcoes", "primeiros-filhos", "trimestres", "sem-mes"};
constexpr auto counts = natality::joined(ownNames, natality::noBirthNames);
constexpr std::array<const char*, 1> ownTold{"nascimentos em data aproximada (fora da conta por meses)"};
constexpr auto whyNot = natality::reasonsFrom(monthless, natality::joined(ownTold, natality::noBirthTold));

// Of a couple whose children have all an exact birth; another one could have been born before.
bool isFirst(const Person& child)
{
    return child.origin && child.origin->husband && child.origin->wife && hasExactBirths(*child.origin) &&
           child.origin->children.front() == &child;
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    natality::eachBirth(study, share, firstReason, true, taker, [&](const Person& child) {
        const Who who{&child, child.origin};
        const qint32 period = periodOf(child.birth.year(), study.settings);
        if (const auto quarter = quarterOf(child.birth)) taker.count({quarters, {*quarter, period}}, who);
        const auto month = monthOf(child.birth);
        if (!month) return taker.count({monthless, {}}, who);
        taker.count({births, {*month, period}}, who);
        taker.count({conceptions, {monthOfConception(*month), period}}, who);
        if (isFirst(child)) taker.count({firstBirths, {*month, period}}, who);
    });
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(birthSeasons.title);
    ByMonth shown[]{
        {"nascimentos", "Nascimentos por mês", "nascimentos", births, 0, {{}}},
        {"concepcoes", "Concepções por mês (nove meses antes do nascimento)", "concepções", conceptions, 0, {{}}},
        {"primeiros-filhos", "Primeiros filhos por mês do nascimento", "primeiros filhos", firstBirths, 0, {{}}}};
    for (const natality::Named& period : natality::periodsOf(reading, births, 1, settings))
        shown[0].groups.push_back({period.name, period.at});
    std::vector<report::Figure> all;
    for (const ByMonth& one : shown)
        for (report::Figure& figure : monthFigures(reading, one))
            all.push_back(std::move(figure));
    ByMonth byQuarter{"trimestres", "Nascimentos por trimestre", "nascimentos", quarters, 0, {{}}};
    all.emplace_back(quarterTable(reading, byQuarter));
    all.emplace_back(leftOutTable(reading, whyNot));
    return all;
}

} // namespace birthMonths

} // namespace

const Subject birthSeasons = {
    .id = "nascimentos-por-mes",
    .group = "Nascimentos",
    .title = "Nascimentos e concepções por mês",
    .method =
        "Contam os nascidos na paróquia com data exacta; por trimestre também os de data aproximada, se não é só o "
        "ano. As concepções são os nascimentos nove meses antes. O índice é por dia: 100 é a média do ano; pedem-se "
        "100 nascimentos, e as datas podem ser de baptismos.",
    .counts = birthMonths::counts,
    .reasons = birthMonths::whyNot,
    .fill = birthMonths::fill,
    .figures = birthMonths::figures,
};

} // namespace study::indicators
