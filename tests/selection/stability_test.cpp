// The stability factor: what is chosen, what is loaded, what is checked.
#include "selection/stability.h"

#include <gtest/gtest.h>

namespace selection {
namespace {

TEST(Stability, AnItemSetsItsFactorAndItsOwnTarget) {
    for (const StabilityItem& item : kStabilityItems) {
        Stability stability;
        stability.choose(item);
        EXPECT_EQ(stability.Wd, item.wd);
        EXPECT_EQ(stability.Stabletarget, item.target);
    }
}

/// 无穷大 is stored as 8000 and comes back as an ordinary factor, which is meant.
TEST(Stability, TheTargetOfALoadedFactorIsThatOfItsItemButForTheEndlessOne) {
    for (const StabilityItem& item : kStabilityItems) {
        Stability stability;
        stability.load(item.wd);
        EXPECT_EQ(stability.Wd, item.wd);
        EXPECT_EQ(stability.Stabletarget, item.wd == 8000 ? 11200 : item.target) << item.wd;
    }
}

/// A factor that no item has can be in the settings: 7 / 100 of it, twenty times, rounded down.
TEST(Stability, TheTargetOfAnyFactorIsRoundedDown) {
    Stability stability;
    stability.load(1);
    EXPECT_EQ(stability.Stabletarget, 1) << "1.4";
    stability.load(7);
    EXPECT_EQ(stability.Stabletarget, 9) << "9.8";
    stability.load(0);
    EXPECT_EQ(stability.Stabletarget, 0);
}

TEST(Stability, ALoadedFactorChecksItsItemButTheEndlessOneChecksNone) {
    for (const StabilityItem& item : kStabilityItems) {
        const auto checked = checkedItem(item.wd);
        EXPECT_EQ(checked.has_value(), item.wd != 8000) << item.wd;
        if (checked) {
            EXPECT_EQ(checked->name, item.name);
        }
    }
    EXPECT_FALSE(checkedItem(4000));
    ASSERT_TRUE(checkedItem(30000)) << "nothing stores it, yet it would check 无穷大";
    EXPECT_EQ(checkedItem(30000)->wd, 8000);
}

// 6 / 100 of it, twenty times: whole for every factor of the menu.
TEST(Stability, AChangeOfThePadShortensTheTargetAndLeavesTheMark) {
    for (const StabilityItem& item : kStabilityItems) {
        Stability stability;
        stability.choose(item);
        stability.shorten();
        EXPECT_EQ(stability.Stabletarget, item.wd * 6 / 5) << item.wd;
        ASSERT_TRUE(stability.checked);
        EXPECT_EQ(stability.checked->name, item.name);
    }
}

TEST(Stability, BankersTakeTheStoredFactorAndItsMark) {
    Stability stability;
    stability.choose(kStabilityItems.back());
    stability.shorten(50);
    EXPECT_EQ(stability.Wd, 50);
    EXPECT_EQ(stability.Stabletarget, 60);
    EXPECT_EQ(stability.checked->name, u"meuSpd1");
    stability.shorten(8000);
    EXPECT_EQ(stability.Stabletarget, 9600);
    EXPECT_FALSE(stability.checked);
}

} // namespace
} // namespace selection
