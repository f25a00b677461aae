// Message boxes and input boxes, with the names by which tests and screen readers find them: MsgBox and InputBox.
#pragma once

#include <optional>

#include <QMessageBox>
#include <QString>

#include "workspace/dialogs.h"

class QWidget;

namespace toolkit {

struct BoxLook {
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::Ok;
};

/// Shows a message and waits for an answer. An empty title reads as the program's name; details are folded away
/// behind "详细信息".
QMessageBox::StandardButton showMessage(QWidget* parent, const workspace::Message& message, const BoxLook& look);
QMessageBox::StandardButton showMessage(QWidget* parent, const QString& text, const QString& title = {},
                                        QMessageBox::Icon icon = QMessageBox::NoIcon,
                                        QMessageBox::StandardButtons buttons = QMessageBox::Ok);

/// Whether what is typed can be read on the screen.
enum class Echo { Plain, Secret };

/// Asks for a line of text. \return nothing on Cancel
std::optional<QString> askLine(QWidget* parent, const QString& prompt, const QString& title,
                               const QString& defaultText = {}, Echo echo = Echo::Plain);
/// The same, where an input box does not tell an empty answer and Cancel apart. \return the text, empty on Cancel
QString askText(QWidget* parent, const QString& prompt, const QString& title, const QString& defaultText = {});

} // namespace toolkit
