#include "workspace/combination_files.h"

#include "workspace/failure.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

void openSixReds(sql::Engine& engine, Workspace& workspace) {
    const auto file = underFolder(workspace.folder, userFileFragment(workspace.Username, u"filnumR.mdb"_s));
    try {
        workspace.dbFilnumR = engine.open(file);
        return;
    } catch (const sql::SqlError& failed) {
        if (failed.number() != sql::error::kFileNotFound)
            throw;
    }
    makeMissingTemplates(engine, workspace.folder);
    if (!copyDatabase(workspace.folder / "filnumR.mdb", file))
        throw Failure(u"不能写入文件 "_s + toQString(file));
    workspace.dbFilnumR = engine.open(file);
}

} // namespace

sql::Database& combinationFile(sql::Engine& engine, Workspace& workspace, CombinationFile file) {
    if (file == CombinationFile::WithBlue)
        return *workspace.dbFilnum;
    if (!workspace.dbFilnumR)
        openSixReds(engine, workspace);
    return *workspace.dbFilnumR;
}

bool storePending(const Workspace& workspace) {
    return (workspace.dbFilnum && workspace.dbFilnum->storePending()) ||
           (workspace.dbFilnumR && workspace.dbFilnumR->storePending());
}

void storeAll(Workspace& workspace) {
    for (sql::Database* file : {workspace.dbFilnum.get(), workspace.dbFilnumR.get()})
        if (file && file->storePending())
            file->store();
}

} // namespace workspace
