#include "selection/wheel_proof.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

namespace selection {

namespace {

std::int64_t quotientUp(std::int64_t dividend, std::int64_t divisor) {
    return (dividend + divisor - 1) / divisor;
}

/// Number of bits of each 12-bit part: std::popcount is a library call where the processor's own may not be used.
struct BitCounts {
    BitCounts() {
        for (std::size_t part = 0; part < counts.size(); ++part)
            counts[part] = static_cast<std::uint8_t>(std::popcount(part));
    }
    int of(PositionSet set) const { return counts[set & 0xFFFU] + counts[set >> 12U & 0xFFFU] + counts[set >> 24U]; }
    std::array<std::uint8_t, 4096> counts;
};

/// Steps from one subset to the next in lexicographic order of the ascending positions.
bool nextSubset(std::vector<int>& positions, int n) {
    const int size = static_cast<int>(positions.size());
    int place = size - 1;
    while (place >= 0 && positions[static_cast<std::size_t>(place)] == n - size + place)
        --place;
    if (place < 0)
        return false;
    int next = positions[static_cast<std::size_t>(place)];
    for (; place < size; ++place)
        positions[static_cast<std::size_t>(place)] = ++next;
    return true;
}

PositionSet setOf(const std::vector<int>& positions) {
    PositionSet set = 0;
    for (const int position : positions)
        set |= PositionSet{1} << position;
    return set;
}

/// Asks whether the proof goes on, often enough for a progress and too seldom to cost time.
class Pace {
  public:
    Pace(const GoOn& goOn, std::int64_t subsets) : m_goOn(goOn), m_subsets(static_cast<double>(subsets)) {}
    /// A subset is served. \param looked  rows that were looked at \return false: enough
    bool next(std::size_t looked) {
        ++m_done;
        m_looked += looked;
        if (!m_goOn || m_looked < kLooksBetween)
            return true;
        m_looked = 0;
        return m_goOn(static_cast<double>(m_done) / m_subsets);
    }

  private:
    static constexpr std::size_t kLooksBetween = 4'000'000; // some milliseconds
    const GoOn& m_goOn;
    double m_subsets;
    std::int64_t m_done = 0;
    std::size_t m_looked = 0;
};

/// Schönheim 1964: each position must lie in enough rows to cover the rest of its subsets.
std::int64_t schoenheim(std::int64_t positions, std::int64_t row, std::int64_t common) {
    std::int64_t bound = 1;
    for (std::int64_t level = common - 1; level >= 0; --level)
        bound = quotientUp((positions - level) * bound, row - level);
    return bound;
}

/// Fewest r-subsets of n positions so that each k positions hold one: complements are a covering; de Caen 1983.
std::int64_t turan(std::int64_t n, std::int64_t k, std::int64_t r) {
    const std::int64_t deCaen = quotientUp(choose(n, r) * (n - k + 1), choose(k - 1, r - 1) * (n - r + 1));
    return std::max(schoenheim(n, n - r, n - k), deCaen);
}

std::int64_t fewestRowsOf(const WheelProblem& problem) {
    const auto [positions, row, chosen, common] = problem;
    if (common == 1)
        return std::max(1, (positions - chosen + row) / row);
    std::int64_t bound = quotientUp(choose(positions, chosen), subsetsPerRow(problem));
    if (chosen == common)
        bound = std::max(bound, schoenheim(positions, row, common));
    return std::max(bound, quotientUp(turan(positions, chosen, common), choose(row, common)));
}

} // namespace

std::int64_t choose(std::int64_t n, std::int64_t k) {
    if (k < 0 || k > n)
        return 0;
    std::int64_t result = 1;
    for (std::int64_t factor = 1; factor <= k; ++factor)
        result = result * (n - k + factor) / factor;
    return result;
}

std::int64_t subsetsPerRow(const WheelProblem& problem) {
    std::int64_t reach = 0;
    for (int inside = problem.common; inside <= std::min(problem.row, problem.chosen); ++inside)
        reach += choose(problem.row, inside) * choose(problem.positions - problem.row, problem.chosen - inside);
    return reach;
}

std::optional<PositionSet> firstUncovered(const WheelProblem& problem, std::span<const PositionSet> rows,
                                          const GoOn& goOn) {
    const BitCounts bits;
    Pace pace(goOn, choose(problem.positions, problem.chosen));
    std::vector<int> positions(static_cast<std::size_t>(problem.chosen));
    for (int place = 0; place < problem.chosen; ++place)
        positions[static_cast<std::size_t>(place)] = place;
    std::size_t last = 0; // the row that served the neighbour often serves again
    do {
        const PositionSet chosen = setOf(positions);
        std::size_t looked = 1;
        if (last >= rows.size() || bits.of(rows[last] & chosen) < problem.common) {
            last = 0;
            while (last < rows.size() && bits.of(rows[last] & chosen) < problem.common)
                ++last;
            if (last == rows.size())
                return chosen;
            looked += last;
        }
        if (!pace.next(looked))
            return std::nullopt;
    } while (nextSubset(positions, problem.positions));
    return std::nullopt;
}

std::int64_t fewestRows(const WheelProblem& problem) {
    if (problem.common == 0)
        return 1;
    std::int64_t bound = 1;
    for (WheelProblem smaller = problem; smaller.positions >= std::max(problem.row, problem.chosen);
         --smaller.positions)
        bound = std::max(bound, fewestRowsOf(smaller));
    return bound;
}

} // namespace selection
