#include <stdexcept>

#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr const char* kUserTables[] = {"Ylqs", "YlqsB", "Gailv", "GailvB", "fig"};
constexpr const char* kSelectionTables[] = {"SAVE", "SAVEB", "SAVEdan"};

class Opening {
  public:
    Opening(sql::Engine& engine, const OpenDatabase& open, Workspace& workspace)
        : m_engine(engine), m_open(open), m_workspace(workspace) {}

    void openAll() {
        openHistory();
        openSelections();
    }

    /// dbUser with its tables, and dbFilnum.
    void openHistory() {
        m_workspace.dbUser = m_open(path(m_workspace.UserDbPath));
        needTables(*m_workspace.dbUser, kUserTables);
        m_workspace.dbFilnum = m_open(file(u"filnum.mdb"_s));
    }

    void openSelections() {
        m_workspace.dbNumsave = m_open(file(u"numsave.mdb"_s));
        needTables(*m_workspace.dbNumsave, kSelectionTables);
    }

    void repairHistory(int error) {
        if (error == sql::error::kPathNotFound)
            makeFolder();
        closeAll(); // no copy goes under an open handle
        if (error == sql::error::kObjectNotFound || error == sql::error::kTableNotFound)
            removeDatabase(path(m_workspace.UserDbPath));
        copyTemplates();
    }

    /// \return whether there is a repair for this error
    bool repairSelections(int error) {
        if (error == sql::error::kPathNotFound)
            makeFolder();
        else if (error != sql::error::kFileNotFound && error != sql::error::kTableNotFound)
            return false;
        closeAll();
        copyTemplates();
        return true;
    }

    void closeAll() {
        m_workspace.dbUser.reset();
        m_workspace.dbFilnum.reset();
        m_workspace.dbNumsave.reset();
    }

  private:
    template <std::size_t Count> static void needTables(sql::Database& database, const char* const (&tables)[Count]) {
        for (const char* table : tables)
            database.openRecordset(table);
    }

    std::filesystem::path path(const QString& fragment) const { return underFolder(m_workspace.folder, fragment); }
    std::filesystem::path file(const QString& name) const {
        return path(userFileFragment(m_workspace.Username, name));
    }

    void makeFolder() const {
        std::error_code ignored; // shows when a file is copied into it
        std::filesystem::create_directory(userFolder(m_workspace.folder, m_workspace.Username), ignored);
    }

    void copyTemplates() {
        makeMissingTemplates(m_engine, m_workspace.folder);
        copy("Lishihaoma.mdb", path(m_workspace.UserDbPath));
        copy("numsave.mdb", file(u"numsave.mdb"_s));
        copy("filnum.mdb", file(u"filnum.mdb"_s));
    }

    void copy(const char* from, const std::filesystem::path& to) const {
        if (!copyDatabase(m_workspace.folder / from, to))
            throw std::runtime_error("cannot copy to " + to.string());
    }

    sql::Engine& m_engine;
    const OpenDatabase& m_open;
    Workspace& m_workspace;
};

OpenResult failure() {
    return {false, false, u"数据库读写错误,程序即将退出!请您删除该用户名,然后新建用户进入."_s, u"数据库错误"_s};
}

/// \return whether the history needed a repair; all databases are open then
bool openHistoryOrRepair(Opening& opening) {
    int error = 0;
    try {
        opening.openHistory();
        return false;
    } catch (const sql::SqlError& failed) {
        error = failed.number();
    }
    opening.repairHistory(error);
    opening.openAll();
    return true;
}

/// \return whether the selections needed a repair \throws sql::SqlError when there is none for what failed
bool openSelectionsOrRepair(Opening& opening) {
    try {
        opening.openSelections();
        return false;
    } catch (const sql::SqlError& failed) {
        if (!opening.repairSelections(failed.number()))
            throw;
    }
    opening.openAll();
    return true;
}

} // namespace

OpenResult openWorkspace(sql::Engine& engine, const OpenDatabase& open, Workspace& workspace) {
    Opening opening(engine, open, workspace);
    try {
        const bool repaired = openHistoryOrRepair(opening) || openSelectionsOrRepair(opening);
        return {true, repaired, {}, {}};
    } catch (const std::runtime_error&) { // an SqlError, or a template that cannot be copied
        opening.closeAll();
        return failure();
    }
}

OpenResult openWorkspace(sql::Engine& engine, Workspace& workspace) {
    return openWorkspace(
        engine, [&engine](const std::filesystem::path& file) { return engine.open(file); }, workspace);
}

} // namespace workspace
