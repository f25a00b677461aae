// Bets from a text: one bet a line, of two-digit numbers, read into a combination table.
//
// A number is exactly two digits followed by what is no digit, the line's end too: of a run of digits the last two
// count, and a lone digit counts for nothing. Reading starts at a place of the line that the user tells, past any
// counter in front; the first K numbers of a line are its bet, in the order in which they stand, without any check of
// their range, order or repetition. A line with fewer is passed over.
//
// The text comes in pieces, of any bytes and any length of line: nothing but the numbers of one line is held.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include <QString>

#include "sql/database.h"
#include "workspace/dialogs.h"

namespace selection {

/// A line that is no bet. Empty lines are none either, but nobody misses them.
struct PassedLine {
    std::int64_t line; ///< from 1, counting empty lines
    int numbers;       ///< numbers found in it, fewer than a bet has
};

class BetTextReader {
  public:
    /// The numbers of a bet.
    using TakeBet = std::function<void(std::span<const std::int32_t> numbers)>;

    static constexpr std::size_t kMostListed = 1000; ///< passed lines that are listed

    /// \param numbers  of a bet: 6 or 7  \param start  place in the line where reading starts, from 1
    BetTextReader(int numbers, int start, TakeBet take);

    void take(QStringView piece);
    /// The text has ended.
    void finish();

    std::int64_t bets() const { return m_bets; }
    std::int64_t passed() const { return m_passed; }
    /// The first of the lines that were passed over.
    const std::vector<PassedLine>& passedLines() const { return m_passedLines; }

  private:
    void read(char16_t character);
    void endNumber();
    void endLine();

    std::size_t m_wanted;
    std::int64_t m_start;
    TakeBet m_take;
    std::int64_t m_line = 1;
    std::int64_t m_place = 0;  ///< characters of the line so far
    std::int64_t m_digits = 0; ///< digits right before, from the start on
    int m_lastTwo = 0;         ///< their last two as a number
    bool m_blank = true;       ///< the line holds nothing but blanks so far
    bool m_afterReturn = false;
    std::vector<std::int32_t> m_numbers;
    std::int64_t m_bets = 0;
    std::int64_t m_passed = 0;
    std::vector<PassedLine> m_passedLines;
};

struct BetTextResult {
    std::int64_t bets = 0;
    std::int64_t passed = 0;
    std::vector<PassedLine> passedLines{}; ///< the first BetTextReader::kMostListed of them
    bool cancelled = false;                ///< given up: the table is what it was before
};

struct BetTextTarget {
    std::string_view table; ///< zuheRead or zuheReadR
    int numbers;            ///< of a bet: 7 or 6
};

/// Reads a file into a table, which is made anew at the first bet: a text without one leaves the former table. Bets
/// are numbered from 1. The former table comes back when it is given up, or when the file cannot be read.
/// \param start  as in BetTextReader  \param progress  may be null
/// \throws workspace::Failure for a file that cannot be read; sql::SqlError when the table cannot be made
BetTextResult readBets(sql::Database& database, const BetTextTarget& target, const std::filesystem::path& file,
                       int start, workspace::Progress* progress);

} // namespace selection
