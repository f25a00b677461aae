// The proof of a wheel, by exhaustion, and how few rows any wheel could have.
//
// The proof walks over every subset that the guarantee speaks of and looks for a row that holds enough of it. There
// is no cleverness to trust: C(N, x) subsets against the rows, each a conjunction and a count of bits.
#pragma once

#include <functional>
#include <optional>
#include <span>

#include "selection/wheel_tables.h"

namespace selection {

/// The first subset of problem.chosen positions that has fewer than problem.common in each row, in lexicographic
/// order of its ascending positions (1 2 3 before 1 2 4); nothing when the guarantee holds. Rows need not be of equal
/// size.
/// \param goOn  told the share done, each few milliseconds; false ends the proof, and nothing is known then
using GoOn = std::function<bool(double share)>;
std::optional<PositionSet> firstUncovered(const WheelProblem& problem, std::span<const PositionSet> rows,
                                          const GoOn& goOn = {});

/// No wheel of this problem has fewer rows; at least 1. The best of: the number of subsets over those a row covers;
/// the Schönheim bound; the Turán number of the common-subsets (Schönheim's and de Caen's bounds) over those in a
/// row; one position fewer is no harder. Where common is 1 it is exact.
std::int64_t fewestRows(const WheelProblem& problem);

/// C(n, k); 0 for k < 0 or k > n. Exact for n up to 60.
std::int64_t choose(std::int64_t n, std::int64_t k);

/// How many of the subsets that the guarantee speaks of one row serves.
std::int64_t subsetsPerRow(const WheelProblem& problem);

} // namespace selection
