// What the filter window shows of a press: headline, steps, marks of rows; and what the keyboard does in its table.
#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "filter/windows/parameter_table.h"
#include "filter/windows/row_controls.h"
#include "filter/windows/step_list.h"
#include "toolkit/colours.h"
#include "toolkit/grid_cell.h"
#include "toolkit/head_line.h"
#include "toolkit/segments.h"
#include "windows/filter_window_support.h"

using namespace Qt::StringLiterals;
using test_support::press;
using test_support::typeInto;
using toolkit::CellStyle;
using toolkit::HeadLine;

namespace filter {
namespace {

const QString kForm = u"GAgan"_s;

int roleOf(const QModelIndex& cell, int role) {
    return cell.data(role).toInt();
}

TEST_F(FilterWindowLookTest, TheHeadlineTellsWhatIsLeftAfterEachStep) {
    auto& head = part<HeadLine>(u"HeadLine"_s);
    EXPECT_EQ(head.leftText(), u"14 注 (100.0 %)"_s);
    EXPECT_EQ(head.takenText(), QString());
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    EXPECT_EQ(head.leftText(), u"7 注 (50.0 %)"_s);
    EXPECT_EQ(head.takenText(), u"本次滤去 7 注"_s);
    EXPECT_TRUE(head.stepText().startsWith(u"蓝球 保留 9~99"_s)) << head.stepText().toStdString();
    EXPECT_EQ(head.totalText(), u"共 14 注    表中: 剩余"_s);
    press(kForm, u"cmdRetn"_s);
    EXPECT_EQ(head.leftText(), u"14 注 (100.0 %)"_s);
    EXPECT_EQ(head.takenText(), u"本次恢复 7 注"_s);
    press(kForm, u"optZzuhe(1)"_s);
    EXPECT_TRUE(head.totalText().endsWith(u"表中: 全部含缘故"_s));
    press(kForm, u"Command2"_s);
    EXPECT_EQ(head.leftText(), u"0 注 (0.0 %)"_s);
    EXPECT_EQ(head.stepText(), u"没有剩余组合：“上次过滤复位”可退回一步"_s);
    EXPECT_TRUE(head.totalText().endsWith(u"表中: 剩余"_s));
}

TEST_F(FilterWindowLookTest, ADoubleClickRenewsTheHeadlineAndTheSteps) {
    const QPoint place = grid().visualRect(cell(4, 3)).center();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(part<HeadLine>(u"HeadLine"_s).takenText(), u"本次滤去 1 注"_s);
    EXPECT_EQ(part<StepList>(u"StepList"_s).lines(), QStringList{u"1\t手工删除 第5注\t−1"_s});
    EXPECT_EQ(roleOf(cell(4, 3), toolkit::kRowStateRole), static_cast<int>(toolkit::RowState::Out));
    EXPECT_EQ(roleOf(cell(3, 3), toolkit::kRowStateRole), static_cast<int>(toolkit::RowState::Plain));
}

/// Contrast ratio as WCAG 2.1 defines it: black on white is 21.
double contrast(const QColor& one, const QColor& other) {
    const auto luminance = [](const QColor& colour) {
        const auto part = [](double share) {
            return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
    };
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

// The row is the current one after the double click: its mark shows through that, and its number can be read on it.
TEST_F(FilterWindowLookTest, ARowTakenOutByHandHasAGreyNumberCellThatCanBeRead) {
    const QRect place = grid().visualRect(cell(4, 0));
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, place.center());
    for (const auto& [dark, grey] : {std::pair(false, QColor(178, 178, 178)), std::pair(true, QColor(77, 77, 77))}) {
        QPalette palette = m_window->palette();
        palette.setColor(QPalette::Window, dark ? Qt::black : Qt::white);
        palette.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
        m_window->setPalette(palette);
        const QImage seen = grid().viewport()->grab(place).toImage();
        EXPECT_EQ(seen.pixelColor(3, 3), grey);
        double clearest = 0;
        for (int x = 3; x < seen.width() - 3; ++x)
            clearest = std::max(clearest, contrast(seen.pixelColor(x, seen.height() / 2), grey));
        EXPECT_GE(clearest, 4.5) << "the number, struck through";
        EXPECT_NE(grid().viewport()->grab(grid().visualRect(cell(3, 0))).toImage().pixelColor(3, 3), grey);
        EXPECT_NE(grid().viewport()->grab(grid().visualRect(cell(4, 1))).toImage().pixelColor(3, 3), grey);
    }
}

TEST_F(FilterWindowLookTest, TheStepsAreListedAndTheOldestFold) {
    auto& steps = part<StepList>(u"StepList"_s);
    EXPECT_TRUE(steps.lines().isEmpty());
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    press(kForm, u"cmdRetn"_s);
    EXPECT_EQ(steps.lines(), (QStringList{u"1\t蓝球 保留 9~99\t−7"_s, u"2\t上次过滤复位\t+7"_s}));
    steps.setMinimumHeight(0);
    steps.resize(200, 60); // three places
    press(kForm, u"Command1"_s);
    steps.resize(200, 60);
    EXPECT_EQ(steps.lines().size(), 3);
    press(kForm, u"Command1"_s);
    steps.resize(200, 60);
    EXPECT_EQ(steps.lines(), (QStringList{u"… 更早 2 步"_s, u"3\t全部复位\t0"_s, u"4\t全部复位\t0"_s}));
    EXPECT_TRUE(steps.toolTip().contains(u"蓝球 保留 9~99"_s)) << "the folded ones can be read";
}

TEST_F(FilterWindowLookTest, CellsHaveTheStyleOfTheirColumn) {
    press(kForm, u"Option23"_s);
    EXPECT_EQ(roleOf(cell(0, 0), toolkit::kCellStyleRole), static_cast<int>(CellStyle::Plain));
    EXPECT_EQ(roleOf(cell(0, 1), toolkit::kCellStyleRole), static_cast<int>(CellStyle::Red));
    EXPECT_EQ(roleOf(cell(0, 6), toolkit::kCellStyleRole), static_cast<int>(CellStyle::Red));
    EXPECT_EQ(roleOf(cell(0, 7), toolkit::kCellStyleRole), static_cast<int>(CellStyle::Blue));
    EXPECT_EQ(roleOf(cell(0, 8), toolkit::kCellStyleRole), static_cast<int>(CellStyle::Number));
    press(kForm, u"optZzuhe(1)"_s);
    EXPECT_EQ(roleOf(cell(0, 9), toolkit::kCellStyleRole), static_cast<int>(CellStyle::Text));
}

// After an inversion every row has a reason, in play or not: the mark follows the state, not the text.
TEST_F(FilterWindowLookTest, TheReasonViewMarksWhatIsInPlayByItsState) {
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    press(kForm, u"Command2"_s);
    press(kForm, u"optZzuhe(1)"_s);
    ASSERT_EQ(grid().model()->rowCount(), 14);
    for (int row = 0; row < 14; ++row) {
        EXPECT_TRUE(cell(row, 9).data().toString().startsWith(u"全部反选-"_s));
        const toolkit::RowState wanted =
            cell(row, 7).data().toInt() == 3 ? toolkit::RowState::InPlay : toolkit::RowState::Out;
        EXPECT_EQ(roleOf(cell(row, 0), toolkit::kRowStateRole), static_cast<int>(wanted)) << row;
    }
}

TEST_F(FilterWindowLookTest, EnterInThePageBoxTurnsThePage) {
    typeInto(kForm, u"Text1"_s, u"2"_s);
    QTest::keyClick(&part<QLineEdit>(u"Text1"_s), Qt::Key_Enter);
    EXPECT_EQ(grid().model()->rowCount(), 0);
}

TEST_F(FilterWindowLookTest, OnlyTheParameterThatRanLastIsChosen) {
    press(kForm, u"Option23"_s);
    press(kForm, u"Option4"_s);
    EXPECT_FALSE(part<PressButton>(u"Option23"_s).isChecked());
    EXPECT_TRUE(part<PressButton>(u"Option4"_s).isChecked());
}

// It would take the snapshot again, and then nothing could be restored.
TEST_F(FilterWindowLookTest, TheSecondPressOfADoubleClickDoesNothing) {
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    auto& name = part<PressButton>(u"Option19"_s);
    QTest::mouseClick(&name, Qt::LeftButton);
    QTest::mouseDClick(&name, Qt::LeftButton);
    const auto presses = std::count_if(m_statements.begin(), m_statements.end(), [](const std::string& statement) {
        return statement == "UPDATE [zuhe] SET [preunslt]=[unslt]";
    });
    EXPECT_EQ(presses, 1);
}

TEST_F(FilterWindowLookTest, ListsTakeThePlaceOfRangesButNotOfPickedNumbers) {
    press(kForm, u"Option36"_s);
    EXPECT_FALSE(part<QLineEdit>(u"Text2(0)"_s).isVisible());
    EXPECT_FALSE(part<QWidget>(u"Check2(4)"_s).isVisible());
    EXPECT_TRUE(part<QLineEdit>(u"Text2(4)"_s).isVisible());
    EXPECT_TRUE(part<QLineEdit>(u"Text66(0)"_s).isVisible());
    EXPECT_TRUE(part<QLineEdit>(u"Text66(1)"_s).isVisible());
    press(kForm, u"Option22"_s);
    EXPECT_TRUE(part<QLineEdit>(u"Text2(0)"_s).isVisible());
    EXPECT_FALSE(part<QLineEdit>(u"TxtZdqj"_s).isVisible());
}

TEST_F(FilterWindowLookTest, AllRowsFitTheSmallestUsefulWindowAndGrowWithIt) {
    m_window->resize(1264, 720);
    QApplication::processEvents();
    auto& area = part<QScrollArea>(u"ParameterRows"_s);
    EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
    EXPECT_LE(grid().horizontalScrollBar()->maximum(), 0);
    const int narrow = part<PressButton>(u"Option23"_s).height();
    const int left = part<QWidget>(u"MSFlexGrid1"_s).mapTo(m_window.get(), QPoint()).x();
    m_window->resize(1904, 1030);
    QApplication::processEvents();
    EXPECT_GT(part<PressButton>(u"Option23"_s).height(), narrow);
    EXPECT_GT(part<QWidget>(u"MSFlexGrid1"_s).mapTo(m_window.get(), QPoint()).x(), left);
    press(kForm, u"Option36"_s);
    m_window->resize(1264, 500);
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    QApplication::processEvents();
    EXPECT_EQ(m_window->width(), 1264) << "it shrinks in one go";
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
    part<QLineEdit>(u"Text21(6)"_s).setFocus();
    EXPECT_FALSE(part<PressButton>(u"Option34"_s).visibleRegion().isEmpty()) << "the focus is brought into sight";
}

TEST_F(FilterWindowLookTest, ANameTellsWhatItCountsAndThePastInItsRange) {
    typeInto(kForm, u"Text18(0)"_s, u"7"_s);
    const QString tip = part<PressButton>(u"Option19"_s).toolTip();
    EXPECT_TRUE(tip.startsWith(u"蓝球号码。"_s)) << tip.toStdString();
    EXPECT_TRUE(tip.contains(u"可能 1~16    历史 6~6    上期 6    近1期 6"_s)) << tip.toStdString();
    EXPECT_TRUE(tip.contains(u"历史各期落在 7~99 之内的有 0.0 %（1 期中 0 期）"_s)) << tip.toStdString();
}

TEST_F(FilterWindowLookTest, ANameTellsTheLastTenDrawsNewestFirst) {
    for (int blue = 1; blue <= 12; ++blue) {
        m_history.Lshm.push_back({2026001 + blue, 2, 5, 11, 17, 25, 33, blue});
        m_history.derived.emplace_back();
    }
    m_history.Lsnum = 13;
    m_window = std::make_unique<FilterWindow>(kFilterMembers[0],
                                              FilterContext{*m_database, m_history, 33, m_Baoliu, {}, 12});
    const QString tip = part<PressButton>(u"Option19"_s).toolTip();
    EXPECT_TRUE(tip.contains(u"可能 1~12    历史 1~12    上期 12    近10期 12 11 10 9 8 7 6 5 4 3\n"_s))
        << tip.toStdString();
    EXPECT_EQ(part<PressButton>(u"Option66"_s).toolTip(),
              u"红球落在自定区间内的个数，区间不含下端、含上端；最值查询时为红球在指定号码中的个数。"_s);
}

TEST_F(FilterWindowLookTest, AHighWindowTellsTheRowOfTheFocusUnderTheTable) {
    auto& table = *m_window->findChild<ParameterTable*>();
    EXPECT_TRUE(table.toldLines().isEmpty());
    m_window->resize(1904, 1030);
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    QApplication::processEvents();
    typeInto(kForm, u"Text18(1)"_s, u"98"_s);
    EXPECT_EQ(table.toldLines().value(0), u"蓝球"_s);
    EXPECT_EQ(table.toldLines().value(1), u"蓝球号码。"_s);
    EXPECT_TRUE(table.toldLines().value(2).startsWith(u"可能 1~16    历史 6~6    上期 6"_s));
    part<PressButton>(u"Option23"_s).setFocus();
    EXPECT_EQ(table.toldLines().value(0), u"各码数和"_s);
}

TEST_F(FilterWindowLookTest, AReasonCanBeReadBesideTheNumbersInASmallWindow) {
    m_window->resize(1264, 720);
    QApplication::processEvents();
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    press(kForm, u"optZzuhe(1)"_s);
    const QString reason = cell(0, 9).data().toString();
    const int seen = grid().viewport()->width() - grid().columnViewportPosition(9);
    EXPECT_GE(seen, grid().fontMetrics().horizontalAdvance(reason) + 6) << reason.toStdString();
    EXPECT_GE(grid().columnWidth(9), 853);
}

TEST_F(FilterWindowLookTest, ColoursFollowThePalette) {
    auto& tick = part<QCheckBox>(u"ChkBt(1)"_s);
    EXPECT_EQ(tick.palette().color(QPalette::WindowText), toolkit::colours(false).red);
    QPalette dark = m_window->palette();
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    m_window->setPalette(dark);
    EXPECT_EQ(tick.palette().color(QPalette::WindowText), toolkit::colours(true).red);
    EXPECT_EQ(part<QLabel>(u"ModeExplains"_s).palette().color(QPalette::WindowText), toolkit::colours(true).quiet);
}

TEST_F(FilterWindowLookTest, TheCaptionOfThePositionBoxesShowsTheGroundOfColouredNames) {
    auto& caption = part<QLabel>(u"FramePositionsHeading"_s);
    EXPECT_EQ(caption.text(), u"彩色参数计算位"_s);
    for (const bool dark : {false, true}) {
        QPalette palette = m_window->palette();
        palette.setColor(QPalette::Window, dark ? Qt::black : Qt::white);
        palette.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
        m_window->setPalette(palette);
        const QImage seen = caption.grab().toImage();
        EXPECT_EQ(seen.pixelColor(3, seen.height() / 2), toolkit::colours(dark).warm);
        EXPECT_NE(seen.pixelColor(seen.width() - 1, 1), toolkit::colours(dark).warm);
    }
}

TEST_F(FilterWindowLookTest, ASegmentShowsItsTextUpToTheBracketAndKeepsIt) {
    auto& list = part<toolkit::Segment>(u"Option36"_s);
    EXPECT_EQ(list.shownText(), u"最值查询"_s);
    QTest::mouseClick(&list, Qt::LeftButton, {}, list.rect().center());
    EXPECT_TRUE(list.isChecked()) << "all of it can be pressed";
    EXPECT_EQ(part<QLabel>(u"ModeExplains"_s).text(), u"(出现概率最大的若干个参数)"_s);
}

} // namespace
} // namespace filter
