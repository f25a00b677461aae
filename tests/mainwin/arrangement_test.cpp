// The button 组合排列…: which generation it runs and what it says before and after that is possible.
#include "mainwin/arrangement.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace mainwin {
namespace {

/// A banker on the pad is meant: bets without it would be another choice than the one that is shown.
TEST(Arrangement, IsTheOneOfBankersAsSoonAsThereIsOne) {
    EXPECT_EQ(arrangementCommand({.reds = 12}), u"mnuLst"_s);
    EXPECT_EQ(arrangementCommand({.reds = 12, .bankers = 1}), u"mnuDtlst"_s);
    EXPECT_EQ(arrangementCommand({.reds = 0, .bankers = 5}), u"mnuDtlst"_s);
}

/// Beside bankers the other reds are 拖. Once there are enough reds only a blue can be missing.
TEST(Arrangement, SaysWhatIsPossibleOnceTheNumbersAreThere) {
    EXPECT_EQ(arrangementOutlook({.reds = 0}), u"满 7 红即可排 6红+1蓝"_s);
    EXPECT_EQ(arrangementOutlook({.reds = 6}), u"满 7 红即可排 6红+1蓝"_s);
    EXPECT_EQ(arrangementOutlook({.reds = 6, .bankers = 1}), u"满 7 拖即可排 6红+1蓝"_s);
    EXPECT_EQ(arrangementOutlook({.reds = 7}), u"选 1 蓝即可排 6红+1蓝"_s);
    EXPECT_EQ(arrangementOutlook({.reds = 7, .bankers = 1}), u"选 1 蓝即可排 6红+1蓝"_s);
}

TEST(Arrangement, CostsTwoYuanABetWithThousandsApart) {
    EXPECT_EQ(arrangementCost(0), u"0 注，0 元"_s);
    EXPECT_EQ(arrangementCost(56), u"56 注，112 元"_s);
    EXPECT_EQ(arrangementCost(17721088), u"17,721,088 注，35,442,176 元"_s);
    EXPECT_EQ(arrangementCost(2000000000), u"2,000,000,000 注，4,000,000,000 元"_s) << "more than 32 bits of yuan";
}

} // namespace
} // namespace mainwin
