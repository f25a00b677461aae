// The pages of the filter window with real clicks: the integrated filter, the super filters, the filter template,
// saved settings, periods.
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <filesystem>
#include <map>

#include <gtest/gtest.h>

#include "filter/windows/row_controls.h"
#include "support/controls.h"
#include "support/modal_script.h"
#include "toolkit/line_list.h"
#include "toolkit/segments.h"
#include "windows/filter_window_support.h"

using namespace Qt::StringLiterals;
using test_support::answer;
using test_support::cancel;
using test_support::controlAs;
using test_support::ModalScript;
using test_support::press;
using test_support::rightPress;
using test_support::type;
using test_support::typeInto;

namespace filter {
namespace {

const QString kForm = u"GAgan"_s;

enum Page { kIntegrated, kSuper, kTemplate };

/// Answers the popup of a right press once it is open: adds the step, or closes it.
class Popup : public QObject {
  public:
    explicit Popup(bool add) : m_add(add) {
        connect(&m_watch, &QTimer::timeout, this, &Popup::play);
        m_watch.start(5);
    }
    ~Popup() override { EXPECT_TRUE(m_played) << "no popup came"; }

  private:
    void play() {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        m_watch.stop();
        m_played = true;
        EXPECT_EQ(menu->objectName(), u"mnuAdm"_s);
        QAction* mnuAdf = menu->findChild<QAction*>(u"mnuAdf"_s);
        ASSERT_NE(mnuAdf, nullptr);
        EXPECT_EQ(mnuAdf->text(), u"添加到过滤模板(&A)"_s);
        if (m_add)
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(mnuAdf).center());
        else
            QTest::keyClick(menu, Qt::Key_Escape);
    }

    bool m_add;
    bool m_played = false;
    QTimer m_watch;
};

class FilterPages : public FilterWindowFixture {
  protected:
    void choose(Page page) { m_window->findChild<QTabBar*>(u"FilterPagesBar"_s)->setCurrentIndex(page); }
    int shown() { return grid().model()->rowCount(); }
    QString textOf(const QString& name) { return controlAs<QLineEdit>(*m_window, name)->text(); }
    void tick(int index) { press(kForm, indexedName(u"Check1"_s, index)); }
    QString words() { return controlAs<QLabel>(*m_window, u"Label3"_s)->text(); }
    QScrollBar& scroll() { return *controlAs<QScrollBar>(*m_window, u"HScroll1"_s); }
    int steps() { return static_cast<int>(m_database->rowCount("moban")); }
    void record(const QString& control, bool add = true) {
        const Popup popup(add);
        rightPress(kForm, control);
    }
};

TEST_F(FilterPages, TheIntegratedFilterJudgesAllTicksTogether) {
    typeInto(kForm, u"Text5(0)"_s, u"3"_s);  // evens: the four sets that lack an odd number
    typeInto(kForm, u"Text2(1)"_s, u"23"_s); // sums up to 23: without 7, 6, 5
    tick(3);
    tick(0);
    press(kForm, u"Option29"_s);
    EXPECT_EQ(shown(), 4) << "without 7, without 5";
    EXPECT_EQ(grid().model()->columnCount(), 8);
    press(kForm, u"Command1"_s);
    press(kForm, u"Check3"_s);
    typeInto(kForm, u"TxtRc(0)"_s, u"1"_s);
    press(kForm, u"Option29"_s);
    EXPECT_EQ(shown(), 10) << "all but those that fail both";
}

TEST_F(FilterPages, TheTicksAreListedAndTheSentenceFollowsThem) {
    const auto* list = controlAs<toolkit::LineList>(*m_window, u"TickedList"_s);
    EXPECT_EQ(list->count(), 0);
    tick(3);
    tick(16);
    EXPECT_EQ(list->count(), 2);
    EXPECT_EQ(m_window->findChild<QTabBar*>(u"FilterPagesBar"_s)->tabText(kIntegrated), u"整合 2"_s);
    const QString before = controlAs<QLabel>(*m_window, u"IntegratedSentence"_s)->text();
    press(kForm, u"Option37(1)"_s);
    EXPECT_NE(controlAs<QLabel>(*m_window, u"IntegratedSentence"_s)->text(), before);
}

TEST_F(FilterPages, TheToleranceBoxesFollowEachOther) {
    for (const int index : {0, 1, 2, 3, 4, 5, 6, 7, 8, 14})
        tick(index);
    EXPECT_EQ(textOf(u"TxtRc(0)"_s), u"1"_s) << "ten ticks at 10 %";
    typeInto(kForm, u"TxtRc(1)"_s, u"25"_s);
    controlAs<QLineEdit>(*m_window, u"Text1"_s)->setFocus();
    EXPECT_EQ(textOf(u"TxtRc(0)"_s), u"2"_s) << "cut, not rounded";
    typeInto(kForm, u"TxtRc(0)"_s, u"3"_s);
    controlAs<QLineEdit>(*m_window, u"Text1"_s)->setFocus();
    EXPECT_EQ(textOf(u"TxtRc(1)"_s), u"30"_s);
}

TEST_F(FilterPages, LeavingTheCountWithoutTicksIsToldAndChangesNothing) {
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    typeInto(kForm, u"TxtRc(0)"_s, u"3"_s);
    controlAs<QLineEdit>(*m_window, u"Text1"_s)->setFocus();
    EXPECT_EQ(textOf(u"TxtRc(1)"_s), u"10"_s);
    EXPECT_TRUE(controlAs<QLabel>(*m_window, u"NoticeText"_s)->text().contains(u"还没有勾选参数"_s));
}

TEST_F(FilterPages, ASuperFilterAsksThenRuns) {
    choose(kSuper);
    ModalScript script({{u"InputBox"_s, type(u"2"_s)}, {u"InputBox"_s, type(u"6"_s)}, {u"InputBox"_s, type(u"7"_s)}});
    press(kForm, u"Option25(0)"_s);
    EXPECT_EQ(shown(), 4) << "sets with both 6 and 7 went: those without 6 or without 7 stay";
    EXPECT_TRUE(controlAs<PressButton>(*m_window, u"Option25(0)"_s)->isUsed());
    EXPECT_EQ(steps(), 0) << "a left press records nothing";
}

TEST_F(FilterPages, CancellingASuperFilterChangesNothing) {
    choose(kSuper);
    ModalScript script({{u"InputBox"_s, type(u"2"_s)}, {u"InputBox"_s, cancel()}});
    press(kForm, u"Option25(2)"_s);
    EXPECT_EQ(shown(), 14);
    EXPECT_TRUE(m_statements.empty());
}

TEST_F(FilterPages, ARightPressRecordsAndRunsNothing) {
    typeInto(kForm, u"Text5(0)"_s, u"3"_s);
    tick(3);
    m_statements.clear();
    record(u"Option29"_s);
    choose(kSuper);
    {
        ModalScript script({{u"InputBox"_s, type(u"1"_s)}, {u"InputBox"_s, type(u"7"_s)}});
        record(u"Option25(2)"_s);
    }
    record(u"Command3"_s);
    for (const std::string& statement : m_statements)
        EXPECT_EQ(statement.find("UPDATE [zuhe]"), std::string::npos) << statement;
    EXPECT_EQ(shown(), 14);
    EXPECT_EQ(steps(), 3);
    choose(kTemplate);
    EXPECT_EQ(scroll().maximum(), 3);
    EXPECT_EQ(controlAs<toolkit::LineList>(*m_window, u"StepLines"_s)->count(), 3);
}

TEST_F(FilterPages, APopupThatIsClosedOverwritesTheLastStep) {
    choose(kSuper);
    {
        ModalScript script({{u"InputBox"_s, type(u"1"_s)}});
        record(u"Option27"_s);
    }
    {
        ModalScript script({{u"InputBox"_s, type(u"5"_s)}});
        record(u"Optio37"_s, false);
    }
    choose(kTemplate);
    EXPECT_EQ(steps(), 1);
    scroll().setValue(1);
    EXPECT_EQ(words(), u"模板过滤第1步，使用“历史同7过滤”单选按钮功能，检索期数为：5"_s);
}

TEST_F(FilterPages, AReplayLeavesTheSurvivorsThatPressingByHandLeaves) {
    typeInto(kForm, u"Text5(0)"_s, u"3"_s);
    tick(3);
    record(u"Option29"_s);
    choose(kSuper);
    {
        ModalScript script({{u"InputBox"_s, type(u"1"_s)}, {u"InputBox"_s, type(u"9"_s)}});
        record(u"Option25(0)"_s);
    }
    tick(3);
    typeInto(kForm, u"Text5(0)"_s, u"0"_s);
    choose(kTemplate);
    press(kForm, u"Command9"_s);
    EXPECT_EQ(shown(), 4) << "evens of 3 or more, without the blue 9";
    EXPECT_EQ(textOf(u"Text5(0)"_s), u"3"_s) << "the controls show the last integrated step";
    EXPECT_TRUE(controlAs<QCheckBox>(*m_window, u"Check1(3)"_s)->isChecked());
    EXPECT_EQ(words(), QString());
    EXPECT_EQ(steps(), 2) << "a replay records nothing";
}

/// A control whose press a template can record, and what its questions are answered with.
struct Recordable {
    QString control;
    std::vector<QString> answers{};
    Page page = kSuper;
};
const std::vector<Recordable> kRecordables{
    {u"Option29"_s, {}, kIntegrated},
    {u"Option25(1)"_s, {u"2"_s, u"3"_s, u"4"_s}},
    {u"Option25(2)"_s, {u"1"_s, u"2"_s}},
    {u"Option25(0)"_s, {u"3"_s, u"1"_s, u"6"_s, u"9"_s}},
    {u"Option35"_s, {u"5"_s, u"5"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"7"_s, u"0"_s}},
    {u"Option44"_s, {u"3"_s, u"1"_s, u"6"_s, u"7"_s, u"9"_s, u"0"_s}},
    {u"Option27"_s, {u"1"_s}},
    {u"Option28"_s, {u"1"_s}},
    {u"Option26"_s, {u"1"_s}},
    {u"Optio37"_s, {u"1"_s}},
    {u"Option43"_s},
    {u"Command3"_s, {}, kIntegrated},
    {u"Command2"_s, {}, kIntegrated},
};

class WholeTemplate : public FilterPages {
  protected:
    /// Each control once, with left presses that run or right presses that record.
    void pressAll(bool recording) {
        for (const Recordable& each : kRecordables) {
            SCOPED_TRACE(each.control.toStdString());
            choose(each.page);
            std::vector<test_support::ModalStep> answers;
            for (const QString& text : each.answers)
                answers.push_back({u"InputBox"_s, type(text)});
            ModalScript script(std::move(answers));
            if (recording)
                record(each.control);
            else
                press(kForm, each.control);
        }
    }
    void setUp() {
        typeInto(kForm, u"Text5(0)"_s, u"3"_s);
        tick(3);
    }
    /// A new window on the same file, as after a restart; the table is made anew.
    void restart() {
        m_window.reset();
        m_database->store();
        m_database.reset();
        m_database = m_engine.open(m_home.folder() / "filnum.mdb");
        m_database->setListener([this](std::string_view text) { m_statements.push_back(std::string(text)); });
        m_window =
            std::make_unique<FilterWindow>(kFilterMembers[0], FilterContext{*m_database, m_history, 33, m_Baoliu});
        generate(7, {3, 9});
        m_window->show();
    }
    std::vector<std::string> updates() {
        std::vector<std::string> all;
        for (const std::string& statement : std::exchange(m_statements, {}))
            if (statement.starts_with("UPDATE [zuhe]"))
                all.push_back(statement);
        return all;
    }
    std::string inPlay() {
        const sql::Rows rows = m_database->query("SELECT [idx],[unslt],[preunslt] FROM [zuhe]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            all +=
                rows.textAt(row, 0) + (rows.integerAt(row, 1) ? "-" : "+") + (rows.integerAt(row, 2) ? "- " : "+ ");
        return all;
    }
};

TEST_F(WholeTemplate, ReplayedAfterARestartItDoesWhatTheHandsDid) {
    setUp();
    pressAll(true);
    EXPECT_EQ(updates(), std::vector<std::string>()) << "right presses run nothing";
    EXPECT_EQ(steps(), static_cast<int>(kRecordables.size()));
    restart();
    setUp();
    pressAll(false);
    const std::vector<std::string> byHand = updates();
    const std::string left = inPlay();
    EXPECT_GT(byHand.size(), 30U);
    EXPECT_NE(left.find('+'), std::string::npos);
    restart();
    choose(kTemplate);
    press(kForm, u"Command9"_s);
    EXPECT_EQ(updates(), byHand);
    EXPECT_EQ(inPlay(), left);
    EXPECT_EQ(steps(), static_cast<int>(kRecordables.size()));
}

TEST_F(FilterPages, ReplayedTwiceEachStepRunsTwice) {
    record(u"Command2"_s);
    press(kForm, u"Command2"_s);
    EXPECT_EQ(shown(), 0);
    choose(kTemplate);
    press(kForm, u"Command9"_s);
    EXPECT_EQ(shown(), 14);
    press(kForm, u"Command9"_s);
    EXPECT_EQ(shown(), 0) << "inverted twice";
}

TEST_F(FilterPages, ATemplateOfBetsWithABlueIsNotThatOfSixReds) {
    record(u"Command2"_s);
    const std::unique_ptr<sql::Database> sixReds = m_engine.create(m_home.folder() / "filnumR.mdb");
    m_window =
        std::make_unique<FilterWindow>(*findMember("GAganR"), FilterContext{*sixReds, m_history, 33, m_Baoliu});
    m_window->show();
    EXPECT_EQ(sixReds->rowCount("moban"), 0);
    EXPECT_FALSE(m_window->findChild<QAbstractButton*>(u"Command9"_s)->isEnabled());
    m_window.reset();
}

TEST_F(FilterPages, BrowsingAnEmptyTemplateLeavesTheWords) {
    record(u"Command2"_s);
    choose(kTemplate);
    scroll().setValue(1);
    const QString before = words();
    EXPECT_FALSE(before.isEmpty());
    press(kForm, u"Command4"_s);
    EXPECT_EQ(scroll().maximum(), 1);
    scroll().setValue(0);
    scroll().setValue(1);
    EXPECT_EQ(words(), before);
}

TEST_F(FilterPages, BrowsingShowsAStepAndRunsNothing) {
    typeInto(kForm, u"Text5(0)"_s, u"3"_s);
    tick(3);
    record(u"Option29"_s);
    record(u"Command2"_s);
    tick(3);
    typeInto(kForm, u"Text5(0)"_s, u"0"_s);
    m_statements.clear();
    choose(kTemplate);
    scroll().setValue(2);
    EXPECT_EQ(words(), u"模板过滤第2步，使用“全部组号反选(U)”按钮功能"_s);
    EXPECT_EQ(textOf(u"Text5(0)"_s), u"0"_s);
    scroll().setValue(1);
    EXPECT_EQ(words(), u"模板过滤第1步，使用“多参数整合过滤”功能，参数设置详见参数设置列表"_s);
    EXPECT_EQ(textOf(u"Text5(0)"_s), u"3"_s);
    EXPECT_EQ(shown(), 14);
    for (const std::string& statement : m_statements)
        EXPECT_EQ(statement.find("UPDATE"), std::string::npos) << statement;
}

TEST_F(FilterPages, AStepWithListsLocksThemAndKeepsTheCaptionUntilAModeIsPressed) {
    press(kForm, u"Option36"_s);
    tick(31);
    record(u"Option29"_s);
    press(kForm, u"Option22"_s);
    choose(kTemplate);
    scroll().setValue(1);
    EXPECT_TRUE(controlAs<QRadioButton>(*m_window, u"Option36"_s)->isChecked());
    EXPECT_FALSE(m_window->findChild<QLineEdit*>(u"Text5(5)"_s)->isEnabled());
    EXPECT_FALSE(m_window->findChild<QLineEdit*>(u"TxtZdqj"_s)->isEnabled());
    EXPECT_EQ(controlAs<PressButton>(*m_window, u"Option66"_s)->text(), u"自定区间"_s);
    press(kForm, u"Option22"_s);
    press(kForm, u"Option36"_s);
    EXPECT_TRUE(m_window->findChild<QLineEdit*>(u"Text5(5)"_s)->isEnabled());
    EXPECT_EQ(controlAs<PressButton>(*m_window, u"Option66"_s)->text(), u"指定号码"_s);
}

TEST_F(FilterPages, ClearingTheTemplateCanBeTakenBack) {
    record(u"Command2"_s);
    record(u"Command3"_s);
    choose(kTemplate);
    press(kForm, u"Command5"_s);
    EXPECT_EQ(steps(), 1);
    press(kForm, u"NoticeAction"_s);
    EXPECT_EQ(steps(), 2);
    press(kForm, u"Command4"_s);
    EXPECT_EQ(steps(), 0);
    EXPECT_EQ(scroll().maximum(), 1);
    EXPECT_FALSE(m_window->findChild<QAbstractButton*>(u"Command9"_s)->isEnabled());
    press(kForm, u"NoticeAction"_s);
    EXPECT_EQ(steps(), 2);
}

TEST_F(FilterPages, TheExportIsWrittenIntoTheFolderAndTheFormerOneKept) {
    const std::filesystem::path folder = m_home.folder() / "程序";
    std::filesystem::create_directory(folder);
    FilterContext context{*m_database, m_history, 33, m_Baoliu};
    context.folder = folder;
    m_window = std::make_unique<FilterWindow>(kFilterMembers[0], context);
    generate(7, {3, 9});
    m_window->show();
    tick(3);
    for (int time = 0; time < 2; ++time) {
        // Nothing opens a workbook here.
        ModalScript script({{u"MsgBox"_s, answer(u"您的电脑没有安装Microsoft Excel表格软件，多参数列表无法显示"_s,
                                                 u"列表显示错误"_s, QMessageBox::Ok)}});
        press(kForm, u"Option143"_s);
    }
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    ASSERT_EQ(names.size(), 2U);
    EXPECT_TRUE(names[0].starts_with("Zuhe 保存 "));
    EXPECT_EQ(names[1], "Zuhe.xlsx");
    EXPECT_GT(std::filesystem::file_size(folder / "Zuhe.xlsx"), 1000U);
}

TEST_F(FilterPages, AnExportThatCannotBeWrittenIsToldAndChangesNothing) {
    FilterContext context{*m_database, m_history, 33, m_Baoliu};
    context.folder = m_home.folder() / "没有";
    m_window = std::make_unique<FilterWindow>(kFilterMembers[0], context);
    generate(7, {3, 9});
    m_window->show();
    ModalScript script({{u"MsgBox"_s, [](QWidget& box) {
                             EXPECT_TRUE(static_cast<QMessageBox&>(box).text().startsWith(u"没有导出到"_s));
                             test_support::answer({})(box);
                         }}});
    press(kForm, u"Option143"_s);
    EXPECT_EQ(shown(), 14);
}

TEST_F(FilterPages, ASettingIsSavedAndCalledBack) {
    typeInto(kForm, u"Text5(0)"_s, u"3"_s);
    press(kForm, u"Check2(4)"_s);
    choose(kTemplate);
    {
        ModalScript script({{u"InputBox"_s, type(u"甲"_s)}});
        press(kForm, u"Command7"_s);
    }
    typeInto(kForm, u"Text5(0)"_s, u"1"_s);
    press(kForm, u"Check2(4)"_s);
    press(kForm, u"Option36"_s);
    {
        ModalScript script({{u"frmFind"_s, [](QWidget& picker) { press(picker, u"cmdOK"_s); }}});
        press(kForm, u"Command6"_s);
    }
    EXPECT_EQ(textOf(u"Text5(0)"_s), u"3"_s);
    EXPECT_TRUE(controlAs<QCheckBox>(*m_window, u"Check2(4)"_s)->isChecked());
    EXPECT_FALSE(controlAs<QRadioButton>(*m_window, u"Option36"_s)->isChecked());
}

TEST_F(FilterPages, ASettingOfEachModeIsCalledBackOnAnotherMember) {
    for (const bool lists : {false, true}) {
        SCOPED_TRACE(lists ? "lists" : "ranges");
        press(kForm, lists ? u"Option36"_s : u"Option22"_s);
        std::map<QString, QString> filled;
        int value = 0;
        for (QLineEdit* box : m_window->findChildren<QLineEdit*>()) {
            const bool ofTable = box->objectName().startsWith(u"Text"_s) && box->objectName() != u"Text1"_s;
            if (!ofTable || !box->isVisible() || !box->isEnabled())
                continue;
            box->setText(QString::number(++value));
            const bool counts = lists && box->parentWidget()->objectName() == u"Frame11"_s;
            if (!counts && box->objectName() != u"Text27(3)"_s) // neither has a column
                filled[box->objectName()] = box->text();
        }
        EXPECT_GT(filled.size(), 30U);
        choose(kTemplate);
        {
            ModalScript script({{u"InputBox"_s, type(lists ? u"表"_s : u"围"_s)}});
            press(kForm, u"Command7"_s);
        }
        m_window = std::make_unique<FilterWindow>(*findMember("GAganMb"),
                                                  FilterContext{*m_database, m_history, 33, m_Baoliu});
        selection::Keep keep;
        load(keep);
        m_window->show();
        choose(kTemplate);
        {
            ModalScript script({{u"frmFind"_s, [](QWidget& picker) { press(picker, u"cmdOK"_s); }}});
            press(u"GAganMb"_s, u"Command6"_s);
        }
        EXPECT_EQ(controlAs<QRadioButton>(*m_window, u"Option36"_s)->isChecked(), lists);
        for (const auto& [name, expected] : filled)
            EXPECT_EQ(m_window->findChild<QLineEdit*>(name)->text().toStdString(), expected.toStdString())
                << name.toStdString();
        m_window =
            std::make_unique<FilterWindow>(kFilterMembers[0], FilterContext{*m_database, m_history, 33, m_Baoliu});
        load(keep);
        m_window->show();
    }
}

TEST_F(FilterPages, NamesThatDifferInCapitalsAloneAreDeletedTogetherAndTheQuestionSaysSo) {
    choose(kTemplate);
    for (const QString& name : {u"abc"_s, u"ABC"_s}) {
        ModalScript script({{u"InputBox"_s, type(name)}});
        press(kForm, u"Command7"_s);
    }
    const auto play = [](QWidget& picker) {
        picker.findChild<QAction*>(u"mnuDel"_s)->trigger();
        EXPECT_EQ(picker.findChild<toolkit::DataGrid*>(u"MSFlexGrid1"_s)->model()->rowCount(), 2);
        picker.findChild<QAction*>(u"mnuName"_s)->trigger();
        press(picker, u"cmdCancel"_s);
    };
    const auto asked = [](QWidget& box) {
        EXPECT_TRUE(static_cast<QMessageBox&>(box).informativeText().contains(u"2 个设置"_s));
        test_support::answer({}, QMessageBox::Cancel)(box);
    };
    ModalScript script({{u"frmFind"_s, play},
                        {u"MsgBox"_s, asked},
                        {u"InputBox"_s, type(u"新"_s)},
                        {u"MsgBox"_s, answer(u"叫“ABC”的 2 个设置都会改名，是否继续？"_s)}});
    press(kForm, u"Command6"_s);
    EXPECT_EQ(m_database->query("SELECT [Name] FROM [Canshu]").textAt(0, 0), "新");
}

TEST_F(FilterPages, WhatCanBeTakenBackStaysSoWhileOtherThingsAreTold) {
    record(u"Command2"_s);
    record(u"Command3"_s);
    choose(kTemplate);
    press(kForm, u"Command5"_s);
    m_window->setNotice(u"另一件事"_s);
    record(u"Command2"_s);
    press(kForm, u"NoticeAction"_s);
    const sql::Rows rows = m_database->query("SELECT [Idx],[intCmdnb] FROM [moban]");
    std::string order;
    for (std::int64_t row = 0; row < rows.count(); ++row)
        order += rows.textAt(row, 0) + ":" + rows.textAt(row, 1) + " ";
    EXPECT_EQ(order, "1:2 2:1 3:2 ") << "back in its place, before what was recorded since";
}

TEST_F(FilterPages, TheWheelPicksNoPeriod) {
    typeInto(kForm, u"Text2(0)"_s, u"60"_s);
    auto* period = controlAs<QComboBox>(*m_window, u"Combo1(0)"_s);
    const QPoint middle = period->rect().center();
    QWheelEvent wheel(middle, period->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(period, &wheel);
    EXPECT_EQ(period->currentIndex(), -1);
    EXPECT_EQ(textOf(u"Text2(0)"_s), u"60"_s);
}

TEST_F(FilterPages, ABetIsTakenOutAndPutBackByKey) {
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    grid().setFocus();
    grid().setCurrentIndex(grid().model()->index(2, 3));
    QTest::keyClick(&grid(), Qt::Key_Return);
    EXPECT_EQ(m_database->query("SELECT [idx] FROM [zuhe] WHERE [unslt] = true").textAt(0, 0), "3");
    QTest::keyClick(&grid(), Qt::Key_Delete);
    EXPECT_EQ(m_database->query("SELECT [idx] FROM [zuhe] WHERE [unslt] = true").count(), 0);
}

TEST_F(FilterPages, ItsOwnMenuDoesNotLeaveAToleranceBox) {
    for (const int index : {0, 1, 2, 3, 4, 5, 6})
        tick(index);
    typeInto(kForm, u"TxtRc(1)"_s, u"50"_s);
    const QString before = textOf(u"TxtRc(0)"_s);
    QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(controlAs<QLineEdit>(*m_window, u"TxtRc(1)"_s), &popup);
    EXPECT_EQ(textOf(u"TxtRc(0)"_s), before);
    QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(controlAs<QLineEdit>(*m_window, u"TxtRc(1)"_s), &left);
    EXPECT_EQ(textOf(u"TxtRc(0)"_s), u"3"_s);
}

TEST_F(FilterPages, CancellingThePickerLeavesEveryBox) {
    choose(kTemplate);
    {
        ModalScript script({{u"InputBox"_s, type(u"甲"_s)}});
        press(kForm, u"Command7"_s);
    }
    typeInto(kForm, u"Text5(0)"_s, u"1"_s);
    ModalScript script({{u"frmFind"_s, cancel()}});
    press(kForm, u"Command6"_s);
    EXPECT_EQ(textOf(u"Text5(0)"_s), u"1"_s);
}

TEST_F(FilterPages, ThePickerRenamesAndDeletes) {
    choose(kTemplate);
    {
        ModalScript script({{u"InputBox"_s, type(u"甲"_s)}});
        press(kForm, u"Command7"_s);
    }
    const auto play = [](QWidget& picker) {
        picker.findChild<QAction*>(u"mnuName"_s)->trigger();
        EXPECT_EQ(picker.findChild<toolkit::DataGrid*>(u"MSFlexGrid1"_s)->model()->index(0, 0).data(), u"乙"_s);
        picker.findChild<QAction*>(u"mnuDel"_s)->trigger();
        EXPECT_EQ(picker.findChild<toolkit::DataGrid*>(u"MSFlexGrid1"_s)->model()->rowCount(), 0);
        press(picker, u"cmdCancel"_s);
    };
    ModalScript script({{u"frmFind"_s, play},
                        {u"InputBox"_s, type(u"乙"_s)},
                        {u"MsgBox"_s, answer(u"确实要删除过滤设置“乙”吗？"_s)}});
    press(kForm, u"Command6"_s);
    EXPECT_EQ(m_database->rowCount("Canshu"), 0);
}

} // namespace
} // namespace filter
