// One of the two tables of the picker: its rows as a grid, and the entries that delete and rename.
//
// It reads the table when it is made and after each change of its own. What a right press opens works on the row that
// was pressed; Delete and F2 work on the row that has the mark.
#pragma once

#include <optional>
#include <vector>

#include "selection/saved_selections.h"
#include "toolkit/data_grid.h"

namespace selection {

class CellTable;

class SavedGrid : public toolkit::DataGrid {
    Q_OBJECT
  public:
    /// \param dbNumsave  outlives the grid \throws sql::SqlError when the table cannot be read
    SavedGrid(sql::Database& dbNumsave, SavedTable table, QWidget* parent = nullptr);

    /// The marked row; nothing when none or several are marked.
    std::optional<SavedRow> chosen() const;
    int rows() const { return static_cast<int>(m_rows.size()); }
    void markRow(int row);

  signals:
    /// Another row, or none, is marked.
    void chosenChanged();

  private:
    void addEntry(const QString& name, const QString& caption, const QKeySequence& keys, void (SavedGrid::*act)());
    void reload();
    void deleteChosen();
    void renameChosen();
    void tellFailure(const std::exception& failed, const QString& happened, const QString& advice);
    /// Runs a change and reads the table again. \param happened  what a failure says
    template <class Change> void change(const QString& happened, Change run);

    sql::Database& m_dbNumsave;
    SavedTable m_table;
    CellTable* m_cells;
    std::vector<SavedRow> m_rows;
    QList<QAction*> m_entries;
};

} // namespace selection
