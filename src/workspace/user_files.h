// The files of a user's workspace: making them from the templates, putting them back, deleting them, opening them.
//
// Order: enterUser() names the workspace and reads its rule, openWorkspace() opens the databases and repairs what
// does not open. A repair copies templates over the workspace files, whatever those hold: it discards history and
// saved selections. Nothing here asks or tells; the windows do.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <span>

#include <QString>

#include "sql/database.h"
#include "workspace/settings.h"
#include "workspace/templates.h"
#include "workspace/workspace.h"

namespace workspace {

/// Makes the user's folder and copies the templates into it, all five of them or `files`. Failures are passed over:
/// opening repairs.
void createUserFiles(sql::Engine& engine, const std::filesystem::path& folder, const QString& user,
                     std::span<const TemplateFile> files = kTemplateFiles);

/// Deletes "\{user}.mdb" of the program's folder, then every file of the user's folder; the folder itself and folders
/// in it stay.
void deleteUserFiles(const std::filesystem::path& folder, const QString& user);

/// Names and paths of the workspace, and the user's rule.
/// \throws ConversionError when a rule value is not a number
Workspace enterUser(const Settings& settings, const std::filesystem::path& folder, const QString& user);

struct OpenResult {
    bool opened = false;
    bool repaired = false; ///< templates were copied over workspace files
    QString message;       ///< when not opened: what to tell before the process ends
    QString title;
};

using OpenDatabase = std::function<std::unique_ptr<sql::Database>(const std::filesystem::path&)>;

/// Opens dbUser, dbFilnum and dbNumsave and makes sure of their tables; the history is loaded next, by its own call.
///
/// dbUser, its tables, or dbFilnum fail: on error 3044 the folder is made; on 3011 and 3078 dbUser is closed and
/// deleted; in each case, and on any other number, three templates (history, selections, combinations) are copied
/// over the workspace files and all is opened again. dbNumsave or its tables fail: on 3044 (folder made), 3024 and
/// 3078 all three are closed, copied and opened again; any other number is the end. So is a second failure.
OpenResult openWorkspace(sql::Engine& engine, Workspace& workspace);
/// The same with a way of opening files given by the caller.
OpenResult openWorkspace(sql::Engine& engine, const OpenDatabase& open, Workspace& workspace);

} // namespace workspace
