// The dense table of a filter window: one row a parameter with its tick, name, range, parity or interval, count,
// list, period and last value, in aligned columns and titled groups, under headings that stay.
//
// It is built from the catalogue. The count boxes stand in Frame11 and the lists in Frame13, which take the place of
// range and parity in list mode. A press on a name, or Enter in its row, comes out as a signal; the boxes are read
// when a run asks for them. The whole table is one stop of the keyboard (table_keys.h).
#pragma once

#include <optional>

#include <QWidget>

#include "filter/past_values.h"
#include "filter/window_state.h"

class QComboBox;
class QLabel;
class QScrollArea;

namespace filter {

class TableKeys;
class TableRows;
struct TableRow;

class ParameterTable : public QWidget {
    Q_OBJECT

  public:
    ParameterTable(std::span<const Parameter> catalogue, QWidget* parent);

    /// Puts what the rows hold into `state`.
    void read(WindowState& state) const;
    /// Fills the rows with `state`.
    void write(const WindowState& state);
    /// Shows counts, lists and picked numbers in the place of ranges, or hides them; titles the interval parameter.
    /// \param locked  they take no typing, and the interval parameter keeps its own title
    void showLists(bool shown, bool locked = false);
    /// Marks a parameter as used, and as the one that was run last.
    void markRun(const Parameter& parameter);
    /// What a row can be and was, for its last columns, its tool tip and the strip.
    void showPast(const Parameter& parameter, const std::optional<ValueRange>& possible,
                  std::optional<PastValues> past);

    /// What the strip under the rows tells of the row under the mouse or the focus; empty while there is no strip.
    QStringList toldLines() const;

  signals:
    void parameterPressed(const filter::Parameter& parameter);
    void rangeEdited(const filter::Parameter& parameter);
    /// A range or list says something else.
    void boxEdited();
    /// A tick was clicked, not set by a setting or a template.
    void tickClicked();
    /// A period was picked in a row.
    void periodPicked(const filter::Parameter& parameter);
    /// A period was picked for all rows together.
    void allPeriodsPicked();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void addRow(const Parameter& parameter);
    void addAllPeriods();
    void fitRows();
    int stripHeight() const;
    void tell(const TableRow& row);
    TableRow* rowOf(const Parameter& parameter);

    TableRows* m_rows;
    QScrollArea* m_area;
    TableKeys* m_keys;
    const TableRow* m_told = nullptr; ///< the row that the strip tells
    bool m_lists = false;             ///< whether lists stand in the place of ranges
    bool m_locked = false;            ///< whether they take no typing
    QLabel* m_allCaption = nullptr;
    QComboBox* m_allPeriods = nullptr; ///< Combo1(20); null where rows have no periods
};

} // namespace filter
