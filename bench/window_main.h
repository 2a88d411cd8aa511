// main() of a benchmark that draws or opens windows: without a screen where none is asked for.
#pragma once

#include <QByteArray>

#include <benchmark/benchmark.h>

namespace sbd::bench {

template <typename Application>
int RunBenchmarks(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace sbd::bench
