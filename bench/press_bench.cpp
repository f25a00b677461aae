// How a press of a parameter feels: the same statements on both executors over 1,107,568 rows, with the ratio at the
// end, and the whole evening's operations over the full table of 17,721,088 rows on the column executor.
//
// Every benchmark checks its result before a time is reported; a wrong count is an error, not a figure.
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "filter/member.h"
#include "filter/parameter_run.h"
#include "filter/result_view.h"
#include "filter/row_states.h"

namespace {

constexpr std::int64_t kSets = 1107568; // 6 of 33
constexpr std::int64_t kFull = kSets * 16;
constexpr std::int64_t kTwoEvens = 285600;  // sets with two even reds: C(16, 2) * C(17, 4)
constexpr std::int64_t kAcOfEight = 339540; // sets with AC value 8

/// One table of 33 reds and some blues.
class Bench {
  public:
    Bench(sql::Executor executor, int blues)
        : m_engine(sql::EngineOptions{.combinations = executor}), m_blues(blues) {
        m_folder = std::filesystem::temp_directory_path() / ("press_bench_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_folder);
        m_database = m_engine.create(m_folder / (std::to_string(static_cast<int>(executor)) + ".mdb"));
        m_history.Lsnum = 1;
        m_history.Lshm.push_back({2026001, 2, 5, 11, 17, 25, 33, 6});
        generate();
    }
    ~Bench() {
        m_database.reset();
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    std::int64_t generate() {
        selection::GenerationInput input;
        for (int red = 1; red <= 33; ++red)
            input.chosen.reds.push_back(red);
        for (int blue = 1; blue <= m_blues; ++blue)
            input.chosen.blues.push_back(blue);
        input.Genreds = 33;
        return selection::generate(*m_database, filter::shapeOf(member()), input).written;
    }

    /// Compute, snapshot, filter, count and view. \return bets left
    std::int64_t press(std::string_view option, const char* low, const char* high) {
        const filter::Parameter* parameter = filter::findParameter(filter::sixAndBlueCatalogue(), option);
        filter::ParameterRun({*m_database, member().table, m_history, 33})
            .press(*parameter, {.low = low, .high = high, .list = {}}, {});
        return view().inPlay(parameter->gridTitle).rows.count();
    }

    filter::RowStates states() { return {*m_database, member().table}; }
    filter::ResultView view() { return {*m_database, member()}; }
    void snapshot() { m_database->execute(filter::snapshotStatement(member().table)); }

  private:
    static const filter::FilterMember& member() { return filter::kFilterMembers[0]; }

    std::filesystem::path m_folder;
    sql::Engine m_engine;
    int m_blues;
    std::unique_ptr<sql::Database> m_database;
    history::History m_history;
};

/// Fails the benchmark when a count is wrong.
bool right(benchmark::State& state, std::int64_t got, std::int64_t expected) {
    if (got == expected)
        return true;
    state.SkipWithError(("counted " + std::to_string(got) + ", expected " + std::to_string(expected)).c_str());
    return false;
}

void pressOn(benchmark::State& state, sql::Executor executor) {
    Bench bench(executor, 1);
    for (auto _ : state) {
        if (!right(state, bench.press("Option4", "2", "2"), kTwoEvens))
            return;
        state.PauseTiming();
        bench.states().resetAll();
        state.ResumeTiming();
    }
}

/// The full table, made once for all benchmarks that use it.
Bench& full() {
    static Bench bench(sql::Executor::Column, 16);
    return bench;
}

/// Times `work` from a table with everything in play; `work` gives a count to check.
template <class Work> void onFull(benchmark::State& state, std::int64_t expected, Work work) {
    Bench& bench = full();
    bench.states().resetAll();
    for (auto _ : state) {
        if (!right(state, work(bench), expected))
            return;
        state.PauseTiming();
        bench.states().resetAll();
        state.ResumeTiming();
    }
}

void addFull(const char* name, std::int64_t expected, std::int64_t (*work)(Bench&)) {
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { onFull(state, expected, work); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(5);
}

void addAll() {
    benchmark::RegisterBenchmark("press/column/1107568", pressOn, sql::Executor::Column)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(20);
    benchmark::RegisterBenchmark("press/sqlite/1107568", pressOn, sql::Executor::Sqlite)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(2);
    addFull("full/generate", kFull, [](Bench& bench) { return bench.generate(); });
    addFull("full/press_even_reds", kTwoEvens * 16, [](Bench& bench) { return bench.press("Option4", "2", "2"); });
    addFull("full/press_ac_value", kAcOfEight * 16, [](Bench& bench) { return bench.press("Option24", "8", "8"); });
    addFull("full/press_sum_all_reasons", 0, [](Bench& bench) { return bench.press("Option23", "1", "2"); });
    addFull("full/press_repeated_reds", 296010 * 16, // no red of the last draw: C(27, 6)
            [](Bench& bench) { return bench.press("Option20", "0", "0"); });
    addFull("full/reset_all", kFull, [](Bench& bench) {
        bench.states().resetAll();
        return bench.view().countInPlay();
    });
    addFull("full/invert_all", 0, [](Bench& bench) {
        bench.states().invertAll();
        return bench.view().countInPlay();
    });
    addFull("full/snapshot", kFull, [](Bench& bench) {
        bench.snapshot();
        return bench.view().countInPlay();
    });
    addFull("full/view_in_play", kFull, [](Bench& bench) { return bench.view().inPlay().rows.count(); });
}

/// Prints as usual and keeps the times of the two presses for the ratio.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (!run.error_occurred)
                m_milliseconds[run.run_name.function_name] = run.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
    void Finalize() override {
        const auto column = m_milliseconds.find("press/column/1107568");
        const auto sqlite = m_milliseconds.find("press/sqlite/1107568");
        if (column != m_milliseconds.end() && sqlite != m_milliseconds.end())
            std::printf("one press on 1,107,568 rows: sqlite %.1f ms, column %.2f ms, ratio %.1f\n", sqlite->second,
                        column->second, sqlite->second / column->second);
    }

  private:
    std::map<std::string, double> m_milliseconds;
};

} // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments))
        return 1;
    addAll();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
