// The user's default text file, "\双色历史号码\{user} 双色号码.TXT": the history as text, rewritten after every
// change.
//
// The file is the user's as much as the program's: he may edit it by hand. So before a change guardHistoryText()
// looks whether it still is what the program would have written, and keeps a copy when it is not. Order: guard
// (outside of a transaction; it may throw, then the change is not made), change the tables and memory,
// writeHistoryText(). A file that leads out of the program's folder by a link, or is none, is neither kept nor
// written.
#pragma once

#include <filesystem>
#include <span>
#include <vector>

#include "history/history.h"
#include "workspace/workspace.h"

namespace history {

/// The folder "\双色历史号码", made when it is missing.
std::filesystem::path historyTextFolder(const workspace::Workspace& workspace);
/// The user's default file.
std::filesystem::path historyTextFile(const workspace::Workspace& workspace);
/// Whether a file there lies inside the program's folder, whatever links stand on the way.
bool staysInside(const std::filesystem::path& file, const workspace::Workspace& workspace);

/// The draws held, without the empty row.
std::span<const Draw> drawsOf(const History& history);

/// Writes the default file anew from the history in memory. A failure is not told: the old file stays, and
/// history.text says that it is behind.
void writeHistoryText(History& history, const workspace::Workspace& workspace);

/// Keeps a copy of a default file that the program did not write from `former`, unless `next` gives the same text: it
/// was edited by hand, or the history came from elsewhere. Blanks at the ends of lines and empty lines do not count.
/// \throws workspace::Failure when the copy cannot be made
void guardHistoryText(const History& former, std::span<const Draw> next, const workspace::Workspace& workspace);

/// What a failed writing has left is tried once more.
void retryHistoryText(History& history, const workspace::Workspace& workspace);

/// Keeps copies of the history database and of a text before draws are lost.
/// \param text  the default file, or where it was put  \param what  what happens, a sentence
/// \throws workspace::Failure when a copy cannot be made
void keepHistory(const workspace::Workspace& workspace, const std::filesystem::path& text, const QString& what);

} // namespace history
