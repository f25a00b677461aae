// Improves stored wheels, one problem after another, as long as there is time.
//
// A visit spends some work on one problem: wheels made from others of the store first, then random groups, longer
// searches in the groups that did best, and searches in a weaker group (at last in none) that start from the best rows.
// What did best is remembered from visit to visit. Every wheel is proven before the store gets it.
#pragma once

#include <map>
#include <memory>

#include "wheels/recipe.h"

namespace wheels {

class Improver {
  public:
    Improver(WheelStore& store, std::uint64_t seed);

    /// Spends about `work` visits of elements (some 3e8 a second). \return whether the stored wheel got smaller
    bool visit(const WheelProblem& problem, std::uint64_t work);

  private:
    struct Promising {
        Group group;
        Wheel wheel;
    };
    struct Memory {
        std::vector<Promising> best; ///< fewest rows first
    };

    bool construct(const ProblemSpace& space);
    void tryGroup(const ProblemSpace& space, std::uint64_t work);
    void tryAgain(const ProblemSpace& space, std::uint64_t work);
    void tryWeaker(const ProblemSpace& space, std::uint64_t work);
    bool keep(const ProblemSpace& space, const Wheel& wheel);
    void remember(const WheelProblem& problem, Promising promising);
    std::uint64_t spentSince(const Wheel& wheel, std::uint64_t work) const;

    WheelStore& m_store;
    Random m_random;
    std::map<WheelProblem, Memory> m_memory;
};

} // namespace wheels
