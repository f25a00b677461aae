// The reports of profit and loss in the whole program, with real clicks.
#include <QDir>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include "prize/windows/reports_window.h"
#include "windows/history_window_support.h"
#include "workspace/paths.h"

namespace history_window_tests {
namespace {

const QString kAskAll = u"阁下是否确定删除以前所有的历史盈亏纪录？删除后将永久性不可回收的删除！"_s;
const QString kAskTicked = u"阁下是否确定删除指定的(前面打勾的)历史盈亏纪录？删除后将永久性不可回收的删除！"_s;

class PrizeReports : public HistoryWindow {
  protected:
    void SetUp() override {
        enterAs(u"张三"_s);
        QDir(home.folderName()).mkpath(u"张三/duijiang"_s);
    }

    void addThree() {
        for (const auto& [day, word] : {std::pair(1, "甲"), std::pair(2, "乙"), std::pair(10, "丙")})
            writeFile(u"张三/duijiang/26-11-%1日9.5.7秒兑奖.txt"_s.arg(day),
                      QByteArray("兑奖日期:2026-11-") + QByteArray::number(day).rightJustified(2, '0') +
                          "\r\n兑奖时间:09:05:07\r\n" + word + "\r\n");
    }
    void inReports(const ModalAction& act, std::vector<ModalStep> more = {}) {
        more.insert(more.begin(), {u"frmYk"_s, act});
        const ModalScript script(std::move(more));
        trigger(form(), u"meuRepot"_s);
    }
    static QListWidget& list(QWidget& dialog) { return *controlAs<QListWidget>(dialog, u"List1"_s); }
    /// The third line of the text that is shown.
    static std::string shown(QWidget& dialog) {
        return controlAs<QPlainTextEdit>(dialog, u"RichTextBox1"_s)->toPlainText().section(u'\n', 2, 2).toStdString();
    }
    static void clickEntry(QWidget& dialog, int row) {
        QListWidget& entries = list(dialog);
        QTest::mouseClick(entries.viewport(), Qt::LeftButton, {}, entries.visualItemRect(entries.item(row)).center());
    }
    static void tick(QWidget& dialog, int row) {
        clickEntry(dialog, row);
        QTest::keyClick(&list(dialog), Qt::Key_Space);
        EXPECT_EQ(list(dialog).item(row)->checkState(), Qt::Checked);
    }
    QStringList files() { return QDir(home.folderName() + u"/张三/duijiang"_s).entryList(QDir::Files); }
};

TEST_F(PrizeReports, AreListedSteppedAndChosen) {
    addThree();
    inReports([](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"盈亏报告"_s);
        EXPECT_EQ(list(dialog).count(), 3);
        EXPECT_EQ(list(dialog).item(1)->text(), u"兑奖日期:2026-11-02     兑奖时间:09:05:07"_s);
        EXPECT_EQ(shown(dialog), "丙") << "the last one at first";
        press(dialog, u"Command1"_s);
        EXPECT_EQ(shown(dialog), "丙") << "the index stands on the first";
        press(dialog, u"Command2"_s);
        EXPECT_EQ(shown(dialog), "乙");
        EXPECT_EQ(list(dialog).currentRow(), 1);
        press(dialog, u"Command2"_s);
        press(dialog, u"Command2"_s);
        EXPECT_EQ(shown(dialog), "丙") << "one past the last: the text stays";
        press(dialog, u"Command1"_s);
        press(dialog, u"Command1"_s);
        press(dialog, u"Command1"_s);
        EXPECT_EQ(shown(dialog), "甲");
        clickEntry(dialog, 2);
        EXPECT_EQ(shown(dialog), "丙");
        press(dialog, u"Command2"_s);
        EXPECT_EQ(shown(dialog), "乙") << "a click is no step";
        press(dialog, u"Command3"_s);
    });
}

TEST_F(PrizeReports, WithoutAReportNothingIsShown) {
    inReports([](QWidget& dialog) {
        EXPECT_EQ(list(dialog).count(), 0);
        press(dialog, u"Command1"_s);
        press(dialog, u"Command2"_s);
        EXPECT_EQ(shown(dialog), "");
        press(dialog, u"Command3"_s);
    });
}

TEST_F(PrizeReports, TickedOnesAreDeletedAfterAQuestion) {
    addThree();
    inReports(
        [](QWidget& dialog) {
            tick(dialog, 0);
            tick(dialog, 2);
            press(dialog, u"Command6"_s);
            EXPECT_EQ(list(dialog).count(), 3) << "No";
            press(dialog, u"Command6"_s);
            EXPECT_EQ(list(dialog).count(), 1);
            EXPECT_EQ(shown(dialog), "乙");
            press(dialog, u"Command3"_s);
        },
        {{u"MsgBox"_s,
          [](QWidget& box) {
              EXPECT_EQ(static_cast<QMessageBox&>(box).defaultButton(),
                        static_cast<QMessageBox&>(box).button(QMessageBox::No));
              answer(kAskTicked, u"删除清空"_s, QMessageBox::No)(box);
          }},
         {u"MsgBox"_s, answer(kAskTicked, u"删除清空"_s, QMessageBox::Yes)}});
    EXPECT_EQ(files(), QStringList{u"26-11-2日9.5.7秒兑奖.txt"_s});
}

TEST_F(PrizeReports, DeletingAllEmptiesTheListAndSparesTheReports) {
    addThree();
    writeFile(u"张三/26-1-1日1.1.1秒兑奖.txt"_s, "x");
    inReports(
        [](QWidget& dialog) {
            press(dialog, u"Command5"_s);
            EXPECT_EQ(list(dialog).count(), 3) << "No";
            press(dialog, u"Command5"_s);
            EXPECT_EQ(list(dialog).count(), 0);
            EXPECT_EQ(shown(dialog), "");
            press(dialog, u"Command3"_s);
        },
        {{u"MsgBox"_s, answer(kAskAll, u"删除清空"_s, QMessageBox::No)},
         {u"MsgBox"_s, answer(kAskAll, u"删除清空"_s, QMessageBox::Yes)}});
    EXPECT_EQ(program->settings.value(u"张三"_s, u"Money"_s, u"Default"_s), u"0"_s);
    EXPECT_FALSE(QFile::exists(home.folderName() + u"/张三/26-1-1日1.1.1秒兑奖.txt"_s));
    inReports([](QWidget& dialog) {
        EXPECT_EQ(list(dialog).count(), 3);
        press(dialog, u"Command3"_s);
    });
}

TEST_F(PrizeReports, TheWholeTextGoesToThePrinter) {
    addThree();
    QString printed;
    prize::ReportsWindow window({program->workspace.folder / workspace::toPath(u"张三"_s), program->settings,
                                 u"张三"_s, [&](QWidget&, const QString& text) { printed = text; }},
                                {[](const QString&) { return QString(); }, [](const QString&, const QString&) {}});
    window.setVisible(true);
    press(window, u"Command4"_s);
    EXPECT_EQ(printed, u"兑奖日期:2026-11-10\n兑奖时间:09:05:07\n丙\n"_s);
}

TEST_F(PrizeReports, ThePrinterIsAskedForAboveTheWindow) {
    addThree();
    inReports(
        [](QWidget& dialog) {
            press(dialog, u"Command4"_s);
            EXPECT_EQ(shown(dialog), "丙");
            press(dialog, u"Command3"_s);
        },
        {{u"PrintDialog"_s, test_support::cancel()}});
}

} // namespace
} // namespace history_window_tests
