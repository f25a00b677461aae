// What every catalogue of parameters keeps to, checked while it compiles: static_assert(isSound(kCatalogue)).
//
// Saved settings and templates refer to ticks, boxes and periods: no two parameters share one.
#pragma once

#include <array>
#include <utility>

#include "filter/catalogue.h"

namespace filter {

/// Combo1(20) belongs to all rows together, so it is no row's.
inline constexpr int kAllPeriods = 20;
inline constexpr int kTicks = 32;

namespace detail {

constexpr bool shareABox(const Boxes& left, const Boxes& right) {
    if (left.name != right.name)
        return false;
    for (const int mine : {left.low, left.high, left.count, left.list, left.above, left.to})
        for (const int other : {right.low, right.high, right.count, right.list, right.above, right.to})
            if (mine >= 0 && mine == other)
                return true;
    return false;
}

constexpr bool areApart(const Parameter& left, const Parameter& right) {
    const bool samePeriod = left.period >= 0 && left.period == right.period;
    const bool sameParity = left.oddBox >= 0 && left.oddBox == right.oddBox;
    return left.option != right.option && left.caption != right.caption && left.tick != right.tick && !samePeriod &&
           !sameParity && !shareABox(left.boxes, right.boxes);
}

// Whether there is a function is left to a test: GCC's sanitizers take no function's address for a constant.
constexpr bool isWhole(const Parameter& p) {
    const bool position = p.isPosition();
    return (p.statement.empty() || !position) && position == !p.column.empty() &&
           position == (p.place >= 1 && p.place <= 7) && p.hasParity() == !p.parityReason.empty() &&
           position == p.gridTitle.empty() && p.isInterval() == (p.boxes.above >= 0) &&
           p.hasList() == (p.boxes.count >= 0) && (p.exportTitle.empty() || !position);
}

// What a kind of window has, all its rows have: lists (but for the interval's) and parity with reasons, position
// boxes with six reds.
constexpr bool isOfItsWindow(const Parameter& p) {
    const bool six = p.reds == history::kRedsDrawn;
    return p.reasons == six && p.hasParity() == (six && p.isPosition()) && p.weighed == (six && !p.isPosition()) &&
           p.hasList() == (six && !p.isInterval());
}

constexpr bool isInRange(const Parameter& p) {
    return p.tick >= 0 && p.tick < kTicks && p.period >= -1 && p.period < kTicks && p.period != kAllPeriods &&
           p.highOfSearch >= -1 && p.highOfSearch < kTicks && p.defaults.low <= p.defaults.high &&
           !p.option.empty() && !p.caption.empty() && !p.counts.empty();
}

} // namespace detail

/// Each row whole, no two that share a control, group after group.
template <std::size_t Count> consteval bool isSound(const std::array<Parameter, Count>& catalogue) {
    for (std::size_t row = 0; row < Count; ++row) {
        if (!detail::isWhole(catalogue[row]) || !detail::isInRange(catalogue[row]) ||
            !detail::isOfItsWindow(catalogue[row]) || catalogue[row].reds != catalogue[0].reds)
            return false;
        if (row > 0 && catalogue[row].group < catalogue[row - 1].group)
            return false;
        for (std::size_t other = row + 1; other < Count; ++other)
            if (!detail::areApart(catalogue[row], catalogue[other]))
                return false;
    }
    return true;
}

} // namespace filter
