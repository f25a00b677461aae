#include "history/statistics.h"

#include <gtest/gtest.h>

namespace {

using history::History;

constexpr workspace::Rule kRule{33, 16};

TEST(Statistics, ADrawCountsItsHitsAndAgesTheOthers) {
    History history;
    countDraw(history, {1, 1, 2, 3, 4, 5, 6, 7}, kRule);
    countDraw(history, {2, 1, 8, 9, 10, 11, 12, 7}, kRule);
    EXPECT_EQ(history.Glred[1], 2);
    EXPECT_EQ(history.Glred[2], 1);
    EXPECT_EQ(history.Glred[33], 0);
    EXPECT_EQ(history.GlBlue[7], 2);
    EXPECT_EQ(history.Glcount, 2);
    EXPECT_EQ(history.Ylnow[1], 0);  // drawn last
    EXPECT_EQ(history.Ylnow[2], 1);  // drawn before it
    EXPECT_EQ(history.Ylnow[33], 2); // never drawn: counted from the first draw
    EXPECT_EQ(history.YlnowB[7], 0);
    EXPECT_EQ(history.YlnowB[16], 2);
}

TEST(Statistics, NumbersAboveTheRuleKeepTheirOmission) {
    History history;
    history.Ylnow[34] = 9;
    history.Ylnow[35] = 9;
    history.YlnowB[17] = 4;
    countDraw(history, {1, 1, 2, 3, 4, 5, 34, 7}, kRule);
    EXPECT_EQ(history.Ylnow[35], 9);
    EXPECT_EQ(history.YlnowB[17], 4);
    EXPECT_EQ(history.Ylnow[34], 0); // drawn all the same
    EXPECT_EQ(history.Glred[34], 1);
}

TEST(Statistics, NumbersBeyondTheArraysAreNotCounted) {
    History history;
    countDraw(history, {1, 1, 2, 3, 4, 39, 99, 99}, kRule);
    EXPECT_EQ(history.Glred[4], 1);
    EXPECT_EQ(history.Glcount, 1);
}

TEST(Statistics, TheArraysEndAt38And18) {
    History history;
    countDraw(history, {1, 1, 2, 3, 4, 5, 38, 18}, kRule);
    EXPECT_EQ(history.Glred[38], 1);
    EXPECT_EQ(history.GlBlue[18], 1);
    const History before = history;
    countDraw(history, {2, 39, 39, 39, 39, 39, -1, 19}, kRule);
    EXPECT_EQ(history.Glred, before.Glred);
    EXPECT_EQ(history.GlBlue, before.GlBlue);     // behind the reds in memory
    EXPECT_EQ(history.Gailvred, before.Gailvred); // behind the blues
    countDraw(history, {3, 1, 2, 3, 4, 5, 6, -1}, kRule);
    EXPECT_EQ(history.GlBlue, before.GlBlue);
    EXPECT_EQ(history.Glred[1], 2);
}

TEST(Statistics, SharesArePercentagesOfAllNumbersDrawn) {
    History history;
    for (int draw = 0; draw < 4; ++draw)
        countDraw(history, {1, 1, 2, 3, 4, 5, draw < 1 ? 6 : 7, draw < 3 ? 8 : 9}, kRule);
    history.Gailvred[38] = 5;
    computeShares(history, kRule);
    EXPECT_DOUBLE_EQ(history.Gailvred[1], 4.0 / 24 * 100);
    EXPECT_DOUBLE_EQ(history.Gailvred[6], 1.0 / 24 * 100);
    EXPECT_DOUBLE_EQ(history.GailvBlue[8], 75);
    EXPECT_DOUBLE_EQ(history.GailvBlue[9], 25);
    EXPECT_EQ(history.Gailvred[38], 5); // above the rule
}

TEST(Statistics, SharesOfNoDrawAreZero) {
    History history;
    history.Gailvred[1] = 3;
    history.Glred[1] = 2;
    computeShares(history, kRule);
    EXPECT_EQ(history.Gailvred[1], 0);
}

TEST(Statistics, ARecountForgetsWhatWasCountedBefore) {
    History history;
    history.Glcount = 40;
    history.Glred.fill(9);
    history.GlBlue.fill(9);
    history.Ylnow[1] = 5;
    history.Lshm = {{}, {1, 1, 2, 3, 4, 5, 6, 7}, {2, 1, 2, 3, 4, 5, 38, 18}};
    history.Lsnum = 2;
    recountHits(history);
    EXPECT_EQ(history.Glcount, 2);
    EXPECT_EQ(history.Glred[1], 2);
    EXPECT_EQ(history.Glred[38], 1);
    EXPECT_EQ(history.Glred[33], 0);
    EXPECT_EQ(history.GlBlue[7], 1);
    EXPECT_EQ(history.GlBlue[9], 0);
    EXPECT_EQ(history.Ylnow[1], 5);
}

TEST(Statistics, ACorrectedHitDividesTheSharesBySix) {
    History history;
    history.Lsnum = 4;
    history.Glcount = 4;
    history.Glred[3] = 4;
    history.GlBlue[3] = 2;
    correctHit(history, false, 3, 99); // a number beyond the arrays is not counted
    correctHit(history, true, 3, 5);
    computeShares(history, kRule);
    EXPECT_EQ(history.Glcount, 24);
    EXPECT_DOUBLE_EQ(history.Gailvred[3], 3.0 / 144 * 100);
    EXPECT_DOUBLE_EQ(history.GailvBlue[3], 1.0 / 24 * 100);
    EXPECT_DOUBLE_EQ(history.GailvBlue[5], 1.0 / 24 * 100);
}

} // namespace
