// The script of the modal dialogs that a case expects, in order.
//
//     ModalScript script({{u"InputBox"_s, type(u"abc"_s)}, {u"MsgBox"_s, answer(u"请输入数字"_s, QMessageBox::Ok)}});
//     press(u"GAgan"_s, u"Option25(0)"_s);
//
// The script watches QApplication::activeModalWidget(), so the handler's own exec() runs. A step may itself press
// something that opens the next dialog of the script. A dialog that nobody expects fails the case and is closed; a
// dialog that never comes fails it when the script goes out of scope.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

namespace test_support {

/// What to do with a dialog once it is open. It has to end the dialog, or let a later step end it.
using ModalAction = std::function<void(QWidget& dialog)>;

struct ModalStep {
    QString name; ///< objectName of the dialog
    ModalAction act;
};

/// Finds every modal dialog once it is open, whoever runs it, and has it played: each once, from its own event loop.
class ModalWatch : public QObject {
  public:
    ModalWatch();

  protected:
    /// Has to end the dialog, or let a later play() end it.
    virtual void play(QWidget& dialog) = 0;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void look();

    std::vector<QPointer<QObject>> m_open;
    QTimer m_timer;
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

/// Types a text into an input box and accepts it.
ModalAction type(const QString& text);
/// Cancels any dialog.
ModalAction cancel();
/// Compares the text of a message box and presses a button. An empty text is not compared.
ModalAction answer(const QString& text, QMessageBox::StandardButton button = QMessageBox::Ok);
/// As answer(), but the title of the box is compared too.
ModalAction answer(const QString& text, const QString& title, QMessageBox::StandardButton button);

} // namespace test_support
