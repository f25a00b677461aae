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

    /// Rows may be shorter than the columns: the rest of their cells is empty.
    /// \param tips  tool tip of each row; where there is none a text is told whole, since its column may cut it
    void show(std::vector<Column> columns, std::vector<Row> rows, const QStringList& tips = {});

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QVariant tip(const QModelIndex& index, const QVariant& value) const;

    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
    QStringList m_tips;
};

} // namespace selection
