// The filter window with real clicks and keys: what a press runs, what the grid and the title then say.
#include "filter/windows/filter_window.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <QTest>

#include <csignal>
#include <random>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "filter/windows/row_controls.h"
#include "support/controls.h"
#include "support/fresh_home.h"
#include "support/modal_script.h"
#include "toolkit/data_grid.h"
#include "windows/filter_window_support.h"

using namespace Qt::StringLiterals;
using test_support::controlAs;
using test_support::press;
using test_support::rightPress;
using test_support::typeInto;

namespace filter {
namespace {

const QString kForm = u"GAgan"_s;

class FilterWindowTest : public FilterWindowFixture {
  protected:
    int shown() { return grid().model()->rowCount(); }
    QString heading(int column) { return grid().model()->headerData(column, Qt::Horizontal).toString(); }
    QString title(int bets) {
        return u"复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：%1注"_s.arg(bets);
    }
    void doubleClick(int row, int column) {
        const QPoint place = grid().visualRect(grid().model()->index(row, column)).center();
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, place);
    }
    QVariant ground(int row) { return grid().model()->index(row, 0).data(Qt::BackgroundRole); }
};

TEST_F(FilterWindowTest, OpensOnAllRowsWithHeadingsTitleAndKeepSet) {
    EXPECT_EQ(shown(), 14);
    EXPECT_EQ(m_window->windowTitle(), title(14));
    EXPECT_EQ(heading(0), u"号码索引"_s);
    EXPECT_EQ(heading(6), u"6位"_s);
    EXPECT_EQ(heading(7), u"蓝球"_s);
    EXPECT_EQ(m_Baoliu, kKeep);
    EXPECT_EQ(grid().model()->index(2, 7).data().toString(), u"3"_s);
    EXPECT_EQ(grid().model()->index(2, 6).data(Qt::UserRole).toLongLong(), 7);
}

TEST_F(FilterWindowTest, OpensWithTheseTextsAndChoices) {
    const struct {
        QString name, caption, toolTip;
    } buttons[] = {
        {u"Option22"_s, u"范围查询"_s, {}},
        {u"Option21"_s, u"均值差幅"_s, {}},
        {u"Option36"_s, u"最值查询(出现概率最大的若干个参数)"_s, {}},
        {u"Option1(0)"_s, u"保留"_s, {}},
        {u"Option1(1)"_s, u"排除"_s, {}},
        {u"optZzuhe(0)"_s, u"过滤剩余"_s, {}},
        {u"optZzuhe(1)"_s, u"所有组合(含被过滤)显示"_s, {}},
        {u"ChkBt(1)"_s, u"红1"_s, u"彩色参数是否按照所选位计算过滤"_s},
        {u"ChkBt(7)"_s, u"蓝球"_s, u"彩色参数是否按照所选位计算过滤"_s},
        {u"Command111"_s, u"翻页(&U)"_s, {}},
        {u"Command1"_s, u"全部复位(&S)"_s, u"回收所有被滤掉的组合"_s},
        {u"cmdRetn"_s, u"上次过滤复位(&T)"_s, u"回收上次过滤被滤掉的组合"_s},
        {u"Command2"_s, u"全部组号反选(&U)"_s, u"反选所有被滤掉的组合"_s},
        {u"Command3"_s, u"上一步过滤反选(&R)"_s, u"反选上次被滤掉的组合"_s},
        {u"CmdPrint"_s, u"打印预览(&P)"_s, u"把剩余的组合写入 Print 文件，并打开查看和打印"_s},
    };
    for (const auto& [name, caption, toolTip] : buttons) {
        const auto* button = controlAs<QAbstractButton>(*m_window, name);
        EXPECT_EQ(button->text().toStdString(), caption.toStdString());
        EXPECT_EQ(button->toolTip().toStdString(), toolTip.toStdString()) << name.toStdString();
    }
    for (const QString& chosen : {u"Option22"_s, u"Option1(0)"_s, u"optZzuhe(0)"_s})
        EXPECT_TRUE(controlAs<QRadioButton>(*m_window, chosen)->isChecked()) << chosen.toStdString();
    for (int position = 1; position <= 7; ++position)
        EXPECT_TRUE(controlAs<QCheckBox>(*m_window, indexedName(u"ChkBt"_s, position))->isChecked());
    EXPECT_EQ(controlAs<QLineEdit>(*m_window, u"Text1"_s)->text(), u"1"_s);
    EXPECT_FALSE(m_window->findChild<QComboBox*>(u"Combo2"_s)->isVisible());
    for (const auto& [column, width] : {std::pair(0, 50), std::pair(1, 36), std::pair(6, 36), std::pair(7, 43)})
        EXPECT_GE(grid().columnWidth(column), width) << column; // 750, 550 and 650 twips, more where a text asks it
}

TEST_F(FilterWindowTest, BlueMarksAParameterAsUsedUntilTheWindowCloses) {
    press(kForm, u"Option4"_s);
    press(kForm, u"Option5"_s);
    press(kForm, u"Command1"_s);
    auto* used = controlAs<PressButton>(*m_window, u"Option4"_s);
    EXPECT_TRUE(used->isUsed());
    const QImage seen = used->grab().toImage();
    EXPECT_EQ(seen.pixelColor(seen.width() - 8, seen.height() / 2), QColor(0, 0, 255)); // its dot
}

TEST_F(FilterWindowTest, APressRunsItsStatementsAndShowsWhatIsLeft) {
    typeInto(kForm, u"Text5(0)"_s, u"3"_s);
    press(kForm, u"Option4"_s); // sets without an odd number have three evens of 1..7
    ASSERT_EQ(m_statements.size(), 4U);
    EXPECT_EQ(m_statements[1], "UPDATE [zuhe] SET [preunslt]=[unslt]");
    EXPECT_EQ(m_statements[2],
              "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"偶数个数大小:\" & [canshu] & \" 保留3~9\" "
              "WHERE [unslt]=false AND ([canshu] <3 OR [canshu] >9)");
    EXPECT_EQ(shown(), 8); // the four sets that lack an odd number
    EXPECT_EQ(heading(8), u"偶数个数"_s);
    EXPECT_EQ(m_window->windowTitle(), title(8));
    EXPECT_TRUE(controlAs<PressButton>(*m_window, u"Option4"_s)->isUsed());
    EXPECT_FALSE(controlAs<PressButton>(*m_window, u"Option5"_s)->isUsed());
}

TEST_F(FilterWindowTest, ARightPressAndTheKeysRunAParameterLikeALeftPress) {
    rightPress(kForm, u"Option4"_s);
    EXPECT_EQ(m_statements.size(), 4U);
    auto* option = controlAs<PressButton>(*m_window, u"Option5"_s);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        m_statements.clear();
        option->setFocus();
        QTest::keyClick(option, key);
        EXPECT_EQ(m_statements.size(), 4U) << key;
    }
}

TEST_F(FilterWindowTest, EveryParameterOfTheCatalogueHasItsControlsAndRuns) {
    const QStringList lists{u"Frame11"_s, u"Frame13"_s};
    for (const Parameter& p : sixAndBlueCatalogue()) {
        const QString family = QString::fromUtf8(p.boxes.name.data(), static_cast<qsizetype>(p.boxes.name.size()));
        const QString option = QString::fromUtf8(p.option.data(), static_cast<qsizetype>(p.option.size()));
        const auto valueIn = [&](int index) {
            return controlAs<QLineEdit>(*m_window, indexedName(family, index))->text();
        };
        EXPECT_EQ(valueIn(p.boxes.low), QString::number(p.defaults.low));
        EXPECT_EQ(valueIn(p.boxes.high), QString::number(p.defaults.high));
        if (p.boxes.count >= 0) {
            EXPECT_EQ(valueIn(p.boxes.count), QString::number(p.defaults.count));
            EXPECT_EQ(valueIn(p.boxes.list), u" "_s) << "no draw, no value";
        }
        EXPECT_FALSE(controlAs<QCheckBox>(*m_window, indexedName(u"Check1"_s, p.tick))->isChecked());
        if (p.period >= 0) {
            EXPECT_EQ(controlAs<QComboBox>(*m_window, indexedName(u"Combo1"_s, p.period))->count(), 21);
        }
        m_statements.clear();
        m_window->findChild<QScrollArea*>(u"ParameterRows"_s)
            ->ensureWidgetVisible(controlAs<PressButton>(*m_window, option));
        press(kForm, option);
        EXPECT_GE(m_statements.size(), 3U) << p.option;
        EXPECT_EQ(heading(8), QString::fromUtf8(p.gridTitle.data(), static_cast<qsizetype>(p.gridTitle.size())));
        EXPECT_EQ(grid().model()->columnCount(), p.column.empty() ? 9 : 8) << p.option;
    }
}

TEST_F(FilterWindowTest, BoxesTakeDigitsPointAndBlankOnly) {
    auto* box = controlAs<QLineEdit>(*m_window, u"Text2(0)"_s);
    box->clear();
    box->setFocus();
    QTest::keyClicks(box, u"1a2.-5 ,7x"_s);
    EXPECT_EQ(box->text(), u"12.5 7"_s);
    QTest::keyClick(box, Qt::Key_Backspace);
    EXPECT_EQ(box->text(), u"12.5 "_s);
    auto* page = controlAs<QLineEdit>(*m_window, u"Text1"_s);
    page->setFocus();
    page->clear();
    QTest::keyClicks(page, u"1. 2"_s);
    EXPECT_EQ(page->text(), u"12"_s);
}

/// Puts a text into a box the way a user pastes it.
void paste(QLineEdit& box, const QString& text) {
    QApplication::clipboard()->setText(text);
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keySequence(&box, QKeySequence::Paste);
}

TEST_F(FilterWindowTest, ANumberTooLongForAnyNumberIsTheLargest) {
    paste(*controlAs<QLineEdit>(*m_window, u"Text18(1)"_s), QString(400, u'9'));
    press(kForm, u"Option19"_s); // every blue is below it
    EXPECT_EQ(shown(), 14);
    paste(*controlAs<QLineEdit>(*m_window, u"Text18(0)"_s), QString(30000, u'9'));
    press(kForm, u"Option19"_s);
    EXPECT_EQ(shown(), 0);
    EXPECT_NE(m_statements.back().find("[fig7]"), std::string::npos);
    press(kForm, u"Command1"_s);
    paste(*controlAs<QLineEdit>(*m_window, u"Text1"_s), QString(400, u'7'));
    press(kForm, u"Command111"_s);
    EXPECT_EQ(shown(), 0) << "a page behind the last";
}

TEST_F(FilterWindowTest, ABoxCutsOffWhatIsTooLongToBeMeant) {
    auto* list = controlAs<QLineEdit>(*m_window, u"Text18(3)"_s);
    press(kForm, u"Option36"_s);
    paste(*list, QString(1 << 20, u'9'));
    EXPECT_EQ(list->text().size(), kLongestText);
    press(kForm, u"Option19"_s);
    EXPECT_EQ(shown(), 0);
}

/// Texts that a careless or a malicious hand could paste: bets, long digits, points, exponents, words.
QString hostileText(std::mt19937& random) {
    const auto upTo = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    static const QString kinds[] = {
        u"0123456789"_s, u"0123456789. "_s, u"9"_s, u". "_s, u"0123456789.eE+-dD\"'[]*?%"_s, u"红蓝一\n\t0123"_s};
    const QString& letters = kinds[upTo(static_cast<int>(std::size(kinds)) - 1)];
    constexpr int kLengths[] = {0, 1, 3, 15, 16, 309, 310, 1000, 40000};
    QString text(kLengths[upTo(static_cast<int>(std::size(kLengths)) - 1)], u'0');
    for (QChar& c : text)
        c = letters[upTo(static_cast<int>(letters.size()) - 1)];
    return text;
}

TEST_F(FilterWindowTest, StandsWhateverIsPastedIntoAnyOfItsBoxes) {
    std::mt19937 random(20260101);
    const QList<QLineEdit*> boxes = m_window->findChildren<QLineEdit*>();
    ASSERT_GT(boxes.size(), 70);
    for (const bool lists : {false, true}) {
        press(kForm, lists ? u"Option36"_s : u"Option22"_s);
        for (const Parameter& p : sixAndBlueCatalogue()) {
            const QString option = QString::fromUtf8(p.option.data(), static_cast<qsizetype>(p.option.size()));
            const QString family =
                QString::fromUtf8(p.boxes.name.data(), static_cast<qsizetype>(p.boxes.name.size()));
            for (QLineEdit* box : boxes)
                if (box->objectName().startsWith(family + u'(') || !box->objectName().contains(u'('))
                    paste(*box, hostileText(random));
            m_window->findChild<QScrollArea*>(u"ParameterRows"_s)
                ->ensureWidgetVisible(controlAs<PressButton>(*m_window, option));
            press(kForm, option);
            EXPECT_EQ(m_window->windowTitle(), title(shown())) << p.option;
            press(kForm, u"Command111"_s);
            press(kForm, u"Command1"_s);
            EXPECT_EQ(shown(), 14) << p.option;
        }
    }
}

TEST_F(FilterWindowTest, ListModeShowsTheListsAndRenamesTheInterval) {
    auto* counts = m_window->findChild<QWidget*>(u"Frame11"_s);
    auto* lists = m_window->findChild<QWidget*>(u"Frame13"_s);
    EXPECT_FALSE(counts->isVisible());
    EXPECT_FALSE(lists->isVisible());
    press(kForm, u"Option36"_s);
    EXPECT_TRUE(counts->isVisible());
    EXPECT_TRUE(lists->isVisible());
    EXPECT_TRUE(controlAs<QLineEdit>(*m_window, u"TxtZdqj"_s)->isVisible());
    EXPECT_EQ(controlAs<PressButton>(*m_window, u"Option66"_s)->text(), u"指定号码"_s);
    EXPECT_EQ(controlAs<QCheckBox>(*m_window, u"Check1(31)"_s)->text(), u"指定号码"_s);
    typeInto(kForm, u"Text18(3)"_s, u"9"_s); // the mode stays on while a box is filled in
    EXPECT_TRUE(controlAs<QRadioButton>(*m_window, u"Option36"_s)->isChecked());
    press(kForm, u"Option19"_s);
    EXPECT_EQ(shown(), 7);
    for (const QString& mode : {u"Option21"_s, u"Option22"_s}) {
        press(kForm, u"Option36"_s);
        press(kForm, mode);
        EXPECT_FALSE(counts->isVisible()) << mode.toStdString();
        EXPECT_FALSE(lists->isVisible());
        EXPECT_EQ(controlAs<PressButton>(*m_window, u"Option66"_s)->text(), u"自定区间"_s);
        EXPECT_EQ(controlAs<QCheckBox>(*m_window, u"Check1(31)"_s)->text(), u"自定区间"_s);
    }
    EXPECT_TRUE(m_window->findChild<QWidget*>(u"Combo2"_s)->isVisible());
}

TEST_F(FilterWindowTest, TheBoxesOfTheIntervalReachItsStatementsAndReasons) {
    typeInto(kForm, u"Text66(3)"_s, u"2"_s);
    typeInto(kForm, u"Text66(2)"_s, u"5"_s);
    typeInto(kForm, u"Text66(0)"_s, u"1"_s);
    typeInto(kForm, u"Text66(1)"_s, u"2"_s);
    press(kForm, u"Option66"_s);
    EXPECT_NE(m_statements[0].find("([fig1]>2and [fig1]<=5)"), std::string::npos) << m_statements[0];
    EXPECT_NE(m_statements[2].find("\"自定区间2~5大小:\" & [canshu] & \" 保留1~2\""), std::string::npos)
        << m_statements[2];
    EXPECT_EQ(shown(), 6); // the sets that lack one of 3, 4 and 5

    press(kForm, u"Command1"_s);
    press(kForm, u"Option36"_s);
    typeInto(kForm, u"TxtZdqj"_s, u"3 7"_s);
    typeInto(kForm, u"Text66(0)"_s, u"2"_s);
    m_statements.clear();
    press(kForm, u"Option66"_s);
    EXPECT_EQ(m_statements[0], "UPDATE [zuhe] SET [canshu]=0");
    for (std::size_t red = 1; red <= 6; ++red)
        EXPECT_NE(m_statements[red].find("\" 3 7 \" LIKE \"* \"&[fig" + std::to_string(red) + "]&\" *\""),
                  std::string::npos)
            << m_statements[red];
    EXPECT_NE(m_statements[8].find("\"指定号码 3 7大小:\" & [canshu] & \" 保留2~2\""), std::string::npos)
        << m_statements[8];
    EXPECT_EQ(shown(), 10); // the five sets with both numbers
}

TEST_F(FilterWindowTest, RemoveTakesOutWhatTheRangeCatches) {
    press(kForm, u"Option1(1)"_s);
    EXPECT_EQ(m_Baoliu, kRemove);
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    EXPECT_EQ(shown(), 7);
    EXPECT_EQ(grid().model()->index(0, 7).data().toString(), u"3"_s);
}

TEST_F(FilterWindowTest, ARunFollowsBaoliuEvenWhenTheOptionsSayOtherwise) {
    m_Baoliu = kRemove; // as an inverting run of many parameters leaves it
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    EXPECT_EQ(grid().model()->index(0, 7).data().toString(), u"3"_s);
    press(kForm, u"Option1(0)"_s); // a click sets it anew, also on the option that is on
    EXPECT_EQ(m_Baoliu, kKeep);
}

TEST_F(FilterWindowTest, PositionBoxesAndParityReachTheStatements) {
    press(kForm, u"ChkBt(3)"_s);
    press(kForm, u"Option23"_s);
    EXPECT_NE(m_statements.front().find("[fig3] * 0 + [fig4] * 1"), std::string::npos);
    press(kForm, u"Check2(16)"_s);
    press(kForm, u"Check2(4)"_s);
    press(kForm, u"Option13"_s); // first reds: 1 in twelve rows, 2 in two
    EXPECT_EQ(shown(), 12);
}

TEST_F(FilterWindowTest, ResetsAndInvertsGoThroughTheirButtons) {
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    press(kForm, u"Command2"_s);
    EXPECT_EQ(grid().model()->index(0, 7).data().toString(), u"3"_s);
    EXPECT_EQ(grid().model()->columnCount(), 8);
    press(kForm, u"Command1"_s);
    EXPECT_EQ(shown(), 14);
    press(kForm, u"Option19"_s);
    EXPECT_EQ(shown(), 7);
    press(kForm, u"cmdRetn"_s);
    EXPECT_EQ(shown(), 14);
    press(kForm, u"Option19"_s);
    press(kForm, u"Command3"_s);
    EXPECT_EQ(shown(), 7);
    EXPECT_EQ(m_window->windowTitle(), title(7));
}

TEST_F(FilterWindowTest, ReasonsAndPagesLeaveTheTitleAlone) {
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    press(kForm, u"optZzuhe(1)"_s);
    EXPECT_EQ(shown(), 14);
    EXPECT_EQ(heading(8), u"参数"_s);
    EXPECT_EQ(heading(9), u"过滤缘故"_s);
    EXPECT_EQ(grid().columnWidth(9), 853);                                // 12,800 twips
    const auto left = static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter); // its middle is out of sight
    EXPECT_EQ(grid().model()->headerData(9, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), left);
    EXPECT_EQ(grid().model()->index(0, 9).data(Qt::TextAlignmentRole).toInt(), left);
    EXPECT_EQ(grid().model()->headerData(8, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), Qt::AlignCenter);
    EXPECT_EQ(grid().model()->index(0, 9).data().toString(), u"蓝球大小:3 保留9~99"_s);
    EXPECT_EQ(m_window->windowTitle(), title(7));
    press(kForm, u"optZzuhe(0)"_s);
    EXPECT_EQ(shown(), 14); // nothing by itself
    press(kForm, u"Command111"_s);
    EXPECT_EQ(shown(), 7);
    typeInto(kForm, u"Text1"_s, u"0"_s);
    press(kForm, u"Command111"_s);
    EXPECT_EQ(shown(), 0);
    EXPECT_EQ(m_window->windowTitle(), title(7));
}

TEST_F(FilterWindowTest, ADoubleClickGreysARowAndASecondPutsItBack) {
    doubleClick(4, 3);
    EXPECT_EQ(ground(4).value<QColor>(), QColor(178, 178, 178));
    EXPECT_EQ(shown(), 14); // it stays in sight
    EXPECT_EQ(m_window->windowTitle(), title(13));
    EXPECT_EQ(grid().currentIndex().column(), 0);
    EXPECT_EQ(m_statements[3].substr(0, 20), "SELECT [idx] ,[fig1]");
    doubleClick(4, 3);
    EXPECT_FALSE(ground(4).isValid());
    EXPECT_EQ(m_window->windowTitle(), title(14));
}

TEST_F(FilterWindowTest, ADoubleClickInTheReasonViewPutsAFilteredRowBack) {
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    press(kForm, u"optZzuhe(1)"_s);
    doubleClick(0, 0);
    EXPECT_EQ(m_window->windowTitle(), title(8));
    EXPECT_EQ(m_database->queryValue("SELECT [unslt] FROM [zuhe] WHERE [idx] = 1"), sql::Value(std::int64_t{0}));
}

TEST_F(FilterWindowTest, ADoubleClickOnTheHeadingsChangesNoRow) {
    QHeaderView* head = grid().horizontalHeader();
    const QPoint place(head->sectionPosition(2) + head->sectionSize(2) / 2, head->height() / 2);
    QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(head->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(m_window->windowTitle(), title(14));
    EXPECT_EQ(m_database->queryValue("SELECT Count(*) FROM [zuhe] WHERE [unslt] = false"),
              sql::Value(std::int64_t{14}));
}

TEST_F(FilterWindowTest, WhatChangedIsStoredWhenTheWindowCloses) {
    press(kForm, u"Option23"_s);
    m_window->close();
    EXPECT_FALSE(m_database->storePending());
}

TEST_F(FilterWindowTest, WhatChangedIsStoredOnceTheWindowIsIdle) {
    press(kForm, u"Option23"_s);
    EXPECT_TRUE(m_database->storePending());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_database->storePending(); }));
}

TEST_F(FilterWindowTest, WhatChangedIsStoredWhilePressesGoOnWithoutAPause) {
    const QDeadlineTimer tooLong(30000);
    do {
        press(kForm, u"Option23"_s);
        QTest::qWait(100);
    } while (m_database->storePending() && !tooLong.hasExpired());
    EXPECT_FALSE(m_database->storePending());
}

/// While it lives no file can be written: what a full disk does.
class FullDisk {
  public:
    FullDisk() {
        m_before = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit none{1, m_limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_before);
    }

  private:
    rlimit m_limit{};
    void (*m_before)(int) = nullptr;
};

TEST_F(FilterWindowTest, AFullDiskIsToldOnceForTheSameChanges) {
    press(kForm, u"Option23"_s);
    {
        const FullDisk full;
        const test_support::ModalScript script({{u"MsgBox"_s, [](QWidget& box) {
                                                     EXPECT_EQ(box.windowTitle(), u"数据库错误"_s);
                                                     const auto& told = static_cast<QMessageBox&>(box);
                                                     EXPECT_TRUE(told.text().startsWith(u"过滤结果没有写入文件："_s))
                                                         << told.text().toStdString();
                                                     EXPECT_FALSE(told.detailedText().isEmpty());
                                                     test_support::answer({}, QMessageBox::Ok)(box);
                                                 }}});
        m_window->close();
        m_window.reset();
    }
    EXPECT_TRUE(m_database->storePending());
    m_database->store(); // nothing was lost
    EXPECT_FALSE(m_database->storePending());
}

TEST_F(FilterWindowTest, AFullDiskIsToldAgainAfterAnotherPress) {
    const FullDisk full;
    const test_support::ModalScript script({{u"MsgBox"_s, test_support::answer({}, QMessageBox::Ok)},
                                            {u"MsgBox"_s, test_support::answer({}, QMessageBox::Ok)}});
    m_window->storeNow();
    m_window->storeNow();
    EXPECT_EQ(script.left(), 1U);
    press(kForm, u"Option23"_s);
    m_window->storeNow();
}

TEST_F(FilterWindowTest, AColumnKeepsTheWidthThatItWasDraggedTo) {
    grid().setColumnWidth(3, 77);
    press(kForm, u"Option23"_s);
    press(kForm, u"optZzuhe(1)"_s);
    press(kForm, u"Command1"_s);
    EXPECT_EQ(grid().columnWidth(3), 77);
    EXPECT_GE(grid().columnWidth(7), 43); // 650 twips
}

TEST_F(FilterWindowTest, TheBankerMemberFillsItsTableWithBankersInEveryRow) {
    m_window.reset();
    m_window =
        std::make_unique<FilterWindow>(*findMember("Gdanagan"), FilterContext{*m_database, m_history, 33, m_Baoliu});
    selection::GenerationInput input;
    input.chosen = {{1, 10, 25, 30, 31}, {3, 20}, {8}};
    input.Genreds = 5;
    load(input);
    m_window->show();
    EXPECT_EQ(m_window->objectName(), u"Gdanagan"_s);
    EXPECT_EQ(shown(), 5);
    EXPECT_EQ(m_window->windowTitle(), title(5));
    EXPECT_EQ(grid().model()->index(0, 2).data().toString(), u"3"_s);
    input.chosen.bankers = {3, 20, 4, 5, 6, 7};
    load(input);
    EXPECT_EQ(shown(), 0);
    EXPECT_EQ(m_window->windowTitle(), title(1)); // one set is announced, none is written
}

TEST_F(FilterWindowTest, AKeptTableOpensAsItWasLeft) {
    typeInto(kForm, u"Text18(0)"_s, u"9"_s);
    press(kForm, u"Option19"_s);
    m_window =
        std::make_unique<FilterWindow>(*findMember("GAganMb"), FilterContext{*m_database, m_history, 33, m_Baoliu});
    selection::Keep source;
    m_window->load(source);
    m_window->show();
    EXPECT_EQ(shown(), 7);
    EXPECT_EQ(m_window->windowTitle(), title(7));
}

TEST_F(FilterWindowTest, EscapeDoesNotCloseIt) {
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(FilterWindowTest, EveryControlHasANameOfItsOwn) {
    QStringList names;
    for (const QWidget* control : m_window->findChildren<QWidget*>()) {
        const bool ours = qobject_cast<const QLineEdit*>(control) || qobject_cast<const QAbstractButton*>(control) ||
                          qobject_cast<const QComboBox*>(control) || qobject_cast<const QLabel*>(control);
        if (!ours || control->objectName().startsWith(u"qt_"_s) || control->inherits("QTableCornerButton"))
            continue;
        EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
        EXPECT_FALSE(names.contains(control->objectName())) << control->objectName().toStdString();
        names.append(control->objectName());
    }
}

TEST_F(FilterWindowTest, FitsAWorkAreaOf1280By800AndShowsItsTextsWhole) {
    for (const bool lists : {false, true}) {
        press(kForm, lists ? u"Option36"_s : u"Option22"_s);
        EXPECT_LE(m_window->minimumSizeHint().width(), 1280);
        EXPECT_LE(m_window->minimumSizeHint().height(), 770);
        for (const QAbstractButton* button : m_window->findChildren<QAbstractButton*>())
            if (button->isVisible() && !button->text().isEmpty()) {
                EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->objectName().toStdString();
            }
    }
}

TEST_F(FilterWindowTest, TheModelKeepsItsPromises) {
    QAbstractItemModelTester tester(grid().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    press(kForm, u"Option24"_s);
    doubleClick(0, 0);
    press(kForm, u"optZzuhe(1)"_s);
    EXPECT_EQ(shown(), 14);
}

} // namespace
} // namespace filter
