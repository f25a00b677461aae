// The updates of the history in the whole program, with real clicks and a real server.
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include "history/text_file.h"
#include "history/text_lines.h"
#include "history/update_publish.h"
#include "history/update_source.h"
#include "mainwin/windows/form1.h"
#include "scratch_folder.h"
#include "support/update_server.h"
#include "toolkit/data_grid.h"
#include "windows/program_fixture.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

const QString kTitle = u"历史更新"_s;
const QString kNoTitle = u"奥衡星双色球彩票助理"_s; // what a message without a title of its own bears
const QString kTextQuestion =
    u"您将可以从我们网站直接下载最新的中国福利彩票双色球号码数据文件（可以用文本编辑器手工编辑），"
    u"可能需要花费一段时间！"_s;
const QString kTextDone = u"您已经成功下载所需要的历史号码文本文件，是否将该文件读取到软件中生成相应历史号码数据库？"
                          u"读取后软件的历史号码将采用刚刚下载的历史号码文本。"_s;
const QString kDatabaseQuestion = u"您将可以从我们网站直接下载最新的中国福利彩票双色球历史号码数据库"
                                  u"（下载后直接作为当前的历史号码），可能需要花费一段时间！"_s;
const QString kTakeQuestion =
    u"您下载的是：中国福利彩票双色球历史号码 截至 2003001 至 2003003期，是否确认为当前历史号码？"_s;
const QString kFailure = u"操作失败，可能您的计算机未能连上internet或者服务站点下载繁忙，或者计算机读写出错。"_s;

const std::vector<history::Draw> kDraws = {
    {2003001, 10, 11, 12, 13, 26, 28, 11}, {2003002, 4, 9, 19, 20, 21, 26, 12}, {2003003, 1, 7, 16, 23, 28, 32, 16}};

/// The panel stands and goes by itself.
ModalStep panel() {
    return {u"frmUpdate"_s, [](QWidget& dialog) {
                EXPECT_EQ(dialog.windowTitle(), kTitle);
                ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
                EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
            }};
}

ModalStep ask(const QString& text, const QString& title, QMessageBox::StandardButton button = QMessageBox::Ok) {
    return {u"MsgBox"_s, answer(text, title, button)};
}

class UpdateWindows : public ProgramFixture {
  protected:
    void SetUp() override {
        history::publishHistory(kDraws, published.path());
        server = std::make_unique<UpdateServer>(published.path());
        start();
        createUser(u"张三"_s);
    }

    int gridRows() {
        return controlAs<toolkit::DataGrid>(*window(u"Form1"_s), u"MSFlexGrid1"_s)->model()->rowCount();
    }
    QString text(const QString& label) { return controlAs<QLabel>(*window(u"Form1"_s), label)->text(); }

    std::filesystem::path userFile() const { return home.folder() / "张三" / "张三.mdb"; }

    ScratchFolder published;
    std::unique_ptr<UpdateServer> server;

  private:
    void prepare() override {
        program->settings.set(u"AHXLOTQ"_s, u"Update"_s, u"Host"_s, u"127.0.0.1"_s);
        program->settings.set(u"AHXLOTQ"_s, u"Update"_s, u"Port"_s, server->port());
        program->settings.set(u"AHXLOTQ"_s, u"Update"_s, u"Scheme"_s, u"http"_s);
    }
};

TEST_F(UpdateWindows, TheNewHistoryIsShownAtOnceAndAtTheNextStart) {
    enter();
    EXPECT_EQ(gridRows(), 0);
    EXPECT_FALSE(action(*window(u"Form1"_s), u"mnuSy"_s)->isEnabled());
    {
        const ModalScript script({ask(kDatabaseQuestion, kTitle), panel(), ask(kTakeQuestion, kTitle)});
        trigger(u"Form1"_s, u"mnuNewol"_s);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(gridRows(), 3);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2003004 历史号码:"_s);
    EXPECT_EQ(text(u"StatusBar1(2)"_s), u"历史：3期"_s);
    EXPECT_EQ(program->book.history().Lshm, (std::vector<history::Draw>{{}, kDraws[0], kDraws[1], kDraws[2]}));
    EXPECT_EQ(program->book.history().Ylnow[1], 0);  // drawn last
    EXPECT_EQ(program->book.history().Ylnow[26], 1); // the draw before
    EXPECT_EQ(program->book.history().Glred[26], 2);
    EXPECT_EQ(program->book.history().Glcount, 0);
    ASSERT_TRUE(program->workspace.dbNumsave);
    EXPECT_EQ(program->workspace.dbFilnum->rowCount("fig"), 3);
    QFile standard(workspace::toQString(history::historyTextFile(program->workspace)));
    ASSERT_TRUE(standard.open(QIODevice::ReadOnly));
    EXPECT_EQ(standard.readAll(), history::drawsAsText(kDraws));

    EXPECT_TRUE(window(u"Form1"_s)->close());
    start();
    enter();
    EXPECT_EQ(gridRows(), 3);
}

TEST_F(UpdateWindows, TheButtonBesideTheGridDoesTheSame) {
    enter();
    const ModalScript script({ask(kDatabaseQuestion, kTitle), panel(), ask(kTakeQuestion, kTitle)});
    press(u"Form1"_s, u"Command43"_s);
    EXPECT_EQ(gridRows(), 3);
}

TEST_F(UpdateWindows, CancelIsHeardAtEveryQuestion) {
    enter();
    const ModalScript script({ask(kTextQuestion, kTitle, QMessageBox::Cancel),
                              ask(kDatabaseQuestion, kTitle, QMessageBox::Cancel), ask(kDatabaseQuestion, kTitle),
                              panel(), ask(kTakeQuestion, kTitle, QMessageBox::Cancel)});
    trigger(u"Form1"_s, u"mnuNew"_s);
    trigger(u"Form1"_s, u"mnuNewol"_s);
    EXPECT_TRUE(server->takeRequests().isEmpty());
    trigger(u"Form1"_s, u"mnuNewol"_s);
    EXPECT_EQ(gridRows(), 0);
    EXPECT_TRUE(std::filesystem::exists(home.folder() / "中国福利彩票双色球.mdb"));
}

TEST_F(UpdateWindows, TheButtonOfThePanelGivesTheDownloadUp) {
    enter();
    server->setFault(u"slow"_s);
    const ModalScript script({ask(kDatabaseQuestion, kTitle),
                              {u"frmUpdate"_s, [](QWidget& dialog) {
                                   auto* label = controlAs<QLabel>(dialog, u"Label1"_s);
                                   EXPECT_TRUE(QTest::qWaitFor([&] { return label->text().contains(u'/'); }));
                                   EXPECT_TRUE(label->text().startsWith(u"正在下载历史号码：1 / "_s))
                                       << label->text().toStdString(); // the first 1000 bytes
                                   EXPECT_GT(controlAs<QProgressBar>(dialog, u"Picture1"_s)->maximum(), 1);
                                   press(dialog, u"cmdCancel"_s);
                               }}});
    trigger(u"Form1"_s, u"mnuNewol"_s);
    EXPECT_EQ(gridRows(), 0);
    EXPECT_EQ(server->takeRequests().size(), 1); // the second path is not tried
}

TEST_F(UpdateWindows, AFailureIsToldAndTheHistoryStays) {
    enter();
    server->setFault(u"garbage"_s);
    {
        const ModalScript script({ask(kDatabaseQuestion, kTitle), panel(), panel(), ask(kFailure, kNoTitle)});
        trigger(u"Form1"_s, u"mnuNewol"_s);
    }
    server->setFault(u"missing"_s);
    const ModalScript script({ask(kTextQuestion, kTitle), panel(), ask(kFailure, kNoTitle)});
    trigger(u"Form1"_s, u"mnuNew"_s);
    EXPECT_EQ(gridRows(), 0);
    ASSERT_TRUE(program->workspace.dbUser);
}

TEST_F(UpdateWindows, WithoutAHostTheFailureIsToldAtOnce) {
    enter();
    program->settings.set(u"AHXLOTQ"_s, u"Update"_s, u"Host"_s, QString());
    const ModalScript script({ask(kDatabaseQuestion, kTitle), ask(kFailure, kNoTitle), ask(kTextQuestion, kTitle),
                              ask(kFailure, kNoTitle)});
    trigger(u"Form1"_s, u"mnuNewol"_s);
    trigger(u"Form1"_s, u"mnuNew"_s);
}

TEST_F(UpdateWindows, TheDownloadedTextIsOfferedToTheReading) {
    enter();
    const ModalScript script({ask(kTextQuestion, kTitle),
                              panel(),
                              ask(kTextDone, kNoTitle),
                              ask({}, u"读入历史"_s),
                              {u"FileDialog"_s, [this](QWidget& dialog) {
                                   auto* files = qobject_cast<QFileDialog*>(&dialog);
                                   ASSERT_NE(files, nullptr);
                                   EXPECT_EQ(files->directory().path(), home.folderName() + u"/双色历史号码"_s);
                                   test_support::chooseFile(u"中国福利彩票双色球.Txt"_s)(dialog);
                               }}});
    trigger(u"Form1"_s, u"mnuNew"_s);
    EXPECT_EQ(gridRows(), 3);
    EXPECT_EQ(program->book.history().Lshm.back(), kDraws.back());
}

TEST_F(UpdateWindows, TheDownloadedTextIsOnlyKeptWhenItIsNotToBeRead) {
    enter();
    const ModalScript script({ask(kTextQuestion, kTitle), panel(), ask(kTextDone, kNoTitle, QMessageBox::Cancel)});
    trigger(u"Form1"_s, u"mnuNew"_s);
    EXPECT_EQ(gridRows(), 0);
    EXPECT_TRUE(std::filesystem::exists(home.folder() / "双色历史号码" / "中国福利彩票双色球.Txt"));
}

TEST_F(UpdateWindows, AnotherRuleStaysTheUsersWithTheDownloadedHistory) {
    program->settings.set(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s, u"30"_s);
    program->settings.set(u"张三QS"_s, u"Initial"_s, u"BitnumB"_s, u"15"_s);
    enter();
    const ModalScript script({ask(kDatabaseQuestion, kTitle), panel(), ask(kTakeQuestion, kTitle)});
    trigger(u"Form1"_s, u"mnuNewol"_s);
    EXPECT_EQ(program->workspace.Bitnum, 30);
    EXPECT_EQ(program->book.history().Lshm.back(), kDraws.back()); // with its 32 and its blue 16
    EXPECT_EQ(program->book.history().derived.back().Ltlnum, 3);   // 1, 7 and 16: the lower half of 33
}

TEST_F(UpdateWindows, AnUpdateThatWasCutOffIsCarriedOutAtTheNextStart) {
    ASSERT_TRUE(workspace::copyDatabase(published.path() / "download/lshm/shuangseqiu.mdb",
                                        std::filesystem::path(userFile()) += ".update"));
    enter();
    EXPECT_EQ(gridRows(), 3);
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(userFile()) += ".update"));
}

TEST_F(UpdateWindows, AWorkspaceThatDoesNotOpenAgainEndsTheProgram) {
    enter();
    const QSignalSpy ended(program.get(), &mainwin::Program::ended);
    const ModalScript script(
        {ask(kDatabaseQuestion, kTitle),
         panel(),
         {u"MsgBox"_s,
          [this](QWidget& box) {
              for (const char* file : {"张三/numsave.mdb", "numsave.mdb"}) {
                  std::filesystem::remove(home.folder() / file);
                  std::filesystem::create_directory(home.folder() / file);
              }
              answer(kTakeQuestion, kTitle, QMessageBox::Ok)(box);
          }},
         ask(u"数据库读写错误,程序即将退出!请您删除该用户名,然后新建用户进入."_s, u"数据库错误"_s)});
    trigger(u"Form1"_s, u"mnuNewol"_s);
    EXPECT_EQ(ended.count(), 1);
    EXPECT_TRUE(window(u"Form1"_s)->close()); // as the end of the application does: nothing is open any more
}

} // namespace
