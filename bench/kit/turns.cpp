#include "kit/turns.h"

#include "kit/figures.h"
#include "kit/settle.h"
#include "kit/traffic.h"

#include <malloc.h>

namespace bench {

namespace {

// The work, then what waits to be painted.
void timeSide(Side& side, const std::function<void()>& work, const std::function<void()>& paint)
{
    const Spent event = spentBy(work);
    side.event += event;
    side.painted += event + spentBy(paint);
}

void countSide(Side& side, sqlite3* handle, const std::function<void()>& work)
{
    const Traffic traffic = trafficOf(handle, work);
    side.traffic.statements += traffic.statements;
    side.traffic.rows += traffic.rows;
    side.traffic.changes += traffic.changes;
}

double inUse()
{
    return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd) / 1024;
}

double each(double value, int times)
{
    return value / times;
}

// The medians of one figure of all turns.
double medianOf(const std::vector<Side>& turns, const std::function<double(const Side&)>& figure, int times)
{
    std::vector<double> figures;
    figures.reserve(turns.size());
    for (const Side& turn : turns)
        figures.push_back(figure(turn));
    return each(median(figures), times);
}

Side medians(const std::vector<Side>& turns, const Traffic& traffic, int times)
{
    const auto of = [&](const std::function<double(const Side&)>& figure) { return medianOf(turns, figure, times); };
    return {
        .event = {of([](const Side& s) { return s.event.wall; }), of([](const Side& s) { return s.event.cpu; })},
        .painted = {of([](const Side& s) { return s.painted.wall; }), of([](const Side& s) { return s.painted.cpu; })},
        .traffic = traffic};
}

// The processor's: the disk gets slower and quicker for reasons of its own.
std::vector<double> processorTimes(const std::vector<Side>& turns)
{
    std::vector<double> times;
    times.reserve(turns.size());
    for (const Side& turn : turns)
        times.push_back(turn.painted.cpu);
    return times;
}

} // namespace

void Turns::step(int step, Side& ours, Side& bare, bool counted)
{
    const auto side = [&](Side& of, sqlite3* handle, const std::function<void()>& work,
                          const std::function<void()>& paint) {
        if (!counted) return timeSide(of, work, paint);
        countSide(of, handle, [&] { timeSide(of, work, paint); });
    };
    sides_.prepare(step);
    settle();
    painted_.start();
    side(
        ours, sides_.ourHandle(), [&] { sides_.ours(step); }, settle);
    painted_.stop();
    paintedBare_.start();
    side(
        bare, sides_.bareHandle(), [&] { sides_.bare(step); },
        [&] {
            if (!sides_.showsItself(step)) painted_.askAgain();
            settle();
        });
    paintedBare_.stop();
    ours.traffic.painted += painted_.area();
    bare.traffic.painted += paintedBare_.area();
    sides_.finish(step);
    settle();
}

void Turns::run(Side& ours, Side& bare, bool counted)
{
    for (int i = 0; i < sides_.steps(); ++i)
        step(i, ours, bare, counted);
}

AtSize measured(const Measure& measure, int people)
{
    const std::unique_ptr<Sides> sides = measure.make(people);
    Turns turns(*sides);
    Side warming, ourCount, bareCount;
    turns.run(warming, warming);
    turns.run(ourCount, bareCount, true);

    std::vector<Side> ours(static_cast<std::size_t>(measure.turns)), bare(ours.size());
    std::vector<double> kept;
    for (std::size_t turn = 0; turn < ours.size(); ++turn) {
        const double before = inUse();
        turns.run(ours[turn], bare[turn]);
        kept.push_back(inUse() - before);
    }
    return {.ours = medians(ours, ourCount.traffic, measure.times),
            .bare = medians(bare, bareCount.traffic, measure.times),
            .drift = drift(processorTimes(ours)),
            .keptKb = each(median(kept), measure.times)};
}

} // namespace bench
