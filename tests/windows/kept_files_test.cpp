// What the user sees of files that were put aside, of settings that cannot be read, and of names that come back.
#include <fstream>

#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "mainwin/windows/form1.h"
#include "toolkit/notice_bar.h"
#include "windows/history_window_support.h"
#include "workspace/paths.h"

namespace {

using namespace history_window_tests;

class KeptFilesWindow : public HistoryWindow {
  protected:
    bool hasNotice() { return control(form(), u"NoticeBar"_s)->isVisible(); }
    QString notice() { return text(u"NoticeText"_s); }
    std::filesystem::path fileOf(const QString& user, const char* name) {
        return workspace::userFolder(home.folder(), user) / name;
    }
    void closeProgram() {
        window(u"Form1"_s)->close();
        program.reset();
    }
    void set(const QString& application, const QString& section, const QString& key, const QString& text) {
        workspace::Settings().set(application, section, key, text);
    }
    void renameTo(const QString& name) {
        const ModalScript script({{u"InputBox"_s, type(name)}, {u"InputBox"_s, type({})}, {u"InputBox"_s, type({})}});
        trigger(form(), u"mnuName"_s);
    }
};

TEST_F(KeptFilesWindow, ARepairIsToldAtTheTopAndCanBeTakenBack) {
    enterAs(u"张三"_s);
    readText(kThreeDraws);
    closeProgram();
    std::filesystem::remove(fileOf(u"张三"_s, "numsave.mdb"));
    start();
    enter();
    EXPECT_EQ(program->book.history().Lsnum, 0);
    ASSERT_TRUE(hasNotice());
    EXPECT_TRUE(notice().contains(u"filnum.mdb、张三.mdb"_s)) << notice().toStdString();
    EXPECT_TRUE(notice().contains(u"找不到文件"_s));
    enterAgain(); // it was not closed
    ASSERT_TRUE(hasNotice());
    test_support::press(form(), u"NoticeAction"_s);
    EXPECT_EQ(program->book.history().Lsnum, 3);
    EXPECT_EQ(row(2).mid(1),
              (QStringList{u"2003003"_s, u"01"_s, u"07"_s, u"10"_s, u"23"_s, u"28"_s, u"32"_s, u"16"_s}));
    EXPECT_EQ(program->workspace.dbFilnum->rowCount("fig"), 3);
    EXPECT_TRUE(hasNotice()); // of the templates that the draws took the places of
    while (hasNotice())
        test_support::press(form(), u"NoticeClose"_s);
    enterAgain();
    EXPECT_FALSE(hasNotice());
    EXPECT_EQ(program->book.history().Lsnum, 3);
}

TEST_F(KeptFilesWindow, AHistoryThatIsDamagedStaysKeptAndIsTold) {
    enterAs(u"张三"_s);
    closeProgram();
    std::ofstream(fileOf(u"张三"_s, "张三.mdb"), std::ios::trunc) << "no database at all";
    start();
    enter();
    ASSERT_TRUE(hasNotice());
    const ModalScript script({{u"MsgBox"_s, [](QWidget& box) {
                                   const QString told = qobject_cast<QMessageBox*>(&box)->text();
                                   EXPECT_TRUE(told.contains(u"张三.mdb"_s)) << told.toStdString();
                                   EXPECT_FALSE(told.contains(u"filnum.mdb"_s)) << told.toStdString();
                                   answer({})(box);
                               }}});
    test_support::press(form(), u"NoticeAction"_s);
}

TEST_F(KeptFilesWindow, ANameThatComesBackInOneRunGivesItsFilesBack) {
    enterAs(u"甲"_s);
    readText(kThreeDraws);
    renameTo(u"乙"_s);
    renameTo(u"甲"_s);
    typeDraw(u"01 02 03 04 05 06 07"_s);
    EXPECT_EQ(program->book.history().Lsnum, 4);
    enterAgain();
    EXPECT_EQ(program->workspace.Username, u"甲"_s);
    EXPECT_EQ(program->book.history().Lsnum, 4);
    EXPECT_FALSE(hasNotice());
}

TEST_F(KeptFilesWindow, ARenameOntoAFolderKeepsWhatIsThere) {
    enterAs(u"甲"_s);
    readText(kThreeDraws);
    renameTo(u"乙"_s);
    enterAgain(); // as 乙, empty; the folder of 甲 stands
    EXPECT_EQ(program->book.history().Lsnum, 0);
    renameTo(u"甲"_s);
    enterAgain();
    EXPECT_EQ(program->book.history().Lsnum, 0);
    ASSERT_TRUE(hasNotice());
    test_support::press(form(), u"NoticeAction"_s);
    EXPECT_EQ(program->book.history().Lsnum, 3);
}

TEST_F(KeptFilesWindow, ANewUserOfAnOldNameHasTheOldFilesKept) {
    enterAs(u"张三"_s);
    readText(kThreeDraws);
    renameTo(u"李四"_s);
    closeProgram();
    start();
    createUser(u"张三"_s);
    enter();
    EXPECT_EQ(program->workspace.Username, u"张三"_s);
    EXPECT_EQ(program->book.history().Lsnum, 0);
    ASSERT_TRUE(hasNotice());
    test_support::press(form(), u"NoticeAction"_s);
    EXPECT_EQ(program->book.history().Lsnum, 3);
}

TEST_F(KeptFilesWindow, DamagedSettingsAreToldInTheFirstWindow) {
    start();
    createUser(u"张三"_s);
    {
        QFile file(workspace::toQString(workspace::Settings().file()));
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write("half a line\n");
    }
    start();
    QWidget& first = *window(u"Frmpre"_s);
    ASSERT_TRUE(control(first, u"NoticeBar"_s)->isVisible());
    EXPECT_TRUE(controlAs<QLabel>(first, u"NoticeText"_s)->text().contains(u"1 行损坏"_s));
    EXPECT_EQ(controlAs<QListWidget>(first, u"LstName"_s)->count(), 1);
    test_support::press(first, u"NoticeClose"_s);
    EXPECT_FALSE(control(first, u"NoticeBar"_s)->isVisible());
}

TEST_F(KeptFilesWindow, SettingsThatAreNoNumbersAreToldByNameAndTheProgramGoesOn) {
    start();
    createUser(u"张三"_s);
    set(u"AHXLOTQ"_s, u"Option"_s, u"Usernum"_s, u"x"_s);
    set(u"AHXLOTQ"_s, u"Option"_s, u"Ftopt"_s, u"y"_s);
    set(u"张三QS"_s, u"Initial"_s, u"Wd"_s, u"lots"_s);
    set(u"张三QS"_s, u"setup"_s, u"dayin"_s, {});
    {
        const ModalScript script({{u"MsgBox"_s, answer(u"类型不匹配: \"x\" (Usernum)"_s)},
                                  {u"MsgBox"_s, answer(u"类型不匹配: \"y\" (Ftopt)"_s)}});
        start();
    }
    auto* list = controlAs<QListWidget>(*window(u"Frmpre"_s), u"LstName"_s);
    ASSERT_EQ(list->count(), 1);
    list->setCurrentRow(0);
    const ModalScript script({{u"MsgBox"_s, answer(u"类型不匹配: \"\" (dayin)"_s)},
                              {u"MsgBox"_s, answer(u"类型不匹配: \"lots\" (Wd)"_s)}});
    enter();
    EXPECT_TRUE(form().isVisible());
}

TEST_F(KeptFilesWindow, AnEntryWhoseFilesAnotherOneUsesTakesThemNotAlong) {
    start();
    createUser(u"张三"_s);
    set(u"AHXLOTQ"_s, u"Username2"_s, u"Name"_s, u"张三"_s); // as a kill of an earlier version left it
    set(u"AHXLOTQ"_s, u"Option"_s, u"Usernum"_s, u"2"_s);
    start();
    controlAs<QListWidget>(*window(u"Frmpre"_s), u"LstName"_s)->setCurrentRow(1);
    const ModalScript script({{u"MsgBox"_s, answer({}, QMessageBox::Ok)}});
    test_support::press(u"Frmpre"_s, u"Label4"_s);
    EXPECT_TRUE(std::filesystem::exists(fileOf(u"张三"_s, "张三.mdb")));
}

} // namespace
