// The catalogue of parameters of the 6+1 filter windows: one row a parameter, in the order in which the window shows
// them.
//
// A parameter is a number computed for each bet into column canshu. How it is computed stands in its row: a statement
// with {names} filled in at each run (fillTemplate), or a function where statements depend on the ticks
// (computation). Position parameters compare a column directly; they have the column in place of a statement.
//
// To add a parameter, add a row: the window, the runs and the tests walk this table. Ticks, boxes and periods never
// change: saved settings refer to them.
#pragma once

#include <span>
#include <string_view>

#include "filter/computation.h"

namespace filter {

/// A family of text boxes with the places in it; count and list are -1 where a row has none.
struct Boxes {
    std::string_view name;
    int low = 0;
    int high = 1;
    int count = 2;
    int list = 3;
};

/// What the boxes hold when the window opens; the list is empty.
struct Defaults {
    int low = 0;
    int high = 9;
    int count = 3;
};

struct Parameter {
    std::string_view option;  ///< name of the option button
    std::string_view caption; ///< its text, also in reasons
    std::string_view history; ///< column of the draw history with the same parameter; empty: none
    int tick;                 ///< index in Check1
    int period;               ///< index in Combo1; -1: none
    Boxes boxes;
    Defaults defaults;
    std::string_view gridTitle; ///< heading of the value's column in the grid; empty: no such column
    std::string_view statement; ///< fills canshu; empty: see compute, column
    Compute compute = nullptr;
    std::string_view column{};       ///< compared in place of canshu (position parameters)
    int oddBox = -1;                 ///< index of 奇 in Check2; 偶 is the next
    std::string_view parityReason{}; ///< reason text of the parity step
    bool wholeBet = false;           ///< the blue number counts too; its reasons say 全体球大小
};

// Two boxes of a family hold the red parameter's values, two those of the red-and-blue one.
constexpr Boxes redHalf(std::string_view name) {
    return {name, 0, 1, 4, 5};
}
constexpr Boxes wholeHalf(std::string_view name) {
    return {name, 2, 3, 6, 7};
}

/// The parameters of the windows with six reds and a blue.
std::span<const Parameter> sixAndBlueCatalogue();

/// The parameter with this option button. \return nullptr when there is none
const Parameter* findParameter(std::span<const Parameter> catalogue, std::string_view option);

} // namespace filter
