// When the commands of the main window are offered, and what the entries of 组号方式 say.
//
// Two tests stand side by side on purpose: a draw can start with more than six reds and bankers together, while the
// entries of 组号方式 count the reds without the bankers.
#pragma once

#include <optional>

#include <QString>

#include "mainwin/menu_table.h"

namespace mainwin {

/// What the rules look at.
struct ProgramState {
    int draws = 0; ///< draws held
    int reds = 0;  ///< selected reds without the bankers
    int bankers = 0;
    int blues = 0;
    bool startEnabled = false; ///< the pad allows a draw
    bool drawRunning = false;
    bool drawBegun = false;
    bool drawResult = false;
};

/// \param index  place in its menu array of the entry that is asked about
bool allowed(Needs needs, const ProgramState& state, int index = MenuRow::kNoIndex);

/// The caption of an entry of 组号方式 that names the form of its bets, by whether blues are chosen; nothing for an
/// entry whose caption never changes.
std::optional<QString> betCaption(const QString& name, int blues);

} // namespace mainwin
