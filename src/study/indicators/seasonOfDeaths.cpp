#include "study/indicators/deaths.h"
#include "study/indicators/mortality.h"
#include "study/indicators/scope.h"
#include "study/indicators/seasonality.h"

namespace study::indicators {

namespace {

namespace deathSeasons {

constexpr qint32 any = Reading::any;

// Age class; month, or quarter.
enum Count : quint16
{
    Months,
    Quarters,
    Approximate, // the first of the reasons
    Elsewhere,
    OutOfBooks
};
constexpr std::array<const char*, 5> names = {"obitos-por-mes", "obitos-por-trimestre", "data-aproximada",
                                              "fora-da-freguesia", "fora-dos-livros"};
constexpr std::array<Reason, 3> reasons = {{{Approximate, "óbito sem data exacta: só conta por trimestre, se o tem"},
                                            {Elsewhere, "óbito fora da freguesia"},
                                            {OutOfBooks, "óbito fora dos livros ou numa lacuna"}}};

enum AgeClass : qint32
{
    Infants,
    Small,
    Young,
    Grown,
    Old,
    Minors, // under seven, of no known age
    Ageless
};
constexpr std::array<const char*, 7> classes = {
    "0 anos", "1–4 anos", "5–19 anos", "20–59 anos", "60 anos e mais", "menores de 7, sem idade", "idade desconhecida"};

qint32 classOf(const parish::Person& person)
{
    const AgeAtDeath age = ageAtDeathOf(person);
    if (!age.years) return age.isYoung(endOfInnocence + 1) ? Minors : Ageless;
    if (*age.years < 1) return Infants;
    if (*age.years < 5) return Small;
    if (*age.years < 20) return Young;
    return *age.years < 60 ? Grown : Old;
}

void countDeath(const parish::Person& person, const Study& study, Taker& taker)
{
    const Who who{&person, nullptr};
    if (!isAskedFor(person, study, taker, {Elsewhere, OutOfBooks})) return;
    const qint32 age = classOf(person);
    if (const auto quarter = quarterOf(person.death)) taker.count({Quarters, {age, *quarter}}, who);
    if (const auto month = monthOf(person.death))
        taker.count({Months, {age, *month}}, who);
    else
        taker.count({Approximate}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        if (person.death.isKnown()) countDeath(person, study, taker);
}

ByMonth shown(const QString& id, const QString& title, quint16 count)
{
    ByMonth shown{id, title, "óbitos", count, 1, {{"todas as idades"}}};
    for (std::size_t i = 0; i < classes.size(); ++i)
        shown.groups.push_back({classes[i], {static_cast<qint32>(i), any, any, any}});
    return shown;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings&)
{
    const Reading reading(tally);
    std::vector<report::Figure> all = monthFigures(reading, shown("obitos-por-mes", "Óbitos por mês", Months));
    all.push_back(quarterTable(reading, shown("obitos-por-trimestre", "Óbitos por trimestre", Quarters)));
    all.push_back(leftOutTable(reading, reasons));
    return all;
}

} // namespace deathSeasons

} // namespace

const Subject seasonOfDeaths = {
    "estacoes-dos-obitos",
    "Mortalidade",
    "Óbitos ao longo do ano",
    "Contam os óbitos da freguesia com data exacta, por mês e por grupo de idades; os de data aproximada só por "
    "trimestre. O índice é por dia, e 100 é a média do ano. Com menos de cem óbitos num grupo o acaso basta para fazer "
    "meses altos e baixos.",
    deathSeasons::names,
    deathSeasons::reasons,
    deathSeasons::fill,
    deathSeasons::figures};

} // namespace study::indicators
