// The file dialog, with the name by which tests and scripts find it: FileDialog.
#pragma once

#include <QString>

class QWidget;

namespace toolkit {

/// Asks for a file to open. \param filter  such as "Text(*.txt)"; case is ignored
/// \return the file, empty on Cancel
QString chooseFile(QWidget* parent, const QString& folder, const QString& filter);

/// Asks for a file to write. \param filters  such as "CSV (*.csv)"
/// \return the file, with the ending of the chosen filter unless it has that of one of them; empty on Cancel
QString chooseNewFile(QWidget* parent, const QString& proposed, const QStringList& filters);

} // namespace toolkit
