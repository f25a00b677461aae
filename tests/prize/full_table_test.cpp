// All 17,721,088 bets of the whole rule against one draw: how many win which, by the formula of the draw.
#include "filter/member.h"
#include "prize/query_support.h"
#include "selection/enumeration.h"

namespace prize_tests {
namespace {

std::int64_t choose(int n, int k) {
    std::int64_t ways = 1;
    for (int taken = 1; taken <= k; ++taken)
        ways = ways * (n - taken + 1) / taken;
    return ways;
}

/// Bets that share so many reds with a draw of six from 33, with its blue or with one of the other fifteen.
std::int64_t bets(int reds, bool blue) {
    return choose(6, reds) * choose(27, 6 - reds) * (blue ? 1 : 15);
}

TEST(AllBets, WinAsOftenAsTheFormulaSays) {
    QueryTable table;
    selection::GenerationInput input;
    for (int red = 1; red <= 33; ++red)
        input.chosen.reds.push_back(red);
    for (int blue = 1; blue <= 16; ++blue)
        input.chosen.blues.push_back(blue);
    input.Genreds = 33;
    selection::Enumeration source(input);
    source.fill(*table.database, filter::shapeOf(*filter::findMember("GAgan")), nullptr);
    const prize::Query query = table.opened();
    ASSERT_EQ(query.keptCount(), 17721088);
    std::vector<std::int64_t> counted;
    std::int64_t winners = 0;
    for (const prize::LevelRow& level : query.summary().kept) {
        counted.push_back(level.bets);
        winners += level.bets;
    }
    const std::vector<std::int64_t> expected{bets(6, true),
                                             bets(6, false),
                                             bets(5, true),
                                             bets(5, false) + bets(4, true),
                                             bets(4, false) + bets(3, true),
                                             bets(2, true) + bets(1, true) + bets(0, true)};
    EXPECT_EQ(expected, (std::vector<std::int64_t>{1, 15, 162, 7695, 137475, 1043640})) << "worked by hand";
    EXPECT_EQ(counted, expected);
    EXPECT_EQ(query.keptCount() - winners, 16532100);
    EXPECT_EQ(query.Cost, 35442176);
    EXPECT_EQ(query.Income, 5000000 + 15 * 50000 + 162 * 3000 + 7695 * 200 + 137475 * 10 + 1043640 * 5);
}

} // namespace
} // namespace prize_tests
