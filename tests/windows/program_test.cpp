// The whole program, from the first window to the end, with real clicks: what an evening leaves for the next one.
#include "mainwin/windows/program.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

#include <gtest/gtest.h>

#include "history/text_lines.h"
#include "mainwin/windows/form1.h"
#include "toolkit/data_grid.h"
#include "windows/program_fixture.h"
#include "workspace/paths.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

const QString kWrongLine = u"请检查您的历史号码文本都是由6红+1蓝7个号码组成，中间由空格分开"_s;

QString title(int bets) {
    return u"复选组合情况排列总表（每页至多显示10000注，双击任意注可删除）   合计：%1注"_s.arg(bets);
}

class ProgramTest : public ProgramFixture {
  protected:
    void readHistory(const QString& path) {
        const ModalScript script({{u"MsgBox"_s, answer(kReadQuestion, u"读入历史"_s, QMessageBox::Ok)},
                                  {u"FileDialog"_s, chooseFile(path)}});
        trigger(u"Form1"_s, u"mnuRed"_s);
    }

    void readThreeDraws() {
        readHistory(writeFile(u"三期.txt"_s, kThreeDraws));
        ASSERT_EQ(program->book.history().Lsnum, 3);
    }

    void pressNumbers(const QString& pattern, std::initializer_list<int> numbers) {
        for (const int number : numbers)
            press(u"Form1"_s, pattern.arg(number));
    }

    QString text(const QString& label) { return controlAs<QLabel>(*window(u"Form1"_s), label)->text(); }

    /// Opens a filter window from the menu, does `acts` in it and closes it.
    void inFilterWindow(const QString& entry, const QString& form, std::function<void(QWidget&)> acts) {
        const ModalScript script({{form, [acts = std::move(acts)](QWidget& opened) {
                                       acts(opened);
                                       opened.close();
                                   }}});
        trigger(u"Form1"_s, entry);
    }

    std::string bets() { return dump(*program->workspace.dbFilnum, "zuhe"); }
};

TEST_F(ProgramTest, AnEveningIsThereAtTheNextStart) {
    QFile real(QStringLiteral(SSQ_REAL_DATA "/draws.txt"));
    ASSERT_TRUE(real.open(QIODevice::ReadOnly));
    enterAs(u"张三[双色球]"_s);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 1 历史号码:"_s);
    readHistory(writeFile(u"draws.txt"_s, real.readAll()));
    ASSERT_EQ(program->book.history().Lsnum, 3358);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2025113 历史号码:"_s);
    EXPECT_EQ(controlAs<toolkit::DataGrid>(*window(u"Form1"_s), u"MSFlexGrid1"_s)->model()->rowCount(), 3358);

    pressNumbers(u"Command1(%1)"_s, {31, 1, 5, 8, 12, 16, 17, 20});
    pressNumbers(u"Command2(%1)"_s, {9, 3});
    EXPECT_EQ(text(u"StatusBar1(3)"_s), u"8红2蓝，共计复选：56注,合计：112元"_s);
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), title(56));
        auto* grid = controlAs<toolkit::DataGrid>(form, u"MSFlexGrid1"_s);
        EXPECT_EQ(grid->model()->index(0, 1).data().toString(), u"1"_s); // the reds were sorted,
        EXPECT_EQ(grid->model()->index(0, 7).data().toString(), u"9"_s); // the blues stay as they were clicked
        typeInto(form, u"Text18(1)"_s, u"5"_s);
        press(form, u"Option19"_s);
        EXPECT_EQ(form.windowTitle(), title(28));
        typeInto(form, u"Text12(0)"_s, u"5"_s);
        press(form, u"Option13"_s);
        EXPECT_EQ(form.windowTitle(), title(7)); // 6 of the 7 reds above 1
        press(form, u"cmdRetn"_s);
        EXPECT_EQ(form.windowTitle(), title(28));
        typeInto(form, u"Text12(0)"_s, u"2"_s);
        press(form, u"Option13"_s);
        EXPECT_EQ(form.windowTitle(), title(7));
    });

    const QSignalSpy ended(program.get(), &mainwin::Program::ended);
    const history::History before = program->book.history();
    const std::string table = bets();
    EXPECT_NE(table.find("红1位大小:1 保留2~24"), std::string::npos) << "24: the largest in the history";
    EXPECT_TRUE(window(u"Form1"_s)->close());
    EXPECT_EQ(ended.count(), 1);

    start();
    auto* users = controlAs<QListWidget>(*window(u"Frmpre"_s), u"LstName"_s);
    EXPECT_EQ(users->currentItem()->text(), u"张三[双色球]"_s); // the one who entered last
    enter();
    EXPECT_EQ(program->book.history().Lshm, before.Lshm);
    EXPECT_EQ(program->book.history().derived, before.derived);
    EXPECT_EQ(program->book.history().Ylnow, before.Ylnow);
    EXPECT_EQ(program->book.history().Gailvred, before.Gailvred);
    EXPECT_EQ(program->book.history().Glcount, 0); // not stored: every start begins at 0
    EXPECT_EQ(bets(), table);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 2025113 历史号码:"_s);
}

TEST_F(ProgramTest, TheFirstWindowAsksForNobodyWithoutUsers) {
    start();
    const ModalScript script(
        {{u"MsgBox"_s, answer(u"请建立或选择一个用户名然后再进入。"_s, u"用户名错误"_s, QMessageBox::Ok)},
         {u"MsgBox"_s, answer(u"请选择一个用户名然后再删除。"_s, u"用户名错误"_s, QMessageBox::Ok)}});
    enter();
    press(u"Frmpre"_s, u"Label4"_s);
    EXPECT_TRUE(window(u"Frmpre"_s)->isVisible());
}

TEST_F(ProgramTest, ClosingTheFirstWindowEndsTheProgram) {
    start();
    const QSignalSpy ended(program.get(), &mainwin::Program::ended);
    EXPECT_TRUE(window(u"Frmpre"_s)->close());
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(ProgramTest, EnteringHidesTheFirstWindowAndDoesNotEndTheProgram) {
    start();
    createUser(u"张三"_s);
    QWidget* first = window(u"Frmpre"_s);
    const QSignalSpy ended(program.get(), &mainwin::Program::ended);
    enter();
    EXPECT_FALSE(first->isVisible());
    EXPECT_TRUE(window(u"Form1"_s)->isVisible());
    EXPECT_EQ(ended.count(), 0);
}

TEST_F(ProgramTest, ClosingTheMainWindowStoresWhatIsPending) {
    enterAs(u"张三"_s);
    sql::Database& bets = *program->workspace.dbFilnum;
    bets.execute("DROP TABLE [zuheRead]");
    ASSERT_TRUE(bets.storePending());
    const QSignalSpy ended(program.get(), &mainwin::Program::ended);
    press(u"Form1"_s, u"Command1(3)"_s);
    trigger(u"Form1"_s, u"Toolbar1(ext)"_s);
    EXPECT_EQ(ended.count(), 1);
    EXPECT_FALSE(bets.storePending());
}

TEST_F(ProgramTest, AUserWhoseFolderWasDeletedEntersWithoutHistory) {
    enterAs(u"张三"_s);
    readThreeDraws();
    window(u"Form1"_s)->close();
    program.reset();
    std::filesystem::remove_all(home.folder() / "张三");
    start();
    enter();
    EXPECT_EQ(program->book.history().Lsnum, 0);
    EXPECT_EQ(text(u"Label12"_s), u"在右输入 1 历史号码:"_s);
    EXPECT_FALSE(action(*window(u"Form1"_s), u"mnuDelast"_s)->isEnabled());
    for (const char* file : {"张三.mdb", "filnum.mdb", "numsave.mdb"})
        EXPECT_TRUE(std::filesystem::exists(home.folder() / "张三" / file)) << file;
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6, 7});
    pressNumbers(u"Command2(%1)"_s, {1});
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [](QWidget& form) { EXPECT_EQ(form.windowTitle(), title(7)); });
}

TEST_F(ProgramTest, AWorkspaceThatCannotBeRepairedEndsTheProgram) {
    start();
    createUser(u"张三"_s);
    std::filesystem::remove(home.folder() / "张三" / "numsave.mdb");
    std::filesystem::create_directory(home.folder() / "张三" / "numsave.mdb");
    const ModalScript script(
        {{u"MsgBox"_s, answer(u"数据库读写错误,程序即将退出!请您删除该用户名,然后新建用户进入."_s, u"数据库错误"_s,
                              QMessageBox::Ok)}});
    const QSignalSpy ended(program.get(), &mainwin::Program::ended);
    enter();
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(ProgramTest, APasswordIsAskedUntilItMatches) {
    start();
    createUser(u"有密码"_s, u"right"_s);
    const ModalScript script({{u"frmLogin"_s,
                               [](QWidget& login) {
                                   EXPECT_EQ(login.windowTitle(), u"登录"_s);
                                   auto* box = controlAs<QLineEdit>(login, u"txtPassword"_s);
                                   typeInto(login, u"txtPassword"_s, u"wr"_s);
                                   press(login, u"cmdOK"_s);
                                   EXPECT_TRUE(login.isVisible());
                                   EXPECT_EQ(box->selectedText().size(), 2);
                                   typeInto(login, u"txtPassword"_s, u"right"_s);
                                   press(login, u"cmdOK"_s);
                               }},
                              {u"MsgBox"_s, answer(u"无效的密码，请重试!"_s, u"登录"_s, QMessageBox::Ok)}});
    enter();
    EXPECT_EQ(program->workspace.Username, u"有密码"_s);
    EXPECT_TRUE(window(u"Form1"_s)->isVisible());
}

TEST_F(ProgramTest, BetsAreOfferedWithABlueAndWithout) {
    enterAs(u"张三"_s);
    QWidget& form = *window(u"Form1"_s);
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6, 7});
    EXPECT_TRUE(action(form, u"mnuLst"_s)->isEnabled());
    EXPECT_EQ(action(form, u"mnuLst"_s)->text(), u"红球复选组合排列（6红球排列）(&L)"_s);
    inFilterWindow(u"mnuLst"_s, u"GAganR"_s, [](QWidget& opened) { EXPECT_EQ(opened.windowTitle(), title(7)); });
    pressNumbers(u"Command2(%1)"_s, {4});
    EXPECT_TRUE(action(form, u"mnuLst"_s)->isEnabled());
    EXPECT_EQ(action(form, u"mnuLst"_s)->text(), u"红球复选组合排列（6红+1蓝排列）(&L)"_s);
    pressNumbers(u"Command1(%1)"_s, {7});
    EXPECT_FALSE(action(form, u"mnuLst"_s)->isEnabled()); // six reds are too few
}

TEST_F(ProgramTest, BankersStandInEveryBetOfTheirWindow) {
    enterAs(u"张三"_s);
    QWidget& form = *window(u"Form1"_s);
    for (const int banker : {20, 3}) {
        rightPress(form, u"Command1(%1)"_s.arg(banker));
        action(form, u"mnuDan"_s)->trigger();
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }
    pressNumbers(u"Command1(%1)"_s, {31, 30, 25, 10, 1, 2, 4});
    pressNumbers(u"Command2(%1)"_s, {8});
    EXPECT_EQ(text(u"StatusBar1(3)"_s), u"2红胆7红拖1蓝，共计胆拖：35注,合计：70元"_s);
    program->generation.Fromdraw = true; // as a simulated draw leaves it
    program->simulator.Top = {1, 2, 4, 10, 25, 30, 31};
    inFilterWindow(u"mnuDtlst"_s, u"Gdanagan"_s, [](QWidget& opened) {
        EXPECT_EQ(opened.windowTitle(), title(35)); // C(7, 4)
    });
    EXPECT_TRUE(program->generation.Fromdraw); // this entry leaves it alone
    const sql::Rows without = program->workspace.dbFilnum->query(
        "SELECT [idx] FROM [zuhe] WHERE NOT ([fig1]=3 OR [fig2]=3 OR [fig3]=3 OR [fig4]=3)");
    EXPECT_EQ(without.count(), 0);
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [](QWidget& opened) { EXPECT_EQ(opened.windowTitle(), title(7)); });
    EXPECT_FALSE(program->generation.Fromdraw); // that one always takes the pad's reds
}

TEST_F(ProgramTest, TheLastBetsCanBeCalledBackFromUnderThePad) {
    enterAs(u"张三"_s);
    EXPECT_FALSE(control(*window(u"Form1"_s), u"cmdCallLast"_s)->isVisible()) << "there are none yet";
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6, 7});
    pressNumbers(u"Command2(%1)"_s, {4, 9});
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [](QWidget& opened) {
        typeInto(opened, u"Text5(0)"_s, u"4"_s); // an even number more than there are odd ones
        press(opened, u"Option4"_s);
    });
    const QString last = text(u"LastBets"_s);
    EXPECT_TRUE(last.endsWith(u" / 14 注"_s)) << last.toStdString();
    start();
    enter();
    EXPECT_EQ(text(u"LastBets"_s), last) << "after a restart too";
    const ModalScript script({{u"GAganMb"_s, [&last](QWidget& opened) {
                                   EXPECT_TRUE(last.contains(u"剩余 %1 /"_s.arg(
                                       controlAs<QTableView>(opened, u"MSFlexGrid1"_s)->model()->rowCount())));
                                   opened.close();
                               }}});
    press(*window(u"Form1"_s), u"cmdCallLast"_s);
}

TEST_F(ProgramTest, AGenerationReplacesTheTableOfTheOneBefore) {
    enterAs(u"张三"_s);
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6, 7});
    pressNumbers(u"Command2(%1)"_s, {1});
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [](QWidget& form) { press(form, u"Command2"_s); });
    const std::string inverted = bets();
    EXPECT_NE(inverted.find("全部反选-"), std::string::npos); // closing keeps the rows and their states
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [](QWidget& form) { EXPECT_EQ(form.windowTitle(), title(7)); });
    EXPECT_EQ(bets().find("全部反选-"), std::string::npos);
}

TEST_F(ProgramTest, KeepOrRemoveIsSetAnewByEveryWindow) {
    enterAs(u"张三"_s);
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6, 7});
    pressNumbers(u"Command2(%1)"_s, {1});
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [this](QWidget& form) {
        press(form, u"Option1(1)"_s);
        EXPECT_EQ(program->Baoliu, 0);
    });
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [this](QWidget& form) {
        EXPECT_TRUE(controlAs<QRadioButton>(form, u"Option1(0)"_s)->isChecked());
        EXPECT_EQ(program->Baoliu, -1);
    });
}

TEST_F(ProgramTest, TheFilterWindowComesBackInItsSize) {
    enterAs(u"张三"_s);
    pressNumbers(u"Command1(%1)"_s, {1, 2, 3, 4, 5, 6, 7});
    pressNumbers(u"Command2(%1)"_s, {1});
    QSize size;
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [&size](QWidget& form) {
        form.resize(form.width() - 40, form.height() - 60);
        size = form.size();
    });
    inFilterWindow(u"mnuLst"_s, u"GAgan"_s, [&size](QWidget& form) { EXPECT_EQ(form.size(), size); });
}

TEST_F(ProgramTest, TheMainWindowComesBackAtTheNextStartWhereItWas) {
    enterAs(u"张三"_s);
    window(u"Form1"_s)->setGeometry(31, 47, 730, 640);
    const QRect place = window(u"Form1"_s)->geometry();
    window(u"Form1"_s)->close();
    start();
    enter();
    EXPECT_EQ(window(u"Form1"_s)->geometry(), place);
    window(u"Form1"_s)->close();
    start();
    createUser(u"李四"_s); // each user has places of his own
    enter();
    EXPECT_NE(window(u"Form1"_s)->geometry(), place);
}

TEST_F(ProgramTest, ANewNameIsANewEmptyWorkspaceFromTheNextStartOn) {
    enterAs(u"张三"_s);
    readThreeDraws();
    trigger(u"Form1"_s, u"mnuBlue(14)"_s);
    {
        const ModalScript script({{u"InputBox"_s,
                                   [](QWidget& box) {
                                       EXPECT_EQ(box.windowTitle(), u"用户名输入"_s);
                                       EXPECT_EQ(box.findChild<QLabel*>()->text(),
                                                 u"请输入用户名和彩票标示(比如:张先生[北京体彩36选7])："_s);
                                       EXPECT_EQ(box.findChild<QLineEdit*>()->text(), u"张三"_s);
                                       type(u"王五/二"_s)(box);
                                   }},
                                  {u"InputBox"_s, type(u"a"_s)},
                                  {u"InputBox"_s, type(u"b"_s)},
                                  {u"MsgBox"_s, answer(u"您两次设置的密码不同，请确认后再次输入"_s)},
                                  {u"InputBox"_s, type({})},
                                  {u"InputBox"_s, type({})}});
        trigger(u"Form1"_s, u"mnuName"_s);
    }
    EXPECT_TRUE(control(*window(u"Form1"_s), u"NoticeBar"_s)->isVisible());
    EXPECT_EQ(text(u"NoticeText"_s),
              u"用户名已改为“王五/二”，下次启动时生效。现在打开的仍是“张三”的数据，都没有改变。"_s);
    const auto fresh = workspace::userFolder(home.folder(), u"王五/二"_s);
    for (const char* file : {"filnum.mdb", "numsave.mdb", "Gailv.mdb"})
        EXPECT_TRUE(std::filesystem::exists(fresh / file)) << file;
    EXPECT_FALSE(std::filesystem::exists(fresh / "filnumR.mdb")); // this one is not copied
    EXPECT_TRUE(std::filesystem::exists(home.folder() / "张三" / "张三.mdb"));
    EXPECT_EQ(program->workspace.Username, u"张三"_s); // until the next start
    EXPECT_EQ(program->book.history().Lsnum, 3);
    window(u"Form1"_s)->close();
    start();
    enter();
    EXPECT_EQ(program->workspace.Username, u"王五/二"_s);
    EXPECT_EQ(program->book.history().Lsnum, 0);
    EXPECT_EQ(program->workspace.BitnumB, 16); // settings under the old name are left behind
}

TEST_F(ProgramTest, ANameOfAnotherUserIsRefusedAndAnEmptyOneEndsTheCommand) {
    start();
    createUser(u"李四"_s);
    createUser(u"张三"_s, u"old"_s);
    {
        const ModalScript script({{u"frmLogin"_s, [](QWidget& login) {
                                       typeInto(login, u"txtPassword"_s, u"old"_s);
                                       press(login, u"cmdOK"_s);
                                   }}});
        enter();
    }
    {
        const ModalScript script({{u"InputBox"_s, type(u"李四"_s)},
                                  {u"MsgBox"_s, answer(u"此用户名已经被注册，请换用其他的名字"_s)},
                                  {u"InputBox"_s, cancel()}});
        trigger(u"Form1"_s, u"mnuName"_s);
    }
    EXPECT_EQ(program->users.users()[1].name, u"张三"_s);
    EXPECT_EQ(program->users.users()[1].password, u"old"_s);
    readThreeDraws();
    const ModalScript script(
        {{u"InputBox"_s, type(u"张三"_s)}, {u"InputBox"_s, type(u"new"_s)}, {u"InputBox"_s, type(u"new"_s)}});
    trigger(u"Form1"_s, u"mnuName"_s); // his own name: the password alone changes
    EXPECT_EQ(workspace::Settings().value(u"AHXLOTQ"_s, u"Username2"_s, u"Password"_s), u"new"_s);
    EXPECT_EQ(program->workspace.dbUser->queryValue("SELECT Count(*) FROM [fig]"), sql::Value(std::int64_t{3}));
}

TEST_F(ProgramTest, ARefusedLineIsToldAndTheStoredHistoryStays) {
    enterAs(u"张三"_s);
    readThreeDraws();
    const QString path = writeFile(u"八个.txt"_s, "2003001 01 02 03 04 05 06 07\n2003002 01 02 03 04 05 06 07 08\n");
    {
        const ModalScript script({{u"MsgBox"_s, answer(kReadQuestion, u"读入历史"_s, QMessageBox::Ok)},
                                  {u"FileDialog"_s, chooseFile(path)},
                                  {u"MsgBox"_s,
                                   [](QWidget& box) {
                                       const QString question = qobject_cast<QMessageBox*>(&box)->text();
                                       EXPECT_TRUE(
                                           question.startsWith(u"读取的历史号码将保存为名为: 张三 双色号码"_s));
                                       answer({}, u"读入历史"_s, QMessageBox::Ok)(box);
                                   }},
                                  {u"MsgBox"_s, answer(kWrongLine, u"历史号码文本错误"_s, QMessageBox::Ok)}});
        press(u"Form1"_s, u"cmdRead"_s); // the button does what the entry does
    }
    EXPECT_EQ(program->book.history().Lsnum, 3);
    EXPECT_EQ(text(u"StatusBar1(2)"_s), u"历史：3期"_s);
    window(u"Form1"_s)->close();
    start();
    enter();
    EXPECT_EQ(program->book.history().Lsnum, 3); // the tables had not been touched
}

TEST_F(ProgramTest, ARuleIsReadWhenTheUserEnters) {
    enterAs(u"张三"_s);
    readThreeDraws();
    pressNumbers(u"Command1(%1)"_s, {32, 33});
    trigger(u"Form1"_s, u"meuS(28)"_s);
    trigger(u"Form1"_s, u"mnuBlue(12)"_s);
    EXPECT_EQ(program->pad.Redcnt, 0); // numbers above the rule leave the pad
    window(u"Form1"_s)->close();
    start();
    enter();
    EXPECT_EQ(program->workspace.Bitnum, 28);
    EXPECT_EQ(program->workspace.BitnumB, 12);
    EXPECT_EQ(program->book.history().Lshm[3],
              (history::Draw{2003003, 1, 7, 10, 23, 28, 32, 16})); // draws keep their numbers
    EXPECT_FALSE(controlAs<QWidget>(*window(u"Form1"_s), u"Command1(29)"_s)->isVisible());
}

} // namespace
