// What a parameter was in past draws: read from the derived values that the history holds, never computed anew.
#pragma once

#include <optional>
#include <vector>

#include "filter/value_range.h"

namespace filter {

/// How many of the latest values are told.
inline constexpr int kLatestDraws = 10;

struct PastValues {
    std::vector<int> latest; ///< newest first, at most kLatestDraws
    ValueRange seen;         ///< smallest and largest of all draws
    int draws = 0;
    int inside = 0; ///< draws with a value in the range that was asked for, both ends with it

    double share() const { return static_cast<double>(inside) / draws; }
};

/// What a parameter was in all draws, from Parameter::history. A draw has six reds, so that is what the parameters
/// of seven reds are told of too. One pass over the draws.
/// \return nothing for a parameter that the history lacks, and while there is no draw
std::optional<PastValues> pastValues(const history::History& history, const Parameter& parameter, double low,
                                     double high);

} // namespace filter
