// History text files: reading a history, or its newest draws, from a file that the user picks, and rewriting the
// user's default file.
//
// A picked file is first copied beside itself and the copy renamed to the default file (default_text.h); what is read
// is always the default file. Nothing is overwritten on the way: a name that is taken gets a number. The questions go
// through workspace::Dialogs, so that the whole flow runs without a display.
#pragma once

#include <QDateTime>

#include "history/default_text.h"
#include "workspace/dialogs.h"

namespace history {

enum class Reading {
    Cancelled, ///< nothing has changed
    Failed,    ///< a file could not be copied, renamed or read, or holds more draws than a history; told
    Refused,   ///< a line without seven numbers; told
    Done,
    DoneFromDefault, ///< done, from the default file that was there: the picked one did not take its place
};

/// Replaces the history by that of a text file, and rewrites the default file from it. Where draws are lost by it,
/// copies of the history database and the former text are kept first.
/// Whatever is told or thrown, the tables are then as they were, and memory holds what they hold.
/// \param now  stands in the name that a default file in the way is renamed to
/// \throws sql::SqlError; workspace::Failure when what would be lost cannot be kept
Reading readWhole(History& history, const workspace::Workspace& workspace, workspace::Dialogs& dialogs,
                  const QDateTime& now = QDateTime::currentDateTime());

/// Adds the draws of a text file that come behind the last one held, by their issue numbers, and rewrites the default
/// file from all of them. A line that is not behind it is not looked at, whatever it holds.
/// Whatever is told or thrown, history and tables are then as they were. \throws as readWhole
Reading readAppended(History& history, const workspace::Workspace& workspace, workspace::Dialogs& dialogs,
                     const QDateTime& now = QDateTime::currentDateTime());

} // namespace history
