// The two files of combination tables: filnum.mdb for bets with a blue and for seven reds, filnumR.mdb for six reds
// alone.
//
// Both stay open side by side once a window has asked for them, so what goes to one never depends on which window was
// opened last: a draw is always written to the fig of filnum.mdb.
#pragma once

#include "sql/database.h"
#include "workspace/workspace.h"

namespace workspace {

enum class CombinationFile { WithBlue, SixReds };

/// The open file. filnumR.mdb is opened here when it is first asked for; where it is missing (a renamed user has
/// none) its template is copied first. \throws sql::SqlError for any other failure, Failure when it cannot be copied
sql::Database& combinationFile(sql::Engine& engine, Workspace& workspace, CombinationFile file);

/// Whether changes of combination tables are still to be written.
bool storePending(const Workspace& workspace);
/// Writes them, in both files. \throws sql::SqlError; what could not be written stays pending
void storeAll(Workspace& workspace);

} // namespace workspace
