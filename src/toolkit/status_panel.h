// A panel of a status bar: a label StatusBar1(index) that never widens the window, however long its text is.
#pragma once

#include <QLabel>

namespace toolkit {

class StatusPanel : public QLabel {
    Q_OBJECT
  public:
    /// \param index  from 1, counted from the left
    explicit StatusPanel(int index, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
};

} // namespace toolkit
