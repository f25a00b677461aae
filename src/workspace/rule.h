// The lottery's rule: how far the reds and the blues reach. Six reds and one blue a draw are fixed.
#pragma once

namespace workspace {

inline constexpr int kLeastReds = 28;
inline constexpr int kMostReds = 38;
inline constexpr int kLeastBlues = 12;
inline constexpr int kMostBlues = 18;

struct Rule {
    int reds = 33;  ///< highest red number, 28..38
    int blues = 16; ///< highest blue number, 12..18
};

} // namespace workspace
