// The history as a grid: nine columns, one row a draw, oldest first. Row r of the model is draw r + 1.
//
// It reads the history where it lies and has to be told of each change: reload() for another history, appendTyped(),
// removeLast() and changed() for the small ones. A draw that was typed since the last reload() reads "12期" in the
// first column, others "12". The numbers of the newest draw are bold.
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QFont>

#include "history/history.h"

namespace mainwin {

class HistoryModel : public QAbstractTableModel {
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

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    void showNewest(int draw);
    int value(int row, int column) const;
    QString text(int row, int column) const;

    const history::History& m_history;
    int m_rows = 0;
    int m_firstTyped; ///< row; the typed ones are the last ones
    QFont m_newest;   ///< the style alone: the rest is the grid's
    QColor m_rowNumber;
    QColor m_red;
    QColor m_blue;
};

} // namespace mainwin
