// The levels of a prize query: how many bets won which, first of those that are kept, then, under 被滤, of those that
// are out; what one bet wins, and what all did.
#pragma once

#include "prize/query.h"
#include "toolkit/rows_grid.h"

namespace prize {

class SummaryGrid : public toolkit::RowsGrid {
    Q_OBJECT
  public:
    explicit SummaryGrid(QWidget* parent = nullptr);

    void show(const Summary& summary);
    using QWidget::show;

  private:
    toolkit::RowsModel* m_model;
};

} // namespace prize
