// The simulated draw's entries of the menus: the stability factor, and which size of a draw is marked.
#pragma once

#include <optional>

#include <QObject>

#include "mainwin/main_context.h"
#include "mainwin/stability.h"

namespace mainwin {

class DrawDesk : public QObject {
    Q_OBJECT
  public:
    /// Reads the factor from the settings and registers its commands. \param context  outlives the desk
    explicit DrawDesk(MainContext& context);

    Stability stability;

  private:
    void choose(const StabilityItem& item);

    MainContext& m_context;
    std::optional<StabilityItem> m_checked;
    int m_drawReds = selection::Pad::kBetReds; ///< the marked entry of meuDanxuan
};

} // namespace mainwin
