// A panel of a status bar: a label StatusBar1(index) that never widens the window, however long its text is: what
// does not fit is cut with …, and the whole text is its tool tip.
#pragma once

#include <QLabel>

namespace toolkit {

class StatusPanel : public QLabel {
    Q_OBJECT
  public:
    /// \param index  from 1, counted from the left
    explicit StatusPanel(int index, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString shownText() const;
};

} // namespace toolkit
