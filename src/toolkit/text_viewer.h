// The program that shows and edits texts: the one of a setting, else the desktop's own.
#pragma once

#include <QString>

#include "workspace/settings.h"

namespace toolkit {

/// Starts the program that the setting names, with its arguments and the file; else the desktop's own editor. It runs
/// on its own. \return whether it could be started
bool startEditor(const workspace::Settings& settings, const QString& file);

} // namespace toolkit
