#include "expected.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <vector>

#include "rule_table.h"

namespace bench {
namespace {

/// Calls visit(mask of numbers) for every choice of `count` of the numbers from place `from` on, added to `mask`.
template <class Visit>
void forEachChoice(std::span<const int> numbers, int count, std::uint64_t mask, const Visit& visit) {
    if (count == 0)
        return visit(mask);
    for (std::size_t place = 0; place < numbers.size(); ++place)
        forEachChoice(numbers.subspan(place + 1), count - 1, mask | std::uint64_t{1} << numbers[place], visit);
}

/// Place of a set among all, from 0: sets of smaller highest reds come first.
std::size_t placeOf(std::uint64_t reds) {
    static const auto below = [] {
        std::array<std::array<std::int64_t, 7>, 64> table{};
        for (int red = 1; red <= kReds; ++red)
            for (int position = 1; position <= 6; ++position)
                table[static_cast<std::size_t>(red)][static_cast<std::size_t>(position)] = choose(red - 1, position);
        return table;
    }();
    std::int64_t place = 0;
    for (std::size_t position = 1; reds != 0; reds &= reds - 1, ++position)
        place += below[static_cast<std::size_t>(std::countr_zero(reds))][position];
    return static_cast<std::size_t>(place);
}

/// Calls visit(place) for every set that shares exactly `shared` reds with the draw.
template <class Visit> void forEachSetNear(const history::Draw& draw, int shared, const Visit& visit) {
    const std::vector<int> drawn(draw.begin() + 1, draw.begin() + 7);
    std::vector<int> others;
    for (int red = 1; red <= kReds; ++red)
        if (std::find(drawn.begin(), drawn.end(), red) == drawn.end())
            others.push_back(red);
    forEachChoice(std::span(drawn), shared, 0, [&](std::uint64_t kept) {
        forEachChoice(std::span(others), 6 - shared, kept, [&](std::uint64_t reds) { visit(placeOf(reds)); });
    });
}

} // namespace

std::int64_t choose(int n, int k) {
    std::int64_t count = 1;
    for (int factor = 1; factor <= k; ++factor)
        count = count * (n - k + factor) / factor;
    return n < k ? 0 : count;
}

void forEachSet(const std::function<void(const Reds&)>& visit) {
    std::array<int, kReds> all{};
    std::iota(all.begin(), all.end(), 1);
    forEachChoice(std::span<const int>(all), 6, 0, [&](std::uint64_t mask) {
        Reds reds{};
        for (std::size_t place = 0; mask != 0; mask &= mask - 1)
            reds[place++] = std::countr_zero(mask);
        visit(reds);
    });
}

std::int64_t betsSharingAtMost(int most, std::span<const history::Draw> draws, int blues) {
    std::vector<std::uint32_t> bluesOut(static_cast<std::size_t>(kSets)); // by set; bit b stands for blue b
    const auto allBlues = static_cast<std::uint32_t>((1ULL << (blues + 1)) - 2);
    for (const history::Draw& draw : draws) {
        const std::uint32_t itsBlue = (1U << draw[7]) & allBlues;
        forEachSetNear(draw, most, [&](std::size_t set) { bluesOut[set] |= itsBlue; });
        for (int shared = most + 1; shared <= 6; ++shared)
            forEachSetNear(draw, shared, [&](std::size_t set) { bluesOut[set] |= allBlues; });
    }
    std::int64_t bets = kSets * blues;
    for (const std::uint32_t gone : bluesOut)
        bets -= std::popcount(gone);
    return bets;
}

} // namespace bench
