#include "study/indicators/quotients.h"

#include <algorithm>

namespace study::indicators {

namespace {

constexpr double perThousand = 1000;
constexpr qint64 baseOfADecimal = 100;

} // namespace

Cell quotient(qint64 events, qint64 atRisk, const Base& base, std::vector<Key> from)
{
    if (atRisk <= 0) return {};
    const auto whole = static_cast<double>(atRisk);
    const auto part = static_cast<double>(std::min(events, atRisk));
    return estimated(part / whole, statistics::wilsonInterval(part, whole), atRisk, base, std::move(from));
}

Cell estimated(std::optional<double> probability, std::optional<statistics::Interval> interval, qint64 atRisk,
               const Base& base, std::vector<Key> from)
{
    if (!probability || atRisk <= 0) return {};
    Cell cell = report::number(*probability * perThousand, std::move(from));
    if (atRisk < baseOfADecimal) cell.decimals = 0;
    if (atRisk < base.sound) cell.standing = report::Standing::Grey;
    if (atRisk < base.least) cell.standing = report::Standing::Suppressed;
    if (interval && cell.standing != report::Standing::Suppressed)
        cell.interval = statistics::Interval{interval->low * perThousand, interval->high * perThousand};
    return cell;
}

Died diedBetween(const std::vector<statistics::Step>& steps, qint32 from, qint32 until)
{
    const double alive = from > 0 ? statistics::survivalAt(steps, from - 1) : 1;
    if (alive <= 0) return {};
    Died died{1 - statistics::survivalAt(steps, until - 1) / alive};
    if (const auto survival = statistics::survivalIntervalBetween(steps, from - 1, until - 1))
        died.interval = statistics::Interval{1 - survival->high, 1 - survival->low};
    return died;
}

Survival survivalOf(const Reading& reading, quint16 died, quint16 left, const Reading::At& at, int dimension)
{
    Survival of;
    const Reading::Spread deaths = reading.spread(died, dimension, at);
    const Reading::Spread leavings = reading.spread(left, dimension, at);
    for (const auto& [age, n] : deaths.values.counts())
        of.exits[age].events += n;
    for (const auto& [age, n] : leavings.values.counts())
        of.exits[age].left += n;
    of.atStart = deaths.values.n() + leavings.values.n();
    of.steps = statistics::kaplanMeier(of.exits, of.atStart);
    of.keys = {{died, at}, {left, at}};
    return of;
}

std::vector<Key> operator+(std::vector<Key> keys, const std::vector<Key>& more)
{
    keys.insert(keys.end(), more.begin(), more.end());
    return keys;
}

std::vector<Group> groupsOf(const Reading& reading, std::initializer_list<quint16> counts)
{
    std::vector<Group> groups;
    std::vector<qint32> periods;
    for (const quint16 count : counts)
        for (const qint32 period : reading.values(count, 0))
            periods.push_back(period);
    if (periods.empty()) return groups;
    std::sort(periods.begin(), periods.end());
    periods.erase(std::unique(periods.begin(), periods.end()), periods.end());
    periods.push_back(Reading::any);
    for (const qint32 period : periods)
        for (const qint32 gender :
             {Reading::any, static_cast<qint32>(parish::Gender::Male), static_cast<qint32>(parish::Gender::Female)})
            groups.push_back({period, gender});
    return groups;
}

QString told(const Group& group, const Settings& settings)
{
    const QString period = group.period == Reading::any ? "Todo o período" : periodName(group.period, settings);
    return group.gender == Reading::any ? period : period + ", " + genderTold(group.gender);
}

QString genderTold(qint32 gender)
{
    if (gender == Reading::any) return "ambos os sexos";
    if (gender == static_cast<qint32>(parish::Gender::Male)) return "homens";
    return gender == static_cast<qint32>(parish::Gender::Female) ? "mulheres" : "sexo indeterminado";
}

report::Plot plotOf(const QString& name, const std::vector<Cell>& cells)
{
    report::Plot plot{name};
    for (const Cell& cell : cells) {
        report::Point point{static_cast<double>(plot.points.size())};
        const double* value = std::get_if<double>(&cell.value);
        if (value && cell.standing != report::Standing::Suppressed) {
            point.y = *value;
            point.interval = cell.interval;
        }
        plot.points.push_back(point);
    }
    return plot;
}

} // namespace study::indicators
