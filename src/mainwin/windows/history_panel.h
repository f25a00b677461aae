// The right side of the main window: the entry boxes of a new draw, the buttons of the history, the grid of the
// draws.
#pragma once

#include <array>

#include <QWidget>

#include "history/history.h"

class QLabel;
class QPushButton;

namespace toolkit {
class FlexGrid;
class MaskEdit;
} // namespace toolkit

namespace mainwin {

class HistoryModel;

class HistoryPanel : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kEntryBoxes = 7; ///< six reds, then the blue

    explicit HistoryPanel(const history::History& history, QWidget* parent = nullptr);

    /// Puts a button into the row of buttons above the grid.
    void addButton(QPushButton* button);
    /// Shows the history anew and brings its last draw into sight.
    void reload();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QWidget* buildEntry();
    void colourGrid();

    const history::History& m_history;
    HistoryModel* m_model;
    toolkit::FlexGrid* m_grid;
    QLabel* m_nextDraw = nullptr;
    QWidget* m_buttons;
};

} // namespace mainwin
