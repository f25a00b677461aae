// Wheels on their way into a wheel database, and a user's own wheels on their way through the proof.
//
// A wheel table has the integer columns fig1 to fig6 (fig7 in the seven-red file) and nothing else; its rows are read
// in the order in which they were written. A user's wheel is plain text, one row a line: the six (seven) positions,
// parted by blanks, commas or tabs, in any order. Empty lines and lines that begin with '#' are passed over. A row of
// a banker wheel names its bankers too, positions N+1..N+D. Nothing is written before the guarantee is proven.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "selection/wheel_tables.h"
#include "sql/database.h"

namespace selection {

/// Makes the table anew with these rows (over the drags for a banker table), as one step.
void writeWheel(sql::Database& database, const WheelTable& table, std::span<const PositionSet> rows);

/// Why a wheel was not taken: either a line that is no row of this table, or a subset that no row serves.
struct WheelRefusal {
    int line = 0;                        ///< from 1; 0 when all lines were rows
    std::string text;                    ///< the line
    std::vector<std::int32_t> uncovered; ///< positions of the first subset that is not covered, with the bankers
    std::string message(const WheelTable& table) const;
};

struct WheelText {
    std::vector<PositionSet> rows;       ///< over the drags, in the order of the lines
    std::optional<WheelRefusal> refusal; ///< the first line that is no row
};
WheelText readWheelText(const WheelTable& table, std::string_view text);

/// Reads, proves and writes. \return nothing when the wheel was taken
std::optional<WheelRefusal> importWheel(sql::Database& database, const WheelTable& table, std::string_view text);

} // namespace selection
