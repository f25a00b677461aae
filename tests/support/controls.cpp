#include "support/controls.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QRadioButton>
#include <QScrollArea>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

namespace test_support {

namespace {

void bringIntoSight(QWidget& widget) {
    for (QWidget* above = widget.parentWidget(); above; above = above->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(above))
            area->ensureWidgetVisible(&widget);
}

QWidget* usable(QWidget& parent, const QString& name) {
    QWidget* found = control(parent, name);
    if (!found)
        return nullptr;
    const char* reason = !found->isVisible() ? "hidden" : !found->isEnabled() ? "disabled" : nullptr;
    if (!reason) {
        bringIntoSight(*found);
        return found;
    }
    detail::failNoControl(parent, name, reason);
    return nullptr;
}

/// The mark of a check box or an option takes clicks; the blank to the right of its text does not.
QPoint clickPoint(const QWidget& widget) {
    constexpr int kInsideTheMark = 8;
    const bool marked = qobject_cast<const QCheckBox*>(&widget) || qobject_cast<const QRadioButton*>(&widget);
    return marked ? QPoint(kInsideTheMark, widget.height() / 2) : widget.rect().center();
}

void click(QWidget& parent, const QString& name, Qt::MouseButton button) {
    QWidget* widget = usable(parent, name);
    if (!widget)
        return;
    const QPoint place = clickPoint(*widget);
    QTest::mouseMove(widget, place);
    QTest::mouseClick(widget, button, {}, place);
}

bool openMenusAbove(QAction& entry) {
    const QObjectList owners = entry.associatedObjects();
    for (QObject* owner : owners) {
        auto* menu = qobject_cast<QMenu*>(owner);
        if (!menu)
            continue;
        if (!openMenusAbove(*menu->menuAction()) || !menu->menuAction()->isEnabled())
            return false;
        emit menu->aboutToShow();
        return true;
    }
    return true;
}

} // namespace

namespace detail {

void failNoControl(const QWidget& parent, const QString& name, const char* reason) {
    ADD_FAILURE() << name.toStdString() << " in " << parent.objectName().toStdString() << ": " << reason;
}

} // namespace detail

QWidget* window(const QString& name) {
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget* widget : all)
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    ADD_FAILURE() << "no such window is open: " << name.toStdString();
    return nullptr;
}

QWidget* control(QWidget& parent, const QString& name) {
    auto* found = parent.findChild<QWidget*>(name);
    if (!found)
        detail::failNoControl(parent, name, "missing");
    return found;
}

QAction* action(QWidget& parent, const QString& name) {
    auto* found = parent.findChild<QAction*>(name);
    if (!found)
        detail::failNoControl(parent, name, "missing");
    return found;
}

void press(QWidget& parent, const QString& name) {
    click(parent, name, Qt::LeftButton);
}

void press(const QString& windowName, const QString& name) {
    if (QWidget* found = window(windowName))
        press(*found, name);
}

void rightPress(QWidget& parent, const QString& name) {
    click(parent, name, Qt::RightButton);
}

void rightPress(const QString& windowName, const QString& name) {
    if (QWidget* found = window(windowName))
        rightPress(*found, name);
}

void typeInto(QWidget& parent, const QString& name, const QString& text) {
    QWidget* edit = usable(parent, name);
    if (!edit)
        return;
    edit->setFocus(Qt::TabFocusReason);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

void typeInto(const QString& windowName, const QString& name, const QString& text) {
    if (QWidget* found = window(windowName))
        typeInto(*found, name, text);
}

void doubleClickCell(QTableView& table, int row, int column) {
    const QPoint place = table.visualRect(table.model()->index(row, column)).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
}

void trigger(QWidget& parent, const QString& name) {
    QAction* entry = action(parent, name);
    if (!entry)
        return;
    if (!openMenusAbove(*entry))
        return detail::failNoControl(parent, name, "in a menu that is disabled");
    if (!entry->isEnabled())
        return detail::failNoControl(parent, name, "disabled");
    entry->trigger();
}

void trigger(const QString& windowName, const QString& name) {
    if (QWidget* found = window(windowName))
        trigger(*found, name);
}

} // namespace test_support
