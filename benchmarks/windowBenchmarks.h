#ifndef SONAVIA_BENCHMARKS_WINDOWBENCHMARKS_H
#define SONAVIA_BENCHMARKS_WINDOWBENCHMARKS_H

#include <QApplication>

#include <benchmark/benchmark.h>

/// Runs the benchmarks of a program with windows, which nobody sees unless QT_QPA_PLATFORM says otherwise.
inline int runWindowBenchmarks(int& argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

#endif
