// When the commands of the main window are offered, rule by rule.
#include "mainwin/menu_rules.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace mainwin {
namespace {

/// What is told of a command that is not offered; empty: it is offered.
std::string told(Needs needs, const ProgramState& state, int index = MenuRow::kNoIndex) {
    const Obstacle found = obstacle(needs, state, index);
    EXPECT_EQ(found.stands(), !found.text().isEmpty());
    EXPECT_EQ(allowed(needs, state, index), !found.stands());
    return found.text().toStdString();
}

ProgramState numbers(int reds, int bankers = 0) {
    return {.reds = reds, .bankers = bankers};
}

TEST(MenuRules, WhatNeedsNothingIsOfferedInTheBarestState) {
    EXPECT_EQ(told(Needs::Nothing, {}), "");
}

TEST(MenuRules, OneDrawIsAHistory) {
    EXPECT_EQ(told(Needs::History, {}), "还没有历史：先读取或输入");
    EXPECT_EQ(told(Needs::History, {.draws = 1}), "");
}

/// What a draw offers is switched by what happens to it: each of its commands looks at its own switch alone.
TEST(MenuRules, TheCommandsOfADrawFollowItsSwitches) {
    EXPECT_EQ(told(Needs::DrawPause, {.draw = {.start = true, .reset = true, .arrange = true}}), "摇奖没有进行");
    EXPECT_EQ(told(Needs::DrawPause, {.draw = {.pause = true}}), "");
    EXPECT_EQ(told(Needs::DrawReset, {.draw = {.start = true, .pause = true, .arrange = true}}), "摇奖还没有开始");
    EXPECT_EQ(told(Needs::DrawReset, {.draw = {.reset = true}}), "");
    EXPECT_EQ(told(Needs::DrawResult, {.draw = {.pause = true, .reset = true}}), "还没有摇奖结果");
    EXPECT_EQ(told(Needs::DrawResult, {.drawRunning = true}), "摇奖正在进行：等到结果或先暂停");
    EXPECT_EQ(told(Needs::DrawResult, {.draw = {.arrange = true}}), "");
    EXPECT_EQ(told(Needs::DrawStart, {.reds = 1, .draw = {.start = true}}), "");
    EXPECT_EQ(told(Needs::DrawAndArrange, {.draw = {.start = true}}), "");
    EXPECT_EQ(told(Needs::DrawAndArrange, {.draw = {.arrange = true}}), "");
    EXPECT_EQ(told(Needs::DrawAndArrange, numbers(2, 1)), "还需：4 红");
}

/// A draw takes its six from reds and bankers alike, so the two count together.
TEST(MenuRules, ADrawThatIsNotOfferedSaysWhatItWaitsFor) {
    EXPECT_EQ(told(Needs::DrawStart, numbers(0)), "还需：7 红");
    EXPECT_EQ(told(Needs::DrawStart, numbers(4, 2)), "还需：1 红");
    EXPECT_EQ(told(Needs::DrawStart, {.reds = 9, .drawRunning = true}), "摇奖正在进行");
    EXPECT_EQ(told(Needs::DrawStart, {.reds = 9, .drawPicks = 12}), "要选多于 12 个红球才有可摇的");
}

TEST(MenuRules, TheStartSaysWhetherItContinues) {
    EXPECT_EQ(*mainwin::drawCaption(u"ComSta"_s, {}), u"开始(&G)"_s);
    EXPECT_EQ(*mainwin::drawCaption(u"meuSta"_s, {}), u"开始(&S)"_s);
    for (const QString& name : {u"ComSta"_s, u"meuSta"_s})
        EXPECT_EQ(*mainwin::drawCaption(name, {.goOn = true}), u"继续(&G)"_s);
    EXPECT_EQ(*mainwin::drawToolTip(u"sta"_s, {}), u"开始摇奖分析"_s);
    EXPECT_EQ(*mainwin::drawToolTip(u"sta"_s, {.goOn = true}), u"继续摇奖分析"_s);
    EXPECT_FALSE(mainwin::drawCaption(u"ComRst"_s, {.goOn = true}));
    EXPECT_FALSE(mainwin::drawToolTip(u"rst"_s, {.goOn = true}));
}

/// Bets of chosen reds and bets of bankers are entries of their own: the bankers of one are no reds of the other.
TEST(MenuRules, TheBetEntriesCountRedsWithoutTheBankers) {
    struct Case {
        Needs needs;
        int reds, bankers;
        const char* told;
    };
    const Case cases[] = {
        {Needs::SevenReds, 6, 0, "还需：1 红"},
        {Needs::SevenReds, 6, 5, "还需：1 红"},
        {Needs::SevenReds, 7, 0, ""},
        {Needs::EightReds, 7, 1, "还需：1 红"},
        {Needs::EightReds, 8, 0, ""},
        {Needs::Bankers, 20, 0, "还需：1 胆"},
        {Needs::Bankers, 0, 1, ""},
        {Needs::SevenRedsAndBankers, 3, 0, "还需：4 红、1 胆"},
        {Needs::SevenRedsAndBankers, 7, 0, "还需：1 胆"},
        {Needs::SevenRedsAndBankers, 6, 1, "还需：1 红"},
        {Needs::SevenRedsAndBankers, 7, 1, ""},
        {Needs::EightRedsAndBankers, 7, 0, "还需：1 红、1 胆"},
        {Needs::EightRedsAndBankers, 8, 0, "还需：1 胆"},
        {Needs::EightRedsAndBankers, 7, 2, "还需：1 红"},
        {Needs::EightRedsAndBankers, 8, 1, ""},
    };
    for (const Case& each : cases)
        EXPECT_EQ(told(each.needs, numbers(each.reds, each.bankers)), each.told)
            << static_cast<int>(each.needs) << " with " << each.reds << " reds, " << each.bankers << " bankers";
}

/// A wheel is a table for one count of reds.
TEST(MenuRules, AWheelIsOfferedForItsOwnCountOfReds) {
    for (int index = 9; index <= 16; ++index)
        for (int reds = 0; reds <= 38; ++reds) {
            const std::string wanted = reds == index ? "" : "要选 " + std::to_string(index) + " 红";
            EXPECT_EQ(told(Needs::BasicWheel, numbers(reds), index), wanted) << reds;
        }
    for (int index = 8; index <= 18; ++index)
        for (int reds = 0; reds <= 38; ++reds) {
            const std::string wanted = reds == index ? "" : "要选 " + std::to_string(index) + " 红";
            EXPECT_EQ(told(Needs::ExtendedWheel, numbers(reds), index), wanted) << reds;
        }
}

/// There is an entry for eight and no table behind it: no count of reds offers it, and it asks for none.
TEST(MenuRules, TheBasicWheelOfEightIsNeverOffered) {
    for (int reds = 0; reds <= 38; ++reds)
        EXPECT_EQ(told(Needs::BasicWheel, numbers(reds), 8), "8 红没有基本矩阵") << reds;
}

TEST(MenuRules, MissingNumbersGoBeforeASentence) {
    EXPECT_EQ(Obstacle().text(), QString());
    EXPECT_EQ((Obstacle{{u"1 红"_s, u"1 蓝"_s}, u"不行"_s}.text()), u"还需：1 红、1 蓝"_s);
}

/// Where a blue is chosen the bets are of six reds and a blue, and the entries say so; seven reds for 复7式.
TEST(MenuRules, TheBetEntriesNameTheFormOfTheirBets) {
    const std::pair<const char16_t*, const char16_t*> captions[] = {
        {u"meuAgn", u"红球摇奖复选选择（%1）(&M)"},   {u"mnuDantuo", u"红球摇奖胆拖选择（%1）(&T)"},
        {u"mnuRt", u"红球基本旋转矩阵（%1）(&R)"},    {u"mnuExra", u"红球扩展旋转矩阵（%1）(&E)"},
        {u"mnuQnjz", u"红球超级旋转矩阵（%1）(&A)"},  {u"mnuDtxj", u"红球胆拖旋转矩阵（%1）(&D)"},
        {u"mnuFuxj", u"红球复7式旋转矩阵（%1）(&F)"}, {u"mnuLst", u"红球复选组合排列（%1）(&L)"},
        {u"mnuDtlst", u"红球胆拖组合排列（%1）(&S)"}};
    for (const auto& [name, pattern] : captions) {
        const QString entry = QString::fromUtf16(name);
        const QString text = QString::fromUtf16(pattern);
        const QString reds = entry == u"mnuFuxj"_s ? u"7红"_s : u"6红"_s;
        EXPECT_EQ(betCaption(entry, 0), text.arg(reds + u"球排列"_s));
        for (const int blues : {1, 2, 16})
            EXPECT_EQ(betCaption(entry, blues), text.arg(reds + u"+1蓝排列"_s)) << blues;
    }
    for (const int blues : {0, 1})
        EXPECT_EQ(betCaption(u"mnu8Lst"_s, blues), std::nullopt) << "bets of seven reds have no blue";
}

/// The menus begin without a blue: what the table says first is what the rule says then.
TEST(MenuRules, TheMenuTableBeginsWithTheFormWithoutBlue) {
    int named = 0;
    for (const MenuRow& row : menuTable())
        if (const auto caption = betCaption(row.name, 0)) {
            EXPECT_EQ(row.caption, *caption);
            ++named;
        }
    EXPECT_EQ(named, 9);
}

} // namespace
} // namespace mainwin
