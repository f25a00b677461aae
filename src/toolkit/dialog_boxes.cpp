#include "toolkit/dialog_boxes.h"

#include "toolkit/file_dialog.h"
#include "toolkit/messages.h"
#include "toolkit/progress_dialog.h"

namespace toolkit {

namespace {

class DialogProgress final : public workspace::Progress {
  public:
    DialogProgress(QWidget* parent, const QString& caption) : m_dialog(parent) { m_dialog.begin(caption); }
    bool advance(double share) override { return m_dialog.advance(share); }

  private:
    ProgressDialog m_dialog;
};

} // namespace

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

std::optional<QString> DialogBoxes::askSecret(const QString& prompt, const QString& title) {
    return toolkit::askLine(m_parent, prompt, title, {}, Echo::Secret);
}

std::unique_ptr<workspace::Progress> DialogBoxes::progress(const QString& caption) {
    return std::make_unique<DialogProgress>(m_parent, caption);
}

QString DialogBoxes::chooseFile(const QString& folder, const QString& filter) {
    return toolkit::chooseFile(m_parent, folder, filter.section(u'|', 0, 0));
}

QString DialogBoxes::chooseNewFile(const QString& proposed, const QString& filter) {
    QStringList shown;
    const QStringList parts = filter.split(u'|');
    for (qsizetype part = 0; part < parts.size(); part += 2) // each followed by its pattern
        shown << parts[part];
    return toolkit::chooseNewFile(m_parent, proposed, shown);
}

} // namespace toolkit
