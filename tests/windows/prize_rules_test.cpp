// The prize rules in the whole program, with real clicks.
#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QTabBar>

#include "windows/history_window_support.h"

namespace history_window_tests {
namespace {

class PrizeRules : public HistoryWindow {
  protected:
    void SetUp() override { enterAs(u"张三"_s); }

    void inRules(const ModalAction& act, std::vector<ModalStep> more = {}) {
        more.insert(more.begin(), {u"frmPrize"_s, act});
        const ModalScript script(std::move(more));
        trigger(form(), u"meuPlc"_s);
    }
    QString stored(const QString& section, const QString& key) {
        return program->settings.value(u"张三QS"_s, section, key);
    }
    static void choosePage(QWidget& dialog, int page) {
        auto& bar = *controlAs<QTabBar>(dialog, u"tbsOptionsBar"_s);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(page).center());
    }
    static int pageOf(QWidget& dialog) { return controlAs<QTabBar>(dialog, u"tbsOptionsBar"_s)->currentIndex(); }
    static void typeAmount(QWidget& dialog, int page, const QString& amount) {
        auto& box = *controlAs<QLineEdit>(dialog, u"MaskEdBox1(%1)"_s.arg(page));
        box.setFocus();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        box.setCursorPosition(0);
        QTest::keyClicks(&box, amount);
    }
    /// What a page shows: "6+1 一等奖 5000000"; - for no option.
    static std::string page(QWidget& dialog, int page) {
        QString reds = u"-"_s;
        for (int count = 1; count <= 6; ++count)
            if (dialog.findChild<QRadioButton*>(u"Option%1(%2)"_s.arg(count).arg(page))->isChecked())
                reds = QString::number(count);
        return u"%1+%2 %3 %4"_s.arg(reds)
            .arg(dialog.findChild<QCheckBox*>(u"Check1(%1)"_s.arg(page))->isChecked() ? 1 : 0)
            .arg(dialog.findChild<QComboBox*>(u"Combo1(%1)"_s.arg(page))->currentText(),
                 dialog.findChild<QLineEdit*>(u"MaskEdBox1(%1)"_s.arg(page))->text())
            .toStdString();
    }
};

TEST_F(PrizeRules, OpenWithTheDefaultsOnTenPages) {
    inRules([](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"中奖规则管理"_s);
        EXPECT_EQ(controlAs<QTabBar>(dialog, u"tbsOptionsBar"_s)->count(), 10);
        std::vector<std::string> pages;
        for (int number = 0; number < 10; ++number)
            pages.push_back(page(dialog, number));
        EXPECT_EQ(pages, (std::vector<std::string>{"6+1 一等奖 5000000", "6+0 二等奖 50000", "5+1 三等奖 3000",
                                                   "5+0 四等奖 200", "4+1 四等奖 200", "4+0 五等奖 10",
                                                   "3+1 五等奖 10", "2+1 六等奖 5", "1+1 六等奖 5", "-+1 六等奖 5"}));
        EXPECT_TRUE(control(dialog, u"Picture1(0)"_s)->isVisible());
        EXPECT_FALSE(control(dialog, u"Picture1(9)"_s)->isVisible());
        QStringList labels;
        const auto& combo = *controlAs<QComboBox>(dialog, u"Combo1(3)"_s);
        for (int item = 0; item < combo.count(); ++item)
            labels << combo.itemText(item);
        EXPECT_EQ(labels.join(u','), u"特等,一等,二等,三等,四等,五等,六等,七等,八等,九等,十等,    "_s);
        press(dialog, u"cmdOK"_s); // untouched amounts are whole
    });
    EXPECT_EQ(stored(u"4prize"_s, u"Money"_s), u"200"_s);
}

TEST_F(PrizeRules, ClicksAreStoredAtOnce) {
    inRules([this](QWidget& dialog) {
        choosePage(dialog, 4);
        press(dialog, u"Option2(4)"_s);
        EXPECT_EQ(stored(u"5prize"_s, u"0"_s), u"2"_s);
        press(dialog, u"Check1(4)"_s);
        EXPECT_EQ(stored(u"5prize"_s, u"1"_s), u"0"_s);
        auto& combo = *controlAs<QComboBox>(dialog, u"Combo1(4)"_s);
        combo.setFocus();
        for (int item = 0; item < combo.count(); ++item)
            QTest::keyClick(&combo, Qt::Key_Down);
        EXPECT_EQ(stored(u"Prizerank"_s, u"5"_s), u"    "_s);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    inRules([](QWidget& dialog) {
        EXPECT_EQ(page(dialog, 4), "2+0      200");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(PrizeRules, AKeyWithCtrlTurnsThePageAndTheLastTurnsToTheFirst) {
    inRules([](QWidget& dialog) {
        QTest::keyClick(&dialog, Qt::Key_Control, Qt::ControlModifier);
        EXPECT_EQ(pageOf(dialog), 0);
        for (int turn = 1; turn <= 9; ++turn) {
            QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &dialog, Qt::Key_Tab,
                            Qt::ControlModifier);
            EXPECT_EQ(pageOf(dialog), turn);
        }
        QTest::keyClick(dialog.findChild<QLineEdit*>(u"MaskEdBox1(9)"_s), Qt::Key_F5, Qt::ControlModifier);
        EXPECT_EQ(pageOf(dialog), 0);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(PrizeRules, OkStoresSevenDigitsAndDropsTheAmountOfTheLastPage) {
    inRules([](QWidget& dialog) {
        choosePage(dialog, 2);
        typeAmount(dialog, 2, u"0004500"_s);
        choosePage(dialog, 9);
        typeAmount(dialog, 9, u"0000077"_s);
        press(dialog, u"cmdOK"_s);
    });
    EXPECT_EQ(stored(u"3prize"_s, u"Money"_s), u"4500"_s);
    EXPECT_EQ(stored(u"10prize"_s, u"Money"_s), QString());
}

TEST_F(PrizeRules, AnAmountOfLessThanSevenDigitsIsRefused) {
    inRules(
        [this](QWidget& dialog) {
            choosePage(dialog, 1);
            typeAmount(dialog, 1, u"6000"_s);
            choosePage(dialog, 5);
            press(dialog, u"cmdOK"_s);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(pageOf(dialog), 1);
            EXPECT_EQ(stored(u"1prize"_s, u"Money"_s), u"5000000"_s) << "rows before it are stored";
            EXPECT_EQ(stored(u"2prize"_s, u"Money"_s), QString());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        },
        {{u"MsgBox"_s, answer(u"Error # 13 was generated by ssqdesk类型不匹配\r"
                              "输入奖金额应为7位,不足应用'0'补齐7位!"_s,
                              u"Error"_s, QMessageBox::Ok)}});
}

} // namespace
} // namespace history_window_tests
