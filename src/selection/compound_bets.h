// Bets of a compound wheel (复7式): seven reds and every chosen blue in one cell, five cells a row of a grid.
//
//   wheel row 1 2 3 4 5 6 7 of the reds 3 9 11 14 20 28 31, blues 5 12 -> " 03 09 11 14 20 28 31 05 12"
//
// They are shown and go to no table, so they cannot be filtered. Cells are worked when they are asked for.
#pragma once

#include <cstdint>
#include <vector>

#include <QString>

#include "selection/pad.h"
#include "selection/wheels.h"

namespace selection {

inline constexpr int kYuanPerCompound = 14; // seven reds are seven bets of six

class CompoundBets {
  public:
    static constexpr int kAcross = 5; ///< bets in a grid row, behind its number

    /// Takes what it needs of the pad; its reds are sorted.
    /// \param blue  each bet goes with every blue, and costs so many times as much
    CompoundBets(std::vector<WheelRow> rows, const Pad& pad, bool blue);

    std::int64_t gridRows() const;
    /// \param row  0..gridRows()-1  \param column  0: the row's number, from 1, once five bets fill it; else a bet
    QString cell(std::int64_t row, int column) const;
    std::int64_t yuan() const;

  private:
    QString bet(const WheelRow& row) const;

    std::vector<WheelRow> m_rows;
    Pad::RedSlots m_reds;
    std::vector<std::int16_t> m_blues;
    bool m_blue;
};

} // namespace selection
