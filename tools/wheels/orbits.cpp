#include "wheels/orbits.h"

#include <algorithm>

#include "selection/wheel_proof.h"

namespace wheels {

namespace {

constexpr std::uint32_t kUnseen = ~std::uint32_t{0};

struct Orbits {
    std::vector<std::uint32_t> of;    ///< orbit of each rank
    std::vector<std::uint32_t> first; ///< one rank of each orbit
    std::vector<std::int32_t> size;
};

Orbits orbitsOf(const SubsetIndex& index, const std::vector<SetMap>& generators) {
    Orbits orbits;
    orbits.of.assign(index.count(), kUnseen);
    std::vector<std::uint32_t> open;
    for (std::uint32_t rank = 0; rank < index.count(); ++rank) {
        if (orbits.of[rank] != kUnseen)
            continue;
        const auto orbit = static_cast<std::uint32_t>(orbits.first.size());
        orbits.first.push_back(rank);
        orbits.of[rank] = orbit;
        std::int32_t size = 1;
        for (open.assign(1, rank); !open.empty();) {
            const PositionSet set = index.at(open.back());
            open.pop_back();
            for (const SetMap& map : generators) {
                const std::uint32_t image = index.rank(map(set));
                if (orbits.of[image] != kUnseen)
                    continue;
                orbits.of[image] = orbit;
                open.push_back(image);
                ++size;
            }
        }
        orbits.size.push_back(size);
    }
    return orbits;
}

} // namespace

ProblemSpace::ProblemSpace(const WheelProblem& of)
    : problem(of), rows(of.positions, of.row), chosen(of.positions, of.chosen), reach(selection::subsetsPerRow(of)) {}

std::optional<OrbitProblem> OrbitProblem::make(const ProblemSpace& space, const Group& group,
                                               std::int64_t mostPairs) {
    std::vector<SetMap> generators;
    for (const Permutation& generator : group.generators)
        generators.emplace_back(generator);
    Orbits rows = orbitsOf(space.rows, generators);
    if (static_cast<std::int64_t>(rows.first.size()) * space.reach > mostPairs)
        return std::nullopt;
    const Orbits chosen = orbitsOf(space.chosen, generators);
    OrbitProblem problem(space);
    problem.m_orbitOfRow = std::move(rows.of);
    problem.m_firstRow = std::move(rows.first);
    problem.m_cover.cost = std::move(rows.size);
    problem.cover(chosen.of, static_cast<std::uint32_t>(chosen.first.size()));
    return problem;
}

void OrbitProblem::cover(const std::vector<std::uint32_t>& chosenOrbit, std::uint32_t chosenOrbits) {
    const WheelProblem& problem = m_space->problem;
    const PositionSet all = selection::firstPositions(problem.positions);
    std::vector<std::uint32_t> seenBy(chosenOrbits, kUnseen);
    m_cover.setStart.push_back(0);
    for (std::uint32_t set = 0; set < m_firstRow.size(); ++set) {
        const PositionSet row = m_space->rows.at(m_firstRow[set]);
        for (int inside = problem.common; inside <= std::min(problem.row, problem.chosen); ++inside) {
            const std::vector<PositionSet> outer = subsetsOf(all & ~row, problem.chosen - inside);
            for (const PositionSet inner : subsetsOf(row, inside))
                for (const PositionSet outside : outer) {
                    const std::uint32_t orbit = chosenOrbit[m_space->chosen.rank(inner | outside)];
                    if (seenBy[orbit] == set)
                        continue;
                    seenBy[orbit] = set;
                    m_cover.setElements.push_back(orbit);
                }
        }
        m_cover.setStart.push_back(static_cast<std::uint32_t>(m_cover.setElements.size()));
    }
    m_cover.transpose(chosenOrbits);
}

std::vector<PositionSet> OrbitProblem::rowsOf(const std::vector<std::uint32_t>& sets) const {
    std::vector<std::uint8_t> taken(m_firstRow.size(), 0);
    for (const std::uint32_t set : sets)
        taken[set] = 1;
    std::vector<PositionSet> rows;
    for (std::uint32_t rank = 0; rank < m_orbitOfRow.size(); ++rank)
        if (taken[m_orbitOfRow[rank]] != 0)
            rows.push_back(m_space->rows.at(rank));
    return rows;
}

std::vector<std::uint32_t> OrbitProblem::setsOf(const std::vector<PositionSet>& rows) const {
    std::vector<std::uint32_t> sets;
    for (const PositionSet row : rows)
        sets.push_back(m_orbitOfRow[m_space->rows.rank(row)]);
    std::sort(sets.begin(), sets.end());
    sets.erase(std::unique(sets.begin(), sets.end()), sets.end());
    return sets;
}

} // namespace wheels
