// The catalogues of parameters: one row a parameter, group after group, in the order in which a window shows them.
//
// A parameter is a number computed for each bet into column canshu. How it is computed stands in its row: a statement
// with {names} filled in at each run (fillTemplate), or a function where statements depend on the ticks
// (computation). Positions compare a column directly; they have the column in place of a statement.
//
// What a run or a window does differently from parameter to parameter follows from its kind and its fields, never
// from its name. To add a parameter, add a row to its catalogue (catalogue_*.cpp): the window, the runs and the tests
// walk the table. Ticks, boxes and periods never change: saved settings refer to them. Each kind of window has a
// catalogue of its own, in which one option name may stand for another parameter than elsewhere.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "filter/computation.h"

namespace filter {

/// What is compared, and so which steps a run has.
enum class Kind {
    Value,       ///< canshu
    RedPosition, ///< the number at a red's place, with parity; lists are matched loosely
    Blue,        ///< the blue number, with parity
    Interval     ///< canshu, the count of reds in an interval of the user's own (or, with lists, in his numbers)
};

/// The groups of a window's table, in its order.
enum class Group { Sums, Counts, Places, Gaps, Omissions, WithBlue };
inline constexpr std::array kGroups{Group::Sums, Group::Counts,    Group::Places,
                                    Group::Gaps, Group::Omissions, Group::WithBlue};
std::string_view groupCaption(Group group);

/// A family of text boxes with the places in it; -1: the row has no such box.
struct Boxes {
    std::string_view name;
    int low = 0;
    int high = 1;
    int count = 2;
    int list = 3;
    int above = -1; ///< ends of the interval: the one that it leaves out,
    int to = -1;    ///< and the one that belongs to it
};

/// What the boxes hold when the window opens; the list is empty.
struct Defaults {
    int low = 0;
    int high = 9;
    int count = 3;
};

struct Parameter {
    Kind kind = Kind::Value;
    Group group = Group::Sums;
    std::string_view option;  ///< name of the option button
    std::string_view caption; ///< its text, also in reasons
    std::string_view history; ///< column of the draw history with the same parameter; empty: none
    int tick;                 ///< index in Check1
    int period;               ///< index in Combo1; -1: none
    Boxes boxes;
    Defaults defaults;
    std::string_view gridTitle; ///< heading of the value's column in the grid; empty: no such column
    std::string_view statement; ///< fills canshu; empty: see compute, column
    std::string_view counts;    ///< what is counted, one sentence for tool tips
    Compute compute = nullptr;
    std::string_view column{};       ///< compared in place of canshu (positions)
    int place = 0;                   ///< 1..7: the place of that number in a bet and in a draw; 0: none
    int oddBox = -1;                 ///< index of 奇 in Check2; 偶 is the next
    std::string_view parityReason{}; ///< reason text of the parity step
    bool wholeBet = false;           ///< the blue number counts too; its reasons say 全体球大小
    bool weighed = true;             ///< honours the position boxes (彩色参数); else every position counts
    int reds = history::kRedsDrawn;  ///< reds of a bet, all of which it looks at: 6 or 7
    bool reasons = true;             ///< filters leave a reason, and violations can be counted
    std::string_view exportTitle{};  ///< heading in an export of many parameters where it is not gridTitle
    int highOfSearch = -1; ///< tick of the row that gets the high bound of a search for this row alone; -1: this
    bool listFromAllPeriods = true; ///< a search for all rows together makes its list anew

    constexpr bool isPosition() const { return kind == Kind::RedPosition || kind == Kind::Blue; }
    constexpr bool isInterval() const { return kind == Kind::Interval; }
    constexpr bool hasParity() const { return oddBox >= 0; }
    constexpr bool hasList() const { return boxes.list >= 0; }
    /// Heading of its column in an export of many parameters; empty: it is not exported.
    constexpr std::string_view exportHeading() const { return exportTitle.empty() ? gridTitle : exportTitle; }
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
/// The parameters of the windows with six reds alone.
std::span<const Parameter> sixRedCatalogue();
/// The parameters of the windows with seven reds: two ways to fill in a range, no lists, no parity, no position
/// boxes.
std::span<const Parameter> sevenRedCatalogue();

/// The parameter with this option button. \return nullptr when there is none
const Parameter* findParameter(std::span<const Parameter> catalogue, std::string_view option);
/// The parameter with this tick. \return nullptr when there is none
const Parameter* parameterAt(std::span<const Parameter> catalogue, int tick);

} // namespace filter
