// The keyboard in the table of parameters: one stop for Tab, arrows inside it.
//
// Tab comes to the control that had the focus last (at first the first name) and leaves the table from there: all
// other controls take the focus by click only. One Tab stays inside: from a lower end that was edited since it was
// entered to the upper end beside it, since a range is typed as one number, Tab, the other. Arrows go by place: left
// and right along a row, up and down in a column, past what is hidden or cannot be used. Page up, page down go by as
// many rows as are in sight, Home and End to the first and the last row. In a box, left, right, Home and End belong
// to the text: an arrow leaves it at the text's edge. A box that was entered by a key has its whole text selected,
// and with it an arrow leaves at once; with Ctrl it always leaves. Enter presses the row's parameter, arrows press
// nothing.
#pragma once

#include <QHash>
#include <QObject>

#include "filter/windows/table_rows.h"

class QKeyEvent;
class QScrollArea;

namespace filter {

class TableKeys : public QObject {
    Q_OBJECT

  public:
    /// \param rows  its rows are all there, and stay
    TableKeys(const TableRows& rows, QScrollArea& area);

    /// To be called after controls were shown or hidden: Tab has to find one that is there.
    void keepStop();

  signals:
    void parameterPressed(const filter::Parameter& parameter);
    /// The mouse or the focus came to a row.
    void rowReached(const filter::TableRow& row);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Place {
        int row;
        int column;
    };

    void watch(QWidget* control, Place place);
    void stopAt(QWidget* control);
    bool isUsable(const QWidget* control) const;
    QWidget* usableAt(Place place) const;
    const TableRow& rowAt(Place place) const { return m_rows.rows()[static_cast<std::size_t>(place.row)]; }
    void focusCame(QWidget* control, Qt::FocusReason reason);
    bool keyPressed(QWidget* control, const QKeyEvent& event);
    bool tabFrom(QWidget* control);
    bool moveRows(Place from, int step, int distance);
    bool moveColumns(Place from, int step);
    bool pressRow(const QWidget* control, bool repeated);
    int rowsInSight() const;

    const TableRows& m_rows;
    QScrollArea& m_area;
    QHash<const QObject*, Place> m_places;
    QWidget* m_stop;                   ///< where Tab comes to
    const QObject* m_edited = nullptr; ///< the box that was edited since the focus came to it
};

} // namespace filter
