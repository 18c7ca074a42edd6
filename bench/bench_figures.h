#pragma once

// What the benchmarks report besides times: percentiles of a series, the
// process's memory, and the main of a benchmark that needs a Qt application.
#include <benchmark/benchmark.h>

#include <QByteArray>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace vendrix::bench {

// The value below which a share `q` of the series lies; 0 for none.
inline double percentil(std::vector<double> serie, double q)
{
    if (serie.empty())
        return 0;
    std::sort(serie.begin(), serie.end());
    return serie[std::min(serie.size() - 1, static_cast<size_t>(q * static_cast<double>(serie.size())))];
}

// A memory figure of this process from /proc/self/status, in MB: "VmRSS"
// (resident now) or "VmHWM" (its peak so far).
inline double memoria_mb(const std::string &campo)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind(campo + ':', 0) == 0)
            return std::stod(line.substr(campo.size() + 1)) / 1024.0;
    }
    return 0;
}

// Runs the registered benchmarks inside an application of type `App`;
// widgets are drawn off screen unless a platform is given.
template <typename App> int correr_con_qt(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    App app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace vendrix::bench
