// The possible ranges: against all bets of small rules, run through the statements that a press runs.
#include "filter/value_range.h"

#include <algorithm>
#include <numeric>

#include <gtest/gtest.h>

#include "filter/bench_table.h"

namespace filter_test {
namespace {

using filter::Parameter;
using filter::possibleRange;
using filter::ValueRange;

ValueRange rangeOverAllBets(BenchTable& table, const Parameter& parameter) {
    if (!parameter.isPosition())
        filter::ParameterRun(table.bench()).compute(parameter, {});
    const std::vector<int> values =
        table.column(parameter.isPosition() ? std::string(parameter.column) : std::string("canshu"));
    const auto [low, high] = std::ranges::minmax(values);
    return {low, high};
}

// Twelve reds: a zone of 11 numbers leaves only one outside, two last digits stand twice. The omissions are all
// different, and three of the last draw's reds are in the rule; a blue can repeat one of them.
TEST(ValueRange, IsThatOfAllBetsOfASmallRule) {
    for (const char* form : {"GAgan", "GAganR", "GAganf"}) {
        BenchTable table(sql::Executor::Column, form);
        table.Bitnum = 12;
        std::vector<int> blues(table.member.blue ? 14 : 0);
        std::iota(blues.begin(), blues.end(), 1);
        table.enumerate(12, blues);
        for (const Parameter& parameter : table.member.catalogue()) {
            if (parameter.isInterval() || parameter.history == "Fcodp") // twelve reds have not enough differences
                continue;
            EXPECT_EQ(possibleRange(parameter, {12, 14}, table.history), rangeOverAllBets(table, parameter))
                << form << ' ' << parameter.option;
        }
    }
}

TEST(ValueRange, OfTheAcValueIsReachedInTheLeastRule) {
    BenchTable table;
    table.hold({{1, 2, 3, 4, 5, 6, 1}, {1, 2, 5, 11, 13, 18, 1}});
    const ValueRange range = rangeOverAllBets(table, parameter("Option24"));
    EXPECT_EQ(range, (ValueRange{0, 10}));
    EXPECT_EQ(possibleRange(parameter("Option24"), {28, 12}, table.history), range);

    BenchTable seven(sql::Executor::Column, "GAganf");
    seven.hold({{1, 2, 3, 4, 5, 6, 7}, {1, 2, 4, 9, 18, 22, 28}});
    EXPECT_EQ(rangeOverAllBets(seven, seven.parameter("Option24")), (ValueRange{0, 15}));
    EXPECT_EQ(possibleRange(seven.parameter("Option24"), {28, 12}, seven.history), (ValueRange{0, 15}));
}

TEST(ValueRange, OfSevenRedsFollowsTheRule) {
    const BenchTable table(sql::Executor::Column, "GAganf");
    const auto range = [&](const char* option, int reds) {
        return possibleRange(table.parameter(option), {reds, 16}, table.history);
    };
    EXPECT_EQ(range("Option23", 33), (ValueRange{28, 210})); // 1 to 7, 27 to 33
    EXPECT_EQ(range("Option12", 33), (ValueRange{0, 3}));    // 31 32 33
    EXPECT_EQ(range("Option12", 38), (ValueRange{0, 7}));
    EXPECT_EQ(range("Option41", 38), (ValueRange{0, 0}));
    EXPECT_EQ(range("Option19", 38), (ValueRange{7, 38}));
    EXPECT_EQ(range("Option20", 33), (ValueRange{0, 6})); // the last draw has six reds
}

TEST(ValueRange, FollowsTheRule) {
    const history::History none;
    EXPECT_EQ(possibleRange(parameter("Option23"), {}, none), (ValueRange{21, 183})); // 1 to 6, 28 to 33
    EXPECT_EQ(possibleRange(parameter("Option23"), {38, 18}, none), (ValueRange{21, 213}));
    EXPECT_EQ(possibleRange(parameter("Option33"), {33, 12}, none), (ValueRange{22, 195}));
    EXPECT_EQ(possibleRange(parameter("Option18"), {}, none), (ValueRange{6, 33}));
    EXPECT_EQ(possibleRange(parameter("Option19"), {33, 12}, none), (ValueRange{1, 12}));
    EXPECT_EQ(possibleRange(parameter("Option30"), {}, none), (ValueRange{0, 4})); // 01 11 21 31 02 12
    EXPECT_EQ(possibleRange(parameter("Option32"), {}, none), (ValueRange{0, 6})); // no blue is above 16.5
    EXPECT_EQ(possibleRange(parameter("Option20"), {}, none), (ValueRange{0, 0})); // nothing to repeat
}

// The search for the smallest omission starts at 99: longer ones count as 99.
TEST(ValueRange, OfTheOmissionSpreadKeepsToTheSearchForTheSmallest) {
    BenchTable table;
    table.Bitnum = 12;
    for (std::size_t red = 1; red <= 12; ++red)
        table.history.Ylnow[red] = static_cast<std::int16_t>(90 + 3 * red);
    table.enumerate(12, {1});
    EXPECT_EQ(possibleRange(parameter("Option42"), {12, 12}, table.history),
              rangeOverAllBets(table, parameter("Option42")));
}

TEST(ValueRange, IsThereForEveryParameterButThatOfTheUsersOwnNumbers) {
    for (const auto catalogue :
         {filter::sixAndBlueCatalogue(), filter::sixRedCatalogue(), filter::sevenRedCatalogue()})
        for (const Parameter& parameter : catalogue)
            EXPECT_EQ(possibleRange(parameter, {}, {}).has_value(), !parameter.isInterval()) << parameter.option;
}

} // namespace
} // namespace filter_test
