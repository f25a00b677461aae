#include "selection/selection_template.h"

#include "selection/choosing_support.h"
#include "selection/saved_selections.h"

namespace choosing_tests {
namespace {

class Template : public Choosing {
  protected:
    sql::Database& filnum() { return *workspace.dbFilnum; }
    void add(int cmd, int nmb) { selection::addStep(filnum(), cmd, nmb); }
    selection::Replayed replay() { return selection::replayTemplate(pad, workspace, history.Lsnum); }
    /// 1..6 and blue 3 twice, 7..12 and blue 4 once.
    void holdThree() {
        hold({{2003001, 7, 8, 9, 10, 11, 12, 4}, {2003002, 1, 2, 3, 4, 5, 6, 3}, {2003003, 1, 2, 3, 4, 5, 6, 3}});
    }
};

TEST_F(Template, AnEmptyOneDoesNothing) {
    pad.pressRed(7);
    EXPECT_EQ(replay().steps, 0);
    EXPECT_EQ(padText(), " 7 | |");
}

TEST_F(Template, EachStepDoesWhatItsCodeSays) {
    holdThree();
    for (const int red : {20, 21})
        pad.pressRed(red);
    selection::saveSelection(*workspace.dbNumsave, pad, u"甲"_s);
    const std::pair<std::pair<int, int>, std::string> cases[] = {
        {{0, 7}, " 1 2 3 4 5 6 7 | |"},
        {{1, 2}, " 13 14 | |"},
        {{2, 3}, " 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33 | |"},
        {{3, 0}, " 1 2 3 4 5 6 | |"},
        {{4, 1}, " 20 21 | |"},
        {{4, 0}, " | |"},
        {{4, 9}, " | |"},
        {{5, 2}, " | | 3 4"},
        {{6, 2}, " | | 1 2"},
        {{7, 3}, " | | 1 2 5 6 7 8 9 10 11 12 13 14 15 16"},
        {{8, 2}, " | | 3 4"},
        {{0, 0}, " | |"},
        {{5, 0}, " | |"},
    };
    for (const auto& [step, wanted] : cases) {
        filnum().execute("DELETE FROM [Xhmb]");
        pad.clearReds();
        pad.clearBlues();
        add(step.first, step.second);
        replay();
        EXPECT_EQ(padText(), wanted) << "cmd " << step.first << " nmb " << step.second;
    }
}

TEST_F(Template, TheStepsAddToWhatIsChosenAndToEachOther) {
    holdThree();
    pad.pressRed(1);
    pad.pressBlue(9);
    add(0, 2);
    add(0, 2);
    add(5, 1);
    const selection::Replayed done = replay();
    EXPECT_EQ(padText(), " 1 2 3 4 5 | | 9 3");
    EXPECT_EQ(done.steps, 3);
    EXPECT_EQ(done.reds, 4);
    EXPECT_EQ(done.blues, 1);
}

TEST_F(Template, ASavedSelectionGivesItsRedsAlone) {
    pad.pressRed(8);
    pad.pressBlue(2);
    makeBanker(9);
    selection::saveSelection(*workspace.dbNumsave, pad, u"甲"_s);
    pad.clearReds();
    pad.clearBlues();
    makeBanker(8);
    add(4, 1);
    replay();
    EXPECT_EQ(padText(), " 8 | |");
}

/// A step counts on all draws, whatever range a menu entry has left in the working copy.
TEST_F(Template, RanksOnTheWholeHistory) {
    holdThree();
    selection::pickNumbers({*workspace.dbUser, 3, {selection::DrawRange::Kind::Issues, 2003001, 2003001, 0}},
                           selection::kRankedSelections[0], 1, 33);
    add(0, 1);
    replay();
    EXPECT_EQ(padText(), " 1 | |");
}

TEST_F(Template, ADeletedStepLeavesAGapAndTheReplayGoesOn) {
    holdThree();
    for (const int cmd : {0, 1, 5})
        add(cmd, 1);
    selection::deleteStep(filnum(), 2);
    EXPECT_EQ(dump(filnum(), "Xhmb"), "1 0 1\n3 5 1\n");
    replay();
    EXPECT_EQ(padText(), " 1 | | 3");
    add(8, 4);
    EXPECT_EQ(dump(filnum(), "Xhmb"), "1 0 1\n3 5 1\n4 8 4\n");
}

TEST_F(Template, TheDeletingStatementIsTheStoresOwn) {
    add(0, 1);
    std::string ran;
    filnum().setListener([&](std::string_view statement) { ran = statement; });
    selection::deleteStep(filnum(), 1);
    filnum().setListener({});
    EXPECT_EQ(ran, "DELETE FROM [Xhmb]  WHERE [IDX] = 1");
    EXPECT_TRUE(selection::templateSteps(filnum()).empty());
}

TEST_F(Template, AnUnknownCodeIsPassedOverAndNamed) {
    add(77, 3);
    add(-1, 3);
    EXPECT_EQ(replay().steps, 0);
    EXPECT_EQ(selection::stepText(77), u"未知步骤 77"_s);
    EXPECT_EQ(selection::stepText(4), u"添加历史选号号码"_s);
    EXPECT_EQ(selection::stepText(8), u"蓝球遗漏低次号码"_s);
}

TEST_F(Template, AStepThatFailsLeavesThePadAsItWas) {
    holdThree();
    add(0, 3);
    add(4, 1);
    workspace.dbNumsave->execute("DROP TABLE [SAVE]");
    EXPECT_THROW(replay(), sql::SqlError);
    EXPECT_EQ(padText(), " | |");
}

TEST_F(Template, AFileThatIsNotFoundIsOpenedAgain) {
    add(3, 5);
    workspace.dbFilnum.reset();
    selection::openTemplate(engine, workspace);
    ASSERT_NE(workspace.dbFilnum, nullptr);
    EXPECT_EQ(dump(filnum(), "Xhmb"), "1 3 5\n");
}

TEST_F(Template, AnyOtherFailureOfItsTableIsOne) {
    filnum().execute("DROP TABLE [Xhmb]");
    try {
        selection::openTemplate(engine, workspace);
        FAIL() << "no error";
    } catch (const sql::SqlError& failed) {
        EXPECT_EQ(failed.number(), sql::error::kTableNotFound);
    }
}

} // namespace
} // namespace choosing_tests
