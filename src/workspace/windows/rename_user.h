// 用户名设置: gives the user who has entered a new name, and with it a new, empty workspace.
//
// Nothing of the old workspace goes along: its folder stays, the open databases stay on its files until the next
// start, the settings under the old name are left behind, and the new folder has no six-red combinations. All of that
// is wanted.
#pragma once

#include <filesystem>

#include "workspace/user_list.h"

class QWidget;
namespace sql {
class Engine;
}

namespace workspace {

/// Asks for the new name and password. An empty name ends it; his own name again changes the password alone, since
/// the files under it are open.
void renameUser(QWidget* parent, Settings& settings, UserList& users, sql::Engine& engine,
                const std::filesystem::path& folder);

} // namespace workspace
