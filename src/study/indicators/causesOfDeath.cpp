#include "study/indicators/causes.h"
#include "study/indicators/deaths.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"

namespace study::indicators {

namespace {

namespace causesTold {

constexpr qint32 any = Reading::any;

// Period of the death, gender, the cause, 1 for a child under seven.
enum Count : quint16
{
    Told,
    Untold, // the first of the reasons
    Elsewhere,
    OutOfBooks
};
constexpr std::array<const char*, 4> names = {"causas", "sem-causa", "fora-da-freguesia", "fora-dos-livros"};
constexpr std::array<Reason, 3> reasons = {{{Untold, "causa não declarada"},
                                            {Elsewhere, "óbito fora da freguesia"},
                                            {OutOfBooks, "óbito fora dos livros ou numa lacuna"}}};

void countDeath(const parish::Person& person, const Study& study, Taker& taker)
{
    const Settings& settings = study.settings;
    const int year = person.death.middle().year();
    const Who who{&person, nullptr};
    if (!isAskedFor(person, study, taker, {Elsewhere, OutOfBooks})) return;
    const bool child = buriedAs(person) == Buried::Child;
    if (person.cause.simplified().isEmpty()) return taker.count({Untold}, who);
    taker.count(
        {Told, {periodOf(year, settings), numbered(person.gender), causeOf(person.cause, settings), child ? 1 : 0}},
        who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        if (person.death.isKnown()) countDeath(person, study, taker);
}

Table tableOf(const Reading& reading, qint32 period, const QString& id, const QString& title)
{
    Table table{id,
                title,
                {textColumn("Causa"), countColumn("Óbitos"), decimalColumn("De todos", "%"), countColumn("Homens"),
                 countColumn("Mulheres"), countColumn("Menores de 7")}};
    const auto all = reading.part(Told, {period, any, any, any});
    for (const qint32 cause : reading.values(Told, 2, {period, any, any, any})) {
        const auto some = reading.part(Told, {period, any, cause, any});
        table.rows.push_back({report::text(nameOfCause(cause)), counted(some), percent(some, all),
                              counted(reading.part(Told, {period, numbered(parish::Gender::Male), cause, any})),
                              counted(reading.part(Told, {period, numbered(parish::Gender::Female), cause, any})),
                              counted(reading.part(Told, {period, any, cause, 1}))});
    }
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    std::vector<report::Figure> all = {tableOf(reading, any, "causas", "Causas de morte")};
    for (const qint32 period : reading.values(Told, 0))
        all.push_back(tableOf(reading, period, QString("causas-%1").arg(period),
                              "Causas de morte: " + periodName(period, settings)));
    all.push_back(leftOutTable(reading, reasons));
    return all;
}

} // namespace causesTold

} // namespace

const Subject causesOfDeath = {
    "causas-de-morte",
    "Mortalidade",
    "Causas de morte",
    "Contam os óbitos da freguesia cujo acto diz a causa, pelas palavras dele. Cada causa entra no primeiro grupo de "
    "uma "
    "lista curta que uma das suas palavras indica; as que não indicam nenhum são outras. Nada se deduz: as palavras do "
    "tempo não são os diagnósticos de hoje.",
    causesTold::names,
    causesTold::reasons,
    causesTold::fill,
    causesTold::figures};

} // namespace study::indicators
