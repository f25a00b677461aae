// What the main window and its desks work on. Everything is held by the program and outlives them.
#pragma once

#include "history/book.h"
#include "mainwin/commands.h"
#include "selection/pad.h"
#include "selection/simulator.h"
#include "workspace/user_settings.h"
#include "workspace/workspace.h"

namespace mainwin {

struct MainContext {
    workspace::Workspace& workspace;
    history::Book& book;
    selection::Pad& pad;
    selection::Simulator& simulator;
    workspace::UserSettings settings;
    Commands commands{};
};

} // namespace mainwin
