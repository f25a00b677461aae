// The two updates of the history from a server: as a text file that is read on request, and as a ready database that
// takes the place of the user's history.
//
// The questions and messages go through workspace::Dialogs, the fetching through Fetcher, so that the whole flow runs
// without a display. A second path on the server stands in for the first without a word; only when both fail is that
// told. A fetch that the user cancels ends the command at once, also without a word.
#pragma once

#include <optional>

#include <QString>

#include "history/update_fetch.h"
#include "history/update_source.h"
#include "sql/database.h"
#include "workspace/dialogs.h"
#include "workspace/workspace.h"

namespace history {

/// Downloads the history as "\双色历史号码\中国福利彩票双色球.Txt".
/// \param source  nothing: no server is configured, which is a failure
/// \return whether the user wants the text to be read now; false also after a failure, which was told
bool downloadText(const workspace::Workspace& workspace, const std::optional<UpdateSource>& source,
                  workspace::Dialogs& dialogs, Fetcher& fetcher);

/// Downloads a history database and puts it in the place of the user's, whatever the user's rule is.
/// \return whether dbUser and dbNumsave were closed: the workspace has to be opened and loaded again, with the new
///         history or, after a failure, which was told, with the old one
bool updateOnline(sql::Engine& engine, workspace::Workspace& workspace, const std::optional<UpdateSource>& source,
                  workspace::Dialogs& dialogs, Fetcher& fetcher);

} // namespace history
