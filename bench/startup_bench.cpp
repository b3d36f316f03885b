#include "startup_bench.h"

#include "shell/application.h"
#include "shell/frmORV.h"
#include "shell/startup.h"

#include <benchmark/benchmark.h>

#include <QMainWindow>
#include <QMdiArea>
#include <QProcess>
#include <QStatusBar>
#include <QWindow>

#include <cstdlib>
#include <cstring>

namespace {

constexpr auto startProgramOption = "--start-program";
constexpr auto startBareOption = "--start-bare";
constexpr auto startTextOption = "--start-text";

void untilShown(const QWidget& window)
{
    while (!window.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
}

void start(benchmark::State& state, const char* option)
{
    for ([[maybe_unused]] auto turn : state) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(option)});
        if (!process.waitForFinished() || process.exitCode() != 0) state.SkipWithError("the process failed");
    }
}

void StartingTheProgram(benchmark::State& state)
{
    start(state, startProgramOption);
}

void StartingABareWindow(benchmark::State& state)
{
    start(state, startBareOption);
}

// With one line in its status bar: the first text that a process draws brings up the fonts.
void StartingABareWindowWithText(benchmark::State& state)
{
    start(state, startTextOption);
}

BENCHMARK(StartingABareWindow)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(StartingABareWindowWithText)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(StartingTheProgram)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

bool isStartedOnly(int argc, char** argv)
{
    const auto is = [&](const char* option) { return std::strcmp(argv[1], option) == 0; };
    return argc == 2 && (is(startProgramOption) || is(startBareOption) || is(startTextOption));
}

int startOnly(int argc, char** argv)
{
    if (!std::strcmp(argv[1], startProgramOption)) {
        Application application(argv);
        prepareApplication();
        untilShown(startProgram({}));
        std::quick_exit(EXIT_SUCCESS);
    }
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QMdiArea);
    window.resize(1280, 800);
    if (!std::strcmp(argv[1], startTextOption)) window.statusBar()->showMessage("ORV");
    window.show();
    untilShown(window);
    std::quick_exit(EXIT_SUCCESS);
}
