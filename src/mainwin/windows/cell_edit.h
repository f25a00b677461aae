// Correcting a number of a draw in the history grid, with the edit `Text1`.
//
// A digit typed in a cell opens the edit over it, with the text of the cell and the digit; other characters do
// nothing, here and there. Enter hands the text on, by entered(), and the edit stays until close(): who hears the
// signal decides whether the text is good. Escape, a click elsewhere and a grid that loses the row give it up.
#pragma once

#include <QObject>
#include <QPersistentModelIndex>

class QKeyEvent;
class QLineEdit;

namespace toolkit {
class DataGrid;
}

namespace mainwin {

class CellEdit : public QObject {
    Q_OBJECT
  public:
    /// \param grid         has its model already; owns this
    /// \param firstColumn  the columns before it cannot be corrected
    CellEdit(toolkit::DataGrid& grid, int firstColumn);

    void close();

  signals:
    void entered(const QModelIndex& cell, const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool gridKey(const QKeyEvent& key);
    bool editKey(const QKeyEvent& key);
    void open(const QModelIndex& cell, const QString& digit);
    void place();

    toolkit::DataGrid& m_grid;
    QLineEdit* m_edit;
    int m_firstColumn;
    QPersistentModelIndex m_cell;
};

} // namespace mainwin
