// The entries of the wheel menus: which table each one stands for, and what it is called once its rows are counted.
#pragma once

#include <QString>

#include "selection/wheel_database.h"

namespace mainwin {

struct WheelEntry {
    QString name;  ///< of the entry in the menu table, without its index
    int index;     ///< in its array; -1: none
    QString plain; ///< its caption in the menu table: "中5保4(&F)"
    selection::WheelFamily family;
    selection::Guarantee pair;
    int reds; ///< N that the entry is for; 0: as many as are chosen
};

/// Every entry of the extended, super, banker and compound wheels, in the order of the menus. The basic ones are one
/// array without a guarantee in their names.
std::vector<WheelEntry> wheelEntries();

/// Numbers on the pad that a caption tells.
struct WheelSizes {
    int reds;
    int bankers;
    int blues;
};

/// "9选 中5保4共计12注(&F)"; with blues the bets of all of them. Compound wheels tell their price.
/// \param rows  of the wheel
QString wheelCaption(const WheelEntry& entry, const WheelSizes& sizes, std::int64_t rows);

/// What a window says of its wheel: its guarantee, its size, and that of which no wheel can have less.
QString wheelNotice(const selection::WheelTable& table, std::int64_t rows);

/// Why a user's wheel is not taken.
QString wheelRefusalText(const selection::WheelTable& table, const selection::WheelRefusal& refusal);

} // namespace mainwin
