// The integrated run (多选参数整合过滤): all ticked parameters judged together.
//
// Keep or remove and the logic give the four readings of the set of ranges. A bet is inside where its value lies in
// the parameter's range or list; t is the tolerance, 0 without one:
//
//   Option1  Option37  Baoliu  counted   inverted  a bet in play stays when it is
//   保留     逻辑和    keep    outside   no        outside at most t: all ranges hold
//   排除     逻辑或    remove  inside    no        inside at most t: no range catches it
//   保留     逻辑或    remove  inside    yes       inside more than t: any range holds
//   排除     逻辑和    keep    outside   yes       outside more than t: not all ranges catch it
//
// Violations are counted into Errnum over all rows, also those that are out; these stay out in all four. Reasons are
// appended to what is there. The parity step of a position counts for itself. Without a tick the inverting readings
// take out every bet in play: none was counted.
//
// Members without tolerance keep the row states in Gpslt in place of Errnum: their parameters take rows out at once,
// and the inversion works on the rows that were in play before.
#pragma once

#include "filter/member.h"
#include "filter/parameter_run.h"
#include "filter/window_state.h"
#include "workspace/dialogs.h"

namespace filter {

/// Whether the run inverts what its parameters took out.
bool inverts(const WindowState& state);
/// Keep or remove during the run, and after it: it is not put back.
std::int16_t integratedBaoliu(const WindowState& state);

/// Sets Baoliu and runs; what the database refuses is passed over.
/// \param progress  told after each parameter; may be null
/// \return false when it was given up: the rows are somewhere on the way then, and Baoliu is what the run set
bool runIntegrated(const FilterMember& member, const Workbench& bench, const WindowState& state, std::int16_t& Baoliu,
                   workspace::Progress* progress = nullptr);

/// The run in words: "整合过滤 4 项 保留 逻辑和", "… 容错 1" with a tolerance.
std::string integratedText(const FilterMember& member, const WindowState& state);

} // namespace filter
