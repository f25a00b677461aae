// Typing, deleting, clearing and correcting draws in the main window, with real keys.
#include <QPushButton>

#include <QPushButton>

#include "windows/history_window_support.h"

namespace history_window_tests {
namespace {

const QString kErrorTitle = u"输入错误!!!"_s;
const QString kPlaceEmpty =
    u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04').请点'放弃输入'按钮重新进行输入!"_s;
const QString kOutOfRange = u"输入历史号的大小务必在当地的选号范围之内,请点'放弃输入'按钮重新进行输入!"
                            u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04')."_s;
const QString kRepeated = u"输入历史号务必不能重复,请点'放弃输入'按钮重新进行输入!"
                          u"若需输入个位数,请在前面加0(例如:欲输入'4',结果成为'_4'或'4_'错误,应为'04')."_s;
const QString kOutOfPlace = u"输入历史号的大小务必在当地的选号范围之内,并且按照由小到大的顺序排列."_s;

class HistoryEntry : public HistoryWindow {
  protected:
    void SetUp() override {
        enterAs(u"张三"_s);
        readText(kThreeDraws);
        ASSERT_EQ(program->book.history().Lsnum, 3);
    }
    ModalStep message(const QString& text, const QString& title) {
        return {u"MsgBox"_s, answer(text, title, QMessageBox::Ok)};
    }
    /// A click on a cell of the grid.
    void clickCell(int row, int column) {
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().visualRect(grid().model()->index(row, column)).center());
    }
    /// Replaces the number of a cell key by key and commits.
    void correct(int row, int column, const QString& number) {
        clickCell(row, column);
        keys(number.left(1));
        EXPECT_TRUE(correction().hasFocus());
        correction().selectAll();
        keys(number);
        key(Qt::Key_Return);
    }
};

TEST_F(HistoryEntry, ATypedDrawIsSortedShownAndStored) {
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2003004 历史号码:"_s);
    typeDraw(u"33 02 17 05 29 11 07"_s);
    EXPECT_EQ(program->book.history().Lsnum, 4);
    EXPECT_EQ(program->book.history().Lshm[4], (Draw{2003004, 2, 5, 11, 17, 29, 33, 7}));
    EXPECT_EQ(row(3),
              (QStringList{u"4期"_s, u"2003004"_s, u"02"_s, u"05"_s, u"11"_s, u"17"_s, u"29"_s, u"33"_s, u"07"_s}));
    EXPECT_EQ(cell(2, 0), u"3"_s);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2003005 历史号码:"_s);
    EXPECT_EQ(text(u"StatusBar1(2)"_s), u"历史：4期"_s);
    EXPECT_EQ(text(u"Label6(2)"_s), u"4.17%"_s); // 1 of 24
    for (int place = 1; place <= 7; ++place)
        EXPECT_EQ(box(place).maskedText(), u"__"_s);
    EXPECT_TRUE(box(1).hasFocus());
    EXPECT_TRUE(defaultText().endsWith("2003004 02 05 11 17 29 33 07 \n"));
    EXPECT_EQ(program->workspace.dbUser->rowCount("fig"), 4);
}

TEST_F(HistoryEntry, DrawsAreTypedOneBehindTheOther) {
    trigger(form(), u"mnuLsApp"_s);
    keys(u"0102030405060708091011121314"_s);
    EXPECT_EQ(program->book.history().Lsnum, 5);
    EXPECT_EQ(program->book.history().Lshm[5], (Draw{2003005, 8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ(cell(3, 0), u"4期"_s);
    EXPECT_EQ(cell(4, 0), u"5期"_s);
    enterAgain();
    EXPECT_EQ(cell(4, 0), u"5"_s); // the mark of a typed draw is not stored
}

TEST_F(HistoryEntry, ABoxThatIsFullPassesTheFocusOn) {
    trigger(form(), u"mnuLsApp"_s);
    EXPECT_TRUE(box(1).hasFocus());
    keys(u"3"_s);
    EXPECT_TRUE(box(1).hasFocus());
    keys(u"3"_s);
    EXPECT_TRUE(box(2).hasFocus());
    keys(u"x7"_s);
    EXPECT_EQ(box(2).maskedText(), u"7_"_s);
    key(Qt::Key_Tab);
    EXPECT_TRUE(box(3).hasFocus());
}

TEST_F(HistoryEntry, WrongDrawsAreToldAndLeftAsTyped) {
    const std::string before = dump(*program->workspace.dbUser, "fig");
    const struct {
        QString numbers;
        QString text;
    } wrong[] = {{u"34 02 03 04 05 06 07"_s, kOutOfRange},
                 {u"00 02 03 04 05 06 07"_s, kOutOfRange},
                 {u"01 02 03 04 05 06 17"_s, kOutOfRange},
                 {u"01 02 03 04 05 06 00"_s, kOutOfRange},
                 {u"01 02 03 04 05 01 07"_s, kRepeated}};
    for (const auto& [numbers, expected] : wrong) {
        const ModalScript script({message(expected, kErrorTitle)});
        typeDraw(numbers);
        EXPECT_EQ(box(6).maskedText(), numbers.mid(15, 2));
        EXPECT_EQ(box(7).maskedText(), numbers.right(2));
    }
    EXPECT_EQ(program->book.history().Lsnum, 3);
    EXPECT_EQ(dump(*program->workspace.dbUser, "fig"), before);
}

TEST_F(HistoryEntry, APlaceLeftEmptyIsTold) {
    trigger(form(), u"mnuLsApp"_s);
    keys(u"01020304054"_s); // one digit in the sixth box
    key(Qt::Key_Tab);
    {
        const ModalScript script({message(kPlaceEmpty, kErrorTitle)});
        keys(u"07"_s);
    }
    EXPECT_EQ(box(6).maskedText(), u"4_"_s);
    box(6).setFocus();
    box(6).setCursorPosition(1);
    keys(u"4"_s); // 44: full at last, and the focus goes on
    const ModalScript script({message(kOutOfRange, kErrorTitle)});
    keys(u"07"_s);
}

TEST_F(HistoryEntry, TheLastBoxFiresOnceForAKey) {
    {
        const ModalScript script({message(kRepeated, kErrorTitle)});
        typeDraw(u"01 01 03 04 05 06 07"_s);
    }
    emit box(7).filled(); // whatever fills it without a key: nothing, not even a message
    EXPECT_EQ(program->book.history().Lsnum, 3);
    box(2).setFocus(Qt::TabFocusReason);
    keys(u"02"_s);
    box(7).setFocus(Qt::TabFocusReason);
    keys(u"07"_s);
    EXPECT_EQ(program->book.history().Lsnum, 4);
    emit box(7).filled();
    EXPECT_EQ(program->book.history().Lsnum, 4);
}

TEST_F(HistoryEntry, AWrongBoxHasTheFocusAndEnterHandsAllOnAgain) {
    {
        const ModalScript script({{u"MsgBox"_s, [](QWidget& dialog) {
                                       EXPECT_EQ(qobject_cast<QMessageBox*>(&dialog)->detailedText(), u"第3个红球"_s);
                                       answer(kOutOfRange, kErrorTitle, QMessageBox::Ok)(dialog);
                                   }}});
        typeDraw(u"01 02 34 04 05 06 07"_s);
    }
    EXPECT_TRUE(box(3).hasFocus());
    EXPECT_EQ(box(3).selectedText(), u"34"_s);
    keys(u"33"_s); // in place of what was selected
    EXPECT_EQ(program->book.history().Lsnum, 3);
    EXPECT_TRUE(box(4).hasFocus());
    key(Qt::Key_Return);
    EXPECT_EQ(program->book.history().Lsnum, 4);
    EXPECT_EQ(program->book.history().Lshm[4], (Draw{2003004, 1, 2, 4, 5, 6, 33, 7}));
    EXPECT_TRUE(box(1).hasFocus());
}

TEST_F(HistoryEntry, EnterDoesNothingBeforeAllBoxesAreFull) {
    trigger(form(), u"mnuLsApp"_s);
    keys(u"0102030405"_s);
    key(Qt::Key_Return);
    keys(u"06"_s);
    keys(u"0"_s);
    key(Qt::Key_Enter);
    EXPECT_EQ(program->book.history().Lsnum, 3);
    keys(u"7"_s);
    EXPECT_EQ(program->book.history().Lsnum, 4);
    key(Qt::Key_Enter);
    EXPECT_EQ(program->book.history().Lsnum, 4);
}

TEST_F(HistoryEntry, BehindTheLargestIssueItIsAskedFor) {
    correct(2, 1, u"2147483646"_s);
    typeDraw(u"01 02 03 04 05 06 07"_s);
    EXPECT_EQ(cell(3, 1), u"2147483647"_s);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入  历史号码:"_s);
    {
        const ModalScript script({{u"InputBox"_s, cancel()}});
        typeDraw(u"01 02 03 04 05 06 08"_s);
    }
    EXPECT_EQ(program->book.history().Lsnum, 4);
    EXPECT_EQ(box(7).maskedText(), u"08"_s); // still there
    const ModalScript script({{u"InputBox"_s, type(u"0"_s)},
                              message(u"请输入数字"_s, u"输入错误"_s),
                              {u"InputBox"_s, type(u"2010001"_s)}});
    key(Qt::Key_Return);
    EXPECT_EQ(program->book.history().Lshm[5], (Draw{2010001, 1, 2, 3, 4, 5, 6, 8}));
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2010002 历史号码:"_s);
}

TEST_F(HistoryEntry, TheTabKeyGoesFromTheBoxesToTheButtonsToTheGrid) {
    box(7).setFocus();
    QStringList order;
    for (int step = 0; step < 4; ++step) {
        key(Qt::Key_Tab);
        order << form().focusWidget()->objectName();
    }
    EXPECT_EQ(order, (QStringList{u"cmdRead"_s, u"Command43"_s, u"Command44"_s, u"MSFlexGrid1"_s}));
}

TEST_F(HistoryEntry, ABlueMayEqualARed) {
    typeDraw(u"01 02 03 04 05 06 06"_s);
    EXPECT_EQ(program->book.history().Lshm[4][7], 6);
}

TEST_F(HistoryEntry, TheButtonAndTheEntryDeleteTheLastDrawUntilThereIsNone) {
    press(form(), u"Command44"_s);
    EXPECT_EQ(program->book.history().Lsnum, 2);
    EXPECT_EQ(grid().model()->rowCount(), 2);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2003003 历史号码:"_s);
    EXPECT_EQ(text(u"Label6(26)"_s), u"16.67%"_s); // 2 of 12
    EXPECT_EQ(defaultText(), QByteArray("2003001 10 11 12 13 26 28 11 \n2003002 04 09 19 20 21 26 12 \n"));
    trigger(form(), u"mnuDelast"_s);
    EXPECT_TRUE(enabled(u"Command44"_s));
    trigger(form(), u"mnuDelast"_s);
    EXPECT_EQ(program->book.history().Lsnum, 0);
    EXPECT_EQ(grid().model()->rowCount(), 0);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 1 历史号码:"_s);
    EXPECT_FALSE(enabled(u"Command44"_s));
    EXPECT_FALSE(enabled(u"Command48"_s));
    EXPECT_FALSE(action(form(), u"mnuDelast"_s)->isEnabled());
    EXPECT_FALSE(action(form(), u"mnuSy"_s)->isEnabled());
    typeDraw(u"01 02 03 04 05 06 07"_s);
    EXPECT_EQ(program->book.history().Lshm[1][0], 1);
    EXPECT_EQ(cell(0, 0), u"1期"_s);
    EXPECT_TRUE(enabled(u"Command44"_s));
    EXPECT_TRUE(action(form(), u"mnuDelast"_s)->isEnabled());
}

TEST_F(HistoryEntry, ADeletedDrawTypedAgainIsMarkedAsTyped) {
    typeDraw(u"01 02 03 04 05 06 07"_s);
    press(form(), u"Command44"_s);
    press(form(), u"Command44"_s);
    typeDraw(u"01 02 03 04 05 06 07"_s);
    EXPECT_EQ(cell(2, 0), u"3期"_s);
    EXPECT_EQ(cell(1, 0), u"2"_s);
}

TEST_F(HistoryEntry, DeletedDrawsComeBackOneByOneUntilAnotherIsTyped) {
    const auto before = program->book.history();
    EXPECT_FALSE(control(form(), u"HistoryUndo"_s)->isVisible());
    press(form(), u"Command44"_s);
    press(form(), u"Command44"_s);
    auto* undo = controlAs<QPushButton>(form(), u"HistoryUndo"_s);
    EXPECT_EQ(undo->text(), u"已删除 2003002 期 · 撤销"_s);
    press(form(), u"HistoryUndo"_s);
    EXPECT_EQ(undo->text(), u"已删除 2003003 期 · 撤销"_s);
    press(form(), u"HistoryUndo"_s);
    EXPECT_FALSE(undo->isVisible());
    EXPECT_EQ(program->book.history().Lshm, before.Lshm);
    EXPECT_EQ(program->book.history().derived, before.derived);
    EXPECT_EQ(program->book.history().Ylnow, before.Ylnow);
    EXPECT_EQ(program->workspace.dbUser->rowCount("fig"), 3);
    press(form(), u"Command44"_s);
    typeDraw(u"01 02 03 04 05 06 07"_s);
    EXPECT_FALSE(undo->isVisible()) << "the draw does not belong behind the new one";
}

TEST_F(HistoryEntry, ClearingAsksFirst) {
    const auto question = [](QMessageBox::StandardButton button) {
        return ModalStep{u"MsgBox"_s, [button](QWidget& dialog) {
                             const auto* box = qobject_cast<QMessageBox*>(&dialog);
                             EXPECT_EQ(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                             EXPECT_EQ(box->standardButton(box->defaultButton()), QMessageBox::Cancel);
                             answer(u"确实要清空本彩票的所有历史号码吗？清空之前，原有的历史数据库和默认历史文本会"
                                    u"保存到用户文件夹的“保存”文件夹中。"_s,
                                    u"清空确认"_s, button)(dialog);
                         }};
    };
    {
        const ModalScript script({question(QMessageBox::Cancel)});
        trigger(form(), u"meuCln"_s);
    }
    EXPECT_EQ(program->book.history().Lsnum, 3);
    {
        const ModalScript script({question(QMessageBox::Ok)});
        trigger(form(), u"meuCln"_s);
    }
    EXPECT_EQ(program->book.history().Lsnum, 0);
    EXPECT_EQ(grid().model()->rowCount(), 0);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 1 历史号码:"_s);
    EXPECT_EQ(text(u"Label6(10)"_s), u"0.00%"_s);
    EXPECT_FALSE(enabled(u"Command44"_s));
    EXPECT_EQ(defaultText(), QByteArray());
    EXPECT_EQ(program->workspace.dbUser->rowCount("YlqsB"), 3);
    EXPECT_EQ(program->book.history().Ylnow[2], 3);
    enterAgain();
    EXPECT_EQ(program->book.history().Lsnum, 0);
    EXPECT_EQ(program->book.history().Ylnow[2], 0);   // Ylqs was cleared,
    EXPECT_EQ(program->book.history().YlnowB[11], 2); // YlqsB was not
}

TEST_F(HistoryEntry, ADigitInACellOpensTheCorrectionWithTheCellsText) {
    clickCell(1, 2);
    keys(u"x"_s);
    EXPECT_FALSE(correction().isVisible());
    keys(u"5"_s);
    EXPECT_TRUE(correction().isVisible());
    EXPECT_TRUE(correction().hasFocus());
    EXPECT_EQ(correction().text(), u"045"_s);
    EXPECT_EQ(correction().geometry(), grid().visualRect(grid().model()->index(1, 2)));
    keys(u"x -7"_s);
    EXPECT_EQ(correction().text(), u"0457"_s);
    key(Qt::Key_Escape);
    EXPECT_FALSE(correction().isVisible());
    EXPECT_EQ(cell(1, 2), u"04"_s);
    clickCell(1, 0); // the row number cannot be corrected
    keys(u"5"_s);
    EXPECT_FALSE(correction().isVisible());
}

TEST_F(HistoryEntry, EnterCommitsACorrection) {
    typeDraw(u"01 02 03 04 05 06 07"_s);
    correct(1, 2, u"5"_s);
    EXPECT_FALSE(correction().isVisible());
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(cell(1, 2), u"05"_s);
    EXPECT_EQ(program->book.history().Lshm[2][1], 5);
    EXPECT_EQ(cell(3, 0), u"4期"_s);
    EXPECT_EQ(text(u"Label6(26)"_s), u"1.39%"_s); // 2 of 4 * 36
    correct(1, 8, u"16"_s);
    EXPECT_EQ(text(u"LabelBlueShare(16)"_s), u"8.33%"_s); // 2 of 4 * 6
    EXPECT_TRUE(defaultText().contains("2003002 05 09 19 20 21 26 16 \n"));
    EXPECT_EQ(sql::toInteger(program->workspace.dbFilnum->queryValue("SELECT [fig7] FROM [fig] WHERE [Idx]=2")), 16);
}

TEST_F(HistoryEntry, ACorrectionOutOfPlaceIsToldAndNotCommitted) {
    const std::string before = dump(*program->workspace.dbUser, "fig");
    const std::tuple<int, int, QString> wrong[] = {{1, 2, u"9"_s},  {1, 2, u"0"_s},  {1, 3, u"4"_s},
                                                   {1, 7, u"34"_s}, {1, 8, u"17"_s}, {1, 1, u"2147483647"_s}};
    for (const auto& [row, column, number] : wrong) {
        const ModalScript script({message(kOutOfPlace, kErrorTitle)});
        correct(row, column, number);
        EXPECT_EQ(correction().text(), number); // left to be typed again
        EXPECT_TRUE(correction().isVisible());
    }
    key(Qt::Key_Escape);
    EXPECT_EQ(dump(*program->workspace.dbUser, "fig"), before);
}

TEST_F(HistoryEntry, ACorrectedIssueRenumbersTheRowsBelow) {
    correct(1, 1, u"2010050"_s);
    EXPECT_EQ(cell(0, 1), u"2003001"_s);
    EXPECT_EQ(cell(1, 1), u"2010050"_s);
    EXPECT_EQ(cell(2, 1), u"2010051"_s);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2010052 历史号码:"_s);
    enterAgain();
    EXPECT_EQ(cell(2, 1), u"2010051"_s);
}

TEST_F(HistoryEntry, AnotherCellOrADeletedRowGivesACorrectionUp) {
    clickCell(2, 3);
    keys(u"5"_s);
    EXPECT_TRUE(correction().isVisible());
    clickCell(0, 3);
    EXPECT_FALSE(correction().isVisible());
    clickCell(2, 3);
    keys(u"5"_s);
    trigger(form(), u"mnuDelast"_s);
    EXPECT_FALSE(correction().isVisible());
    EXPECT_EQ(program->book.history().Lsnum, 2);
}

TEST_F(HistoryEntry, AChangeThatCannotBeStoredIsToldAndLeavesEverything) {
    program->workspace.dbUser->execute("DELETE FROM [GailvB] WHERE [Number]>15"); // too few for 16 blues
    const std::string before = dump(*program->workspace.dbUser, "fig");
    const auto failure = [](const QString& what) {
        return ModalStep{u"MsgBox"_s, answer(what + u"：数据表缺少记录。原有的数据没有改变，请排除原因后重试。"_s,
                                             u"数据库错误"_s, QMessageBox::Ok)};
    };
    const ModalScript script(
        {failure(u"输入的这一期没有保存"_s), failure(u"最后一期没有删除"_s), failure(u"修改的号码没有保存"_s)});
    typeDraw(u"01 02 03 04 05 06 07"_s);
    EXPECT_EQ(box(1).maskedText(), u"01"_s);
    press(form(), u"Command44"_s);
    correct(1, 8, u"5"_s);
    EXPECT_EQ(dump(*program->workspace.dbUser, "fig"), before);
    EXPECT_EQ(grid().model()->rowCount(), 3);
    EXPECT_EQ(cell(1, 8), u"12"_s);
}

TEST_F(HistoryEntry, AFullHistoryTakesNoMore) {
    readText(QByteArray("2003001 01 02 03 04 05 06 07\n").repeated(history::kMostDraws));
    ASSERT_EQ(program->book.history().Lsnum, 32767);
    const ModalScript script({message(u"历史号码最多保存32767期，已经不能再追加！"_s, u"数据库错误"_s)});
    typeDraw(u"01 02 03 04 05 06 07"_s);
    EXPECT_EQ(program->book.history().Lsnum, 32767);
}

} // namespace
} // namespace history_window_tests
