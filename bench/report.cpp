#include "report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "operations.h"

namespace bench {
namespace {

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

/// A figure beside its promise.
std::string judged(double milliseconds, double limit) {
    if (limit == 0 || milliseconds < 0)
        return shown(milliseconds) + " | ";
    return shown(milliseconds) + " | " + (milliseconds <= limit ? "✓ under " : "✗ over ") + shown(limit);
}

} // namespace

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
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

double TableReporter::median(const std::string& name) const {
    const auto found = m_milliseconds.find(name);
    if (found == m_milliseconds.end())
        return -1;
    std::vector<double> times = found->second;
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void TableReporter::Finalize() {
    std::puts(
        "| operation | sqlite, 1,107,568 rows | column, 1,107,568 rows | promise | ratio | column, 17,721,088 rows "
        "| promise |\n| --- | ---: | ---: | --- | ---: | ---: | --- |");
    for (const Operation& operation : operations()) {
        const std::string name = operation.name;
        const double sqlite = median(name + "/" + kSqlite);
        const double column = median(name + "/" + kColumn);
        const std::string ratio =
            sqlite < 0 || column <= 0 ? "–" : std::to_string(std::lround(sqlite / column)) + "×";
        std::printf("| %s | %s%s | %s | %s | %s |\n", operation.name, shown(sqlite).c_str(),
                    operation.sqliteSeconds && sqlite >= 0 ? " (scaled)" : "",
                    judged(column, operation.limitOneBlue).c_str(), ratio.c_str(),
                    judged(median(name + "/" + kFull), operation.limitFull).c_str());
    }
}

} // namespace bench
