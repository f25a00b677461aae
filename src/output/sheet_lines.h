// Rows of a sheet as lines of text: what the tab-separated and the comma-separated form have in common.
#pragma once

#include <filesystem>

#include "output/sheet.h"
#include "workspace/dialogs.h"

namespace output {

struct LineStyle {
    char16_t between; ///< two cells
    QStringView end;  ///< of a line
    /// Makes the text from `from` on fit to stand in a cell.
    void (*fit)(QString& text, qsizetype from);
    QStringView mark = {}; ///< at the start of the file
};

/// A line that stands above the headings, with its end.
void appendLine(QString& text, const QString& line, const LineStyle& style);
/// A line with the headings, without its end.
void appendHeadings(QString& text, const Sheet& sheet, const LineStyle& style);
/// A line with a row, without its end.
void appendRow(QString& text, const Sheet& sheet, std::int64_t row, const LineStyle& style);

/// Title and lines, headings, rows; each line with its end.
/// \throws std::system_error when the file cannot be written; the former file then stays, as it does when it is given
/// up
Written writeLines(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                   const LineStyle& style);

} // namespace output
