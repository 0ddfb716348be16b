#include "platform/Clock.h"
#include <QApplication>
#include <benchmark/benchmark.h>

// Benchmarks run the real widgets and printing code, so they need an application
// object; offscreen unless the caller chose a platform.
int main(int argc, char** argv) {
    Clock::SettleTimeZone();
    if (qgetenv("QT_QPA_PLATFORM").isEmpty()) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
