// Real clicks and keys on controls that are found by name. Every helper fails the case when the window or the control
// is missing, hidden or disabled: a user could not have done it either.
#pragma once

#include <QString>
#include <QWidget>

class QAction;
class QTableView;

namespace test_support {

/// The visible top-level window of a name, or nullptr with a failure.
QWidget* window(const QString& name);

/// A child of any class by name, or nullptr with a failure.
QWidget* control(QWidget& parent, const QString& name);
template <class Control> Control* controlAs(QWidget& parent, const QString& name);
QAction* action(QWidget& parent, const QString& name);

/// A left click on the middle of a control (on the mark of a check box or an option). A control of a scrolled area is
/// brought into sight first, as a user would.
void press(QWidget& parent, const QString& name);
void press(const QString& windowName, const QString& name);
/// A right click on the middle of a control.
void rightPress(QWidget& parent, const QString& name);
void rightPress(const QString& windowName, const QString& name);
/// Replaces the text of an edit key by key.
void typeInto(QWidget& parent, const QString& name, const QString& text);
void typeInto(const QString& windowName, const QString& name, const QString& text);
/// Both clicks of a double click on a cell that is in sight.
void doubleClickCell(QTableView& table, int row, int column);
/// Chooses a menu entry or tool button: the menus above it open first (aboutToShow), and must be enabled as it must.
void trigger(QWidget& parent, const QString& name);
void trigger(const QString& windowName, const QString& name);

// One implementation each, below.

namespace detail {
void failNoControl(const QWidget& parent, const QString& name, const char* reason);
}

template <class Control> Control* controlAs(QWidget& parent, const QString& name) {
    auto* found = qobject_cast<Control*>(control(parent, name));
    if (!found)
        detail::failNoControl(parent, name, "missing or of another class");
    return found;
}

} // namespace test_support
