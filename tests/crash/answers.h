// Answers every dialog of the program, so that a driver goes on for ever.
#pragma once

#include <deque>
#include <functional>

#include "support/modal_script.h"

namespace crash {

/// Tells the test what went wrong and ends the driver: it is not the kill that did it.
[[noreturn]] void giveUp(const std::string& what);

class Answers final : public test_support::ModalWatch {
  public:
    std::deque<QString> texts; ///< into input boxes, one each
    QString password;          ///< into the login dialog
    QString file;              ///< into the file dialog
    bool agree = true;         ///< a question's OK or its Cancel; a message has one button
    std::function<void(QWidget& window)> inFilterWindow;

    /// Ready for the next step: nothing typed, every question agreed to.
    void reset();

  private:
    void play(QWidget& dialog) override;
    void typeText(QWidget& dialog);
    void answerBox(QWidget& dialog) const;
    void openFile(QWidget& dialog) const;
};

} // namespace crash
