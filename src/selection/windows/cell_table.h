// A small table of values for the grids of the selections: replaced as a whole, a style for each column.
#pragma once

#include <vector>

#include <QAbstractTableModel>
#include <QStringList>

#include "toolkit/grid_cell.h"

namespace selection {

class CellTable : public QAbstractTableModel {
    Q_OBJECT
  public:
    using Row = std::vector<QVariant>;
    struct Column {
        QString heading;
        toolkit::CellStyle style;
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Rows may be shorter than the columns: the rest of their cells is empty. A text that a column cuts is told
    /// whole by the tool tip.
    void show(std::vector<Column> columns, std::vector<Row> rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
};

} // namespace selection
