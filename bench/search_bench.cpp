// What the search for ranges and lists takes on the real draws, as a Markdown table. What it finds is checked against
// a plain count of the draws before its time counts.
//
//   search_bench                    everything
//   search_bench --processor-time   counts the processor's time, not the clock's: for a machine in use
#include <algorithm>
#include <cstdio>
#include <map>
#include <numeric>
#include <string>

#include <QFile>

#include <benchmark/benchmark.h>

#include "figures.h"
#include "filter/range_search.h"
#include "history/derive.h"
#include "history/statistics.h"
#include "history/text_lines.h"

namespace {

using filter::Mode;
using filter::WindowState;
using history::History;

constexpr int kRepetitions = 21;
constexpr double kPromiseMs = 100;

History realHistory() {
    History history;
    QFile file(QStringLiteral(SSQ_REAL_DATA "/draws.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return history;
    for (const history::Draw& draw : history::parseDraws(history::decodeText(file.readAll())).draws) {
        history.derived.push_back(history::deriveDraw(draw, history.Lshm.back(), history.Ylnow, {}));
        history.Lshm.push_back(draw);
        ++history.Lsnum;
        history::countDraw(history, draw, {});
    }
    return history;
}

int sumOf(const history::Draw& draw) {
    return std::accumulate(draw.begin() + 1, draw.begin() + 1 + history::kRedsDrawn, 0);
}

/// The sum of the reds is the first parameter: 各码数和.
bool rangeIsRight(const History& history, const WindowState& state) {
    const auto [low, high] = std::ranges::minmax_element(history.Lshm.begin() + 1, history.Lshm.end(), {}, sumOf);
    return state.rows[0].low == std::to_string(sumOf(*low)) && state.rows[0].high == std::to_string(sumOf(*high));
}

bool listIsRight(const History& history, const WindowState& state) {
    std::map<int, int> times;
    for (auto draw = history.Lshm.begin() + 1; draw != history.Lshm.end(); ++draw)
        ++times[sumOf(*draw)];
    const auto most = std::ranges::max_element(times, {}, [](const auto& entry) { return entry.second; });
    return state.rows[0].list.starts_with(" " + std::to_string(most->first) + " ");
}

WindowState startIn(Mode mode) {
    WindowState state = filter::defaultState(filter::sixAndBlueCatalogue());
    state.mode = mode;
    return state;
}

WindowState openWindow(const History& history) {
    return filter::searchedAtOpening(startIn(Mode::Range), filter::sixAndBlueCatalogue(), history);
}
WindowState searchRanges(const History& history) {
    return filter::searchedForAll(startIn(Mode::Range), filter::sixAndBlueCatalogue(), history);
}
WindowState searchLists(const History& history) {
    return filter::searchedForAll(startIn(Mode::List), filter::sixAndBlueCatalogue(), history);
}

constexpr struct Operation {
    const char* name;
    WindowState (*run)(const History&);
    bool ranges; ///< what it fills in
    bool lists;
} kOperations[] = {
    {"a window opens: 31 ranges, 31 lists", openWindow, true, true},
    {"所有参数检索, ranges", searchRanges, true, false},
    {"所有参数检索, lists", searchLists, false, true},
};

void measure(benchmark::State& state, const Operation& operation, const History& history) {
    for (auto _ : state) {
        const double start = bench::now();
        const WindowState found = operation.run(history);
        state.SetIterationTime(bench::now() - start);
        if ((operation.ranges && !rangeIsRight(history, found)) || (operation.lists && !listIsRight(history, found)))
            state.SkipWithError("the search finds something else than a plain count");
    }
}

class TableReporter : public bench::FigureReporter {
  public:
    explicit TableReporter(int draws) : m_draws(draws) {}
    void Finalize() override {
        std::printf("| search through %d draws | time | promise |\n| --- | ---: | --- |\n", m_draws);
        for (const Operation& operation : kOperations) {
            const double ms = median(operation.name);
            std::printf("| %s | %s | %s under 100 ms |\n", operation.name, bench::shown(ms).c_str(),
                        ms < kPromiseMs ? "✓" : "✗");
        }
    }

  private:
    int m_draws;
};

} // namespace

int main(int count, char** arguments) {
    bench::readTimer(count, arguments);
    const History history = realHistory();
    if (history.Lsnum == 0) {
        std::fputs("no draws: " SSQ_REAL_DATA "/draws.txt\n", stderr);
        return 1;
    }
    for (const Operation& operation : kOperations)
        benchmark::RegisterBenchmark(operation.name,
                                     [&](benchmark::State& state) { measure(state, operation, history); })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(kRepetitions);
    TableReporter reporter(history.Lsnum);
    return bench::runBenchmarks(count, arguments, reporter);
}
