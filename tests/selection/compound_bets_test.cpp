// Cells and cost of the bets of a compound wheel.
#include "selection/compound_bets.h"

#include <gtest/gtest.h>

namespace selection {
namespace {

constexpr WheelRow kRow{1, 2, 3, 4, 5, 6, 7};

class CompoundBetsTest : public testing::Test {
  protected:
    void choose(std::initializer_list<int> reds, std::initializer_list<int> blues) {
        for (const int red : reds)
            pad.pressRed(red);
        for (const int blue : blues)
            pad.pressBlue(blue);
        pad.sortReds();
    }
    Pad pad;
};

TEST_F(CompoundBetsTest, ACellHoldsTheRedsAndEveryBlue) {
    choose({31, 3, 9, 11, 14, 20, 28, 33}, {12, 5});
    const CompoundBets bets({kRow, {2, 3, 4, 5, 6, 7, 8}}, pad, true);
    EXPECT_EQ(bets.cell(0, 1).toStdString(), " 03 09 11 14 20 28 31 12 05");
    EXPECT_EQ(bets.cell(0, 2).toStdString(), " 09 11 14 20 28 31 33 12 05");
    EXPECT_EQ(bets.cell(0, 3).toStdString(), "");
    EXPECT_EQ(bets.yuan(), 2 * 2 * 14);
}

TEST_F(CompoundBetsTest, WithoutBluesTheRowsAloneCount) {
    choose({1, 2, 3, 4, 5, 6, 7}, {});
    const CompoundBets bets({kRow}, pad, false);
    EXPECT_EQ(bets.cell(0, 1).toStdString(), " 01 02 03 04 05 06 07");
    EXPECT_EQ(bets.yuan(), 14);
    EXPECT_EQ(CompoundBets({kRow}, pad, true).yuan(), 0) << "no blue, no bet";
}

TEST_F(CompoundBetsTest, FiveBetsFillARowAndGiveItItsNumber) {
    choose({1, 2, 3, 4, 5, 6, 7}, {});
    const auto rowsOf = [this](std::size_t bets) {
        return CompoundBets(std::vector<WheelRow>(bets, kRow), pad, false);
    };
    EXPECT_EQ(rowsOf(0).gridRows(), 1);
    EXPECT_EQ(rowsOf(1).gridRows(), 1);
    EXPECT_EQ(rowsOf(5).gridRows(), 1);
    EXPECT_EQ(rowsOf(6).gridRows(), 2);
    EXPECT_EQ(rowsOf(4).cell(0, 0).toStdString(), "");
    EXPECT_EQ(rowsOf(9).cell(0, 0).toStdString(), "1");
    EXPECT_EQ(rowsOf(9).cell(1, 0).toStdString(), "") << "four bets do not fill the second row";
    EXPECT_EQ(rowsOf(10).cell(1, 0).toStdString(), "2");
    EXPECT_NE(rowsOf(9).cell(1, 4).toStdString(), "");
    EXPECT_EQ(rowsOf(9).cell(1, 5).toStdString(), "");
}

TEST_F(CompoundBetsTest, ADamagedPositionHitsNoNumber) {
    choose({1, 2, 3, 4, 5, 6, 7}, {});
    EXPECT_EQ(CompoundBets({{1, 2, 3, 0, 5, 6, 38}}, pad, false).cell(0, 1).toStdString(), " 01 02 03 00 05 06 00");
}

} // namespace
} // namespace selection
