// The history as a grid: nine columns, one row a draw, oldest first. Row r of the model is draw r + 1.
//
// It reads the history where it lies and has to be told of each change: reload() for another history, appendTyped(),
// removeLast() and changed() for the small ones. A draw that was typed since the last reload() reads "12期" in the
// first column, others "12". The numbers of the newest draw are bold.
#pragma once

#include <QColor>

#include "history/history.h"
#include "toolkit/rows_grid.h"

namespace mainwin {

class HistoryModel : public toolkit::RowsModel {
    Q_OBJECT
  public:
    enum Column { RowNumber, Issue, FirstRed, Blue = FirstRed + 6, ColumnCount };

    explicit HistoryModel(const history::History& history, QObject* parent = nullptr);

    /// Reads the history anew.
    void reload();
    /// One draw was typed behind the others.
    void appendTyped();
    /// The last draw is gone.
    void removeLast();
    /// Numbers of this draw or of later ones have changed. \param draw  1..Lsnum
    void changed(int draw);
    /// Colours of the texts; the palette decides how light they are.
    void setColours(const QColor& rowNumber, const QColor& red, const QColor& blue);

  private:
    class Draws;
    void showNewest(int draw);

    Draws* m_draws; ///< the model's source
};

} // namespace mainwin
