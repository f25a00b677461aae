// The start window, the password box, and the one running program.
#include <csignal>
#include <set>

#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QTest>

#include <gtest/gtest.h>

#include "support/controls.h"
#include "support/fresh_home.h"
#include "support/modal_script.h"
#include "workspace/paths.h"
#include "workspace/templates.h"
#include "workspace/windows/login_dialog.h"
#include "workspace/windows/single_instance.h"
#include "workspace/windows/start_window.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

using workspace::Settings;
using workspace::SingleInstance;
using workspace::StartWindow;
using workspace::UserList;

class StartWindows : public ::testing::Test {
  protected:
    void show() {
        users = std::make_unique<UserList>(settings);
        window = std::make_unique<StartWindow>(settings, *users, engine, workspace::programFolder());
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    void addUser(const QString& name, const QString& password = {}) { UserList(settings).add(name, password); }

    void press(const QString& label) { test_support::press(*window, label); }
    QListWidget& list() { return *window->findChild<QListWidget*>(u"LstName"_s); }
    QStringList names() {
        QStringList texts;
        for (int row = 0; row < list().count(); ++row)
            texts << list().item(row)->text();
        return texts;
    }
    QString stored(const QString& section, const QString& key) {
        return Settings().value(u"AHXLOTQ"_s, section, key, u"(none)"_s);
    }
    bool fileExists(const QString& user, const char* file) {
        return std::filesystem::exists(workspace::userFolder(workspace::programFolder(), user) / file);
    }

    FreshHome home;
    Settings settings;
    sql::Engine engine;
    std::unique_ptr<UserList> users;
    std::unique_ptr<StartWindow> window;
};

/// Checks what a box asks, then answers it.
ModalAction typeAt(const QString& prompt, const QString& title, const QString& proposed, const QString& text) {
    return [=](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), title);
        EXPECT_EQ(dialog.findChild<QLabel*>()->text(), prompt);
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), proposed);
        type(text)(dialog);
    };
}

const QString kNamePrompt = u"请输入用户名和彩票标示(比如:张先生[北京体彩36选7])："_s;
const QString kFirstPassword = u"请输入用户密码(如果不需要密码则不输入)："_s;
const QString kSecondPassword = u"请再次输入用户密码(如果不需要密码则不输入)："_s;

TEST_F(StartWindows, TheStartWindowBearsItsTexts) {
    addUser(u"张三"_s);
    show();
    EXPECT_EQ(window->objectName(), u"Frmpre"_s);
    EXPECT_EQ(window->windowTitle(), u"欢迎进入云衡子.玄策乐透彩票助理"_s);
    EXPECT_EQ(controlAs<QLabel>(*window, u"Label2"_s)->text(), u"新建用户"_s);
    EXPECT_EQ(controlAs<QLabel>(*window, u"Label3"_s)->text(), u"进入系统"_s);
    EXPECT_EQ(controlAs<QLabel>(*window, u"Label4"_s)->text(), u"删除用户"_s);
    EXPECT_EQ(list().accessibleName(), u"用户名及彩票类型选择"_s);
    EXPECT_EQ(control(*window, u"Frame1"_s)->property("title").toString(), u"用户名及彩票类型选择"_s);
    EXPECT_EQ(list().item(0)->data(Qt::UserRole).toInt(), 1);
}

TEST_F(StartWindows, AnEmptyListSaysWhatToDo) {
    show();
    const auto inks = [this] { // colours of the middle of the list
        const QImage picture = list().viewport()->grab().toImage();
        std::set<QRgb> found;
        const int middle = picture.height() / 2;
        for (int y = middle - 20; y < middle + 20; ++y)
            for (int x = 0; x < picture.width(); ++x)
                found.insert(picture.pixel(x, y));
        return found.size();
    };
    EXPECT_GT(inks(), 1U);
    addUser(u"张三"_s);
    show();
    EXPECT_EQ(inks(), 1U) << "the entry stands at the top";
}

TEST_F(StartWindows, AUserWithoutANameIsSeenAsSuch) {
    show();
    const ModalScript script({{u"InputBox"_s, cancel()}, {u"InputBox"_s, cancel()}, {u"InputBox"_s, cancel()}});
    press(u"Label2"_s);
    EXPECT_EQ(list().item(0)->data(Qt::AccessibleTextRole).toString(), u"（无名）"_s);
    const auto* delegate = qobject_cast<QStyledItemDelegate*>(list().itemDelegate());
    EXPECT_EQ(delegate->displayText(QString(), {}), u"（无名）"_s);
    EXPECT_EQ(delegate->displayText(u"张三"_s, {}), u"张三"_s);
}

TEST_F(StartWindows, ThePasswordsOfANewUserAreHiddenWhileTyped) {
    show();
    const auto hidden = [](QLineEdit::EchoMode echo) {
        return [echo](QWidget& box) {
            EXPECT_EQ(box.findChild<QLineEdit*>()->echoMode(), echo);
            type(u"abc"_s)(box);
        };
    };
    const ModalScript script({{u"InputBox"_s, hidden(QLineEdit::Normal)},
                              {u"InputBox"_s, hidden(QLineEdit::Password)},
                              {u"InputBox"_s, hidden(QLineEdit::Password)}});
    press(u"Label2"_s);
    EXPECT_EQ(stored(u"Username1"_s, u"Password"_s), u"abc"_s);
}

TEST_F(StartWindows, EnterAtTheQuestionOfADeletionKeepsTheUser) {
    addUser(u"张三"_s);
    show();
    list().setCurrentRow(0);
    const ModalScript script({{u"MsgBox"_s, [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); }}});
    press(u"Label4"_s);
    EXPECT_EQ(names(), QStringList{u"张三"_s});
}

TEST_F(StartWindows, WithoutUsersNothingIsSelectedAndEnterAndDeleteSaySo) {
    show();
    EXPECT_EQ(list().currentRow(), -1);
    ModalScript script(
        {{u"MsgBox"_s, answer(u"请建立或选择一个用户名然后再进入。"_s, u"用户名错误"_s, QMessageBox::Ok)},
         {u"MsgBox"_s, answer(u"请选择一个用户名然后再删除。"_s, u"用户名错误"_s, QMessageBox::Ok)}});
    press(u"Label3"_s);
    press(u"Label4"_s);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(StartWindows, ANewUserIsAskedForNameAndPasswordAndHasHisFiles) {
    show();
    ModalScript script({{u"InputBox"_s, typeAt(kNamePrompt, u"用户名输入"_s, u"新用户1"_s, u"张先生[北京]"_s)},
                        {u"InputBox"_s, typeAt(kFirstPassword, u"用户密码设置"_s, {}, u"一"_s)},
                        {u"InputBox"_s, typeAt(kSecondPassword, u"用户密码设置"_s, {}, u"一"_s)}});
    press(u"Label2"_s);
    EXPECT_EQ(names(), QStringList{u"张先生[北京]"_s});
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(stored(u"Option"_s, u"Usernum"_s), u"1"_s);
    EXPECT_EQ(stored(u"Username1"_s, u"Password"_s), u"一"_s);
    for (const char* file : {"张先生[北京].mdb", "filnum.mdb", "filnumR.mdb", "numsave.mdb", "Gailv.mdb"})
        EXPECT_TRUE(fileExists(u"张先生[北京]"_s, file)) << file;
}

TEST_F(StartWindows, ATakenNameAndDifferentPasswordsAreAskedAgain) {
    addUser(u"张三"_s);
    show();
    ModalScript script({{u"InputBox"_s, type(u"张三"_s)},
                        {u"MsgBox"_s, answer(u"此用户名已经被注册，请换用其他的名字"_s)},
                        {u"InputBox"_s, type(u"李四"_s)},
                        {u"InputBox"_s, type(u"一"_s)},
                        {u"InputBox"_s, type(u"二"_s)},
                        {u"MsgBox"_s, answer(u"您两次设置的密码不同，请确认后再次输入"_s)},
                        {u"InputBox"_s, type(u""_s)},
                        {u"InputBox"_s, type(u""_s)}});
    press(u"Label2"_s);
    EXPECT_EQ(names(), (QStringList{u"张三"_s, u"李四"_s}));
    EXPECT_EQ(stored(u"Username2"_s, u"Password"_s), QString());
}

TEST_F(StartWindows, ACancelledNameProceedsAsAnEmptyOne) {
    show();
    ModalScript script({{u"InputBox"_s, cancel()}, {u"InputBox"_s, cancel()}, {u"InputBox"_s, cancel()}});
    press(u"Label2"_s);
    EXPECT_EQ(names(), QStringList{QString()});
    EXPECT_TRUE(fileExists(QString(), "filnum.mdb"));
    EXPECT_EQ(UserList(settings).users().at(0).name, u"新用户1"_s); // at the next start
}

TEST_F(StartWindows, AFullListIsToldBeforeAnythingIsAsked) {
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Usernum"_s, workspace::kMostUsers);
    show();
    const ModalScript script({{u"MsgBox"_s, answer(u"用户数已达上限 1023 个，请先删除不用的用户然后再新建。"_s,
                                                   u"用户名错误"_s, QMessageBox::Ok)}});
    press(u"Label2"_s);
    EXPECT_EQ(list().count(), workspace::kMostUsers);
}

TEST_F(StartWindows, ClosingItIsTheEndButEnteringIsNot) {
    addUser(u"张三"_s);
    show();
    const QSignalSpy closed(window.get(), &StartWindow::closed);
    list().setCurrentRow(0);
    press(u"Label3"_s);
    EXPECT_EQ(closed.count(), 0);
    window->show();
    window->close();
    EXPECT_EQ(closed.count(), 1);
}

TEST_F(StartWindows, AUserWithoutPasswordEntersAtOnce) {
    addUser(u"张三"_s);
    addUser(u"李四"_s);
    settings.set(u"李四QS"_s, u"Initial"_s, u"BitnumB"_s, 12);
    show();
    list().setCurrentRow(1);
    QSignalSpy entered(window.get(), &StartWindow::entered);
    press(u"Label3"_s);
    EXPECT_EQ(entered.size(), 1);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(stored(u"Option"_s, u"Ftopt"_s), u"2"_s);
    const workspace::Workspace taken = window->takeWorkspace();
    EXPECT_EQ(taken.Username, u"李四"_s);
    EXPECT_EQ(taken.Bitnum, 33);
    EXPECT_EQ(taken.BitnumB, 12);
    EXPECT_EQ(taken.UserDbPath, u"\\李四\\李四.mdb"_s);
}

TEST_F(StartWindows, TheUserWhoEnteredLastIsSelected) {
    addUser(u"张三"_s);
    addUser(u"李四"_s);
    settings.set(u"AHXLOTQ"_s, u"Option"_s, u"Ftopt"_s, 9); // beyond the list
    show();
    EXPECT_EQ(list().currentRow(), 1);
}

/// Types into the password box and presses one of its buttons.
ModalAction login(const QString& password, const QString& button) {
    return [=](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"登录"_s);
        typeInto(dialog, u"txtPassword"_s, password);
        test_support::press(dialog, button);
    };
}

TEST_F(StartWindows, APasswordHasToMatch) {
    addUser(u"张三"_s, u"abc"_s);
    show();
    list().setCurrentRow(0);
    QSignalSpy entered(window.get(), &StartWindow::entered);
    const auto twice = [](QWidget& dialog) {
        login(u"xyz"_s, u"cmdOK"_s)(dialog); // returns when the message has been answered
        auto* edit = controlAs<QLineEdit>(dialog, u"txtPassword"_s);
        EXPECT_EQ(edit->selectionLength(), 3);
        EXPECT_EQ(dialog.focusWidget(), edit);
        login(u"abc"_s, u"cmdOK"_s)(dialog);
    };
    ModalScript script(
        {{u"frmLogin"_s, twice}, {u"MsgBox"_s, answer(u"无效的密码，请重试!"_s, u"登录"_s, QMessageBox::Ok)}});
    press(u"Label3"_s);
    EXPECT_EQ(entered.size(), 1);
}

TEST_F(StartWindows, ACancelledPasswordStays) {
    addUser(u"张三"_s, u"abc"_s);
    show();
    list().setCurrentRow(0);
    ModalScript script({{u"frmLogin"_s, login(u"abc"_s, u"cmdCancel"_s)}});
    press(u"Label3"_s);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(stored(u"Option"_s, u"Ftopt"_s), u"(none)"_s);
}

TEST_F(StartWindows, ARuleThatIsNoNumberIsToldAndStays) {
    addUser(u"张三"_s);
    settings.set(u"张三QS"_s, u"Initial"_s, u"Bitnum"_s, u"many"_s);
    show();
    list().setCurrentRow(0);
    QSignalSpy entered(window.get(), &StartWindow::entered);
    ModalScript script({{u"MsgBox"_s, answer(u"类型不匹配: \"many\" (Bitnum)"_s)}});
    press(u"Label3"_s);
    EXPECT_EQ(entered.size(), 0);
    EXPECT_TRUE(window->isVisible());
}

const QString kDeleteQuestion = u"确实要删除该用户吗？删除之后将不可恢复其数据！"_s;

TEST_F(StartWindows, DeletingAUserTakesHisFilesAndMovesTheOthersDown) {
    for (const QString& name : {u"一"_s, u"二"_s, u"三"_s})
        addUser(name);
    workspace::makeMissingTemplates(engine, workspace::programFolder());
    show();
    std::filesystem::create_directory(workspace::userFolder(workspace::programFolder(), u"二"_s));
    std::filesystem::copy_file(workspace::programFolder() / "numsave.mdb",
                               workspace::userFolder(workspace::programFolder(), u"二"_s) / "numsave.mdb");
    list().setCurrentRow(1);
    ModalScript script({{u"MsgBox"_s, answer(kDeleteQuestion, u"读入历史"_s, QMessageBox::Ok)}});
    press(u"Label4"_s);
    EXPECT_EQ(names(), (QStringList{u"一"_s, u"三"_s}));
    EXPECT_EQ(list().item(1)->data(Qt::UserRole).toInt(), 2);
    EXPECT_EQ(stored(u"Option"_s, u"Usernum"_s), u"2"_s);
    EXPECT_EQ(stored(u"Username2"_s, u"Name"_s), u"三"_s);
    EXPECT_FALSE(fileExists(u"二"_s, "numsave.mdb"));
    EXPECT_TRUE(fileExists(u"二"_s, "")); // the folder stays
}

TEST_F(StartWindows, DeletingTheLastUserLeavesTheListEmpty) {
    addUser(u"一"_s);
    show();
    list().setCurrentRow(0);
    ModalScript script({{u"MsgBox"_s, answer(kDeleteQuestion, QMessageBox::Ok)}});
    press(u"Label4"_s);
    EXPECT_EQ(list().count(), 0);
    EXPECT_EQ(stored(u"Option"_s, u"Usernum"_s), u"0"_s);
}

TEST_F(StartWindows, CancelKeepsTheUser) {
    addUser(u"一"_s);
    show();
    list().setCurrentRow(0);
    ModalScript script({{u"MsgBox"_s, answer(kDeleteQuestion, QMessageBox::Cancel)}});
    press(u"Label4"_s);
    EXPECT_EQ(names(), QStringList{u"一"_s});
}

TEST_F(StartWindows, WithoutThePasswordNobodyIsDeleted) {
    addUser(u"一"_s, u"abc"_s);
    show();
    list().setCurrentRow(0);
    ModalScript script({{u"MsgBox"_s, answer(kDeleteQuestion, QMessageBox::Ok)},
                        {u"frmLogin"_s, login({}, u"cmdCancel"_s)},
                        {u"MsgBox"_s, answer(u"密码有误，没有权限删除该用户"_s)}});
    press(u"Label4"_s);
    EXPECT_EQ(names(), QStringList{u"一"_s});
    EXPECT_EQ(stored(u"Option"_s, u"Usernum"_s), u"1"_s);
}

TEST_F(StartWindows, ALabelIsPressedWithTheKeyboardToo) {
    show();
    ModalScript script({{u"MsgBox"_s, answer(u"请建立或选择一个用户名然后再进入。"_s)}});
    auto* label = controlAs<QLabel>(*window, u"Label3"_s);
    label->setFocus();
    QTest::keyClick(label, Qt::Key_Space);
}

TEST_F(StartWindows, ALabelLetGoOutsideIsNotPressed) {
    show();
    auto* label = controlAs<QLabel>(*window, u"Label3"_s);
    QTest::mousePress(label, Qt::LeftButton);
    QTest::mouseRelease(label, Qt::LeftButton, {}, QPoint(-50, -50));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(StartWindows, EveryControlFitsAtItsSmallestSize) {
    addUser(u"张三"_s);
    show();
    window->resize(window->minimumSizeHint());
    for (const QString& name : {u"Label2"_s, u"Label3"_s, u"Label4"_s, u"Label1"_s}) {
        auto* label = controlAs<QLabel>(*window, name);
        EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text())) << name.toStdString();
    }
}

TEST_F(StartWindows, ASecondStartRaisesTheFirst) {
    const SingleInstance first(workspace::programFolder());
    QSignalSpy asked(&first, &SingleInstance::raiseAsked);
    ASSERT_TRUE(first.isFirst());
    EXPECT_TRUE(mayStart(first));
    const SingleInstance second(workspace::programFolder());
    ASSERT_FALSE(second.isFirst());
    ModalScript script({{u"MsgBox"_s, [](QWidget& dialog) {
                             EXPECT_EQ(qobject_cast<QMessageBox*>(&dialog)->icon(), QMessageBox::Critical);
                             answer(u"此程序已经执行,无法重复执行本程序,否则严重影响本程序执行速度!"_s)(dialog);
                         }}});
    EXPECT_FALSE(mayStart(second));
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() == 1; }));
}

TEST_F(StartWindows, TheSameFolderIsRefusedFromAnotherLoginToo) {
    const SingleInstance first(workspace::programFolder());
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    const QTemporaryDir other;
    qputenv("XDG_RUNTIME_DIR", other.path().toUtf8());
    EXPECT_FALSE(SingleInstance(workspace::programFolder()).isFirst());
    if (runtime.isEmpty())
        qunsetenv("XDG_RUNTIME_DIR");
    else
        qputenv("XDG_RUNTIME_DIR", runtime);
}

TEST_F(StartWindows, NoFileInTheFolderStandsInTheWay) {
    const auto before = std::distance(std::filesystem::directory_iterator(workspace::programFolder()), {});
    for (const char* name : {"ssqdesk.lock", ".lock", "lock"})
        std::filesystem::create_directory(workspace::programFolder() / name);
    const SingleInstance first(workspace::programFolder());
    EXPECT_TRUE(first.isFirst());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(workspace::programFolder()), {}), before + 3);
}

TEST_F(StartWindows, ProgramsOnDifferentFoldersDoNotHinderEachOther) {
    const SingleInstance first(workspace::programFolder());
    const SingleInstance other(workspace::programFolder() / "other");
    EXPECT_TRUE(first.isFirst());
    EXPECT_TRUE(other.isFirst());
}

TEST_F(StartWindows, AfterTheFirstHasEndedTheNextIsFirst) {
    { const SingleInstance first(workspace::programFolder()); }
    const SingleInstance second(workspace::programFolder());
    EXPECT_TRUE(second.isFirst());
}

TEST_F(StartWindows, AKilledProgramDoesNotStandInTheWay) {
    const pid_t child = ::fork();
    if (child == 0) {
        const SingleInstance killed(workspace::programFolder());
        ::_exit(killed.isFirst() ? ::raise(SIGKILL) : 1); // leaves its lock and its socket behind
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    const SingleInstance next(workspace::programFolder());
    EXPECT_TRUE(next.isFirst());
    QSignalSpy asked(&next, &SingleInstance::raiseAsked);
    EXPECT_TRUE(SingleInstance(workspace::programFolder()).raiseFirst());
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() == 1; }));
}

} // namespace
