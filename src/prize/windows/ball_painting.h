// Numbers as balls where nobody presses them: the draw above a prize query, and the cells of its lists.
#pragma once

#include <QWidget>

#include "history/draw_record.h"
#include "toolkit/grid_cell.h"

namespace prize {

/// Six reds and, a gap apart, the blue, filled.
class DrawBalls : public QWidget {
    Q_OBJECT
  public:
    explicit DrawBalls(const history::Draw& draw, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    history::Draw m_draw;
};

/// Cells of reds and blues as balls: filled where the draw has the number, else a ring, a quiet one in a list of rows
/// that are out. Everything else as GridDelegate paints it.
class BallDelegate : public toolkit::GridDelegate {
    Q_OBJECT
  public:
    enum class List { Kept, Out };
    BallDelegate(const history::Draw& draw, List list, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Whether the draw has the number of a cell.
    bool isHit(const QModelIndex& index) const;

  private:
    history::Draw m_draw;
    List m_list;
};

} // namespace prize
