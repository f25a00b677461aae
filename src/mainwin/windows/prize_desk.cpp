#include "mainwin/windows/prize_desk.h"

#include "mainwin/windows/places.h"
#include "prize/query_kinds.h"
#include "prize/windows/query_window.h"
#include "prize/windows/reports_window.h"
#include "prize/windows/rules_window.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/text_pages.h"
#include "workspace/combination_files.h"
#include "workspace/failure.h"
#include "workspace/paths.h"

using namespace Qt::StringLiterals;

namespace mainwin {

PrizeDesk::PrizeDesk(MainContext& context, workspace::Settings& settings, sql::Engine& engine, QWidget& window)
    : m_context(context), m_settings(settings), m_engine(engine), m_window(window) {
    Commands& commands = context.commands;
    commands.on(u"meuPlc"_s, [this](int) { setRules(); });
    commands.on(u"meuRepot"_s, [this](int) { showReports(); });
    for (const prize::QueryEntry& entry : prize::kQueryEntries)
        commands.on(QString::fromUtf16(entry.command.data(), static_cast<qsizetype>(entry.command.size())),
                    [this, &entry](int) { query(entry); });
}

void PrizeDesk::setRules() {
    prize::RulesWindow window(m_context.settings, placesIn(m_context.settings), &m_window);
    window.exec();
}

void PrizeDesk::showReports() {
    const auto print = [](QWidget& above, const QString& text) {
        toolkit::printText(above, text, {}, toolkit::paperFont(), Qt::black);
    };
    prize::ReportsWindow window({userFolder(), m_settings, m_context.workspace.Username, print},
                                placesIn(m_context.settings), &m_window);
    window.exec();
}

std::filesystem::path PrizeDesk::userFolder() const {
    const workspace::Workspace& workspace = m_context.workspace;
    return workspace::userFolder(workspace.folder, workspace.Username);
}

// Without a draw in memory the entries are disabled; a draw is the latest one of the history.
void PrizeDesk::query(const prize::QueryEntry& entry) {
    const history::History& history = m_context.book.history();
    sql::Database* database = databaseOf(entry);
    if (!database || history.Lsnum == 0)
        return;
    prize::Query query(*database, entry, history.Lshm[static_cast<std::size_t>(history.Lsnum)],
                       prize::readRules(m_context.settings));
    prize::QueryWindow window(std::move(query), userFolder(), placesIn(m_context.settings), &m_window);
    window.exec();
}

/// \return nullptr when the file does not open: that has been told, and the program ends
sql::Database* PrizeDesk::databaseOf(const prize::QueryEntry& entry) {
    try {
        return &workspace::combinationFile(m_engine, m_context.workspace, entry.kind.file);
    } catch (const std::exception& failed) {
        toolkit::DialogBoxes(&m_window).warn(workspace::brokenDatabaseMessage(failed));
        emit broken();
    }
    return nullptr;
}

} // namespace mainwin
