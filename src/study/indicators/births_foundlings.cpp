// Foundlings: how many, when, and how long they are seen to live.
#include "study/indicators/births.h"
#include "study/indicators/childhood.h"
#include "study/indicators/natality.h"
#include "study/indicators/seasonality.h"
#include "study/observation/limits.h"
#include "study/statistics/survival.h"

#include <algorithm>

namespace study::indicators {

using parish::Date;
using parish::Person;

namespace {

namespace exposed {

// Foundlings: period. By month: month. Died, or left observation: days.
constexpr quint16 found = 0, byMonth = 1, died = 2, left = 3, unseen = 4, firstReason = 5;
constexpr std::array<const char*, 5> ownNames{"expostos", "por-mes", "mortos", "saidos-de-observacao",
                                              "sem-observacao"};
constexpr auto counts = natality::joined(ownNames, natality::noBirthNames);
constexpr std::array<const char*, 1> ownTold{"expostos sem data exacta ou sem observação (fora da sobrevivência)"};
constexpr auto whyNot = natality::reasonsFrom(unseen, natality::joined(ownTold, natality::noBirthTold));

// As every child: the own death never proves that somebody was there to be seen to die. Who is counted where it dies,
// and not where it lives on, makes too few survive.
void countSurvival(const Person& child, const Study& study, Taker& taker)
{
    const Who who{&child, child.origin};
    const Date& death = child.death;
    const bool exact = child.birth.isExact() && (!death.isKnown() || death.isExact());
    if (!exact || (death.isKnown() && death.day < child.birth.day)) return taker.count({unseen, {}}, who);
    const Date typed = observation::typedFrom(child), seen = seenUntil(child, study);
    const bool isLater = typed.isKnown() && typed.middle() > child.birth.middle();
    if (isLater || !seen.isKnown() || seen.middle() <= child.birth.middle()) return taker.count({unseen, {}}, who);
    const bool dies = death.isKnown() && death.middle() <= seen.middle();
    taker.count({dies ? died : left, {parish::daysBetween(child.birth, dies ? death : seen)}}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    natality::eachBirth(study, share, firstReason, false, taker, [&](const Person& child) {
        if (legitimacyOf(child, study.settings) != Legitimacy::Foundling) return;
        const Who who{&child, child.origin};
        taker.count({found, {periodOf(child.birth.year(), study.settings)}}, who);
        if (const auto month = monthOf(child.birth)) taker.count({byMonth, {*month}}, who);
        countSurvival(child, study, taker);
    });
}

Table numberTable(const Reading& reading, const Settings& settings)
{
    Table table{"expostos", "Expostos", {textColumn("Período"), countColumn("Expostos")}, {}, {}};
    table.rows.push_back({report::text("Todos"), counted(reading.part(found))});
    for (const natality::Named& period : natality::periodsOf(reading, found, 0, settings))
        table.rows.push_back({report::text(period.name), counted(reading.part(found, period.at))});
    return table;
}

Table survivalTable(const Reading& reading)
{
    static constexpr qint64 least = 20;
    const Reading::Spread dead = reading.spread(died, 0), gone = reading.spread(left, 0);
    std::map<qint32, statistics::Exits> exits;
    for (const auto& [days, n] : dead.values.counts())
        exits[days].events += n;
    for (const auto& [days, n] : gone.values.counts())
        exits[days].left += n;
    const qint64 all = dead.values.n() + gone.values.n();
    std::vector<Key> keys = dead.keys;
    keys.insert(keys.end(), gone.keys.begin(), gone.keys.end());
    Table table{"sobrevivencia",
                "Sobrevivência dos expostos (Kaplan–Meier)",
                {textColumn("Até à idade de"), countColumn("Mortos antes"), decimalColumn("Sobreviventes", "%")},
                {},
                {QString("Expostos seguidos: %1; saem no último dia em que a família que os criou é vista.").arg(all)}};
    if (all == 0) return table;
    const std::vector<statistics::Step> steps = statistics::kaplanMeier(exits, all);
    const std::pair<const char*, qint32> ends[]{{"1 mês", 31}, {"1 ano", 366}, {"5 anos", 1827}, {"10 anos", 3653}};
    const qint32 last = exits.rbegin()->first; // nobody is followed any longer
    for (const auto& [name, end] : ends) {
        const bool isFollowed = end - 1 <= last || statistics::survivalAt(steps, last) == 0;
        Cell cell = report::number(100 * statistics::survivalAt(steps, end - 1), keys);
        if (const auto interval = statistics::survivalIntervalAt(steps, end - 1);
            interval && all >= least && isFollowed)
            cell.interval = statistics::Interval{100 * interval->low, 100 * interval->high};
        if (all < least || !isFollowed) cell.standing = report::Standing::Suppressed;
        table.rows.push_back(
            {report::text(QString::fromUtf8(name)), report::number(dead.values.below(end), dead.keys), cell});
    }
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(foundlings.title);
    std::vector<report::Figure> all{numberTable(reading, settings)};
    for (report::Figure& figure :
         monthFigures(reading, {"expostos-por-mes", "Expostos por mês", "expostos", byMonth, 0, {{}}}))
        all.push_back(std::move(figure));
    all.emplace_back(survivalTable(reading));
    all.emplace_back(leftOutTable(reading, whyNot));
    return all;
}

} // namespace exposed

} // namespace

const Subject foundlings = {
    .id = "expostos",
    .group = "Nascimentos",
    .title = "Expostos",
    .method = "Contam as pessoas baptizadas na paróquia cuja filiação é de exposto, ou que vêm de uma família de "
              "acolhimento. A sobrevivência vai do nascimento ao óbito, em datas exactas, enquanto a família que os "
              "criou é vista "
              "por actos que não são os do próprio; sem ela ficam fora. Os expostos saem cedo para as amas, e poucos "
              "são seguidos.",
    .counts = exposed::counts,
    .reasons = exposed::whyNot,
    .fill = exposed::fill,
    .figures = exposed::figures,
};

} // namespace study::indicators
