// A wheel problem under an imposed group, as a set cover: rows and subsets each reduced to orbits.
//
// A set of the cover is an orbit of rows and costs as many rows as the orbit has; an element is an orbit of subsets
// of `chosen` positions. Since the group maps a chosen orbit of rows onto itself, one row of an orbit tells what all
// cover.
#pragma once

#include <optional>
#include <vector>

#include "wheels/cover.h"
#include "wheels/group.h"

namespace wheels {

/// Both sizes of subsets of a problem, made once for all groups that are tried on it.
struct ProblemSpace {
    explicit ProblemSpace(const WheelProblem& problem);
    WheelProblem problem;
    SubsetIndex rows;
    SubsetIndex chosen;
    std::int64_t reach; ///< subsets that a row covers
};

class OrbitProblem {
  public:
    /// Nothing when the orbits of this group would need more memory than `mostPairs` pairs of a set and an element.
    static std::optional<OrbitProblem> make(const ProblemSpace& space, const Group& group,
                                            std::int64_t mostPairs = 60'000'000);

    const CoverInstance& cover() const { return m_cover; }
    /// All rows of the orbits.
    std::vector<PositionSet> rowsOf(const std::vector<std::uint32_t>& sets) const;
    /// The orbits of the given rows; rows whose orbit they do not fill bring the whole orbit in.
    std::vector<std::uint32_t> setsOf(const std::vector<PositionSet>& rows) const;

  private:
    explicit OrbitProblem(const ProblemSpace& space) : m_space(&space) {}
    void cover(const std::vector<std::uint32_t>& chosenOrbit, std::uint32_t chosenOrbits);

    const ProblemSpace* m_space;
    std::vector<std::uint32_t> m_orbitOfRow; ///< by rank
    std::vector<std::uint32_t> m_firstRow;   ///< rank of one row of each orbit
    CoverInstance m_cover;
};

} // namespace wheels
