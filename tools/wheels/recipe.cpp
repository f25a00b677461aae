#include "wheels/recipe.h"

#include <algorithm>
#include <bit>
#include <sstream>
#include <stdexcept>

namespace wheels {

namespace {

using Rows = std::vector<PositionSet>;
using selection::firstPositions;

std::string problemText(const WheelProblem& problem) {
    return std::to_string(problem.positions) + ' ' + std::to_string(problem.row) + ' ' +
           std::to_string(problem.chosen) + ' ' + std::to_string(problem.common);
}

/// Adds the lowest positions that are missing until the row has `size`.
PositionSet filledUp(PositionSet row, int size, int positions) {
    while (std::popcount(row) < size) {
        const PositionSet missing = firstPositions(positions) & ~row;
        row |= missing & (~missing + 1);
    }
    return row;
}

/// Rows of a part, which may have fewer positions than a row holds; nothing when they are not known.
std::optional<Rows> partRows(const WheelProblem& part, const WheelStore& store) {
    if (part.positions < part.chosen)
        return Rows{};
    if (part.positions <= part.row)
        return Rows{firstPositions(part.positions)};
    const Wheel* wheel = store.find(part);
    if (wheel == nullptr)
        return std::nullopt;
    return wheel->rows;
}

Rows unique(Rows rows) {
    sortRows(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::optional<Rows> joined(const WheelProblem& problem, const WheelProblem& left, const WheelProblem& right,
                           const WheelStore& store) {
    std::optional<Rows> rows = partRows(left, store);
    const std::optional<Rows> others = partRows(right, store);
    if (!rows || !others)
        return std::nullopt;
    for (const PositionSet row : *others)
        rows->push_back(row << left.positions);
    for (PositionSet& row : *rows)
        row = filledUp(row, problem.row, problem.positions);
    return unique(*rows);
}

void appendJoins(const WheelProblem& problem, const WheelStore& store, std::vector<Wheel>& found) {
    for (int positions = 1; positions < problem.positions; ++positions)
        for (int chosen = problem.common; problem.chosen + 1 - chosen >= problem.common; ++chosen) {
            const WheelProblem left{positions, problem.row, chosen, problem.common};
            const WheelProblem right{problem.positions - positions, problem.row, problem.chosen + 1 - chosen,
                                     problem.common};
            if (std::optional<Rows> rows = joined(problem, left, right, store); rows && !rows->empty())
                found.push_back({std::move(*rows), {"join " + problemText(left) + " + " + problemText(right)}});
        }
}

std::optional<Rows> shortened(const WheelProblem& problem, const WheelStore& store) {
    WheelProblem longer = problem;
    ++longer.positions;
    const Wheel* wheel = store.find(longer);
    if (wheel == nullptr)
        return std::nullopt;
    Rows rows;
    for (const PositionSet row : wheel->rows)
        rows.push_back(filledUp(row & firstPositions(problem.positions), problem.row, problem.positions));
    return unique(rows);
}

std::optional<Rows> lengthened(const WheelProblem& problem, const WheelStore& store) {
    const auto [positions, row, chosen, common] = problem;
    const std::optional<Rows> without = partRows({positions - 1, row, chosen, common}, store);
    const std::optional<Rows> with = partRows({positions - 1, row - 1, chosen - 1, common - 1}, store);
    if (!without || !with)
        return std::nullopt;
    Rows rows = *without;
    for (const PositionSet shorter : *with)
        rows.push_back(shorter | PositionSet{1} << (positions - 1));
    for (PositionSet& set : rows)
        set = filledUp(set, row, positions);
    return unique(rows);
}

std::optional<Rows> easier(const WheelProblem& problem, const WheelStore& store) {
    const Wheel* best = nullptr;
    WheelProblem fewerChosen = problem;
    --fewerChosen.chosen;
    WheelProblem moreCommon = problem;
    ++moreCommon.common;
    for (const WheelProblem& harder : {fewerChosen, moreCommon})
        if (const Wheel* wheel = store.find(harder);
            wheel != nullptr && (best == nullptr || wheel->rows.size() < best->rows.size()))
            best = wheel;
    return best == nullptr ? std::nullopt : std::optional<Rows>(best->rows);
}

/// The steps that take nothing but the store.
struct Construction {
    const char* name;
    std::optional<Rows> (*rows)(const WheelProblem&, const WheelStore&);
};
constexpr Construction kConstructions[] = {{"shorten", shortened}, {"lengthen", lengthened}, {"easier", easier}};

/// `row` without `position` (from 0), those above it moved down by one.
PositionSet closedUp(PositionSet row, int position) {
    return (row & firstPositions(position)) | (row >> 1 & ~firstPositions(position));
}

Rows remadeDrop(const WheelProblem& problem, std::istringstream& words, const WheelStore& store) {
    std::vector<int> dropped;
    for (int position = 0; words >> position;)
        dropped.push_back(position - 1);
    std::sort(dropped.rbegin(), dropped.rend());
    WheelProblem longer = problem;
    longer.positions += static_cast<int>(dropped.size());
    const Wheel* wheel = store.find(longer);
    if (wheel == nullptr)
        throw std::runtime_error("no wheel to drop positions of");
    Rows rows;
    for (PositionSet row : wheel->rows) {
        if (std::any_of(dropped.begin(), dropped.end(), [row](int position) { return (row >> position & 1U) != 0; }))
            continue;
        for (const int position : dropped)
            row = closedUp(row, position);
        rows.push_back(row);
    }
    return rows;
}

Rows remadeJoin(const WheelProblem& problem, std::istringstream& words, const WheelStore& store) {
    WheelProblem left, right;
    std::string plus;
    words >> left.positions >> left.row >> left.chosen >> left.common >> plus;
    words >> right.positions >> right.row >> right.chosen >> right.common;
    std::optional<Rows> rows = joined(problem, left, right, store);
    if (!words || !rows)
        throw std::runtime_error("parts of a join are missing");
    return *rows;
}

Wheel remadeSearch(const ProblemSpace& space, std::istringstream& words, const Wheel* start) {
    std::string group, seedWord, workWord;
    Search what;
    words >> group >> seedWord >> what.seed >> workWord >> what.work;
    if (!words)
        throw std::runtime_error("a search without group, seed and work");
    what.group = groupFromText(group, space.problem.positions);
    std::optional<Wheel> wheel = search(space, what, start);
    if (!wheel)
        throw std::runtime_error("a search with too small a group");
    return std::move(*wheel);
}

} // namespace

std::optional<Wheel> search(const ProblemSpace& space, const Search& what, const Wheel* start) {
    const std::optional<OrbitProblem> orbits = OrbitProblem::make(space, what.group);
    if (!orbits)
        return std::nullopt;
    CoverSearch cover(orbits->cover(), what.seed);
    cover.startFrom(start == nullptr ? std::vector<std::uint32_t>{} : orbits->setsOf(start->rows));
    cover.run(what.work);
    Wheel wheel{orbits->rowsOf(cover.best()), start == nullptr ? std::vector<std::string>{} : start->made};
    wheel.made.push_back(std::string(start == nullptr ? "orbits " : "relax ") + toText(what.group) + " seed " +
                         std::to_string(what.seed) + " work " + std::to_string(cover.bestAt()));
    return wheel;
}

std::vector<Wheel> constructions(const WheelProblem& problem, const WheelStore& store) {
    std::vector<Wheel> found;
    appendJoins(problem, store, found);
    for (const Construction& construction : kConstructions)
        if (std::optional<Rows> rows = construction.rows(problem, store))
            found.push_back({std::move(*rows), {construction.name}});
    std::stable_sort(found.begin(), found.end(),
                     [](const Wheel& left, const Wheel& right) { return left.rows.size() < right.rows.size(); });
    return found;
}

Wheel remake(const WheelProblem& problem, const std::vector<std::string>& made, const WheelStore& store) {
    const ProblemSpace space(problem);
    Wheel wheel;
    for (const std::string& step : made) {
        std::istringstream words(step);
        std::string name;
        words >> name;
        if (name == "orbits" || name == "relax") {
            wheel = remadeSearch(space, words, name == "relax" ? &wheel : nullptr);
            continue;
        }
        wheel.made.push_back(step);
        if (name == "join" || name == "drop") {
            wheel.rows = name == "join" ? remadeJoin(problem, words, store) : remadeDrop(problem, words, store);
            continue;
        }
        const auto* construction = std::find_if(std::begin(kConstructions), std::end(kConstructions),
                                                [&](const Construction& known) { return name == known.name; });
        std::optional<Rows> rows =
            construction == std::end(kConstructions) ? std::nullopt : construction->rows(problem, store);
        if (!rows)
            throw std::runtime_error("cannot take the step: " + step);
        wheel.rows = std::move(*rows);
    }
    return wheel;
}

} // namespace wheels
