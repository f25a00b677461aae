#include "mainwin/windows/history_desk.h"

#include <optional>
#include <stdexcept>

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "history/edit_text.h"
#include "history/maintenance.h"
#include "history/store.h"
#include "mainwin/windows/form1.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/file_dialog.h"
#include "toolkit/messages.h"
#include "workspace/setting_names.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

const QString kClearQuestion = u"确实要清空本彩票的所有历史号码吗？清空之后将不可恢复！"_s;
const QString kClearTitle = u"清空确认"_s;
const QString kFull = u"历史号码最多保存%1期，已经不能再追加！"_s;

/// The questions around history texts, asked above the main window; between them the pointer waits.
class ReadingBoxes final : public history::ReadingDialogs {
    template <class Ask> auto asking(Ask ask) {
        m_busy.reset();
        const auto answer = ask();
        m_busy.emplace();
        return answer;
    }

  public:
    explicit ReadingBoxes(QWidget* parent) : m_parent(parent) {}
    bool confirm(const QString& text, const QString& title) override {
        return asking([&] { return toolkit::confirm(m_parent, text, title); });
    }
    QString chooseFile(const QString& folder, const QString& filter) override {
        return asking([&] { return toolkit::chooseFile(m_parent, folder, filter.section(u'|', 0, 0)); });
    }
    void tell(const QString& text, const QString& title) override {
        asking([&] { return toolkit::showMessage(m_parent, text, title); });
    }

  private:
    QWidget* m_parent;
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

template <class Change> bool HistoryDesk::done(Change change) {
    try {
        change();
        return true;
    } catch (const std::range_error&) {
        tell({kFull.arg(history::kMostDraws), u"数据库错误"_s});
    } catch (const std::exception& error) {
        toolkit::showMessage(&m_form, QString::fromUtf8(error.what()), u"数据库错误"_s, QMessageBox::Critical);
    }
    return false;
}

void HistoryDesk::tell(const history::Complaint& complaint) {
    toolkit::showMessage(&m_form, complaint.text, complaint.title);
}

void HistoryDesk::typeDraw(const history::TypedBoxes& boxes) {
    const auto typed = history::readTypedDraw(boxes, m_history, history::ruleOf(m_workspace));
    if (const auto* complaint = std::get_if<history::Complaint>(&typed))
        return tell(*complaint);
    if (done([&] { history::typeDraw(m_history, m_workspace, std::get<history::Draw>(typed)); }))
        m_form.showTypedDraw();
}

void HistoryDesk::correct(int draw, int slot, const QString& text) {
    const auto number = history::readCorrection(text, m_history, history::ruleOf(m_workspace), draw, slot);
    if (const auto* complaint = std::get_if<history::Complaint>(&number))
        return tell(*complaint);
    if (done([&] { history::correctNumber(m_history, m_workspace, draw, slot, std::get<std::int32_t>(number)); }))
        m_form.showCorrection(draw);
}

void HistoryDesk::deleteLast() {
    const int before = m_history.Lsnum;
    if (!done([this] { history::deleteLastDraw(m_history, m_workspace); }))
        return;
    if (m_history.Lsnum == before - 1)
        m_form.showDeletedDraw();
    else
        m_form.showHistory();
}

void HistoryDesk::clear() {
    if (!toolkit::confirm(&m_form, kClearQuestion, kClearTitle))
        return;
    if (done([this] { history::clearHistory(m_history, m_workspace); }))
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
    done([&] {
        ReadingBoxes boxes(&m_form);
        reading = readText(m_history, m_workspace, boxes, QDateTime::currentDateTime());
    });
    if (reading != history::Reading::Cancelled)
        m_form.showHistory();
}

void HistoryDesk::editText() {
    history::Editing editing;
    {
        ReadingBoxes boxes(&m_form);
        editing = history::editHistoryText(m_workspace, boxes,
                                           [this](const QString& file) { return startEditor(m_settings, file); });
    }
    if (editing == history::Editing::Read)
        readWhole();
}

} // namespace mainwin
