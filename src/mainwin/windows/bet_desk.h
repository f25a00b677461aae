// The entries of 组号方式 that make bets of the numbers on the pad: each opens its filter window on a new table.
#pragma once

#include <string_view>

#include <QObject>
#include <QWidget>

#include "mainwin/main_context.h"
#include "selection/enumeration.h"

namespace mainwin {

class BetDesk : public QObject {
    Q_OBJECT
  public:
    /// What a generation works on; all of it outlives the desk.
    struct Inputs {
        sql::Engine& engine;
        selection::GenerationInput& generation;
        std::int16_t& Baoliu; ///< keep or remove, one flag for all filter windows
    };

    /// Registers its commands. \param context  outlives the desk, as the window does
    BetDesk(MainContext& context, const Inputs& inputs, QWidget& window);

  private:
    /// The numbers on the pad, all of them, through the window of this form.
    void arrangePad(std::string_view form);
    /// The numbers that the simulated draw has ranked; or those of all its runs, when several were wanted.
    void arrangeDraw();
    int finishedRuns() const;
    /// Whether there is something that the draw has ranked. A number 0 is never arranged.
    bool hasDrawn() const;
    void tellNotDrawn();
    void enumerate(std::string_view form);

    MainContext& m_context;
    Inputs m_inputs;
    QWidget& m_window;
};

} // namespace mainwin
