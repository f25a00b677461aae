// A sheet as a workbook (.xlsx): numbers as numbers, reds red, blues blue, a bold heading that stays in sight.
//
// Title and lines stand above the heading of the first page. A page of a workbook ends at 1,048,576 rows; further
// rows go on in a further page with the heading repeated. libxlsxwriter makes the workbook with its pages, headings,
// formats and one row as a pattern; the rows are set in while it is packed: the library itself would take four times
// as long, report nothing meanwhile, and pass over a full disk. Memory does not grow with the rows.
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
