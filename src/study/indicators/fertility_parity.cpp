// From one birth to the next: how many go on.
#include "study/indicators/fertility.h"
#include "study/indicators/marriedLife.h"
#include "study/indicators/natality.h"
#include "study/statistics/survival.h"

namespace study::indicators {

using natality::Row;
using statistics::Exits;

namespace {

namespace parities {

// Complete families: births, 0, cohort. From one birth to the next, or to the end of observation: births had, days.
constexpr quint16 complete = 0, next = 1, left = 2, incomplete = 3, undated = 4, late = 5, firstLack = 6;
constexpr std::array<const char*, 6> ownNames{"completas",   "seguintes",      "sem-seguinte",
                                              "incompletas", "filho-sem-data", "observacao-tardia"};
constexpr auto counts = natality::joined(ownNames, lackNames);
constexpr std::array<const char*, 3> ownTold{
    "união, observação ou livros que não chegam à idade pedida da mulher (fora das famílias completas)",
    "famílias com filhos sem data de nascimento (fora das estimativas por tempo)",
    "observação ou livros que não cobrem toda a união (fora das estimativas por tempo)"};
constexpr auto whyNot = natality::reasonsFrom(incomplete, natality::joined(ownTold, lacksTold));

// From the marriage to the first birth, and so on: a birth of twins is two steps.
void countSteps(const MarriedLife& life, Taker& taker)
{
    const Who couple{life.of->family->wife, life.of->family};
    if (life.placedAs(Placed::Undated) > 0) return taker.count({undated, {}}, couple);
    if (life.from != life.marriage || !life.isReadThroughout) return taker.count({late, {}}, couple);
    parish::Date last = life.marriage;
    qint32 had = 0;
    for (const Birth& birth : life.within()) {
        taker.count({next, {had++, parish::daysBetween(last, birth.day)}}, {birth.child, life.of->family});
        last = birth.day;
    }
    // A posthumous birth comes behind the end: nothing more is observed.
    taker.count({left, {had, std::max(0, parish::daysBetween(last, life.until))}}, couple);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const MarriedLife life = marriedLifeOf(study.unions[i], study);
        countLack(life, firstLack, taker);
        if (!life.isCounted()) continue;
        const Who couple{life.of->family->wife, life.of->family};
        const bool isComplete = life.isCompleteAt(study.settings.completeAge);
        const qint32 cohort = periodOf(life.marriage.year(), study.settings);
        taker.count(isComplete ? Key{complete, {static_cast<qint32>(life.size()), 0, cohort}} : Key{incomplete, {}},
                    couple);
        countSteps(life, taker);
    }
}

Reading::Part withAtLeast(const Reading& reading, qint32 births)
{
    Reading::Part part;
    for (const qint32 value : reading.values(complete, 0))
        if (value >= births) part += reading.part(complete, {value, Reading::any, Reading::any, Reading::any});
    return part;
}

QString stepName(qint32 births)
{
    return births == 0 ? QString("do casamento ao 1.º filho")
                       : QString("do %1.º ao %2.º filho").arg(births).arg(births + 1);
}

Table completeTable(const Reading& reading)
{
    Table table{"completas",
                "Probabilidade de aumentar a família, famílias completas",
                {textColumn("Passagem"), textColumn("Quociente"), countColumn("Com tantos filhos, pelo menos"),
                 countColumn("Com mais um, pelo menos"), decimalColumn("Probabilidade", "", 3)},
                {},
                {}};
    const Reading::Part all = withAtLeast(reading, 0);
    double product = 1, mean = 0;
    for (qint32 births = 0;; ++births) {
        const Reading::Part some = withAtLeast(reading, births), more = withAtLeast(reading, births + 1);
        if (some.n == 0) break;
        table.rows.push_back({report::text(stepName(births)), report::text(QString("a%1").arg(births)), counted(some),
                              counted(more), report::share(more.n, some.n, 1, some.keys)});
        product *= static_cast<double>(more.n) / static_cast<double>(some.n);
        mean += product;
        if (more.n == 0) break;
    }
    if (all.n > 0)
        table.notes << QString("A soma dos produtos sucessivos, %1 filhos, é a descendência média das %2 famílias.")
                           .arg(decimalComma(mean, 2))
                           .arg(all.n);
    return table;
}

struct Waits
{
    std::map<qint32, Exits> exits = {};
    qint64 n = 0, events = 0;
    std::vector<Key> keys = {};
};

Waits waitsOf(const Reading& reading, qint32 births)
{
    Waits waits;
    const Reading::At at{births, Reading::any, Reading::any, Reading::any};
    const Reading::Spread more = reading.spread(next, 1, at), gone = reading.spread(left, 1, at);
    for (const auto& [days, n] : more.values.counts())
        waits.exits[days].events += n;
    for (const auto& [days, n] : gone.values.counts())
        waits.exits[days].left += n;
    waits.n = more.values.n() + gone.values.n();
    waits.events = more.values.n();
    waits.keys = more.keys;
    waits.keys.insert(waits.keys.end(), gone.keys.begin(), gone.keys.end());
    return waits;
}

Cell wentOnWithin(int years, const Waits& waits)
{
    static constexpr qint64 least = 20;
    const auto time = static_cast<qint32>(years * parish::daysOfAYear);
    const std::vector<statistics::Step> steps = statistics::kaplanMeier(waits.exits, waits.n);
    Cell cell = report::number(1 - statistics::survivalAt(steps, time), waits.keys);
    if (waits.n < least) {
        cell.standing = report::Standing::Suppressed;
        return cell;
    }
    if (const auto interval = statistics::survivalIntervalAt(steps, time))
        cell.interval = statistics::Interval{1 - interval->high, 1 - interval->low};
    return cell;
}

Table timedTable(const Reading& reading)
{
    Table table{"por-tempo",
                "Probabilidade de aumentar a família, também com as famílias incompletas (Kaplan–Meier)",
                {textColumn("Passagem"), countColumn("Em risco no início"), countColumn("Com mais um"),
                 decimalColumn("Em 10 anos", "", 3), decimalColumn("Em 15 anos", "", 3)},
                {},
                {"As uniões que acabam, e as mulheres que chegam aos 50 anos, saem da observação nesse dia. Os gémeos "
                 "valem dois filhos."}};
    for (qint32 births = 0;; ++births) {
        const Waits waits = waitsOf(reading, births);
        if (waits.n == 0) break;
        table.rows.push_back({report::text(stepName(births)), report::number(waits.n, waits.keys),
                              report::number(waits.events, waits.keys), wentOnWithin(10, waits),
                              wentOnWithin(15, waits)});
    }
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings&)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(parityProgression.title);
    std::vector<std::pair<QString, double>> values;
    const Table table = completeTable(reading);
    for (const Row& row : table.rows)
        if (row.back().standing != report::Standing::Suppressed)
            if (const double* value = std::get_if<double>(&row.back().value))
                values.emplace_back(std::get<QString>(row[1].value), *value);
    return {table,
            natality::bars("quocientes", "Probabilidade de aumentar a família, famílias completas", "quociente",
                           "probabilidade", values),
            timedTable(reading), leftOutTable(reading, whyNot)};
}

} // namespace parities

} // namespace

const Subject parityProgression = {
    .id = "aumento-das-familias",
    .group = "Fecundidade",
    .title = "Probabilidade de aumentar a família",
    .method =
        "a(k) é a parte das famílias com k filhos, pelo menos, que tiveram mais um; nas famílias completas conta-se "
        "directamente. Com as incompletas estima-se pelo tempo até ao filho seguinte (Kaplan–Meier), saindo da "
        "observação no fim da união ou aos 50 anos da mulher. Os gémeos valem dois filhos.",
    .counts = parities::counts,
    .reasons = parities::whyNot,
    .fill = parities::fill,
    .figures = parities::figures,
};

} // namespace study::indicators
