// What the reading of a text of 1,000,000 bets takes, as a Markdown table: on both executors in the same run, and the
// decoding of the text alone, which no reading can do without.
//
//   text_bench                    all of it
//   text_bench --processor-time   counts the processor's time, not the clock's: for a machine in use
//
// The rows, and the sum of one of their columns, are compared before the time counts.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include <unistd.h>

#include <benchmark/benchmark.h>

#include "figures.h"
#include "history/text_pieces.h"
#include "selection/bet_text.h"
#include "sql/database.h"

namespace {

constexpr std::int64_t kBets = 1'000'000;
constexpr int kNumbers = 7;
constexpr int kHighest = 33;
constexpr int kRepetitions = 5;
constexpr double kPromiseMs = 2000;

constexpr const char* kSqlite = "sqlite";
constexpr const char* kColumn = "column";
constexpr const char* kDecode = "decode";

/// A text of bets, and the database that they are read into; both go at the end.
class Folder {
  public:
    Folder() : m_path(std::filesystem::temp_directory_path() / ("text_bench_" + std::to_string(getpid()))) {
        std::filesystem::create_directory(m_path);
        std::mt19937 random(1);
        std::string text;
        for (std::int64_t bet = 0; bet < kBets; ++bet)
            for (int place = 1; place <= kNumbers; ++place) {
                const int number = 1 + static_cast<int>(random() % kHighest);
                if (place == 1)
                    sumOfFirst += number;
                text += static_cast<char>('0' + number / 10);
                text += static_cast<char>('0' + number % 10);
                text += place < kNumbers ? ' ' : '\n';
            }
        std::ofstream(file(), std::ios::binary) << text;
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path file() const { return m_path / "bets.txt"; }
    std::filesystem::path database() const { return m_path / "filnum.mdb"; }
    std::int64_t sumOfFirst = 0;

  private:
    std::filesystem::path m_path;
};

void read(benchmark::State& state, const Folder& folder, sql::Executor executor) {
    for (auto _ : state) {
        std::filesystem::remove(folder.database());
        sql::Engine engine(sql::EngineOptions{.combinations = executor});
        const auto database = engine.create(folder.database());
        const double start = bench::now();
        const auto result = selection::readBets(*database, {"zuheRead", kNumbers}, folder.file(), 1, nullptr);
        state.SetIterationTime(bench::now() - start);
        const auto sum = sql::toInteger(database->queryValue("SELECT SUM([fig1]) FROM [zuheRead]"));
        if (result.bets != kBets || database->rowCount("zuheRead") != kBets || sum != folder.sumOfFirst)
            state.SkipWithError("not every bet was read");
    }
}

void decode(benchmark::State& state, const Folder& folder) {
    for (auto _ : state) {
        std::int64_t lines = 0;
        const double start = bench::now();
        history::readInPieces(folder.file(), [&lines](QStringView piece) {
            lines += piece.count(u'\n');
            return true;
        });
        state.SetIterationTime(bench::now() - start);
        if (lines != kBets)
            state.SkipWithError("not every line was decoded");
    }
}

class TableReporter : public bench::FigureReporter {
  public:
    void Finalize() override {
        const double sqlite = median(kSqlite);
        const double column = median(kColumn);
        std::puts("| reading a text of 1,000,000 bets | sqlite | column | promise | ratio | decoding alone |\n"
                  "| --- | ---: | ---: | --- | ---: | ---: |");
        std::printf("| 读取6红+1蓝组号文本 | %s | %s | %s under 2.0 s | %.1f× | %s |\n", bench::shown(sqlite).c_str(),
                    bench::shown(column).c_str(), column >= 0 && column < kPromiseMs ? "✓" : "✗",
                    column > 0 ? sqlite / column : 0.0, bench::shown(median(kDecode)).c_str());
    }
};

void add(const char* name, const std::function<void(benchmark::State&)>& run) {
    benchmark::RegisterBenchmark(name, run)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(kRepetitions);
}

} // namespace

int main(int count, char** arguments) {
    bench::readTimer(count, arguments);
    const Folder folder;
    add(kColumn, [&](benchmark::State& state) { read(state, folder, sql::Executor::Column); });
    add(kSqlite, [&](benchmark::State& state) { read(state, folder, sql::Executor::Sqlite); });
    add(kDecode, [&](benchmark::State& state) { decode(state, folder); });
    TableReporter reporter;
    return bench::runBenchmarks(count, arguments, reporter);
}
