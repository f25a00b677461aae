#include "mainwin/windows/program.h"

#include "history/starter_history.h"
#include "history/store.h"
#include "history/update_install.h"
#include "mainwin/windows/bet_desk.h"
#include "mainwin/windows/draw_desk.h"
#include "mainwin/windows/form1.h"
#include "mainwin/windows/history_desk.h"
#include "mainwin/windows/prize_desk.h"
#include "mainwin/windows/selection_desk.h"
#include "mainwin/windows/table_desk.h"
#include "mainwin/windows/wheel_desk.h"
#include "mainwin/windows/workspace_desk.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/notice_bar.h"
#include "toolkit/text_viewer.h"
#include "workspace/combination_files.h"
#include "workspace/failure.h"
#include "workspace/paths.h"
#include "workspace/templates.h"
#include "workspace/user_files.h"
#include "workspace/windows/kept_notice.h"
#include "workspace/windows/start_window.h"

using namespace Qt::StringLiterals;

namespace mainwin {

Program::Program(const std::filesystem::path& folder)
    : wheels(engine, [folder](std::string_view name) { return wheelFile(folder, name); }), m_folder(folder) {
    workspace::makeMissingTemplates(engine, m_folder);
    history::putStarterHistory(m_folder);
}

Program::~Program() = default;

void Program::start() {
    m_start = std::make_unique<workspace::StartWindow>(settings, users, engine, m_folder);
    connect(m_start.get(), &workspace::StartWindow::entered, this, &Program::enter);
    connect(m_start.get(), &workspace::StartWindow::closed, this, &Program::ended);
    m_start->show();
    m_start->tellTroubles();
}

void Program::enter() {
    workspace = m_start->takeWorkspace();
    if (!openWorkspace()) {
        emit ended();
        return;
    }
    openMainWindow();
}

void Program::openMainWindow() {
    m_context = std::make_unique<MainContext>(
        MainContext{workspace, book, pad, simulator, workspace::UserSettings(settings, workspace.Username)});
    m_form = std::make_unique<Form1>(*m_context);
    connect(m_form.get(), &Form1::closed, this, &Program::finish);
    openDesks();
    m_kept = std::make_unique<workspace::KeptNotice>(m_form->notice(),
                                                     workspace::userFolder(m_folder, workspace.Username));
    connect(m_kept.get(), &workspace::KeptNotice::restoreWanted, this, &Program::restore);
    m_kept->refresh();
    m_form->show();
    tellTroubles();
}

// add a desk here: it registers the commands of its subsystem
void Program::openDesks() {
    m_historyDesk = std::make_unique<HistoryDesk>(*m_context, settings, engine, m_form->historyPanel());
    connect(m_historyDesk.get(), &HistoryDesk::noted, m_form.get(), &Form1::showHistoryNote);
    connect(m_historyDesk.get(), &HistoryDesk::filesReplaced, this, &Program::reopen);
    m_opener = std::make_unique<FilterOpener>(*m_context, engine, Baoliu, *m_form);
    m_betDesk = std::make_unique<BetDesk>(*m_context, generation, *m_opener);
    m_wheelDesk = std::make_unique<WheelDesk>(*m_context, wheels, *m_opener, m_folder);
    m_tableDesk = std::make_unique<TableDesk>(*m_context, *m_opener);
    m_selectionDesk = std::make_unique<SelectionDesk>(*m_context, engine, *m_form);
    connect(m_selectionDesk.get(), &SelectionDesk::broken, m_form.get(), &Form1::close);
    m_prizeDesk = std::make_unique<PrizeDesk>(*m_context, settings, engine, *m_form);
    connect(m_prizeDesk.get(), &PrizeDesk::broken, m_form.get(), &Form1::close);
    m_workspaceDesk = std::make_unique<WorkspaceDesk>(*m_context, UserFiles{settings, users, engine}, *m_form);
    m_opener->setPrinting([this] {
        return filter::PrintSetting{workspace::userFolder(m_folder, workspace.Username), m_workspaceDesk->Printrow,
                                    [this](const QString& file) { return toolkit::startEditor(settings, file); }};
    });
    m_drawDesk = std::make_unique<DrawDesk>(*m_context, generation, *m_form);
    connect(m_workspaceDesk.get(), &WorkspaceDesk::ruleChanged, m_form.get(), &Form1::showRule);
    connect(m_workspaceDesk.get(), &WorkspaceDesk::renamed, this, [this](const QString& name) {
        m_form->notice().tell(u"用户名已改为“%1”，下次启动时生效。现在打开的仍是“%2”的数据，都没有改变。"_s.arg(
            name, workspace.Username));
    });
    m_form->refreshCommands();
}

/// Which settings of the user could not be read as numbers; their defaults hold.
void Program::tellTroubles() {
    for (const QString& trouble : m_context->settings.troubles())
        toolkit::DialogBoxes(m_form.get()).warn({trouble});
}

/// What a failed store left pending is tried once more, so that nothing is lost without a word.
void Program::finish() {
    m_drawDesk->finish();
    m_historyDesk->finish();
    try {
        workspace::storeAll(workspace);
    } catch (const sql::SqlError& failed) {
        toolkit::DialogBoxes(nullptr).warn(workspace::failureMessage(
            failed, u"组合表最后的改动没有保存"_s, u"数据库错误"_s,
            u"文件里是上一次保存的组合表，历史号码和选号都已保存。排除原因后可以重新排列、重新过滤。"_s));
    }
    emit ended();
}

bool Program::openWorkspace() {
    const toolkit::BusyCursor busy;
    history::finishUpdate(engine, workspace);
    const workspace::OpenResult result = workspace::openWorkspace(
        engine, workspace, [this](const workspace::Workspace& opened) { book.load(opened); });
    if (!result.opened)
        toolkit::DialogBoxes(nullptr).warn(result.message);
    return result.opened;
}

/// What stood in the places of the kept files is kept in its turn, so pressing 恢复 again brings it back.
void Program::restore(const workspace::KeptFiles& kept) {
    toolkit::DialogBoxes boxes(m_form.get());
    workspace::Restored restored;
    try {
        restored = workspace::restoreFiles(engine, workspace, kept, [](const workspace::Workspace& tried) {
            history::History history;
            history::loadHistory(history, tried);
        });
    } catch (const workspace::Failure& failed) {
        boxes.warn(workspace::failureMessage(failed, u"不能恢复保存的文件"_s, u"恢复"_s));
    }
    reopen();
    if (!restored.files.empty())
        book.writeText(workspace);
    m_kept->refresh();
    if (!restored.refused.empty())
        boxes.tell({u"下列文件已损坏，不能打开，仍保存在原处：\n%1"_s.arg(
                        QStringList(restored.refused.begin(), restored.refused.end()).join(u"\n"_s)),
                    u"恢复"_s});
}

void Program::reopen() {
    if (!openWorkspace())
        emit ended();
}

} // namespace mainwin
