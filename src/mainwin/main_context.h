// What the main window works on. Everything is held by the program and outlives the window.
#pragma once

#include <functional>

#include <QString>

#include "history/history.h"
#include "mainwin/commands.h"
#include "selection/pad.h"
#include "workspace/workspace.h"

namespace mainwin {

/// The settings of the user who entered: read with a default, written at once.
struct UserSettings {
    std::function<QString(const QString& section, const QString& key, const QString& fallback)> get;
    std::function<void(const QString& section, const QString& key, const QString& value)> set;
};

struct MainContext {
    workspace::Workspace& workspace;
    const history::History& history;
    selection::Pad& pad;
    UserSettings settings;
    Commands commands;
};

} // namespace mainwin
