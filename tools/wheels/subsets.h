// Subsets of up to 24 positions as bit sets, and their numbers.
//
// rank() numbers the k-subsets of n positions 0..C(n,k)-1 in ascending order of their bit sets, with two look-ups:
// one for the low twelve positions, one for the high twelve (given how many lie low).
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "selection/wheel_tables.h"

namespace wheels {

using selection::PositionSet;
using selection::WheelProblem;

inline constexpr int kHalf = 12;
inline constexpr std::size_t kHalfSets = std::size_t{1} << kHalf;

/// All subsets of `size` elements of `of`, in ascending order when `of` has no gaps.
std::vector<PositionSet> subsetsOf(PositionSet of, int size);

class SubsetIndex {
  public:
    SubsetIndex(int positions, int size);
    std::uint32_t count() const { return static_cast<std::uint32_t>(m_sets.size()); }
    PositionSet at(std::uint32_t rank) const { return m_sets[rank]; }
    std::uint32_t rank(PositionSet set) const {
        const std::size_t low = set & (kHalfSets - 1);
        return m_low[low] + m_high[m_lowCount[low]][set >> kHalf];
    }

  private:
    std::vector<PositionSet> m_sets;
    std::vector<std::uint32_t> m_low;
    std::vector<std::uint8_t> m_lowCount;
    std::array<std::vector<std::uint32_t>, kHalf + 1> m_high;
};

} // namespace wheels
