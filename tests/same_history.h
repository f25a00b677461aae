// Two histories compared row by row, each part by its name in what a failure tells.
#pragma once

#include <gtest/gtest.h>

#include "history/history.h"

/// Draws, hits and shares. Glcount is left out: it is not stored, and begins at 0 with every start.
inline void expectSameDraws(const history::History& left, const history::History& right) {
    EXPECT_EQ(left.Lsnum, right.Lsnum);
    EXPECT_EQ(left.Lshm, right.Lshm);
    EXPECT_TRUE(left.derived == right.derived);
    EXPECT_EQ(left.Glred, right.Glred);
    EXPECT_EQ(left.GlBlue, right.GlBlue);
    EXPECT_EQ(left.Gailvred, right.Gailvred);
    EXPECT_EQ(left.GailvBlue, right.GailvBlue);
}

/// The current omissions too.
inline void expectSameHistory(const history::History& left, const history::History& right) {
    expectSameDraws(left, right);
    EXPECT_EQ(left.Ylnow, right.Ylnow);
    EXPECT_EQ(left.YlnowB, right.YlnowB);
}
