// Parameter values the slow and plain way, from their definitions: what the statements and kernels are tested
// against.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace plain {

/// Reds at 1..6, the blue at 7, or seven reds; entry 0 is unused.
using Bet = std::array<int, 8>;

struct Rule {
    int Bitnum = 33;
    std::array<bool, 8> ticked{true, true, true, true, true, true, true, true};
    std::array<int, 7> last{};      ///< reds of the last draw, 1..6
    std::array<int, 39> omission{}; ///< by red
    int above = 0;                  ///< interval of 自定区间, this end out
    int to = 9;                     ///< this end in
};

/// What canshu of `bet` must be after a run of the parameter (position parameters: the compared number).
/// 最大差值 has a value of its own only with three ticks or more, 首尾差值 with one or more.
int value(std::string_view option, const Bet& bet, const Rule& rule);
/// The same for the windows of six reds alone, whose options have names of their own, and for those of seven reds,
/// which know no position boxes.
int sixRedValue(std::string_view option, const Bet& bet, const Rule& rule);
int sevenRedValue(std::string_view option, const Bet& bet, const Rule& rule);
/// The option of the windows with six reds and a blue that is the same parameter; empty: they have none.
std::string_view besideABlue(std::string_view sixRedOption);

} // namespace plain
