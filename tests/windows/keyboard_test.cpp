// An evening without a mouse: a user is made, a history read, numbers chosen, bets made and filtered, by keys alone.
#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "windows/program_fixture.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

constexpr int kMostStops = 100; // no window has as many: tables and pads are one stop each

class Keyboard : public ProgramFixture {
  protected:
    static void activate(QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    static void key(QWidget& window, int which) {
        QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, static_cast<Qt::Key>(which));
    }

    /// Goes on with Tab until the focus is on a control whose name begins so.
    static bool tabTo(QWidget& window, const QString& name) {
        for (int stop = 0; stop < kMostStops; ++stop) {
            if (window.focusWidget() && window.focusWidget()->objectName().startsWith(name))
                return true;
            key(window, Qt::Key_Tab);
        }
        ADD_FAILURE() << "Tab never comes to " << name.toStdString();
        return false;
    }

    static void pressByKey(QWidget& window, const QString& name) {
        activate(window);
        if (tabTo(window, name))
            key(window, Qt::Key_Space);
    }

    static ModalAction typeKeys(const QString& text) {
        return [text](QWidget& box) {
            QTest::keyClicks(box.findChild<QLineEdit*>(), text);
            QTest::keyClick(box.findChild<QLineEdit*>(), Qt::Key_Return);
        };
    }

    /// OK need not be the default.
    static ModalAction agree() {
        return [](QWidget& box) {
            auto* ok = qobject_cast<QMessageBox*>(&box)->button(QMessageBox::Ok);
            for (int stop = 0; stop < 4 && box.focusWidget() != ok; ++stop)
                key(box, Qt::Key_Tab);
            EXPECT_EQ(box.focusWidget(), ok);
            key(box, Qt::Key_Space);
        };
    }
};

TEST_F(Keyboard, AnEveningGoesWithoutTheMouse) {
    start();
    {
        const ModalScript script(
            {{u"InputBox"_s, typeKeys(u"zhang"_s)}, {u"InputBox"_s, typeKeys({})}, {u"InputBox"_s, typeKeys({})}});
        pressByKey(*window(u"Frmpre"_s), u"Label2"_s);
    }
    pressByKey(*window(u"Frmpre"_s), u"Label3"_s);
    QWidget& form = *window(u"Form1"_s);
    {
        const QString path = writeFile(u"three.txt"_s, kThreeDraws);
        const ModalScript script({{u"MsgBox"_s, agree()}, {u"FileDialog"_s, [path](QWidget& dialog) {
                                                               auto* name =
                                                                   controlAs<QLineEdit>(dialog, u"fileNameEdit"_s);
                                                               QTest::keyClicks(name, path);
                                                               QTest::keyClick(name, Qt::Key_Return);
                                                           }}});
        pressByKey(form, u"cmdRead"_s);
    }
    EXPECT_EQ(program->book.history().Lsnum, 3);
    activate(form);
    ASSERT_TRUE(tabTo(form, u"Command1("_s));
    for (int red = 1; red <= 7; ++red) {
        key(form, Qt::Key_Space);
        key(form, Qt::Key_Right);
    }
    pressByKey(form, u"Command2("_s);
    EXPECT_EQ(program->pad.statusText(), u"7红1蓝，共计复选：7注,合计：14元"_s);
    bool filtered = false;
    const ModalScript script({{u"GAgan"_s, [&](QWidget& bets) {
                                   const QString before = bets.windowTitle();
                                   activate(bets);
                                   if (tabTo(bets, u"Option"_s)) {
                                       key(bets, Qt::Key_Space);
                                       key(bets, Qt::Key_Return);
                                   }
                                   const QString pressed = bets.windowTitle();
                                   pressByKey(bets, u"Command2"_s); // all rows the other way round
                                   filtered = pressed != before && bets.windowTitle() != pressed;
                                   bets.close();
                               }}});
    pressByKey(form, u"cmdArrange"_s);
    EXPECT_TRUE(filtered);
}

} // namespace
