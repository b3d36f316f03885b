#include "startup_bench.h"

#include <benchmark/benchmark.h>

#include <QApplication>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (isStartedOnly(argc, argv)) return startOnly(argc, argv);

    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
