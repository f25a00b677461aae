// 选号管理 in the whole program, with real clicks: saved selections, choosing by statistics, the selection template.
#include <QContextMenuEvent>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QSignalSpy>

#include "selection/ranked_numbers.h"
#include "windows/history_window_support.h"

namespace history_window_tests {
namespace {

using toolkit::DataGrid;

class SelectionWindows : public HistoryWindow {
  protected:
    void SetUp() override { enterAs(u"张三"_s); }

    sql::Database& numsave() { return *program->workspace.dbNumsave; }

    void pressNumbers(std::initializer_list<int> reds, std::initializer_list<int> blues) {
        for (const int red : reds)
            press(form(), u"Command1(%1)"_s.arg(red));
        for (const int blue : blues)
            press(form(), u"Command2(%1)"_s.arg(blue));
    }
    void makeBanker(int red) {
        program->pad.pointAtRed(red);
        program->pad.mnuDan();
    }
    void clear() {
        press(form(), u"Command45"_s);
        press(form(), u"Command145"_s);
    }
    std::string padText() {
        return (text(u"Label100"_s) + u" |"_s + text(u"Label8"_s) + u" |"_s + text(u"Label3"_s)).toStdString();
    }
    void save(const QString& name) {
        const ModalScript script({{u"InputBox"_s, type(name)}});
        trigger(form(), u"mnuSave"_s);
    }
    /// Names of the rows of a table, a comma behind each.
    std::string names(const char* table) {
        const sql::Rows rows = numsave().query("SELECT [Name] FROM [" + std::string(table) + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            all += rows.textAt(row, 0) + ',';
        return all;
    }

    static DataGrid& gridOf(QWidget& dialog, const QString& name) { return *controlAs<DataGrid>(dialog, name); }
    static QPoint middle(const DataGrid& grid, int row) {
        return grid.visualRect(grid.model()->index(row, 0)).center();
    }
    /// A double click on a row, as a user makes it.
    static ModalAction pickRow(const QString& grid, int row) {
        return [=](QWidget& dialog) {
            DataGrid& rows = gridOf(dialog, grid);
            ASSERT_LT(row, rows.model()->rowCount());
            QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, middle(rows, row));
            QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, middle(rows, row));
        };
    }
    /// Right press on a row, then an entry of what opens.
    static void chooseEntry(QWidget& dialog, const QString& grid, int row, const QString& entry) {
        DataGrid& rows = gridOf(dialog, grid);
        const QPoint place = middle(rows, row);
        QTest::mouseClick(rows.viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent asked(QContextMenuEvent::Mouse, place, rows.viewport()->mapToGlobal(place));
        QApplication::sendEvent(rows.viewport(), &asked);
        auto* menu = rows.findChild<QMenu*>(u"GridMenu"_s);
        ASSERT_NE(menu, nullptr);
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions())
            if (action->objectName() == entry)
                chosen = action;
        ASSERT_NE(chosen, nullptr) << entry.toStdString();
        ASSERT_TRUE(chosen->isEnabled());
        menu->close();
        chosen->trigger();
    }
    /// The picker, a right press in it and its entry; then the picker is closed without a pick.
    void inPicker(const QString& grid, int row, const QString& entry, std::vector<ModalStep> steps) {
        steps.insert(steps.begin(), {u"frmnmFind"_s, [=](QWidget& dialog) {
                                         chooseEntry(dialog, grid, row, entry);
                                         QTest::keyClick(&dialog, Qt::Key_Escape);
                                     }});
        const ModalScript script(std::move(steps));
        trigger(form(), u"mnuCall"_s);
    }
};

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

// Hits over the three draws: 10, 26 and 28 twice; 1 4 7 9 11 12 13 19 20 21 23 32 once.

ModalStep asksNumber(const QString& title, const QString& proposed, const QString& number) {
    return {u"InputBox"_s, [=](QWidget& box) {
                EXPECT_EQ(box.windowTitle(), title);
                EXPECT_EQ(box.findChild<QLineEdit*>()->text(), proposed);
                type(number)(box);
            }};
}
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
        EXPECT_EQ(entry.toolTip(), u"还需：历史号码"_s);
    }
    readText(kThreeDraws);
    for (const selection::RankedSelection& ranked : selection::kRankedSelections)
        EXPECT_TRUE(action(form(), ranked.command.toString())->isEnabled());
}

class TemplateWindows : public SelectionWindows {
  protected:
    std::string steps() { return dump(*program->workspace.dbFilnum, "Xhmb"); }
    static void mark(QWidget& dialog, std::initializer_list<int> kinds) {
        auto* list = controlAs<QListWidget>(dialog, u"List1"_s);
        Qt::KeyboardModifiers keys;
        for (const int kind : kinds) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, keys,
                              list->visualItemRect(list->item(kind)).center());
            keys = Qt::ControlModifier;
        }
    }
    static void markStep(QWidget& dialog, int row) {
        DataGrid& grid = gridOf(dialog, u"MSFlexGrid1"_s);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, middle(grid, row));
    }
    static QStringList shown(QWidget& dialog) {
        const QAbstractItemModel& model = *gridOf(dialog, u"MSFlexGrid1"_s).model();
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row)
            rows << model.index(row, 0).data().toString() + u' ' + model.index(row, 1).data().toString();
        return rows;
    }
    /// Opens the window, does something in it, closes it.
    void inWindow(const ModalAction& act, std::vector<ModalStep> steps = {}) {
        steps.insert(steps.begin(), {u"frmSltnum"_s, [act](QWidget& dialog) {
                                         act(dialog);
                                         QTest::keyClick(&dialog, Qt::Key_Escape);
                                     }});
        const ModalScript script(std::move(steps));
        trigger(form(), u"mnusltmoban"_s);
    }
};

TEST_F(TemplateWindows, StepsAreAddedDeletedAndReplayed) {
    readText(kThreeDraws);
    pressNumbers({30}, {3});
    save(u"甲"_s);
    clear();
    pressNumbers({26}, {});
    const QString prompt =
        u"请在下面填写需要选择的红球历史号码中高频（出现概率比较大）的号码的个数，软件将从高到底自动检索"
        "相应个数的号码并选号"_s;
    inWindow(
        [&](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"选号模板"_s);
            mark(dialog, {0, 1, 4});
            press(dialog, u"Command1"_s);
            EXPECT_EQ(shown(dialog),
                      (QStringList{u"红球多个高频号码 2"_s, u"红球多个低频号码 5"_s, u"添加历史选号号码 1"_s}));
            markStep(dialog, 1);
            press(dialog, u"Command2"_s);
            mark(dialog, {8});
            QTest::keyClick(controlAs<QListWidget>(dialog, u"List1"_s), Qt::Key_Return);
            EXPECT_EQ(shown(dialog),
                      (QStringList{u"红球多个高频号码 2"_s, u"添加历史选号号码 1"_s, u"蓝球遗漏低次号码 0"_s}));
            press(dialog, u"Command3"_s);
            EXPECT_EQ(controlAs<QLabel>(dialog, u"NoticeText"_s)->text(), u"执行了 3 步，新选 3 红、1 蓝。"_s);
        },
        {{u"InputBox"_s,
          [&](QWidget& box) {
              EXPECT_EQ(box.findChild<QLabel*>()->text(), prompt);
              asksNumber(u"高频选号"_s, u"10"_s, u"2"_s).act(box);
          }},
         asksNumber(u"低频选号"_s, u"10"_s, u"5"_s),
         {u"frmnmFind"_s, pickRow(u"MSFlexGrid1"_s, 0)},
         asksNumber(u"低次遗漏选号"_s, u"3"_s, u"0"_s)});
    EXPECT_EQ(steps(), "1\t0\t2\t\n3\t4\t1\t\n4\t8\t0\t\n");
    EXPECT_EQ(padText(), " 26 10 28 30 | | 16");
}

TEST_F(TemplateWindows, AStepWithASavedSelectionTellsItsReds) {
    pressNumbers({30, 4}, {3});
    save(u"甲"_s);
    for (const char* step : {"1,0,2", "2,4,1", "3,4,9"})
        program->workspace.dbFilnum->execute("INSERT INTO [Xhmb] ([Idx],[cmd],[nmb]) VALUES (" + std::string(step) +
                                             ")");
    const auto tips = [](QWidget& dialog) {
        const QAbstractItemModel& model = *gridOf(dialog, u"MSFlexGrid1"_s).model();
        QStringList all;
        for (int row = 0; row < model.rowCount(); ++row)
            all << model.index(row, 1).data(Qt::ToolTipRole).toString();
        return all;
    };
    inWindow([&](QWidget& dialog) {
        EXPECT_EQ(tips(dialog), (QStringList{QString(), u"红球： 30 4"_s, u"没有这次选号的红球"_s}));
    });
    numsave().execute("DROP TABLE [SAVE]");
    inWindow([&](QWidget& dialog) { EXPECT_EQ(tips(dialog)[1], u"读不到这次选号：数据库缺少数据表"_s); });
}

/// The names of what Tab reaches in a window, from a control on, once around; of options the marked one.
QStringList tabOrder(QWidget& dialog, const QString& first) {
    QStringList names;
    QWidget* start = control(dialog, first);
    QWidget* widget = start;
    do {
        if (widget->focusPolicy() & Qt::TabFocus && widget->isVisible())
            names << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != start);
    return names;
}

TEST_F(TemplateWindows, TabGoesThroughTheWindowsInReadingOrder) {
    readText(kThreeDraws);
    inWindow(
        [](QWidget& dialog) {
            EXPECT_EQ(tabOrder(dialog, u"List1"_s),
                      (QStringList{u"List1"_s, u"Command1"_s, u"MSFlexGrid1"_s, u"Command2"_s, u"Command3"_s}));
            mark(dialog, {4});
            press(dialog, u"Command1"_s);
        },
        {{u"frmnmFind"_s, [](QWidget& dialog) {
              EXPECT_EQ(tabOrder(dialog, u"MSFlexGrid1"_s),
                        (QStringList{u"MSFlexGrid1"_s, u"MSFlexGrid2"_s, u"cmdOK"_s, u"cmdCancel"_s}));
              cancel()(dialog);
          }}});
    const ModalScript script(
        {{u"InputBox"_s, type(u"1"_s)}, {u"frmXhfw"_s, [](QWidget& dialog) {
                                             EXPECT_EQ(tabOrder(dialog, u"Option1(0)"_s),
                                                       (QStringList{u"Option1(0)"_s, u"Text1(1)"_s, u"Text1(2)"_s,
                                                                    u"Text1(0)"_s, u"Command1"_s, u"cmdCancel"_s}));
                                             cancel()(dialog);
                                         }}});
    trigger(form(), u"mnuHihg"_s);
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

TEST_F(TemplateWindows, TheGridHasItsHeadingsAndEqualColumns) {
    inWindow([](QWidget& dialog) {
        const DataGrid& grid = gridOf(dialog, u"MSFlexGrid1"_s);
        EXPECT_EQ(grid.model()->headerData(0, Qt::Horizontal).toString(), u"执行步骤"_s);
        EXPECT_EQ(grid.model()->headerData(1, Qt::Horizontal).toString(), u"概率选号数目/遗漏最值"_s);
        EXPECT_EQ(grid.columnWidth(0), grid.columnWidth(1));
    });
}

TEST_F(TemplateWindows, AnEmptyTemplateOffersNothingThatCannotWork) {
    pressNumbers({30}, {3});
    inWindow([](QWidget& dialog) {
        for (const QString& name : {u"Command1"_s, u"Command2"_s, u"Command3"_s}) {
            EXPECT_FALSE(control(dialog, name)->isEnabled());
            EXPECT_FALSE(control(dialog, name)->toolTip().isEmpty());
        }
    });
    EXPECT_EQ(padText(), " 30 | | 3");
}

TEST_F(TemplateWindows, AStepThatIsGivenUpIsNotAddedAndThoseBeforeItStay) {
    inWindow(
        [](QWidget& dialog) {
            mark(dialog, {0, 4, 5});
            press(dialog, u"Command1"_s);
        },
        {{u"InputBox"_s, type(u"2"_s)}, {u"frmnmFind"_s, cancel()}});
    EXPECT_EQ(steps(), "1\t0\t2\t\n");
}

TEST_F(TemplateWindows, TheDeleteKeyTakesTheMarkedStep) {
    for (const char* step : {"1,0,2", "2,5,1"})
        program->workspace.dbFilnum->execute("INSERT INTO [Xhmb] ([Idx],[cmd],[nmb]) VALUES (" + std::string(step) +
                                             ")");
    inWindow([](QWidget& dialog) {
        markStep(dialog, 0);
        QTest::keyClick(&gridOf(dialog, u"MSFlexGrid1"_s), Qt::Key_Delete);
    });
    EXPECT_EQ(steps(), "2\t5\t1\t\n");
}

TEST_F(TemplateWindows, AReplayThatFailsIsToldAndThePadIsKept) {
    readText(kThreeDraws);
    pressNumbers({30}, {3});
    for (const char* step : {"1,0,2", "2,4,1"})
        program->workspace.dbFilnum->execute("INSERT INTO [Xhmb] ([Idx],[cmd],[nmb]) VALUES (" + std::string(step) +
                                             ")");
    numsave().execute("DROP TABLE [SAVE]");
    inWindow(
        [](QWidget& dialog) { press(dialog, u"Command3"_s); },
        {{u"MsgBox"_s, answer(u"模板没有执行：数据库缺少数据表。模板和主窗口的选号都没有改变，请排除原因后重试。"_s,
                              u"选号模板"_s, QMessageBox::Ok)}});
    EXPECT_EQ(padText(), " 30 | | 3");
}

TEST_F(TemplateWindows, ATableThatCannotBeReadEndsTheProgram) {
    program->workspace.dbFilnum->execute("DROP TABLE [Xhmb]");
    QSignalSpy ended(program.get(), &mainwin::Program::ended);
    {
        const ModalScript script(
            {{u"MsgBox"_s, answer(u"数据库读写错误,程序即将退出!"_s, u"数据库错误"_s, QMessageBox::Ok)}});
        trigger(form(), u"mnusltmoban"_s);
    }
    EXPECT_EQ(ended.count(), 1);
    EXPECT_EQ(program->workspace.dbFilnum, nullptr);
}

TEST_F(TemplateWindows, AFileThatIsClosedIsOpenedAgain) {
    program->workspace.dbFilnum->execute("INSERT INTO [Xhmb] ([Idx],[cmd],[nmb]) VALUES (7,0,2)");
    program->workspace.dbFilnum.reset();
    inWindow([](QWidget& dialog) { EXPECT_EQ(shown(dialog), QStringList{u"红球多个高频号码 2"_s}); });
}

} // namespace
} // namespace history_window_tests
