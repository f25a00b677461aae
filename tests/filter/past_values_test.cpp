// What the windows without a blue tell of past draws.
#include "filter/past_values.h"

#include <gtest/gtest.h>

#include "filter/bench_table.h"
#include "history/derive.h"

namespace filter_test {
namespace {

using filter::PastValues;
using filter::ValueRange;

/// The draws 1 2 3 20 21 22 + 9 and 5 10 15 20 25 30 + 4.
history::History twoDraws() {
    history::History history;
    const history::Draw draws[] = {{2026001, 1, 2, 3, 20, 21, 22, 9}, {2026002, 5, 10, 15, 20, 25, 30, 4}};
    for (const history::Draw& draw : draws) {
        history.derived.push_back(history::deriveDraw(draw, history.Lshm.back(), history.Ylnow, {}));
        history.Lshm.push_back(draw);
        ++history.Lsnum;
    }
    return history;
}

TEST(PastValues, OfSixRedsAloneAreTakenFromTheirColumns) {
    const BenchTable table(sql::Executor::Column, "GAganR");
    const history::History history = twoDraws();
    const auto small = pastValues(history, table.parameter("Option39"), 6, 29);
    ASSERT_TRUE(small);
    EXPECT_EQ(small->latest, (std::vector{30, 6})); // up to 16: 5 10 15, and 1 2 3
    EXPECT_EQ(small->seen, (ValueRange{6, 30}));
    EXPECT_EQ(small->inside, 1);
    EXPECT_EQ(pastValues(history, table.parameter("Option40"), 0, 99)->latest, (std::vector{75, 63}));
    EXPECT_EQ(pastValues(history, table.parameter("Option18"), 0, 99)->latest, (std::vector{30, 22}));
    EXPECT_TRUE(pastValues(history, table.parameter("Option38"), 0, 99)); // intYljz
    EXPECT_FALSE(pastValues(history, table.parameter("Option19"), 0, 99)) << "the history does not count fives";
}

TEST(PastValues, OfSevenRedsAreThoseOfTheSixDrawn) {
    const BenchTable table(sql::Executor::Column, "GAganf");
    const history::History history = twoDraws();
    EXPECT_EQ(pastValues(history, table.parameter("Option23"), 0, 99)->latest, (std::vector{105, 69}));
    EXPECT_EQ(pastValues(history, table.parameter("Option18"), 0, 99)->latest, (std::vector{30, 22}));
    for (const char* option : {"Option9", "Option10", "Option11", "Option12", "Option41"})
        EXPECT_FALSE(pastValues(history, table.parameter(option), 0, 99)) << option;
    EXPECT_FALSE(pastValues(history, table.parameter("Option19"), 0, 99)) << "the seventh number drawn is the blue";
}

} // namespace
} // namespace filter_test
