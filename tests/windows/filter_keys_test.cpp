// The keyboard in the table of parameters: one stop for Tab, arrows by place, Enter for the row.
#include <QApplication>
#include <QCheckBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "filter/windows/parameter_table.h"
#include "filter/windows/row_controls.h"
#include "windows/filter_window_support.h"

using namespace Qt::StringLiterals;
using test_support::press;
using test_support::typeInto;

namespace filter {
namespace {

const QString kForm = u"GAgan"_s;
constexpr int kMostStops = 100;

class FilterKeys : public FilterWindowLookTest {
  protected:
    FilterKeys() {
        m_window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    QString focus() { return m_window->focusWidget() ? m_window->focusWidget()->objectName() : QString(); }
    void focusOn(const QString& name) { part<QWidget>(name).setFocus(); }
    /// Keys one after another, each to what then has the focus. \return what has it in the end
    QString keys(const std::vector<Qt::Key>& pressed, Qt::KeyboardModifiers held = {}) {
        for (const Qt::Key key : pressed)
            QTest::keyClick(m_window->focusWidget(), key, held);
        return focus();
    }
    /// The period of all rows, in the head, is a stop of its own.
    bool inTable() { return part<QScrollArea>(u"ParameterRows"_s).isAncestorOf(m_window->focusWidget()); }
    QLineEdit& box(const QString& name) { return part<QLineEdit>(name); }
};

TEST_F(FilterKeys, TheTableIsOneStopOfTab) {
    focusOn(u"Option23"_s);
    int inside = 0;
    int stops = 0;
    do {
        keys({Qt::Key_Tab});
        inside += inTable();
        ++stops;
    } while (stops < kMostStops && focus() != u"Option23"_s);
    EXPECT_EQ(focus(), u"Option23"_s);
    EXPECT_EQ(inside, 1) << "only where the round ends";
    EXPECT_GT(stops, 5);
    keys({Qt::Key_Backtab});
    EXPECT_FALSE(inTable());
    EXPECT_EQ(keys({Qt::Key_Tab}), u"Option23"_s);
}

TEST_F(FilterKeys, TabComesToTheFirstNameAndThenToWhereTheFocusWasLast) {
    focusOn(u"Text1"_s);
    for (int stop = 0; stop < kMostStops && !inTable(); ++stop)
        keys({Qt::Key_Tab});
    EXPECT_EQ(focus(), u"Option23"_s);
    press(kForm, u"Option13"_s); // the mouse counts too
    keys({Qt::Key_Right});
    EXPECT_EQ(focus(), u"Text12(0)"_s);
    keys({Qt::Key_Backtab});
    EXPECT_FALSE(inTable());
    EXPECT_EQ(keys({Qt::Key_Tab}), u"Text12(0)"_s);
}

TEST_F(FilterKeys, TabFindsTheTableWhenListsTookThePlaceOfTheLastBox) {
    focusOn(u"Text12(0)"_s);
    press(kForm, u"Option36"_s);
    for (int stop = 0; stop < kMostStops && !inTable(); ++stop)
        keys({Qt::Key_Tab});
    EXPECT_EQ(focus(), u"Text12(2)"_s) << "the box that stands there now";
    press(kForm, u"Option22"_s);
    focusOn(u"Check2(4)"_s);
    press(kForm, u"Option36"_s);
    for (int stop = 0; stop < kMostStops && !inTable(); ++stop)
        keys({Qt::Key_Tab});
    EXPECT_EQ(focus(), u"Option13"_s) << "nothing stands there";
}

TEST_F(FilterKeys, TabFromAnEditedLowerEndGoesToTheUpper) {
    focusOn(u"Text12(0)"_s);
    box(u"Text12(0)"_s).selectAll();
    QTest::keyClicks(&box(u"Text12(0)"_s), u"5"_s);
    EXPECT_EQ(keys({Qt::Key_Tab}), u"Text12(1)"_s);
    EXPECT_EQ(box(u"Text12(1)"_s).selectedText(), u"99"_s) << "what is typed takes its place";
    QTest::keyClicks(&box(u"Text12(1)"_s), u"9"_s);
    keys({Qt::Key_Tab});
    EXPECT_FALSE(inTable());
    focusOn(u"Text12(0)"_s);
    keys({Qt::Key_Tab});
    EXPECT_FALSE(inTable()) << "it was not edited since";
    focusOn(u"Text66(3)"_s);
    QTest::keyClicks(&box(u"Text66(3)"_s), u"7"_s);
    EXPECT_EQ(keys({Qt::Key_Tab}), u"Text66(2)"_s) << "an interval has two ends too";
}

TEST_F(FilterKeys, ArrowsGoAlongARowPastWhatCannotBeUsed) {
    focusOn(u"Check1(9)"_s);
    for (const QString& next : {u"Option13"_s, u"Text12(0)"_s, u"Text12(1)"_s, u"Check2(4)"_s, u"Check2(5)"_s,
                                u"Combo1(10)"_s, u"Combo1(10)"_s})
        EXPECT_EQ(keys({Qt::Key_Right}), next);
    for (const QString& next : {u"Check2(5)"_s, u"Check2(4)"_s, u"Text12(1)"_s, u"Text12(0)"_s, u"Option13"_s,
                                u"Check1(9)"_s, u"Check1(9)"_s})
        EXPECT_EQ(keys({Qt::Key_Left}), next);
    part<QWidget>(u"Combo1(11)"_s).setEnabled(false);
    focusOn(u"Combo1(10)"_s);
    EXPECT_EQ(keys({Qt::Key_Down}), u"Combo1(12)"_s) << "past the one that cannot be used";
    EXPECT_EQ(part<QComboBox>(u"Combo1(10)"_s).currentIndex(), -1);
    EXPECT_EQ(keys({Qt::Key_Left}), u"Check2(9)"_s);
}

TEST_F(FilterKeys, ArrowsGoFromRowToRowAndPressNothing) {
    press(kForm, u"Option23"_s);
    m_statements.clear();
    EXPECT_EQ(keys({Qt::Key_Down}), u"Option3"_s);
    EXPECT_EQ(keys({Qt::Key_Up, Qt::Key_Up}), u"Option23"_s) << "the first row stays";
    focusOn(u"Text2(1)"_s);
    EXPECT_EQ(keys({Qt::Key_Down}), u"Text3(1)"_s);
    focusOn(u"Check1(0)"_s);
    EXPECT_EQ(keys({Qt::Key_Down, Qt::Key_Down}), u"Check1(28)"_s);
    focusOn(u"Check2(4)"_s);
    EXPECT_EQ(keys({Qt::Key_Up}), u"Text66(3)"_s) << "what stands in the same place";
    EXPECT_TRUE(m_statements.empty());
    EXPECT_FALSE(part<QCheckBox>(u"Check1(0)"_s).isChecked());
    EXPECT_TRUE(part<PressButton>(u"Option23"_s).isChecked()) << "the mark stays with what was run last";
}

TEST_F(FilterKeys, InListModeArrowsGoByPlaceToo) {
    press(kForm, u"Option36"_s);
    focusOn(u"Option13"_s);
    EXPECT_EQ(keys({Qt::Key_Right}), u"Text12(2)"_s);
    EXPECT_EQ(keys({Qt::Key_Right}), u"Text12(3)"_s);
    EXPECT_EQ(keys({Qt::Key_Up}), u"Text66(1)"_s);
    EXPECT_EQ(keys({Qt::Key_Right}), u"TxtZdqj"_s);
    EXPECT_EQ(keys({Qt::Key_Left, Qt::Key_Left, Qt::Key_Up}), u"Text23(2)"_s);
}

TEST_F(FilterKeys, InABoxAnArrowBelongsToTheTextUntilItsEdge) {
    typeInto(kForm, u"Text12(0)"_s, u"12"_s);
    QLineEdit& low = box(u"Text12(0)"_s);
    low.deselect();
    low.setCursorPosition(1);
    EXPECT_EQ(keys({Qt::Key_Right}), u"Text12(0)"_s);
    EXPECT_EQ(low.cursorPosition(), 2);
    EXPECT_EQ(keys({Qt::Key_Right}), u"Text12(1)"_s);
    EXPECT_EQ(box(u"Text12(1)"_s).selectedText(), u"99"_s);
    EXPECT_EQ(keys({Qt::Key_Left}), u"Text12(0)"_s) << "all of it was selected: the arrow moves on";
    EXPECT_EQ(low.selectedText(), u"12"_s);
    keys({Qt::Key_End});
    EXPECT_EQ(keys({Qt::Key_Left}), u"Text12(0)"_s);
    EXPECT_EQ(low.cursorPosition(), 1);
    EXPECT_EQ(keys({Qt::Key_Left}, Qt::ShiftModifier), u"Text12(0)"_s);
    EXPECT_EQ(low.selectedText(), u"1"_s);
    EXPECT_EQ(keys({Qt::Key_Left}), u"Text12(0)"_s) << "a part of it was selected";
    EXPECT_EQ(low.text(), u"12"_s);
    EXPECT_EQ(keys({Qt::Key_Left}), u"Option13"_s);
    focusOn(u"Text12(0)"_s);
    low.setCursorPosition(1);
    EXPECT_EQ(keys({Qt::Key_Right}, Qt::ControlModifier), u"Text12(1)"_s);
}

TEST_F(FilterKeys, HomeEndAndPagesGoThroughTheRows) {
    focusOn(u"Option13"_s);
    EXPECT_EQ(keys({Qt::Key_Home}), u"Option23"_s);
    EXPECT_EQ(keys({Qt::Key_End}), u"Option34"_s);
    focusOn(u"Text12(0)"_s);
    EXPECT_EQ(keys({Qt::Key_End}), u"Text12(0)"_s) << "it belongs to the text";
    m_window->resize(1264, 400);
    QApplication::processEvents();
    QScrollArea& area = part<QScrollArea>(u"ParameterRows"_s);
    ASSERT_GT(area.verticalScrollBar()->maximum(), 0);
    focusOn(u"Option23"_s);
    keys({Qt::Key_PageDown});
    EXPECT_NE(focus(), u"Option23"_s);
    EXPECT_NE(focus(), u"Option34"_s);
    keys({Qt::Key_End});
    EXPECT_GT(area.verticalScrollBar()->value(), 0) << "the focus is brought into sight";
    EXPECT_FALSE(m_window->focusWidget()->visibleRegion().isEmpty());
    EXPECT_EQ(keys({Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageUp}), u"Option23"_s);
    EXPECT_EQ(area.verticalScrollBar()->value(), 0);
    EXPECT_EQ(keys({Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageDown}), u"Option34"_s);
}

TEST_F(FilterKeys, SpaceTogglesATickAndEnterPressesTheRow) {
    auto& tick = part<QCheckBox>(u"Check1(20)"_s);
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    focusOn(u"Check1(20)"_s);
    keys({Qt::Key_Space});
    EXPECT_TRUE(tick.isChecked());
    EXPECT_TRUE(m_statements.empty());
    for (const QString& control : {u"Check1(20)"_s, u"Text18(0)"_s, u"Text18(1)"_s, u"Check2(16)"_s, u"Option19"_s}) {
        m_statements.clear();
        focusOn(control);
        EXPECT_EQ(keys({Qt::Key_Return}), control);
        EXPECT_EQ(std::ranges::count(m_statements, "UPDATE [zuhe] SET [preunslt]=[unslt]"), 1)
            << control.toStdString();
    }
    EXPECT_TRUE(tick.isChecked());
    EXPECT_EQ(grid().model()->rowCount(), 7);
    EXPECT_TRUE(part<PressButton>(u"Option19"_s).isUsed());
    EXPECT_TRUE(part<PressButton>(u"Option19"_s).isChecked());
}

} // namespace
} // namespace filter
