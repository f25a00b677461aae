// What stands in the history grid while it is empty: that it is, where draws are, and the button that reads them.
#pragma once

#include <QWidget>

class QPushButton;

namespace mainwin {

class EmptyHistory : public QWidget {
    Q_OBJECT
  public:
    explicit EmptyHistory(QWidget* parent = nullptr);

    QPushButton& button() { return *m_button; }

  private:
    QPushButton* m_button;
};

} // namespace mainwin
