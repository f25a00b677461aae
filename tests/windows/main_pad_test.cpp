#include <QContextMenuEvent>

#include "windows/main_window_support.h"

namespace main_window_tests {
namespace {

TEST_F(MainWindow, TheRuleDecidesWhichNumbersAreShown) {
    workspace.Bitnum = 30;
    workspace.BitnumB = 12;
    open();
    EXPECT_TRUE(ball(u"Command1(30)"_s).isVisible() && ball(u"Command1(30)"_s).isEnabled());
    EXPECT_FALSE(ball(u"Command1(31)"_s).isVisible() || ball(u"Command1(31)"_s).isEnabled());
    EXPECT_FALSE(ball(u"Command2(13)"_s).isVisible() || ball(u"Command2(13)"_s).isEnabled());
    EXPECT_TRUE(control(*form, u"Picture2(30)"_s)->isVisibleTo(form.get()));
    EXPECT_FALSE(control(*form, u"Picture2(31)"_s)->isVisibleTo(form.get()));
    EXPECT_FALSE(control(*form, u"Label6(31)"_s)->isVisibleTo(form.get()));
    EXPECT_TRUE(action(*form, u"meuS(30)"_s)->isChecked());
    EXPECT_TRUE(action(*form, u"mnuBlue(12)"_s)->isChecked());
}

TEST_F(MainWindow, WithThirtyEightRedsNothingIsHidden) {
    workspace.Bitnum = 38;
    workspace.BitnumB = 18;
    open();
    for (int number = 1; number <= 38; ++number) {
        EXPECT_TRUE(ball(u"Command1(%1)"_s.arg(number)).isEnabled());
        for (const auto& name : {u"Command1(%1)"_s, u"Label6(%1)"_s, u"Picture2(%1)"_s})
            EXPECT_TRUE(control(*form, name.arg(number))->isVisibleTo(form.get())) << number;
    }
}

TEST_F(MainWindow, AnotherRuleIsSavedAtOnceAndShown) {
    open();
    pad.pressRed(33);
    const QSignalSpy changed(workspaceDesk.get(), &mainwin::WorkspaceDesk::ruleChanged);
    trigger(*form, u"meuS(29)"_s);
    EXPECT_EQ(workspace.Bitnum, 29);
    EXPECT_EQ(stored(u"Initial/Bitnum"_s), u"29"_s);
    EXPECT_EQ(stored(u"Initial/BitnumB"_s), QString()) << "only what was changed is written";
    EXPECT_TRUE(action(*form, u"meuS(29)"_s)->isChecked());
    EXPECT_FALSE(action(*form, u"meuS(33)"_s)->isChecked());
    EXPECT_FALSE(ball(u"Command1(30)"_s).isVisible());
    EXPECT_EQ(text(u"Label100"_s), QString()) << "a number that is not shown is not selected";
    trigger(*form, u"mnuBlue(18)"_s);
    EXPECT_EQ(stored(u"Initial/BitnumB"_s), u"18"_s);
    EXPECT_TRUE(ball(u"Command2(18)"_s).isVisible());
    trigger(*form, u"mnuBlue(18)"_s); // once more: the mark stays
    EXPECT_TRUE(action(*form, u"mnuBlue(18)"_s)->isChecked());
    EXPECT_EQ(changed.count(), 3);
}

TEST_F(MainWindow, ClicksOnThePadAreEchoed) {
    open();
    pressNumbers(u"Command1(%1)"_s, {22, 3, 17});
    pressNumbers(u"Command2(%1)"_s, {16, 1});
    EXPECT_EQ(text(u"Label100"_s), u" 22 3 17"_s);
    EXPECT_EQ(text(u"Label5"_s), u"3"_s);
    EXPECT_EQ(text(u"Label3"_s), u" 16 1"_s);
    EXPECT_EQ(text(u"Label15"_s), u"2"_s);
    EXPECT_TRUE(ball(u"Command1(22)"_s).isChecked());
    EXPECT_EQ(ball(u"Command1(22)"_s).state(), NumberBall::State::Selected);
    press(*form, u"Command1(22)"_s);
    EXPECT_EQ(text(u"Label100"_s), u" 3 17"_s);
    EXPECT_FALSE(ball(u"Command1(22)"_s).isChecked());
}

TEST_F(MainWindow, ABallActsAtThePressAndOnceWhereverTheMouseIsLetGo) {
    open();
    NumberBall& seven = ball(u"Command1(7)"_s);
    QTest::mousePress(&seven, Qt::LeftButton, {}, seven.rect().center());
    EXPECT_EQ(text(u"Label100"_s), u" 7"_s);
    QTest::mouseMove(&seven, {-40, -40});
    QTest::mouseRelease(&seven, Qt::LeftButton, {}, {-40, -40});
    EXPECT_EQ(text(u"Label100"_s), u" 7"_s);
    NumberBall& blue = ball(u"Command2(3)"_s);
    QTest::mousePress(&blue, Qt::LeftButton, {}, blue.rect().center());
    EXPECT_EQ(text(u"Label3"_s), u" 3"_s);
    QTest::mouseRelease(&blue, Qt::LeftButton, {}, blue.rect().center());
    EXPECT_EQ(text(u"Label3"_s), u" 3"_s);
    QTest::mouseClick(&seven, Qt::LeftButton, {}, {1, 1}); // beside the ball
    EXPECT_EQ(text(u"Label100"_s), u" 7"_s);
    QTest::mouseClick(&seven, Qt::LeftButton, {}, seven.rect().center());
    QTest::mouseDClick(&seven, Qt::LeftButton, {}, seven.rect().center());
    EXPECT_EQ(text(u"Label100"_s), u" 7"_s) << "two presses in a row are two presses";
}

TEST_F(MainWindow, ARightClickOffersTheBankerAndChangesNothingElse) {
    open();
    press(*form, u"Command1(5)"_s);
    rightPress(*form, u"Command1(5)"_s);
    EXPECT_EQ(text(u"Label100"_s), u" 5"_s);
    EXPECT_EQ(pad.Lastclick, 5);
    EXPECT_EQ(caption(u"mnuDan"_s), u"胆-选择/取消"_s);
    EXPECT_EQ(caption(u"mnuDt"_s), u"胆拖模式"_s);
    form->findChild<QMenu*>(u"mnuDt"_s)->close();
    makeBanker(5);
    EXPECT_EQ(text(u"Label100"_s), QString());
    EXPECT_EQ(text(u"Label8"_s), u" 5"_s);
    EXPECT_EQ(text(u"Label19"_s), u"1"_s);
    EXPECT_EQ(ball(u"Command1(5)"_s).state(), NumberBall::State::Banker);
    EXPECT_TRUE(ball(u"Command1(5)"_s).isChecked()) << "the button of a banker keeps its value";
    makeBanker(5);
    EXPECT_EQ(text(u"Label8"_s), QString());
    EXPECT_EQ(ball(u"Command1(5)"_s).state(), NumberBall::State::Free);
}

TEST_F(MainWindow, TheThirdPanelShowsTheBets) {
    open();
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(text(u"StatusBar1(3)"_s), QString());
    press(*form, u"Command2(3)"_s);
    EXPECT_EQ(text(u"StatusBar1(3)"_s), u"7红1蓝，共计复选：7注,合计：14元"_s);
    makeBanker(1);
    EXPECT_EQ(text(u"StatusBar1(3)"_s), u"1红胆6红拖1蓝，共计胆拖：6注,合计：12元"_s);
    press(*form, u"Command45"_s);
    EXPECT_EQ(text(u"StatusBar1(3)"_s), QString());
}

TEST_F(MainWindow, TheButtonUnderThePadSaysWhatIsMissingAndRunsWhatFits) {
    open();
    const auto shown = [this] { return text(u"ArrangeMissing"_s) + u'|' + text(u"ArrangeOutlook"_s); };
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6});
    EXPECT_EQ(shown(), u"还需：1 红|满 7 红即可排 6红"_s);
    EXPECT_FALSE(control(*form, u"cmdArrange"_s)->isEnabled());
    pressNumbers(u"Command1(%1)"_s, {7, 8});
    EXPECT_EQ(shown(), u"28 注，56 元|6红球；选 1 蓝可排 6红+1蓝"_s);
    press(*form, u"Command2(3)"_s);
    EXPECT_EQ(shown(), u"28 注，56 元|"_s);
    press(*form, u"cmdArrange"_s);
    makeBanker(9);
    EXPECT_EQ(shown(), u"56 注，112 元|"_s) << "C(8, 5)";
    press(*form, u"cmdArrange"_s);
    EXPECT_EQ(ran, (std::vector<QString>{u"mnuLst"_s, u"mnuDtlst"_s}));
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3});
    EXPECT_EQ(shown(), u"还需：2 红|满 7 拖即可排 6红+1蓝"_s);
    pad.selectAllReds();
    pad.selectAllBlues();
    EXPECT_EQ(shown(), u"17,721,088 注，35,442,176 元|"_s);
}

TEST_F(MainWindow, EachPadIsOneStopAndItsArrowsGoByPlace) {
    open();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    const auto at = [this] { return form->focusWidget()->objectName(); };
    const auto key = [this](Qt::Key which) { QTest::keyClick(form->focusWidget(), which); };
    ball(u"Command1(1)"_s).setFocus(Qt::TabFocusReason);
    const std::pair<Qt::Key, QString> moves[] = {
        {Qt::Key_Right, u"Command1(2)"_s},  {Qt::Key_Down, u"Command1(13)"_s}, {Qt::Key_End, u"Command1(22)"_s},
        {Qt::Key_Right, u"Command1(22)"_s}, {Qt::Key_Down, u"Command1(33)"_s}, {Qt::Key_Down, u"Command1(33)"_s},
        {Qt::Key_Home, u"Command1(23)"_s},  {Qt::Key_Left, u"Command1(23)"_s}, {Qt::Key_Up, u"Command1(12)"_s}};
    for (const auto& [pressed, reached] : moves) {
        key(pressed);
        EXPECT_EQ(at(), reached);
    }
    key(Qt::Key_Space);
    key(Qt::Key_Right);
    key(Qt::Key_Return);
    EXPECT_EQ(text(u"Label100"_s), u" 12 13"_s);
    key(Qt::Key_Tab);
    EXPECT_FALSE(at().startsWith(u"Command1("_s)) << at().toStdString();
    QTest::keyClick(form->focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(at(), u"Command1(13)"_s) << "back where it was";
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
    QApplication::sendEvent(form->focusWidget(), &menu);
    EXPECT_TRUE(form->findChild<QMenu*>(u"mnuDt"_s)->isVisible());
    form->findChild<QMenu*>(u"mnuDt"_s)->close();
    EXPECT_EQ(pad.Lastclick, 13);
}

TEST_F(MainWindow, ThePadsButtonsWork) {
    open();
    EXPECT_FALSE(control(*form, u"Command142"_s)->isEnabled());
    press(*form, u"Command42"_s);
    EXPECT_EQ(text(u"Label5"_s), u"33"_s) << "an empty pad inverted is a full one";
    press(*form, u"Command45"_s);
    press(*form, u"Command41"_s);
    EXPECT_EQ(text(u"Label5"_s), u"33"_s);
    press(*form, u"Command42"_s);
    EXPECT_EQ(text(u"Label5"_s), u"0"_s);
    press(*form, u"Command42"_s);
    EXPECT_EQ(text(u"Label5"_s), u"33"_s);
    press(*form, u"Command141"_s);
    EXPECT_EQ(text(u"Label15"_s), u"16"_s);
    press(*form, u"Command142"_s);
    EXPECT_EQ(text(u"Label15"_s), u"0"_s);
    press(*form, u"Command2(1)"_s);
    press(*form, u"Command145"_s);
    EXPECT_EQ(text(u"Label3"_s), QString());
}

TEST_F(MainWindow, TheSeventhNumberEnablesTheStartControls) {
    open();
    const auto started = [this] {
        const bool button = control(*form, u"ComSta"_s)->isEnabled();
        EXPECT_EQ(entryEnabled(u"meuSta"_s), button);
        EXPECT_EQ(entryEnabled(u"Toolbar1(sta)"_s), button);
        return button;
    };
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6});
    EXPECT_FALSE(started());
    makeBanker(7);
    EXPECT_TRUE(started());
    press(*form, u"Command45"_s);
    EXPECT_FALSE(started());
    for (const auto& name : {u"Toolbar1(sup)"_s, u"Toolbar1(rst)"_s, u"Toolbar1(fx)"_s, u"meuAgarr"_s})
        EXPECT_FALSE(entryEnabled(name)) << name.toStdString();
}

TEST_F(MainWindow, ClearingTheRedsMovesTheCheckMarkBackToSixNumbers) {
    open();
    action(*form, u"meuDanxuan(6)"_s)->setChecked(false);
    action(*form, u"meuDanxuan(9)"_s)->setChecked(true);
    pad.Genreds = 9;
    press(*form, u"Command45"_s);
    EXPECT_TRUE(action(*form, u"meuDanxuan(6)"_s)->isChecked());
    EXPECT_FALSE(action(*form, u"meuDanxuan(9)"_s)->isChecked());
    EXPECT_EQ(pad.Genreds, 6);
}

} // namespace
} // namespace main_window_tests
