// The real draws: eight more worked by hand (the first two are in derive_test.cpp), and what must hold for all.
#include <algorithm>
#include <map>
#include <numeric>
#include <set>

#include <gtest/gtest.h>

#include "history/derive.h"
#include "history/draws_support.h"
#include "history/statistics.h"

#define NEED_REAL_DRAWS() ASSERT_EQ(realDraws().size(), 3358u)

namespace {

using history::Derived;
using history::Draw;

constexpr workspace::Rule kRule{33, 16};

/// Every real draw with its derived values, and the history counted along.
struct Walked {
    history::History history;
    std::vector<std::array<std::int16_t, 39>> before; ///< omissions before draw i, from 1
};

const Walked& walked() {
    static const Walked all = [] {
        Walked walk;
        walk.before.emplace_back();
        for (const Draw& draw : realDraws()) {
            history::History& held = walk.history;
            walk.before.push_back(held.Ylnow);
            held.derived.push_back(history::deriveDraw(draw, held.Lshm.back(), held.Ylnow, kRule));
            countDraw(held, draw, kRule);
            held.Lshm.push_back(draw);
            ++held.Lsnum;
        }
        computeShares(walk.history, kRule);
        return walk;
    }();
    return all;
}

struct Worked {
    Draw draw;
    std::array<std::int16_t, 6> omissions; ///< of the six reds, counted back in the list of draws
    std::array<std::int16_t, 36> values;   ///< in the order of kDerivedColumns
};

// Each line of values: sums and odd/even | digits, omissions, parity of the sums | big, halves | repeats | gaps, AC |
// zones, spread of the omissions.
const Worked kWorked[] = {
    // All odd, same blue as before (7). 21 + 73. Digits 3 5 3 7 5 1, four distinct; 17 ends like the blue.
    // Gaps 2 8 4 8 6. Differences 2|10 8|14 12 4|22 20 12 8|28 26 18 14 6: twelve distinct.
    {{2004076, 3, 5, 13, 17, 25, 31, 7}, {4, 1, 2, 4, 9, 7}, {94, 101, 6, 0, 7, 0,  94, 0,  24, 27, -1, 0,
                                                              4,  1,   3, 3, 3, 3,  21, 73, 4,  3,  2,  3,
                                                              0,  1,   0, 0, 8, 28, 7,  2,  2,  2,  1,  8}},
    // All even, 10 again. 28 + 78. Digits 4 0 4 8 8 2. Gaps 6 4 4 10 4.
    // Differences 6|10 4|14 8 4|24 18 14 10|28 22 18 14 4: 4 6 8 10 14 18 22 24 28, nine.
    {{2004026, 4, 10, 14, 18, 28, 32, 15}, {9, 0, 2, 10, 5, 1}, {106, 121, 0, 6, 1,  6,  0,  106, 26, 27, -1, 0,
                                                                 6,   1,   2, 4, 3,  3,  28, 78,  3,  4,  2,  2,
                                                                 1,   1,   0, 0, 10, 28, 4,  2,   2,  2,  1,  10}},
    // Five in a row. 30 + 32. Digits all distinct, 5 ends like the blue. Gaps 1 1 1 1 24.
    // Differences 1 2 3 4 within the run and 24..28 to 32: nine.
    {{2005043, 4, 5, 6, 7, 8, 32, 5}, {4, 8, 15, 4, 9, 2}, {62, 67, 2, 4, 3,  4,  12, 50, 32, 42, -1, 0,
                                                            2,  7,  4, 2, 5,  1,  30, 32, 6,  1,  0,  1,
                                                            0,  0,  4, 4, 24, 28, 4,  5,  0,  1,  1,  13}},
    // Four reds end in 2; 02 and 12 again; 22 was absent for 42 draws. 14 + 100. Digits 2 9 7. Gaps 10 7 3 5 5.
    // Differences 10|17 7|20 10 3|25 15 8 5|30 20 13 10 5: 3 5 7 8 10 13 15 17 20 25 30, eleven.
    {{2003074, 2, 12, 19, 22, 27, 32, 1}, {0, 0, 1, 42, 1, 5}, {114, 115, 2, 4, 3,  4,  46, 68,  24, 49, -1, 0,
                                                                4,   5,   2, 4, 2,  4,  14, 100, 3,  4,  3,  3,
                                                                2,   2,   0, 0, 10, 30, 6,  1,   3,  2,  2,  42}},
    // 04 after 47 draws, the longest absence of all. 14 + 94. Digits 4 0 7 2 3 2. Gaps 6 7 5 1 9. No multiple of 3.
    // Differences 6|13 7|18 12 5|19 13 6 1|28 22 15 10 9: only 6 and 13 come twice, thirteen.
    {{2023130, 4, 10, 17, 22, 23, 32, 16}, {47, 3, 0, 2, 25, 0}, {108, 124, 2, 4, 2, 5,  40, 68, 18, 77, -1, -1,
                                                                  8,   4,   1, 5, 2, 4,  14, 94, 2,  5,  1,  1,
                                                                  2,   2,   1, 1, 9, 28, 8,  2,  2,  2,  0,  47}},
    // Five reds and the blue of the draw before. 23 + 102. Digits 9 4 3 4 6 9; 23 ends like the blue. Gaps 5 9 1 2 3.
    // Differences 5|14 9|15 10 1|17 12 3 2|20 15 6 5 3: 1 2 3 5 6 9 10 12 14 15 17 20, twelve.
    {{2013077, 9, 14, 23, 24, 26, 29, 3}, {1, 0, 0, 0, 0, 0}, {125, 128, 3, 3, 4, 3,  61, 64,  35, 1, 0, -1,
                                                               5,   8,   3, 3, 2, 4,  23, 102, 3,  4, 2, 3,
                                                               5,   6,   1, 1, 9, 20, 7,  1,   1,  4, 2, 1}},
    // No red in the lower half, three pairs of neighbours apart from each other. Gaps 1 5 1 5 1.
    // Differences 1|6 5|7 6 1|12 11 6 5|13 12 7 6 1: 1 5 6 7 11 12 13, seven: the lowest AC value of all.
    {{2003057, 18, 19, 24, 25, 30, 31, 16}, {15, 3, 5, 7, 4, 1}, {147, 163, 3, 3, 3, 4,  75, 72,  27, 35, 0, 0,
                                                                  7,   3,   3, 3, 0, 6,  0,  147, 0,  7,  0, 0,
                                                                  0,   0,   3, 1, 5, 13, 2,  0,   2,  4,  3, 14}},
    // The smallest sum. Gaps 1 1 1 5 1. Digits distinct, 02 ends like the blue.
    // Differences 1|2 1|3 2 1|8 7 6 5|9 8 7 6 1: 1 2 3 5 6 7 8 9, eight.
    {{2020120, 1, 2, 3, 4, 9, 10, 12}, {0, 7, 6, 4, 0, 2}, {29, 41, 3, 3, 3, 4, 13, 16, 19, 19, 0, 0,
                                                            9,  1,  1, 5, 6, 0, 29, 0,  6,  1,  0, 1,
                                                            2,  2,  4, 3, 5, 9, 3,  6,  0,  0,  2, 7}},
};

TEST(RealDraws, EightWorkedByHand) {
    NEED_REAL_DRAWS();
    const auto& history = walked().history;
    for (const Worked& worked : kWorked) {
        const auto found = std::find(history.Lshm.begin(), history.Lshm.end(), worked.draw);
        ASSERT_NE(found, history.Lshm.end()) << worked.draw[0];
        const auto row = static_cast<std::size_t>(found - history.Lshm.begin());
        for (std::size_t red = 0; red < 6; ++red)
            EXPECT_EQ(walked().before[row][static_cast<std::size_t>(worked.draw[red + 1])], worked.omissions[red]);
        for (std::size_t column = 0; column < worked.values.size(); ++column)
            EXPECT_EQ(history::kDerivedColumns[column].get(history.derived[row]), worked.values[column])
                << worked.draw[0] << " " << history::kDerivedColumns[column].name;
    }
}

TEST(RealDraws, AllAreThere) {
    NEED_REAL_DRAWS();
    EXPECT_EQ(realDraws().size(), 3358u);
    EXPECT_EQ(realDraws().front(), (Draw{2003001, 10, 11, 12, 13, 26, 28, 11}));
}

TEST(RealDraws, PartsAddUpToTheirWhole) {
    NEED_REAL_DRAWS();
    const auto& history = walked().history;
    for (int draw = 1; draw <= history.Lsnum; ++draw) {
        const Derived& row = history.derived[static_cast<std::size_t>(draw)];
        const Draw& numbers = history.Lshm[static_cast<std::size_t>(draw)];
        EXPECT_EQ(row.Jnum + row.Onum, 6) << draw;
        EXPECT_EQ(row.JnumB + row.OnumB, 7) << draw;
        EXPECT_EQ(row.Bignum + row.Smlnum, 6) << draw;
        EXPECT_EQ(row.Ltlnum + row.Mornum, 6) << draw;
        EXPECT_EQ(row.LtlnumB + row.MornumB, 7) << draw;
        EXPECT_EQ(row.Znum, row.Zjnum + row.Zonum) << draw;
        EXPECT_EQ(row.Znum, row.XZnumB + row.DZnumB) << draw;
        EXPECT_EQ(row.ZnumB, row.Znum + numbers[7]) << draw;
        EXPECT_EQ(row.Qnum[0] + row.Qnum[1] + row.Qnum[2], 6) << draw;
        EXPECT_EQ(row.Apzounum, numbers[6] - numbers[1]) << draw;
        EXPECT_EQ(row.Sumjonum, row.Jnum % 2 == 0) << draw; // an even sum has an even count of odd numbers
        EXPECT_EQ((row.Znum - row.Zgnum) % 10, 0) << draw;
    }
}

TEST(RealDraws, ValuesStayInTheirRanges) {
    NEED_REAL_DRAWS();
    const auto& history = walked().history;
    for (int draw = 1; draw <= history.Lsnum; ++draw) {
        const Derived& row = history.derived[static_cast<std::size_t>(draw)];
        EXPECT_TRUE(row.Fcodp >= 0 && row.Fcodp <= 10) << draw;
        EXPECT_TRUE(row.Znum >= 21 && row.Znum <= 183) << draw;
        EXPECT_TRUE(row.Lxnum <= row.Lnum && row.Lnum <= 5 && (row.Lxnum > 0) == (row.Lnum > 0)) << draw;
        EXPECT_TRUE(row.Mxzounum * 5 >= row.Apzounum && row.Mxzounum <= row.Apzounum - 4) << draw;
        EXPECT_TRUE(row.Cnum >= 0 && row.Cnum <= 6 && row.CnumB - row.Cnum >= 0 && row.CnumB - row.Cnum <= 1) << draw;
        EXPECT_TRUE(row.intYljz >= 0 && row.intYljz <= row.Zynum) << draw;
        EXPECT_TRUE(row.Modenum >= 0 && row.Modenum <= 5 && row.ModenumB >= row.Modenum) << draw;
    }
}

TEST(RealDraws, TheAcValueIsTheDistinctDifferencesLessFive) {
    NEED_REAL_DRAWS();
    const auto& history = walked().history;
    for (int draw = 1; draw <= history.Lsnum; ++draw) {
        const Draw& numbers = history.Lshm[static_cast<std::size_t>(draw)];
        std::set<int> distinct;
        for (std::size_t low = 1; low <= 6; ++low)
            for (std::size_t high = low + 1; high <= 6; ++high)
                distinct.insert(numbers[high] - numbers[low]);
        EXPECT_EQ(history.derived[static_cast<std::size_t>(draw)].Fcodp, static_cast<int>(distinct.size()) - 5);
    }
}

/// Draws since a number was last drawn, by walking back from row `draw`; from the start for one never drawn.
int walkBack(const history::History& history, int draw, int number, std::size_t first, std::size_t last) {
    int absent = 0;
    for (int row = draw; row >= 1; --row, ++absent)
        for (std::size_t place = first; place <= last; ++place)
            if (history.Lshm[static_cast<std::size_t>(row)][place] == number)
                return absent;
    return absent;
}

TEST(RealDraws, OmissionsAreWhatWalkingBackFinds) {
    NEED_REAL_DRAWS();
    const auto& history = walked().history;
    for (int draw = 1; draw <= history.Lsnum; draw += 37)
        for (int red = 1; red <= 33; ++red)
            ASSERT_EQ(walked().before[static_cast<std::size_t>(draw)][static_cast<std::size_t>(red)],
                      walkBack(history, draw - 1, red, 1, 6))
                << draw << " " << red;
    for (int blue = 1; blue <= 16; ++blue)
        EXPECT_EQ(history.YlnowB[static_cast<std::size_t>(blue)], walkBack(history, history.Lsnum, blue, 7, 7));
}

TEST(RealDraws, EveryHitIsCountedOnce) {
    NEED_REAL_DRAWS();
    const auto& history = walked().history;
    EXPECT_EQ(history.Glcount, 3358);
    EXPECT_EQ(std::accumulate(history.Glred.begin(), history.Glred.end(), 0), 6 * 3358);
    EXPECT_EQ(std::accumulate(history.GlBlue.begin(), history.GlBlue.end(), 0), 3358);
    EXPECT_NEAR(std::accumulate(history.Gailvred.begin(), history.Gailvred.end(), 0.0), 100, 1e-9);
    EXPECT_NEAR(std::accumulate(history.GailvBlue.begin(), history.GailvBlue.end(), 0.0), 100, 1e-9);
    EXPECT_EQ(history.Ylnow[3], 0); // drawn last
    EXPECT_EQ(history.YlnowB[2], 0);
}

} // namespace
