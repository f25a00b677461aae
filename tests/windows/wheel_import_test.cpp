// A user's own wheel, from 导入旋转矩阵… to the bets of its menu entry.
#include <fstream>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "filter/member.h"
#include "selection/wheel_database.h"
#include "windows/program_fixture.h"

using namespace Qt::StringLiterals;
using namespace test_support;
using selection::WheelFamily;

namespace {

const QByteArray kHolds = "# 9 选 中5保4\n1 2 3 4 5 6\n1 2 3 7 8 9\n4 5 6 7 8 9\n";
const QByteArray kMisses = "1 2 3 4 5 6\n1 2 3 7 8 9\n";

class WheelImportTest : public ProgramFixture {
  protected:
    void SetUp() override {
        enterAs(u"张三"_s);
        for (int red = 21; red <= 29; ++red)
            press(form(), u"Command1(%1)"_s.arg(red));
    }

    QWidget& form() { return *window(u"Form1"_s); }
    QAction& entry(const QString& name) {
        for (const QString& menu : {u"mnuSl"_s, u"mnuQnjz"_s})
            emit form().findChild<QMenu*>(menu)->aboutToShow();
        return *action(form(), name);
    }
    std::filesystem::path database() const { return home.folder() / "Xuanzhuancj"; }
    QStringList keptFiles() const {
        return QDir(home.folderName()).entryList({u"Xuanzhuancj 保存 *"_s}, QDir::Files);
    }

    /// Opens the window from its entry, does `acts` in it; the dialogs that follow come behind.
    void inImport(const std::vector<ModalStep>& during, const std::function<void(QWidget&)>& acts,
                  const std::vector<ModalStep>& after = {}) {
        std::vector<ModalStep> steps{{u"frmWheelImport"_s, acts}};
        steps.insert(steps.end(), during.begin(), during.end());
        steps.insert(steps.end(), after.begin(), after.end());
        const ModalScript script(steps);
        trigger(u"Form1"_s, u"mnuWheelIn"_s);
    }
    ModalStep picks(const QByteArray& text) {
        return {u"FileDialog"_s, test_support::chooseFile(writeFile(u"矩阵.txt"_s, text))};
    }
    static std::string said(QWidget& shown) { return controlAs<QLabel>(shown, u"Result"_s)->text().toStdString(); }
    static bool offered(QWidget& shown) { return controlAs<QPushButton>(shown, u"cmdOK"_s)->isEnabled(); }
    static void setNumber(QWidget& shown, const QString& name, int number) {
        controlAs<QSpinBox>(shown, name)->setValue(number);
    }
    static void choose(QWidget& shown, const QString& name, const QString& text) {
        auto* box = controlAs<QComboBox>(shown, name);
        ASSERT_GE(box->findText(text), 0) << text.toStdString();
        box->setCurrentIndex(box->findText(text));
    }

    void importHolding() {
        inImport({picks(kHolds)},
                 [](QWidget& shown) {
                     press(shown, u"cmdChoose"_s);
                     press(shown, u"cmdOK"_s);
                 },
                 {{u"MsgBox"_s, answer({}, u"导入旋转矩阵"_s, QMessageBox::Ok)}});
    }
}; // namespace

TEST_F(WheelImportTest, AWheelThatHoldsIsShownAcceptedAndOffered) {
    EXPECT_FALSE(entry(u"mnuRt54"_s).isEnabled()) << "there is no wheel yet";
    inImport({picks(kHolds)},
             [](QWidget& shown) {
                 EXPECT_FALSE(offered(shown)) << "nothing was read";
                 press(shown, u"cmdChoose"_s);
                 EXPECT_EQ(said(shown),
                           "✓ 保证成立。超级矩阵，9个红球，中5保4：选中的号码里若有 5 个开出，至少有一注含其中 4 个。"
                           "共 3 行，任何矩阵都不少于 3 行。");
                 EXPECT_EQ(controlAs<QLabel>(shown, u"TableThere"_s)->text(), u"程序里现在没有这张矩阵。"_s);
                 const auto* grid = controlAs<QTableView>(shown, u"MSFlexGrid1"_s)->model();
                 EXPECT_EQ(grid->rowCount(), 3);
                 EXPECT_EQ(grid->columnCount(), 7);
                 EXPECT_EQ(grid->index(1, 4).data().toString(), u"7"_s);
                 press(shown, u"cmdOK"_s);
             },
             {{u"MsgBox"_s,
               answer(u"矩阵已导入。超级矩阵，9个红球，中5保4：选中的号码里若有 5 个开出，至少有一注含其中 4 个。"
                      u"共 3 行，任何矩阵都不少于 3 行。"_s,
                      QMessageBox::Ok)}});
    EXPECT_TRUE(entry(u"mnuRt54"_s).isEnabled());
    EXPECT_EQ(entry(u"mnuRt54"_s).text(), u"9选 中5保4共计3注(&F)"_s);
    const ModalScript script({{u"GAganRoteR"_s, [](QWidget& shown) { shown.close(); }}});
    trigger(u"Form1"_s, u"mnuRt54"_s);
    const sql::Rows rows = program->workspace.dbFilnumR->query("SELECT idx,fig1,fig6 FROM [zuheRoteR]");
    ASSERT_EQ(rows.count(), 3);
    EXPECT_EQ(rows.textAt(1, 1) + ' ' + rows.textAt(1, 2), "21 29");
    EXPECT_EQ(rows.textAt(2, 1) + ' ' + rows.textAt(2, 2), "24 29");
}

TEST_F(WheelImportTest, WhatIsReplacedStaysBesideTheNewOne) {
    importHolding();
    EXPECT_EQ(keptFiles(), QStringList()) << "there was nothing to keep";
    importHolding();
    const QStringList kept = keptFiles();
    ASSERT_EQ(kept.size(), 1);
    sql::Engine other;
    EXPECT_EQ(other.open(home.folder() / kept.front().toStdString())->rowCount("0954"), 3);
    EXPECT_TRUE(entry(u"mnuRt54"_s).isEnabled());
}

TEST_F(WheelImportTest, OneThatDoesNotHoldIsRefusedWithTheFirstPositionsThatNoRowServes) {
    inImport({picks(kMisses)}, [](QWidget& shown) {
        press(shown, u"cmdChoose"_s);
        EXPECT_EQ(said(shown), "✗ 保证不成立：位置 1 4 5 7 8 全部开出时，没有一行含其中 4 个。");
        EXPECT_FALSE(offered(shown));
        choose(shown, u"cboGuarantee"_s, u"中7保4"_s);
        EXPECT_EQ(said(shown).find("✓"), 0U) << "of seven some row always holds four";
        EXPECT_TRUE(offered(shown));
        press(shown, u"cmdCancel"_s);
    });
    EXPECT_FALSE(std::filesystem::exists(database()));
    EXPECT_FALSE(entry(u"mnuRt54"_s).isEnabled());
}

TEST_F(WheelImportTest, ALineThatIsNoRowIsTold) {
    inImport({picks("1 2 3 4 5 6\n1 2 3 4 5\n1 2 3 4 5 9\n")}, [](QWidget& shown) {
        press(shown, u"cmdChoose"_s);
        EXPECT_EQ(said(shown),
                  "✗ 第 2 行不是这张矩阵的一行：“1 2 3 4 5”。每行要有 6 个不同的位置号，都在 1～9 之间。");
        EXPECT_FALSE(offered(shown));
        press(shown, u"cmdCancel"_s);
    });
}

TEST_F(WheelImportTest, CancelLeavesTheWheelThatIsThere) {
    importHolding();
    inImport({picks("1 2 3 4 5 6\n1 2 3 7 8 9\n4 5 6 7 8 9\n1 2 3 4 5 9\n")}, [](QWidget& shown) {
        press(shown, u"cmdChoose"_s);
        EXPECT_EQ(controlAs<QLabel>(shown, u"TableThere"_s)->text(),
                  u"程序里现有的这张矩阵有 3 行，导入后换成文本里的；原有的文件会保存下来。"_s);
        EXPECT_TRUE(offered(shown));
        press(shown, u"cmdCancel"_s);
    });
    EXPECT_EQ(entry(u"mnuRt54"_s).text(), u"9选 中5保4共计3注(&F)"_s);
    EXPECT_EQ(keptFiles(), QStringList());
}

TEST_F(WheelImportTest, TheTextSaysHowManyNumbersItIsForAndWhetherRowsAreOfSeven) {
    inImport({picks("1 2 3 4 5 6 7\n1 2 3 4 5 6 8\n")}, [](QWidget& shown) {
        press(shown, u"cmdChoose"_s);
        EXPECT_EQ(controlAs<QComboBox>(shown, u"cboFamily"_s)->currentText(), u"复7"_s);
        EXPECT_EQ(controlAs<QSpinBox>(shown, u"spnReds"_s)->value(), 8);
        press(shown, u"cmdCancel"_s);
    });
}

TEST_F(WheelImportTest, ABankerWheelNamesItsBankers) {
    inImport({picks("1 2 3 4 6 7\n1 2 3 5 6 7\n1 2 4 5 6 7\n")}, [](QWidget& shown) {
        choose(shown, u"cboFamily"_s, u"胆拖"_s);
        setNumber(shown, u"spnBankers"_s, 2);
        press(shown, u"cmdChoose"_s);
        EXPECT_EQ(controlAs<QSpinBox>(shown, u"spnReds"_s)->value(), 5) << "seven positions, two of them bankers";
        choose(shown, u"cboGuarantee"_s, u"中4保4"_s);
        EXPECT_EQ(said(shown).find("✓ 保证成立。胆拖矩阵，2胆5拖，中4保4："), 0U) << said(shown);
        choose(shown, u"cboGuarantee"_s, u"中5保5"_s);
        EXPECT_EQ(said(shown), "✗ 保证不成立：位置 3 4 5 6 7 全部开出时，没有一行含其中 5 个。") << said(shown);
        press(shown, u"cmdCancel"_s);
    });
}

/// A wheel of 24 numbers behind so many useless rows that its proof takes seconds on any machine.
TEST_F(WheelImportTest, AProofThatIsGivenUpTakesNothing) {
    sql::Engine engine;
    const auto shipped = engine.open(std::filesystem::path(SSQ_WHEEL_DATABASES) / "Xuanzhuancj");
    const sql::Rows rows = shipped->query("SELECT [fig1],[fig2],[fig3],[fig4],[fig5],[fig6] FROM [2454]");
    QByteArray text = QByteArray("1 2 3 4 5 6\n").repeated(static_cast<int>(selection::kMostWheelRows - 5000));
    for (std::int64_t row = 0; row < rows.count(); ++row) {
        for (int cell = 0; cell < 6; ++cell)
            text += QByteArray::number(static_cast<int>(rows.integerAt(row, cell))) + ' ';
        text += '\n';
    }
    QTimer impatient;
    int pressed = 0;
    QObject::connect(&impatient, &QTimer::timeout, [&pressed] {
        for (QWidget* shown : QApplication::topLevelWidgets())
            if (shown->objectName() == u"Dialog" && shown->isVisible()) {
                press(*shown, u"cmdCancel"_s);
                ++pressed;
            }
    });
    impatient.start(10);
    inImport({picks(text)}, [](QWidget& shown) {
        press(shown, u"cmdChoose"_s);
        EXPECT_EQ(said(shown), "检验已取消：按“重新检验”再来一次");
        EXPECT_FALSE(offered(shown));
        EXPECT_TRUE(controlAs<QPushButton>(shown, u"cmdAgain"_s)->isEnabled());
        press(shown, u"cmdCancel"_s);
    });
    EXPECT_GT(pressed, 0);
    EXPECT_FALSE(std::filesystem::exists(database()));
}

TEST_F(WheelImportTest, WithoutAFileNothingIsOffered) {
    inImport({{u"FileDialog"_s, cancel()}}, [](QWidget& shown) {
        press(shown, u"cmdChoose"_s);
        EXPECT_EQ(said(shown), "先选择文本，保证要检验过才能导入");
        EXPECT_FALSE(offered(shown));
        press(shown, u"cmdCancel"_s);
    });
}

TEST_F(WheelImportTest, APlaceThatTakesNoFileIsToldAndTheWheelStays) {
    importHolding();
    std::filesystem::create_directory(home.folder() / "Xuanzhuancj.new"); // in the way of the new database
    std::ofstream(home.folder() / "Xuanzhuancj.new" / "full") << 'x';
    inImport({picks(kHolds)},
             [](QWidget& shown) {
                 press(shown, u"cmdChoose"_s);
                 press(shown, u"cmdOK"_s);
             },
             {{u"MsgBox"_s, [](QWidget& box) {
                   const QString text = qobject_cast<QMessageBox*>(&box)->text();
                   EXPECT_TRUE(text.startsWith(u"矩阵没有导入："_s)) << text.toStdString();
                   EXPECT_TRUE(text.contains(u"原有的矩阵没有改变。"_s)) << text.toStdString();
                   answer({})(box);
               }}});
    EXPECT_TRUE(entry(u"mnuRt54"_s).isEnabled());
    EXPECT_EQ(keptFiles(), QStringList());
}

} // namespace
