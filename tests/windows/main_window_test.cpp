#include "mainwin/windows/form1.h"

#include <map>
#include <set>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>

#include "mainwin/main_texts.h"
#include "mainwin/windows/history_model.h"
#include "mainwin/windows/share_panel.h"
#include "support/controls.h"
#include "support/modal_script.h"
#include "toolkit/flex_grid.h"
#include "toolkit/number_ball.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

using mainwin::Form1;
using mainwin::Needs;
using mainwin::ProgramState;
using toolkit::NumberBall;

class MainWindow : public ::testing::Test {
  protected:
    workspace::Workspace workspace;
    history::History history;
    selection::Pad pad;
    std::map<QString, QString> stored; ///< "section/key"
    std::vector<QString> ran;          ///< commands, as "name" or "name(index)"
    std::unique_ptr<mainwin::MainContext> context;
    std::unique_ptr<Form1> form;

    void addDraw(const history::Draw& draw) {
        history.Lshm.push_back(draw);
        history.Lsnum = static_cast<int>(history.Lshm.size()) - 1;
    }

    /// \param allCommands  whether every command of the tree has a function, so that only the rules decide
    Form1& open(bool allCommands = true) {
        mainwin::UserSettings settings;
        settings.get = [this](const QString& section, const QString& key, const QString& fallback) {
            const auto found = stored.find(section + u'/' + key);
            return found == stored.end() ? fallback : found->second;
        };
        settings.set = [this](const QString& section, const QString& key, const QString& value) {
            stored[section + u'/' + key] = value;
        };
        form.reset();
        context.reset(new mainwin::MainContext{workspace, history, pad, settings, {}});
        if (allCommands) {
            for (const auto& row : mainwin::menuTable())
                record(row.name);
            for (const auto& table : {mainwin::toolbarTable(), mainwin::buttonTable()})
                for (const auto& row : table)
                    record(row.command);
        }
        form = std::make_unique<Form1>(*context);
        form->resize(1280, 770);
        form->show();
        return *form;
    }

    void record(const QString& name) {
        context->commands.on(
            name, [this, name](int index) { ran.push_back(index < 0 ? name : u"%1(%2)"_s.arg(name).arg(index)); });
    }

    QString text(const QString& label) { return controlAs<QLabel>(*form, label)->text(); }
    NumberBall& ball(const QString& name) { return *controlAs<NumberBall>(*form, name); }
    bool entryEnabled(const QString& name) {
        if (auto* menu = form->findChild<QMenu*>(name)) {
            EXPECT_EQ(menu->menuAction()->isEnabled(), menu->isEnabled());
            return menu->isEnabled();
        }
        return action(*form, name)->isEnabled();
    }
    QString caption(const QString& name) {
        if (auto* menu = form->findChild<QMenu*>(name))
            return menu->title();
        return action(*form, name)->text();
    }
    void openMenu(const QString& name) { emit form->findChild<QMenu*>(name)->aboutToShow(); }
    void pressNumbers(const QString& pattern, std::initializer_list<int> numbers) {
        for (const int number : numbers)
            press(*form, pattern.arg(number));
    }
    void makeBanker(int number) {
        rightPress(*form, u"Command1(%1)"_s.arg(number));
        auto* menu = form->findChild<QMenu*>(u"mnuDt"_s);
        EXPECT_TRUE(menu->isVisible());
        action(*form, u"mnuDan"_s)->trigger();
        menu->close();
    }
};

const history::Draw kFirstDraw{2003001, 10, 11, 12, 13, 26, 28, 11};
const history::Draw kSecondDraw{2003002, 4, 9, 19, 20, 21, 26, 12};

TEST_F(MainWindow, IsTheFormOfTheProgram) {
    open();
    EXPECT_EQ(window(u"Form1"_s), form.get());
    EXPECT_EQ(form->windowTitle(), u"奥衡星双色球彩票助理"_s);
}

TEST_F(MainWindow, EveryControlHasANameAndNoTwoAreAlike) {
    open();
    std::set<QString> names;
    const auto widgets = form->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        const QString name = widget->objectName();
        const bool inside = name.startsWith(u"qt_") || (name.isEmpty() && widget->inherits("QMenu")) ||
                            widget->inherits("QToolButton") || widget->inherits("QHeaderView") ||
                            widget->inherits("QScrollBar") || widget->inherits("QSplitterHandle") ||
                            widget->inherits("QSizeGrip") || widget->inherits("QToolBarSeparator") ||
                            widget->inherits("QMainWindowLayoutSeparator") ||
                            widget->inherits("QTableCornerButton") ||
                            (widget->inherits("QAbstractButton") && widget->parentWidget()->inherits("QTableView"));
        if (inside)
            continue;
        EXPECT_FALSE(name.isEmpty()) << widget->metaObject()->className() << " in "
                                     << widget->parentWidget()->objectName().toStdString();
        EXPECT_TRUE(names.insert(name).second) << name.toStdString();
    }
    for (const QAction* entry : form->findChildren<QAction*>())
        if (!entry->isSeparator() && !entry->menu() && !entry->objectName().isEmpty()) {
            EXPECT_TRUE(names.insert(entry->objectName()).second) << entry->objectName().toStdString();
        }
}

TEST_F(MainWindow, HasEveryControlOfItsList) {
    open();
    QStringList wanted{u"Label100"_s,   u"Label5"_s,      u"Label8"_s,     u"Label19"_s,   u"Label3"_s,
                       u"Label15"_s,    u"Label7"_s,      u"Label118"_s,   u"Label11"_s,   u"Picture3"_s,
                       u"Label12"_s,    u"MSFlexGrid1"_s, u"Command41"_s,  u"Command42"_s, u"Command45"_s,
                       u"Command141"_s, u"Command142"_s,  u"Command145"_s, u"Command43"_s, u"Command44"_s,
                       u"Command48"_s,  u"cmdRead"_s,     u"ComSta"_s,     u"ComSpd"_s,    u"ComRst"_s,
                       u"Label9(0)"_s,  u"Label9(1)"_s,   u"Toolbar1"_s,   u"StatusBar1"_s};
    const std::tuple<QString, int, int> arrays[] = {
        {u"Command1"_s, 1, 38}, {u"Command2"_s, 1, 18}, {u"Label4"_s, 1, 38}, {u"Label6"_s, 1, 38},
        {u"Picture2"_s, 1, 38}, {u"Label1"_s, 0, 5},    {u"Label2"_s, 0, 5},  {u"MaskEdBox1"_s, 1, 7},
        {u"Label13"_s, 1, 7},   {u"StatusBar1"_s, 1, 4}};
    for (const auto& [name, first, last] : arrays)
        for (int index = first; index <= last; ++index)
            wanted << u"%1(%2)"_s.arg(name).arg(index);
    for (const QString& name : wanted)
        EXPECT_NE(form->findChild<QWidget*>(name), nullptr) << name.toStdString();
    EXPECT_EQ(text(u"Label4(1)"_s), u"01的概率:"_s);
    EXPECT_EQ(text(u"Label4(38)"_s), u"38的概率:"_s);
    EXPECT_EQ(text(u"Label7"_s), u"红球机选:"_s);
    EXPECT_EQ(text(u"Label118"_s), u"红球预测:"_s);
    EXPECT_EQ(text(u"Label13(7)"_s), u"7位走势"_s);
    EXPECT_EQ(text(u"Label9(0)"_s), u"拖:"_s);
    EXPECT_EQ(text(u"Label9(1)"_s), u"胆:"_s);
}

TEST_F(MainWindow, EveryRowOfTheMenuTableIsInTheMenus) {
    open();
    std::set<QString> names;
    for (const auto& row : mainwin::menuTable()) {
        if (row.kind == mainwin::RowKind::Separator)
            continue;
        EXPECT_TRUE(names.insert(row.objectName()).second) << row.objectName().toStdString();
        EXPECT_FALSE(row.caption.contains(u'%')) << row.caption.toStdString();
        const bool found = row.kind == mainwin::RowKind::Menu
                               ? form->findChild<QMenu*>(row.objectName()) != nullptr
                               : form->findChild<QAction*>(row.objectName()) != nullptr;
        EXPECT_TRUE(found) << row.objectName().toStdString();
    }
    for (int reds = 10; reds <= 18; ++reds)
        for (const int xy : {44, 54, 55, 64, 65, 76})
            EXPECT_TRUE(names.contains(u"mnuKjz%1%2"_s.arg(reds).arg(xy)));
    for (const auto* name : {"mnuKjz0876", "mnuKjz0955", "mnuKjz0976", "meuRtxz(8)", "meuRtxz(16)", "mnukzjz(8)",
                             "mnukzjz(18)", "mnuZb(3)", "mnuZb(6)", "mnuRtF66", "meuDanxuan(6)", "meuDanxuan(16)"})
        EXPECT_TRUE(names.contains(QString::fromLatin1(name))) << name;
}

TEST_F(MainWindow, CaptionsAreTheSystemsTexts) {
    open();
    const std::pair<QString, QString> wanted[] = {{u"mnuSelect"_s, u"选号管理(&T)"_s},
                                                  {u"meuCol"_s, u"摇奖控制(&O)"_s},
                                                  {u"mnuHolmag"_s, u"历史管理(&H)"_s},
                                                  {u"meuWid"_s, u"功能窗口(&D)"_s},
                                                  {u"mnuSl"_s, u"组号方式(&M)"_s},
                                                  {u"mnuUserset"_s, u"用户设置(&S)"_s},
                                                  {u"mnuBoun"_s, u"附赠工具(&B)"_s},
                                                  {u"meuHlp"_s, u"帮助说明(&H)"_s},
                                                  {u"meuS(28)"_s, u"红球28选6(&E)"_s},
                                                  {u"meuS(38)"_s, u"红球38选6(&G)"_s},
                                                  {u"mnuBlue(12)"_s, u"蓝球12选1(&W)"_s},
                                                  {u"mnuBlue(18)"_s, u"蓝球18选1(&B)"_s},
                                                  {u"mnuKjz1855"_s, u"红球中5保5(&V)"_s},
                                                  {u"meuSpd8"_s, u"无穷大(&I)"_s},
                                                  {u"mnuWbInq"_s, u"6红+1蓝文本组合查询(&W)"_s},
                                                  {u"mnuMilt"_s, u"多注单选摇奖设置(&M)"_s}};
    for (const auto& [name, shown] : wanted)
        EXPECT_EQ(caption(name), shown);
    EXPECT_EQ(control(*form, u"Command43"_s)->toolTip(), u"放弃本次正在进行的输入操作"_s);
    EXPECT_EQ(control(*form, u"Command45"_s)->toolTip(), u"必须选择8个以上的数才能返回摇奖窗口进行摇奖"_s);
}

TEST_F(MainWindow, TheToolbarHasItsButtonsInOrder) {
    open();
    QStringList order;
    for (const QAction* button : form->findChild<QToolBar*>(u"Toolbar1"_s)->actions()) {
        order << (button->isSeparator() ? u"|"_s : button->objectName());
        EXPECT_TRUE(button->isSeparator() || !button->icon().isNull());
        EXPECT_TRUE(button->isSeparator() || !button->icon().pixmap(24).isNull())
            << button->objectName().toStdString();
    }
    EXPECT_EQ(order.join(u' '), u"Toolbar1(sta) Toolbar1(sup) Toolbar1(rst) | Toolbar1(ls) Toolbar1(fx) Toolbar1(zj) "
                                "Toolbar1(yk) Toolbar1(gz) | Toolbar1(help) | Toolbar1(ext)"_s);
    EXPECT_EQ(action(*form, u"Toolbar1(sta)"_s)->toolTip(), u"开始摇奖分析"_s);
    EXPECT_EQ(action(*form, u"Toolbar1(ext)"_s)->toolTip(), u"退出本程序"_s);
}

TEST_F(MainWindow, WhatNobodyRegisteredIsDisabledInEveryState) {
    addDraw(kFirstDraw);
    open(false);
    pad.selectAllReds();
    pad.selectAllBlues();
    const std::set<QString> own{u"meuS"_s, u"mnuBlue"_s, u"mnuPtset"_s};
    for (const auto& row : mainwin::menuTable()) {
        if (row.kind == mainwin::RowKind::Menu || row.kind == mainwin::RowKind::Separator)
            continue;
        const bool expected = own.contains(row.name) || row.name.startsWith(u"meuSpd");
        EXPECT_EQ(entryEnabled(row.objectName()), expected) << row.objectName().toStdString();
    }
    EXPECT_FALSE(action(*form, u"Toolbar1(zj)"_s)->isEnabled());
    EXPECT_TRUE(action(*form, u"Toolbar1(ext)"_s)->isEnabled());
}

TEST_F(MainWindow, AnEmptyHistoryDisablesItsCommands) {
    open();
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 1 历史号码:"_s);
    for (const auto& name : {u"Command44"_s, u"Command48"_s})
        EXPECT_FALSE(control(*form, name)->isEnabled());
    for (const auto& name : {u"mnuDelast"_s, u"mnuSy"_s, u"Toolbar1(ls)"_s})
        EXPECT_FALSE(entryEnabled(name)) << name.toStdString();
    auto* grid = controlAs<toolkit::FlexGrid>(*form, u"MSFlexGrid1"_s);
    EXPECT_EQ(grid->model()->rowCount(), 0);
    EXPECT_EQ(grid->model()->columnCount(), 9);
}

TEST_F(MainWindow, AFirstDrawEnablesThem) {
    open();
    addDraw(kFirstDraw);
    form->showHistory();
    for (const auto& name : {u"Command44"_s, u"Command48"_s})
        EXPECT_TRUE(control(*form, name)->isEnabled());
    for (const auto& name : {u"mnuDelast"_s, u"mnuSy"_s, u"Toolbar1(ls)"_s})
        EXPECT_TRUE(entryEnabled(name)) << name.toStdString();
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2003002 历史号码:"_s);
}

TEST_F(MainWindow, TheGridShowsEachDrawAndStandsOnTheLast) {
    for (int issue = 1; issue <= 500; ++issue)
        addDraw({2003000 + issue, 1, 2, 3, 4, 5, 6, 7});
    addDraw(kSecondDraw);
    open();
    auto* grid = controlAs<toolkit::FlexGrid>(*form, u"MSFlexGrid1"_s);
    const QAbstractItemModel& model = *grid->model();
    const QStringList headings{u"序数"_s, u"期号"_s, u"红1"_s, u"红2"_s, u"红3"_s,
                               u"红4"_s,  u"红5"_s,  u"红6"_s, u"蓝球"_s};
    for (int column = 0; column < 9; ++column)
        EXPECT_EQ(model.headerData(column, Qt::Horizontal).toString(), headings[column]);
    QStringList cells;
    QList<int> values;
    for (int column = 0; column < 9; ++column) {
        cells << model.index(500, column).data().toString();
        values << model.index(500, column).data(Qt::UserRole).toInt();
    }
    EXPECT_EQ(cells,
              (QStringList{u"501"_s, u"2003002"_s, u"04"_s, u"09"_s, u"19"_s, u"20"_s, u"21"_s, u"26"_s, u"12"_s}));
    EXPECT_EQ(values, (QList<int>{501, 2003002, 4, 9, 19, 20, 21, 26, 12}));
    EXPECT_EQ(model.index(0, 0).data(Qt::ForegroundRole).value<QColor>(), QColor(255, 0, 255));
    EXPECT_EQ(model.index(0, 2).data(Qt::ForegroundRole).value<QColor>(), QColor(255, 0, 0));
    EXPECT_EQ(model.index(0, 8).data(Qt::ForegroundRole).value<QColor>(), QColor(0, 0, 255));
    QTest::qWait(0);
    EXPECT_GE(grid->rowAt(grid->viewport()->height() / 2), 480);
}

TEST_F(MainWindow, TheHistoryModelKeepsTheRulesOfModels) {
    mainwin::HistoryModel model(history);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    addDraw(kFirstDraw);
    EXPECT_EQ(model.rowCount(), 0) << "not before it is told";
    model.reload();
    EXPECT_EQ(model.rowCount(), 1);
}

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
    const QSignalSpy changed(form.get(), &Form1::ruleChanged);
    trigger(*form, u"meuS(29)"_s);
    EXPECT_EQ(workspace.Bitnum, 29);
    EXPECT_EQ(stored.at(u"Initial/Bitnum"_s), u"29"_s);
    EXPECT_EQ(stored.count(u"Initial/BitnumB"_s), 0U) << "only what was changed is written";
    EXPECT_TRUE(action(*form, u"meuS(29)"_s)->isChecked());
    EXPECT_FALSE(action(*form, u"meuS(33)"_s)->isChecked());
    EXPECT_FALSE(ball(u"Command1(30)"_s).isVisible());
    EXPECT_EQ(text(u"Label100"_s), QString()) << "a number that is not shown is not selected";
    trigger(*form, u"mnuBlue(18)"_s);
    EXPECT_EQ(stored.at(u"Initial/BitnumB"_s), u"18"_s);
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

TEST_F(MainWindow, ThePadsButtonsWork) {
    open();
    EXPECT_FALSE(control(*form, u"Command42"_s)->isEnabled());
    press(*form, u"Command41"_s);
    EXPECT_EQ(text(u"Label5"_s), u"33"_s);
    press(*form, u"Command42"_s);
    EXPECT_EQ(text(u"Label5"_s), u"0"_s);
    EXPECT_FALSE(control(*form, u"Command42"_s)->isEnabled());
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

TEST_F(MainWindow, TheBetMenuCountsRedsWithoutBankers) {
    struct Case {
        int reds;
        int bankers;
        std::set<QString> enabled;
    };
    const Case cases[] = {
        {0, 0, {}},
        {6, 0, {}},
        {7, 0, {u"meuAgn"_s, u"mnuLst"_s}},
        {8, 0, {u"meuAgn"_s, u"mnuLst"_s, u"mnu8Lst"_s}},
        {6, 2, {u"mnuDantuo"_s, u"mnuDtxj"_s}},
        {7, 1, {u"meuAgn"_s, u"mnuLst"_s, u"mnuDantuo"_s, u"mnuDtxj"_s, u"mnuDtlst"_s}},
        {8, 1, {u"meuAgn"_s, u"mnuLst"_s, u"mnuDantuo"_s, u"mnuDtxj"_s, u"mnuDtlst"_s, u"mnu8Lst"_s, u"mnuDt8lst"_s}},
    };
    open();
    for (const Case& state : cases) {
        SCOPED_TRACE(u"%1 reds, %2 bankers"_s.arg(state.reds).arg(state.bankers).toStdString());
        pad.clearReds();
        for (int number = 1; number <= state.reds; ++number)
            pad.pressRed(number);
        for (int number = 20; number < 20 + state.bankers; ++number) {
            pad.pointAtRed(number);
            pad.mnuDan();
        }
        openMenu(u"mnuSl"_s);
        for (const auto& name :
             {u"meuAgn"_s, u"mnuLst"_s, u"mnu8Lst"_s, u"mnuDantuo"_s, u"mnuDtxj"_s, u"mnuDtlst"_s, u"mnuDt8lst"_s})
            EXPECT_EQ(entryEnabled(name), state.enabled.contains(name)) << name.toStdString();
    }
}

TEST_F(MainWindow, TheBetMenuNamesTheFormOfTheBets) {
    const std::pair<QString, QString> plain[] = {{u"meuAgn"_s, u"红球摇奖复选选择（6红球排列）(&M)"_s},
                                                 {u"mnuDantuo"_s, u"红球摇奖胆拖选择（6红球排列）(&T)"_s},
                                                 {u"mnuRt"_s, u"红球基本旋转矩阵（6红球排列）(&R)"_s},
                                                 {u"mnuExra"_s, u"红球扩展旋转矩阵（6红球排列）(&E)"_s},
                                                 {u"mnuQnjz"_s, u"红球超级旋转矩阵（6红球排列）(&A)"_s},
                                                 {u"mnuDtxj"_s, u"红球胆拖旋转矩阵（6红球排列）(&D)"_s},
                                                 {u"mnuFuxj"_s, u"红球复7式旋转矩阵（7红球排列）(&F)"_s},
                                                 {u"mnuLst"_s, u"红球复选组合排列（6红球排列）(&L)"_s},
                                                 {u"mnuDtlst"_s, u"红球胆拖组合排列（6红球排列）(&S)"_s}};
    open();
    openMenu(u"mnuSl"_s);
    for (const auto& [name, shown] : plain)
        EXPECT_EQ(caption(name), shown);
    pad.pressBlue(1);
    openMenu(u"mnuSl"_s);
    EXPECT_EQ(caption(u"mnuLst"_s), u"红球复选组合排列（6红+1蓝排列）(&L)"_s);
    EXPECT_EQ(caption(u"mnuDtlst"_s), u"红球胆拖组合排列（6红+1蓝排列）(&S)"_s);
    EXPECT_EQ(caption(u"mnuFuxj"_s), u"红球复7式旋转矩阵（7红+1蓝排列）(&F)"_s);
    for (const auto& [name, shown] : plain)
        EXPECT_NE(caption(name), shown);
    EXPECT_EQ(caption(u"mnu8Lst"_s), u"红球复选7复式排列（7红球排列）(&G)"_s) << "no blue changes it";
}

TEST_F(MainWindow, ButtonsActAsTheirMenuEntries) {
    addDraw(kFirstDraw);
    open();
    for (const auto& name : {u"cmdRead"_s, u"Command43"_s, u"Command44"_s, u"Command48"_s})
        press(*form, name);
    for (const auto& name :
         {u"Toolbar1(ls)"_s, u"Toolbar1(zj)"_s, u"Toolbar1(yk)"_s, u"Toolbar1(gz)"_s, u"meuRtxz(9)"_s})
        trigger(*form, name);
    EXPECT_EQ(ran, (std::vector<QString>{u"mnuRed"_s, u"mnuNewol"_s, u"mnuDelast"_s, u"mnuSy"_s, u"mnuSy"_s,
                                         u"mnuzhInq"_s, u"meuRepot"_s, u"meuPlc"_s, u"meuRtxz(9)"_s}));
}

TEST_F(MainWindow, OfTheStabilityItemsOneIsCheckedAndItsFactorSaved) {
    open();
    EXPECT_TRUE(action(*form, u"meuSpd2"_s)->isChecked()) << "100 without a setting";
    trigger(*form, u"meuSpd10"_s);
    EXPECT_EQ(stored.at(u"Initial/Wd"_s), u"2500"_s);
    EXPECT_EQ(form->stability.Stabletarget, 3500);
    EXPECT_FALSE(action(*form, u"meuSpd2"_s)->isChecked());
    trigger(*form, u"meuSpd8"_s);
    EXPECT_EQ(stored.at(u"Initial/Wd"_s), u"8000"_s);
    EXPECT_EQ(form->stability.Stabletarget, 30000);
    EXPECT_TRUE(action(*form, u"meuSpd8"_s)->isChecked());
    open(); // the endless factor comes back as an ordinary one that no item shows
    EXPECT_EQ(form->stability.Stabletarget, 11200);
    for (const auto& item : mainwin::kStabilityItems)
        EXPECT_FALSE(action(*form, item.name.toString())->isChecked());
}

TEST(Stability, TheTargetOfALoadedFactorIsThatOfItsItem) {
    for (const auto& item : mainwin::kStabilityItems) {
        mainwin::Stability stability;
        stability.load(item.wd);
        EXPECT_EQ(stability.Stabletarget, item.wd == 8000 ? 11200 : item.target) << item.wd;
    }
    EXPECT_FALSE(mainwin::checkedItem(8000));
    EXPECT_FALSE(mainwin::checkedItem(4000));
    EXPECT_EQ(mainwin::checkedItem(30000)->wd, 8000);
}

TEST_F(MainWindow, ThePrintSettingAsksWithTheStoredNumber) {
    stored[u"setup/dayin"_s] = u"7"_s;
    open();
    EXPECT_EQ(form->Printrow, 7);
    const ModalScript script({{u"InputBox"_s,
                               [](QWidget& dialog) {
                                   EXPECT_EQ(dialog.windowTitle(), u"打印设置"_s);
                                   EXPECT_EQ(dialog.findChild<QLabel*>()->text(), u"请输入打印的时候每一行的注数"_s);
                                   EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), u"7"_s);
                                   type(u"12注"_s)(dialog);
                               }},
                              {u"InputBox"_s, type(u"abc"_s)}});
    trigger(*form, u"mnuPtset"_s);
    EXPECT_EQ(stored.at(u"setup/dayin"_s), u"12"_s);
    EXPECT_EQ(form->Printrow, 12);
    trigger(*form, u"mnuPtset"_s);
    EXPECT_EQ(stored.at(u"setup/dayin"_s), u"0"_s) << "whatever is answered is stored as a number";
}

TEST_F(MainWindow, SharesAreShownByNumber) {
    history.Gailvred[1] = 3.034;
    history.GailvBlue[16] = 6.256;
    open();
    EXPECT_EQ(text(u"Label6(1)"_s), u"3.03%"_s);
    EXPECT_EQ(text(u"LabelBlueShare(16)"_s), u"6.26%"_s);
}

TEST(ShareBar, IsHalfLongAtTheExpectedShareAndGrowsThreeAPoint) {
    EXPECT_DOUBLE_EQ(mainwin::shareBarLength(4.0, 25), 3);
    EXPECT_DOUBLE_EQ(mainwin::shareBarLength(4.5, 25), 4.5);
    EXPECT_DOUBLE_EQ(mainwin::shareBarLength(0, 25), 0);
    EXPECT_DOUBLE_EQ(mainwin::shareBarLength(100, 25), 6);
}

TEST_F(MainWindow, ClosingTellsTheProgramAndRemembersThePlace) {
    open();
    const QSignalSpy closed(form.get(), &Form1::closed);
    form->resize(1300, 790);
    trigger(*form, u"Toolbar1(ext)"_s);
    EXPECT_EQ(closed.count(), 1);
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(stored[u"Place/Form1"_s].isEmpty());
}

TEST_F(MainWindow, NothingIsCutOffAtTheSmallestUsefulSize) {
    workspace.Bitnum = 38;
    workspace.BitnumB = 18;
    open();
    form->resize(1280, 800);
    pad.selectAllReds();
    pad.selectAllBlues();
    QTest::qWait(0);
    EXPECT_LE(form->minimumSizeHint().width(), 1280);
    EXPECT_EQ(form->width(), 1280);
    const auto widgets = form->centralWidget()->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!widget->isVisible() || widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_"))
            continue;
        const bool control =
            widget->inherits("QAbstractButton") || widget->inherits("QLabel") || widget->inherits("QLineEdit");
        if (!control)
            continue;
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << widget->objectName().toStdString();
        const QWidget* above = widget->parentWidget();
        EXPECT_TRUE(above->rect().contains(widget->geometry())) << widget->objectName().toStdString();
    }
    for (const QScrollArea* area : form->findChildren<QScrollArea*>())
        EXPECT_LE(area->widget()->width(), area->viewport()->width()) << area->objectName().toStdString();
}

TEST_F(MainWindow, FitsASmallerScreenByScrolling) {
    open();
    EXPECT_LE(form->minimumSizeHint().height(), 600);
}

} // namespace
