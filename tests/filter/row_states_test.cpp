// Row states through filters, resets, inverts and the manual delete: the table of states, and the odd corners of it.
#include <gtest/gtest.h>

#include "executor_names.h"
#include "filter/bench_table.h"

namespace filter_test {
namespace {

using filter::kKeep;
using filter::kRemove;
using filter::Mode;
using filter::Toggled;
using Ints = std::vector<int>;
using Texts = std::vector<std::string>;

// Sums of the reds: 21, 92, 129, 183.
const std::vector<std::vector<int>> kBets{
    {1, 2, 3, 4, 5, 6, 7}, {1, 5, 11, 17, 25, 33, 6}, {3, 13, 19, 29, 32, 33, 3}, {28, 29, 30, 31, 32, 33, 16}};

class RowStates : public testing::TestWithParam<sql::Executor> {
  protected:
    RowStates() : table(GetParam()) { table.hold(kBets); }
    Ints unslt() { return table.column("unslt"); }
    Ints preunslt() { return table.column("preunslt"); }
    Texts reasons() { return table.texts("Fliter"); }
    /// Row 1 out, by its sum.
    void takeOutFirst() { table.press("Option23", range("22", "999")); }
    /// Row 4 out, by its sum.
    void takeOutLast() { table.press("Option23", range("0", "182")); }

    BenchTable table;
};

TEST_P(RowStates, AFilterTakesASnapshotAndGivesItsReasonToTheRowsThatFail) {
    takeOutFirst();
    EXPECT_EQ(unslt(), (Ints{-1, 0, 0, 0}));
    EXPECT_EQ(preunslt(), (Ints{0, 0, 0, 0}));
    EXPECT_EQ(reasons(), (Texts{"各码数和大小:21 保留22~999", "", "", ""}));
    EXPECT_EQ(table.texts("Errnum"), (Texts{"", "", "", ""}));
    takeOutLast();
    EXPECT_EQ(unslt(), (Ints{-1, 0, 0, -1}));
    EXPECT_EQ(preunslt(), (Ints{-1, 0, 0, 0}));
    EXPECT_EQ(table.inPlay(), 2);
    EXPECT_EQ(table.database->rowCount("zuhe"), 4);
}

TEST_P(RowStates, AReasonKeepsTheValueThatItsOwnParameterComputed) {
    takeOutFirst();
    table.press("Option4", range("0", "9"));
    EXPECT_EQ(table.column("canshu"), (Ints{3, 0, 1, 3}));
    EXPECT_EQ(reasons()[0], "各码数和大小:21 保留22~999");
}

TEST_P(RowStates, ResetAllNeitherTakesASnapshotNorCanBeUndone) {
    takeOutFirst();
    takeOutLast();
    const Ints before = preunslt();
    table.states().resetAll();
    EXPECT_EQ(unslt(), (Ints{0, 0, 0, 0}));
    EXPECT_EQ(preunslt(), before);
    EXPECT_EQ(reasons(), (Texts{"", "", "", ""}));
    table.states().restoreLast();
    EXPECT_EQ(unslt(), (Ints{0, 0, 0, 0}));
}

TEST_P(RowStates, ATextThatIsNoRowsNumberTogglesNothing) {
    for (const std::string& text :
         {std::string(), std::string("号码索引"), std::string("5"), std::string("0"), std::string("-1"),
          std::string("2147483648"), std::string("99999999999999999999"), std::string("1E400"), std::string(400, '9'),
          std::string(1 << 20, '1'), std::string("\""), std::string("1 2")})
        EXPECT_EQ(table.states().toggle(text), Toggled::NotFound) << text.substr(0, 30);
    EXPECT_EQ(unslt(), (Ints{0, 0, 0, 0}));
}

TEST_P(RowStates, OnlyTheRowsOfTheLastFilterReturn) {
    takeOutFirst();
    takeOutLast();
    table.states().restoreLast();
    EXPECT_EQ(unslt(), (Ints{-1, 0, 0, 0}));
    EXPECT_EQ(preunslt(), (Ints{-1, 0, 0, 0}));
    EXPECT_EQ(reasons(), (Texts{"各码数和大小:21 保留22~999", "", "", ""}));
}

TEST_P(RowStates, TheSecondUndoChangesNothing) {
    takeOutFirst();
    table.states().restoreLast();
    const Ints after = unslt();
    table.states().restoreLast();
    EXPECT_EQ(unslt(), after);
    EXPECT_EQ(after, (Ints{0, 0, 0, 0}));
}

TEST_P(RowStates, ARestoredRowHasNoReasonEvenFromAnEarlierStep) {
    takeOutFirst();
    table.states().invertAll();                  // row 1 back with its reason, the others out
    table.press("Option23", range("50", "999")); // row 1 out again
    table.states().restoreLast();
    EXPECT_EQ(unslt()[0], 0);
    EXPECT_EQ(reasons()[0], "");
    EXPECT_EQ(reasons()[1], "全部反选-");
}

TEST_P(RowStates, TwoInversionsGiveBackEveryState) {
    takeOutFirst();
    const Ints before = unslt();
    table.states().invertAll();
    EXPECT_EQ(unslt(), (Ints{0, -1, -1, -1}));
    EXPECT_EQ(preunslt(), before);
    table.states().invertAll();
    EXPECT_EQ(unslt(), before);
    EXPECT_EQ(reasons(), (Texts{"全部反选-全部反选-各码数和大小:21 保留22~999", "全部反选-全部反选-",
                                "全部反选-全部反选-", "全部反选-全部反选-"}));
}

TEST_P(RowStates, InvertLastBringsTheVictimsBackAndSendsTheSurvivorsOut) {
    takeOutFirst();
    takeOutLast();
    table.states().invertLast();
    EXPECT_EQ(unslt(), (Ints{-1, -1, -1, 0}));
    EXPECT_EQ(preunslt(), (Ints{-1, 0, 0, -1}));
    EXPECT_EQ(table.column("tmpunslt"), (Ints{-1, 0, 0, 0}));
    EXPECT_EQ(reasons(),
              (Texts{"各码数和大小:21 保留22~999", "上次反选-", "上次反选-", "上次反选-各码数和大小:183 保留0~182"}));
}

TEST_P(RowStates, InvertLastAfterInvertAllFlipsWhatTheStatementsSay) {
    takeOutFirst();
    takeOutLast();               // out: 1 4, before it: 1
    table.states().invertAll();  // out: 2 3; before it: 1 4
    table.states().invertLast(); // flips the rows that were in play before the inversion: 2 3
    EXPECT_EQ(table.column("tmpunslt"), (Ints{-1, 0, 0, -1}));
    EXPECT_EQ(unslt(), (Ints{0, 0, 0, 0}));
    EXPECT_EQ(reasons()[0], "全部反选-各码数和大小:21 保留22~999");
    EXPECT_EQ(reasons()[1], "上次反选-全部反选-");
}

TEST_P(RowStates, ADoubleClickTakesARowOutAndASecondPutsItBack) {
    EXPECT_EQ(table.states().toggle("3"), Toggled::TakenOut);
    EXPECT_EQ(unslt(), (Ints{0, 0, -1, 0}));
    EXPECT_EQ(reasons()[2], "手工删除");
    EXPECT_EQ(table.states().toggle("3"), Toggled::PutBack);
    EXPECT_EQ(unslt(), (Ints{0, 0, 0, 0}));
    EXPECT_EQ(preunslt(), (Ints{0, 0, -1, 0}));
    EXPECT_EQ(reasons()[2], "");
}

TEST_P(RowStates, ADoubleClickOnAFilteredRowPutsItBackWithoutItsReason) {
    takeOutFirst();
    EXPECT_EQ(table.states().toggle("1"), Toggled::PutBack);
    EXPECT_EQ(unslt(), (Ints{0, 0, 0, 0}));
    EXPECT_EQ(reasons()[0], "");
}

TEST_P(RowStates, ADoubleClickOnTheHeadingsFindsNoRow) {
    takeOutFirst();
    EXPECT_EQ(table.states().toggle("号码索引"), Toggled::NotFound);
    EXPECT_EQ(table.states().toggle("99"), Toggled::NotFound);
    EXPECT_EQ(unslt(), (Ints{-1, 0, 0, 0}));
    EXPECT_EQ(preunslt(), unslt()); // the snapshot comes first
}

TEST_P(RowStates, ATableWithNothingInPlayCountsNoBet) {
    table.press("Option23", range("500", "600"));
    EXPECT_EQ(table.inPlay(), 0);
    table.press("Option4", range("0", "0"));
    table.press("Option13", range("0", "0"));
    EXPECT_EQ(table.inPlay(), 0);
    EXPECT_EQ(table.column("canshu"), (Ints{1, 1, 1, 0})); // values are computed for rows that are out, too
    EXPECT_EQ(reasons()[0], "各码数和大小:21 保留500~600");
}

TEST_P(RowStates, TheSameFilterTwiceLeavesNothingToUndo) {
    takeOutFirst();
    takeOutFirst();
    table.states().restoreLast();
    EXPECT_EQ(unslt(), (Ints{-1, 0, 0, 0}));
}

TEST_P(RowStates, BothBoundsBelongToTheRange) {
    table.press("Option23", range("92", "129"));
    EXPECT_EQ(unslt(), (Ints{-1, 0, 0, -1}));
    table.states().resetAll();
    table.press("Option23", range("92", "129"), settings(Mode::Range, kRemove));
    EXPECT_EQ(unslt(), (Ints{0, -1, -1, 0}));
    EXPECT_EQ(reasons()[1], "各码数和大小:92 排除92~129");
}

TEST_P(RowStates, AReversedRangeRemovesAllRowsOrNone) {
    table.press("Option23", range("129", "92"), settings(Mode::Range, kRemove));
    EXPECT_EQ(table.inPlay(), 4);
    table.press("Option23", range("129", "92"));
    EXPECT_EQ(table.inPlay(), 0);
}

TEST_P(RowStates, ABoxWithoutALeadingNumberCountsAsZero) {
    table.press("Option4", range("abc", ""));
    EXPECT_EQ(unslt(), (Ints{-1, 0, -1, -1})); // only the bet without an even red stays
    EXPECT_EQ(reasons()[0], "偶数个数大小:3 保留0~0");
}

TEST_P(RowStates, AnEmptyListKeepsNothingAndRemovesNothing) {
    table.press("Option4", list(""), settings(Mode::List, kRemove));
    EXPECT_EQ(table.inPlay(), 4);
    table.press("Option4", list(" "), settings(Mode::List, kKeep));
    EXPECT_EQ(table.inPlay(), 0);
    EXPECT_EQ(reasons()[0], "偶数个数大小:3 保留 ");
}

TEST_P(RowStates, SeveralBlanksInAListAreLikeOne) {
    table.press("Option4", list("  0    1 "), settings(Mode::List, kKeep));
    const Ints wide = unslt();
    table.states().resetAll();
    table.press("Option4", list("0 1"), settings(Mode::List, kKeep));
    EXPECT_EQ(unslt(), wide);
    EXPECT_EQ(wide, (Ints{-1, 0, 0, -1}));
}

TEST_P(RowStates, AListComparesWholeValuesButPositionsOfRedsLooselyOnPurpose) {
    table.press("Option23", list("121 92"), settings(Mode::List, kRemove));
    EXPECT_EQ(unslt(), (Ints{0, -1, 0, 0})); // 21 is not in 121
    table.states().resetAll();
    table.press("Option13", list("13"), settings(Mode::List, kRemove)); // first reds 1 1 3 28
    EXPECT_EQ(unslt(), (Ints{-1, -1, -1, 0}));
    EXPECT_EQ(reasons()[2], "红1位大小:3 排除13");
    table.states().resetAll();
    table.press("Option19", list("13 16"), settings(Mode::List, kRemove)); // blues 7 6 3 16
    EXPECT_EQ(unslt(), (Ints{0, 0, 0, -1}));
}

TEST_P(RowStates, ParityTakesOutWhatIsNotTickedWhateverIsKeptOrRemoved) {
    const auto run = [&](bool odd, bool even, std::int16_t Baoliu) {
        table.states().resetAll();
        filter::RowInput row = Baoliu == kKeep ? range("0", "99") : range("98", "99");
        row.odd = odd;
        row.even = even;
        table.press("Option19", row, settings(Mode::Range, Baoliu)); // blues 7 6 3 16
        return unslt();
    };
    for (const std::int16_t Baoliu : {kKeep, kRemove}) {
        EXPECT_EQ(run(true, false, Baoliu), (Ints{0, -1, 0, -1}));
        EXPECT_EQ(reasons()[1], "蓝球奇偶性");
        EXPECT_EQ(run(false, true, Baoliu), (Ints{-1, 0, -1, 0}));
        EXPECT_EQ(run(true, true, Baoliu), (Ints{0, 0, 0, 0}));
        EXPECT_EQ(run(false, false, Baoliu), (Ints{0, 0, 0, 0}));
    }
}

TEST_P(RowStates, WholeBetAndIntervalParametersSayWhatTheyCounted) {
    filter::RunSettings run;
    run.intervalAbove = "5";
    run.intervalTo = "17";
    table.press("Option66", range("2", "6"), run); // in 6..17: 1, 2, 1, 0
    EXPECT_EQ(reasons(),
              (Texts{"自定区间5~17大小:1 保留2~6", "", "自定区间5~17大小:1 保留2~6", "自定区间5~17大小:0 保留2~6"}));
    table.states().resetAll();
    table.press("Option31", range("5", "9"));
    EXPECT_EQ(reasons()[1], "红蓝偶数个数全体球大小:1 保留5~9");
    table.states().resetAll();
    run.mode = Mode::List;
    run.pickedNumbers = "1 2";
    table.press("Option66", range("2", "6"), run); // the range is compared, the list only counts
    EXPECT_EQ(unslt(), (Ints{0, -1, -1, -1}));
    EXPECT_EQ(reasons()[1], "指定号码 1 2大小:1 保留2~6");
}

TEST_P(RowStates, AccumulatingCountsOverAllRowsAndJoinsReasonsWithoutASeparator) {
    takeOutFirst();
    table.database->execute("UPDATE [zuhe] SET [Errnum]=0");
    table.accumulate("Option4", range("1", "9"));
    filter::RowInput blue = range("4", "99");
    blue.odd = true; // even blues count once more
    table.accumulate("Option19", blue);
    EXPECT_EQ(table.column("Errnum"), (Ints{0, 2, 1, 1}));
    EXPECT_EQ(unslt(), (Ints{-1, 0, 0, 0}));
    EXPECT_EQ(reasons(), (Texts{"各码数和大小:21 保留22~999", "偶数个数大小:0 保留1~9蓝球奇偶性",
                                "蓝球大小:3 保留4~99", "蓝球奇偶性"}));
    table.accumulate("Option4", list("0"), settings(Mode::List, kRemove));
    EXPECT_EQ(table.column("Errnum"), (Ints{0, 3, 1, 1}));
}

TEST_P(RowStates, AMissingTableIsPassedOver) {
    table.database->execute("DROP TABLE [zuhe]");
    table.press("Option24", range("0", "1"));
    table.states().invertLast();
    EXPECT_EQ(table.states().toggle("1"), Toggled::NotFound);
    EXPECT_EQ(table.inPlay(), 0);
}

INSTANTIATE_TEST_SUITE_P(Executors, RowStates, testing::ValuesIn(kExecutors));

} // namespace
} // namespace filter_test
