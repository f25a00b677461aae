#include <QHelpEvent>
#include <QToolTip>

#include "windows/main_window_support.h"

namespace main_window_tests {
namespace {

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

TEST_F(MainWindow, WhatIsDisabledSaysWhatItWaitsFor) {
    open();
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3});
    const std::pair<QString, QString> wanted[] = {
        {u"mnuLst"_s, u"还需：4 红"_s},    {u"mnuDtlst"_s, u"还需：4 红、1 胆"_s},
        {u"mnu8Lst"_s, u"还需：5 红"_s},   {u"mnuDelast"_s, u"还没有历史：先读取或输入"_s},
        {u"meuRtxz(9)"_s, u"要选 9 红"_s}, {u"meuSup"_s, u"摇奖没有进行"_s}};
    for (const auto& [name, tip] : wanted)
        EXPECT_EQ(action(*form, name)->toolTip(), tip) << name.toStdString();
    EXPECT_EQ(form->findChild<QMenu*>(u"mnuDantuo"_s)->menuAction()->toolTip(), u"还需：1 胆"_s);
    EXPECT_EQ(control(*form, u"Command44"_s)->toolTip(), u"还没有历史：先读取或输入"_s);
    EXPECT_EQ(action(*form, u"Toolbar1(sta)"_s)->toolTip(), u"开始摇奖分析"_s) << "told texts stay";
    auto* start = form->findChild<QToolBar*>(u"Toolbar1"_s)->widgetForAction(action(*form, u"Toolbar1(sta)"_s));
    QHelpEvent asked(QEvent::ToolTip, start->rect().center(), start->mapToGlobal(start->rect().center()));
    QApplication::sendEvent(start, &asked);
    EXPECT_EQ(QToolTip::text(), u"开始摇奖分析\n还需：4 红"_s);
    QToolTip::hideText();
    addDraw(kFirstDraw);
    EXPECT_EQ(control(*form, u"Command44"_s)->toolTip(), QString());
}

TEST_F(MainWindow, AMenuWithoutAnEntryToChooseIsDisabled) {
    open(false);
    for (const auto& name : {u"mnuSelect"_s, u"mnuRedslt"_s, u"mnuSl"_s, u"mnuExra"_s, u"mnuBoun"_s})
        EXPECT_FALSE(entryEnabled(name)) << name.toStdString();
    for (const auto& name : {u"mnuUserset"_s, u"meuBit"_s, u"meuCol"_s, u"meuSpd"_s})
        EXPECT_TRUE(entryEnabled(name)) << name.toStdString();
    open();
    EXPECT_TRUE(entryEnabled(u"mnuSelect"_s));
    EXPECT_FALSE(entryEnabled(u"mnuRt"_s)) << "no wheel without reds";
    EXPECT_TRUE(entryEnabled(u"mnuQnjz"_s));
}

TEST_F(MainWindow, WhatNobodyRegisteredIsDisabledInEveryState) {
    addDraw(kFirstDraw);
    open(false);
    pad.selectAllReds();
    pad.selectAllBlues();
    const std::set<QString> own{u"meuS"_s,   u"mnuBlue"_s, u"mnuPtset"_s,   u"mnuName"_s, u"mnuLook"_s,
                                u"meuSta"_s, u"mnuMilt"_s, u"meuDanxuan"_s, u"mnuDtuo"_s};
    for (const auto& row : mainwin::menuTable()) {
        if (row.kind == mainwin::RowKind::Menu || row.kind == mainwin::RowKind::Separator)
            continue;
        const bool expected = own.contains(row.name) || row.name.startsWith(u"meuSpd");
        EXPECT_EQ(entryEnabled(row.objectName()), expected) << row.objectName().toStdString();
    }
    EXPECT_FALSE(action(*form, u"Toolbar1(zj)"_s)->isEnabled());
    EXPECT_TRUE(action(*form, u"Toolbar1(ext)"_s)->isEnabled());
}

TEST_F(MainWindow, TheBetMenuFollowsTheNumbersOnThePad) {
    open();
    const auto offered = [this] {
        QStringList names;
        for (const auto& name :
             {u"meuAgn"_s, u"mnuLst"_s, u"mnu8Lst"_s, u"mnuDantuo"_s, u"mnuDtxj"_s, u"mnuDtlst"_s, u"mnuDt8lst"_s})
            if (entryEnabled(name))
                names << name;
        return names;
    };
    EXPECT_EQ(offered(), QStringList());
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6});
    makeBanker(20);
    EXPECT_EQ(offered(), (QStringList{u"mnuDantuo"_s, u"mnuDtxj"_s})) << "the banker is none of the seven reds";
    press(*form, u"Command1(7)"_s);
    EXPECT_EQ(offered(), (QStringList{u"meuAgn"_s, u"mnuLst"_s, u"mnuDantuo"_s, u"mnuDtxj"_s, u"mnuDtlst"_s}));
    trigger(*form, u"mnuDtlst"_s);
    EXPECT_EQ(ran, std::vector<QString>{u"mnuDtlst"_s});
}

TEST_F(MainWindow, TheBetMenuNamesTheFormOfTheBets) {
    open();
    openMenu(u"mnuSl"_s);
    EXPECT_EQ(caption(u"mnuLst"_s), u"红球复选组合排列（6红球排列）(&L)"_s);
    press(*form, u"Command2(1)"_s);
    openMenu(u"mnuSl"_s);
    EXPECT_EQ(caption(u"mnuLst"_s), u"红球复选组合排列（6红+1蓝排列）(&L)"_s);
    EXPECT_EQ(caption(u"mnuFuxj"_s), u"红球复7式旋转矩阵（7红+1蓝排列）(&F)"_s) << "a menu";
    EXPECT_EQ(caption(u"mnu8Lst"_s), u"红球复选7复式排列（7红球排列）(&G)"_s) << "no blue changes it";
}

TEST_F(MainWindow, ButtonsActAsTheirMenuEntries) {
    addDraw(kFirstDraw);
    open();
    for (const auto& name : {u"cmdRead"_s, u"Command43"_s, u"Command44"_s, u"Command48"_s})
        press(*form, name);
    for (const auto& name : {u"Toolbar1(ls)"_s, u"Toolbar1(zj)"_s, u"Toolbar1(yk)"_s, u"Toolbar1(gz)"_s})
        trigger(*form, name);
    EXPECT_EQ(ran, (std::vector<QString>{u"mnuRed"_s, u"mnuNewol"_s, u"mnuDelast"_s, u"mnuSy"_s, u"mnuSy"_s,
                                         u"mnuzhInq"_s, u"meuRepot"_s, u"meuPlc"_s}));
}

TEST_F(MainWindow, OfTheStabilityItemsOneIsCheckedAndItsFactorSaved) {
    open();
    EXPECT_TRUE(action(*form, u"meuSpd2"_s)->isChecked()) << "100 without a setting";
    trigger(*form, u"meuSpd10"_s);
    EXPECT_EQ(stored(u"Initial/Wd"_s), u"2500"_s);
    EXPECT_EQ(simulator->stability.Stabletarget, 3500);
    EXPECT_FALSE(action(*form, u"meuSpd2"_s)->isChecked());
    trigger(*form, u"meuSpd8"_s);
    EXPECT_EQ(stored(u"Initial/Wd"_s), u"8000"_s);
    EXPECT_EQ(simulator->stability.Stabletarget, 30000);
    EXPECT_TRUE(action(*form, u"meuSpd8"_s)->isChecked());
    open(); // the endless factor comes back as an ordinary one that no item shows
    EXPECT_EQ(simulator->stability.Stabletarget, 11200);
    for (const auto& item : selection::kStabilityItems)
        EXPECT_FALSE(action(*form, item.name.toString())->isChecked());
}

TEST_F(MainWindow, ThePrintSettingAsksWithTheStoredNumber) {
    store(u"setup/dayin"_s, u"7"_s);
    open();
    EXPECT_EQ(workspaceDesk->Printrow, 7);
    const ModalScript script({{u"InputBox"_s,
                               [](QWidget& dialog) {
                                   EXPECT_EQ(dialog.windowTitle(), u"打印设置"_s);
                                   EXPECT_EQ(dialog.findChild<QLabel*>()->text(), u"请输入打印的时候每一行的注数"_s);
                                   EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), u"7"_s);
                                   type(u"12注"_s)(dialog);
                               }},
                              {u"InputBox"_s, [](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); }}});
    trigger(*form, u"mnuPtset"_s);
    EXPECT_EQ(stored(u"setup/dayin"_s), u"12"_s);
    EXPECT_EQ(workspaceDesk->Printrow, 12);
    trigger(*form, u"mnuPtset"_s);
    EXPECT_EQ(stored(u"setup/dayin"_s), u"0"_s) << "a cancelled prompt is stored as a number";
}

TEST_F(MainWindow, ThePrintSettingAsksAgainForANumberThatItCanTake) {
    open();
    const QString digits(400, u'9');
    for (const QString& wrong : {u"abc"_s, QString(), u"99999999999"_s, u"32768"_s, u"-1"_s, u"1E400"_s, digits}) {
        const ModalScript script({{u"InputBox"_s, type(wrong)},
                                  {u"MsgBox"_s,
                                   [](QWidget& box) {
                                       EXPECT_EQ(box.windowTitle(), u"输入错误"_s);
                                       test_support::answer(u"请输入数字"_s, QMessageBox::Ok)(box);
                                   }},
                                  {u"InputBox"_s, type(u"32767"_s)}});
        trigger(*form, u"mnuPtset"_s);
        EXPECT_EQ(script.left(), 0U) << wrong.toStdString();
        EXPECT_EQ(stored(u"setup/dayin"_s), u"32767"_s) << wrong.toStdString();
        EXPECT_EQ(workspaceDesk->Printrow, 32767);
    }
}

TEST_F(MainWindow, AStoredNumberThatIsNoneLeavesTheDefaultAndIsTold) {
    store(u"setup/dayin"_s, QString(400, u'9'));
    store(u"Initial/Wd"_s, u"-7"_s);
    open();
    EXPECT_EQ(workspaceDesk->Printrow, 5);
    EXPECT_EQ(simulator->stability.Wd, 0);
    const QStringList troubles = context->settings.troubles();
    ASSERT_EQ(troubles.size(), 1);
    EXPECT_TRUE(troubles.front().contains(u"dayin"_s)) << troubles.front().toStdString();
}

TEST_F(MainWindow, AWheelEntryIsOfferedForItsOwnCountOfReds) {
    open();
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_TRUE(entryEnabled(u"mnukzjz(9)"_s));
    EXPECT_FALSE(entryEnabled(u"meuRtxz(8)"_s));
    EXPECT_FALSE(entryEnabled(u"meuRtxz(10)"_s));
    trigger(*form, u"meuRtxz(9)"_s);
    EXPECT_EQ(ran, std::vector<QString>{u"meuRtxz(9)"_s});
    press(*form, u"Command45"_s);
    EXPECT_FALSE(entryEnabled(u"meuRtxz(9)"_s)) << "clearing the reds takes it back";
}

} // namespace
} // namespace main_window_tests
