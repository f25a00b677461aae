// The parameters of one draw, computed once when the draw comes in.
//
// Pure functions of the draw, the draw before it and the omissions as they stood before it. Nothing is checked here:
// the readers of draws see to their numbers. A number that the arrays of statistics do not reach (a text file may
// hold one) has the omission 0. Numbers of any 16-bit size give some values, never a fault.
#pragma once

#include <cstdint>
#include <span>

#include "history/draw_record.h"
#include "workspace/rule.h"

namespace history {

/// The 15 differences of the reds in their fixed order; negative where the reds are not ascending.
Differences redDifferences(const Draw& draw);

/// AC value: distinct differences less 5. 01 02 03 04 05 06 has the differences 1..5 and gives 0; the most is 10.
std::int16_t acValue(const Differences& differences);

/// All derived values of a draw.
/// \param previous  the draw before, all zero for the first draw
/// \param omission  Ylnow before this draw, by number
Derived deriveDraw(const Draw& draw, const Draw& previous, std::span<const std::int16_t> omission,
                   const workspace::Rule& rule);

} // namespace history
