// 选号管理 in the whole program, with real clicks: saved selections and choosing by statistics.
#include <QRadioButton>

#include "selection/ranked_numbers.h"
#include "windows/selection_window_support.h"

namespace history_window_tests {
namespace {

TEST_F(SelectionWindows, ASelectionIsSavedUnderItsNameAndCalledBack) {
    pressNumbers({22, 3, 17}, {16, 2});
    makeBanker(9);
    const ModalScript script(
        {{u"InputBox"_s,
          [](QWidget& box) {
              EXPECT_EQ(box.windowTitle(), u"选号结果保存"_s);
              EXPECT_EQ(box.findChild<QLabel*>()->text(), u"请输入本次选号结果的名字："_s);
              const QString proposed = box.findChild<QLineEdit*>()->text();
              EXPECT_TRUE(
                  QRegularExpression(uR"(^选号保存于\d\d-\d+-\d+日\d+\.\d+\.\d+秒$)"_s).match(proposed).hasMatch())
                  << proposed.toStdString();
              type(u"甲"_s)(box);
          }},
         {u"frmnmFind"_s, pickRow(u"MSFlexGrid1"_s, 0)}});
    trigger(form(), u"mnuSave"_s);
    EXPECT_EQ(names("SAVE") + names("SAVEdan") + names("SAVEB"), "甲,甲,甲,");
    clear();
    pressNumbers({30}, {7});
    trigger(form(), u"mnuCall"_s);
    EXPECT_EQ(padText(), " 22 3 17 | 9 | 16 2");
}

TEST_F(SelectionWindows, ASavedOneIsAddedToWhatIsChosen) {
    pressNumbers({22, 3}, {16});
    save(u"甲"_s);
    clear();
    pressNumbers({3, 30}, {7});
    const ModalScript script({{u"frmnmFind"_s, pickRow(u"MSFlexGrid2"_s, 0)}});
    trigger(form(), u"mnuCallAdd"_s);
    EXPECT_EQ(padText(), " 3 30 22 | | 7 16");
}

TEST_F(SelectionWindows, AnEmptyNameOrCancelSavesNothing) {
    pressNumbers({1}, {});
    const ModalScript script({{u"InputBox"_s, type(QString())}, {u"InputBox"_s, cancel()}});
    trigger(form(), u"mnuSave"_s);
    trigger(form(), u"mnuSave"_s);
    EXPECT_EQ(names("SAVE"), "");
}

TEST_F(SelectionWindows, ThePickerShowsBothTablesWithTheirHeadings) {
    pressNumbers({22, 3}, {16});
    makeBanker(9);
    save(u"甲<b>"_s);
    const ModalScript script(
        {{u"frmnmFind"_s, [](QWidget& dialog) {
              EXPECT_EQ(dialog.windowTitle(), u"调用历史选号号码"_s);
              const auto cells = [&](const QString& grid) {
                  const QAbstractItemModel& model = *gridOf(dialog, grid).model();
                  QStringList all;
                  for (int column = 0; column < model.columnCount(); ++column)
                      all << model.headerData(column, Qt::Horizontal).toString() + u'=' +
                                 model.index(0, column).data().toString();
                  return all.join(u' ').toStdString();
              };
              EXPECT_EQ(cells(u"MSFlexGrid1"_s), "选号保存名=甲<b> 选号个(不含胆)=2 选1红=22 选2红=3");
              EXPECT_EQ(cells(u"MSFlexGrid2"_s), "选号保存名=甲<b> 选号个(不含胆)=1 选1蓝=16");
              EXPECT_EQ(gridOf(dialog, u"MSFlexGrid1"_s).model()->index(0, 0).data(Qt::ToolTipRole).toString(),
                        u"<span>甲&lt;b&gt;</span>"_s);
              EXPECT_EQ(controlAs<QLabel>(dialog, u"Preview"_s)->text(), u"红： 22 3　胆： 9　蓝： 16"_s);
              QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
          }}});
    clear();
    trigger(form(), u"mnuCall"_s);
    EXPECT_EQ(padText(), " 22 3 | 9 | 16");
}

TEST_F(SelectionWindows, AnEmptyPickerSaysWhatToDoAndPicksNothing) {
    pressNumbers({5}, {6});
    const ModalScript script({{u"frmnmFind"_s, [](QWidget& dialog) {
                                   QWidget* ok = control(dialog, u"cmdOK"_s);
                                   EXPECT_FALSE(ok->isEnabled());
                                   EXPECT_FALSE(ok->toolTip().isEmpty());
                                   QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
                                   EXPECT_TRUE(dialog.isVisible());
                                   press(dialog, u"cmdCancel"_s);
                               }}});
    trigger(form(), u"mnuCall"_s);
    EXPECT_EQ(padText(), " 5 | | 6");
}

TEST_F(SelectionWindows, APickerThatIsCancelledChangesNothing) {
    pressNumbers({22}, {16});
    save(u"甲"_s);
    clear();
    pressNumbers({5}, {6});
    makeBanker(7);
    for (const QString& entry : {u"mnuCall"_s, u"mnuCallAdd"_s}) {
        const ModalScript script(
            {{u"frmnmFind"_s, [](QWidget& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); }}});
        trigger(form(), entry);
        EXPECT_EQ(padText(), " 5 | 7 | 6");
    }
}

TEST_F(SelectionWindows, DeletingAsksFirstAndTakesTheRowOfThatTableAlone) {
    for (const QString& name : {u"甲"_s, u"乙"_s})
        save(name);
    const auto asks = [](QMessageBox::StandardButton button) {
        return ModalStep{u"MsgBox"_s, [button](QWidget& dialog) {
                             auto* box = qobject_cast<QMessageBox*>(&dialog);
                             ASSERT_NE(box, nullptr);
                             EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::Cancel));
                             answer(u"确实要删除“甲”的红球吗？"_s, u"删除选号"_s, button)(dialog);
                         }};
    };
    inPicker(u"MSFlexGrid1"_s, 0, u"mnuDel"_s, {asks(QMessageBox::Cancel)});
    EXPECT_EQ(names("SAVE"), "甲,乙,");
    inPicker(u"MSFlexGrid1"_s, 0, u"mnuDel"_s, {asks(QMessageBox::Ok)});
    EXPECT_EQ(names("SAVE"), "乙,");
    EXPECT_EQ(names("SAVEB") + names("SAVEdan"), "甲,乙,甲,乙,");
    inPicker(u"MSFlexGrid2"_s, 1, u"mnuDelB"_s, {{u"MsgBox"_s, answer({}, QMessageBox::Ok)}});
    EXPECT_EQ(names("SAVE") + names("SAVEB"), "乙,甲,");
}

TEST_F(SelectionWindows, TheDeleteKeyAsksForTheMarkedRow) {
    for (const QString& name : {u"甲"_s, u"乙"_s})
        save(name);
    const ModalScript script({{u"frmnmFind"_s,
                               [](QWidget& dialog) {
                                   QTest::keyClick(&gridOf(dialog, u"MSFlexGrid1"_s), Qt::Key_Up);
                                   QTest::keyClick(&gridOf(dialog, u"MSFlexGrid1"_s), Qt::Key_Delete);
                                   EXPECT_EQ(gridOf(dialog, u"MSFlexGrid1"_s).model()->rowCount(), 1);
                                   QTest::keyClick(&dialog, Qt::Key_Escape);
                               }},
                              {u"MsgBox"_s, answer(u"确实要删除“甲”的红球吗？"_s, QMessageBox::Ok)}});
    trigger(form(), u"mnuCall"_s);
    EXPECT_EQ(names("SAVE"), "乙,");
}

TEST_F(SelectionWindows, RenamingGivesTheRowOfThatTableANewName) {
    save(u"甲"_s);
    const auto asks = [](const QString& name) {
        return ModalStep{u"InputBox"_s, [name](QWidget& box) {
                             EXPECT_EQ(box.windowTitle(), u"选号名字修改"_s);
                             EXPECT_EQ(box.findChild<QLabel*>()->text(), u"请输入本次修改的选号名字："_s);
                             EXPECT_TRUE(box.findChild<QLineEdit*>()->text().startsWith(u"选号名字修改于"_s));
                             type(name)(box);
                         }};
    };
    inPicker(u"MSFlexGrid1"_s, 0, u"mnuName"_s, {asks(u"红甲"_s)});
    inPicker(u"MSFlexGrid2"_s, 0, u"mnuNameB"_s, {asks(u"蓝甲"_s)});
    inPicker(u"MSFlexGrid2"_s, 0, u"mnuNameB"_s, {asks(QString())});
    EXPECT_EQ(names("SAVE") + names("SAVEB") + names("SAVEdan"), "红甲,蓝甲,甲,");
}

TEST_F(SelectionWindows, AnyNameCanBeSavedAndOneWithQuotesIsRefusedInWords) {
    const QString quotes = u"a\" OR \"a\" = \"a"_s;
    pressNumbers({8}, {9});
    for (const QString& name : {u"甲"_s, quotes, QString(300, u'长'), u"🎱好运"_s})
        save(name);
    const std::string all = names("SAVE");
    EXPECT_EQ(all, "甲," + quotes.toStdString() + ',' + std::string(QString(255, u'长').toUtf8()) + ",🎱好运,");
    const ModalStep refused{
        u"MsgBox"_s,
        answer(u"选号没有删除：名字中有双引号。保存的选号都没有改变，仍可以调用。取新名字时请不要用双引号。"_s,
               u"调用历史选号号码"_s, QMessageBox::Ok)};
    inPicker(u"MSFlexGrid1"_s, 1, u"mnuDel"_s, {{u"MsgBox"_s, answer({}, QMessageBox::Ok)}, refused});
    EXPECT_EQ(names("SAVE"), all);
    inPicker(u"MSFlexGrid1"_s, 2, u"mnuDel"_s, {{u"MsgBox"_s, answer({}, QMessageBox::Ok)}});
    inPicker(u"MSFlexGrid1"_s, 2, u"mnuDel"_s, {{u"MsgBox"_s, answer({}, QMessageBox::Ok)}});
    EXPECT_EQ(names("SAVE"), "甲," + quotes.toStdString() + ',');
    clear();
    const ModalScript script({{u"frmnmFind"_s, pickRow(u"MSFlexGrid1"_s, 1)}});
    trigger(form(), u"mnuCall"_s);
    EXPECT_EQ(padText(), " 8 | | 9");
}

TEST_F(SelectionWindows, AStoreThatFailsIsToldAndThePadIsKept) {
    pressNumbers({8, 1}, {9});
    numsave().execute("DROP TABLE [SAVEB]");
    const ModalScript script(
        {{u"InputBox"_s, type(u"甲"_s)},
         {u"MsgBox"_s,
          answer(u"这次选号没有保存：数据库缺少数据表。主窗口的选号和已保存的选号都没有改变，请排除原因后重试。"_s,
                 u"选号结果保存"_s, QMessageBox::Ok)},
         {u"MsgBox"_s, answer(u"读不到保存的选号：数据库缺少数据表。主窗口的选号没有改变，请排除原因后重试。"_s,
                              u"调用历史选号号码"_s, QMessageBox::Ok)}});
    trigger(form(), u"mnuSave"_s);
    trigger(form(), u"mnuCall"_s);
    EXPECT_EQ(names("SAVE") + names("SAVEdan"), "");
    EXPECT_EQ(padText(), " 8 1 | | 9");
}

TEST_F(SelectionWindows, WhatIsSavedIsThereAtTheNextStart) {
    pressNumbers({8, 1}, {9});
    save(u"甲"_s);
    enterAgain();
    const ModalScript script({{u"frmnmFind"_s, pickRow(u"MSFlexGrid1"_s, 0)}});
    trigger(form(), u"mnuCall"_s);
    EXPECT_EQ(padText(), " 8 1 | | 9");
}

TEST_F(SelectionWindows, SeveralMarkedRowsCanBeCopiedAndNotPicked) {
    for (const QString& name : {u"甲"_s, u"乙"_s})
        save(name);
    const ModalScript script({{u"frmnmFind"_s, [](QWidget& dialog) {
                                   DataGrid& blues = gridOf(dialog, u"MSFlexGrid2"_s);
                                   QTest::mouseClick(blues.viewport(), Qt::LeftButton, {}, middle(blues, 0));
                                   EXPECT_TRUE(control(dialog, u"cmdOK"_s)->isEnabled());
                                   QTest::keyClick(&gridOf(dialog, u"MSFlexGrid1"_s), Qt::Key_A, Qt::ControlModifier);
                                   EXPECT_FALSE(control(dialog, u"cmdOK"_s)->isEnabled());
                                   QTest::keyClick(&gridOf(dialog, u"MSFlexGrid1"_s), Qt::Key_Delete);
                                   cancel()(dialog);
                               }}});
    trigger(form(), u"mnuCall"_s);
    EXPECT_EQ(names("SAVE"), "甲,乙,");
}

// Hits over the three draws: 10, 26 and 28 twice; 1 4 7 9 11 12 13 19 20 21 23 32 once.

ModalStep takesRange(const ModalAction& set = {}) {
    return {u"frmXhfw"_s, [set](QWidget& dialog) {
                if (set)
                    set(dialog);
                press(dialog, u"Command1"_s);
            }};
}

TEST_F(SelectionWindows, TheMostAndTheLeastFrequentArePressed) {
    readText(kThreeDraws);
    const ModalScript script({asksNumber(u"高频选号"_s, u"10"_s, u"4"_s), takesRange(),
                              asksNumber(u"低频选号"_s, u"10"_s, u"2"_s), takesRange(),
                              asksNumber(u"高频选号"_s, u"10"_s, u"2"_s), takesRange(),
                              asksNumber(u"低频选号"_s, u"10"_s, u"1"_s), takesRange()});
    trigger(form(), u"mnuHihg"_s);
    EXPECT_EQ(padText(), " 10 26 28 1 | |");
    trigger(form(), u"mnuLow"_s);
    EXPECT_EQ(padText(), " 10 26 28 1 2 3 | |");
    trigger(form(), u"mnuHihgB"_s);
    trigger(form(), u"mnuLowB"_s);
    EXPECT_EQ(padText(), " 10 26 28 1 2 3 | | 11 12 1");
}

TEST_F(SelectionWindows, ARangeIsTakenFromItsBoxes) {
    readText(kThreeDraws);
    const auto issues = [](QWidget& dialog) {
        EXPECT_EQ(controlAs<QLineEdit>(dialog, u"Text1(0)"_s)->text(), u"100"_s);
        EXPECT_EQ(controlAs<QLineEdit>(dialog, u"Text1(1)"_s)->text(), u"2003001"_s);
        EXPECT_EQ(controlAs<QLineEdit>(dialog, u"Text1(2)"_s)->text(), u"2003003"_s);
        EXPECT_TRUE(controlAs<QRadioButton>(dialog, u"Option1(0)"_s)->isChecked());
        press(dialog, u"Option1(1)"_s);
        typeInto(dialog, u"Text1(2)"_s, u"2003001"_s);
        EXPECT_EQ(controlAs<QLabel>(dialog, u"RangeCount"_s)->text(), u"检索 1 期"_s);
    };
    const auto latest = [](QWidget& dialog) {
        typeInto(dialog, u"Text1(0)"_s, u"1"_s); // chooses its option by itself
        EXPECT_TRUE(controlAs<QRadioButton>(dialog, u"Option1(2)"_s)->isChecked());
    };
    const ModalScript script(
        {{u"InputBox"_s, type(u"6"_s)}, takesRange(issues), {u"InputBox"_s, type(u"1"_s)}, takesRange(latest)});
    trigger(form(), u"mnuHihg"_s);
    EXPECT_EQ(padText(), " 10 11 12 13 26 28 | |");
    trigger(form(), u"mnuHihgB"_s);
    EXPECT_EQ(padText(), " 10 11 12 13 26 28 | | 16");
}

TEST_F(SelectionWindows, ARangeWithoutADrawCannotBeTakenAndClosingTheWindowChoosesNothing) {
    readText(kThreeDraws);
    const ModalScript script({{u"InputBox"_s, type(u"6"_s)}, {u"frmXhfw"_s, [](QWidget& dialog) {
                                                                  press(dialog, u"Option1(2)"_s);
                                                                  typeInto(dialog, u"Text1(0)"_s, u"0"_s);
                                                                  QWidget* ok = control(dialog, u"Command1"_s);
                                                                  EXPECT_FALSE(ok->isEnabled());
                                                                  EXPECT_EQ(ok->toolTip(),
                                                                            u"这个范围内没有历史号码"_s);
                                                                  press(dialog, u"Option1(0)"_s);
                                                                  EXPECT_TRUE(ok->isEnabled());
                                                                  QTest::keyClick(&dialog, Qt::Key_Escape);
                                                              }}});
    trigger(form(), u"mnuHihg"_s);
    EXPECT_EQ(padText(), " | |");
}

TEST_F(SelectionWindows, AbsenceIsAskedForItsDrawsAndHasNoRange) {
    readText(kThreeDraws);
    const ModalScript script({asksNumber(u"高次遗漏选号"_s, u"6"_s, u"一"_s),
                              {u"MsgBox"_s, answer(u"请输入数字"_s, u"输入错误"_s, QMessageBox::Ok)},
                              asksNumber(u"高次遗漏选号"_s, u"6"_s, u"4"_s),
                              asksNumber(u"低次遗漏选号"_s, u"3"_s, u"0"_s),
                              asksNumber(u"高次遗漏选号"_s, u"8"_s, u"2"_s),
                              asksNumber(u"低次遗漏选号"_s, u"3"_s, u"1"_s),
                              {u"InputBox"_s, cancel()}});
    trigger(form(), u"mnuYHigh"_s); // nothing has been absent for four draws of three
    EXPECT_EQ(padText(), " | |");
    trigger(form(), u"mnuYLow"_s);
    EXPECT_EQ(padText(), " 1 7 10 23 28 32 | |");
    trigger(form(), u"mnuYHighB"_s);
    EXPECT_EQ(padText(), " 1 7 10 23 28 32 | | 1 2 3 4 5 6 7 8 9 10 11 13 14 15");
    trigger(form(), u"mnuYLowB"_s);
    EXPECT_EQ(padText(), " 1 7 10 23 28 32 | | 1 2 3 4 5 6 7 8 9 10 11 13 14 15 12 16");
    trigger(form(), u"mnuYLow"_s);
    EXPECT_EQ(text(u"Label100"_s), u" 1 7 10 23 28 32"_s);
}

TEST_F(SelectionWindows, WithoutAHistoryTheStatisticsAreDisabledAndSayWhy) {
    for (const selection::RankedSelection& ranked : selection::kRankedSelections) {
        const QAction& entry = *action(form(), ranked.command.toString());
        EXPECT_FALSE(entry.isEnabled());
        EXPECT_EQ(entry.toolTip(), u"还没有历史：先读取或输入"_s);
    }
    for (const QString& name : {u"mnuRedslt"_s, u"mnuBluedslt"_s})
        EXPECT_EQ(form().findChild<QMenu*>(name)->menuAction()->toolTip(), u"还没有历史：先读取或输入"_s);
    readText(kThreeDraws);
    for (const selection::RankedSelection& ranked : selection::kRankedSelections)
        EXPECT_TRUE(action(form(), ranked.command.toString())->isEnabled());
}

} // namespace
} // namespace history_window_tests
