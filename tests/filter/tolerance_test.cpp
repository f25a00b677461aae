// The boxes of the tolerance that follow each other, each with its own rounding, and what a run will keep, in words.
#include "filter/tolerance.h"

#include <gtest/gtest.h>

#include "filter/catalogue.h"

namespace {

using filter::Logic;
using filter::WindowState;

WindowState ticked(int count, const std::string& percent = "10") {
    WindowState state = filter::defaultState(filter::sixAndBlueCatalogue());
    for (int tick = 0; tick < count; ++tick)
        state.rows[static_cast<std::size_t>(tick)].ticked = true;
    state.tolerancePercent = percent;
    return state;
}

TEST(ToleranceBoxes, TheLastTickDoesNotCount) {
    WindowState state = ticked(4);
    state.rows[31].ticked = true;
    EXPECT_EQ(filter::toleranceTicks(state), 4);
    state.rows[30].ticked = true;
    EXPECT_EQ(filter::toleranceTicks(state), 5);
}

TEST(ToleranceBoxes, ATickRoundsHalvesUpAndLeavesACountThatWouldBeNone) {
    EXPECT_EQ(filter::countAfterTick(ticked(10)), "1");
    EXPECT_EQ(filter::countAfterTick(ticked(5)), "1"); // 0.5 + 0.5
    EXPECT_EQ(filter::countAfterTick(ticked(5, "50")), "3");
    EXPECT_EQ(filter::countAfterTick(ticked(31, "100")), "31");
    WindowState four = ticked(4); // 0.4 + 0.5
    four.toleranceCount = "7 or so";
    EXPECT_EQ(filter::countAfterTick(four), "7 or so");
    EXPECT_EQ(filter::countAfterTick(ticked(10, "-10")), "-1"); // Int goes down: -0.5
}

TEST(ToleranceBoxes, LeavingThePercentageCuts) {
    EXPECT_EQ(filter::countAfterPercent(ticked(5, "50")), "2");
    EXPECT_EQ(filter::countAfterPercent(ticked(10, "19.9%")), "1");
    EXPECT_EQ(filter::countAfterPercent(ticked(4)), "0");
    EXPECT_EQ(filter::countAfterPercent(ticked(4, "abc")), "0");
    EXPECT_EQ(filter::countAfterPercent(ticked(0, "50")), "0");
}

TEST(ToleranceBoxes, LeavingTheCountCutsAndNeedsATick) {
    WindowState state = ticked(3);
    state.toleranceCount = "1";
    EXPECT_EQ(filter::percentAfterCount(state), "33");
    state.toleranceCount = "2";
    EXPECT_EQ(filter::percentAfterCount(state), "66");
    state.toleranceCount = "";
    EXPECT_EQ(filter::percentAfterCount(state), "0");
    EXPECT_EQ(filter::percentAfterCount(ticked(0)), std::nullopt);
    WindowState last = ticked(0);
    last.rows[31].ticked = true;
    EXPECT_EQ(filter::percentAfterCount(last), std::nullopt);
}

TEST(ToleranceBoxes, TheRunRoundsHalvesToTheEvenSideAndKeepsToSixteenBits) {
    WindowState state = ticked(3);
    EXPECT_EQ(filter::toleranceOf(state), 0) << "not ticked";
    state.tolerance = true;
    for (const auto& [text, number] : std::initializer_list<std::pair<const char*, int>>{
             {"1", 1}, {"0.5", 0}, {"1.5", 2}, {"2.5", 2}, {"x", 0}, {"-1", -1}, {"99999", 32767}}) {
        state.toleranceCount = text;
        EXPECT_EQ(filter::toleranceOf(state), number) << text;
    }
}

struct Reading {
    bool keep;
    Logic logic;
    const char* none; ///< no tick
    const char* exact;
    const char* oneAllowed;
    const char* fourAllowed;
};

TEST(WhatARunKeeps, IsSaidForTheFourReadings) {
    const Reading readings[] = {
        {true, Logic::And, "没有勾选参数：所有注都留下", "4 个范围全部满足的注留下",
         "4 个范围中至少满足 3 个的注留下", "容错 4 个：所有注都留下"},
        {false, Logic::Or, "没有勾选参数：所有注都留下", "4 个范围一个也不落入的注留下",
         "4 个范围中至多落入 1 个的注留下", "容错 4 个：所有注都留下"},
        {true, Logic::Or, "没有勾选参数：所有注都将滤去", "4 个范围中至少满足 1 个的注留下",
         "4 个范围中至少满足 2 个的注留下", "容错 4 个：所有注都将滤去"},
        {false, Logic::And, "没有勾选参数：所有注都将滤去", "4 个范围没有全部满足的注留下",
         "4 个范围中不满足的多于 1 个的注留下", "容错 4 个：所有注都将滤去"},
    };
    const auto said = [](WindowState state, const Reading& reading, const char* count, bool offers = true) {
        state.keep = reading.keep;
        state.logic = reading.logic;
        state.tolerance = *count != '\0';
        state.toleranceCount = count;
        return filter::keptByRun(filter::sixAndBlueCatalogue(), state, offers);
    };
    for (const Reading& reading : readings) {
        EXPECT_EQ(said(ticked(0), reading, ""), reading.none);
        EXPECT_EQ(said(ticked(4), reading, ""), reading.exact);
        EXPECT_EQ(said(ticked(4), reading, "1"), reading.oneAllowed);
        EXPECT_EQ(said(ticked(4), reading, "1", false), reading.exact) << "seven reds offer no tolerance";
        EXPECT_EQ(said(ticked(4), reading, "4"), reading.fourAllowed);
    }
    EXPECT_EQ(said(ticked(4), readings[0], "-1"), "容错 -1 个：所有注都将滤去");
    EXPECT_EQ(said(ticked(4), readings[2], "-1"), "容错 -1 个：所有注都留下");
}

TEST(WhatARunKeeps, CountsAParityThatIsAskedFor) {
    const filter::Parameter& first = *filter::findParameter(filter::sixAndBlueCatalogue(), "Option13");
    WindowState state = ticked(0);
    state.row(first).ticked = true;
    state.row(first).odd = true;
    state.tolerance = true;
    EXPECT_EQ(filter::keptByRun(filter::sixAndBlueCatalogue(), state, true),
              "2 个条件（含奇偶）中至少满足 1 个的注留下");
    state.keep = false;
    state.logic = Logic::Or;
    EXPECT_EQ(filter::keptByRun(filter::sixAndBlueCatalogue(), state, true),
              "1 个范围中至多落入 1 个的注留下（1 个奇偶不符时也各算落入 1 个）");
    state.row(first).even = true;
    EXPECT_EQ(filter::keptByRun(filter::sixAndBlueCatalogue(), state, true), "容错 1 个：所有注都留下");
}

} // namespace
