#include "history/update_install.h"

#include <algorithm>
#include <optional>
#include <vector>

#include <QFile>

#include "history/default_text.h"
#include "history/draw_tables.h"
#include "history/text_file.h"
#include "history/text_lines.h"
#include "history/update_build.h"
#include "history/update_check.h"
#include "workspace/failure.h"
#include "workspace/keeping.h"
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

/// What is there; nothing for a file that is missing or cannot be read, or for what is no file: a pipe has no end.
std::optional<QByteArray> bytesOf(const std::filesystem::path& file) {
    std::error_code ignored;
    QFile in(workspace::toQString(file));
    const bool readable = std::filesystem::is_regular_file(file, ignored) && in.open(QIODevice::ReadOnly);
    return readable ? std::optional(in.readAll()) : std::nullopt;
}

const QString kReplaced = u"历史号码已由网上在线更新替换，更新之前的文件保存在这里。"_s;

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

/// What the update takes the place of, as far as it can be read.
struct Former {
    bool isContained = false; ///< all of it is in the new history too
    std::optional<QByteArray> text;
};

Former formerHistory(sql::Engine& engine, const workspace::Workspace& workspace, const HistoryTables& history) {
    try {
        const HistoryTables former = checkedHistory(engine, userDatabase(workspace));
        return {former.fig.isStartOf(history.fig) && former.ylqs.isStartOf(history.ylqs) &&
                    former.ylqsB.isStartOf(history.ylqsB),
                drawsAsText(former.draws)};
    } catch (const std::exception&) {
        return {}; // without a draw, damaged, or with something of the user's own in it: kept as it is
    }
}

/// The steps behind the decision. The former database stays in its place until the new one takes it.
class TakeOver {
  public:
    TakeOver(sql::Engine& engine, const workspace::Workspace& workspace, const HistoryTables& history)
        : m_workspace(workspace), m_history(history), m_former(formerHistory(engine, workspace, history)),
          m_dbFilnum(engine.open(filnumDatabase(workspace))), m_numbersBefore(storedNumbers(*m_dbFilnum)),
          m_text(historyTextFile(workspace)), m_textBefore(bytesOf(m_text)),
          m_keeping(workspace::userFolder(workspace.folder, workspace.Username), kReplaced) {}

    void run() {
        try {
            rewriteFig(*m_dbFilnum, bareNumbers(m_history.draws));
            rewriteText();
            if (!m_former.isContained)
                m_keeping.copy(userDatabase(m_workspace));
            if (!workspace::replaceDatabase(pendingDatabase(m_workspace), userDatabase(m_workspace)))
                throw workspace::Failure(u"不能替换文件 "_s + workspace::toQString(userDatabase(m_workspace)));
        } catch (const std::exception&) {
            putBack();
            throw;
        }
    }

  private:
    void rewriteText() {
        historyTextFolder(m_workspace);
        if (!staysInside(m_text, m_workspace))
            return;
        const QByteArray text = drawsAsText(m_history.draws);
        if (m_textBefore && m_textBefore != m_former.text && m_textBefore != text)
            m_keeping.copy(m_text);
        workspace::writeWholeFile(m_text, text); // a failure is passed over, as after any change
    }

    void putBack() {
        std::error_code ignored;
        if (m_textBefore)
            workspace::writeWholeFile(m_text, *m_textBefore);
        else if (std::filesystem::is_regular_file(m_text, ignored))
            std::filesystem::remove(m_text, ignored);
        m_keeping.putBack();
        rewriteFig(*m_dbFilnum, m_numbersBefore);
    }

    const workspace::Workspace& m_workspace;
    const HistoryTables& m_history;
    Former m_former;
    std::unique_ptr<sql::Database> m_dbFilnum;
    ColumnBlock m_numbersBefore;
    std::filesystem::path m_text;
    std::optional<QByteArray> m_textBefore;
    workspace::Keeping m_keeping;
};

} // namespace

void installUpdate(sql::Engine& engine, workspace::Workspace& workspace, const std::filesystem::path& downloaded,
                   std::span<const Draw> draws) {
    const HistoryTables history = checkedHistory(engine, downloaded);
    if (!std::equal(draws.begin(), draws.end(), history.draws.begin(), history.draws.end()))
        throw workspace::Failure(u"下载的文件已被改动 "_s + workspace::toQString(downloaded));
    {
        NewHistory made(engine);
        made.fill(history);
        if (!workspace::copyDatabase(made.file(), pendingDatabase(workspace)))
            throw workspace::Failure(u"不能写入文件 "_s + workspace::toQString(pendingDatabase(workspace)));
    }
    workspace.dbUser.reset();
    workspace.dbNumsave.reset();
    try {
        TakeOver(engine, workspace, history).run();
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
        const HistoryTables history = checkedHistory(engine, pending);
        TakeOver(engine, workspace, history).run();
    } catch (const std::exception&) {
        workspace::removeDatabase(pending);
    }
}

} // namespace history
