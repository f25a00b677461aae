#include "toolkit/messages.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace toolkit {

QMessageBox::StandardButton showMessage(QWidget* parent, const workspace::Message& message, const BoxLook& look) {
    QMessageBox box(look.icon, message.title.isEmpty() ? u"奥衡星双色球彩票助理"_s : message.title, message.text,
                    look.buttons, parent);
    box.setObjectName(u"MsgBox"_s);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(look.defaultButton);
    box.setInformativeText(message.note);
    if (!message.details.isEmpty())
        box.setDetailedText(message.details);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QMessageBox::StandardButton showMessage(QWidget* parent, const QString& text, const QString& title,
                                        QMessageBox::Icon icon, QMessageBox::StandardButtons buttons) {
    return showMessage(parent, workspace::Message{text, title}, {icon, buttons});
}

std::optional<QString> askLine(QWidget* parent, const QString& prompt, const QString& title,
                               const QString& defaultText, Echo echo) {
    QDialog dialog(parent);
    dialog.setObjectName(u"InputBox"_s);
    dialog.setWindowTitle(title);
    auto* label = new QLabel(prompt);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    auto* edit = new QLineEdit(defaultText);
    edit->setObjectName(u"InputBoxText"_s);
    edit->setAccessibleName(prompt);
    edit->setEchoMode(echo == Echo::Secret ? QLineEdit::Password : QLineEdit::Normal);
    edit->selectAll();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(label);
    layout->addWidget(edit);
    layout->addWidget(buttons);
    dialog.setMinimumWidth(420);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return dialog.exec() == QDialog::Accepted ? std::optional(edit->text()) : std::nullopt;
}

QString askText(QWidget* parent, const QString& prompt, const QString& title, const QString& defaultText) {
    return askLine(parent, prompt, title, defaultText).value_or(QString());
}

} // namespace toolkit
