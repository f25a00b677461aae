#include "workspace/user_files.h"

#include <algorithm>

#include "workspace/failure.h"
#include "workspace/paths.h"
#include "workspace/rule.h"
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
    Keeping keeping(userFolder(folder, user),
                    u"建立用户“%1”时，他的文件夹里已有文件。它们已保存，现在使用的是空白的新文件。"_s.arg(user));
    for (const TemplateFile& file : files) {
        const std::filesystem::path place = pathOf(folder, user, file);
        try {
            keeping.move(place);
            copyDatabase(folder / file.templateName, place);
        } catch (const Failure&) {
            // What cannot be kept is not replaced.
        }
    }
}

void deleteUserFiles(const std::filesystem::path& folder, const QString& user) {
    removeDatabase(folder / toPath(folderName(user) + u".mdb"_s));
    std::error_code ignored;
    const std::filesystem::path own = userFolder(folder, user);
    if (std::filesystem::is_symlink(own, ignored)) {
        std::filesystem::remove(own, ignored);
        return;
    }
    for (const KeptFiles& kept : unreadKeptFiles(own))
        closeNotice(kept); // a later user of this name did not lose them
    for (const auto& entry : std::filesystem::directory_iterator(own, ignored))
        if (!entry.is_directory(ignored) || entry.is_symlink(ignored))
            std::filesystem::remove(entry.path(), ignored);
}

void adoptNamelessFiles(const std::filesystem::path& folder, const QString& user) {
    std::error_code ignored;
    const std::filesystem::path nameless = userFolder(folder, {});
    const std::filesystem::path named = userFolder(folder, user);
    if (!std::filesystem::is_directory(nameless, ignored) || std::filesystem::exists(named, ignored))
        return;
    // The history file first: a kill in between leaves the folder to the next start.
    const auto history = nameless / toPath(folderName({}) + u".mdb"_s);
    const auto renamed = nameless / toPath(folderName(user) + u".mdb"_s);
    if (std::filesystem::exists(history, ignored))
        renameDurably(history, renamed);
    renameDurably(nameless, named);
}

Workspace enterUser(const Settings& settings, const std::filesystem::path& folder, const QString& user) {
    Workspace workspace;
    const int reds = settings.number(setting::ofUser(user), u"Initial"_s, u"Bitnum"_s, u"33"_s);
    const int blues = settings.number(setting::ofUser(user), u"Initial"_s, u"BitnumB"_s, u"16"_s);
    workspace.Bitnum = std::clamp(reds, kLeastReds, kMostReds);
    workspace.BitnumB = std::clamp(blues, kLeastBlues, kMostBlues);
    workspace.Username = user;
    workspace.UserDbPath = userDbFragment(user);
    workspace.UserDbPathR = userDbFragmentR(user);
    workspace.folder = folder;
    return workspace;
}

} // namespace workspace
