// frmnmFind: picks a saved selection. A double click on a row of either grid, Enter or 确定 picks; anything else that
// closes the window picks nothing.
//
// Under the grids stands what the marked row would bring: reds, bankers and blues of its Idx.
#pragma once

#include <QDialog>

#include "sql/database.h"
#include "toolkit/window_place.h"

class QLabel;
class QPushButton;

namespace selection {

class SavedGrid;

class SavedPicker : public QDialog {
    Q_OBJECT
  public:
    /// \param dbNumsave  outlives the window  \param title  the command that asks
    /// \throws sql::SqlError when a table cannot be read
    SavedPicker(sql::Database& dbNumsave, const QString& title, const toolkit::PlaceStore& places,
                QWidget* parent = nullptr);

    /// The Idx that was picked; 0 for none.
    int Savepick = 0;

  private:
    void layOut();
    void connectGrid(SavedGrid& grid, SavedGrid& other);
    void showChosen();
    void pick();
    /// The Idx of the row that has the mark, in whichever grid; 0 for none.
    int chosenIdx() const;

    sql::Database& m_dbNumsave;
    SavedGrid* m_reds;
    SavedGrid* m_blues;
    QLabel* m_preview;
    QPushButton* m_ok;
};

/// Shows the picker. \return the Idx that was picked, 0 for none; a table that cannot be read is told
int pickSaved(sql::Database& dbNumsave, const QString& title, const toolkit::PlaceStore& places, QWidget* parent);

} // namespace selection
