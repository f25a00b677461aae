// Improves stored wheels, one problem after another, as long as there is time.
//
// A visit spends some work on one problem: wheels made from others of the store first, then a short search in each of
// many random groups, then longer ones in the groups that did best, and in weaker groups (at last in none) starting
// from the best rows. What did best is remembered from visit to visit. Every wheel is proven before the store gets
// it.
#pragma once

#include <map>
#include <vector>

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

    bool construct(const ProblemSpace& space);
    void tryGroup(const ProblemSpace& space, std::uint64_t work);
    void tryAgain(const ProblemSpace& space, std::uint64_t work);
    void tryWeaker(const ProblemSpace& space, std::uint64_t work);
    void trySearch(const ProblemSpace& space, const Group& group, std::uint64_t work, const Wheel* start);
    bool keep(const ProblemSpace& space, const Wheel& wheel);
    void remember(const WheelProblem& problem, Promising promising);

    WheelStore& m_store;
    Random m_random;
    std::map<WheelProblem, std::vector<Promising>> m_memory; ///< fewest rows first
    std::map<WheelProblem, int> m_visits;
};

} // namespace wheels
