// A sheet as a workbook (.xlsx): numbers as numbers, reds red, blues blue, a bold heading that stays in sight.
//
// Title and lines stand above the heading of the first page. A page of a workbook ends at 1,048,576 rows; further
// rows go on in a further page with the heading repeated. libxlsxwriter makes the workbook with its pages, headings,
// formats and one row as a pattern; the rows are set in while minizip packs it: libxlsxwriter's own rows would take
// five times as long, half of it in one call that reports nothing, and a page that a full disk cut off would be told
// as written (docs/performance.md). Memory does not grow with the rows.
#pragma once

#include <filesystem>

#include "output/sheet.h"
#include "output/zip.h"
#include "workspace/dialogs.h"

namespace output {

inline constexpr std::int64_t kPageRows = 1'048'576;

/// \param sheet  with a column at least
/// \param pageRows  rows of a page of the workbook, the heading among them; tests set less
/// \param usualEntry  bytes of a page beyond which the file is begun again with the headers of zip64; tests set less
/// \throws std::system_error or workspace::Failure when it cannot be written; the former file then stays, as it does
/// when it is given up
Written writeWorkbook(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                      std::int64_t pageRows = kPageRows, std::uint64_t usualEntry = kUsualEntry);

} // namespace output
