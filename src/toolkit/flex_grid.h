// A grid over any table model, up to the 17.7 million rows of the largest combination table.
//
// What makes it bear that size: every row has one fixed height, no header measures its contents, and the headings do
// not ask whether their whole column is selected (that question takes seconds after Select All).
// A heading stands in the middle unless the model tells another alignment for it.
// Ctrl+C copies the selected cells as tab-separated text, one line a row; above kAskRows rows it asks first.
#pragma once

#include <QTableView>

namespace toolkit {

class FlexGrid : public QTableView {
    Q_OBJECT
  public:
    static constexpr int kAskRows = 200'000;

    explicit FlexGrid(QWidget* parent = nullptr);

    /// Widths of the first columns in pixels at scale 1; the user may drag them afterwards.
    void setColumnWidths(std::initializer_list<int> widths);
    /// Brings the last row into sight.
    void showLastRow();
    /// Copies the selected cells to the clipboard, after a question when they are many.
    void copySelection();
    /// The selected cells: a tab between cells, a line feed after each row but the last. Cells of a row or column
    /// that has no selected cell do not appear; a cell that is not selected among selected ones is empty.
    QString selectedText() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    std::int64_t selectedRowCount() const;
};

} // namespace toolkit
