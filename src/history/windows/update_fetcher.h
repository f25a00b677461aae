// Fetches a file while a panel above a window shows how much has come.
#pragma once

#include "history/update_fetch.h"

class QWidget;

namespace history {

class UpdateFetcher final : public Fetcher {
  public:
    /// \param parent  outlives the object
    explicit UpdateFetcher(QWidget* parent, const FetchLimits& limits = {}) : m_parent(parent), m_limits(limits) {}

    /// Shows the waiting pointer and the progress, with a button to cancel.
    Fetched fetch(const QUrl& url, const QNetworkProxy& proxy) override;

  private:
    QWidget* m_parent;
    FetchLimits m_limits;
};

} // namespace history
