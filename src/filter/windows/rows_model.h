// The model of the result grid: lazy rows of a view. Nothing is copied; cells are read when they are painted.
//
// DisplayRole is the text, UserRole the bare value; how a cell looks stands in the roles of toolkit/grid_cell.h. A
// row taken out by hand keeps its place with a grey first cell and is seen as out at once.
#pragma once

#include <unordered_set>

#include <QAbstractTableModel>

#include "filter/result_view.h"
#include "toolkit/grid_cell.h"

namespace filter {

class RowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    RowsModel(const FilterMember& member, QObject* parent);

    /// Shows another view; grey cells are forgotten.
    void show(View view);
    const View& view() const { return m_view; }
    void setGrey(int row, bool grey);
    toolkit::CellStyle styleOf(int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QVariant alignment(int column) const;
    toolkit::RowState stateOf(int row) const;
    QVariant valueAt(const QModelIndex& index) const;

    const FilterMember& m_member;
    View m_view;
    std::unordered_set<int> m_grey;
};

} // namespace filter
