// A sheet as a workbook (.xlsx): numbers as numbers, reds red, blues blue, a bold heading that stays in sight.
//
// Title and lines stand above the heading of the first page. A page of a workbook ends at 1,048,576 rows; further
// rows go on in a further page with the heading repeated. Memory does not grow with the rows: they go to a file
// without a name in the folder of the workbook, which takes about 300 bytes a row there until the workbook is done.
// The library passes over a full disk while it packs that file, so the packed pages are read back before the workbook
// gets its name.
#pragma once

#include <filesystem>

#include "output/sheet.h"
#include "workspace/dialogs.h"

namespace output {

inline constexpr std::int64_t kPageRows = 1'048'576;

/// \param pageRows  rows of a page of the workbook, the heading among them; tests set less
/// \throws std::system_error or workspace::Failure when it cannot be written; the former file then stays, as it does
/// when it is given up
Written writeWorkbook(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                      std::int64_t pageRows = kPageRows);

} // namespace output
