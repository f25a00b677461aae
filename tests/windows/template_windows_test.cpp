// The selection template in the whole program, with real clicks.
#include <QListWidget>
#include <QSignalSpy>

#include "windows/selection_window_support.h"

namespace history_window_tests {
namespace {

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
