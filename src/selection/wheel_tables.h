// Wheels (旋转矩阵): which tables the five wheel databases hold, under which names, and what each guarantees.
//
// A wheel is a list of rows of positions. A WheelProblem says what the rows must do; a WheelTable is a problem under
// the name by which a menu opens it. Banker tables come down to a problem over the drags alone: every row holds all D
// bankers, and so does every subset that counts, so D falls away on both sides.
//
//   D bankers, N drags, 中x保y   ->   N positions, rows of 6 - D, of any x - D drags some row holds y - D
//
// The lists are the same for the generator, the proof, the build of the databases and the menus.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace selection {

/// Rows of `row` out of `positions` positions, so that each `chosen` of the positions have at least `common` together
/// in some row. positions 1..32, row 1..7 and at most positions, common 0..min(row, chosen).
struct WheelProblem {
    int positions = 0;
    int row = 0;
    int chosen = 0;
    int common = 0;
    auto operator<=>(const WheelProblem&) const = default;
};

/// A row or a subset of positions: bit 0 is position 1.
using PositionSet = std::uint32_t;

inline constexpr int kMostPositions = 32;
/// Rows of one wheel that the program reads: a longer one would lose its guarantee.
inline constexpr std::size_t kMostWheelRows = 128160;

/// Positions 1..count. \param count  0..32
constexpr PositionSet firstPositions(int count) {
    return count == 0 ? 0 : ~PositionSet{0} >> (kMostPositions - count);
}

enum class WheelFamily { Basic, Extended, Super, Banker, Seven };

struct WheelFamilyInfo {
    WheelFamily family;
    std::string_view file;  ///< database beside the program
    std::string_view title; ///< what its menu is called
    int cells;              ///< columns fig1..
};

/// In the order of the enumeration.
std::span<const WheelFamilyInfo> wheelFamilies();
const WheelFamilyInfo& wheelFamily(WheelFamily family);

struct WheelTable {
    WheelFamily family;
    std::string name;
    WheelProblem problem; ///< over the drags for a banker table
    int bankers = 0;      ///< D
    bool operator==(const WheelTable&) const = default;
};

/// Tables of more rows than this are left out of the super family: nobody buys them, and its menu greys the entry.
inline constexpr std::size_t kMostSuperRows = 5000;

/// Every table that the menus can ask for, family after family, by rising N (and D) and then in the order of the
/// menu.
std::vector<WheelTable> wheelTables();

/// The table of a family that bears a name, also one beyond the list (more positions, up to 32); nothing when the
/// name is none of this family's or its guarantee says nothing.
std::optional<WheelTable> wheelTableNamed(WheelFamily family, std::string_view name);

/// 中x保y.
struct Guarantee {
    int chosen;
    int common;
    bool operator==(const Guarantee&) const = default;
};

/// The guarantees that a family's menu offers, in the order of the menu.
std::span<const Guarantee> guaranteesOf(WheelFamily family);

/// The name of a table for n drags and d bankers. The basic family has one guarantee and names it not.
std::string wheelTableName(WheelFamily family, int n, int d, const Guarantee& pair);

/// The table that a menu opens for n drags, d bankers and a guarantee; nothing where no entry of the family asks for
/// it. Basic: n 9..16, extended: n 8..18, the others up to 32 positions.
std::optional<WheelTable> wheelTableOfMenu(WheelFamily family, int n, int d, const Guarantee& pair);

/// The positions of a row of `table` as the database holds them: ascending, bankers (N+1..N+D) at the end.
std::vector<std::int32_t> wheelCells(const WheelTable& table, PositionSet row);

/// Positions of a set, ascending from 1.
std::vector<std::int32_t> positionsOf(PositionSet set);

/// For messages: "(N=9, rows of 6, 5 chosen, 4 in one row)".
std::string describe(const WheelProblem& problem);

} // namespace selection
