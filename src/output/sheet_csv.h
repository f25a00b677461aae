// A sheet as comma-separated values (RFC 4180): UTF-8 with a byte order mark, by which spreadsheets know it; CR LF.
//
// A cell that holds a comma, a quotation mark or a line end is quoted, and its quotation marks are doubled. Nothing
// else changes: a text that looks like a formula is written as it is.
#pragma once

#include <filesystem>

#include "output/sheet.h"
#include "workspace/dialogs.h"

namespace output {

/// \throws std::system_error when it cannot be written; the former file then stays, as it does when it is given up
Written writeCsv(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs);

} // namespace output
