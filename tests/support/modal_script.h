// The script of the modal dialogs that a case expects, in order.
//
//     ModalScript script({{u"InputBox"_s, type(u"abc"_s)}, {u"MsgBox"_s, answer(u"请输入数字"_s, QMessageBox::Ok)}});
//     press(u"GAgan"_s, u"Option25(0)"_s);
//
// A dialog is played from its own event loop once it is open, so the handler's own exec() runs. A step may itself
// press something that opens the next dialog of the script. A dialog that nobody expects fails the case at once, with
// its name, title and text, and is closed, also where no script stands: an UnexpectedDialogs stands behind all
// scripts. A dialog that never comes fails the case when the script goes out of scope.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include <QMessageBox>
#include <QObject>

namespace test_support {

/// What to do with a dialog once it is open. It has to end the dialog, or let a later step end it.
using ModalAction = std::function<void(QWidget& dialog)>;

struct ModalStep {
    QString name; ///< objectName of the dialog
    ModalAction act;
};

/// Has every modal dialog played once it is open, whoever runs it: each opening once, by the youngest watch there is.
class ModalWatch : public QObject {
  public:
    ModalWatch();

  protected:
    /// Has to end the dialog, or let a later play() end it.
    virtual void play(QWidget& dialog) = 0;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

class ModalScript : public ModalWatch {
  public:
    explicit ModalScript(std::vector<ModalStep> steps);
    ~ModalScript() override;

    /// Steps that have not been reached yet.
    std::size_t left() const { return m_steps.size(); }

  private:
    void play(QWidget& dialog) override;

    std::deque<ModalStep> m_steps;
};

/// For main(): a dialog outside every script would wait for a user for ever.
class UnexpectedDialogs : public ModalWatch {
  private:
    void play(QWidget& dialog) override;
};

/// What a user sees of a dialog, for a failure: MsgBox "title": text.
std::string describe(const QWidget& dialog);

/// Types a text into an input box, in one piece as an input method does, and presses its OK.
ModalAction type(const QString& text);
/// Cancels any dialog.
ModalAction cancel();
/// Compares the text of a message box and presses a button. An empty text is not compared.
ModalAction answer(const QString& text, QMessageBox::StandardButton button = QMessageBox::Ok);
/// As answer(), but the title of the box is compared too.
ModalAction answer(const QString& text, const QString& title, QMessageBox::StandardButton button);
/// Types a path into a file dialog and opens it.
ModalAction chooseFile(const QString& path);

} // namespace test_support
