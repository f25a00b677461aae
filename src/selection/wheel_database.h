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
#include "workspace/dialogs.h"

namespace selection {

/// Makes the table anew with these rows (over the drags for a banker table), as one step.
void writeWheel(sql::Database& database, const WheelTable& table, std::span<const PositionSet> rows);

/// Why a wheel was not taken: a line that is no row of this table, a row too many, or a subset that no row serves.
struct WheelRefusal {
    int line = 0;                        ///< from 1; 0 when all lines were rows
    std::string text;                    ///< the line
    std::vector<std::int32_t> uncovered; ///< positions of the first subset that is not covered, with the bankers
    bool tooMany = false;                ///< the line is one row more than the program reads
    std::string message(const WheelTable& table) const;
};

struct WheelText {
    std::vector<PositionSet> rows;       ///< over the drags, in the order of the lines
    std::optional<WheelRefusal> refusal; ///< the first line that is no row
};
WheelText readWheelText(const WheelTable& table, std::string_view text);

struct WheelProof {
    std::vector<PositionSet> rows;       ///< over the drags, in the order of the lines
    std::optional<WheelRefusal> refusal; ///< nothing when the wheel holds what its table claims
    bool cancelled = false;              ///< given up: nothing is known
    bool holds() const { return !refusal && !cancelled; }
};
/// Reads and proves. \param progress  may be null
WheelProof proveWheel(const WheelTable& table, std::string_view text, workspace::Progress* progress);

/// What the first row of a text looks like: how many words it has, and the largest position of all rows.
struct WheelMeasure {
    int cells = 0; ///< 0: there is no row
    int largest = 0;
};
WheelMeasure measureWheel(std::string_view text);

/// Reads, proves and writes. \return nothing when the wheel was taken
std::optional<WheelRefusal> importWheel(sql::Database& database, const WheelTable& table, std::string_view text);

} // namespace selection
