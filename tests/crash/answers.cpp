#include "crash/answers.h"

#include <cstdlib>

#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>

#include "crash/say.h"
#include "support/controls.h"

using namespace Qt::StringLiterals;
using test_support::press;
using test_support::typeInto;

namespace crash {

void giveUp(const std::string& what) {
    say("failed\t" + what);
    std::_Exit(1);
}

void Answers::reset() {
    texts.clear();
    password.clear();
    file.clear();
    agree = true;
    inFilterWindow = nullptr;
}

void Answers::play(QWidget& dialog) {
    const QString name = dialog.objectName();
    if (name == u"MsgBox"_s)
        answerBox(dialog);
    else if (name == u"InputBox"_s)
        typeText(dialog);
    else if (name == u"FileDialog"_s)
        openFile(dialog);
    else if (name == u"frmLogin"_s) {
        typeInto(dialog, u"txtPassword"_s, password);
        press(dialog, u"cmdOK"_s);
    } else if (inFilterWindow) {
        inFilterWindow(dialog);
        dialog.close();
    } else {
        giveUp("a dialog that nobody expected: " + test_support::describe(dialog));
    }
}

void Answers::typeText(QWidget& dialog) {
    if (texts.empty())
        giveUp("nothing to type for: " + test_support::describe(dialog));
    const QString text = texts.front(); // Chinese: no key has it
    texts.pop_front();
    test_support::type(text)(dialog);
}

void Answers::answerBox(QWidget& dialog) const {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    if (!box || box->icon() == QMessageBox::Critical)
        giveUp("the program tells a failure: " + test_support::describe(dialog));
    QAbstractButton* cancel = agree ? nullptr : box->button(QMessageBox::Cancel);
    QTest::mouseClick(cancel ? cancel : box->button(QMessageBox::Ok), Qt::LeftButton);
}

void Answers::openFile(QWidget& dialog) const {
    if (file.isEmpty())
        giveUp("no file to choose");
    test_support::chooseFile(file)(dialog);
}

} // namespace crash
