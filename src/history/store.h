// The history in the user's databases: loading it at the start, storing one draw, a batch, or a whole new history.
//
// dbUser holds the truth: fig with all derived columns, Ylqs, YlqsB, Gailv, GailvB. dbFilnum holds a fig of the bare
// numbers beside it, to which draws are only ever added. Every store is one transaction on each of the two files;
// dbFilnum commits first, so that a power cut between the two leaves in it rows too many, which nobody minds, and the
// truth whole. The history in memory changes after both commits: when one of these calls throws, nothing has changed.
#pragma once

#include <span>

#include "history/history.h"
#include "workspace/rule.h"
#include "workspace/workspace.h"

namespace history {

/// Fills an empty history from the tables of dbUser: draws and derived values in the order of the records, nothing
/// computed again; omissions from the last records of Ylqs and YlqsB; hits and shares from Gailv and GailvB for the
/// numbers of the rule. Glcount starts at 0: it is not stored.
/// Numbers that no draw can have are taken as they are, as far as they fit; a record missing in Gailv counts 0.
/// \throws sql::SqlError; std::range_error for more than 32,767 records
void loadHistory(History& history, const workspace::Workspace& workspace);

/// The same for a history that is in use: Glcount stays, and so do omissions whose table is empty, as a cleared
/// history leaves them. \throws as loadHistory; nothing has changed then
void reloadHistory(History& history, const workspace::Workspace& workspace);

/// The draws of fig of dbUser in place of those in memory; no statistics. \throws as loadHistory
void loadDraws(History& history, const workspace::Workspace& workspace);

/// Current omissions from the last records of Ylqs and YlqsB; as they were where a table is empty.
void readOmissions(History& history, const workspace::Workspace& workspace);

/// The rule within what the arrays of numbers hold, whatever the settings say.
workspace::Rule ruleOf(const workspace::Workspace& workspace);

/// One typed draw behind the last one: the shares then rest on Glcount, which counts only the draws of this run.
/// An issue number of 0 becomes the draw's row number. \throws sql::SqlError, std::range_error beyond 32,767 draws
void storeDraw(History& history, const workspace::Workspace& workspace, const Draw& draw);

/// Draws behind the last one, as a batch: Glcount starts from the draws held, so that it ends at the true total.
/// \throws as storeDraw
void storeBatch(History& history, const workspace::Workspace& workspace, std::span<const Draw> draws);

/// A whole new history: fig of dbUser, Ylqs and YlqsB are emptied, every statistic starts at 0, then the draws are
/// stored as a batch. fig of dbFilnum is added to, not emptied. \throws as storeDraw
void replaceHistory(History& history, const workspace::Workspace& workspace, std::span<const Draw> draws);

} // namespace history
