#include "mainwin/windows/program.h"

#include "filter/windows/filter_window.h"
#include "history/default_text.h"
#include "history/starter_history.h"
#include "history/store.h"
#include "history/update.h"
#include "history/update_install.h"
#include "history/windows/update_fetcher.h"
#include "mainwin/windows/form1.h"
#include "mainwin/windows/history_desk.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/combination_files.h"
#include "workspace/failure.h"
#include "workspace/paths.h"
#include "workspace/setting_names.h"
#include "workspace/templates.h"
#include "workspace/user_files.h"
#include "workspace/windows/kept_notice.h"
#include "workspace/windows/rename_user.h"
#include "workspace/windows/start_window.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

/// Entries 1..count of a list of the pad.
template <class List> std::vector<std::int32_t> listOf(const List& list, int count) {
    return {list.begin() + 1, list.begin() + 1 + count};
}

} // namespace

Program::Program(const std::filesystem::path& folder) : m_folder(folder) {
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
    m_context = std::make_unique<MainContext>(MainContext{workspace, history, pad, userSettings(), {}});
    registerCommands();
    m_form = std::make_unique<Form1>(*m_context);
    m_desk = std::make_unique<HistoryDesk>(history, workspace, settings, *m_form);
    connect(m_form.get(), &Form1::closed, this, &Program::finish);
    m_kept = std::make_unique<workspace::KeptNotice>(m_form->notice(),
                                                     workspace::userFolder(m_folder, workspace.Username));
    connect(m_kept.get(), &workspace::KeptNotice::restoreWanted, this, &Program::restore);
    m_kept->refresh();
    m_form->show();
    m_form->tellTroubles();
}

/// What a failed store left pending is tried once more, so that nothing is lost without a word.
void Program::finish() {
    m_desk->finish();
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
        engine, workspace, [this](const workspace::Workspace& opened) { history::loadHistory(history, opened); });
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
        history::writeHistoryText(history, workspace);
    m_kept->refresh();
    if (!restored.refused.empty())
        boxes.tell({u"下列文件已损坏，不能打开，仍保存在原处：\n%1"_s.arg(
                        QStringList(restored.refused.begin(), restored.refused.end()).join(u"\n"_s)),
                    u"恢复"_s});
}

UserSettings Program::userSettings() {
    const QString application = workspace::setting::ofUser(workspace.Username);
    return {[this, application](const QString& section, const QString& key, const QString& fallback) {
                return settings.value(application, section, key, fallback);
            },
            [this, application](const QString& section, const QString& key, const QString& value) {
                settings.set(application, section, key, value);
            }};
}

// add a command here: the name of its menu entry and what to do
void Program::registerCommands() {
    // The windows of bets without a blue do not exist yet: their entries are offered with a blue only.
    const auto withBlues = [this] { return pad.Bluecnt > 0; };
    m_context->commands.on(u"mnuRed"_s, [this](int) { m_desk->readWhole(); });
    m_context->commands.on(u"mnuRead"_s, [this](int) { m_desk->readAppended(); });
    m_context->commands.on(u"mnuEdit"_s, [this](int) { m_desk->editText(); });
    m_context->commands.on(u"mnuDelast"_s, [this](int) { m_desk->deleteLast(); });
    m_context->commands.on(u"meuCln"_s, [this](int) { m_desk->clear(); });
    m_context->commands.on(u"mnuNew"_s, [this](int) { downloadText(); });
    m_context->commands.on(u"mnuNewol"_s, [this](int) { updateOnline(); });
    m_context->commands.on(u"mnuName"_s,
                           [this](int) { workspace::renameUser(m_form.get(), settings, users, engine, workspace); });
    m_context->commands.on(
        u"mnuLst"_s,
        [this](int) {
            generation.Fromdraw = false; // the banker entries leave it as the simulator left it
            enumerate("GAgan");
        },
        withBlues);
    m_context->commands.on(
        u"mnuDtlst"_s, [this](int) { enumerate("Gdanagan"); }, withBlues);
}

void Program::reopen() {
    if (openWorkspace())
        m_form->showHistory();
    else
        emit ended();
}

void Program::downloadText() {
    toolkit::DialogBoxes boxes(m_form.get());
    history::UpdateFetcher fetcher(m_form.get());
    if (history::downloadText(workspace, history::updateSource(settings), boxes, fetcher))
        m_desk->readWhole();
}

void Program::updateOnline() {
    toolkit::DialogBoxes boxes(m_form.get());
    history::UpdateFetcher fetcher(m_form.get());
    if (history::updateOnline(engine, workspace, history::updateSource(settings), boxes, fetcher))
        reopen();
}

void Program::enumerate(std::string_view form) {
    m_form->setCursor(Qt::WaitCursor);
    pad.sortReds();
    pad.Genreds = pad.Redcnt;
    generation.Genreds = pad.Redcnt;
    generation.chosen = {listOf(pad.Redlist, pad.Redcnt), listOf(pad.Danlist, pad.Dancnt),
                         listOf(pad.Bluelist, pad.Bluecnt)};
    filter::FilterWindow window(
        *filter::findMember(form),
        {*workspace.dbFilnum, history, workspace.Bitnum, Baoliu, placesIn(m_context->settings)}, m_form.get());
    toolkit::DialogBoxes boxes(m_form.get());
    selection::Enumeration source(generation);
    window.load(source, boxes.progress({}).get());
    window.exec();
    m_form->unsetCursor();
}

} // namespace mainwin
