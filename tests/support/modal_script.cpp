#include "support/modal_script.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace test_support {

namespace {

void close(QWidget& widget) {
    if (auto* dialog = qobject_cast<QDialog*>(&widget))
        dialog->reject();
    else
        widget.close();
}

QMessageBox* messageBox(QWidget& dialog) {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    if (!box) {
        ADD_FAILURE() << "not a message box: " << dialog.objectName().toStdString();
        close(dialog);
    }
    return box;
}

void pressButton(QMessageBox& box, QMessageBox::StandardButton which) {
    QAbstractButton* button = box.button(which);
    if (button)
        return button->click();
    ADD_FAILURE() << "the message box has no such button: " << box.text().toStdString();
    close(box);
}

} // namespace

ModalWatch::ModalWatch() {
    connect(&m_timer, &QTimer::timeout, this, &ModalWatch::look);
    m_timer.start(0);
}

ModalScript::ModalScript(std::vector<ModalStep> steps)
    : m_steps(std::make_move_iterator(steps.begin()), std::make_move_iterator(steps.end())) {}

ModalScript::~ModalScript() {
    for (const ModalStep& step : m_steps)
        ADD_FAILURE() << "a dialog never came: " << step.name.toStdString();
}

void ModalWatch::look() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog || !dialog->isVisible() ||
        dialog->objectName() == u"Dialog") // the progress of long work asks nothing
        return;
    for (const auto& open : m_open)
        if (open == dialog)
            return;
    m_open.emplace_back(dialog);
    dialog->installEventFilter(this);
    // Not from within this timer's own slot: a timer does not fire in an event loop that its slot has started.
    QTimer::singleShot(0, dialog, [this, dialog] { play(*dialog); });
}

bool ModalWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide)
        std::erase_if(m_open, [watched](const auto& open) { return !open || open == watched; });
    return false;
}

void ModalScript::play(QWidget& dialog) {
    const QString name = dialog.objectName();
    if (m_steps.empty() || m_steps.front().name != name) {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        ADD_FAILURE() << "a dialog that nobody expected: " << name.toStdString()
                      << (box ? " \"" + box->text().toStdString() + '"' : std::string()) << ", expected "
                      << (m_steps.empty() ? std::string("none") : m_steps.front().name.toStdString());
        return close(dialog);
    }
    const ModalAction act = std::move(m_steps.front().act);
    m_steps.pop_front();
    act(dialog);
}

ModalAction type(const QString& text) {
    return [text](QWidget& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>();
        auto* box = qobject_cast<QDialog*>(&dialog);
        if (!edit || !box) {
            ADD_FAILURE() << "no box to type into: " << dialog.objectName().toStdString();
            return close(dialog);
        }
        edit->setText(text);
        box->accept();
    };
}

ModalAction cancel() {
    return [](QWidget& dialog) { close(dialog); };
}

ModalAction answer(const QString& text, QMessageBox::StandardButton button) {
    return [text, button](QWidget& dialog) {
        QMessageBox* box = messageBox(dialog);
        if (!box)
            return;
        if (!text.isEmpty()) {
            EXPECT_EQ(box->text().toStdString(), text.toStdString());
        }
        pressButton(*box, button);
    };
}

ModalAction answer(const QString& text, const QString& title, QMessageBox::StandardButton button) {
    return [text, title, button](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), title.toStdString());
        answer(text, button)(dialog);
    };
}

} // namespace test_support
