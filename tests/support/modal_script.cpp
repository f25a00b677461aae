#include "support/modal_script.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace test_support {

namespace {

constexpr const char* kTaken = "taken by a ModalWatch"; // property of a dialog that stands open

void close(QWidget& widget) {
    if (auto* dialog = qobject_cast<QDialog*>(&widget))
        dialog->reject();
    else
        widget.close();
}

/// The dialog as what it has to be; closed with a failure when it is none.
template <class Dialog> Dialog* as(QWidget& dialog, const char* what) {
    auto* found = qobject_cast<Dialog*>(&dialog);
    if (!found) {
        ADD_FAILURE() << "not " << what << ": " << describe(dialog);
        close(dialog);
    }
    return found;
}

void pressButton(QWidget& dialog, QAbstractButton* button) {
    if (button)
        return QTest::mouseClick(button, Qt::LeftButton);
    ADD_FAILURE() << "no such button: " << describe(dialog);
    close(dialog);
}

QString textOf(const QWidget& dialog) {
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog))
        return QStringList{box->text(), box->informativeText(), box->detailedText()}.join(u' ').trimmed();
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        if (label->isVisible())
            texts << label->text();
    return texts.join(u' ');
}

} // namespace

std::string describe(const QWidget& dialog) {
    const auto words = QStringLiteral("%1 \"%2\": %3").arg(dialog.objectName(), dialog.windowTitle(), textOf(dialog));
    return words.toStdString();
}

ModalWatch::ModalWatch() {
    qApp->installEventFilter(this); // the filter that was installed last sees a dialog first
}

bool ModalWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide)
        return false;
    auto* dialog = qobject_cast<QWidget*>(watched);
    if (!dialog || !dialog->isWindow() || !dialog->isModal() ||
        dialog->objectName() == u"Dialog") // the progress of long work asks nothing
        return false;
    const bool taken = dialog->property(kTaken).toBool();
    dialog->setProperty(kTaken, event->type() == QEvent::Show);
    if (event->type() == QEvent::Hide || taken)
        return false;
    // The second turn of the dialog's own event loop: what it does first itself, such as to take the focus or to list
    // a folder, is over.
    const auto playIfOpen = [this, open = QPointer(dialog)] {
        if (open && open->isVisible())
            play(*open);
    };
    QTimer::singleShot(0, this, [this, playIfOpen] { QTimer::singleShot(0, this, playIfOpen); });
    return false;
}

ModalScript::ModalScript(std::vector<ModalStep> steps)
    : m_steps(std::make_move_iterator(steps.begin()), std::make_move_iterator(steps.end())) {}

ModalScript::~ModalScript() {
    for (const ModalStep& step : m_steps)
        ADD_FAILURE() << "a dialog never came: " << step.name.toStdString();
}

void ModalScript::play(QWidget& dialog) {
    if (m_steps.empty() || m_steps.front().name != dialog.objectName()) {
        ADD_FAILURE() << "a dialog that nobody expected: " << describe(dialog) << ", expected "
                      << (m_steps.empty() ? std::string("none") : m_steps.front().name.toStdString());
        return close(dialog);
    }
    const ModalAction act = std::move(m_steps.front().act);
    m_steps.pop_front();
    act(dialog);
}

void UnexpectedDialogs::play(QWidget& dialog) {
    ADD_FAILURE() << "a dialog that nobody expected: " << describe(dialog) << ", outside every script";
    close(dialog);
}

ModalAction type(const QString& text) {
    return [text](QWidget& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>();
        auto* buttons = dialog.findChild<QDialogButtonBox*>();
        if (!edit || !buttons) {
            ADD_FAILURE() << "no box to type into: " << describe(dialog);
            return close(dialog);
        }
        edit->selectAll();
        edit->insert(text);
        pressButton(dialog, buttons->button(QDialogButtonBox::Ok));
    };
}

ModalAction cancel() {
    return [](QWidget& dialog) { close(dialog); };
}

ModalAction answer(const QString& text, QMessageBox::StandardButton button) {
    return [text, button](QWidget& dialog) {
        auto* box = as<QMessageBox>(dialog, "a message box");
        if (!box)
            return;
        if (!text.isEmpty()) {
            EXPECT_EQ(box->text().toStdString(), text.toStdString());
        }
        pressButton(dialog, box->button(button));
    };
}

ModalAction answer(const QString& text, const QString& title, QMessageBox::StandardButton button) {
    return [text, title, button](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), title.toStdString());
        answer(text, button)(dialog);
    };
}

ModalAction chooseFile(const QString& path) {
    return [path](QWidget& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* files = as<QFileDialog>(dialog, "a file dialog");
        if (!files || !edit)
            return;
        edit->setText(path);
        static_cast<QDialog*>(files)->accept();
    };
}

} // namespace test_support
