#include "wheels/improve.h"

#include <algorithm>
#include <cmath>

#include "selection/wheel_proof.h"

namespace wheels {

namespace {

constexpr std::size_t kRemembered = 6;
constexpr std::uint64_t kSeeds = 1'000'000'000; // seeds that read well in a file

// A solution of two to fifty orbits: with more the search is slow, with fewer there is no choice. Which size suits is
// as open as the group itself. A handful of rows may well have a symmetry that moves them all.
constexpr double kFewestOrbits = 1.5;
constexpr double kMostOrbits = 50;
constexpr double kSmallOrder = 6;
constexpr std::size_t kManyRows = 10'000; // the guess while there is no wheel at all

// Whether a group is any good shows at once: the groups of the published sizes of (18, 6 if 5: 4), (18, 6 if 4: 4)
// and (14, 6 if 5: 4) reach them within 1e7 visits of elements, the rest not in ten times as many.
constexpr int kShortTries = 150;
constexpr int kLongTries = 8; // small problems without a group come down in some 1e8 visits of elements

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
    std::vector<Promising>& best = m_memory[problem];
    const std::string name = toText(promising.group);
    for (auto known = best.begin(); known != best.end(); ++known)
        if (toText(known->group) == name) {
            if (known->wheel.rows.size() <= promising.wheel.rows.size())
                return;
            best.erase(known);
            break;
        }
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
    const double rows = static_cast<double>(std::min<std::size_t>(storedRows(m_store, space.problem), kManyRows));
    const double least = std::max(1.0, rows / kMostOrbits);
    const double most = std::max(kSmallOrder, rows / kFewestOrbits);
    const double order = least * std::exp(m_random.unit() * std::log(most / least));
    trySearch(space, randomGroup(space.problem.positions, order, m_random), work, nullptr);
}

void Improver::tryAgain(const ProblemSpace& space, std::uint64_t work) {
    const std::vector<Promising>& best = m_memory[space.problem];
    if (!best.empty())
        trySearch(space, m_random.oneOf(best).group, work, nullptr);
}

void Improver::tryWeaker(const ProblemSpace& space, std::uint64_t work) {
    const std::vector<Promising>& best = m_memory[space.problem];
    const std::size_t choice = m_random.below(static_cast<std::uint32_t>(best.size() + 1));
    Promising from;
    if (choice < best.size())
        from = best[choice];
    else if (const Wheel* stored = m_store.find(space.problem))
        from.wheel = *stored;
    trySearch(space, weakened(from.group, m_random), work, &from.wheel);
}

void Improver::trySearch(const ProblemSpace& space, const Group& group, std::uint64_t work, const Wheel* start) {
    std::optional<Wheel> wheel = search(space, {group, m_random.next() % kSeeds, work}, start);
    if (!wheel)
        return;
    keep(space, *wheel);
    if (start == nullptr || wheel->rows.size() < start->rows.size())
        remember(space.problem, {group, std::move(*wheel)});
}

bool Improver::visit(const WheelProblem& problem, std::uint64_t work) {
    const std::size_t before = storedRows(m_store, problem);
    const ProblemSpace space(problem);
    construct(space);
    if (storedRows(m_store, problem) == SIZE_MAX) // something to measure groups by
        trySearch(space, {}, 0, nullptr);
    if (m_visits[problem]++ % 2 == 0)
        for (int attempt = 0; attempt < kShortTries; ++attempt)
            tryGroup(space, work / kShortTries);
    else
        for (int attempt = 0; attempt < kLongTries; ++attempt)
            attempt % 2 == 0 ? tryAgain(space, work / kLongTries) : tryWeaker(space, work / kLongTries);
    return storedRows(m_store, problem) < before;
}

} // namespace wheels
