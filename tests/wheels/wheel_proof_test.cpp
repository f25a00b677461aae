#include "selection/wheel_proof.h"

#include <gtest/gtest.h>

#include "wheels/store.h"
#include "wheels/wheel_support.h"

using namespace selection;
using wheels_test::row;

TEST(WheelProof, AllRowsButOneOfSevenPositionsHoldAnyFiveInOne) {
    // Rows of six out of seven leave out one position each: five chosen leave two, so two rows that leave out
    // different ones of them... any six of the seven rows serve every five, the seventh is never missed.
    std::vector<PositionSet> rows;
    for (int missing = 1; missing <= 6; ++missing)
        rows.push_back(row({1, 2, 3, 4, 5, 6, 7}) & ~row({missing}));
    EXPECT_FALSE(firstUncovered({7, 6, 5, 5}, rows));
    // Without the row that leaves out 6, five that leave out 6 and 7 stand in no row.
    rows.pop_back();
    EXPECT_EQ(firstUncovered({7, 6, 5, 5}, rows), row({1, 2, 3, 4, 5}));
}

TEST(WheelProof, TheSevenLinesOfTheFanoPlaneHoldEveryPair) {
    std::vector<PositionSet> lines = {row({1, 2, 3}), row({1, 4, 5}), row({1, 6, 7}), row({2, 4, 6}),
                                      row({2, 5, 7}), row({3, 4, 7}), row({3, 5, 6})};
    EXPECT_FALSE(firstUncovered({7, 3, 2, 2}, lines));
    lines.erase(lines.begin() + 3);
    EXPECT_EQ(firstUncovered({7, 3, 2, 2}, lines), row({2, 4}));
}

TEST(WheelProof, TheSubsetNamedIsTheFirstInTheOrderOfItsPositions) {
    // Only 1 2 3 4 5 6 is there: the first four of which fewer than four are in it begin 1 2 3, not 1 2 7.
    const std::vector<PositionSet> rows = {row({1, 2, 3, 4, 5, 6})};
    EXPECT_EQ(firstUncovered({8, 6, 4, 4}, rows), row({1, 2, 3, 7}));
    EXPECT_EQ(firstUncovered({8, 6, 4, 3}, rows), row({1, 2, 7, 8}));
}

TEST(WheelProof, WithoutRowsTheFirstSubsetOfAllIsUncovered) {
    EXPECT_EQ(firstUncovered({9, 6, 5, 4}, {}), row({1, 2, 3, 4, 5}));
    EXPECT_EQ(firstUncovered({4, 2, 1, 0}, {}), row({1}));
}

TEST(WheelProof, ARowOfNothingToShareServesWhenNothingIsAsked) {
    const std::vector<PositionSet> rows = {row({1, 2})};
    EXPECT_FALSE(firstUncovered({9, 2, 1, 0}, rows));
}

TEST(WheelProof, ReachesPositionsAboveTwentyFour) {
    const std::vector<PositionSet> rows = {row({26, 27, 28}), row({1, 2, 3})};
    EXPECT_FALSE(firstUncovered({28, 3, 27, 3}, rows)); // what one position left out breaks is one row only
    EXPECT_EQ(firstUncovered({28, 3, 26, 3}, rows), ~row({3, 28}) & ((1U << 28) - 1));
}

TEST(WheelProof, AgreesWithTheSlowWayRoundOnWheelsThatNearlyHold) {
    // Marking from the rows' side: every subset that some row serves. 9 positions, rows of 6, 5 chosen, 4 in common.
    const WheelProblem problem{9, 6, 5, 4};
    const std::vector<PositionSet> all = wheels::subsetsOf((1U << 9) - 1, 6);
    for (std::size_t first = 0; first + 40 < all.size(); first += 7) {
        const std::vector<PositionSet> rows = {all[first], all[first + 17], all[first + 40]};
        std::size_t served = 0;
        for (const PositionSet chosen : wheels::subsetsOf((1U << 9) - 1, 5)) {
            bool hit = false;
            for (const PositionSet one : rows)
                hit = hit || positionsOf(one & chosen).size() >= 4;
            served += hit ? 1 : 0;
        }
        EXPECT_EQ(served == 126, !firstUncovered(problem, rows).has_value()) << first; // C(9, 5)
    }
}

TEST(WheelBounds, AreReachedByTheWheelsThatAreKnownToBePerfect) {
    EXPECT_EQ(fewestRows({7, 3, 2, 2}), 7);    // the Fano plane
    EXPECT_EQ(fewestRows({8, 4, 3, 3}), 14);   // eight points, fourteen planes
    EXPECT_EQ(fewestRows({13, 4, 2, 2}), 13);  // the projective plane of order 3
    EXPECT_EQ(fewestRows({11, 5, 4, 4}), 66);  // the Steiner system S(4, 5, 11)
    EXPECT_EQ(fewestRows({12, 6, 5, 5}), 132); // the Steiner system S(5, 6, 12)
}

TEST(WheelBounds, AreExactWhereOneHitIsEnough) {
    // Nine positions, rows of two, one chosen: five rows. Two chosen: one position may stay out, four rows.
    EXPECT_EQ(fewestRows({9, 2, 1, 1}), 5);
    EXPECT_EQ(fewestRows({9, 2, 2, 1}), 4);
    EXPECT_EQ(fewestRows({9, 2, 1, 0}), 1);
}

TEST(WheelBounds, DoNotFallWithMorePositions) {
    for (const WheelTable& table : wheelTables()) {
        WheelProblem more = table.problem;
        ++more.positions;
        EXPECT_GE(fewestRows(more), fewestRows(table.problem)) << table.name;
    }
}

TEST(WheelBounds, NoStoredWheelGoesBelowItsBound) {
    const wheels::WheelStore store(SSQ_WHEELS);
    EXPECT_GT(store.wheels().size(), 300u);
    for (const auto& [problem, wheel] : store.wheels())
        EXPECT_GE(static_cast<std::int64_t>(wheel.rows.size()), fewestRows(problem)) << describe(problem);
}
