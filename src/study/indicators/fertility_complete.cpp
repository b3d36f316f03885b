// What complete families have had: the age at the last birth, their size, couples without a child.
#include "study/indicators/fertility.h"
#include "study/indicators/marriedLife.h"
#include "study/indicators/natality.h"

#include <algorithm>

namespace study::indicators {

using natality::Named;
using natality::Row;

namespace {

constexpr std::array<int, 5> marriedAt{15, 20, 25, 30, 35};
constexpr qint64 leastWomen = 20;
constexpr auto notComplete = "união, observação ou livros que não chegam à idade pedida da mulher";

QString marriedName(int age)
{
    if (age == marriedAt.front()) return "Casadas antes dos 20";
    return "Casadas aos " + (age == marriedAt.back() ? QString("35 ou mais") : groupName(age));
}

// All, by age at marriage (dimension 1), by cohort (dimension 2).
std::vector<Named> rowsOf(const Reading& reading, quint16 count, const Settings& settings)
{
    std::vector<Named> rows{{"Todas", Reading::everywhere}};
    for (const int age : marriedAt)
        rows.push_back({marriedName(age), {Reading::any, age, Reading::any, Reading::any}});
    for (Named& period : natality::periodsOf(reading, count, 2, settings))
        rows.push_back(std::move(period));
    return rows;
}

QString completeNote(const Settings& settings)
{
    return QString("Famílias completas: marido e mulher vivos, casados e observados até aos %1 anos da mulher.")
        .arg(settings.completeAge);
}

// Each family of the share that counts and is complete; tells why others aren't.
template <class Take>
void eachComplete(const Study& study, const Share& share, quint16 firstLack, quint16 incomplete, Taker& taker,
                  const Take& take)
{
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const MarriedLife life = marriedLifeOf(study.unions[i], study);
        countLack(life, firstLack, taker);
        if (!life.isCounted()) continue;
        if (life.isCompleteAt(study.settings.completeAge))
            take(life);
        else
            taker.count({incomplete, {}}, {nullptr, life.of->family});
    }
}

// Age at the last birth.

namespace last {

constexpr quint16 age = 0, childless = 1, incomplete = 2, firstLack = 3;
constexpr std::array<const char*, 3> ownNames{"ultimo-filho", "sem-filhos", "incompletas"};
constexpr auto counts = natality::joined(ownNames, lackNames);
constexpr std::array<const char*, 2> ownTold{"famílias completas sem filhos com data", notComplete};
constexpr auto whyNot = natality::reasonsFrom(childless, natality::joined(ownTold, lacksTold));

void countLast(const MarriedLife& life, const Settings& settings, Taker& taker)
{
    const std::vector<Birth> births = life.within();
    const Who couple{life.of->family->wife, life.of->family};
    if (births.empty()) return taker.count({childless, {}}, couple);
    const parish::Date& day = births.back().day;
    taker.count({age,
                 {natality::hundredthsOfAge(life.wifeBirth, day), groupAtMarriage(life.ageAtMarriage),
                  natality::cohortOf(life.marriage, day, settings)}},
                couple);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    eachComplete(study, share, firstLack, incomplete, taker,
                 [&](const MarriedLife& life) { countLast(life, study.settings, taker); });
}

Cell greyUnder(qint64 least, qint64 n, Cell cell)
{
    if (n < least && cell.standing == report::Standing::Sound) cell.standing = report::Standing::Grey;
    return cell;
}

Row rowOf(const Reading& reading, const Named& named)
{
    static constexpr int forty = 4000;
    const Reading::Spread ages = reading.spread(age, 0, named.at);
    const qint64 n = ages.values.n();
    const Cell young = report::share(ages.values.below(forty), n, 100, ages.keys);
    return {report::text(named.name),
            report::number(n, ages.keys),
            greyUnder(leastWomen, n, meanCell(ages, 100)),
            deviationCell(ages, 100),
            greyUnder(leastWomen, n, medianCell(ages, 100)),
            young};
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(lastBirth.title);
    Table table{"idade-ao-ultimo-filho",
                "Idade da mulher ao último filho",
                {textColumn("Mulheres"), countColumn("Número"), decimalColumn("Média", "anos"),
                 decimalColumn("Desvio-padrão", "anos"), decimalColumn("Mediana", "anos"),
                 decimalColumn("Antes dos 40 anos", "%")},
                {},
                {completeNote(settings) + " Com um filho, pelo menos.",
                 "Uma média abaixo de 38 ou 39 anos sugere que se parou de ter filhos."}};
    for (const Named& named : rowsOf(reading, age, settings))
        if (reading.sum(age, named.at) > 0 || named.at == Reading::everywhere)
            table.rows.push_back(rowOf(reading, named));
    std::map<qint32, qint64> years;
    const Reading::Spread ages = reading.spread(age, 0);
    for (const auto& [hundredths, n] : ages.values.counts())
        years[hundredths / 100] += n;
    std::vector<std::pair<QString, double>> values;
    if (!years.empty())
        for (qint32 year = years.begin()->first; year <= years.rbegin()->first; ++year)
            values.emplace_back(QString::number(year), static_cast<double>(years[year]));
    return {
        table,
        natality::bars("idades", "Mulheres pela idade ao último filho", "idade (anos completos)", "mulheres", values),
        leftOutTable(reading, whyNot)};
}

} // namespace last

// Size, and couples without a child.

namespace size {

// Of complete families: births, age at marriage, cohort. By groups of five years at marriage: 0, the group, cohort. Of
// all closed families: births or hundredths of a year, 0, cohort.
constexpr quint16 complete = 0, couples = 1, sterile = 2, closed = 3, duration = 4, incomplete = 5, firstLack = 6,
                  firstPlacing = firstLack + lacks;
constexpr std::array<const char*, 6> ownNames{"completas",         "casais-completos", "casais-sem-filhos",
                                              "familias-fechadas", "duracoes",         "incompletas"};
constexpr auto counts = natality::joined(natality::joined(ownNames, lackNames), placingNames);
constexpr std::array<const char*, 1> ownTold{notComplete};
constexpr auto whyNot =
    natality::reasonsFrom(incomplete, natality::joined(natality::joined(ownTold, lacksTold), placingsTold));
constexpr int most = 15; // and more

void countComplete(const MarriedLife& life, const Settings& settings, Taker& taker)
{
    const Who couple{life.of->family->wife, life.of->family};
    const qint32 cohort = periodOf(life.marriage.year(), settings);
    const int group = std::max(natality::groupOf(life.ageAtMarriage), marriedAt.front());
    taker.count({complete, {static_cast<qint32>(life.size()), groupAtMarriage(life.ageAtMarriage), cohort}}, couple);
    taker.count({couples, {0, group, cohort}}, couple);
    if (life.size() == 0 && life.placedAs(Placed::Before) == 0) taker.count({sterile, {0, group, cohort}}, couple);
    countPlacings(life, firstPlacing, taker);
}

void countClosed(const MarriedLife& life, const Settings& settings, Taker& taker)
{
    if (!life.isCounted() || !life.isReadThroughout || life.from != life.marriage || life.until != life.end) return;
    const qint32 cohort = periodOf(life.marriage.year(), settings);
    const Who couple{life.of->family->wife, life.of->family};
    taker.count({closed, {static_cast<qint32>(life.size()), 0, cohort}}, couple);
    taker.count({duration, {natality::hundredthsOfAge(life.marriage, life.end), 0, cohort}}, couple);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    eachComplete(study, share, firstLack, incomplete, taker,
                 [&](const MarriedLife& life) { countComplete(life, study.settings, taker); });
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i)
        countClosed(closedLifeOf(study.unions[i], study), study.settings, taker);
}

Table sizeTable(const Reading& reading, const Settings& settings)
{
    Table table{"descendencia-final",
                "Descendência final das famílias completas",
                {textColumn("Mulheres"), countColumn("Famílias"), countColumn("Nascimentos"),
                 decimalColumn("Média de filhos", "filhos", 2), decimalColumn("Desvio-padrão", "filhos", 2),
                 decimalColumn("Mediana", "filhos", 1)},
                {},
                {completeNote(settings) + " Contam as que não tiveram filhos.",
                 "Os filhos sem data de nascimento contam como nascidos no casamento."}};
    for (const Named& named : rowsOf(reading, complete, settings)) {
        const Reading::Spread sizes = reading.spread(complete, 0, named.at);
        if (sizes.values.n() == 0 && named.at != Reading::everywhere) continue;
        qint64 births = 0;
        for (const auto& [children, families] : sizes.values.counts())
            births += children * families;
        table.rows.push_back({report::text(named.name), report::number(sizes.values.n(), sizes.keys),
                              report::number(births, sizes.keys), meanCell(sizes, 1), deviationCell(sizes, 1),
                              medianCell(sizes, 1)});
    }
    return table;
}

Reading::Part ofSize(const Reading& reading, int children)
{
    Reading::Part part;
    for (const qint32 value : reading.values(complete, 0))
        if (value == children || (children == most && value > most))
            part += reading.part(complete, {value, Reading::any, Reading::any, Reading::any});
    return part;
}

QString sizeName(int children)
{
    return children == most ? QString("%1 e mais").arg(most) : QString::number(children);
}

Table spreadTable(const Reading& reading)
{
    Table table{"por-numero-de-filhos",
                "Famílias completas por número de filhos",
                {textColumn("Filhos"), countColumn("Famílias"), decimalColumn("Parte das famílias", "%")},
                {},
                {}};
    const Reading::Part all = reading.part(complete);
    for (int children = 0; children <= most; ++children) {
        const Reading::Part part = ofSize(reading, children);
        table.rows.push_back({report::text(sizeName(children)), counted(part), percent(part, all)});
    }
    return table;
}

Table sterilityTable(const Reading& reading, const Settings& settings)
{
    Table table{"sem-filhos",
                "Casais sem filhos, por idade da mulher ao casamento",
                {textColumn("Idade ao casamento"), countColumn("Casais"), countColumn("Sem filhos"),
                 decimalColumn("Parte sem filhos", "%")},
                {},
                {completeNote(settings),
                 "Um casal com filhos nascidos só antes do casamento não é estéril, e não conta entre os sem filhos."}};
    const auto add = [&](const QString& name, const Reading::At& at) {
        const Reading::Part all = reading.part(couples, at), none = reading.part(sterile, at);
        table.rows.push_back({report::text(name), counted(all), counted(none), percent(none, all)});
    };
    add("Todas", Reading::everywhere);
    for (const qint32 age : reading.values(couples, 1))
        add(groupName(age), {Reading::any, age, Reading::any, Reading::any});
    return table;
}

Table closedTable(const Reading& reading, const Settings& settings)
{
    Table table{"familias-fechadas",
                "Filhos de todas as famílias fechadas, qualquer que seja a duração da união",
                {textColumn("Coorte de casamento"), countColumn("Famílias"),
                 decimalColumn("Média de filhos", "filhos", 2), decimalColumn("Duração média da união", "anos")},
                {},
                {"Famílias com data de casamento e fim conhecido da união, seja ou não conhecida a idade da mulher."}};
    std::vector<Named> rows{{"Todas", Reading::everywhere}};
    for (Named& period : natality::periodsOf(reading, closed, 2, settings))
        rows.push_back(std::move(period));
    for (const Named& named : rows) {
        const Reading::Spread sizes = reading.spread(closed, 0, named.at);
        table.rows.push_back({report::text(named.name), report::number(sizes.values.n(), sizes.keys),
                              meanCell(sizes, 1), meanCell(reading.spread(duration, 0, named.at), 100)});
    }
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(completedSize.title);
    std::vector<std::pair<QString, double>> values;
    for (int children = 0; children <= most; ++children)
        values.emplace_back(sizeName(children), static_cast<double>(ofSize(reading, children).n));
    return {sizeTable(reading, settings),
            spreadTable(reading),
            natality::bars("filhos", "Famílias completas por número de filhos", "filhos", "famílias", values),
            sterilityTable(reading, settings),
            closedTable(reading, settings),
            leftOutTable(reading, whyNot)};
}

} // namespace size

} // namespace

const Subject lastBirth = {
    .id = "idade-ao-ultimo-filho",
    .group = "Fecundidade",
    .title = "Idade da mulher ao último filho",
    .method =
        "Contam as famílias completas com um filho pelo menos: casamento, fim da união e nascimento da mulher "
        "conhecidos, e os dois vivos e casados até aos 50 (ou 45) anos dela. A idade é exacta, do nascimento da "
        "mulher ao do último filho legítimo. As famílias que acabam mais cedo não contam, pois o seu último filho "
        "depende de quando acabaram.",
    .counts = last::counts,
    .reasons = last::whyNot,
    .fill = last::fill,
    .figures = last::figures,
};

const Subject completedSize = {
    .id = "descendencia-final",
    .group = "Fecundidade",
    .title = "Descendência final e casais sem filhos",
    .method =
        "Contam as famílias completas, também as que não tiveram filhos: casamento, fim da união e nascimento da "
        "mulher conhecidos, e os dois vivos e casados até aos 50 (ou 45) anos dela. Contam-se os filhos legítimos "
        "nascidos no casamento, os póstumos até 300 dias também. Ao lado, todas as famílias fechadas, com a "
        "duração média da união.",
    .counts = size::counts,
    .reasons = size::whyNot,
    .fill = size::fill,
    .figures = size::figures,
};

} // namespace study::indicators
