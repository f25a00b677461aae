#include "report.h"

#include <cmath>
#include <cstdio>

#include "operations.h"

namespace bench {
namespace {

/// A figure beside its promise.
std::string judged(double milliseconds, double limit) {
    if (limit == 0 || milliseconds < 0)
        return shown(milliseconds) + " | ";
    return shown(milliseconds) + " | " + (milliseconds <= limit ? "✓ under " : "✗ over ") + shown(limit);
}

} // namespace

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
