#include <stdexcept>
#include <vector>

#include "workspace/failure.h"
#include "workspace/keeping.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr const char* kUserTables[] = {"Ylqs", "YlqsB", "Gailv", "GailvB", "fig"};
constexpr const char* kSelectionTables[] = {"SAVE", "SAVEB", "SAVEdan"};

const QString kEnd = u"数据库读写错误,程序即将退出!请您删除该用户名,然后新建用户进入."_s;
const QString kEndTitle = u"数据库错误"_s;

/// Whether the file itself may be sound: nothing takes its place then.
bool isObstacle(int error) {
    return error == sql::error::kLocked || error == sql::error::kPermission || error == sql::error::kInputOutput ||
           error == sql::error::kDiskFull;
}

class Opening {
  public:
    Opening(sql::Engine& engine, const OpenDatabase& open, Workspace& workspace, const LoadWorkspace& load)
        : m_engine(engine), m_open(open), m_workspace(workspace), m_load(load) {}

    void openAll() {
        openHistory();
        openSelections();
    }

    /// dbUser with its tables, and dbFilnum.
    void openHistory() {
        m_workspace.dbUser = openWritable(path(m_workspace.UserDbPath));
        needTables(*m_workspace.dbUser, kUserTables);
        m_workspace.dbFilnum = openWritable(file(u"filnum.mdb"_s));
        if (!m_workspace.dbFilnum->hasTable("fig")) // every draw that comes in is written there
            m_workspace.dbFilnum->execute(kCreateBareFig);
        if (m_load)
            m_load(m_workspace);
    }

    void openSelections() {
        m_workspace.dbNumsave = openWritable(file(u"numsave.mdb"_s));
        needTables(*m_workspace.dbNumsave, kSelectionTables);
    }

    /// \throws sql::SqlError for an error that a repair would not mend
    void repairHistory(const sql::SqlError& failed) {
        if (isObstacle(failed.number()))
            throw failed;
        repair(failed);
    }

    void repairSelections(const sql::SqlError& failed) {
        const int error = failed.number();
        if (error != sql::error::kPathNotFound && error != sql::error::kFileNotFound &&
            error != sql::error::kTableNotFound)
            throw failed;
        repair(failed);
    }

    void closeAll() { m_workspace.closeAll(); }

  private:
    template <std::size_t Count> static void needTables(sql::Database& database, const char* const (&tables)[Count]) {
        for (const char* table : tables)
            database.openRecordset(table);
    }

    std::filesystem::path path(const QString& fragment) const { return underFolder(m_workspace.folder, fragment); }
    std::filesystem::path file(const QString& name) const {
        return path(userFileFragment(m_workspace.Username, name));
    }

    std::unique_ptr<sql::Database> openWritable(const std::filesystem::path& file) const {
        std::unique_ptr<sql::Database> database = m_open(file);
        if (database->isReadOnly())
            throw sql::SqlError(sql::error::kPermission, "文件不能写入 " + file.string());
        return database;
    }

    /// All of it, or, when it throws, nothing.
    void repair(const sql::SqlError& failed) {
        closeAll();              // no file is moved under an open handle
        std::error_code ignored; // shows when a file is copied into it
        if (failed.number() == sql::error::kPathNotFound)
            std::filesystem::create_directory(userFolder(m_workspace.folder, m_workspace.Username), ignored);
        makeMissingTemplates(m_engine, m_workspace.folder);
        Keeping keeping(
            userFolder(m_workspace.folder, m_workspace.Username),
            u"用户“%1”的数据库不能使用（%2），已换上空白的模板。原来的文件都已保存，可以恢复其中能打开的。"_s.arg(
                m_workspace.Username, causeOf(failed)));
        std::vector<std::filesystem::path> copied;
        try {
            for (const Replacement& one : replacements())
                keeping.move(one.place);
            for (const Replacement& one : replacements()) {
                copy(one);
                copied.push_back(one.place);
            }
        } catch (const Failure&) {
            for (const std::filesystem::path& place : copied)
                std::filesystem::remove(place, ignored);
            keeping.putBack();
            throw;
        }
    }

    struct Replacement {
        const char* templateName;
        std::filesystem::path place;
    };

    std::vector<Replacement> replacements() const {
        return {{"Lishihaoma.mdb", path(m_workspace.UserDbPath)},
                {"numsave.mdb", file(u"numsave.mdb"_s)},
                {"filnum.mdb", file(u"filnum.mdb"_s)}};
    }

    void copy(const Replacement& one) const {
        if (!copyDatabase(m_workspace.folder / one.templateName, one.place))
            throw Failure(u"不能写入文件 "_s + toQString(one.place));
    }

    sql::Engine& m_engine;
    const OpenDatabase& m_open;
    Workspace& m_workspace;
    const LoadWorkspace& m_load;
};

/// The told words, and below them what they leave out.
OpenResult failure(const std::exception& failed) {
    const QString note =
        u"原因：%1。您的文件都没有改变。如果文件正被其他程序使用或者磁盘有问题，请排除之后重新启动，不要删除用户。"_s
            .arg(causeOf(failed));
    return {false, false, {kEnd, kEndTitle, detailsOf(failed), note}};
}

/// \return whether the history needed a repair; all databases are open then
bool openHistoryOrRepair(Opening& opening) {
    try {
        opening.openHistory();
        return false;
    } catch (const sql::SqlError& failed) {
        opening.repairHistory(failed);
    }
    opening.openAll();
    return true;
}

/// \return whether the selections needed a repair \throws sql::SqlError when there is none for what failed
bool openSelectionsOrRepair(Opening& opening) {
    try {
        opening.openSelections();
        return false;
    } catch (const sql::SqlError& failed) {
        opening.repairSelections(failed);
    }
    opening.openAll();
    return true;
}

} // namespace

OpenResult openWorkspace(sql::Engine& engine, const OpenDatabase& open, Workspace& workspace,
                         const LoadWorkspace& load) {
    Opening opening(engine, open, workspace, load);
    try {
        const bool repaired = openHistoryOrRepair(opening) || openSelectionsOrRepair(opening);
        return {true, repaired, {}};
    } catch (const std::runtime_error& failed) { // an SqlError, or a file that cannot be moved or copied
        opening.closeAll();
        return failure(failed);
    }
}

OpenResult openWorkspace(sql::Engine& engine, Workspace& workspace, const LoadWorkspace& load) {
    return openWorkspace(
        engine, [&engine](const std::filesystem::path& file) { return engine.open(file); }, workspace, load);
}

} // namespace workspace
