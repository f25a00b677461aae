// Everything that the controls of a filter window say, as one value.
//
// A window only reads and writes it; runs, saved settings, templates and replay work on it without a window. Rows are
// addressed by tick (Parameter::tick). Texts are kept as typed: a run takes their numbers (leading number, else 0) or
// the text as it stands.
#pragma once

#include "filter/catalogue.h"

namespace filter {

/// Text boxes, boxes and period of one parameter's row.
struct RowState {
    std::string low;
    std::string high;
    std::string count;
    std::string list;
    bool odd = false; ///< 奇 and 偶, positions only
    bool even = false;
    bool ticked = false; ///< takes part in the integrated run
    int period = -1;     ///< item of Combo1, -1: none chosen

    bool operator==(const RowState&) const = default;
};

/// How the integrated run joins its parameters: Option37(0) 逻辑和, Option37(1) 逻辑或.
enum class Logic { And, Or };

struct WindowState {
    static constexpr std::size_t kRows = 32; // Check1(0) to Check1(31)

    Mode mode = Mode::Range;                                                     ///< Option22, Option21, Option36
    bool keep = true;                                                            ///< Option1(0); else Option1(1)
    std::array<bool, 8> weights{true, true, true, true, true, true, true, true}; ///< ChkBt(1..7); entry 0 is unused
    std::array<RowState, kRows> rows{};                                          ///< by tick
    std::string intervalAbove; ///< Text66(3), left out of the interval
    std::string intervalTo;    ///< Text66(2), belongs to it
    std::string pickedNumbers; ///< TxtZdqj
    bool listsLocked = false; ///< after a template step with lists: they take no typing, 自定区间 keeps its caption
    Logic logic = Logic::And;
    bool tolerance = false;       ///< Check3: violations up to a count are allowed
    std::string toleranceCount;   ///< TxtRc(0)
    std::string tolerancePercent; ///< TxtRc(1)
    int allPeriods = -1;          ///< item of Combo1(20), the period of all rows together; -1: none chosen
    std::string percent;          ///< Combo2, shown with 均值差幅 and without effect

    RowState& row(const Parameter& parameter) { return rows[static_cast<std::size_t>(parameter.tick)]; }
    const RowState& row(const Parameter& parameter) const { return rows[static_cast<std::size_t>(parameter.tick)]; }

    bool operator==(const WindowState&) const = default;
};

/// What the name of a parameter says now.
std::string_view captionIn(const Parameter& parameter, const WindowState& state);

/// What the controls say when a window opens, before it has looked at the history.
WindowState defaultState(std::span<const Parameter> catalogue);

/// What a run takes of it.
/// \param Baoliu  keep or remove as the run has it: integrated runs may leave it other than state.keep
RunSettings runSettings(const WindowState& state, std::int16_t Baoliu);
RowInput rowInput(const WindowState& state, const Parameter& parameter);

} // namespace filter
