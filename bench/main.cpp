// The benchmarks: a table of all of them, single ones, and the parishes that they work on (docs/performance.md).
#include "kit/measure.h"
#include "kit/table.h"
#include "measures/startup.h"
#include "parish/parish.h"
#include "quiet.h"
#include "shell/application.h"
#include "shell/startup.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace bench;

const QList<int> usualSizes{1000, 100'000, 1'000'000};

QList<int> sizesOf(const QString& list)
{
    QList<int> sizes;
    for (const QString& size : list.split(',', Qt::SkipEmptyParts))
        sizes << size.toInt();
    return sizes;
}

int makeOne(const QStringList& words)
{
    if (words.size() < 2) return EXIT_FAILURE;
    makeParish(words[0], words[1].toInt(), words.size() > 2 ? words[2].toUInt() : usualSeed);
    return EXIT_SUCCESS;
}

Results resultsOf(const Measure& measure, const QList<int>& sizes)
{
    Results results;
    for (const int people : measure.sized ? sizes : QList<int>{0})
        results[people] = measured(measure, people);
    return results;
}

// Writes each row when it is measured. Fails where a goal is missed.
int writeTable(const QString& only, const QList<int>& sizes)
{
    const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    int misses = 0;
    std::fputs(qPrintable(heading()), stdout);
    for (const Measure& measure : measures()) {
        if (!QString::fromUtf8(measure.name).contains(only)) continue;
        const QString event = QString::fromUtf8(measure.event);
        const Results results = resultsOf(measure, sizes);
        misses += missed(measure.goal, results).isEmpty() ? 0 : 1;
        std::fputs(qPrintable(row(event, measure.goal, results)), stdout);
        std::fputs(qPrintable(details(event, results)), stderr);
        std::fflush(stdout);
    }
    std::fprintf(stderr, "%d missed, after %lld s\n", misses, static_cast<long long>(clock.elapsed() / 1000));
    return misses > 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}

void registerAll()
{
    for (const Measure& measure : measures())
        for (const int people : measure.sized ? usualSizes : QList<int>{0})
            benchmark::RegisterBenchmark((measure.name + '/' + QByteArray::number(people)).constData(),
                                         [&measure, people](benchmark::State& state) {
                                             AtSize at;
                                             for ([[maybe_unused]] auto turn : state) {
                                                 at = measured(measure, people);
                                                 state.SetIterationTime(at.ours.painted.wall / 1e3);
                                             }
                                             state.counters["ratio"] = ratioWithPainting(at);
                                             state.counters["ratio_unpainted"] = ratioWithoutPainting(at);
                                             state.counters["ratio_cpu"] = ratioOfProcessor(at);
                                         })
                ->Iterations(1)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (isStartedOnly(argc, argv)) return startOnly(argc, argv);

    Application application(argv);
    prepareApplication();
    keepQuietAboutThePlatform();
    QStringList words; // the toolkit is given none
    for (int i = 1; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    const QString first = words.value(0);
    if (first == "--make") return makeOne(words.mid(1));
    if (first == "--table")
        return writeTable(words.value(1) == "all" ? QString() : words.value(1),
                          words.size() > 2 ? sizesOf(words[2]) : usualSizes);
    benchmark::Initialize(&argc, argv);
    registerAll();
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
