#include "history/windows/update_boxes.h"

#include "history/windows/update_panel.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/messages.h"

namespace history {

bool UpdateBoxes::confirm(const QString& text, const QString& title) {
    return toolkit::confirm(m_parent, text, title);
}

void UpdateBoxes::tell(const QString& text, const QString& title) {
    toolkit::showMessage(m_parent, text, title);
}

Fetched UpdateBoxes::fetch(const UpdateSource& source, const QString& path) {
    const toolkit::BusyCursor busy;
    Fetch fetch(source.proxy, m_limits);
    UpdatePanel panel(m_parent);
    QObject::connect(&fetch, &Fetch::progressed, &panel, &UpdatePanel::showBytes);
    QObject::connect(&panel, &QDialog::rejected, &fetch, &Fetch::cancel);
    panel.setModal(true);
    panel.show();
    return fetch.run(source.url(path));
}

} // namespace history
