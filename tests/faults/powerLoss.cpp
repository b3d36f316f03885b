#include "powerLoss.h"

#include "reopening.h"

#include <QHash>
#include <QTextStream>

#include <algorithm>
#include <random>

namespace {

constexpr quint32 seedsOfOneRound = 3; // of a model that is drawn

// What the user had been told before the cut, and what he would have been told next.
Promise promiseAt(const Recording& recording, int cut)
{
    int before = 0;
    for (int i = 0; i < cut; ++i)
        if (recording.operations[i].did == Did::Mark) before = recording.marks[recording.operations[i].offset].state;
    int after = before;
    for (int i = cut; i < recording.operations.size(); ++i) {
        if (recording.operations[i].did != Did::Mark) continue;
        after = recording.marks[recording.operations[i].offset].state;
        break;
    }
    return {recording.states[before], recording.states[after]};
}

QString stepAt(const Recording& recording, int cut)
{
    for (int i = cut; i < recording.operations.size(); ++i)
        if (recording.operations[i].did == Did::Mark) return recording.operations[i].path;
    return "the end";
}

QString told(const Recording& recording, const Point& point)
{
    const bool last = point.cut == recording.operations.size();
    return QStringLiteral("--only \"%1\" --cut %2 --model %3 --seed %4 (in %5; before: %6)")
        .arg(recording.title)
        .arg(point.cut)
        .arg(::told(point.model))
        .arg(point.seed)
        .arg(stepAt(recording, point.cut), last ? QString("the end") : ::told(recording.operations[point.cut]));
}

QList<Point> round(const Recording& recording, quint32 firstSeed, bool drawnOnly)
{
    QList<Point> points;
    for (int cut = 0; cut <= recording.operations.size(); ++cut)
        for (const Model model : models) {
            if (drawnOnly && !isDrawn(model)) continue;
            const quint32 seeds = isDrawn(model) ? seedsOfOneRound : 1;
            for (quint32 i = 0; i < seeds; ++i)
                points << Point{cut, model, isDrawn(model) ? firstSeed + i : 0};
        }
    return points;
}

} // namespace

Recording weakened(Recording recording, Weakened how)
{
    recording.operations.removeIf([how](const Operation& operation) {
        return (operation.did == Did::SyncFolder && how != Weakened::No) ||
               (operation.did == Did::SyncFile && how == Weakened::AllSyncs);
    });
    return recording;
}

qsizetype pointsOfOneRound(const Recording& recording)
{
    return round(recording, 0, false).size();
}

QList<Point> pointsOf(const Recording& recording, qsizetype count, quint32 seed)
{
    QList<Point> points = round(recording, seed, false);
    if (points.size() > count) {
        std::shuffle(points.begin(), points.end(), std::mt19937(seed));
        points.resize(count);
    }
    for (quint32 next = seed + seedsOfOneRound; points.size() < count; next += seedsOfOneRound)
        points += round(recording, next, true);
    points.resize(count);
    std::stable_sort(points.begin(), points.end(), [](const Point& a, const Point& b) { return a.cut < b.cut; });
    return points;
}

Tally checkPoints(const Recording& recording, const QList<Point>& points, const QString& folder, int reports)
{
    Tally tally;
    Reopening reopening(recording, folder);
    DiskModel disk(recording);
    QHash<QByteArray, QStringList> known; // the same disk under the same promise
    Promise promise;
    int reached = -1;
    for (const Point& point : points) {
        if (point.cut != reached) {
            for (int i = std::max(0, reached); i < point.cut; ++i)
                disk.apply(recording.operations[i]);
            reached = point.cut;
            Promise now = promiseAt(recording, reached);
            if (!(now == promise)) known.clear();
            promise = std::move(now);
        }
        ++tally.points;
        const DiskImage image = disk.cut(point.model, point.seed);
        const QByteArray digest = image.digest();
        auto found = known.constFind(digest);
        if (found == known.constEnd()) {
            ++tally.disks;
            found = known.insert(digest, reopening.problems(image, promise));
        }
        if (found->isEmpty()) continue;
        if (++tally.failures <= reports)
            QTextStream(stdout) << "not ok " << told(recording, point) << "\n   " << found->join("\n   ") << '\n';
    }
    return tally;
}
