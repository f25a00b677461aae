// The program's style: flat buttons, headings and scroll bars, in light and dark, and a focus that can be seen.
#include "toolkit/program_style.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyleOptionSlider>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace toolkit {
namespace {

const QColor kBehind = Qt::magenta;

class ProgramStyles : public testing::TestWithParam<bool> {
  protected:
    /// Gives the widget the style and the palette of the case.
    void dress(QWidget& widget) {
        QPalette palette;
        palette.setColor(QPalette::Window, GetParam() ? Qt::black : Qt::white);
        palette.setColor(QPalette::WindowText, GetParam() ? Qt::white : Qt::black);
        widget.setPalette(palette);
        widget.setStyle(&m_style);
        for (QWidget* child : widget.findChildren<QWidget*>())
            child->setStyle(&m_style);
    }
    const Colours& look() const { return colours(GetParam()); }

    /// What the widget paints, on a colour that no palette has.
    static QImage painted(QWidget& widget) {
        QImage image(widget.size(), QImage::Format_RGB32);
        image.fill(kBehind);
        widget.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    ProgramStyle m_style;
};

TEST_P(ProgramStyles, AButtonIsFlatAndWithoutGroundWhileItIsDisabled) {
    QPushButton button;
    dress(button);
    button.resize(60, 26);
    const QImage rest = painted(button);
    for (const int y : {3, 13, 22})
        EXPECT_EQ(rest.pixelColor(30, y), look().button) << y;
    EXPECT_EQ(rest.pixelColor(30, 0), look().edge);
    button.setEnabled(false);
    const QImage off = painted(button);
    for (const int y : {3, 13, 22})
        EXPECT_EQ(off.pixelColor(30, y), kBehind) << y;
    EXPECT_EQ(off.pixelColor(30, 0), look().line);
}

TEST_P(ProgramStyles, ATextBoxHasAnEdgeThatCanBeSeen) {
    QLineEdit box;
    dress(box);
    box.resize(60, 26);
    EXPECT_EQ(painted(box).pixelColor(30, 0), look().edge);
    EXPECT_EQ(painted(box).pixelColor(30, 25), look().edge);
    box.setEnabled(false);
    EXPECT_EQ(painted(box).pixelColor(30, 0), look().line);
}

TEST_P(ProgramStyles, HeadingsAreOneFlatBand) {
    QStandardItemModel model(2, 3);
    QTableView table;
    table.setModel(&model);
    dress(table);
    for (int column = 0; column < 3; ++column)
        model.setHeaderData(column, Qt::Horizontal, u""_s);
    table.resize(500, 100);
    table.show();
    const QImage seen = table.horizontalHeader()->grab().toImage();
    for (int x = 0; x < seen.width(); ++x)
        for (int y = 0; y < seen.height() - 1; ++y)
            ASSERT_EQ(seen.pixelColor(x, y), look().head) << x << ' ' << y;
    EXPECT_EQ(seen.pixelColor(5, seen.height() - 1), look().line);
}

TEST_P(ProgramStyles, AMarkWithTheFocusHasARingWhetherItIsSetOrNot) {
    QWidget window;
    auto* other = new QPushButton(&window);
    auto* box = new QCheckBox(&window);
    dress(window);
    box->setGeometry(0, 30, 24, 24);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const bool set : {false, true}) {
        box->setChecked(set);
        other->setFocus();
        const QImage without = box->grab().toImage();
        box->setFocus();
        const QImage with = box->grab().toImage();
        int changed = 0;
        for (int x = 0; x < with.width(); ++x)
            for (int y = 0; y < with.height(); ++y)
                changed += with.pixelColor(x, y) != without.pixelColor(x, y);
        EXPECT_GT(changed, 60) << set; // more than the line of its edge
    }
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, ProgramStyles, testing::Bool(),
                         [](const auto& info) { return info.param ? "Dark" : "Light"; });

class ScrollBars : public testing::Test {
  protected:
    ScrollBars() : m_bar(Qt::Vertical) {
        m_bar.setStyle(&m_style);
        m_bar.setPageStep(10);
        m_bar.resize(14, 200);
    }
    QRect part(QStyle::SubControl which) {
        QStyleOptionSlider option;
        option.initFrom(&m_bar);
        option.orientation = Qt::Vertical;
        option.minimum = m_bar.minimum();
        option.maximum = m_bar.maximum();
        option.pageStep = m_bar.pageStep();
        option.sliderPosition = m_bar.sliderPosition();
        return m_style.subControlRect(QStyle::CC_ScrollBar, &option, which, &m_bar);
    }

    ProgramStyle m_style;
    QScrollBar m_bar;
};

TEST_F(ScrollBars, PartTheirWholeLengthAmongHandleAndPages) {
    for (const int most : {0, 10, 90, 2147483647})
        for (const int value : {0, most / 3, most}) {
            m_bar.setMaximum(most);
            m_bar.setValue(value);
            const QRect before = part(QStyle::SC_ScrollBarSubPage);
            const QRect handle = part(QStyle::SC_ScrollBarSlider);
            const QRect after = part(QStyle::SC_ScrollBarAddPage);
            EXPECT_EQ(before.top(), 0);
            EXPECT_EQ(handle.top(), before.height());
            EXPECT_EQ(after.top(), handle.bottom() + 1);
            EXPECT_EQ(before.height() + handle.height() + after.height(), 200) << most << ' ' << value;
            EXPECT_GE(handle.height(), 20) << most;
            if (value == 0) {
                EXPECT_EQ(before.height(), 0);
            }
            if (value == most) {
                EXPECT_EQ(after.height(), 0);
            }
        }
    m_bar.setRange(0, 10); // a page of ten of twenty lines
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider).height(), 100);
    EXPECT_TRUE(part(QStyle::SC_ScrollBarAddLine).isEmpty());
}

TEST_F(ScrollBars, AreDraggedAndPaged) {
    m_bar.setRange(0, 90);
    m_bar.show();
    const QPoint handle = part(QStyle::SC_ScrollBarSlider).center();
    QTest::mousePress(&m_bar, Qt::LeftButton, {}, handle);
    QTest::mouseMove(&m_bar, handle + QPoint(0, 500));
    QTest::mouseRelease(&m_bar, Qt::LeftButton, {}, handle + QPoint(0, 500));
    EXPECT_EQ(m_bar.value(), 90);
    QTest::mouseClick(&m_bar, Qt::LeftButton, {}, QPoint(7, 5));
    EXPECT_EQ(m_bar.value(), 80);
}

} // namespace
} // namespace toolkit
