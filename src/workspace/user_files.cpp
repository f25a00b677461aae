#include "workspace/user_files.h"

#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/setting_names.h"
#include "workspace/templates.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

std::filesystem::path pathOf(const std::filesystem::path& folder, const QString& user, const TemplateFile& file) {
    const QString name = QString::fromUtf8(file.userFile);
    return underFolder(folder, name.isEmpty() ? userDbFragment(user) : userFileFragment(user, name));
}

/// A template may be gone from the program's folder: deleting a user named like one takes it along.
void makeTemplates(sql::Engine& engine, const std::filesystem::path& folder) {
    try {
        makeMissingTemplates(engine, folder);
    } catch (const std::runtime_error&) {
        // The copies that need it fail, and what needs the copies says so.
    }
}

} // namespace

void createUserFiles(sql::Engine& engine, const std::filesystem::path& folder, const QString& user,
                     std::span<const TemplateFile> files) {
    makeTemplates(engine, folder);
    std::error_code ignored;
    std::filesystem::create_directory(userFolder(folder, user), ignored);
    for (const TemplateFile& file : files)
        copyDatabase(folder / file.templateName, pathOf(folder, user, file));
}

void deleteUserFiles(const std::filesystem::path& folder, const QString& user) {
    removeDatabase(folder / toPath(folderName(user) + u".mdb"_s));
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(userFolder(folder, user), ignored))
        if (!entry.is_directory(ignored) || entry.is_symlink(ignored))
            std::filesystem::remove(entry.path(), ignored);
}

Workspace enterUser(const Settings& settings, const std::filesystem::path& folder, const QString& user) {
    Workspace workspace;
    workspace.Bitnum = settings.number(setting::ofUser(user), u"Initial"_s, u"Bitnum"_s, u"33"_s);
    workspace.BitnumB = settings.number(setting::ofUser(user), u"Initial"_s, u"BitnumB"_s, u"16"_s);
    workspace.Username = user;
    workspace.UserDbPath = userDbFragment(user);
    workspace.UserDbPathR = userDbFragmentR(user);
    workspace.folder = folder;
    return workspace;
}

} // namespace workspace
