// History filters (历史同4 to 历史同7): which bets share many numbers with a draw of the history.
//
// Each bet in play gets, over the last n draws, the most numbers that it shares with one of them (canshu) and that
// draw's issue (JSqihao): the first of equals, counted from the latest draw back. SKnum is left as the count of the
// draw searched last, 0 for bets out of play. Bets with k numbers or more go out, with their reason. The blue counts
// as one more number; a bet of seven reds is matched with all of them, against the six reds of a draw.
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

#include "filter/computation.h"
#include "filter/super_filters.h"
#include "workspace/dialogs.h"

namespace filter {

/// Snapshot, search and filter; what the database refuses is passed over. Table Lishi is made anew and stays empty.
/// \param filter    of the kind History
/// \param draws     n, how many draws are searched from the latest back; 0 searches none. The reasons say it
/// \param progress  told 64 times in a pass, and after each draw of the statements; may be null
/// \return false when it was given up: no bet has gone out, but the columns of the search are somewhere on the way
bool matchHistory(const Workbench& bench, const SuperFilter& filter, std::int64_t draws,
                  workspace::Progress* progress = nullptr);

/// The same by the four statements a draw: very slow on a large table.
void matchHistoryByStatements(const Workbench& bench, const SuperFilter& filter, std::int64_t draws);

} // namespace filter
