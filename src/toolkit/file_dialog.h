// The file dialog, with the name by which tests and scripts find it: FileDialog.
#pragma once

#include <QString>

class QWidget;

namespace toolkit {

/// Asks for a file to open. \param filter  such as "Text(*.txt)"; case is ignored
/// \return the file, empty on Cancel
QString chooseFile(QWidget* parent, const QString& folder, const QString& filter);

} // namespace toolkit
