// A grid as a sheet: its columns as they stand on the screen, its rows where they lie.
//
// A value is what the model gives as UserRole when that is a number, else the text. What a cell reads is the text.
#pragma once

#include <vector>

#include <QModelIndex>

#include "output/sheet.h"

class QTableView;

namespace toolkit {

/// All rows of a grid. It reads the model when it is asked: the model must not change meanwhile.
class GridRows : public output::SheetRows {
  public:
    /// \param columns  of the model, in the order of the sheet
    GridRows(const QTableView& grid, std::vector<int> columns) : m_grid(grid), m_columns(std::move(columns)) {}

    std::int64_t count() const override;
    output::SheetCell cell(std::int64_t row, int column) const override;
    void appendText(QString& text, std::int64_t row, const output::SheetColumn& told, int column) const override;

  protected:
    /// \return no cell where the sheet has an empty one
    virtual QModelIndex place(std::int64_t row, int column) const;
    QModelIndex modelCell(int row, int column) const;

  private:
    const QTableView& m_grid;
    std::vector<int> m_columns;
};

/// The columns that are not hidden, from left to right.
std::vector<int> shownColumns(const QTableView& grid);
/// Headings, widths and kinds of columns of the model.
std::vector<output::SheetColumn> sheetColumns(const QTableView& grid, const std::vector<int>& columns);

} // namespace toolkit
