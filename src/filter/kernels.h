// Values of a bet that no statement computes: AC value, repeated last digits, omissions.
//
// A kernel gets the red columns of a batch (six, or seven where the table has as many) and fills the values. In a 6+1
// table the same reds stand in a row for each blue, so a value is worked out once for a run of equal rows. Nothing is
// allocated while it runs.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "history/history.h"
#include "sql/database.h"

namespace filter {

/// The most reds that a bet has.
inline constexpr std::size_t kMostPositions = 7;

/// Positions whose box is ticked, ascending, as indices from 0 into the red columns.
using Positions = std::vector<int>;

/// AC value: distinct differences less (n - 1), n the count of positions. 01 02 03 04 05 06 gives 0; no position, 1.
/// Numbers lie in 0..63.
sql::RowKernel acValueKernel(const Positions& positions);

/// 6 less the count of distinct last digits; the 6 stays when fewer positions are ticked. 01 11 21 31 02 12 gives 4.
sql::RowKernel sameLastDigitsKernel(const Positions& positions);

/// Omissions of the reds, summed. A number above 38 has none.
sql::RowKernel omissionSumKernel(const Positions& positions, const history::History& history);

/// Largest omission (from 0 up) less smallest (from 99 down); no position: -99.
sql::RowKernel omissionRangeKernel(const Positions& positions, const history::History& history);

} // namespace filter
