// The simulated draw's commands: start, pause, reset, the stability factor, how many numbers are ranked, how many
// runs are made; and the timer that makes it tick.
#pragma once

#include <QObject>
#include <QWidget>

#include "mainwin/main_context.h"
#include "selection/enumeration.h"

class QTimer;

namespace mainwin {

class DrawDesk : public QObject {
    Q_OBJECT
  public:
    /// Reads the factor from the settings and registers its commands. All three outlive the desk.
    /// The timer is "Timer1" of the window.
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
    void drawBankers();
    void askRuns();
    /// The prediction stands: offers to arrange it, once no other window and no open menu is in the way; not when
    /// the draw has been started again meanwhile.
    void askArrange();
    void tellFull();

    MainContext& m_context;
    selection::GenerationInput& m_generation;
    QWidget& m_window;
    QTimer* m_timer;    ///< a child of the window, as the other
    QTimer* m_askAgain; ///< for the question that waits
};

} // namespace mainwin
