// The simulated draw's commands: start, pause, reset, the stability factor, how many numbers are ranked, how many
// runs are made; and the timer that makes it tick.
#pragma once

#include <QObject>
#include <QTimer>
#include <QWidget>

#include "mainwin/main_context.h"
#include "selection/enumeration.h"

namespace mainwin {

class DrawDesk : public QObject {
    Q_OBJECT
  public:
    /// Reads the factor from the settings and registers its commands. All three outlive the desk.
    DrawDesk(MainContext& context, selection::GenerationInput& generation, QWidget& window);

    /// The program ends: stops the timer and keeps the numbers last ranked, as the settings "1".."6".
    void finish();

  private:
    void registerControls();
    void registerFactors();
    void registerSizes();
    int storedFactor();
    void choose(const selection::StabilityItem& item);
    void rank(int reds);
    void askRuns();
    /// The prediction stands: offers to arrange it, once no other window wants an answer.
    void askArrange();
    void tellFull();

    MainContext& m_context;
    selection::GenerationInput& m_generation;
    QWidget& m_window;
    QTimer m_timer;
    int m_drawReds = selection::Pad::kBetReds; ///< the marked entry of meuDanxuan
};

} // namespace mainwin
