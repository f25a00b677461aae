// The smallest and the largest value that a bet can have of a parameter, all its numbers taken into account.
//
// It is worked out from what each number adds to the value, for the rule, the last draw and the omissions at hand; no
// bet is walked through. A parameter is known by its column of the history, or by
// its caption where it has none. Cost: one pass over the reds.
#pragma once

#include <optional>

#include "filter/catalogue.h"
#include "workspace/rule.h"

namespace filter {

struct ValueRange {
    int low = 0;
    int high = 0;
    bool operator==(const ValueRange&) const = default;
};

/// \param rule  28 reds or more: with far fewer the largest AC value is smaller
/// \return nothing for 自定区间, which counts in numbers that the user gives
std::optional<ValueRange> possibleRange(const Parameter& parameter, const workspace::Rule& rule,
                                        const history::History& history);

} // namespace filter
