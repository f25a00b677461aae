// The windows of six reds alone and of seven reds: values and presses against plain loops, whatever the ticks, modes
// and ranges.
#include <algorithm>
#include <numeric>
#include <random>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "executor_names.h"
#include "filter/bench_table.h"

namespace filter_test {
namespace {

using filter::Kind;
using filter::Mode;
using filter::Parameter;

struct Window {
    const char* form;
    int (*value)(std::string_view option, const plain::Bet& bet, const plain::Rule& rule);
};
constexpr Window kWindows[] = {{"GAganR", plain::sixRedValue}, {"GAganf", plain::sevenRedValue}};

class RedValues : public testing::TestWithParam<sql::Executor> {};

std::vector<std::vector<int>> randomBets(std::mt19937& random, int count, int reds, int highest) {
    std::vector<int> all(static_cast<std::size_t>(highest));
    std::iota(all.begin(), all.end(), 1);
    std::vector<std::vector<int>> bets;
    for (int bet = 0; bet < count; ++bet) {
        std::ranges::shuffle(all, random);
        bets.emplace_back(all.begin(), all.begin() + reds);
        std::ranges::sort(bets.back());
    }
    return bets;
}

plain::Bet plainBet(const std::vector<int>& bet) {
    plain::Bet made{};
    std::ranges::copy(bet, made.begin() + 1);
    return made;
}

bool holds(const std::string& list, int value) {
    std::istringstream numbers(list);
    for (std::string number; numbers >> number;)
        if (number == std::to_string(value))
            return true;
    return false;
}

/// Which rows a press of six reds takes out first, and with which reason: parity.
bool failsParity(const Parameter& p, const filter::RowInput& row, int value) {
    return p.kind == Kind::RedPosition && row.odd != row.even && (value % 2 == 1) != row.odd;
}

/// What a press leaves of one bet: empty when it stays, else its reason ("out" where reasons are not given).
std::string plainOutcome(const Parameter& p, const filter::RowInput& row, const filter::RunSettings& run, int value,
                         bool seven) {
    const bool list = run.mode == Mode::List && !seven && p.option != "Option66";
    const bool keep = run.Baoliu == filter::kKeep;
    if (!seven && !list && failsParity(p, row, value))
        return "红球" + std::to_string(p.option[7] - '2') + "位奇偶性";
    const bool loose = p.kind == Kind::RedPosition;
    const bool inside = !list   ? value >= std::stoi(row.low) && value <= std::stoi(row.high)
                        : loose ? row.list.find(std::to_string(value)) != std::string::npos
                                : holds(row.list, value);
    if (inside == keep)
        return {};
    if (seven)
        return "out";
    std::string head = std::string(p.caption) + "大小:";
    if (p.option == "Option66")
        head = run.mode == Mode::List ? "指定号码 " + run.pickedNumbers + "大小:"
                                      : "自定区间" + run.intervalAbove + "~" + run.intervalTo + "大小:";
    return head + std::to_string(value) + (keep ? " 保留" : " 排除") + (list ? row.list : row.low + "~" + row.high);
}

filter::RunSettings randomRun(std::mt19937& random) {
    filter::RunSettings run;
    run.mode = std::array{Mode::Range, Mode::Mean, Mode::List}[random() % 3];
    run.Baoliu = random() % 2 == 0 ? filter::kKeep : filter::kRemove;
    // At most three of six clear, so that the largest gap has a value of its own.
    for (int clear = 0; clear < 3; ++clear)
        run.ticked[random() % 7 + 1] = random() % 2 == 0;
    run.intervalAbove = std::to_string(random() % 20);
    run.intervalTo = std::to_string(random() % 34);
    run.pickedNumbers = "3 17  25 8 " + std::to_string(random() % 33 + 1);
    return run;
}

filter::RowInput randomRow(std::mt19937& random, int middle) {
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    filter::RowInput row;
    row.low = std::to_string(below(middle + 1));
    row.high = std::to_string(middle + below(middle + 1) - 1);
    for (int number = 0; number < 6; ++number)
        row.list += " " + std::to_string(below(2 * middle));
    row.odd = below(2) == 0;
    row.even = below(2) == 0;
    return row;
}

int valueIn(const Window& window, const Parameter& p, const plain::Bet& bet, const plain::Rule& rule,
            const filter::RunSettings& run) {
    if (p.option != "Option66" || run.mode != Mode::List)
        return window.value(p.option, bet, rule);
    return static_cast<int>(
        std::count_if(bet.begin() + 1, bet.begin() + 7, [&](int red) { return holds(run.pickedNumbers, red); }));
}

/// Presses everything once on fresh rows. \return options that took a bet out
std::set<std::string_view> pressAll(BenchTable& table, const Window& window,
                                    const std::vector<std::vector<int>>& bets, std::mt19937& random) {
    const bool seven = table.member.reds == 7;
    const sql::Transaction onDiskOnce(*table.database);
    std::set<std::string_view> took;
    for (const Parameter& p : table.member.catalogue()) {
        const filter::RunSettings run = randomRun(random);
        const plain::Rule rule = table.rule(run);
        std::vector<int> values;
        for (const auto& bet : bets)
            values.push_back(valueIn(window, p, plainBet(bet), rule, run));
        auto middle = values;
        std::ranges::nth_element(middle, middle.begin() + 20);
        const filter::RowInput row = randomRow(random, std::max(middle[20], 1));
        table.states().resetAll();
        filter::ParameterRun(table.bench()).press(p, row, run);
        const std::vector<int> canshu = table.column("canshu");
        const std::vector<int> out = table.column("unslt");
        const auto reasons = table.texts("Fliter");
        const bool parityLeft = p.kind == Kind::RedPosition;
        for (std::size_t bet = 0; bet < bets.size(); ++bet) {
            EXPECT_TRUE(parityLeft || canshu[bet] == values[bet])
                << window.form << ' ' << p.option << " row " << bet << ": " << canshu[bet] << ", not " << values[bet];
            const std::string outcome = plainOutcome(p, row, run, values[bet], seven);
            EXPECT_EQ(out[bet] != 0, !outcome.empty()) << window.form << ' ' << p.option << " row " << bet;
            EXPECT_EQ(reasons[bet], seven ? "" : outcome) << window.form << ' ' << p.option;
            if (!outcome.empty())
                took.insert(p.option);
        }
    }
    return took;
}

TEST_P(RedValues, AndPressesFollowPlainLoopsWhateverTicksModesAndRanges) {
    constexpr unsigned kSeed = 20261122;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    for (const Window& window : kWindows) {
        std::set<std::string_view> took;
        for (int round = 0; round < 10; ++round) {
            BenchTable table(GetParam(), window.form);
            table.Bitnum = round % 2 == 0 ? 33 : 38;
            const auto bets = randomBets(random, 40, table.member.reds, table.Bitnum);
            table.hold(bets);
            took.merge(pressAll(table, window, bets, random));
            if (HasFailure())
                return;
        }
        // 41以上 is 0 for every bet of these rules.
        EXPECT_GE(took.size(), filter::findMember(window.form)->catalogue().size() - 1) << window.form;
    }
}

TEST_P(RedValues, OfTheRedsFromThirtyOneToFortyLookAtTheFirstRedOnly) {
    BenchTable table(GetParam(), "GAganf");
    table.hold({{1, 5, 11, 31, 39, 40, 41}, {39, 41, 42, 43, 44, 45, 46}, {40, 41, 42, 43, 44, 45, 46}});
    filter::ParameterRun(table.bench()).compute(table.parameter("Option12"), {});
    EXPECT_EQ(table.column("canshu"),
              (std::vector<int>{4, 7, 0})); // 40 and 41 count, but not behind a first red of 40
    filter::ParameterRun(table.bench()).compute(table.parameter("Option41"), {});
    EXPECT_EQ(table.column("canshu"), (std::vector<int>{1, 6, 6}));
}

TEST_P(RedValues, OfSevenRedsCountEveryPositionWhateverTheBoxes) {
    BenchTable table(GetParam(), "GAganf");
    table.hold({{1, 2, 4, 8, 13, 21, 31}}); // 21 differences, all of them different
    filter::RunSettings run;
    run.ticked.fill(false);
    const std::pair<const char*, int> expected[] = {{"Option24", 15}, {"Option6", 10}, {"Option7", 30}};
    for (const auto& [option, value] : expected) {
        filter::ParameterRun(table.bench()).compute(table.parameter(option), run);
        EXPECT_EQ(table.column("canshu"), std::vector<int>{value}) << option;
    }
}

TEST_P(RedValues, AnAccumulatingRunOfSevenRedsTakesItsRowsOut) {
    BenchTable table(GetParam(), "GAganf");
    table.hold({{1, 2, 3, 4, 5, 6, 7}, {1, 3, 5, 7, 9, 11, 13}, {2, 4, 6, 8, 10, 12, 14}});
    table.database->execute("UPDATE [zuhef] SET [preunslt]=true WHERE [idx]=3");
    const filter::ParameterRun runs(table.bench());
    runs.accumulate(table.parameter("Option4"), range("0", "3"), {});
    runs.accumulate(table.parameter("Option13"), range("1", "2"), {});
    runs.accumulate(table.parameter("Option2"), range("0", "0"), {});
    EXPECT_EQ(table.column("unslt"), (std::vector<int>{-1, 0, -1}));
    EXPECT_EQ(table.column("preunslt"), (std::vector<int>{0, 0, -1})); // how it was before stays the caller's
}

INSTANTIATE_TEST_SUITE_P(Executors, RedValues, testing::ValuesIn(kExecutors));

} // namespace
} // namespace filter_test
