#include "toolkit/dialog_boxes.h"

#include "toolkit/file_dialog.h"
#include "toolkit/messages.h"

namespace toolkit {

bool DialogBoxes::confirm(const workspace::Message& question, workspace::Risk risk) {
    const BoxLook look{QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel,
                       risk == workspace::Risk::Loss ? QMessageBox::Cancel : QMessageBox::Ok};
    return showMessage(m_parent, question, look) == QMessageBox::Ok;
}

void DialogBoxes::tell(const workspace::Message& message) {
    showMessage(m_parent, message, {});
}

void DialogBoxes::warn(const workspace::Message& message) {
    showMessage(m_parent, message, {QMessageBox::Critical});
}

std::optional<QString> DialogBoxes::askText(const QString& prompt, const QString& title, const QString& proposed) {
    return toolkit::askLine(m_parent, prompt, title, proposed);
}

QString DialogBoxes::chooseFile(const QString& folder, const QString& filter) {
    return toolkit::chooseFile(m_parent, folder, filter.section(u'|', 0, 0));
}

} // namespace toolkit
