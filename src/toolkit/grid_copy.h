// Copying from a grid: tab-separated text, and for a moderate number of rows a table in HTML beside it.
//
// A tab between cells, a line feed after each row but the last. Cells of a row or column that has no selected cell do
// not appear; a cell that is not selected among selected ones is empty. Columns come as they stand on the screen.
// Above kAskRows rows it is asked first, and the copying shows how far it is and can be given up; above kMostRows
// nothing is copied, since the clipboard would hold gigabytes.
#pragma once

#include <cstdint>
#include <optional>

#include <QString>

class QTableView;

namespace workspace {
class Dialogs;
}

namespace toolkit {

inline constexpr std::int64_t kAskRows = 200'000;
inline constexpr std::int64_t kMostRows = 2'000'000;
inline constexpr std::int64_t kMostHtmlRows = 20'000; // other programs take many seconds to read a longer table

/// \return nothing when the user has given up, or nothing is selected
std::optional<QString> selectedText(const QTableView& grid, bool headings, workspace::Dialogs& dialogs);

/// Puts the selection on the clipboard. \return whether something was copied
bool copySelected(const QTableView& grid, bool headings, workspace::Dialogs& dialogs);

} // namespace toolkit
