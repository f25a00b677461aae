// Figures on their way into a Markdown table: how time is taken, which of several counts, how it reads.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace bench {

/// Seconds on the clock, or of this process on the processor when that is what is measured (--processor-time).
double now();
/// Takes --processor-time off the arguments of main, if it is the first of them.
void readTimer(int& count, char**& arguments);

/// Milliseconds in the unit that suits them; "–" for what was not measured.
std::string shown(double milliseconds);

/// Follows the run on stderr; a table of what was measured is printed by Finalize() of the classes derived from it. A
/// figure is the median of its repetitions.
class FigureReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    /// Whether a result was wrong.
    bool failed() const { return m_failed; }

  protected:
    double median(const std::string& name) const; ///< ms; negative when it was not measured

  private:
    std::map<std::string, std::vector<double>> m_milliseconds;
    bool m_failed = false;
};

/// Runs what is registered. \return what main returns
int runBenchmarks(int count, char** arguments, FigureReporter& reporter);

} // namespace bench
