// 组合排列…, the way from the pad to its bets, with what is missing beside it, or how many bets it makes.
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

  signals:
    void pressed();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPushButton* m_button;
    QWidget* m_ring;
    toolkit::InkLabel* m_first;
    toolkit::InkLabel* m_second;
};

} // namespace mainwin
