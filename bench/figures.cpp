#include "figures.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>

namespace bench {
namespace {

clockid_t timer = CLOCK_MONOTONIC;

} // namespace

double now() {
    timespec time{};
    clock_gettime(timer, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void readTimer(int& count, char**& arguments) {
    if (count < 2 || std::strcmp(arguments[1], "--processor-time") != 0)
        return;
    timer = CLOCK_PROCESS_CPUTIME_ID;
    arguments[1] = arguments[0];
    ++arguments;
    --count;
}

std::string shown(double milliseconds) {
    char text[32];
    if (milliseconds < 0)
        return "–";
    if (milliseconds >= 10000)
        std::snprintf(text, sizeof text, "%.0f s", milliseconds / 1000);
    else if (milliseconds >= 1000)
        std::snprintf(text, sizeof text, "%.1f s", milliseconds / 1000);
    else
        std::snprintf(text, sizeof text, milliseconds >= 10 ? "%.0f ms" : "%.2f ms", milliseconds);
    return text;
}

void FigureReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Aggregate)
            continue;
        const std::string& name = run.run_name.function_name;
        if (run.error_occurred) {
            m_failed = true;
            std::fprintf(stderr, "%s: %s\n", name.c_str(), run.error_message.c_str());
            continue;
        }
        m_milliseconds[name].push_back(run.GetAdjustedRealTime());
        std::fprintf(stderr, "%s: %s\n", name.c_str(), shown(run.GetAdjustedRealTime()).c_str());
    }
}

double FigureReporter::median(const std::string& name) const {
    const auto found = m_milliseconds.find(name);
    if (found == m_milliseconds.end())
        return -1;
    std::vector<double> times = found->second;
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

int runBenchmarks(int count, char** arguments, FigureReporter& reporter) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments))
        return 1;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return reporter.failed() ? 1 : 0;
}

} // namespace bench
