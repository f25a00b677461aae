#include "wheels/cover.h"

#include <limits>

namespace wheels {

namespace {

constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
/// Weights above this are halved: old difficulties are forgotten, and a sum over a set's elements stays in 32 bits.
constexpr std::int32_t kHeaviest = 3000;
/// A longer solution is sampled, not scanned: the best of this many is nearly the best of all.
constexpr std::uint32_t kScan = 400;

} // namespace

void CoverInstance::transpose(std::uint32_t elements) {
    elementStart.assign(elements + 1, 0);
    for (const std::uint32_t element : setElements)
        ++elementStart[element + 1];
    for (std::uint32_t element = 0; element < elements; ++element)
        elementStart[element + 1] += elementStart[element];
    elementSets.resize(setElements.size());
    std::vector<std::uint32_t> next(elementStart.begin(), elementStart.end() - 1);
    for (std::uint32_t set = 0; set < sets(); ++set)
        for (const std::uint32_t element : elementsOf(set))
            elementSets[next[element]++] = set;
}

CoverSearch::CoverSearch(const CoverInstance& instance, std::uint64_t seed)
    : m_instance(instance), m_random(seed), m_weight(instance.elements(), 1), m_count(instance.elements(), 0),
      m_chosenXor(instance.elements(), 0), m_value(instance.sets()), m_chosen(instance.sets(), 0),
      m_mayReturn(instance.sets(), 1), m_changedAt(instance.sets(), 0), m_place(instance.sets(), 0),
      m_uncoveredPlace(instance.elements()) {
    for (std::uint32_t set = 0; set < instance.sets(); ++set)
        m_value[set] = static_cast<std::int32_t>(instance.elementsOf(set).size());
    for (std::uint32_t element = 0; element < instance.elements(); ++element) {
        m_uncoveredPlace[element] = element;
        m_uncovered.push_back(element);
    }
}

void CoverSearch::uncover(std::uint32_t element) {
    m_uncoveredPlace[element] = static_cast<std::uint32_t>(m_uncovered.size());
    m_uncovered.push_back(element);
}

void CoverSearch::cover(std::uint32_t element) {
    const std::uint32_t place = m_uncoveredPlace[element];
    const std::uint32_t last = m_uncovered.back();
    m_uncovered[place] = last;
    m_uncoveredPlace[last] = place;
    m_uncovered.pop_back();
}

void CoverSearch::add(std::uint32_t set) {
    const std::int32_t own = m_value[set]; // what it newly covers is now what only it covers
    m_chosen[set] = 1;
    m_changedAt[set] = m_turn;
    m_place[set] = static_cast<std::uint32_t>(m_solution.size());
    m_solution.push_back(set);
    m_cost += m_instance.cost[set];
    for (const std::uint32_t element : m_instance.elementsOf(set)) {
        if (m_count[element] == 0) {
            cover(element);
            const std::span<const std::uint32_t> others = m_instance.setsOf(element);
            m_work += others.size();
            for (const std::uint32_t other : others) {
                m_value[other] -= m_weight[element];
                m_mayReturn[other] = 1;
            }
        } else if (m_count[element] == 1) {
            m_value[m_chosenXor[element]] -= m_weight[element];
        }
        ++m_count[element];
        m_chosenXor[element] ^= set;
    }
    m_work += m_instance.elementsOf(set).size();
    m_value[set] = own;
}

void CoverSearch::remove(std::uint32_t set) {
    const std::int32_t own = m_value[set];
    m_chosen[set] = 0;
    m_changedAt[set] = m_turn;
    const std::uint32_t last = m_solution.back();
    m_solution[m_place[set]] = last;
    m_place[last] = m_place[set];
    m_solution.pop_back();
    m_cost -= m_instance.cost[set];
    for (const std::uint32_t element : m_instance.elementsOf(set)) {
        --m_count[element];
        m_chosenXor[element] ^= set;
        if (m_count[element] == 0) {
            uncover(element);
            const std::span<const std::uint32_t> others = m_instance.setsOf(element);
            m_work += others.size();
            for (const std::uint32_t other : others) {
                m_value[other] += m_weight[element];
                m_mayReturn[other] = 1;
            }
        } else if (m_count[element] == 1) {
            m_value[m_chosenXor[element]] += m_weight[element];
        }
    }
    m_work += m_instance.elementsOf(set).size();
    m_value[set] = own;
    m_mayReturn[set] = 0;
}

/// More value per cost, the longer unchanged on ties.
bool CoverSearch::worthMore(std::uint32_t left, std::uint32_t right) const {
    const std::int64_t leftWorth = std::int64_t{m_value[left]} * m_instance.cost[right];
    const std::int64_t rightWorth = std::int64_t{m_value[right]} * m_instance.cost[left];
    return leftWorth != rightWorth ? leftWorth > rightWorth : m_changedAt[left] < m_changedAt[right];
}

/// Less value per cost, the longer unchanged on ties.
bool CoverSearch::worthLess(std::uint32_t left, std::uint32_t right) const {
    const std::int64_t leftWorth = std::int64_t{m_value[left]} * m_instance.cost[right];
    const std::int64_t rightWorth = std::int64_t{m_value[right]} * m_instance.cost[left];
    return leftWorth != rightWorth ? leftWorth < rightWorth : m_changedAt[left] < m_changedAt[right];
}

void CoverSearch::complete() {
    while (!m_uncovered.empty()) {
        std::uint32_t best = 0;
        std::uint32_t ties = 1;
        for (std::uint32_t set = 1; set < m_instance.sets(); ++set) {
            const std::int64_t worth = std::int64_t{m_value[set]} * m_instance.cost[best];
            const std::int64_t bestWorth = std::int64_t{m_value[best]} * m_instance.cost[set];
            if (m_chosen[set] != 0 || (m_chosen[best] == 0 && worth < bestWorth))
                continue;
            ties = m_chosen[best] != 0 || worth > bestWorth ? 1 : ties + 1;
            if (m_random.below(ties) == 0)
                best = set;
        }
        add(best);
    }
}

void CoverSearch::startFrom(std::span<const std::uint32_t> sets) {
    for (const std::uint32_t set : sets)
        if (m_chosen[set] == 0)
            add(set);
    complete();
    m_work = 0;
    m_bestCost = std::numeric_limits<std::int64_t>::max();
    keepBest();
}

void CoverSearch::keepBest() {
    if (m_cost >= m_bestCost)
        return;
    m_best = m_solution;
    m_bestCost = m_cost;
    m_bestAt = m_work;
}

void CoverSearch::removeOne() {
    const auto size = static_cast<std::uint32_t>(m_solution.size());
    const bool sampled = size > kScan;
    const std::uint32_t first = sampled ? m_random.below(size) : 0;
    std::uint32_t choice = kNone;
    for (std::uint32_t step = 0; step < (sampled ? kScan : size); ++step) {
        const std::uint32_t set = m_solution[(first + step) % size];
        if (m_changedAt[set] + 1 >= m_turn && !m_uncovered.empty())
            continue; // just put in
        if (choice == kNone || worthLess(set, choice))
            choice = set;
    }
    m_work += (sampled ? kScan : size) / 4;
    remove(choice == kNone ? m_solution[m_random.below(size)] : choice);
}

std::uint32_t CoverSearch::bestFor(std::uint32_t element) {
    std::uint32_t choice = kNone;
    for (const std::uint32_t set : m_instance.setsOf(element)) {
        if (m_mayReturn[set] == 0 || m_cost + m_instance.cost[set] >= m_bestCost)
            continue;
        if (choice == kNone || worthMore(set, choice))
            choice = set;
    }
    m_work += m_instance.setsOf(element).size();
    return choice;
}

void CoverSearch::mend() {
    while (!m_uncovered.empty()) {
        const std::uint32_t element = m_random.oneOf(m_uncovered);
        const std::uint32_t set = bestFor(element);
        if (set == kNone)
            break;
        add(set);
    }
    raiseWeights();
}

void CoverSearch::raiseWeights() {
    for (const std::uint32_t element : m_uncovered) {
        m_heaviest = std::max(m_heaviest, ++m_weight[element]);
        for (const std::uint32_t set : m_instance.setsOf(element))
            ++m_value[set];
        m_work += m_instance.setsOf(element).size();
    }
    if (m_heaviest > kHeaviest)
        halveWeights();
}

void CoverSearch::halveWeights() {
    for (std::int32_t& weight : m_weight)
        weight = (weight + 1) / 2;
    m_heaviest = kHeaviest / 2;
    for (std::uint32_t set = 0; set < m_instance.sets(); ++set) {
        m_value[set] = 0;
        for (const std::uint32_t element : m_instance.elementsOf(set))
            if (m_count[element] == m_chosen[set])
                m_value[set] += m_weight[element];
    }
}

void CoverSearch::run(std::uint64_t work) {
    while (m_work < work) {
        ++m_turn;
        if (m_uncovered.empty()) {
            if (m_solution.empty())
                return;
            removeOne();
            if (m_uncovered.empty())
                keepBest();
            continue;
        }
        if (!m_solution.empty())
            removeOne();
        mend();
        if (m_uncovered.empty())
            keepBest();
    }
}

} // namespace wheels
