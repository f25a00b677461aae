#include "selection/pad.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using selection::Pad;

void pressReds(Pad& pad, std::initializer_list<int> numbers) {
    for (const int number : numbers)
        pad.pressRed(number);
}

void pressBlues(Pad& pad, std::initializer_list<int> numbers) {
    for (const int number : numbers)
        pad.pressBlue(number);
}

/// What the pop-up entry does: a right press, then 胆-选择/取消.
void makeBanker(Pad& pad, int number) {
    pad.pointAtRed(number);
    pad.mnuDan();
}

void makeBankers(Pad& pad, std::initializer_list<int> numbers) {
    for (const int number : numbers)
        makeBanker(pad, number);
}

TEST(Pad, StartsEmpty) {
    const Pad pad;
    EXPECT_EQ(pad.Redcnt + pad.Bluecnt + pad.Dancnt, 0);
    EXPECT_FALSE(pad.startEnabled());
    EXPECT_EQ(pad.statusText(), QString());
    EXPECT_EQ(pad.redText(), QString());
    EXPECT_EQ(pad.Genreds, 6);
}

TEST(Pad, KeepsTheOrderOfThePressesAndClosesTheGapOfAFreedNumber) {
    Pad pad;
    pressReds(pad, {22, 3, 17});
    EXPECT_EQ(pad.redText(), u" 22 3 17"_s);
    EXPECT_EQ(pad.Redpos[17], 3);
    EXPECT_TRUE(pad.Redvalue[22]);
    pad.pressRed(22);
    EXPECT_EQ(pad.redText(), u" 3 17"_s);
    EXPECT_EQ(pad.Redcnt, 2);
    EXPECT_EQ(pad.Redpos[3], 1);
    EXPECT_EQ(pad.Redpos[17], 2);
    EXPECT_EQ(pad.Redpos[22], 0);
    EXPECT_FALSE(pad.Redsel[22]);
    EXPECT_FALSE(pad.Redvalue[22]);
    EXPECT_EQ(pad.Lastclick, 22);
}

TEST(Pad, BluesKeepTheOrderOfThePresses) {
    Pad pad;
    pressBlues(pad, {16, 2, 9, 2});
    EXPECT_EQ(pad.blueText(), u" 16 9"_s);
    EXPECT_EQ(pad.Bluecnt, 2);
    EXPECT_EQ(pad.Bluepos[9], 2);
    EXPECT_FALSE(pad.Bluesel[2]);
}

TEST(Pad, PassesOverNumbersOutsideTheRule) {
    Pad pad(28, 12);
    pressReds(pad, {0, 29, 38, -1, 39});
    pressBlues(pad, {0, 13, 19});
    EXPECT_EQ(pad.Redcnt + pad.Bluecnt, 0);
    pad.mnuDan(); // nothing was pressed yet
    EXPECT_EQ(pad.Dancnt, 0);
    pad.pressRed(28);
    pad.pressBlue(12);
    EXPECT_EQ(pad.Redcnt, 1);
    EXPECT_EQ(pad.Bluecnt, 1);
}

TEST(Pad, ARightPressChangesNothingButTheNumberPointedAt) {
    Pad pad;
    pressReds(pad, {5, 6});
    int heard = 0;
    QObject::connect(&pad, &Pad::changed, [&heard] { ++heard; });
    pad.pointAtRed(6);
    EXPECT_EQ(pad.Lastclick, 6);
    EXPECT_EQ(pad.redText(), u" 5 6"_s);
    EXPECT_EQ(heard, 0);
}

TEST(Pad, AFreeNumberBecomesABankerWithoutEverBeingSelected) {
    Pad pad;
    makeBanker(pad, 11);
    EXPECT_EQ(pad.Redcnt, 0);
    EXPECT_EQ(pad.danText(), u" 11"_s);
    EXPECT_TRUE(pad.Danmark[11]);
    EXPECT_FALSE(pad.Redsel[11]);
    EXPECT_FALSE(pad.Redvalue[11]);
    EXPECT_TRUE(pad.Bankermode);
    makeBanker(pad, 11);
    EXPECT_EQ(pad.Dancnt, 0);
    EXPECT_FALSE(pad.Danmark[11]);
    EXPECT_FALSE(pad.Bankermode);
}

TEST(Pad, ASelectedNumberMovesToTheBankers) {
    Pad pad;
    pressReds(pad, {4, 8, 12});
    makeBanker(pad, 8);
    EXPECT_EQ(pad.redText(), u" 4 12"_s);
    EXPECT_EQ(pad.danText(), u" 8"_s);
    EXPECT_EQ(pad.Redcnt, 2);
    EXPECT_EQ(pad.Dancnt, 1);
    EXPECT_TRUE(pad.Redvalue[8]) << "the button of a banker keeps its value";
}

TEST(Pad, ALeftPressOnABankerMakesItSelectedInOneMotion) {
    Pad pad;
    makeBankers(pad, {1, 2, 3});
    pad.pressRed(1);
    EXPECT_EQ(pad.danText(), u" 2 3"_s);
    EXPECT_EQ(pad.Danpos[3], 2);
    EXPECT_EQ(pad.redText(), u" 1"_s);
    EXPECT_FALSE(pad.Danmark[1]);
}

TEST(Pad, TheSeventhRedEnablesTheStart) {
    Pad pad;
    pressReds(pad, {1, 2, 3, 4, 5, 6});
    EXPECT_FALSE(pad.startEnabled());
    pad.pressRed(7);
    EXPECT_TRUE(pad.startEnabled());
    pad.pressRed(7);
    EXPECT_FALSE(pad.startEnabled());
}

TEST(Pad, BetsAreCountedByHand) {
    Pad pad;
    pressReds(pad, {1, 2, 3, 4, 5, 6, 7});
    pressBlues(pad, {3, 9});
    EXPECT_EQ(pad.Zunum, 14); // C(7, 6) = 7 by two blues
    EXPECT_EQ(pad.statusText(), u"7红2蓝，共计复选：14注,合计：28元"_s);
    pad.pressRed(8);
    EXPECT_EQ(pad.statusText(), u"8红2蓝，共计复选：56注,合计：112元"_s); // C(8, 6) = 28
}

TEST(Pad, FiveBankersAndTwoDragsBetTheTwoDragsInTurn) {
    Pad pad;
    makeBankers(pad, {1, 2, 3, 4, 5});
    pad.pressRed(10);
    EXPECT_FALSE(pad.startEnabled());
    pad.pressRed(11);
    EXPECT_TRUE(pad.startEnabled());
    pressBlues(pad, {1, 2, 3});
    EXPECT_EQ(pad.Zunum, 6); // C(2, 1) by three blues
    EXPECT_EQ(pad.statusText(), u"5红胆2红拖3蓝，共计胆拖：6注,合计：12元"_s);
}

TEST(Pad, SixBankersAndMoreAreAnnouncedAsOneSetOfReds) {
    Pad pad;
    makeBankers(pad, {1, 2, 3, 4, 5, 6});
    pressReds(pad, {7, 8});
    pressBlues(pad, {1, 2});
    EXPECT_EQ(pad.statusText(), u"6红胆2红拖2蓝，共计胆拖：2注,合计：4元"_s);
    makeBanker(pad, 7);
    EXPECT_EQ(pad.statusText(), u"7红胆1红拖2蓝，共计胆拖：2注,合计：4元"_s);
}

TEST(Pad, TheWidestRuleIsCountedInFull) {
    Pad pad(38, 18);
    pad.selectAllReds();
    pad.selectAllBlues();
    EXPECT_EQ(pad.Zunum, 49'692'258); // C(38, 6) = 2,760,681 by 18
    EXPECT_EQ(pad.statusText(), u"38红18蓝，共计复选：49692258注,合计：99384516元"_s);
}

TEST(Pad, WithoutABlueTheStatusKeepsItsTextAlthoughTheStartIsEnabled) {
    Pad pad;
    pressReds(pad, {1, 2, 3, 4, 5, 6, 7});
    EXPECT_TRUE(pad.startEnabled());
    EXPECT_EQ(pad.statusText(), QString());
    pad.pressBlue(5);
    const QString before = pad.statusText();
    pad.pressBlue(5);
    pad.pressRed(8);
    EXPECT_EQ(pad.statusText(), before);
    EXPECT_TRUE(pad.startEnabled());
}

TEST(Pad, BelowSevenRedsTheStatusKeepsItsText) {
    Pad pad;
    pressReds(pad, {1, 2, 3, 4, 5, 6, 7});
    pad.pressBlue(5);
    const QString before = pad.statusText();
    pad.pressRed(1);
    EXPECT_EQ(pad.statusText(), before);
    EXPECT_FALSE(pad.startEnabled());
}

TEST(Pad, SelectingAllFreesTheBankers) {
    Pad pad;
    makeBankers(pad, {30, 2});
    pad.pressRed(9);
    pad.selectAllReds();
    EXPECT_EQ(pad.Redcnt, 33);
    EXPECT_EQ(pad.Dancnt, 0);
    EXPECT_EQ(pad.danText(), QString());
    EXPECT_FALSE(pad.Bankermode);
    for (std::int16_t number = 1; number <= 33; ++number) {
        EXPECT_EQ(pad.Redlist[static_cast<std::size_t>(number)], number);
        EXPECT_EQ(pad.Redpos[static_cast<std::size_t>(number)], number);
        EXPECT_TRUE(pad.Redsel[static_cast<std::size_t>(number)]);
        EXPECT_TRUE(pad.Redvalue[static_cast<std::size_t>(number)]);
    }
    EXPECT_FALSE(pad.Redsel[34]);
}

TEST(Pad, InvertingAnEmptyPadSelectsEveryRedAndAFullOneNone) {
    Pad pad;
    pad.invertReds();
    EXPECT_EQ(pad.Redcnt, 33);
    EXPECT_TRUE(pad.startEnabled());
    pad.invertReds();
    EXPECT_EQ(pad.Redcnt, 0);
    EXPECT_EQ(pad.redText(), QString());
    EXPECT_FALSE(pad.startEnabled());
}

TEST(Pad, InvertingLeavesTheBankersAndSortsTheRest) {
    Pad pad(28, 12);
    makeBankers(pad, {2, 27});
    pressReds(pad, {28, 1, 14});
    pad.invertReds();
    EXPECT_EQ(pad.Redcnt, 28 - 3 - 2);
    EXPECT_EQ(pad.danText(), u" 2 27"_s);
    EXPECT_EQ(pad.redText(), u" 3 4 5 6 7 8 9 10 11 12 13 15 16 17 18 19 20 21 22 23 24 25 26"_s);
    EXPECT_FALSE(pad.Redvalue[1]);
    EXPECT_TRUE(pad.Redvalue[3]);
}

TEST(Pad, InvertingTheBluesKnowsNoBankers) {
    Pad pad(33, 12);
    pressBlues(pad, {12, 1});
    makeBanker(pad, 5);
    pad.invertBlues();
    EXPECT_EQ(pad.blueText(), u" 2 3 4 5 6 7 8 9 10 11"_s);
    pad.selectAllBlues();
    pad.invertBlues();
    EXPECT_EQ(pad.Bluecnt, 0);
}

TEST(Pad, ClearingTheRedsForgetsEverythingAboutThem) {
    Pad pad;
    pad.selectAllReds();
    makeBanker(pad, 7);
    pad.pressBlue(4);
    pad.Genreds = 9;
    int cleared = 0;
    QObject::connect(&pad, &Pad::redsCleared, [&cleared] { ++cleared; });
    pad.clearReds();
    EXPECT_EQ(cleared, 1);
    EXPECT_EQ(pad.Redcnt + pad.Dancnt, 0);
    EXPECT_EQ(pad.redText() + pad.danText() + pad.statusText(), QString());
    EXPECT_FALSE(pad.startEnabled());
    EXPECT_FALSE(pad.Bankermode);
    EXPECT_EQ(pad.Genreds, 6);
    EXPECT_EQ(pad.blueText(), u" 4"_s) << "the blues stay";
    for (std::size_t number = 1; number <= 38; ++number)
        EXPECT_TRUE(!pad.Redsel[number] && !pad.Danmark[number] && !pad.Redvalue[number] && pad.Redpos[number] == 0);
}

TEST(Pad, ClearingTheBluesEmptiesTheStatusAndLeavesTheReds) {
    Pad pad;
    pad.selectAllReds();
    pad.selectAllBlues();
    pad.clearBlues();
    EXPECT_EQ(pad.Bluecnt, 0);
    EXPECT_EQ(pad.statusText(), QString());
    EXPECT_EQ(pad.Redcnt, 33);
    EXPECT_TRUE(pad.startEnabled());
}

TEST(Pad, ASortedListDoesNotMisleadTheNextPress) {
    Pad pad;
    pressReds(pad, {30, 10, 20});
    pad.sortReds();
    EXPECT_EQ(pad.Redlist[1], 10);
    EXPECT_EQ(pad.Redpos[30], 1) << "the places are left as they were";
    EXPECT_EQ(pad.redText(), u" 30 10 20"_s) << "and so is the text";
    pad.pressRed(30);
    EXPECT_EQ(pad.redText(), u" 10 20"_s);
    EXPECT_EQ(pad.Redpos[20], 2);
}

TEST(Pad, BankersInterruptADraw) {
    Pad pad;
    int interrupted = 0;
    QObject::connect(&pad, &Pad::bankersChosen, [&interrupted] { ++interrupted; });
    pressReds(pad, {1, 2});
    EXPECT_EQ(interrupted, 0);
    makeBanker(pad, 3);
    EXPECT_EQ(interrupted, 1);
    pad.pressRed(4);
    EXPECT_EQ(interrupted, 2);
    makeBanker(pad, 3);
    EXPECT_EQ(interrupted, 2);
}

TEST(Pad, ANarrowerRuleTakesItsNumbersOffThePad) {
    Pad pad(38, 18);
    pressReds(pad, {38, 1, 34, 33});
    makeBankers(pad, {37, 2});
    pressBlues(pad, {18, 3});
    pad.setRule(33, 16);
    EXPECT_EQ(pad.redText(), u" 1 33"_s);
    EXPECT_EQ(pad.danText(), u" 2"_s);
    EXPECT_EQ(pad.blueText(), u" 3"_s);
    pad.pressRed(34);
    EXPECT_EQ(pad.Redcnt, 2);
}

/// The pad, slowly: nothing but ordered lists of numbers.
struct SlowPad {
    int reds;
    std::vector<int> red;
    std::vector<int> dan;
    std::vector<int> blue;

    static bool has(const std::vector<int>& list, int number) {
        return std::ranges::find(list, number) != list.end();
    }
    static void flip(std::vector<int>& list, int number) {
        if (std::erase(list, number) == 0)
            list.push_back(number);
    }
    void press(int number) {
        std::erase(dan, number);
        flip(red, number);
    }
    void banker(int number) {
        std::erase(red, number);
        flip(dan, number);
    }
    void all() {
        red.clear();
        dan.clear();
        invert();
    }
    void invert() {
        std::vector<int> rest;
        for (int number = 1; number <= reds; ++number)
            if (!has(red, number) && !has(dan, number))
                rest.push_back(number);
        red = rest;
    }
};

std::int64_t slowCombinations(int all, int taken) {
    if (all < 0)
        return 0;
    return taken <= 0 ? 1 : slowCombinations(all - 1, taken) + slowCombinations(all - 1, taken - 1);
}

void expectAlike(const Pad& pad, const SlowPad& slow) {
    const auto text = [](const std::vector<int>& list) {
        QString joined;
        for (const int number : list)
            joined += u' ' + QString::number(number);
        return joined;
    };
    ASSERT_EQ(pad.redText(), text(slow.red));
    ASSERT_EQ(pad.danText(), text(slow.dan));
    ASSERT_EQ(pad.blueText(), text(slow.blue));
    ASSERT_EQ(pad.Redcnt, static_cast<int>(slow.red.size()));
    ASSERT_EQ(pad.Dancnt, static_cast<int>(slow.dan.size()));
    ASSERT_EQ(pad.Bankermode, !slow.dan.empty());
    ASSERT_EQ(pad.startEnabled(), slow.red.size() + slow.dan.size() > 6);
    for (int number = 1; number <= Pad::kMostReds; ++number) {
        const auto index = static_cast<std::size_t>(number);
        const auto red = std::ranges::find(slow.red, number);
        const auto dan = std::ranges::find(slow.dan, number);
        ASSERT_EQ(pad.Redsel[index], red != slow.red.end());
        ASSERT_EQ(pad.Danmark[index], dan != slow.dan.end());
        ASSERT_EQ(pad.Redpos[index], red == slow.red.end() ? 0 : red - slow.red.begin() + 1);
        ASSERT_EQ(pad.Danpos[index], dan == slow.dan.end() ? 0 : dan - slow.dan.begin() + 1);
    }
    if (pad.startEnabled() && !slow.blue.empty() && slow.red.size() <= 14) { // the slow count stays small
        const auto reds = slowCombinations(static_cast<int>(slow.red.size()), 6 - static_cast<int>(slow.dan.size()));
        ASSERT_EQ(pad.Zunum, reds * static_cast<int>(slow.blue.size()));
    }
}

TEST(Pad, AgreesWithPlainListsOverRandomOperations) {
    for (const unsigned seed : {1U, 2U, 3U, 20'030'01U}) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Pad pad(33, 16);
        SlowPad slow{33, {}, {}, {}};
        const auto pick = [&random](int highest) { return std::uniform_int_distribution<int>(1, highest)(random); };
        for (int step = 0; step < 4000 && !::testing::Test::HasFatalFailure(); ++step) {
            const int what = pick(100);
            const int number = pick(what <= 60 ? 33 : 16);
            if (what <= 40) {
                pad.pressRed(number);
                slow.press(number);
            } else if (what <= 60) {
                makeBanker(pad, number);
                slow.banker(number);
            } else if (what <= 85) {
                pad.pressBlue(number);
                SlowPad::flip(slow.blue, number);
            } else if (what <= 88) {
                pad.selectAllReds();
                slow.all();
            } else if (what <= 91) {
                pad.invertReds();
                slow.invert();
            } else if (what <= 96) {
                pad.clearReds();
                slow.red.clear();
                slow.dan.clear();
            } else {
                pad.sortReds();
                std::ranges::sort(slow.red);
                pad.pressRed(number); // brings the places back in step
                slow.press(number);
            }
            expectAlike(pad, slow);
        }
    }
}

} // namespace
