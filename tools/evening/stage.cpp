#include "evening/stage.h"

#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QTableView>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace evening {

namespace {

constexpr int kPatienceMs = 20000;

QWidget* visibleWindow(const QString& name) {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->objectName() == name)
            return widget;
    return nullptr;
}

/// A scrolled control comes into sight first, as a user would bring it.
void bringIntoSight(QWidget& control) {
    for (QWidget* above = control.parentWidget(); above; above = above->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(above))
            area->ensureWidgetVisible(&control);
    QTest::qWait(20);
}

} // namespace

void Stage::say(const QString& line) const {
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

void Stage::fail(const QString& reason) const {
    std::fprintf(stderr, "failed: %s\n", qPrintable(reason));
    std::_Exit(1);
}

QWidget& Stage::window(const QString& name) {
    if (!QTest::qWaitFor([&] { return visibleWindow(name) != nullptr; }, kPatienceMs))
        fail(u"no window "_s + name);
    return *visibleWindow(name);
}

QWidget& Stage::control(const QString& windowName, const QString& name) {
    auto* found = window(windowName).findChild<QWidget*>(name);
    if (!found || !found->isVisible() || !found->isEnabled())
        fail(windowName + u": no usable control "_s + name);
    bringIntoSight(*found);
    return *found;
}

void Stage::click(const QString& windowName, const QString& name, Qt::MouseButton button) {
    QWidget& target = control(windowName, name);
    const QPoint mark = target.inherits("QAbstractButton") ? QPoint(10, target.height() / 2) : target.rect().center();
    QTest::mouseMove(&target, mark);
    QTest::mouseClick(&target, button, {}, mark);
    QTest::qWait(30);
}

void Stage::type(const QString& windowName, const QString& name, const QString& text) {
    QWidget& target = control(windowName, name);
    QTest::mouseClick(&target, Qt::LeftButton);
    QTest::keyClick(&target, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&target, Qt::Key_Delete);
    QTest::keyClicks(&target, text);
}

void Stage::menu(const QString& windowName, const QStringList& names) {
    auto* bar = window(windowName).findChild<QMenuBar*>();
    QWidget* clickable = bar;
    for (const QString& name : names) {
        QAction* entry = nullptr;
        for (QAction* action : clickable->actions())
            if (action->objectName() == name || (action->menu() && action->menu()->objectName() == name))
                entry = action;
        if (!entry || !entry->isEnabled())
            fail(u"no usable entry "_s + name);
        const QRect place =
            clickable == bar ? bar->actionGeometry(entry) : qobject_cast<QMenu*>(clickable)->actionGeometry(entry);
        QTest::mouseClick(clickable, Qt::LeftButton, {}, place.center());
        if (!entry->menu())
            return;
        clickable = entry->menu();
        if (!QTest::qWaitFor([&] { return clickable->isVisible(); }, kPatienceMs))
            fail(u"menu stays shut: "_s + name);
    }
}

void Stage::doubleClickCell(const QString& windowName, const QString& grid, int row, int column) {
    auto* table = qobject_cast<QTableView*>(&control(windowName, grid));
    if (!table)
        fail(grid + u" is no table"_s);
    const QPoint place = table->visualRect(table->model()->index(row, column)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, place);
    QTest::qWait(30);
}

void Stage::script(const std::function<void()>& first, std::vector<Step> steps) {
    std::size_t next = 0;
    QWidget* handled = nullptr;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        QWidget* top = QApplication::activeModalWidget();
        if (next == steps.size() || !top || top == handled || !top->isVisible())
            return;
        const Step& step = steps[next];
        if (top->objectName() != step.name)
            return;
        ++next;
        handled = top;
        QObject::connect(top, &QObject::destroyed, &watch, [&] { handled = nullptr; });
        QTest::qWait(50);
        step.act(*top);
    });
    watch.start(5);
    first();
    if (!QTest::qWaitFor([&] { return next == steps.size(); }, kPatienceMs))
        fail(u"no window "_s + steps[next].name);
}

Stage::Step Stage::answerInput(const QString& text) {
    return {u"InputBox"_s, [text](QWidget& box) {
                auto* edit = box.findChild<QLineEdit*>();
                QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
                edit->insert(text); // an input method's result comes as one piece, too
                QTest::mouseClick(box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
            }};
}

Stage::Step Stage::pressOk() {
    return {u"MsgBox"_s, [](QWidget& box) {
                QTest::mouseClick(qobject_cast<QMessageBox*>(&box)->button(QMessageBox::Ok), Qt::LeftButton);
            }};
}

Stage::Step Stage::chooseFile(const std::filesystem::path& file) {
    return {u"FileDialog"_s, [file](QWidget& dialog) {
                auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
                edit->clear();
                edit->insert(QString::fromStdString(file.string()));
                QTest::keyClick(edit, Qt::Key_Return);
            }};
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
