#include "wheels/improve.h"

#include <algorithm>
#include <cmath>

#include "selection/wheel_proof.h"

namespace wheels {

namespace {

constexpr std::size_t kRemembered = 6;
constexpr std::uint64_t kSeeds = 1'000'000'000; // seeds that read well in a file

std::size_t storedRows(const WheelStore& store, const WheelProblem& problem) {
    const Wheel* wheel = store.find(problem);
    return wheel == nullptr ? SIZE_MAX : wheel->rows.size();
}

} // namespace

Improver::Improver(WheelStore& store, std::uint64_t seed) : m_store(store), m_random(seed) {}

bool Improver::keep(const ProblemSpace& space, const Wheel& wheel) {
    if (wheel.rows.size() >= storedRows(m_store, space.problem) ||
        selection::firstUncovered(space.problem, wheel.rows))
        return false;
    return m_store.offer(space.problem, wheel);
}

void Improver::remember(const WheelProblem& problem, Promising promising) {
    std::vector<Promising>& best = m_memory[problem].best;
    const auto place = std::find_if(best.begin(), best.end(), [&](const Promising& other) {
        return promising.wheel.rows.size() <= other.wheel.rows.size();
    });
    best.insert(place, std::move(promising));
    if (best.size() > kRemembered)
        best.pop_back();
}

bool Improver::construct(const ProblemSpace& space) {
    bool better = false;
    for (const Wheel& wheel : constructions(space.problem, m_store))
        better = keep(space, wheel) || better;
    return better;
}

void Improver::tryGroup(const ProblemSpace& space, std::uint64_t work) {
    // A solution of some ten to a hundred orbits: with more the search is slow, with fewer there is no choice.
    const double rows = static_cast<double>(std::min<std::size_t>(storedRows(m_store, space.problem), 10000));
    const double orbits = 8.0 * std::exp(m_random.unit() * std::log(12.0));
    const Group group = randomGroup(space.problem.positions, rows / orbits, m_random);
    if (std::optional<Wheel> wheel = search(space, {group, m_random.next() % kSeeds, work}, nullptr)) {
        keep(space, *wheel);
        remember(space.problem, {group, std::move(*wheel)});
    }
}

void Improver::tryAgain(const ProblemSpace& space, std::uint64_t work) {
    const std::vector<Promising>& best = m_memory[space.problem].best;
    if (best.empty())
        return;
    const Group group = best[m_random.below(static_cast<std::uint32_t>(best.size()))].group;
    if (std::optional<Wheel> wheel = search(space, {group, m_random.next() % kSeeds, work}, nullptr)) {
        keep(space, *wheel);
        remember(space.problem, {group, std::move(*wheel)});
    }
}

void Improver::tryWeaker(const ProblemSpace& space, std::uint64_t work) {
    const std::vector<Promising>& best = m_memory[space.problem].best;
    const std::size_t choice = m_random.below(static_cast<std::uint32_t>(best.size() + 1));
    Promising from;
    if (choice < best.size())
        from = best[choice];
    else if (const Wheel* stored = m_store.find(space.problem))
        from.wheel = *stored;
    const Group group = weakened(from.group, m_random);
    if (std::optional<Wheel> wheel = search(space, {group, m_random.next() % kSeeds, work}, &from.wheel)) {
        keep(space, *wheel);
        if (wheel->rows.size() < from.wheel.rows.size())
            remember(space.problem, {group, std::move(*wheel)});
    }
}

bool Improver::visit(const WheelProblem& problem, std::uint64_t work) {
    const std::size_t before = storedRows(m_store, problem);
    const ProblemSpace space(problem);
    construct(space);
    if (storedRows(m_store, problem) == SIZE_MAX) // something to measure groups by
        if (std::optional<Wheel> wheel = search(space, {Group{}, 1, 0}, nullptr))
            keep(space, *wheel);
    constexpr int kTries = 16;
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const std::uint32_t kind = m_random.below(10);
        if (kind < 6 || m_memory[problem].best.empty())
            tryGroup(space, work / kTries / 2);
        else if (kind < 8)
            tryAgain(space, work / kTries * 2);
        else
            tryWeaker(space, work / kTries * 2);
    }
    return storedRows(m_store, problem) < before;
}

} // namespace wheels
