// 组合排列…, the way from the pad to its bets, with what is missing beside it, or how many bets it makes; and below
// it 调用上次…, the way back to the last ones, while there are any.
#pragma once

#include <QWidget>

class QPushButton;

namespace toolkit {
class InkLabel;
}

namespace mainwin {

class ArrangeRow : public QWidget {
    Q_OBJECT
  public:
    explicit ArrangeRow(QWidget* parent = nullptr);

    /// \param missing  "还需：1 红"  \param outlook  what follows then
    void showMissing(const QString& missing, const QString& outlook);
    /// \param cost  "56 注，112 元"  \param form  what else is to be said of them
    void showReady(const QString& cost, const QString& form);

    /// \param last  what the last bets are; empty: there are none, and no way to them
    void showLast(const QString& last);

  signals:
    void pressed();
    void lastPressed();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void buildLast();

    QPushButton* m_button;
    QWidget* m_ring;
    toolkit::InkLabel* m_first;
    toolkit::InkLabel* m_second;
    QWidget* m_lastRow;
    toolkit::InkLabel* m_last;
};

} // namespace mainwin
