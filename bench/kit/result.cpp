#include "kit/result.h"

#include "kit/figures.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace bench {

namespace {

constexpr double morePainting = 1.05; // one more pixel at an edge flatters nobody

double times(double ours, double bare)
{
    return bare > 0 ? ours / bare : 0;
}

QString number(double value)
{
    return QString::number(value, 'g', 3);
}

QString people(int count)
{
    return count > 0 ? QStringLiteral(" at %1 people").arg(count) : QString();
}

QStringList unfair(const AtSize& at, int count)
{
    const Traffic &ours = at.ours.traffic, &bare = at.bare.traffic;
    QStringList why;
    const auto more = [&](double theirs, double allowed, const char* what) {
        if (theirs > allowed)
            why << QStringLiteral("the bare side %1 more%2: %3 for %4")
                       .arg(QString::fromLatin1(what), people(count), number(theirs), number(allowed));
    };
    more(bare.rows, ours.rows, "reads");
    more(bare.changes, ours.changes, "writes");
    more(bare.painted, ours.painted * morePainting, "paints");
    return why;
}

QStringList tooSlow(const Goal& goal, const AtSize& at, int count)
{
    QStringList why;
    const double ms = ownTime(at);
    if (const double ratio = ratioWithPainting(at); goal.ratio > 0 && ratio > goal.ratio)
        why << QStringLiteral("%1 ×%2").arg(number(ratio), people(count));
    for (const auto& [size, limit] : goal.ms)
        if ((size == 0 || size == count) && ms > limit)
            why << QStringLiteral("%1 ms%2, more than %3").arg(number(ms), people(count), number(limit));
    if (goal.flat && ms > goal.most) why << QStringLiteral("%1 ms%2").arg(number(ms), people(count));
    if (goal.drift > 0 && at.drift > goal.drift)
        why << QStringLiteral("the last turns take %1 × the first%2").arg(number(at.drift), people(count));
    if (goal.keptKb >= 0 && at.keptKb > goal.keptKb)
        why << QStringLiteral("%1 kB kept a turn%2").arg(number(at.keptKb), people(count));
    return why;
}

} // namespace

double ratioWithPainting(const AtSize& result)
{
    return times(result.ours.painted.wall, result.bare.painted.wall);
}

double ratioWithoutPainting(const AtSize& result)
{
    return times(result.ours.event.wall, result.bare.event.wall);
}

double ratioOfProcessor(const AtSize& result)
{
    return times(result.ours.painted.cpu, result.bare.painted.cpu);
}

double ownTime(const AtSize& result)
{
    const Spent &ours = result.ours.painted, &bare = result.bare.painted;
    const double wait = result.bare.traffic.changes > 0 ? std::max(bare.wall - bare.cpu, 0.0) : 0;
    return std::max(ours.wall - wait, std::min(ours.wall, ours.cpu));
}

double exponentOf(const Results& results)
{
    std::vector<std::pair<double, double>> timesBySize;
    for (const auto& [count, at] : results)
        if (const double time = ownTime(at); count > 0 && time > 0) timesBySize.emplace_back(count, time);
    return exponent(timesBySize);
}

QString inWords(const Goal& goal)
{
    QStringList parts;
    if (goal.ratio > 0) parts << QStringLiteral("%1 ×").arg(number(goal.ratio));
    for (const auto& [size, limit] : goal.ms)
        parts << QStringLiteral("%1 ms%2").arg(number(limit), people(size));
    if (goal.flat) parts << QStringLiteral("flat");
    if (goal.drift > 0) parts << QStringLiteral("%1 × from the first turns to the last").arg(number(goal.drift));
    if (goal.keptKb >= 0) parts << QStringLiteral("%1 kB kept a turn").arg(number(goal.keptKb));
    return parts.isEmpty() ? QStringLiteral("–") : parts.join(QStringLiteral(", "));
}

QStringList missed(const Goal& goal, const Results& results)
{
    QStringList why;
    for (const auto& [count, at] : results)
        why << unfair(at, count) << tooSlow(goal, at, count);
    if (const double power = exponentOf(results); goal.flat && power > flatExponent)
        why << QStringLiteral("exponent %1").arg(number(power));
    return why;
}

} // namespace bench
