#include "mainwin/windows/history_desk.h"

#include <optional>
#include <stdexcept>

#include <QDesktopServices>
#include <QProcess>
#include <QScopeGuard>
#include <QUrl>

#include "history/edit_text.h"
#include "history/maintenance.h"
#include "history/store.h"
#include "mainwin/windows/form1.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/failure.h"
#include "workspace/setting_names.h"

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
    QString chooseFile(const QString& folder, const QString& filter) override {
        return asking([&] { return m_boxes.chooseFile(folder, filter); });
    }

  private:
    toolkit::DialogBoxes m_boxes;
    std::optional<toolkit::BusyCursor> m_busy;
};

/// Starts the program that the setting names, with its arguments and the file; else the desktop's own editor.
bool startEditor(const workspace::Settings& settings, const QString& file) {
    QStringList command =
        QProcess::splitCommand(settings.value(workspace::setting::kProgram, u"Option"_s, u"Editor"_s));
    if (command.isEmpty())
        return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    const QString program = command.takeFirst();
    return QProcess::startDetached(program, command << file);
}

} // namespace

HistoryDesk::HistoryDesk(history::History& history, const workspace::Workspace& workspace,
                         const workspace::Settings& settings, Form1& form)
    : m_history(history), m_workspace(workspace), m_settings(settings), m_form(form) {
    connect(&form, &Form1::drawTyped, this, &HistoryDesk::typeDraw);
    connect(&form, &Form1::numberTyped, this, &HistoryDesk::correct);
}

template <class Change> bool HistoryDesk::done(const QString& what, Change change) {
    toolkit::DialogBoxes boxes(&m_form);
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
    m_form.showHistoryNote(m_history.text.pending ? kTextBehind : note);
}

void HistoryDesk::tell(const history::Complaint& complaint) {
    toolkit::DialogBoxes(&m_form).tell({complaint.text, complaint.title, history::boxName(complaint.box)});
}

void HistoryDesk::typeDraw(const history::TypedBoxes& boxes) {
    auto typed = history::readTypedDraw(boxes, m_history, history::ruleOf(m_workspace));
    if (const auto* complaint = std::get_if<history::Complaint>(&typed)) {
        tell(*complaint);
        m_form.focusEntry(complaint->box);
        return;
    }
    auto& draw = std::get<history::Draw>(typed);
    if (!history::nextIssue(m_history)) {
        toolkit::DialogBoxes asking(&m_form);
        const std::optional<std::int32_t> issue = history::askIssue(asking);
        if (!issue)
            return;
        draw[0] = *issue;
    }
    if (done(kNotTyped, [&] { history::typeDraw(m_history, m_workspace, draw); }))
        m_form.showTypedDraw();
}

void HistoryDesk::correct(int draw, int slot, const QString& text) {
    const auto number = history::readCorrection(text, m_history, history::ruleOf(m_workspace), draw, slot);
    if (const auto* complaint = std::get_if<history::Complaint>(&number))
        return tell(*complaint);
    if (done(kNotCorrected,
             [&] { history::correctNumber(m_history, m_workspace, draw, slot, std::get<std::int32_t>(number)); }))
        m_form.showCorrection(draw);
}

void HistoryDesk::deleteLast() {
    const int before = m_history.Lsnum;
    if (!done(kNotDeleted, [this] { history::deleteLastDraw(m_history, m_workspace); }))
        return;
    if (m_history.Lsnum == before - 1)
        m_form.showDeletedDraw();
    else
        m_form.showHistory();
}

void HistoryDesk::clear() {
    if (!toolkit::DialogBoxes(&m_form).confirm({kClearQuestion, kClearTitle}, workspace::Risk::Loss))
        return;
    if (done(kNotCleared, [this] { history::clearHistory(m_history, m_workspace); }))
        m_form.showHistory();
}

void HistoryDesk::readWhole() {
    read(history::readWhole);
}

void HistoryDesk::readAppended() {
    read(history::readAppended);
}

void HistoryDesk::read(ReadText readText) {
    history::Reading reading = history::Reading::Failed;
    done(kNotRead, [&] {
        BusyBoxes boxes(&m_form);
        reading = readText(m_history, m_workspace, boxes, QDateTime::currentDateTime());
    });
    if (reading == history::Reading::DoneFromDefault)
        showNote(kDefaultRead);
    if (reading != history::Reading::Cancelled)
        m_form.showHistory();
}

void HistoryDesk::editText() {
    history::Editing editing;
    {
        BusyBoxes boxes(&m_form);
        editing = history::editHistoryText(m_workspace, boxes,
                                           [this](const QString& file) { return startEditor(m_settings, file); });
    }
    if (editing == history::Editing::Read)
        readWhole();
}

void HistoryDesk::finish() {
    history::retryHistoryText(m_history, m_workspace);
}

} // namespace mainwin
