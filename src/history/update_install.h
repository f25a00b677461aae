// Putting a downloaded history in the place of the user's: all of it or nothing, whenever the process is killed.
//
// What is put in place is never the downloaded file, but a new one with its checked records; it is first written
// beside the user's database, as "{user}.mdb.update". From the moment that it stands whole under its name the update
// is decided. Then fig of dbFilnum is made anew, the default text file is written, and the new file is renamed over
// the user's database, which is the last step. What the new history does not hold is kept (workspace/keeping.h) right
// before: the former database, unless all of its draws and statistics are the start of the new ones, and a text file
// that did not say what the former database says. A kill before the decision leaves the old history; after a kill
// behind it finishUpdate() takes the steps once more at the next start, before the workspace is opened; a file that
// was kept already is then kept twice. A step that fails puts the old state back.
#pragma once

#include <filesystem>
#include <span>

#include "history/draw_record.h"
#include "sql/database.h"
#include "workspace/workspace.h"

namespace history {

/// dbUser and dbNumsave of the workspace are closed by it; open the workspace again, whether it throws or not.
/// \param downloaded  a file that checkedDraws() has passed, and `draws` what it gave; deleted when all is done
/// \throws workspace::Failure, UnfitDatabase, sql::SqlError; the history is as it was then
void installUpdate(sql::Engine& engine, workspace::Workspace& workspace, const std::filesystem::path& downloaded,
                   std::span<const Draw> draws);

/// Ends an update that a kill has cut off; none: nothing happens. The databases of the workspace are not open yet.
/// An update that cannot be ended is given up, and the old history stays.
void finishUpdate(sql::Engine& engine, const workspace::Workspace& workspace);

} // namespace history
