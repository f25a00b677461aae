// Bringing kept files back: the other half of keeping.h.
#include "workspace/failure.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

/// Where a kept file belongs; empty for one that is no file of a workspace.
std::filesystem::path placeOf(const Workspace& workspace, const std::filesystem::path& kept) {
    const std::filesystem::path history = underFolder(workspace.folder, workspace.UserDbPath);
    if (kept.filename() == history.filename())
        return history;
    for (const TemplateFile& file : kTemplateFiles)
        if (kept.filename() == file.userFile)
            return history.parent_path() / file.userFile;
    return {};
}

/// The history is read whole, since damage may lie in any page of it; of the others the schema.
bool canBeOpened(sql::Engine& engine, const Workspace& workspace, const std::filesystem::path& file,
                 const LoadWorkspace& load) {
    try {
        Workspace tried;
        tried.Bitnum = workspace.Bitnum;
        tried.BitnumB = workspace.BitnumB;
        tried.dbUser = engine.open(file);
        if (placeOf(workspace, file) == underFolder(workspace.folder, workspace.UserDbPath))
            load(tried);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

} // namespace

Restored restoreFiles(sql::Engine& engine, Workspace& workspace, const KeptFiles& kept, const LoadWorkspace& load) {
    workspace.closeAll();
    Restored restored;
    Keeping keeping(userFolder(workspace.folder, workspace.Username),
                    u"已恢复原来保存的文件；恢复之前使用的文件保存在这里。"_s);
    for (const std::filesystem::path& file : kept.files) {
        const std::filesystem::path place = placeOf(workspace, file);
        if (place.empty())
            continue;
        if (!canBeOpened(engine, workspace, file, load)) {
            restored.refused.push_back(toQString(file.filename()));
            continue;
        }
        keeping.move(place);
        if (!renameDurably(file, place)) {
            keeping.putBack();
            throw Failure(u"不能移动文件 "_s + toQString(file));
        }
        restored.files.push_back(toQString(file.filename()));
    }
    closeNotice(kept);
    return restored;
}

} // namespace workspace
