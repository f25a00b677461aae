// History filters (历史同4 to 历史同7): which bets share many numbers with a draw of the history.
//
// Each bet in play gets, over the last n draws, the most numbers that it shares with one of them (canshu) and that
// draw's issue (JSqihao): the first of equals, counted from the latest draw back. SKnum is left as the count of the
// draw searched last, 0 for bets out of play. Bets with k numbers or more go out, with their reason.
//
// The statements of the search are four a draw. matchHistory() takes one pass over the table in their place and
// leaves every column as they do; matchHistoryByStatements() runs them, and is what the pass is tested against. What
// the pass is not made for is left to the statements: a table that lacks one of the columns, a draw that no rule
// allows, and row 0 of the history, which is asked for when n is above the count of draws. Rows below 0 do not exist:
// of the four statements only the one that sets SKnum to 0 is left then.
//
// Cost of the pass: a set of reds that stands in consecutive rows is worked out once (draw_bits.h).
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "filter/computation.h"

namespace filter {

struct HistoryFilter {
    std::string_view option;        ///< name of the option button
    std::string_view caption;       ///< its text
    std::string_view reasonCaption; ///< what its reasons say
    int equal;                      ///< k: a bet with so many numbers of one draw goes
};

/// 历史同4 reports itself as 历史同6: deliberate.
inline constexpr HistoryFilter kHistoryFilters[] = {
    {"Optio37", "历史同4过滤", "历史同6过滤", 4},
    {"Option26", "历史同5过滤", "历史同5过滤", 5},
    {"Option28", "历史同6过滤", "历史同6过滤", 6},
    {"Option27", "历史同7过滤", "历史同7过滤", 7},
};

/// Called with 0..64 as the pass goes on.
using MatchProgress = std::function<void(int step)>;

/// \param draws  n, how many draws are searched from the latest back; 0 searches none. Its number stands in the
/// reasons Snapshot, search and filter; what the database refuses is passed over. Table Lishi is made anew and stays
/// empty.
void matchHistory(const Workbench& bench, const HistoryFilter& filter, std::int64_t draws,
                  const MatchProgress& progress = {});

/// The same by the four statements a draw: very slow on a large table.
void matchHistoryByStatements(const Workbench& bench, const HistoryFilter& filter, std::int64_t draws);

} // namespace filter
