// The files of a user's workspace: making them from the templates, putting them back, deleting them, opening them.
//
// Order: enterUser() names the workspace and reads its rule, openWorkspace() opens the databases and repairs what
// does not open. A repair puts templates in the place of the workspace files, whatever those hold; what stood there
// goes to a folder "保存 …" (keeping.h), from which restoreFiles() brings it back. Nothing here asks or tells; the
// windows do.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <span>

#include <QString>

#include "sql/database.h"
#include "workspace/dialogs.h"
#include "workspace/keeping.h"
#include "workspace/settings.h"
#include "workspace/templates.h"
#include "workspace/workspace.h"

namespace workspace {

/// Makes the user's folder and copies the templates into it, all five of them or `files`. What stands there is kept
/// first; a file that cannot be kept stays. Other failures are passed over: opening repairs.
void createUserFiles(sql::Engine& engine, const std::filesystem::path& folder, const QString& user,
                     std::span<const TemplateFile> files = kTemplateFiles);

/// Deletes "\{user}.mdb" of the program's folder, then every file of the user's folder; the folder itself and folders
/// in it stay, and the notices of kept files there are closed. Of a symbolic link the link goes, not what it points
/// to.
void deleteUserFiles(const std::filesystem::path& folder, const QString& user);

/// The files of a user who had no name, when the settings now give him one: his folder takes that name, unless there
/// is one already.
void adoptNamelessFiles(const std::filesystem::path& folder, const QString& user);

/// Names and paths of the workspace, and the user's rule, within the limits of the program.
/// \throws ConversionError when a rule value is not a number
Workspace enterUser(const Settings& settings, const std::filesystem::path& folder, const QString& user);

struct OpenResult {
    bool opened = false;
    bool repaired = false; ///< templates were put in the place of workspace files
    Message message;       ///< when not opened: what to tell before the process ends
};

using OpenDatabase = std::function<std::unique_ptr<sql::Database>(const std::filesystem::path&)>;
/// Reads what the program holds in memory; its failure counts as one of dbUser.
using LoadWorkspace = std::function<void(const Workspace&)>;

/// Opens dbUser, dbFilnum and dbNumsave, makes sure of their tables, and loads the history.
///
/// dbUser, its tables, or dbFilnum are missing or damaged: on error 3044 the folder is made; then, whatever the
/// number, the three files (history, selections, combinations) are kept, three templates take their places and all is
/// opened again. dbNumsave or its tables fail: on 3044 (folder made), 3024 and 3078 the same; any other number is the
/// end. So is a second failure, and, with everything left as it was, a file that is locked, that may not be read and
/// written, that the disk does not give, and a workspace file that cannot be moved or copied.
OpenResult openWorkspace(sql::Engine& engine, Workspace& workspace, const LoadWorkspace& load = {});
/// The same with a way of opening files given by the caller.
OpenResult openWorkspace(sql::Engine& engine, const OpenDatabase& open, Workspace& workspace,
                         const LoadWorkspace& load = {});

struct Restored {
    std::vector<QString> files;   ///< names of the files that are in their places again
    std::vector<QString> refused; ///< those that cannot be opened: they stay where they are kept
};

/// Puts kept database files back in their places, those that can be opened; what stood there is kept in its turn. The
/// workspace's databases are closed, and have to be opened again, whatever comes of it.
/// \param load  reads a history with these databases; its failure refuses the history file
/// \throws Failure when a file cannot be moved; it is where it was
Restored restoreFiles(sql::Engine& engine, Workspace& workspace, const KeptFiles& kept, const LoadWorkspace& load);

} // namespace workspace
