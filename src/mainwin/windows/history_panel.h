// The right side of the main window: the entry boxes of a new draw, the buttons of the history, the grid of the
// draws.
#pragma once

#include <QWidget>

#include "history/book.h"
#include "history/typed_draw.h"

class QPushButton;

namespace toolkit {
class RowsGrid;
class InkLabel;
} // namespace toolkit

namespace mainwin {

class CellEdit;
class DrawEntry;
class EmptyHistory;
class HistoryModel;

class HistoryPanel : public QWidget {
    Q_OBJECT
  public:
    /// \param book  outlives the panel, which shows each of its changes
    explicit HistoryPanel(const history::Book& book, QWidget* parent = nullptr);

    /// Puts a button into the row of buttons above the grid.
    void addButton(QPushButton* button);
    /// A line that takes the last step back when it is pressed; empty: none.
    void offerUndo(const QString& text);
    /// The button in the grid while there is no draw.
    QPushButton& readButton();
    /// Puts the focus into the first box of the new draw.
    void focusEntry();
    /// Into box 1..7, with its text selected; 0: nowhere.
    void focusEntry(int box);

  signals:
    void undoWanted();
    void drawTyped(const history::TypedBoxes& boxes);
    /// A number was typed over one of a draw held. \param draw  1..Lsnum  \param slot  0 the issue, 7 the blue
    void numberTyped(int draw, int slot, const QString& text);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void listen(const history::Book& book);
    void reload();
    void appendTyped();
    void removeLast();
    void showCorrected(int draw);
    void colourGrid();
    void buildGrid();
    void buildUndo();
    void showCount();

    const history::History& m_history;
    HistoryModel* m_model;
    toolkit::RowsGrid* m_grid;
    DrawEntry* m_entry;
    QWidget* m_buttons;
    QPushButton* m_undo;
    EmptyHistory* m_empty;
    toolkit::InkLabel* m_count;
    CellEdit* m_cellEdit = nullptr; ///< once the grid has its model
};

} // namespace mainwin
