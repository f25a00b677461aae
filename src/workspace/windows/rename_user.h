// 用户名设置: gives the user who has entered a new name, and with it a new, empty workspace.
//
// Nothing of the old workspace goes along: its folder stays, the open databases stay on its files until the next
// start, the settings under the old name are left behind, and the new folder has no six-red combinations. All of that
// is wanted. The name of the open workspace itself gives its files back: they are never replaced.
#pragma once

#include "workspace/user_list.h"
#include "workspace/workspace.h"

class QWidget;
namespace sql {
class Engine;
}

namespace workspace {

/// Asks for the new name and password. An empty name ends it; the name in the list again changes the password alone.
/// What stands in the new name's folder already is kept.
/// \return the new name; empty when nothing was changed
/// \param open  the workspace whose databases are open
QString renameUser(QWidget* parent, Settings& settings, UserList& users, sql::Engine& engine, const Workspace& open);

} // namespace workspace
