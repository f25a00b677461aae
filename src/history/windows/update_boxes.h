// The questions, the messages and the progress of an update of the history, above a window.
#pragma once

#include "history/update.h"

class QWidget;

namespace history {

class UpdateBoxes final : public UpdateDialogs {
  public:
    /// \param parent  outlives the object
    explicit UpdateBoxes(QWidget* parent, const FetchLimits& limits = {}) : m_parent(parent), m_limits(limits) {}

    bool confirm(const QString& text, const QString& title) override;
    void tell(const QString& text, const QString& title) override;
    /// Shows the waiting pointer and the progress, with a button to cancel.
    Fetched fetch(const UpdateSource& source, const QString& path) override;

  private:
    QWidget* m_parent;
    FetchLimits m_limits;
};

} // namespace history
