// History text files: reading a history, or its newest draws, from a file that the user picks, and rewriting the
// user's default file.
//
// A picked file is first copied beside itself and the copy renamed to the default file, "\双色历史号码\{user}
// 双色号码.TXT"; what is read is always the default file. The questions on the way go through ReadingDialogs, so that
// the whole flow runs without a display.
#pragma once

#include <filesystem>

#include <QDateTime>
#include <QString>

#include "history/history.h"
#include "workspace/workspace.h"

namespace history {

/// What the flow asks and tells.
class ReadingDialogs {
  public:
    virtual ~ReadingDialogs() = default;
    /// OK and Cancel. \return whether OK was pressed
    virtual bool confirm(const QString& text, const QString& title) = 0;
    /// \return the picked file, empty on Cancel
    virtual QString chooseFile(const QString& folder, const QString& filter) = 0;
    virtual void tell(const QString& text, const QString& title) = 0;
};

enum class Reading {
    Cancelled, ///< nothing has changed
    Failed,    ///< a file could not be copied, renamed or read, or holds more draws than a history; told
    Refused,   ///< a line without seven numbers; told
    Done,
};

/// Replaces the history by that of a text file, and rewrites the default file from it.
/// Whatever is told, the tables are then as they were; the history in memory may be empty until the next reading.
/// \param now  stands in the name that a default file in the way is renamed to
/// \throws sql::SqlError when the tables cannot be written; then they are as they were, and memory is empty
Reading readWhole(History& history, const workspace::Workspace& workspace, ReadingDialogs& dialogs,
                  const QDateTime& now = QDateTime::currentDateTime());

/// Adds the draws of a text file that come behind the last one held, by their issue numbers, and rewrites the default
/// file from all of them. A line that is not behind it is not looked at, whatever it holds.
/// Whatever is told or thrown, history and tables are then as they were. \throws sql::SqlError
Reading readAppended(History& history, const workspace::Workspace& workspace, ReadingDialogs& dialogs,
                     const QDateTime& now = QDateTime::currentDateTime());

/// The folder "\双色历史号码", made when it is missing.
std::filesystem::path historyTextFolder(const workspace::Workspace& workspace);
/// The user's default file.
std::filesystem::path historyTextFile(const workspace::Workspace& workspace);

/// Writes the default file anew from the history in memory. A failure is passed over; the old file then stays.
void writeHistoryText(const History& history, const workspace::Workspace& workspace);

} // namespace history
