// The value of every parameter: against plain definitions on random rows and ticks, and against closed forms.
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "executor_names.h"
#include "filter/bench_table.h"
#include "filter/kernels.h"

namespace filter_test {
namespace {

class Values : public testing::TestWithParam<sql::Executor> {};

std::vector<std::vector<int>> randomBets(std::mt19937& random, int count, int highest) {
    std::vector<std::vector<int>> bets;
    while (static_cast<int>(bets.size()) < count) {
        std::vector<int> reds(static_cast<std::size_t>(highest));
        for (int red = 0; red < highest; ++red)
            reds[static_cast<std::size_t>(red)] = red + 1;
        std::shuffle(reds.begin(), reds.end(), random);
        reds.resize(6);
        std::sort(reds.begin(), reds.end());
        reds.push_back(static_cast<int>(random() % 16) + 1);
        bets.push_back(reds);
    }
    return bets;
}

/// Whether the ticks let the parameter compute a value at all.
bool computes(std::string_view option, int ticks) {
    return !((option == "Option6" && ticks < 3) || (option == "Option7" && ticks < 1));
}

TEST_P(Values, FollowTheirDefinitionsOnRandomRowsAndTicks) {
    constexpr unsigned kSeed = 20260711;
    std::mt19937 random(kSeed);
    for (int round = 0; round < 12; ++round) {
        BenchTable table(GetParam());
        table.Bitnum = round % 2 == 0 ? 33 : 38;
        const auto bets = randomBets(random, 300, table.Bitnum);
        table.hold(bets);
        filter::RunSettings run;
        run.intervalAbove = "6";
        run.intervalTo = "21";
        int ticks = 0;
        for (std::size_t position = 1; position <= 7; ++position) {
            run.ticked[position] = round == 0 || random() % 4 != 0;
            ticks += position <= 6 && run.ticked[position] ? 1 : 0;
        }
        const plain::Rule rule = table.rule(run);
        for (const filter::Parameter& parameter : filter::sixAndBlueCatalogue()) {
            if (!parameter.column.empty() || !computes(parameter.option, ticks))
                continue;
            filter::ParameterRun(table.bench()).compute(parameter, run);
            const std::vector<int> values = table.column("canshu");
            for (std::size_t row = 0; row < bets.size(); ++row) {
                plain::Bet bet{};
                std::copy(bets[row].begin(), bets[row].end(), bet.begin() + 1);
                ASSERT_EQ(values[row], plain::value(parameter.option, bet, rule))
                    << parameter.option << " row " << row << " seed " << kSeed << " round " << round;
            }
        }
    }
}

/// How many of all bets of reds 1..12 have each value, against counting by the plain definition.
TEST_P(Values, AreRightOverAllBetsOfASmallRule) {
    BenchTable table(GetParam());
    table.enumerate(12, {3, 12});
    const sql::Rows rows = table.view().generated().rows;
    const plain::Rule rule = table.rule();
    for (const filter::Parameter& parameter : filter::sixAndBlueCatalogue()) {
        if (!parameter.column.empty() || parameter.option == "Option66")
            continue;
        filter::ParameterRun(table.bench()).compute(parameter, {});
        const std::vector<int> values = table.column("canshu");
        for (std::int64_t row = 0; row < rows.count(); ++row)
            ASSERT_EQ(values[static_cast<std::size_t>(row)],
                      plain::value(parameter.option, table.bet(rows, row), rule))
                << parameter.option << " row " << row;
    }
}

TEST_P(Values, PickedNumbersAreCountedForRowsInPlayOnly) {
    BenchTable table(GetParam());
    table.hold({{1, 5, 11, 17, 25, 33, 6}, {1, 2, 3, 4, 5, 6, 6}, {2, 3, 5, 13, 25, 31, 5}});
    table.database->execute("UPDATE [zuhe] SET [unslt]=true WHERE [idx]=2");
    filter::RunSettings run = settings(filter::Mode::List, filter::kKeep);
    run.pickedNumbers = "5  25 3"; // 3 is no 13, 33 or 31; blues do not count
    run.ticked.fill(false);        // nor do the position boxes
    filter::ParameterRun(table.bench()).compute(parameter("Option66"), run);
    EXPECT_EQ(table.column("canshu"), (std::vector<int>{2, 0, 3}));
}

TEST_P(Values, WithAllTicksClearEverySumIsZero) {
    BenchTable table(GetParam());
    table.hold({{1, 5, 11, 17, 25, 33, 6}, {1, 2, 3, 4, 5, 6, 7}});
    filter::RunSettings run;
    run.ticked.fill(false);
    const std::map<std::string_view, int> others{{"Option24", 1}, {"Option30", 6}, {"Option42", -99}};
    for (const filter::Parameter& parameter : filter::sixAndBlueCatalogue()) {
        if (!parameter.column.empty() || !computes(parameter.option, 0))
            continue;
        filter::ParameterRun(table.bench()).compute(parameter, run);
        const int expected = others.contains(parameter.option) ? others.at(parameter.option) : 0;
        EXPECT_EQ(table.column("canshu"), std::vector<int>(2, expected)) << parameter.option;
    }
    table.press("Option23", range("1", "999"), run);
    EXPECT_EQ(table.inPlay(), 0);
    table.states().resetAll();
    table.press("Option23", range("0", "999"), run);
    EXPECT_EQ(table.inPlay(), 2);
}

TEST_P(Values, TheBoundaryOfBigRedsFollowsTheRule) {
    BenchTable table(GetParam());
    table.hold({{1, 2, 3, 4, 16, 17, 16}});
    filter::ParameterRun(table.bench()).compute(parameter("Option5"), {});
    EXPECT_EQ(table.column("canshu"), std::vector<int>{1}); // 17 above 16.5
    table.Bitnum = 32;
    filter::ParameterRun(table.bench()).compute(parameter("Option5"), {});
    EXPECT_EQ(table.column("canshu"), std::vector<int>{1}); // 17 above 16, 16 not
    table.Bitnum = 31;
    filter::ParameterRun(table.bench()).compute(parameter("Option5"), {});
    EXPECT_EQ(table.column("canshu"), std::vector<int>{2}); // both above 15.5
}

TEST_P(Values, ABlueOfSixteenNumbersIsNeverBig) {
    BenchTable table(GetParam());
    table.hold({{1, 2, 3, 4, 5, 6, 16}, {1, 2, 3, 4, 5, 6, 1}});
    filter::ParameterRun(table.bench()).compute(parameter("Option32"), {});
    EXPECT_EQ(table.column("canshu"), (std::vector<int>{0, 0}));
}

TEST_P(Values, APositionWithoutATickBreaksBothItsPairs) {
    BenchTable table(GetParam());
    table.hold({{1, 2, 3, 4, 10, 11, 1}});
    filter::RunSettings run;
    filter::ParameterRun(table.bench()).compute(parameter("Option2"), run);
    EXPECT_EQ(table.column("canshu"), std::vector<int>{4}); // 1-2 2-3 3-4 10-11
    run.ticked[3] = false;
    filter::ParameterRun(table.bench()).compute(parameter("Option2"), run);
    EXPECT_EQ(table.column("canshu"), std::vector<int>{2}); // 1-2 10-11
}

TEST_P(Values, HandWorkedDigitsAndAcValues) {
    BenchTable table(GetParam());
    table.hold(
        {{1, 12, 23, 34, 35, 36, 1}, {1, 11, 21, 31, 2, 12, 1}, {1, 2, 3, 4, 5, 6, 1}, {1, 2, 4, 8, 16, 32, 1}});
    filter::ParameterRun(table.bench()).compute(parameter("Option30"), {});
    EXPECT_EQ(table.column("canshu"), (std::vector<int>{0, 4, 0, 1})); // 2 and 32 share a digit
    filter::ParameterRun(table.bench()).compute(parameter("Option24"), {});
    const std::vector<int> values = table.column("canshu");
    EXPECT_EQ(values[2], 0);  // differences 1..5, five less five
    EXPECT_EQ(values[3], 10); // 2^a - 2^b are fifteen different numbers
}

TEST_P(Values, TheBlueIsLookedUpAmongTheLastReds) {
    BenchTable table(GetParam());
    table.hold(
        {{1, 3, 4, 6, 7, 8, 5}, {1, 3, 4, 6, 7, 8, 6}, {2, 5, 11, 17, 25, 33, 1}}); // last: 2 5 11 17 25 33 + 6
    filter::ParameterRun(table.bench()).compute(parameter("Option34"), {});
    EXPECT_EQ(table.column("canshu"), (std::vector<int>{1, 0, 6}));
    filter::ParameterRun(table.bench()).compute(parameter("Option20"), {});
    EXPECT_EQ(table.column("canshu"), (std::vector<int>{0, 0, 6}));
}

TEST_P(Values, WithExactlyTwoTicksTheLargestGapKeepsTheFormerValues) {
    BenchTable table(GetParam());
    table.hold({{1, 5, 11, 17, 25, 33, 6}, {1, 2, 3, 4, 5, 6, 7}});
    filter::RunSettings run;
    run.ticked = {true, true, true, false, false, false, false, true};
    table.press("Option23", range("0", "999"));
    table.press("Option6", range("50", "99"), run);
    EXPECT_EQ(table.column("canshu"), (std::vector<int>{92, 21}));
    EXPECT_EQ(table.column("unslt"), (std::vector<int>{0, -1})); // the filter still runs, on the old values
    EXPECT_EQ(table.texts("Fliter")[1], "最大差值大小:21 保留50~99");
}

INSTANTIATE_TEST_SUITE_P(Executors, Values, testing::ValuesIn(kExecutors));

std::vector<std::int64_t> countsOfAllBets(const std::string& option, int values) {
    static BenchTable table;
    if (!table.database->hasTable("zuhe"))
        table.enumerate(33, {1});
    filter::ParameterRun(table.bench()).compute(parameter(option), {});
    std::vector<std::int64_t> counts;
    for (int value = 0; value < values; ++value)
        counts.push_back(sql::toInteger(
            table.database->queryValue("SELECT Count(*) FROM [zuhe] WHERE [canshu] = " + std::to_string(value))));
    return counts;
}

TEST(AllBets, EvenRedsFollowTheClosedForm) {
    const auto counts = countsOfAllBets("Option4", 7); // 16 even reds of 33, 17 odd ones
    for (int even = 0; even <= 6; ++even)
        EXPECT_EQ(counts[static_cast<std::size_t>(even)], choose(16, even) * choose(17, 6 - even));
}

TEST(AllBets, BigRedsAndZonesFollowTheClosedForm) {
    const auto big = countsOfAllBets("Option5", 7); // 17..33
    const auto divisible = countsOfAllBets("Option12", 7);
    for (int many = 0; many <= 6; ++many) {
        EXPECT_EQ(big[static_cast<std::size_t>(many)], choose(17, many) * choose(16, 6 - many));
        EXPECT_EQ(divisible[static_cast<std::size_t>(many)], choose(11, many) * choose(22, 6 - many));
    }
    for (const char* zone : {"Option9", "Option10", "Option11"})
        EXPECT_EQ(countsOfAllBets(zone, 7), divisible) << zone; // eleven numbers each
}

TEST(AllBets, NeighbouringPairsAndAcValuesAreTheKnownOnes) {
    EXPECT_EQ(countsOfAllBets("Option2", 6), (std::vector<std::int64_t>{376740, 491400, 204750, 32760, 1890, 28}));
    EXPECT_EQ(countsOfAllBets("Option24", 11),
              (std::vector<std::int64_t>{93, 437, 3093, 9642, 32735, 68694, 184858, 224408, 339540, 158760, 85308}));
}

TEST(AllBets, RepeatedRedsFollowTheClosedForm) {
    const auto counts = countsOfAllBets("Option20", 7);
    for (int many = 0; many <= 6; ++many)
        EXPECT_EQ(counts[static_cast<std::size_t>(many)], choose(6, many) * choose(27, 6 - many));
}

TEST(Kernels, WorkAValueOutAnewWhereAnyTickedNumberChanges) {
    const std::vector<std::vector<std::int32_t>> columns{{1, 1, 1, 2}, {2, 2, 2, 3}, {3, 3, 3, 4},
                                                         {4, 4, 4, 5}, {5, 5, 5, 6}, {6, 6, 16, 26}};
    std::vector<std::span<const std::int32_t>> inputs(columns.begin(), columns.end());
    std::vector<std::int32_t> values(4, -1);
    filter::sameLastDigitsKernel({0, 1, 2, 3, 4, 5})(inputs, values);
    EXPECT_EQ(values, (std::vector<std::int32_t>{0, 0, 0, 1}));
    filter::acValueKernel({0, 5})(inputs, values);
    EXPECT_EQ(values, (std::vector<std::int32_t>{0, 0, 0, 0}));
    filter::acValueKernel({})(inputs, values);
    EXPECT_EQ(values, (std::vector<std::int32_t>{1, 1, 1, 1}));
}

} // namespace
} // namespace filter_test
