#include "mainwin/windows/history_desk.h"

#include <optional>
#include <stdexcept>

#include <QScopeGuard>

#include "history/edit_text.h"
#include "history/store.h"
#include "history/update.h"
#include "history/windows/update_fetcher.h"
#include "mainwin/windows/history_panel.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/text_viewer.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

const QString kClearQuestion =
    u"确实要清空本彩票的所有历史号码吗？清空之前，原有的历史数据库和默认历史文本会保存到用户文件夹的“保存”文件夹中。"_s;
const QString kClearTitle = u"清空确认"_s;
const QString kFull = u"历史号码最多保存%1期，已经不能再追加！"_s;
const QString kErrorTitle = u"数据库错误"_s;
const QString kNotTyped = u"输入的这一期没有保存"_s;
const QString kNotCorrected = u"修改的号码没有保存"_s;
const QString kNotDeleted = u"最后一期没有删除"_s;
const QString kNotCleared = u"历史号码没有清空"_s;
const QString kNotRead = u"历史号码没有读入"_s;
const QString kTextBehind = u"默认历史文本没有写入，下次更改或退出程序时再试"_s;
const QString kDefaultRead = u"读取的是原有的默认文本"_s;

/// The boxes of a command that works on files between its questions: there the pointer waits.
class BusyBoxes final : public workspace::Dialogs {
    template <class Ask> auto asking(Ask ask) {
        m_busy.reset();
        const auto again = qScopeGuard([this] { m_busy.emplace(); });
        return ask();
    }

  public:
    explicit BusyBoxes(QWidget* parent) : m_boxes(parent) {}
    bool confirm(const workspace::Message& question, workspace::Risk risk) override {
        return asking([&] { return m_boxes.confirm(question, risk); });
    }
    void tell(const workspace::Message& message) override {
        asking([&] { m_boxes.tell(message); });
    }
    void warn(const workspace::Message& message) override {
        asking([&] { m_boxes.warn(message); });
    }
    std::optional<QString> askText(const QString& prompt, const QString& title, const QString& proposed) override {
        return asking([&] { return m_boxes.askText(prompt, title, proposed); });
    }
    std::optional<QString> askSecret(const QString& prompt, const QString& title) override {
        return asking([&] { return m_boxes.askSecret(prompt, title); });
    }
    QString chooseFile(const QString& folder, const QString& filter) override {
        return asking([&] { return m_boxes.chooseFile(folder, filter); });
    }

  private:
    toolkit::DialogBoxes m_boxes;
    std::optional<toolkit::BusyCursor> m_busy;
};

} // namespace

HistoryDesk::HistoryDesk(MainContext& context, const workspace::Settings& settings, sql::Engine& engine,
                         HistoryPanel& panel)
    : m_context(context), m_book(context.book), m_settings(settings), m_engine(engine), m_panel(panel) {
    registerCommands();
    connect(&panel, &HistoryPanel::drawTyped, this, &HistoryDesk::typeDraw);
    connect(&panel, &HistoryPanel::numberTyped, this, &HistoryDesk::correct);
    connect(&panel, &HistoryPanel::undoWanted, this, &HistoryDesk::undoDeletion);
    connect(&m_book, &history::Book::replaced, this, &HistoryDesk::forgetDeleted);
}

void HistoryDesk::registerCommands() {
    Commands& commands = m_context.commands;
    commands.on(u"mnuLsApp"_s, [this](int) { m_panel.focusEntry(); });
    commands.on(u"mnuRed"_s, [this](int) { read(history::readWhole); });
    commands.on(u"mnuRead"_s, [this](int) { read(history::readAppended); });
    commands.on(u"mnuEdit"_s, [this](int) { editText(); });
    commands.on(u"mnuDelast"_s, [this](int) { deleteLast(); });
    commands.on(u"meuCln"_s, [this](int) { clear(); });
    commands.on(u"mnuNew"_s, [this](int) { downloadText(); });
    commands.on(u"mnuNewol"_s, [this](int) { updateOnline(); });
}

template <class Change> bool HistoryDesk::done(const QString& what, Change change) {
    toolkit::DialogBoxes boxes(&m_panel);
    try {
        change();
        showNote();
        return true;
    } catch (const std::range_error&) {
        boxes.tell(kFull.arg(history::kMostDraws), kErrorTitle);
    } catch (const std::exception& error) {
        boxes.warn(workspace::failureMessage(error, what, kErrorTitle));
    }
    return false;
}

void HistoryDesk::showNote(const QString& note) {
    emit noted(m_book.history().text.pending ? kTextBehind : note);
}

void HistoryDesk::tell(const history::Complaint& complaint) {
    toolkit::DialogBoxes(&m_panel).tell({complaint.text, complaint.title, history::boxName(complaint.box)});
}

void HistoryDesk::typeDraw(const history::TypedBoxes& boxes) {
    const history::History& history = m_book.history();
    auto typed = history::readTypedDraw(boxes, history, history::ruleOf(m_context.workspace));
    if (const auto* complaint = std::get_if<history::Complaint>(&typed)) {
        tell(*complaint);
        m_panel.focusEntry(complaint->box);
        return;
    }
    auto& draw = std::get<history::Draw>(typed);
    if (!history::nextIssue(history)) {
        toolkit::DialogBoxes asking(&m_panel);
        const std::optional<std::int32_t> issue = history::askIssue(asking);
        if (!issue)
            return;
        draw[0] = *issue;
    }
    if (done(kNotTyped, [&] { m_book.type(m_context.workspace, draw); }))
        forgetDeleted();
}

void HistoryDesk::correct(int draw, int slot, const QString& text) {
    const auto number =
        history::readCorrection(text, m_book.history(), history::ruleOf(m_context.workspace), draw, slot);
    if (const auto* complaint = std::get_if<history::Complaint>(&number))
        return tell(*complaint);
    done(kNotCorrected, [&] { m_book.correct(m_context.workspace, draw, slot, std::get<std::int32_t>(number)); });
}

void HistoryDesk::deleteLast() {
    const history::Draw last = m_book.history().Lshm.back();
    const int before = m_book.history().Lsnum;
    if (!done(kNotDeleted, [this] { m_book.deleteLast(m_context.workspace); }))
        return;
    if (m_book.history().Lsnum == before - 1)
        m_deleted.push_back(last);
    showDeleted();
}

/// The draw is typed in again, with the issue number that it had.
void HistoryDesk::undoDeletion() {
    if (m_deleted.empty())
        return;
    if (done(kNotTyped, [this] { m_book.type(m_context.workspace, m_deleted.back()); }))
        m_deleted.pop_back();
    showDeleted();
}

/// Another draw, or another history: what was deleted does not belong behind it.
void HistoryDesk::forgetDeleted() {
    m_deleted.clear();
    showDeleted();
}

void HistoryDesk::showDeleted() {
    m_panel.offerUndo(m_deleted.empty() ? QString() : u"已删除 %1 期 · 撤销"_s.arg(m_deleted.back()[0]));
}

void HistoryDesk::clear() {
    if (toolkit::DialogBoxes(&m_panel).confirm({kClearQuestion, kClearTitle}, workspace::Risk::Loss))
        done(kNotCleared, [this] { m_book.clear(m_context.workspace); });
}

void HistoryDesk::read(history::Book::ReadText readText) {
    history::Reading reading = history::Reading::Failed;
    done(kNotRead, [&] {
        BusyBoxes boxes(&m_panel);
        reading = m_book.read(readText, m_context.workspace, boxes);
    });
    if (reading == history::Reading::DoneFromDefault)
        showNote(kDefaultRead);
}

void HistoryDesk::editText() {
    history::Editing editing;
    {
        BusyBoxes boxes(&m_panel);
        editing = history::editHistoryText(m_context.workspace, boxes, [this](const QString& file) {
            return toolkit::startEditor(m_settings, file);
        });
    }
    if (editing == history::Editing::Read)
        read(history::readWhole);
}

void HistoryDesk::downloadText() {
    toolkit::DialogBoxes boxes(&m_panel);
    history::UpdateFetcher fetcher(m_panel.window());
    if (history::downloadText(m_context.workspace, history::updateSource(m_settings), boxes, fetcher))
        read(history::readWhole);
}

void HistoryDesk::updateOnline() {
    toolkit::DialogBoxes boxes(&m_panel);
    history::UpdateFetcher fetcher(m_panel.window());
    if (history::updateOnline(m_engine, m_context.workspace, history::updateSource(m_settings), boxes, fetcher))
        emit filesReplaced();
}

void HistoryDesk::finish() {
    m_book.retryText(m_context.workspace);
}

} // namespace mainwin
