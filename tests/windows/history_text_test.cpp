// Reading and editing history texts from the main window.
#include <QDesktopServices>
#include <QDir>
#include <QTextBrowser>

#include "windows/history_window_support.h"
#include "workspace/setting_names.h"
#include "workspace/user_files.h"

namespace history_window_tests {
namespace {

const QString kReadTitle = u"读入历史"_s;
const QString kFileFailure =
    u"文件不存在,名字有冲突或格式不正确,请在本软件目录下察看是否存在历史号码的文本文件(前面顶格[可以有7位的历史期号{"
    u"如2003001}]按顺序每行一期历史号码共计7红+1蓝=7个数，中间用空格符分离).然后稍后再次读入."_s;
const QString kWrongLine = u"请检查您的历史号码文本都是由6红+1蓝7个号码组成，中间由空格分开"_s;
const QString kNoFileYet = u"您目前还没有生成历史号码文本，只有“读取历史”找到您当地的历史开奖号码并读入软件之后"
                           u"才能将该历史号码作为您的默认历史号码！是否读取当地历史号码？"_s;

class HistoryText : public HistoryWindow {
  protected:
    void SetUp() override { enterAs(u"张三"_s); }

    ModalStep question(const QString& text, const QString& title, QMessageBox::StandardButton button) {
        return {u"MsgBox"_s, answer(text, title, button)};
    }
    /// The question about a default file that is in the way; the time in it is that of the question.
    ModalStep renameQuestion(QMessageBox::StandardButton button) {
        return {u"MsgBox"_s, [button](QWidget& dialog) {
                    const QString text = qobject_cast<QMessageBox*>(&dialog)->text();
                    EXPECT_TRUE(text.startsWith(u"读取的历史号码将保存为名为: 张三 双色号码.TXT 的文本文件,"
                                                u"张三 双色号码.TXT的文本已经存在,将要改名为:"_s +
                                                QDate::currentDate().toString(u"yyyy-M-d "_s)))
                        << text.toStdString();
                    EXPECT_TRUE(text.endsWith(
                        u" 双色号码 再选择文本作为历史号码的文本,然后再次读如历史数据.确实要改名吗?"_s));
                    answer({}, kReadTitle, button)(dialog);
                }};
    }
    QString notice() {
        return u"您将修改该用户原来读取历史号码文件的时候所生成的默认历史号码文本，文件名为：“"_s + defaultFile() +
               u"”修改之后如果需要加载到软件里面请使用“读取历史”功能！"_s;
    }
    QLabel& note() { return *controlAs<QLabel>(form(), u"HistoryNote"_s); }
    void setEditor(const QString& command) {
        program->settings.set(workspace::setting::kProgram, u"Option"_s, u"Editor"_s, command);
    }
};

TEST_F(HistoryText, TheButtonAndTheEntryReadAWholeHistory) {
    readText(kThreeDraws);
    EXPECT_EQ(grid().model()->rowCount(), 3);
    EXPECT_EQ(defaultText(), QByteArray(kThreeDraws).replace('\n', " \n"));
    const ModalScript script({question(kReadQuestion, kReadTitle, QMessageBox::Cancel)});
    press(form(), u"cmdRead"_s);
    EXPECT_EQ(program->book.history().Lsnum, 3);
}

TEST_F(HistoryText, CancellingTheFileDialogEndsSilently) {
    const ModalScript script({question(kReadQuestion, kReadTitle, QMessageBox::Ok),
                              {u"FileDialog"_s,
                               [this](QWidget& dialog) {
                                   EXPECT_EQ(qobject_cast<QFileDialog*>(&dialog)->directory().absolutePath(),
                                             QDir(home.folderName() + u"/双色历史号码"_s).absolutePath());
                                   cancel()(dialog);
                               }},
                              question(kAppendedQuestion, kReadTitle, QMessageBox::Cancel)});
    trigger(form(), u"mnuRed"_s);
    trigger(form(), u"mnuRead"_s);
    EXPECT_EQ(program->book.history().Lsnum, 0);
}

TEST_F(HistoryText, ADefaultFileInTheWayIsRenamedOrKept) {
    readText(kThreeDraws);
    const QString other = writeFile(u"另.txt"_s, "2010001 01 02 03 04 05 06 07");
    {
        const ModalScript script({question(kReadQuestion, kReadTitle, QMessageBox::Ok),
                                  {u"FileDialog"_s, chooseFile(other)},
                                  renameQuestion(QMessageBox::Cancel)});
        trigger(form(), u"mnuRed"_s);
    }
    EXPECT_EQ(program->book.history().Lsnum, 3); // the file that was kept
    EXPECT_TRUE(note().isVisible());
    EXPECT_EQ(note().text(), u"读取的是原有的默认文本"_s);
    {
        const ModalScript script({question(kReadQuestion, kReadTitle, QMessageBox::Ok),
                                  {u"FileDialog"_s, chooseFile(other)},
                                  renameQuestion(QMessageBox::Ok)});
        trigger(form(), u"mnuRed"_s);
    }
    EXPECT_EQ(program->book.history().Lsnum, 1);
    const QString date = QDate::currentDate().toString(u"yyyy-M-d"_s);
    EXPECT_TRUE(QFile::exists(home.folderName() + u"/双色历史号码/ 张三"_s + date + u"日前 双色号码 .TXT"_s));
    EXPECT_FALSE(note().isVisible());
    // A second one on the same day has the time in its name.
    const ModalScript script({question(kReadQuestion, kReadTitle, QMessageBox::Ok),
                              {u"FileDialog"_s, chooseFile(other)},
                              renameQuestion(QMessageBox::Ok)});
    trigger(form(), u"mnuRed"_s);
    EXPECT_EQ(QDir(home.folderName() + u"/双色历史号码"_s).entryList({u"* *"_s}, QDir::Files).size(), 3);
}

TEST_F(HistoryText, ARefusedLineIsShownAndChangesNothing) {
    readText(kThreeDraws);
    QFile::remove(defaultFile());
    const QString wrong = writeFile(u"错.txt"_s, "2003001 01 02 03 04 05 06 07\n2003002 01 02 03 04 05 06 7\n");
    {
        const ModalScript script({question(kReadQuestion, kReadTitle, QMessageBox::Ok),
                                  {u"FileDialog"_s, chooseFile(wrong)},
                                  {u"MsgBox"_s, [](QWidget& dialog) {
                                       EXPECT_EQ(qobject_cast<QMessageBox*>(&dialog)->detailedText(),
                                                 u"第2行：2003002 01 02 03 04 05 06 7\n这一行有6个号码，应为7个"_s);
                                       answer(kWrongLine, u"历史号码文本错误"_s, QMessageBox::Ok)(dialog);
                                   }}});
        trigger(form(), u"mnuRed"_s);
    }
    EXPECT_EQ(grid().model()->rowCount(), 3);
    EXPECT_TRUE(enabled(u"Command44"_s));
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2003004 历史号码:"_s);
    EXPECT_EQ(program->workspace.dbUser->rowCount("fig"), 3);
    enterAgain();
    EXPECT_EQ(grid().model()->rowCount(), 3);
}

TEST_F(HistoryText, AnAppendedReadingAddsRows) {
    readText(kThreeDraws);
    typeDraw(u"04 06 07 10 13 25 03"_s);
    EXPECT_EQ(cell(3, 0), u"4期"_s);
    readText(kThreeDraws + "2003004 01 02 03 04 05 06 07\n2003005 08 09 10 11 12 13 14\n", u"mnuRead"_s);
    EXPECT_EQ(grid().model()->rowCount(), 5);
    EXPECT_EQ(row(3).mid(0, 3), (QStringList{u"4"_s, u"2003004"_s, u"04"_s})); // typed before, not the file's
    EXPECT_EQ(row(4).mid(0, 3), (QStringList{u"5"_s, u"2003005"_s, u"08"_s}));
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2003006 历史号码:"_s);
    EXPECT_EQ(program->book.history().Glcount, 5);
}

TEST_F(HistoryText, AnAppendedReadingThatFailsLeavesTheGrid) {
    readText(kThreeDraws);
    QFile::remove(defaultFile());
    const QString wrong = writeFile(u"错.txt"_s, "2003004 01 02 03 04 05 06 07 08\n");
    const ModalScript script({question(kAppendedQuestion, kReadTitle, QMessageBox::Ok),
                              {u"FileDialog"_s, chooseFile(wrong)},
                              question(kWrongLine, u"历史号码文本错误"_s, QMessageBox::Ok)});
    trigger(form(), u"mnuRead"_s);
    EXPECT_EQ(grid().model()->rowCount(), 3);
    EXPECT_TRUE(enabled(u"Command44"_s));
}

TEST_F(HistoryText, ATextThatCannotBeWrittenIsNotedAndWrittenLater) {
    readText(kThreeDraws);
    const QString panels = text(u"StatusBar1(4)"_s);
    ASSERT_TRUE(QFile::remove(defaultFile()));
    ASSERT_TRUE(QDir().mkdir(defaultFile()));
    EXPECT_FALSE(note().isVisible());
    typeDraw(u"04 06 07 10 13 25 03"_s);
    EXPECT_TRUE(note().isVisible());
    EXPECT_EQ(note().text(), u"默认历史文本没有写入，下次更改或退出程序时再试"_s);
    EXPECT_EQ(text(u"StatusBar1(2)"_s), u"历史：4期"_s);
    EXPECT_EQ(text(u"StatusBar1(4)"_s), panels);
    ASSERT_TRUE(QDir().rmdir(defaultFile()));
    trigger(form(), u"mnuDelast"_s);
    EXPECT_FALSE(note().isVisible());
    ASSERT_TRUE(QFile::remove(defaultFile()));
    ASSERT_TRUE(QDir().mkdir(defaultFile()));
    typeDraw(u"04 06 07 10 13 25 03"_s);
    ASSERT_TRUE(QDir().rmdir(defaultFile()));
    form().close();
    EXPECT_EQ(defaultText().count('\n'), 4);
}

TEST_F(HistoryText, EditingWithoutAFileOffersToReadOne) {
    {
        const ModalScript script({question(kNoFileYet, u"编辑历史"_s, QMessageBox::Cancel)});
        trigger(form(), u"mnuEdit"_s);
    }
    const ModalScript script({question(kNoFileYet, u"编辑历史"_s, QMessageBox::Ok),
                              question(kReadQuestion, kReadTitle, QMessageBox::Ok),
                              {u"FileDialog"_s, chooseFile(writeFile(u"期.txt"_s, kThreeDraws))}});
    trigger(form(), u"mnuEdit"_s);
    EXPECT_EQ(program->book.history().Lsnum, 3);
}

TEST_F(HistoryText, EditingStartsTheProgramOfTheSetting) {
    readText(kThreeDraws);
    const QString noted = home.folderName() + u"/noted"_s;
    const QString editor =
        writeFile(u"my editor"_s, "#!/bin/sh\nprintf '%s|' \"$@\" > \"$1.new\"\nmv \"$1.new\" \"$1\"\n");
    QFile::setPermissions(editor, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    setEditor(u"\"%1\" \"%2\" -w"_s.arg(editor, noted));
    const ModalScript script({question(notice(), u"编辑历史"_s, QMessageBox::Ok)});
    trigger(form(), u"mnuEdit"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(noted); }));
    QFile file(noted);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), noted + u"|-w|"_s + defaultFile() + u'|');
}

TEST_F(HistoryText, AnEditorThatCannotBeStartedIsTold) {
    readText(kThreeDraws);
    setEditor(u"/不存在/编辑器"_s);
    const ModalScript script({question(notice(), u"编辑历史"_s, QMessageBox::Ok),
                              question(u"编辑出错！"_s, u"编辑历史"_s, QMessageBox::Ok)});
    trigger(form(), u"mnuEdit"_s);
}

TEST_F(HistoryText, WithoutASettingTheDesktopOpensTheFile) {
    readText(kThreeDraws);
    QTextBrowser desktop; // stands in for it
    QDesktopServices::setUrlHandler(u"file"_s, &desktop, "setSource");
    {
        const ModalScript script({question(notice(), u"编辑历史"_s, QMessageBox::Ok)});
        trigger(form(), u"mnuEdit"_s);
    }
    QDesktopServices::unsetUrlHandler(u"file"_s);
    EXPECT_EQ(desktop.source(), QUrl::fromLocalFile(defaultFile()));
}

TEST_F(HistoryText, AWorkspaceWhoseFileWasReplacedIsOpenedAndShownAgain) {
    readText(kThreeDraws);
    const auto file = home.folder() / "张三" / "张三.mdb";
    workspace::Workspace& open = program->workspace;
    open.dbUser.reset();
    open.dbFilnum.reset();
    open.dbNumsave.reset();
    ASSERT_TRUE(workspace::copyDatabase(home.folder() / "Lishihaoma.mdb", file));
    program->reopen();
    EXPECT_EQ(program->book.history().Lsnum, 0);
    EXPECT_EQ(grid().model()->rowCount(), 0);
    EXPECT_FALSE(enabled(u"Command44"_s));
    typeDraw(u"01 02 03 04 05 06 07"_s);
    EXPECT_EQ(open.dbUser->rowCount("fig"), 1);
}

} // namespace
} // namespace history_window_tests
