// When the commands of the main window are offered, and what the entries of 组号方式 say.
//
// Two tests stand side by side on purpose: a draw can start with more than six reds and bankers together, while the
// entries of 组号方式 count the reds without the bankers.
#pragma once

#include <optional>

#include <QStringList>

#include "mainwin/menu_table.h"
#include "selection/simulator.h"

namespace mainwin {

/// What the rules look at.
struct ProgramState {
    int draws = 0; ///< draws held
    int reds = 0;  ///< selected reds without the bankers
    int bankers = 0;
    int blues = 0;
    selection::DrawControls draw{}; ///< what the simulated draw offers
    bool drawRunning = false;
    int drawPicks = 6; ///< numbers that it ranks
};

/// Why a command is not offered now.
struct Obstacle {
    QStringList needed{}; ///< numbers that are still to be chosen: "1 红", "1 蓝"
    QString words{};      ///< anything else, as a sentence

    bool stands() const { return !needed.isEmpty() || !words.isEmpty(); }
    /// "还需：1 红、1 蓝", or the sentence; empty when nothing stands in the way.
    QString text() const;
};

/// \param index  place in its menu array of the entry that is asked about
Obstacle obstacle(Needs needs, const ProgramState& state, int index = MenuRow::kNoIndex);
inline bool allowed(Needs needs, const ProgramState& state, int index = MenuRow::kNoIndex) {
    return !obstacle(needs, state, index).stands();
}

/// The caption of an entry of 组号方式 that names the form of its bets, by whether blues are chosen; nothing for an
/// entry whose caption never changes.
std::optional<QString> betCaption(const QString& name, int blues);

/// How the start of the simulated draw names itself; nothing for any other entry or button.
std::optional<QString> drawCaption(const QString& name, const selection::DrawControls& draw);
std::optional<QString> drawToolTip(const QString& name, const selection::DrawControls& draw);

} // namespace mainwin
