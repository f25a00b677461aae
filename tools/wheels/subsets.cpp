#include "wheels/subsets.h"

#include <bit>

#include "selection/wheel_proof.h"

namespace wheels {

namespace {

using selection::choose;

/// The sum of C(position, place) over the set bits; the first bit of `half` has the given place and position.
std::uint32_t colexPart(std::uint32_t half, int firstPosition, int firstPlace, int size) {
    std::int64_t sum = 0;
    for (int place = firstPlace; half != 0 && place <= size; half &= half - 1, ++place)
        sum += choose(firstPosition + std::countr_zero(half), place);
    return static_cast<std::uint32_t>(sum);
}

void appendSubsets(PositionSet rest, int size, PositionSet taken, std::vector<PositionSet>& out) {
    if (size == 0) {
        out.push_back(taken);
        return;
    }
    // The highest element first, from the lowest possible one up: ascending order of the bit sets.
    PositionSet below = 0;
    for (; rest != 0; rest &= rest - 1) {
        const PositionSet element = rest & (~rest + 1);
        if (std::popcount(below) >= size - 1)
            appendSubsets(below, size - 1, taken | element, out);
        below |= element;
    }
}

} // namespace

std::vector<PositionSet> subsetsOf(PositionSet of, int size) {
    std::vector<PositionSet> out;
    out.reserve(static_cast<std::size_t>(choose(std::popcount(of), size)));
    appendSubsets(of, size, 0, out);
    return out;
}

SubsetIndex::SubsetIndex(int positions, int size)
    : m_sets(subsetsOf(selection::firstPositions(positions), size)), m_low(kHalfSets), m_lowCount(kHalfSets) {
    for (std::uint32_t half = 0; half < kHalfSets; ++half) {
        m_low[half] = colexPart(half, 0, 1, size);
        m_lowCount[half] = static_cast<std::uint8_t>(std::popcount(half));
    }
    for (int lowCount = 0; lowCount <= kHalf; ++lowCount) {
        auto& high = m_high[static_cast<std::size_t>(lowCount)];
        high.resize(kHalfSets);
        for (std::uint32_t half = 0; half < kHalfSets; ++half)
            high[half] = colexPart(half, kHalf, lowCount + 1, size);
    }
}

} // namespace wheels
