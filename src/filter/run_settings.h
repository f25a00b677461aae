// What the controls of a filter window say at the moment of a press: plain values, so that a run needs no window.
//
// Texts are kept as typed; a run takes their numbers (leading number, else 0) or the text as it stands.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace filter {

/// What a filter compares with: the range boxes (Mean differs only in how these are filled in), or the value list.
enum class Mode { Range, Mean, List };

/// Values of Baoliu: whether a range or list says what to keep or what to remove. One flag for all filter windows.
inline constexpr std::int16_t kKeep = -1;
inline constexpr std::int16_t kRemove = 0;

/// The boxes of one parameter's row.
struct RowInput {
    std::string low;
    std::string high;
    std::string list;
    bool odd = false; ///< 奇 and 偶, position parameters only
    bool even = false;
};

struct RunSettings {
    Mode mode = Mode::Range;
    std::int16_t Baoliu = kKeep;
    std::array<bool, 8> ticked{true, true, true, true, true, true, true, true}; ///< ChkBt(1..7); entry 0 is unused
    std::string intervalAbove; ///< Text66(3), the end that the interval leaves out
    std::string intervalTo;    ///< Text66(2), the end that belongs to it
    std::string pickedNumbers; ///< TxtZdqj
};

} // namespace filter
