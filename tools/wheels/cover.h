// Weighted set cover: choose sets of least total cost so that every element lies in one, by local search.
//
// Order of calls: startFrom(), then run() as often as wanted. The search keeps a cover that costs less
// than the best one found and mends it: it takes out the set whose loss per cost is least, picks an uncovered element
// at random, puts in the best set for it, and makes whatever stays uncovered weigh more. A set that was just put in
// is not taken out at once; one that was taken out comes back only after its own surroundings have changed.
// Everything is counted in work (visits of elements), never in time, so a run can be repeated from its seed.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "wheels/random.h"

namespace wheels {

/// Who covers whom, both ways round, as two lists of lists (start[i]..start[i+1]).
struct CoverInstance {
    std::vector<std::uint32_t> setStart, setElements;
    std::vector<std::uint32_t> elementStart, elementSets;
    std::vector<std::int32_t> cost; ///< of each set, at least 1

    std::uint32_t sets() const { return static_cast<std::uint32_t>(cost.size()); }
    std::uint32_t elements() const { return static_cast<std::uint32_t>(elementStart.size() - 1); }
    std::span<const std::uint32_t> elementsOf(std::uint32_t set) const {
        return {setElements.data() + setStart[set], setElements.data() + setStart[set + 1]};
    }
    std::span<const std::uint32_t> setsOf(std::uint32_t element) const {
        return {elementSets.data() + elementStart[element], elementSets.data() + elementStart[element + 1]};
    }
    /// Fills elementStart and elementSets from the other two. \param elements  how many there are
    void transpose(std::uint32_t elements);
};

class CoverSearch {
  public:
    CoverSearch(const CoverInstance& instance, std::uint64_t seed);

    /// Starts from `sets` (may be empty) and completes them greedily to a cover.
    void startFrom(std::span<const std::uint32_t> sets);
    /// Searches until `work` visits are spent in all calls together.
    void run(std::uint64_t work);

    const std::vector<std::uint32_t>& best() const { return m_best; }
    std::int64_t bestCost() const { return m_bestCost; }
    std::uint64_t bestAt() const { return m_bestAt; } ///< work spent when the best was found

  private:
    void add(std::uint32_t set);
    void remove(std::uint32_t set);
    void uncover(std::uint32_t element);
    void cover(std::uint32_t element);
    void keepBest();
    void complete();
    void removeOne();
    void mend();
    std::uint32_t bestFor(std::uint32_t element);
    void raiseWeights();
    void halveWeights();
    bool worthMore(std::uint32_t left, std::uint32_t right) const;
    bool worthLess(std::uint32_t left, std::uint32_t right) const;

    const CoverInstance& m_instance;
    Random m_random;
    std::vector<std::int32_t> m_weight; ///< of each element
    std::vector<std::int32_t> m_count;  ///< chosen sets over each element
    std::vector<std::uint32_t>
        m_chosenXor;                   ///< of the chosen sets over each element: the one set where the count is 1
    std::vector<std::int32_t> m_value; ///< of each set: weight it would newly cover, or that only it covers
    std::vector<std::uint8_t> m_chosen, m_mayReturn;
    std::vector<std::uint64_t> m_changedAt;         ///< turn in which a set was put in or taken out
    std::vector<std::uint32_t> m_solution, m_place; ///< chosen sets; place of each in the list
    std::vector<std::uint32_t> m_uncovered, m_uncoveredPlace;
    std::int64_t m_cost = 0;
    std::uint64_t m_turn = 1, m_work = 0;
    std::int32_t m_heaviest = 1;
    std::vector<std::uint32_t> m_best;
    std::int64_t m_bestCost = 0;
    std::uint64_t m_bestAt = 0;
};

} // namespace wheels
