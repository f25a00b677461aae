#include "selection/stability.h"

#include <gtest/gtest.h>

namespace {

using selection::Stability;

TEST(Stability, AnItemSetsItsTargetAndItsMark) {
    for (const selection::StabilityItem& item : selection::kStabilityItems) {
        Stability stability;
        stability.choose(item);
        EXPECT_EQ(stability.Wd, item.wd);
        EXPECT_EQ(stability.Stabletarget, item.target);
        ASSERT_TRUE(stability.checked);
        EXPECT_EQ(stability.checked->name, item.name);
    }
}

// 7 / 100 * Wd * 20 = 1.4 Wd and 6 / 100 * Wd * 20 = 1.2 Wd, whole for every factor of the menu.
TEST(Stability, SevenWhenLoadedAndSixWhenThePadChanges) {
    for (const selection::StabilityItem& item : selection::kStabilityItems) {
        Stability stability;
        stability.load(item.wd);
        EXPECT_EQ(stability.Stabletarget, item.wd * 7 / 5) << item.wd;
        stability.shorten();
        EXPECT_EQ(stability.Stabletarget, item.wd * 6 / 5) << item.wd;
    }
}

TEST(Stability, TheEndlessFactorDoesNotComeBackAsSuch) {
    Stability stability;
    stability.choose(selection::kStabilityItems.back());
    EXPECT_EQ(stability.Stabletarget, 30000);
    stability.load(stability.Wd);
    EXPECT_EQ(stability.Stabletarget, 11200);
    EXPECT_FALSE(stability.checked);
}

TEST(Stability, FactorsThatNoItemStores) {
    for (const int wd : {0, 4000, 6000, 8000})
        EXPECT_FALSE(selection::checkedItem(wd)) << wd;
    ASSERT_TRUE(selection::checkedItem(30000));
    EXPECT_EQ(selection::checkedItem(30000)->name, u"meuSpd8");
}

TEST(Stability, WithoutBankersTheMarkStaysWhereItIs) {
    Stability stability;
    stability.choose(selection::kStabilityItems.back());
    stability.shorten();
    EXPECT_EQ(stability.Stabletarget, 9600);
    ASSERT_TRUE(stability.checked);
    EXPECT_EQ(stability.checked->name, u"meuSpd8");
    stability.shorten(50);
    EXPECT_EQ(stability.Stabletarget, 60);
    EXPECT_EQ(stability.checked->name, u"meuSpd1");
}

} // namespace
