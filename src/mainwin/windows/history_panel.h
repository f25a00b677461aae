// The right side of the main window: the entry boxes of a new draw, the buttons of the history, the grid of the
// draws.
#pragma once

#include <QWidget>

#include "history/typed_draw.h"

class QPushButton;

namespace toolkit {
class DataGrid;
}

namespace mainwin {

class CellEdit;
class DrawEntry;
class HistoryModel;

class HistoryPanel : public QWidget {
    Q_OBJECT
  public:
    explicit HistoryPanel(const history::History& history, QWidget* parent = nullptr);

    /// Puts a button into the row of buttons above the grid.
    void addButton(QPushButton* button);
    /// Shows the history anew and brings its last draw into sight.
    void reload();
    /// A typed draw has come behind the others: the boxes are free for the next one.
    void appendTyped();
    /// The last draw is gone.
    void removeLast();
    /// Numbers of this draw or of later ones have changed: a correction is over.
    void showCorrected(int draw);
    /// Puts the focus into the first box of the new draw.
    void focusEntry();
    /// Into box 1..7, with its text selected; 0: nowhere.
    void focusEntry(int box);

  signals:
    void drawTyped(const history::TypedBoxes& boxes);
    /// A number was typed over one of a draw held. \param draw  1..Lsnum  \param slot  0 the issue, 7 the blue
    void numberTyped(int draw, int slot, const QString& text);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void colourGrid();

    const history::History& m_history;
    HistoryModel* m_model;
    toolkit::DataGrid* m_grid;
    DrawEntry* m_entry;
    QWidget* m_buttons;
    CellEdit* m_cellEdit = nullptr; ///< once the grid has its model
};

} // namespace mainwin
