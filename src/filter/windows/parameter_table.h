// The dense table of a filter window: one row a parameter with its tick, name, range, parity or interval, count,
// list, period and last value, in aligned columns and titled groups, under headings that stay.
//
// It is built from the catalogue. The count boxes stand in Frame11 and the lists in Frame13, which take the place of
// range and parity in list mode. A press on a name, or Enter in a box of its row, comes out as a signal; the boxes
// are read when a run asks for them. Arrows move from row to row and press nothing.
#pragma once

#include <optional>
#include <vector>

#include <QWidget>

#include "filter/window_state.h"
#include "filter/windows/row_controls.h"
#include "filter/windows/row_places.h"

class QScrollArea;

namespace filter {

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
    void showLists(bool shown);
    /// Marks a parameter as used, and as the one that was run last.
    void markRun(const Parameter& parameter);
    /// What past draws say of a row, for its last column and its tool tip.
    void showPast(const Parameter& parameter, std::optional<int> last, std::optional<double> share);

    /// What the strip under the rows tells of the row under the mouse or the focus; empty while there is no strip.
    QStringList toldLines() const;

  signals:
    void parameterPressed(const filter::Parameter& parameter);
    void rangeEdited(const filter::Parameter& parameter);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void buildRow(const Parameter& parameter);
    void buildName(TableRow& row);
    void buildRange(TableRow& row);
    void buildParity(TableRow& row);
    void buildInterval(TableRow& row);
    void buildLists(TableRow& row);
    void buildPeriod(TableRow& row);
    void orderTabs();
    QLineEdit* makeBox(const QString& name, const QString& accessible, QWidget* parent);
    void fitRows();
    int stripHeight() const;
    void tellRowOf(const QWidget* control);
    void paintStrip(QPainter& painter) const;
    void paintHeads(QPainter& painter) const;
    TableRow* rowOf(const Parameter& parameter);
    bool moveFrom(const QWidget* control, int rows);
    void pressRowOf(const QWidget* control);

    TableRows* m_rows;
    QScrollArea* m_area;
    const TableRow* m_told = nullptr; ///< the row that the strip tells
    bool m_lists = false;             ///< whether lists stand in the place of ranges
};

} // namespace filter
