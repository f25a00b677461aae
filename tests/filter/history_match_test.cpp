// The history filters: worked answers, the odd corners, and which statements a search runs.
#include <map>

#include <gtest/gtest.h>

#include "executor_names.h"
#include "filter/bench_table.h"
#include "filter/history_match.h"

namespace filter_test {
namespace {

using filter::matchHistory;
using filter::matchHistoryByStatements;
using filter::SuperFilter;
using Ints = std::vector<int>;
using Texts = std::vector<std::string>;
using Bets = std::vector<std::vector<int>>;

const SuperFilter& four = filter::sixAndBlueSuperFilters()[0];
const SuperFilter& seven = filter::sixAndBlueSuperFilters()[3];

/// Draws, oldest first.
history::History historyOf(const std::vector<history::Draw>& draws) {
    history::History history;
    history.Lsnum = static_cast<int>(draws.size());
    history.Lshm.insert(history.Lshm.end(), draws.begin(), draws.end());
    return history;
}

class HistoryMatch : public testing::TestWithParam<sql::Executor> {
  protected:
    HistoryMatch() : table(GetParam()) {}
    Ints unslt() { return table.column("unslt"); }
    void setHistory(const std::vector<history::Draw>& draws) { table.history = historyOf(draws); }

    BenchTable table; // one draw, 2026001: 2 5 11 17 25 33 + 6
};

TEST_P(HistoryMatch, ABetEqualToTheOnlyDrawSharesSevenNumbersAndGoes) {
    table.hold({{2, 5, 11, 17, 25, 33, 6}, {2, 5, 11, 17, 25, 33, 7}});
    matchHistory(table.bench(), seven, 1);
    EXPECT_EQ(table.column("canshu"), (Ints{7, 6}));
    EXPECT_EQ(unslt(), (Ints{-1, 0}));
    EXPECT_EQ(table.texts("Fliter"), (Texts{"历史同7过滤 检索前 1 期2026001期 有7码相同", ""}));
    EXPECT_EQ(table.texts("Numstring"), (Texts{"02 05 11 17 25 33", "02 05 11 17 25 33"}));
}

TEST_P(HistoryMatch, TheFilterByFourReportsItselfAsTheFilterBySix) {
    table.hold({{2, 5, 11, 17, 30, 31, 1}, {2, 5, 11, 29, 30, 31, 1}, {2, 5, 11, 29, 30, 31, 6}});
    matchHistory(table.bench(), four, 1);
    EXPECT_EQ(unslt(), (Ints{-1, 0, -1})); // with its blue the last bet has four
    EXPECT_EQ(table.texts("Fliter"), (Texts{"历史同6过滤 检索前 1 期2026001期 有4码相同", "",
                                            "历史同6过滤 检索前 1 期2026001期 有4码相同"}));
}

TEST_P(HistoryMatch, EachFilterGoesByItsOwnNumber) {
    const Bets bets{{2, 5, 11, 29, 30, 31, 1},
                    {2, 5, 11, 17, 30, 31, 1},
                    {2, 5, 11, 17, 25, 31, 1},
                    {2, 5, 11, 17, 25, 33, 1},
                    {2, 5, 11, 17, 25, 33, 6}}; // 3 4 5 6 7 in common
    const std::map<std::string_view, Ints> expected{{"Optio37", {0, -1, -1, -1, -1}},
                                                    {"Option26", {0, 0, -1, -1, -1}},
                                                    {"Option28", {0, 0, 0, -1, -1}},
                                                    {"Option27", {0, 0, 0, 0, -1}}};
    for (const SuperFilter& filter : filter::sixAndBlueSuperFilters().first(4)) {
        sql::passOver(*table.database, "DROP TABLE [zuhe]");
        table.hold(bets);
        matchHistory(table.bench(), filter, 1);
        EXPECT_EQ(unslt(), expected.at(filter.option)) << filter.option;
    }
}

TEST_P(HistoryMatch, OfEqualDrawsTheLatestCountsAndTheBlueMayDrawLevel) {
    setHistory({{101, 1, 2, 3, 4, 20, 21, 9},    // five with blue 9
                {102, 1, 2, 3, 30, 31, 32, 5},   // three
                {103, 1, 2, 3, 4, 22, 23, 1},    // four
                {104, 1, 2, 3, 24, 25, 26, 8},   // three, four with blue 8
                {105, 7, 8, 9, 10, 11, 12, 1}}); // the latest: none
    table.hold({{1, 2, 3, 4, 5, 6, 16},
                {1, 2, 3, 4, 5, 6, 9},
                {1, 2, 3, 4, 5, 6, 8},
                {1, 2, 3, 4, 5, 6, 1},
                {1, 2, 3, 4, 5, 6, 5}});
    matchHistory(table.bench(), seven, 5);
    EXPECT_EQ(table.column("canshu"), (Ints{4, 5, 4, 5, 4}));
    EXPECT_EQ(table.column("JSqihao"), (Ints{103, 101, 104, 103, 103}));
    EXPECT_EQ(table.column("SKnum"), (Ints{4, 5, 4, 4, 4})); // of the draw searched last, 101
    matchHistory(table.bench(), seven, 2);
    EXPECT_EQ(table.column("canshu"), (Ints{3, 3, 4, 3, 3}));
    EXPECT_EQ(table.column("JSqihao"), (Ints{104, 104, 104, 104, 104}));
}

TEST_P(HistoryMatch, ABetWithoutAHitKeepsItsIssueOrItsNull) {
    table.hold({{1, 3, 4, 6, 7, 8, 9}, {1, 3, 4, 6, 7, 8, 10}, {1, 3, 4, 6, 7, 8, 6}});
    table.database->execute("UPDATE [zuhe] SET [JSqihao]=77 WHERE [idx]=2");
    matchHistory(table.bench(), seven, 1);
    EXPECT_EQ(table.column("canshu"), (Ints{0, 0, 1}));
    EXPECT_EQ(table.texts("JSqihao"), (Texts{"", "77", "2026001"}));
}

TEST_P(HistoryMatch, RowsOutOfPlayGetZerosAndKeepTheirReason) {
    table.hold({{2, 5, 11, 17, 25, 33, 6}, {2, 5, 11, 17, 25, 33, 6}});
    table.database->execute("UPDATE [zuhe] SET [unslt]=true , [Fliter]=\"手工删除\" , [SKnum]=3 , [JSqihao]=88 "
                            "WHERE [idx]=1");
    matchHistory(table.bench(), seven, 1);
    EXPECT_EQ(table.column("preunslt"), (Ints{-1, 0}));
    EXPECT_EQ(unslt(), (Ints{-1, -1}));
    EXPECT_EQ(table.column("canshu"), (Ints{0, 7}));
    EXPECT_EQ(table.column("SKnum"), (Ints{0, 7}));
    EXPECT_EQ(table.column("JSqihao"), (Ints{88, 2026001}));
    EXPECT_EQ(table.texts("Fliter")[0], "手工删除");
}

TEST_P(HistoryMatch, SearchingNoDrawTakesTheSnapshotAndClearsTheCount) {
    table.hold({{2, 5, 11, 17, 25, 33, 6}});
    table.database->execute("UPDATE [zuhe] SET [SKnum]=3 , [canshu]=5");
    matchHistory(table.bench(), four, 0);
    EXPECT_EQ(table.column("canshu"), (Ints{0}));
    EXPECT_EQ(table.column("SKnum"), (Ints{3}));
    EXPECT_EQ(unslt(), (Ints{0}));
    EXPECT_EQ(table.texts("JSqihao"), (Texts{""}));
}

TEST_P(HistoryMatch, BeyondTheFirstDrawOnlyTheCountOfTheLastOneIsLost) {
    for (const std::int64_t draws : {2, 3, 2000000000}) {
        sql::passOver(*table.database, "DROP TABLE [zuhe]");
        table.hold({{2, 5, 11, 17, 25, 33, 6}});
        matchHistory(table.bench(), seven, draws);
        EXPECT_EQ(table.column("canshu"), (Ints{7})) << draws;
        EXPECT_EQ(table.column("JSqihao"), (Ints{2026001})) << draws;
        EXPECT_EQ(table.column("SKnum"), (Ints{0})) << draws;
        EXPECT_EQ(table.texts("Fliter"),
                  (Texts{"历史同7过滤 检索前 " + std::to_string(draws) + " 期2026001期 有7码相同"}));
    }
}

TEST_P(HistoryMatch, WithoutDrawsNothingMatches) {
    setHistory({});
    table.hold({{2, 5, 11, 17, 25, 33, 6}});
    matchHistory(table.bench(), four, 5);
    EXPECT_EQ(table.column("canshu"), (Ints{0}));
    EXPECT_EQ(table.column("SKnum"), (Ints{0}));
    EXPECT_EQ(unslt(), (Ints{0}));
}

TEST_P(HistoryMatch, TableLishiIsThereAndEmptyAfterwards) {
    table.hold({{2, 5, 11, 17, 25, 33, 6}});
    EXPECT_FALSE(table.database->hasTable("Lishi"));
    for (int round = 0; round < 2; ++round) {
        matchHistory(table.bench(), four, 1);
        EXPECT_EQ(table.database->rowCount("Lishi"), 0);
        EXPECT_EQ(table.database->columnNames("Lishi"), (Texts{"NumString", "idx"}));
    }
}

TEST_P(HistoryMatch, AMissingTableIsPassedOver) {
    matchHistory(table.bench(), four, 1);
    EXPECT_FALSE(table.database->hasTable("zuhe"));
}

TEST_P(HistoryMatch, OnePassStandsForTheStatementsOfAllDraws) {
    table.hold({{2, 5, 11, 17, 25, 33, 6}});
    setHistory({{1, 1, 2, 3, 4, 5, 6, 7}, {2, 2, 5, 11, 17, 25, 33, 7}, {3, 1, 2, 3, 4, 5, 6, 6}});
    matchHistory(table.bench(), four, 3);
    EXPECT_EQ(table.takeStatements().size(), 6u); // Lishi twice, snapshot, 0, text, filter
    matchHistoryByStatements(table.bench(), four, 3);
    EXPECT_EQ(table.takeStatements().size(), 6u + 4 * 3);
}

INSTANTIATE_TEST_SUITE_P(Executors, HistoryMatch, testing::ValuesIn(kExecutors));

} // namespace
} // namespace filter_test
