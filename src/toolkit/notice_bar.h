// A strip at the top of a window: what happened without being asked for, what is safe, and at most one thing to do.
//
// It stops nothing: the window under it works on. `NoticeText` tells, `NoticeAction` does, `NoticeClose` (关闭)
// hides. Whoever shows a notice decides on closed() whether it comes back.
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace toolkit {

class NoticeBar : public QFrame {
    Q_OBJECT
  public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// \param action  caption of the button beside 关闭; empty: there is none
    void tell(const QString& text, const QString& action = {});

  signals:
    void actionPressed();
    void closed();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QLabel* m_text;
    QPushButton* m_action;
};

} // namespace toolkit
