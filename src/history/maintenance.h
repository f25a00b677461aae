// The history kept by hand: typing the newest draw, deleting the last one, clearing all, correcting a number.
//
// Each change is one transaction on each database file that it touches, and rewrites the user's default text file
// behind it. The history in memory changes after the commits: when one of these calls throws, nothing has changed.
// What is typed is checked before (typed_draw.h). Before the change a default text file that is not the program's own
// is kept (default_text.h), and before draws are cleared the database too; where that fails nothing is changed: each
// call throws workspace::Failure then, beside what it says itself.
//
// Some of the steps are uneven, and meant to be: fig of dbFilnum keeps a deleted draw; clearing leaves YlqsB and all
// current omissions, so that draws typed afterwards continue them; shares rest on Glcount, which after a start counts
// the typed draws only and after a correction is six times too high. Deleting a draw or reading a text sets them
// right.
#pragma once

#include "history/history.h"
#include "workspace/workspace.h"

namespace history {

/// \throws sql::SqlError; std::range_error when 32,767 draws are held
void typeDraw(History& history, const workspace::Workspace& workspace, const Draw& draw);

/// Deletes the last records of fig, Ylqs and YlqsB; takes the current omissions from the records that are then the
/// last ones (they stay where there is none) and counts all hits again. With memory and table out of step, after a
/// text that was refused in the middle, the draws are loaded from the table. \throws sql::SqlError
void deleteLastDraw(History& history, const workspace::Workspace& workspace);

/// Keeps copies of the history database and the default text, then deletes all draws and Ylqs; hits and shares of the
/// numbers of the rule become 0. \throws sql::SqlError
void clearHistory(History& history, const workspace::Workspace& workspace);

/// Puts a number in place of another and derives the draw's parameters again, with the omissions of the record of
/// Ylqs before it. Later draws keep their parameters, and all draws their omissions. A new issue number touches no
/// hits and renumbers the later draws: value + 1, value + 2, ….
/// \param row   draw in the history, 1..Lsnum
/// \param slot  0 the issue, 1..6 a red, 7 the blue
/// \throws sql::SqlError
void correctNumber(History& history, const workspace::Workspace& workspace, int row, int slot, std::int32_t value);

} // namespace history
