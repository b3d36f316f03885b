// orv-bench-indicators: what it costs to count all subjects of a parish, and to make their figures: all of it by the
// clock, and each subject by itself. Prints the tables of docs/performance.md. Fails where a goal is missed.
//
//     orv-bench-indicators                       100,000 and 1,000,000 people
//     orv-bench-indicators PEOPLE…               of about so many people
//     orv-bench-indicators --file FILE.orv       of a BDP that is there
#include "kit/spent.h"
#include "platform/desktop/desktop.h"
#include "platform/jet/connection.h"
#include "study/indicators/studyReport.h"
#include "truth/truth.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace study::indicators;
using study::parish::Snapshot;

constexpr double goalOfHundredThousand = 3; // seconds; more people have as many times of it
constexpr int hundredThousand = 100'000;
constexpr std::uint32_t seed = 1;

double goalOf(std::size_t people)
{
    return goalOfHundredThousand * std::max(1.0, double(people) / hundredThousand);
}

double secondsOf(const std::function<void()>& work)
{
    return bench::spentBy(work).wall / 1000;
}

// Of the processor, which others who work on the machine don't change much.
double processorSecondsOf(const std::function<void()>& work)
{
    return bench::spentBy(work).cpu / 1000;
}

// A process of its own makes the file, so that its memory goes with it.
void make(const QString& path, int people)
{
    const pid_t child = fork();
    if (child == 0) {
        truth::make(path, path + ".csv", people, seed, ORV_DATA_DIR);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) qFatal("%s can't be made", qPrintable(path));
}

struct Times
{
    double reading = 0, lives = 0, counting = 0, figures = 0;
    double processor = 0; // of all but the reading

    double all() const { return lives + counting + figures; }
};

struct Parish
{
    std::optional<Snapshot> snapshot = {};
    std::optional<Study> study = {};
    Tallies tallies = {};
    Times times = {};
};

// The parish stays where it is: its study points into it.
void count(const QString& path, Parish& parish)
{
    jet::Connection bdp;
    bdp.open(path);
    parish.times.reading = secondsOf([&] { parish.snapshot.emplace(Snapshot::read(bdp)); });
    parish.times.processor = processorSecondsOf([&] {
        parish.times.lives = secondsOf([&] { parish.study.emplace(studyOf(*parish.snapshot, {})); });
        const auto threads = static_cast<int>(std::thread::hardware_concurrency());
        parish.times.counting = secondsOf([&] { parish.tallies = talliesOf(*parish.study, {}, threads); });
        parish.times.figures = secondsOf([&] { reportOf(parish.tallies, {}); });
    });
}

// Those that take longest on top.
void printSubjects(const Parish& parish)
{
    struct Line
    {
        const Subject* subject;
        double counting, figures;
        std::size_t cells;
    };
    std::vector<Line> lines;
    for (const Subject* subject : subjects()) {
        Tally tally;
        Line line{.subject = subject, .counting = 0, .figures = 0, .cells = 0};
        line.counting = processorSecondsOf([&] { tally = tallyOf(*subject, *parish.study); });
        line.figures = processorSecondsOf([&] { subject->figures(tally, parish.study->settings); });
        line.cells = tally.cells().size();
        lines.push_back(line);
    }
    std::sort(lines.begin(), lines.end(), [](const Line& one, const Line& other) {
        return one.counting + one.figures > other.counting + other.figures;
    });
    std::printf("\n| Subject, on one thread | Counting, s of processor | Figures | Cells |\n|---|---|---|---|\n");
    for (const Line& line : lines)
        std::printf("| %s | %.3f | %.3f | %zu |\n", line.subject->title, line.counting, line.figures, line.cells);
}

// Whether the goal is met.
bool measure(const QString& path)
{
    Parish parish;
    count(path, parish);
    const Times& times = parish.times;
    const std::size_t people = parish.snapshot->people().size();
    const bool isMet = times.all() <= goalOf(people);
    std::printf("\n| People | Families | Reading, s | Unions and presence, s | Counting, s | Figures, s | All but the "
                "reading, s | Of processor, s | Goal, s |\n|---|---|---|---|---|---|---|---|---|\n"
                "| %zu | %zu | %.2f | %.2f | %.2f | %.2f | %.2f | %.2f | %.1f%s |\n",
                people, parish.snapshot->families().size(), times.reading, times.lives, times.counting, times.figures,
                times.all(), times.processor, goalOf(people), isMet ? "" : ", missed");
    printSubjects(parish);
    std::fflush(stdout);
    return isMet;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Desktop::setProgramFolder(ORV_DATA_DIR);
    const QStringList words = QCoreApplication::arguments().mid(1);
    if (words.value(0) == "--file") return measure(words.value(1)) ? EXIT_SUCCESS : EXIT_FAILURE;
    const QTemporaryDir folder;
    bool areMet = true;
    for (const QString& size : words.isEmpty() ? QStringList{"100000", "1000000"} : words) {
        const QString path = folder.filePath(size + ".orv");
        make(path, size.toInt());
        areMet = measure(path) && areMet;
    }
    return areMet ? EXIT_SUCCESS : EXIT_FAILURE;
}
