// orv-bench-exchange: writes invented parishes with each way out that the shell command has, as somebody would, and
// tells how long it takes, how much memory it has at its peak, and how both grow with the people. Prints the table of
// docs/performance.md. Fails where a goal is missed.
//
//     orv-bench-exchange                         10,000, 100,000 and 1,000,000 people
//     orv-bench-exchange PEOPLE…                 of so many people
//     orv-bench-exchange --only WAY PEOPLE…      one way out alone: gedcom-5.5.1, gedcom-7.0, tabelas, …
#include "kit/figures.h"
#include "parish/parish.h"
#include "platform/desktop/desktop.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr double goalOfMillion = 60; // seconds; fewer people have as much less of it
constexpr int million = 1'000'000;
constexpr double shortest = 2; // seconds that any export may take
constexpr double goalExponent = 1.15;
// By which the peak may grow from the fewest people to the most: up to 32 of them is the engine's cache of pages.
constexpr double goalMegabytes = 48;
constexpr int kilobytesOfMegabyte = 1024;
constexpr int failedToStart = 127;

const QString bdpPlace = QStringLiteral("BDP"), targetPlace = QStringLiteral("TARGET");

// A way out, as the shell is told of it.
struct Way
{
    QString name;
    QStringList arguments; // with the places of the BDP and of what is written
    bool isStreamed;       // its memory doesn't grow with the people
};

const std::vector<Way>& ways()
{
    static const std::vector<Way> all{
        {"gedcom-5.5.1", {"exportar", "gedcom", bdpPlace, targetPlace, "--versao", "5.5.1"}, true},
        {"gedcom-7.0", {"exportar", "gedcom", bdpPlace, targetPlace, "--versao", "7.0"}, true},
        {"tabelas", {"exportar", "tabelas", bdpPlace, targetPlace}, true},
        {"tabelas-excel", {"exportar", "tabelas", bdpPlace, targetPlace, "--excel"}, true},
        {"ids", {"exportar", "ids", bdpPlace, targetPlace}, false},
        {"episodios", {"exportar", "episodios", bdpPlace, targetPlace}, false},
    };
    return all;
}

struct Spent
{
    double seconds = 0;
    double processor = 0; // seconds of it, which others who work on the machine don't change much
    double megabytes = 0; // of resident memory, at the peak
};

// What a process does whose memory isn't to count in this one: the peak of a process begins with that of its parent.
template <class Work>
rusage apart(const char* what, Work&& work)
{
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        std::forward<Work>(work)();
        _exit(EXIT_SUCCESS);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (status != 0) qFatal("%s failed", what);
    return usage;
}

Spent written(const Way& way, const QString& bdp, const QString& target)
{
    QList<QByteArray> words{QFile::encodeName(ORV_ESTUDO)};
    for (const QString& word : way.arguments)
        words << QFile::encodeName(word == bdpPlace ? bdp : word == targetPlace ? target : word);
    QElapsedTimer clock;
    clock.start();
    const rusage usage = apart(qPrintable(way.name), [&] {
        std::vector<char*> arguments;
        for (QByteArray& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        if (!std::freopen("/dev/null", "w", stdout)) _exit(failedToStart); // what it tells isn't what is looked at
        execv(arguments.front(), arguments.data());
        _exit(failedToStart);
    });
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return {.seconds = double(clock.elapsed()) / 1000,
            .processor = seconds(usage.ru_utime) + seconds(usage.ru_stime),
            .megabytes = double(usage.ru_maxrss) / kilobytesOfMegabyte};
}

double megabytesOf(const QString& path)
{
    qint64 bytes = QFileInfo(path).isDir() ? 0 : QFileInfo(path).size();
    if (QFileInfo(path).isDir())
        for (const QFileInfo& file : QDir(path).entryInfoList(QDir::Files))
            bytes += file.size();
    return double(bytes) / kilobytesOfMegabyte / kilobytesOfMegabyte;
}

void remove(const QString& path)
{
    QFileInfo(path).isDir() ? QDir(path).removeRecursively() : QFile::remove(path);
}

// What is known of one way, of all sizes.
struct Series
{
    const Way* way;
    std::vector<std::pair<double, double>> times = {}; // of the processor, by the people
    std::vector<double> peaks = {};
    bool isInTime = true;
};

// One line of the table.
void measure(Series& series, const QString& bdp, int people)
{
    const QString target = bdp + ".out";
    const Spent spent = written(*series.way, bdp, target);
    const double goal = std::max(shortest, goalOfMillion * people / million);
    const bool isInTime = spent.seconds <= goal;
    std::printf("| %s | %d | %.2f | %.2f | %.1f | %.0f | %.1f%s |\n", qPrintable(series.way->name), people,
                spent.seconds, spent.processor, spent.megabytes, megabytesOf(target), goal, isInTime ? "" : ", missed");
    remove(target);
    series.times.emplace_back(people, spent.processor);
    series.peaks.push_back(spent.megabytes);
    series.isInTime = series.isInTime && isInTime;
}

bool isWithinGoals(const Series& series)
{
    if (series.peaks.size() < 2) return series.isInTime;
    const double growth = bench::exponent(series.times);
    const auto [least, most] = std::minmax_element(series.peaks.begin(), series.peaks.end());
    std::printf("%s: exponent of the time %.2f, memory grows by %.1f MB\n", qPrintable(series.way->name), growth,
                *most - *least);
    const bool isFlat = !series.way->isStreamed || *most - *least <= goalMegabytes;
    return series.isInTime && growth <= goalExponent && isFlat;
}

// A process of its own makes the BDP, so that its memory goes with it.
QString made(const QTemporaryDir& folder, int people)
{
    const QString path = folder.filePath(QString("%1.orv").arg(people));
    apart("the parish", [&] { bench::makeParish(path, people); });
    return path;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Desktop::setProgramFolder(ORV_DATA_DIR);
    QStringList words = QCoreApplication::arguments().mid(1);
    const QString only = words.value(0) == "--only" ? words.value(1) : QString();
    if (!only.isEmpty()) words = words.mid(2);
    std::vector<Series> all;
    for (const Way& way : ways())
        if (only.isEmpty() || way.name == only) all.push_back({&way});
    if (all.empty()) qFatal("there is no such way out");
    const QTemporaryDir folder;
    std::printf("| Way out | People | Seconds | Of processor | Peak memory, MB | Written, MB | Goal, s |\n"
                "|---|---|---|---|---|---|---|\n");
    for (const QString& size : words.isEmpty() ? QStringList{"10000", "100000", "1000000"} : words) {
        const QString bdp = made(folder, size.toInt());
        for (Series& series : all)
            measure(series, bdp, size.toInt());
        QFile::remove(bdp);
    }
    bool areMet = true;
    for (const Series& series : all)
        areMet = isWithinGoals(series) && areMet;
    return areMet ? EXIT_SUCCESS : EXIT_FAILURE;
}
