// Editing the user's default text file in an editor of the desktop.
//
// The editor runs on its own; what it writes is read by the next whole reading and not before.
#pragma once

#include <functional>

#include "history/text_file.h"

namespace history {

enum class Editing {
    Started,   ///< the editor has been started
    Cancelled, ///< there is no default file yet, and the user does not want to read one
    Read,      ///< there is no default file yet, and the user wants to read one: begin a whole reading
    Failed,    ///< told
};

/// \param start  opens a file in an editor. \return whether it could be started
Editing editHistoryText(const workspace::Workspace& workspace, workspace::Dialogs& dialogs,
                        const std::function<bool(const QString& file)>& start);

} // namespace history
