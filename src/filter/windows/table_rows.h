// The rows of the parameter table: places their controls, paints the groups and what past draws say.
#pragma once

#include <optional>
#include <vector>

#include <QFrame>

#include "filter/past_values.h"
#include "filter/windows/row_controls.h"
#include "filter/windows/row_places.h"

namespace filter {

/// The controls of one parameter; those that it lacks are null.
struct TableRow {
    const Parameter* parameter = nullptr;
    TickBox* tick = nullptr;
    PressButton* name = nullptr;
    QLineEdit* low = nullptr;
    QLineEdit* high = nullptr;
    QLineEdit* count = nullptr;
    QLineEdit* list = nullptr;
    QCheckBox* odd = nullptr;
    QCheckBox* even = nullptr;
    QLineEdit* above = nullptr; ///< the interval's ends and the picked numbers
    QLineEdit* to = nullptr;
    QLineEdit* picked = nullptr;
    QComboBox* period = nullptr;
    std::optional<ValueRange> possible{}; ///< values that a bet can have
    std::optional<PastValues> past{};     ///< and those of past draws
};

class TableRows : public QWidget {
    Q_OBJECT

  public:
    TableRows(std::span<const Parameter> catalogue, QWidget* parent);

    std::vector<TableRow>& rows() { return m_rows; }
    const std::vector<TableRow>& rows() const { return m_rows; }
    QFrame* counts() const { return m_counts; }
    QFrame* lists() const { return m_lists; }
    const ColumnPlaces& columns() const { return m_columns; }
    int rowHeight() const { return m_places.rowHeight; }

    /// Places everything anew in this size.
    void place(int width, int height);
    void showLists(bool shown);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void placeRow(const TableRow& row, int top);
    void paintPast(QPainter& painter, const TableRow& row, int top) const;

    std::span<const Parameter> m_catalogue;
    QFrame* m_counts; ///< Frame11
    QFrame* m_lists;  ///< Frame13
    std::vector<TableRow> m_rows;
    ColumnPlaces m_columns{};
    RowPlaces m_places{};
    bool m_listMode = false;
};

} // namespace filter
