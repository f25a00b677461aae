#include "history/windows/update_fetcher.h"

#include "history/windows/update_panel.h"
#include "toolkit/busy_cursor.h"

namespace history {

Fetched UpdateFetcher::fetch(const QUrl& url, const QNetworkProxy& proxy) {
    const toolkit::BusyCursor busy;
    Fetch fetch(proxy, m_limits);
    UpdatePanel panel(m_parent);
    QObject::connect(&fetch, &Fetch::progressed, &panel, &UpdatePanel::showBytes);
    QObject::connect(&panel, &QDialog::rejected, &fetch, &Fetch::cancel);
    panel.setModal(true);
    panel.show();
    return fetch.run(url);
}

} // namespace history
