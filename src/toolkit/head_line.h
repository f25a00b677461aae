// One line above a grid of bets: how many are left, what the last step did to them, how long it took.
//
// Large at the left 剩余 with its share of all and 本次滤去; a bar that parts all bets into what is left, what the
// last step took and the rest; below it the step's words and its time, and at the right the whole count and what the
// grid shows. It is told everything at once and counts nothing itself.
#pragma once

#include <QWidget>

class QPainter;

namespace toolkit {

class HeadLine : public QWidget {
    Q_OBJECT
  public:
    struct Told {
        qint64 total = 0; ///< bets in play or not
        qint64 left = 0;  ///< bets in play
        qint64 taken = 0; ///< bets that the last step took out; negative: so many came back
        QString step{};   ///< the last step in words
        double ms = 0;    ///< its time
        QString shows{};  ///< which rows the grid shows
        QString advice{}; ///< what to do when nothing is left
    };

    explicit HeadLine(QWidget* parent = nullptr);

    void tell(const Told& told);
    /// The rows that the grid shows have changed, by no step.
    void tellShown(const QString& shows);
    const QString& shown() const { return m_told.shows; }

    QString leftText() const;  ///< "16,239 注 (40.6 %)"
    QString takenText() const; ///< "本次滤去 1,963 注"; empty when the step changed no count
    QString stepText() const;  ///< "复杂度AC值 保留 6~10    2 ms", or the advice
    QString totalText() const; ///< "共 40,040 注    表中: 剩余"

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString shareText() const;
    int paintAmount(QPainter& painter, int x, const QString& caption, const QString& count,
                    const QString& unit) const;
    void paintBar(QPainter& painter, const QRect& bar) const;
    void describe();

    Told m_told;
};

/// A count with separators: 17,721,088.
QString countText(qint64 count);

} // namespace toolkit
