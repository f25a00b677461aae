// The two updates of the history from a server: as a text file that is read on request, and as a ready database that
// takes the place of the user's history.
//
// The questions, the messages and the fetching itself go through UpdateDialogs, so that the whole flow runs without a
// display. A second path on the server stands in for the first without a word; only when both fail is that told. A
// fetch that the user cancels ends the command at once, also without a word.
#pragma once

#include <optional>

#include <QString>

#include "history/update_fetch.h"
#include "history/update_source.h"
#include "sql/database.h"
#include "workspace/workspace.h"

namespace history {

/// What the flow asks, tells and shows.
class UpdateDialogs {
  public:
    virtual ~UpdateDialogs() = default;
    /// OK and Cancel. \return whether OK was pressed
    virtual bool confirm(const QString& text, const QString& title) = 0;
    virtual void tell(const QString& text, const QString& title) = 0;
    /// Fetches a file of the server while the user sees how far it is, and may cancel it.
    virtual Fetched fetch(const UpdateSource& source, const QString& path) = 0;
};

/// Downloads the history as "\双色历史号码\中国福利彩票双色球.Txt".
/// \param source  nothing: no server is configured, which is a failure
/// \return whether the user wants the text to be read now; false also after a failure, which was told
bool downloadText(const workspace::Workspace& workspace, const std::optional<UpdateSource>& source,
                  UpdateDialogs& dialogs);

/// Downloads a history database and puts it in the place of the user's, whatever the user's rule is.
/// \return whether dbUser and dbNumsave were closed: the workspace has to be opened and loaded again, with the new
///         history or, after a failure, which was told, with the old one
bool updateOnline(sql::Engine& engine, workspace::Workspace& workspace, const std::optional<UpdateSource>& source,
                  UpdateDialogs& dialogs);

} // namespace history
