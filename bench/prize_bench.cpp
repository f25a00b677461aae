// What the opening of a prize query takes, as a Markdown table: on 1,107,568 rows on both executors in the same run,
// on 17,721,088 rows on the column executor, and the sort of the smaller one.
//
//   prize_bench                    all of it
//   prize_bench --processor-time   counts the processor's time, not the clock's: for a machine in use
//
// Each repetition is the second query of its table, with work columns to drop. The winners of the first two classes,
// and the sum of all that is won, are compared before the time counts.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include <unistd.h>

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "figures.h"
#include "filter/member.h"
#include "prize/query.h"
#include "selection/enumeration.h"

namespace {

constexpr int kReds = 33;
constexpr int kRepetitions = 5;
constexpr history::Draw kDraw{2026113, 3, 9, 14, 20, 27, 33, 1};
/// Won by all sets of six reds with the blue 1 alone, and with each of sixteen blues.
constexpr std::int64_t kWonWithOneBlue = 5000000 + 162 * 3000 + 5265 * 200 + 58500 * 10 + 1043640 * 5;
constexpr std::int64_t kWonWithAll = 5000000 + 15 * 50000 + 162 * 3000 + 7695 * 200 + 137475 * 10 + 1043640 * 5;

struct Case {
    const char* name;
    const char* caption;
    int blues;
    sql::Executor executor;
    bool sorts;
};
constexpr Case kSmallColumn{"small column", "1,107,568 rows", 1, sql::Executor::Column, false};
constexpr Case kSmallSqlite{"small sqlite", "1,107,568 rows", 1, sql::Executor::Sqlite, false};
constexpr Case kLargeColumn{"large column", "17,721,088 rows", 16, sql::Executor::Column, false};
constexpr Case kSortColumn{"sort column", "中奖排序, 1,107,568 rows", 1, sql::Executor::Column, true};

prize::Rules defaultRules() {
    const QTemporaryDir folder;
    workspace::Settings settings(folder.path().toStdString());
    workspace::UserSettings user(settings, QStringLiteral("bench"));
    return prize::readRules(user);
}

/// All bets of the rule with so many blues; the file goes at the end.
class Table {
  public:
    explicit Table(const Case& told)
        : m_folder(std::filesystem::temp_directory_path() / ("prize_bench_" + std::to_string(getpid()))),
          m_engine(sql::EngineOptions{.combinations = told.executor}) {
        std::filesystem::create_directory(m_folder);
        database = m_engine.create(m_folder / "filnum.mdb");
        selection::GenerationInput input;
        for (int red = 1; red <= kReds; ++red)
            input.chosen.reds.push_back(red);
        for (int blue = 1; blue <= told.blues; ++blue)
            input.chosen.blues.push_back(blue);
        input.Genreds = kReds;
        selection::Enumeration(input).fill(*database, filter::shapeOf(*filter::findMember("GAgan")), nullptr);
    }
    ~Table() {
        database.reset();
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

  private:
    std::filesystem::path m_folder;
    sql::Engine m_engine;

  public:
    std::unique_ptr<sql::Database> database;
};

void run(benchmark::State& state, const Case& told, sql::Database& database, const prize::Rules& rules) {
    for (auto _ : state) {
        prize::Query query(database, prize::kQueryEntries[0], kDraw, rules);
        double start = bench::now();
        query.open();
        if (told.sorts) {
            start = bench::now();
            query.sort();
        }
        state.SetIterationTime(bench::now() - start);
        const std::int64_t won = told.blues == 1 ? kWonWithOneBlue : kWonWithAll;
        if (query.Income != won || query.PrizeCount[1] != 1 || query.PrizeCount[2] != told.blues - 1 ||
            query.lastOpened().integerAt(0, 0) == 0)
            state.SkipWithError("the wrong prizes");
    }
}

class TableReporter : public bench::FigureReporter {
  public:
    void Finalize() override {
        const double sqlite = median(kSmallSqlite.name);
        std::puts("| prize query | sqlite | column | promise | ratio |\n| --- | ---: | ---: | --- | ---: |");
        line(kSmallColumn, sqlite, 150);
        line(kLargeColumn, -1, 2000);
        std::printf("| %s | – | %s | | |\n", kSortColumn.caption, bench::shown(median(kSortColumn.name)).c_str());
    }

  private:
    void line(const Case& told, double sqlite, double promiseMs) const {
        const double column = median(told.name);
        std::printf("| 中奖查询, %s | %s | %s | %s under %s | ", told.caption, bench::shown(sqlite).c_str(),
                    bench::shown(column).c_str(), column >= 0 && column < promiseMs ? "✓" : "✗",
                    bench::shown(promiseMs).c_str());
        if (sqlite > 0 && column > 0)
            std::printf("%.0f× |\n", sqlite / column);
        else
            std::puts("– |");
    }
};

} // namespace

int main(int count, char** arguments) {
    bench::readTimer(count, arguments);
    const prize::Rules rules = defaultRules();
    std::unique_ptr<Table> table;
    const Case* made = nullptr; // tables are made one after another: two large ones take the memory of both
    for (const Case* told : {&kSmallColumn, &kSortColumn, &kSmallSqlite, &kLargeColumn})
        benchmark::RegisterBenchmark(
            told->name,
            [&, told](benchmark::State& state) {
                if (made != told) {
                    table.reset();
                    table = std::make_unique<Table>(*told);
                    prize::Query(*table->database, prize::kQueryEntries[0], kDraw, rules).open();
                    made = told;
                }
                run(state, *told, *table->database, rules);
            })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(told->executor == sql::Executor::Sqlite ? 1 : kRepetitions);
    TableReporter reporter;
    return bench::runBenchmarks(count, arguments, reporter);
}
