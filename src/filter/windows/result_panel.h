// The right of a filter window: the grid of bets and its paging.
#pragma once

#include <map>

#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

#include "filter/windows/rows_model.h"
#include "toolkit/data_grid.h"

namespace filter {

class ResultPanel : public QWidget {
    Q_OBJECT

  public:
    explicit ResultPanel(QWidget* parent);

    void show(View view);
    using QWidget::show;
    std::int64_t shownRows() const { return m_model->view().rows.count(); }
    /// Text of the number cell of a row; of the heading for -1.
    QString indexText(int row) const;
    void setGrey(int row, bool grey) { m_model->setGrey(row, grey); }
    /// The page number that the box holds.
    double pageNumber() const;

  signals:
    void pageWanted();
    /// \param row  row of the grid, -1 for the headings
    void rowDoubleClicked(int row);

  private:
    /// A column that the user has dragged keeps his width from view to view.
    void applyWidths();

    RowsModel* m_model;
    toolkit::DataGrid* m_grid;
    QLineEdit* m_page;
    std::map<int, int> m_dragged; ///< widths by column
    bool m_applying = false;
    QPushButton* m_turn;
};

} // namespace filter
