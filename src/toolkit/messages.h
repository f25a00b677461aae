// Message boxes and input boxes, with the names by which tests and screen readers find them: MsgBox and InputBox.
#pragma once

#include <optional>

#include <QMessageBox>
#include <QString>

class QWidget;

namespace toolkit {

/// Shows a message and waits for an answer. An empty title reads as the program's name.
QMessageBox::StandardButton showMessage(QWidget* parent, const QString& text, const QString& title = {},
                                        QMessageBox::Icon icon = QMessageBox::NoIcon,
                                        QMessageBox::StandardButtons buttons = QMessageBox::Ok);

/// OK and Cancel with a question mark. \return whether OK was pressed
bool confirm(QWidget* parent, const QString& text, const QString& title);

/// Asks for a line of text. \return the text, empty on Cancel: an input box does not tell the two apart
QString askText(QWidget* parent, const QString& prompt, const QString& title, const QString& defaultText = {});

} // namespace toolkit
