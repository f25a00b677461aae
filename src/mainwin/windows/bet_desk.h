// The entries that make bets of the numbers on the pad, or of those that the simulated draw has ranked: each opens
// its filter window on a new table.
#pragma once

#include <QObject>

#include "mainwin/windows/filter_opener.h"
#include "selection/enumeration.h"

namespace mainwin {

class BetDesk : public QObject {
    Q_OBJECT
  public:
    /// Registers its commands. All three outlive the desk.
    BetDesk(MainContext& context, selection::GenerationInput& generation, FilterOpener& opener);

  private:
    /// The forms of one entry: with a blue chosen, and without.
    struct Forms {
        std::string_view blue;
        std::string_view reds;
    };
    /// The numbers on the pad, all of them.
    void arrangePad(const Forms& forms);
    /// The numbers that the simulated draw has ranked; or those of all its runs, when several were wanted.
    void arrangeDraw();
    int finishedRuns() const;
    /// Whether there is something that the draw has ranked. A number 0 is never arranged.
    bool hasDrawn() const;
    void tellNotDrawn();
    void enumerate(const Forms& forms);

    MainContext& m_context;
    selection::GenerationInput& m_generation;
    FilterOpener& m_opener;
};

} // namespace mainwin
