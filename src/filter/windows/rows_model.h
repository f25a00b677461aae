// The model of the result grid: lazy rows of a view. Nothing is copied; cells are read when they are painted.
//
// A row taken out by hand keeps its place with a grey first cell and is seen as out at once.
#pragma once

#include "filter/result_view.h"
#include "toolkit/rows_grid.h"

namespace filter {

class RowsModel : public toolkit::RowsModel {
    Q_OBJECT

  public:
    RowsModel(const FilterMember& member, QObject* parent);

    /// Shows another view; grey cells are forgotten.
    void show(const View& view);
    void setGrey(int row, bool grey);

  private:
    class ViewRows;

    const FilterMember& m_member;
    ViewRows* m_view = nullptr; ///< the model's source
};

} // namespace filter
