// The steps that were run on the table since it was opened, each with its effect: the newest last and bold.
//
// Filled from the top, column by column when it is wide. When there are more steps than places the oldest fold into
// one line "… 更早 n 步"; a click on it, or the tool tip, tells them all.
#pragma once

#include <vector>

#include <QWidget>

#include "filter/session.h"

namespace filter {

class StepList : public QWidget {
    Q_OBJECT

  public:
    /// \param nothingYet  what stands there before the first step
    StepList(const QString& nothingYet, QWidget* parent);

    void show(const std::vector<DoneStep>& steps);
    using QWidget::show;

    /// The lines as they are shown: number, what, effect, parted by tabs.
    QStringList lines() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    int columns() const;
    int rows() const;
    int folded() const; ///< steps without a place of their own
    QString line(std::size_t step) const;
    void paintLine(QPainter& painter, const QRect& place, std::size_t step) const;

    QString m_nothingYet;
    std::vector<DoneStep> m_steps;
};

/// The change that a step made to the count: "−1,963", "+320", "0".
QString effectText(std::int64_t effect);

} // namespace filter
