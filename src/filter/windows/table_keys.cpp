#include "filter/windows/table_keys.h"

#include <QKeyEvent>
#include <QScrollArea>

namespace filter {
namespace {

/// The controls of a column: at most one of them is there at a time.
using Cell = std::array<QWidget*, 3>;

/// A row's controls by place.
std::array<Cell, 7> cellsOf(const TableRow& row) {
    return {{{row.tick},
             {row.name},
             {row.low, row.count},
             {row.high, row.list},
             {row.odd, row.above, row.picked},
             {row.even, row.to},
             {row.period}}};
}
constexpr int kColumns = std::tuple_size_v<decltype(cellsOf({}))>;
constexpr int kScrollMargin = 4; // so that a group's edge comes into sight with its first row

/// Whether an arrow still moves inside the text.
bool textTakes(const QLineEdit& box, const QKeyEvent& event) {
    if (event.modifiers() & Qt::ControlModifier)
        return false;
    if (event.modifiers() & Qt::ShiftModifier)
        return true;
    if (box.hasSelectedText())
        return box.selectedText() != box.text();
    return box.cursorPosition() != (event.key() == Qt::Key_Right ? box.text().size() : 0);
}

/// Up and left, or down and right.
int stepOf(int key) {
    return key == Qt::Key_Up || key == Qt::Key_PageUp || key == Qt::Key_Home || key == Qt::Key_Left ? -1 : 1;
}

} // namespace

TableKeys::TableKeys(const TableRows& rows, QScrollArea& area)
    : QObject(&area), m_rows(rows), m_area(area), m_stop(nullptr) {
    for (int row = 0; row < static_cast<int>(rows.rows().size()); ++row) {
        const auto cells = cellsOf(rowAt({row, 0}));
        for (int column = 0; column < kColumns; ++column)
            for (QWidget* control : cells[static_cast<std::size_t>(column)])
                if (control)
                    watch(control, {row, column});
    }
    if (!rows.rows().empty())
        stopAt(rows.rows().front().name);
}

void TableKeys::watch(QWidget* control, Place place) {
    m_places.insert(control, place);
    control->setFocusPolicy(Qt::ClickFocus);
    control->installEventFilter(this);
    if (auto* box = qobject_cast<QLineEdit*>(control))
        connect(box, &QLineEdit::textEdited, this, [this, box] { m_edited = box; });
}

void TableKeys::stopAt(QWidget* control) {
    if (m_stop)
        m_stop->setFocusPolicy(Qt::ClickFocus);
    m_stop = control;
    m_stop->setFocusPolicy(Qt::StrongFocus);
}

bool TableKeys::isUsable(const QWidget* control) const {
    return control && control->isVisibleTo(&m_rows) && control->isEnabled();
}

QWidget* TableKeys::usableAt(Place place) const {
    const auto cells = cellsOf(rowAt(place));
    for (QWidget* control : cells[static_cast<std::size_t>(place.column)])
        if (isUsable(control))
            return control;
    return nullptr;
}

void TableKeys::keepStop() {
    if (!m_stop || isUsable(m_stop))
        return;
    const Place place = m_places.value(m_stop);
    QWidget* here = usableAt(place);
    stopAt(here ? here : rowAt(place).name);
}

void TableKeys::focusCame(QWidget* control, Qt::FocusReason reason) {
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
        m_edited = nullptr;
    stopAt(control);
    m_area.ensureWidgetVisible(control, 0, kScrollMargin);
}

bool TableKeys::eventFilter(QObject* watched, QEvent* event) {
    auto* control = qobject_cast<QWidget*>(watched);
    if (!control || !m_places.contains(control))
        return false;
    switch (event->type()) {
    case QEvent::FocusIn:
        focusCame(control, static_cast<QFocusEvent*>(event)->reason());
        [[fallthrough]];
    case QEvent::Enter:
        emit rowReached(rowAt(m_places.value(control)));
        return false;
    case QEvent::KeyPress:
        return keyPressed(control, *static_cast<QKeyEvent*>(event));
    default:
        return false;
    }
}

/// \return whether the key belongs to the table, even where there is nothing to go to
bool TableKeys::keyPressed(QWidget* control, const QKeyEvent& event) {
    if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        return false;
    const Place place = m_places.value(control);
    const auto* box = qobject_cast<QLineEdit*>(control);
    const int step = stepOf(event.key());
    switch (event.key()) {
    case Qt::Key_Tab:
        return tabFrom(control);
    case Qt::Key_Up:
    case Qt::Key_Down:
        return moveRows(place, step, 1);
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return moveRows(place, step, rowsInSight());
    case Qt::Key_Home:
    case Qt::Key_End:
        return !box && moveRows(place, step, static_cast<int>(m_rows.rows().size()));
    case Qt::Key_Left:
    case Qt::Key_Right:
        return !(box && textTakes(*box, event)) && moveColumns(place, step);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return pressRow(control, event.isAutoRepeat());
    default:
        return false;
    }
}

/// A name is pressed by itself.
bool TableKeys::pressRow(const QWidget* control, bool repeated) {
    const TableRow& row = rowAt(m_places.value(control));
    if (control != row.name && !repeated)
        emit parameterPressed(*row.parameter);
    return control != row.name;
}

bool TableKeys::tabFrom(QWidget* control) {
    const TableRow& row = rowAt(m_places.value(control));
    QWidget* upper = control == row.low ? row.high : control == row.above ? row.to : nullptr;
    if (control != m_edited || !isUsable(upper))
        return false;
    upper->setFocus(Qt::TabFocusReason);
    return true;
}

/// To the first row that is `distance` away or farther and has something in this column, else to the last that has.
bool TableKeys::moveRows(Place from, int step, int distance) {
    QWidget* target = nullptr;
    const int count = static_cast<int>(m_rows.rows().size());
    for (int row = from.row + step; row >= 0 && row < count; row += step) {
        QWidget* next = usableAt({row, from.column});
        if (next)
            target = next;
        if (next && std::abs(row - from.row) >= distance)
            break;
    }
    if (target)
        target->setFocus(Qt::TabFocusReason); // with this reason a box selects its text
    return true;
}

bool TableKeys::moveColumns(Place from, int step) {
    for (int column = from.column + step; column >= 0 && column < kColumns; column += step)
        if (QWidget* next = usableAt({from.row, column})) {
            next->setFocus(Qt::TabFocusReason);
            break;
        }
    return true;
}

int TableKeys::rowsInSight() const {
    return std::max(1, m_area.viewport()->height() / std::max(1, m_rows.rowHeight()) - 1);
}

} // namespace filter
