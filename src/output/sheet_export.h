// A sheet into a file that the user names: a workbook, comma-separated values or a text, by the ending of the name.
//
// A file of that name is replaced after a question, and kept beside the new one under "{name} 保存 {time}".
#pragma once

#include <filesystem>

#include <QDateTime>

#include "output/sheet.h"
#include "workspace/dialogs.h"

namespace output {

/// The kinds of files for a file dialog.
inline constexpr QStringView kExportFilter = u"Excel 工作簿 (*.xlsx)|*.xlsx|CSV (*.csv)|*.csv|文本 (*.txt)|*.txt";

/// Writes without asking: a file of that name is kept beside the new one.
/// \param former  gets the name that the former file has now; empty: there was none
/// \throws std::exception for what fails: the former file then stays under its name, as it does when it is given up
Written writeKeeping(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                     const QDateTime& now, QString& former);

/// Asks before a file is replaced, writes, and tells that it was done, or what failed; a sheet without columns is
/// told at once. \param file  .xlsx, .csv, or else a text  \return whether the file was written
bool exportSheet(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                 const QDateTime& now = QDateTime::currentDateTime());

} // namespace output
