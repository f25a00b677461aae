#include "mainwin/windows/program.h"

#include <stdexcept>

#include "filter/windows/filter_window.h"
#include "history/store.h"
#include "history/update_install.h"
#include "history/windows/update_boxes.h"
#include "mainwin/windows/form1.h"
#include "mainwin/windows/history_desk.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/messages.h"
#include "toolkit/progress_dialog.h"
#include "workspace/setting_names.h"
#include "workspace/templates.h"
#include "workspace/user_files.h"
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
}

Program::~Program() = default;

void Program::start() {
    m_start = std::make_unique<workspace::StartWindow>(settings, users, engine, m_folder);
    connect(m_start.get(), &workspace::StartWindow::entered, this, &Program::enter);
    connect(m_start.get(), &workspace::StartWindow::closed, this, &Program::ended);
    m_start->show();
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
    m_form->show();
}

/// What a failed store left pending is tried once more, so that nothing is lost without a word.
void Program::finish() {
    m_desk->finish();
    try {
        if (workspace.dbFilnum && workspace.dbFilnum->storePending())
            workspace.dbFilnum->store();
    } catch (const sql::SqlError& error) {
        toolkit::showMessage(nullptr, QString::fromUtf8(error.what()), u"数据库错误"_s, QMessageBox::Critical);
    }
    emit ended();
}

bool Program::openWorkspace() {
    const toolkit::BusyCursor busy;
    history::finishUpdate(engine, workspace);
    const workspace::OpenResult result = workspace::openWorkspace(engine, workspace);
    if (!result.opened) {
        toolkit::showMessage(nullptr, result.message, result.title, QMessageBox::Critical);
        return false;
    }
    try {
        history::loadHistory(history, workspace);
    } catch (const std::exception&) {
        toolkit::showMessage(nullptr, u"数据库读写错误,程序即将退出!请您删除该用户名,然后新建用户进入."_s,
                             u"数据库错误"_s, QMessageBox::Critical);
        return false;
    }
    return true;
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
                           [this](int) { workspace::renameUser(m_form.get(), settings, users, engine, m_folder); });
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
    history::UpdateBoxes boxes(m_form.get());
    if (history::downloadText(workspace, history::updateSource(settings), boxes))
        m_desk->readWhole();
}

void Program::updateOnline() {
    history::UpdateBoxes boxes(m_form.get());
    if (history::updateOnline(engine, workspace, history::updateSource(settings), boxes))
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
    {
        toolkit::ProgressDialog progress(m_form.get());
        progress.begin();
        window.load(generation,
                    [&](int step) { progress.advance(static_cast<double>(step) / selection::kProgressScale); });
    }
    window.exec();
    m_form->unsetCursor();
}

} // namespace mainwin
