// One draw and the parameters that are derived from it.
#pragma once

#include <array>
#include <cstdint>

namespace history {

/// A draw's eight slots: 0 the issue number, 1..6 the reds ascending, 7 the blue.
using Draw = std::array<std::int32_t, 8>;

/// The derived columns of a draw, by the names of their columns in table fig.
struct Derived {
    std::int16_t Znum = 0; // the rest of the columns follow
};

} // namespace history
