#include "history/update_publish.h"

#include <string>

#include <QFile>
#include <QTemporaryDir>

#include "history/history.h"
#include "history/store.h"
#include "history/text_lines.h"
#include "history/update_check.h"
#include "history/update_source.h"
#include "sql/database.h"
#include "workspace/rule.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr workspace::Rule kDefaultRule{};

/// "/download/lshm/…" under the folder that a server serves.
std::filesystem::path placeOf(const std::filesystem::path& folder, const QString& serverPath) {
    return folder / workspace::toPath(serverPath.sliced(1));
}

bool isFit(const Draw& draw) {
    for (std::size_t place = 1; place <= kRedsDrawn; ++place)
        if (draw[place] < 1 || draw[place] > kDefaultRule.reds || (place > 1 && draw[place] <= draw[place - 1]))
            return false;
    return draw[7] >= 1 && draw[7] <= kDefaultRule.blues;
}

void requireFit(std::span<const Draw> draws) {
    if (draws.empty())
        throw PublishError("没有历史号码");
    int place = 0;
    for (const Draw& draw : draws)
        if (++place; !isFit(draw))
            throw PublishError("第" + std::to_string(place) + "行(期号" + std::to_string(draw[0]) +
                               ")不是由小到大的6个红球(1~33)和1个蓝球(1~16)");
}

/// A user of the default rule in a folder of its own.
struct PlainWorkspace {
    explicit PlainWorkspace(const std::filesystem::path& folder) {
        workspace::makeMissingTemplates(engine, folder);
        workspace.Bitnum = kDefaultRule.reds;
        workspace.BitnumB = kDefaultRule.blues;
        workspace.dbUser = engine.open(folder / "Lishihaoma.mdb");
        workspace.dbFilnum = engine.open(folder / "filnum.mdb");
    }

    sql::Engine engine;
    workspace::Workspace workspace;
};

/// \return the history with the issues that were missing
History buildDatabase(std::span<const Draw> draws, const std::filesystem::path& folder) {
    PlainWorkspace plain(folder);
    History history;
    replaceHistory(history, plain.workspace, draws);
    return history;
}

void makeFolderOf(const std::filesystem::path& file) {
    std::error_code failed;
    std::filesystem::create_directories(file.parent_path(), failed);
    if (failed)
        throw PublishError("不能建立文件夹 " + file.parent_path().string());
}

[[noreturn]] void failToWrite(const std::filesystem::path& file) {
    throw PublishError("不能写入文件 " + file.string());
}

void writeFiles(const History& history, const std::filesystem::path& database, const std::filesystem::path& folder) {
    for (const DatabasePath& path : kDatabasePaths) {
        const std::filesystem::path file = placeOf(folder, path.server);
        makeFolderOf(file);
        if (!workspace::copyDatabase(database, file))
            failToWrite(file);
    }
    const std::filesystem::path text = placeOf(folder, kTextPath);
    makeFolderOf(text);
    if (!workspace::writeWholeFile(text, drawsAsText(std::span(history.Lshm).subspan(1))))
        failToWrite(text);
}

} // namespace

std::vector<Draw> drawsOfUserFolder(const std::filesystem::path& userFolder) {
    const std::filesystem::path named = userFolder.has_filename() ? userFolder : userFolder.parent_path();
    const std::filesystem::path file = userFolder / (named.filename().string() + ".mdb");
    sql::Engine engine;
    workspace::Workspace workspace;
    History history;
    try {
        workspace.dbUser = engine.open(file);
        loadHistory(history, workspace);
    } catch (const std::exception& failed) {
        throw PublishError("不能读取用户的历史号码 " + file.string() + ": " + failed.what());
    }
    return {history.Lshm.begin() + 1, history.Lshm.end()};
}

std::vector<Draw> drawsOfTextFile(const std::filesystem::path& file) {
    QFile in(workspace::toQString(file));
    if (!in.open(QIODevice::ReadOnly))
        throw PublishError("不能读取文件 " + file.string());
    ParsedDraws parsed;
    try {
        parsed = parseDraws(decodeText(in.readAll()));
    } catch (const std::range_error&) {
        throw PublishError("历史号码超过" + std::to_string(kMostDraws) + "期");
    }
    if (parsed.refused)
        throw PublishError("第" + std::to_string(parsed.refused->line) +
                           "行不是6红+1蓝7个号码: " + parsed.refused->text.toStdString());
    return parsed.draws;
}

void publishHistory(std::span<const Draw> draws, const std::filesystem::path& folder) {
    requireFit(draws);
    const QTemporaryDir scratch;
    if (!scratch.isValid())
        throw PublishError("不能建立临时文件夹");
    const std::filesystem::path work = workspace::toPath(scratch.path());
    const std::filesystem::path database = work / "Lishihaoma.mdb";
    try {
        const History history = buildDatabase(draws, work);
        sql::Engine engine;
        checkedDraws(engine, database); // what no program would take is not served
        writeFiles(history, database, folder);
    } catch (const UnfitDatabase& unfit) {
        throw PublishError(std::string("这些历史号码不能用于更新: ") + unfit.what());
    } catch (const sql::SqlError& failed) {
        throw PublishError(std::string("不能生成数据库: ") + failed.what());
    }
}

} // namespace history
