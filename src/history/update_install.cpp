#include "history/update_install.h"

#include <optional>
#include <stdexcept>
#include <vector>

#include <QFile>

#include "history/draw_tables.h"
#include "history/text_file.h"
#include "history/text_lines.h"
#include "history/update_check.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

std::filesystem::path userDatabase(const workspace::Workspace& workspace) {
    return workspace::underFolder(workspace.folder, workspace.UserDbPath);
}

std::filesystem::path filnumDatabase(const workspace::Workspace& workspace) {
    return workspace::underFolder(workspace.folder, workspace::userFileFragment(workspace.Username, u"filnum.mdb"_s));
}

std::filesystem::path pendingDatabase(const workspace::Workspace& workspace) {
    return userDatabase(workspace) += ".update";
}

/// What is there; nothing for a file that is missing or cannot be read.
std::optional<QByteArray> bytesOf(const std::filesystem::path& file) {
    QFile in(workspace::toQString(file));
    return in.open(QIODevice::ReadOnly) ? std::optional(in.readAll()) : std::nullopt;
}

constexpr int kBareColumns = 1 + std::tuple_size_v<Draw>; // Idx and fig0..fig7

std::vector<std::string> bareColumns() {
    std::vector<std::string> columns = figColumns();
    columns.resize(kBareColumns);
    return columns;
}

/// Rows of fig of dbFilnum.
ColumnBlock bareNumbers(std::span<const Draw> draws) {
    ColumnBlock block(bareColumns());
    std::int32_t index = 0;
    for (const Draw& draw : draws) {
        block.beginRow();
        block.add(++index);
        for (const std::int32_t value : draw)
            block.add(value);
    }
    return block;
}

/// The rows that fig of dbFilnum has now, none when there is no such table.
ColumnBlock storedNumbers(sql::Database& dbFilnum) {
    ColumnBlock block(bareColumns());
    if (!dbFilnum.hasTable("fig"))
        return block;
    const sql::Rows rows =
        dbFilnum.query("SELECT [Idx],[fig0],[fig1],[fig2],[fig3],[fig4],[fig5],[fig6],[fig7] FROM [fig]");
    for (std::int64_t row = 0; row < rows.count(); ++row) {
        block.beginRow();
        for (int column = 0; column < kBareColumns; ++column)
            block.add(static_cast<std::int32_t>(rows.integerAt(row, column)));
    }
    return block;
}

void rewriteFig(sql::Database& dbFilnum, const ColumnBlock& rows) {
    sql::Transaction all(dbFilnum);
    sql::passOver(dbFilnum, "DROP TABLE [fig]");
    dbFilnum.execute(workspace::kCreateBareFig);
    rows.appendTo(dbFilnum, "fig", kBareColumns);
    all.commit();
}

/// The steps behind the decision.
void takeOver(sql::Engine& engine, const workspace::Workspace& workspace, std::span<const Draw> draws) {
    const std::unique_ptr<sql::Database> dbFilnum = engine.open(filnumDatabase(workspace));
    const ColumnBlock numbersBefore = storedNumbers(*dbFilnum);
    rewriteFig(*dbFilnum, bareNumbers(draws));
    historyTextFolder(workspace);
    const std::filesystem::path text = historyTextFile(workspace);
    const std::optional<QByteArray> textBefore = bytesOf(text);
    workspace::writeWholeFile(text, drawsAsText(draws)); // a failure is passed over, as after any change
    if (workspace::replaceDatabase(pendingDatabase(workspace), userDatabase(workspace)))
        return;
    if (textBefore)
        workspace::writeWholeFile(text, *textBefore);
    else
        std::filesystem::remove(text);
    rewriteFig(*dbFilnum, numbersBefore);
    throw std::runtime_error("the downloaded history cannot be put in place");
}

} // namespace

void installUpdate(sql::Engine& engine, workspace::Workspace& workspace, const std::filesystem::path& downloaded,
                   std::span<const Draw> draws) {
    if (!workspace::copyDatabase(downloaded, pendingDatabase(workspace)))
        throw std::runtime_error("no room for the downloaded history");
    workspace.dbUser.reset();
    workspace.dbNumsave.reset();
    try {
        takeOver(engine, workspace, draws);
    } catch (const std::exception&) {
        workspace::removeDatabase(pendingDatabase(workspace));
        throw;
    }
    workspace::removeDatabase(downloaded);
}

void finishUpdate(sql::Engine& engine, const workspace::Workspace& workspace) {
    const std::filesystem::path pending = pendingDatabase(workspace);
    workspace::removeDatabase(std::filesystem::path(pending) += ".new"); // a copy that a kill cut off
    std::error_code ignored;
    if (!std::filesystem::exists(pending, ignored))
        return;
    try {
        takeOver(engine, workspace, checkedDraws(engine, pending));
    } catch (const std::exception&) {
        workspace::removeDatabase(pending);
    }
}

} // namespace history
