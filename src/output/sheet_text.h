// A sheet as tab-separated text: for the clipboard and for text files.
//
// A tab or a line end within a cell becomes a blank: there is no way to write it.
#pragma once

#include <filesystem>
#include <optional>

#include "output/sheet.h"
#include "workspace/dialogs.h"

namespace output {

enum class LineEnd { Lf, CrLf };

struct TextForm {
    bool headings = true; ///< title, lines and headings
    LineEnd end = LineEnd::Lf;
};

/// The whole text, without a line end after the last row. \param progress  may be null
/// \return nothing when it was given up
std::optional<QString> sheetText(const Sheet& sheet, TextForm form, workspace::Progress* progress);

/// A text file in UTF-8, each line with its end.
/// \throws std::system_error when it cannot be written; the former file then stays, as it does when it is given up
Written writeText(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                  LineEnd end = LineEnd::CrLf);

} // namespace output
