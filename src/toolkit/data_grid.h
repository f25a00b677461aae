// A grid over any table model, up to the 17.7 million rows of the largest combination table.
//
// What makes it bear that size: every row has one fixed height, no header measures its contents, and the headings do
// not ask whether their whole column is selected (that question takes seconds after Select All).
// A heading stands in the middle unless the model tells another alignment for it.
// A row is never cut at the top: a grid that is scrolled to its end leaves the rest of its height empty below.
// Ctrl+C copies the selected cells, Ctrl+Shift+C with their headings (grid_copy.h); both stand in the context menu,
// with 导出…, which writes the whole grid into a file (output/sheet_export.h), 打印…, which shows it as pages
// (sheet_preview.h), and what a window adds. Cells are painted by GridDelegate in the styles of grid_cell.h.
#pragma once

#include <QTableView>

#include "toolkit/window_place.h"

class QMenu;

namespace toolkit {

class DataGrid : public QTableView {
    Q_OBJECT
  public:
    explicit DataGrid(QWidget* parent = nullptr);

    /// Widths of the first columns in pixels at scale 1; the user may drag them afterwards.
    void setColumnWidths(std::initializer_list<int> widths);
    /// Brings the last row into sight.
    void showLastRow();
    /// What stands in the middle while there is no row: why, and what to do.
    void setEmptyText(const QString& text);
    /// Columns come back in the widths and the order that the user gave them, under this key; kept as they change.
    void keepColumns(const PlaceStore& store, const QString& key);
    /// An entry at the end of the context menu. The action is the grid's.
    void addMenuEntry(QAction* entry);

    enum class Headings { Without, With };
    /// Copies the selected cells to the clipboard, as copySelected() does. \return false when there was nothing to
    /// copy
    bool copySelection(Headings headings = Headings::Without);
    /// Asks for a file, and writes all rows of the columns that are shown.
    void exportAll();
    /// Shows the same rows and columns as pages, from where they are printed.
    void printAll();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void fillMenu(QMenu& menu);
    void standWhole();

    QString m_emptyText;
    QString m_exportFolder; ///< where the last file was written; empty: the user's documents
    QList<QAction*> m_entries;
};

} // namespace toolkit
