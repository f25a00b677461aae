// The bets of a compound wheel (aganFRote, without blues aganFRoteR): a grid to read, and what they cost.
#pragma once

#include <QDialog>

#include "selection/compound_bets.h"
#include "toolkit/window_place.h"

namespace toolkit {
class RowsGrid;
class RowsModel;
} // namespace toolkit

namespace selection {

class CompoundWindow : public QDialog {
    Q_OBJECT
  public:
    /// \param name  of the window  \param notice  what the wheel guarantees; empty: nothing
    CompoundWindow(const QString& name, CompoundBets bets, const QString& notice, const toolkit::PlaceStore& places,
                   QWidget* parent = nullptr);

  private:
    void fillGrid();
    void layOut(const QString& notice);

    CompoundBets m_bets;
    toolkit::RowsModel* m_model;
    toolkit::RowsGrid* m_grid;
};

} // namespace selection
