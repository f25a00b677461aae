// How the engine feels: every operation on all bets of 33 reds, as a Markdown table.
//
//   engine_bench                            all operations: 1,107,568 rows on both executors, with the ratio, and the
//                                           full table of 17,721,088 rows on the column executor
//   engine_bench --benchmark_filter=press   some of them
//   engine_bench --processor-time           counts the processor's time, not the clock's: for a machine in use
//   engine_bench --memory=16                memory of a fresh process with 16 blues (or 1) after ten presses
//
// A result is checked before its time counts; a wrong count ends the run with an error.
#include <cstring>
#include <memory>
#include <stdexcept>

#include "figures.h"
#include "memory.h"
#include "operations.h"
#include "report.h"

namespace {

using namespace bench;

struct Setting {
    const char* name;
    sql::Executor executor;
    int blues;
    int repetitions;
};

constexpr Setting kSettings[] = {
    {kSqlite, sql::Executor::Sqlite, 1, 1},
    {kColumn, sql::Executor::Column, 1, 11},
    {kFull, sql::Executor::Column, 16, 9},
};

/// One table at a time; it lives until a benchmark asks for another setting.
class Stage {
  public:
    RuleTable& tableFor(const Setting& setting) {
        if (m_setting != &setting) {
            m_table.reset();
            m_table = std::make_unique<RuleTable>(setting.executor, setting.blues);
            m_setting = &setting;
        }
        return *m_table;
    }

  private:
    const Setting* m_setting = nullptr;
    std::unique_ptr<RuleTable> m_table;
};

double secondsOf(const Operation& operation, RuleTable& table) {
    if (table.executor() == sql::Executor::Sqlite && operation.sqliteSeconds)
        return operation.sqliteSeconds(table);
    operation.prepare(table);
    const double start = now();
    const std::int64_t got = operation.work(table);
    const double taken = now() - start;
    require(operation.name, got, operation.expected(table));
    return taken;
}

void measure(benchmark::State& state, Stage& stage, const Setting& setting, const Operation& operation) {
    for (auto _ : state) {
        try {
            state.SetIterationTime(secondsOf(operation, stage.tableFor(setting)));
        } catch (const std::exception& failure) {
            state.SkipWithError(failure.what());
            return;
        }
    }
}

void addAll(Stage& stage) {
    for (const Setting& setting : kSettings)
        for (const Operation& operation : operations()) {
            if (setting.executor == sql::Executor::Sqlite && !operation.onSqlite)
                continue;
            const std::string name = std::string(operation.name) + "/" + setting.name;
            benchmark::RegisterBenchmark(name.c_str(),
                                         [&](benchmark::State& state) { measure(state, stage, setting, operation); })
                ->Unit(benchmark::kMillisecond)
                ->UseManualTime()
                ->Iterations(1)
                ->Repetitions(setting.repetitions);
        }
}

} // namespace

int main(int count, char** arguments) {
    const auto blues = [&](std::string_view option) {
        return count == 2 && std::string_view(arguments[1]).starts_with(option)
                   ? std::atoi(arguments[1] + option.size())
                   : 0;
    };
    if (const int of = blues("--memory="))
        return printMemoryOfTenPresses(of) ? 0 : 1;
    if (const int of = blues("--memory-of-reasons="))
        return printMemoryOfReasons(of) ? 0 : 1;
    readTimer(count, arguments);
    Stage stage;
    addAll(stage);
    TableReporter reporter;
    return runBenchmarks(count, arguments, reporter);
}
