// The texts and figures that the main window shows of the history.
#include "mainwin/main_texts.h"

#include <limits>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace mainwin {
namespace {

TEST(MainTexts, TheNextDrawIsTheLastIssuePlusOne) {
    history::History history;
    EXPECT_EQ(nextDrawText(history), u"在右输入 1 历史号码:"_s);
    history.Lshm.push_back({2003001, 10, 11, 12, 13, 26, 28, 11});
    history.Lsnum = 1;
    EXPECT_EQ(nextDrawText(history), u"在右输入 2003002 历史号码:"_s);
}

/// A damaged file may hold the largest number there is: no draw follows it, and none is promised.
TEST(MainTexts, WhereNoIssueFollowsNoneIsShown) {
    history::History history;
    history.Lshm.push_back({std::numeric_limits<std::int32_t>::max(), 1, 2, 3, 4, 5, 6, 7});
    history.Lsnum = 1;
    EXPECT_EQ(nextDrawText(history), u"在右输入  历史号码:"_s);
}

TEST(MainTexts, ANumberHasTwoDigitsAndAShareTwoDecimals) {
    EXPECT_EQ(shareCaption(1), u"01的概率:"_s);
    EXPECT_EQ(shareCaption(38), u"38的概率:"_s);
    EXPECT_EQ(shareText(3.034), u"3.03%"_s);
    EXPECT_EQ(shareText(6.256), u"6.26%"_s);
    EXPECT_EQ(shareText(0), u"0.00%"_s);
}

TEST(MainTexts, AShareBarIsHalfLongAtTheExpectedShareAndGrowsThreeAPoint) {
    EXPECT_DOUBLE_EQ(shareBarLength(4.0, 25), 3);
    EXPECT_DOUBLE_EQ(shareBarLength(4.5, 25), 4.5);
    EXPECT_DOUBLE_EQ(shareBarLength(3.5, 25), 1.5);
    EXPECT_NEAR(shareBarLength(3.0, 33), 3 - 3.0 / 33, 1e-12) << "100 / 33 is no whole number";
}

TEST(MainTexts, AShareBarStaysOnItsScale) {
    EXPECT_DOUBLE_EQ(shareBarLength(0, 25), 0);
    EXPECT_DOUBLE_EQ(shareBarLength(100, 25), 6);
}

/// Shares come from a file, which may be damaged.
TEST(MainTexts, AShareThatIsNoneHasNoBar) {
    for (const double none : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        EXPECT_DOUBLE_EQ(shareBarLength(none, 33), 0);
    EXPECT_DOUBLE_EQ(shareBarLength(3, 0), 0);
    EXPECT_DOUBLE_EQ(shareBarLength(3, -1), 0);
}

} // namespace
} // namespace mainwin
