// The count of combinations: what the load step announces and what the pad's status text tells.
#pragma once

#include <cstdint>

namespace selection {

/// C(n, k), worked as k factors, each multiplied in and divided out. It is told as two things that agree: the rows
/// that a generation announces (k of 0 or below gives 1: six bankers and more), and the bets of the chosen numbers (0
/// when more are taken than there are).
constexpr std::int64_t combinationCount(int n, int k) {
    std::int64_t count = 1;
    for (int factor = 0; factor < k; ++factor)
        count = count * (n - factor) / (factor + 1);
    return count;
}

static_assert(combinationCount(33, 6) == 1'107'568);
static_assert(combinationCount(2, 3) == 0);

} // namespace selection
