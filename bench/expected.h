// What the table must hold after an operation, counted in ways of our own.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>

#include "history/draw_record.h"

namespace bench {

std::int64_t choose(int n, int k);

using Reds = std::array<int, 6>;
void forEachSet(const std::function<void(const Reds&)>& visit);

/// Bets of all sets with blues 1..blues that share at most `most` numbers with every one of these draws. Every draw
/// marks the sets that it comes near to; no set is compared with a draw.
std::int64_t betsSharingAtMost(int most, std::span<const history::Draw> draws, int blues);

} // namespace bench
