// The Markdown table of the figures.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace bench {

/// What a figure belongs to; the name of a benchmark is its operation, a slash and one of these.
inline constexpr const char* kSqlite = "sqlite";
inline constexpr const char* kColumn = "column";
inline constexpr const char* kFull = "full";

/// Follows the run on stderr; prints the table to stdout when it is over. A figure is the median of its repetitions.
class TableReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;
    /// Whether a result was wrong.
    bool failed() const { return m_failed; }

  private:
    double median(const std::string& name) const; ///< ms; negative when it was not measured

    std::map<std::string, std::vector<double>> m_milliseconds;
    bool m_failed = false;
};

} // namespace bench
