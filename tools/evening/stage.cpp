#include "evening/stage.h"

#include <cstdio>

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "support/controls.h"

using namespace Qt::StringLiterals;

namespace evening {

namespace {

constexpr int kPatienceMs = 20000;
constexpr int kPaintMs = 30;

void fail(const QString& reason) {
    ADD_FAILURE() << reason.toStdString(); // ends the process
}

} // namespace

void Stage::say(const QString& line) const {
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

void Stage::click(const QString& windowName, const QString& name) {
    test_support::press(windowName, name);
    QTest::qWait(kPaintMs);
}

void Stage::type(const QString& windowName, const QString& name, const QString& text) {
    test_support::press(windowName, name);
    test_support::typeInto(windowName, name, text);
}

void Stage::menu(const QString& windowName, const QStringList& names) {
    auto* bar = test_support::window(windowName)->findChild<QMenuBar*>();
    QWidget* clickable = bar;
    for (const QString& name : names) {
        QAction* entry = nullptr;
        for (QAction* action : clickable->actions())
            if (action->objectName() == name || (action->menu() && action->menu()->objectName() == name))
                entry = action;
        if (!entry || !entry->isEnabled())
            return fail(u"no usable entry "_s + name);
        const QRect place =
            clickable == bar ? bar->actionGeometry(entry) : qobject_cast<QMenu*>(clickable)->actionGeometry(entry);
        QTest::mouseClick(clickable, Qt::LeftButton, {}, place.center());
        if (!entry->menu())
            return;
        clickable = entry->menu();
        if (!QTest::qWaitFor([&] { return clickable->isVisible(); }, kPatienceMs))
            return fail(u"menu stays shut: "_s + name);
    }
}

void Stage::doubleClickCell(const QString& windowName, const QString& grid, int row, int column) {
    QWidget& window = *test_support::window(windowName);
    test_support::doubleClickCell(*test_support::controlAs<QTableView>(window, grid), row, column);
    QTest::qWait(kPaintMs);
}

void Stage::show(const QString& picture, const QString& line) {
    QTest::qWait(150); // let the windows paint
    ++m_pictures;
    const QString file = u"%1-%2.png"_s.arg(m_pictures, 2, 10, QChar(u'0')).arg(picture);
    const QString path = QString::fromStdString((m_out / file.toStdString()).string());
    if (!QApplication::primaryScreen()->grabWindow(0).save(path))
        fail(u"cannot write "_s + path);
    say(u"%1  %2"_s.arg(file, line));
}

} // namespace evening
