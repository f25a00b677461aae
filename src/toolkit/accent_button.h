// The one button of a window that goes on: white on the accent colour while it stands out, a plain button otherwise.
#pragma once

#include <QPushButton>

namespace toolkit {

class AccentButton : public QPushButton {
    Q_OBJECT
  public:
    using QPushButton::QPushButton;

  protected:
    /// Disabled it does not stand out.
    void paintEvent(QPaintEvent* event) override;
};

} // namespace toolkit
