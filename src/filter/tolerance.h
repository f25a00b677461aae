// The tolerance of the integrated run: its two boxes that follow each other, and what a run will keep, in words.
//
// A tick sets the count by the percentage, leaving a box sets the other one. The three roundings differ, and each
// stays as it is: a tick rounds halves up and leaves a count that would be 0, leaving the percentage cuts, and the
// run itself rounds halves to the even side.
//
//   10 ticks at 10 %: a tick gives 1      4 ticks: 0.4 + 0.5 gives 0, the count keeps what it had
//    5 ticks at 50 %: a tick gives 3      leaving the percentage gives 2
#pragma once

#include <optional>
#include <string>

#include "filter/window_state.h"

namespace filter {

/// Ticks among Check1(0) to Check1(30). Check1(31) does not count here, on purpose, though it takes part in the run.
int toleranceTicks(const WindowState& state);

/// TxtRc(0) after a click on a tick. \param state  as the click leaves it
std::string countAfterTick(const WindowState& state);
/// TxtRc(0) after TxtRc(1) was left.
std::string countAfterPercent(const WindowState& state);
/// TxtRc(1) after TxtRc(0) was left. \return nothing without a tick, a division by zero: the boxes stay as they are
std::optional<std::string> percentAfterCount(const WindowState& state);

/// Violations that a run allows: a 16-bit number; 0 while the tolerance is not ticked.
int toleranceOf(const WindowState& state);

/// What a run would keep, in one sentence: "4 个范围中至少满足 3 个的注留下".
/// \param offersTolerance  whether the members' window has a tolerance (Features::tolerance)
std::string keptByRun(std::span<const Parameter> catalogue, const WindowState& state, bool offersTolerance);

} // namespace filter
