#include "mainwin/windows/selection_desk.h"

#include "mainwin/windows/places.h"
#include "selection/saved_selections.h"
#include "selection/windows/range_window.h"
#include "selection/windows/saved_picker.h"
#include "selection/windows/template_window.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace mainwin {

SelectionDesk::SelectionDesk(MainContext& context, sql::Engine& engine, QWidget& window)
    : m_context(context), m_engine(engine), m_window(window) {
    Commands& commands = context.commands;
    commands.on(u"mnuSave"_s, [this](int) { save(); });
    commands.on(u"mnuCall"_s, [this](int) { usePicked(u"调用历史选号号码"_s, selection::callSelection); });
    commands.on(u"mnuCallAdd"_s, [this](int) { usePicked(u"添加历史选号号码"_s, selection::addSelection); });
    for (const selection::RankedSelection& ranked : selection::kRankedSelections)
        commands.on(ranked.command.toString(), [this, &ranked](int) { chooseRanked(ranked); });
    commands.on(u"mnusltmoban"_s, [this](int) { openTemplate(); });
}

template <class Work> void SelectionDesk::attempt(const QString& happened, const QString& title, Work work) {
    try {
        work();
    } catch (const sql::SqlError& failed) {
        toolkit::DialogBoxes(&m_window).warn(workspace::failureMessage(
            failed, happened, title, u"主窗口的选号和已保存的选号都没有改变，请排除原因后重试。"_s));
    }
}

void SelectionDesk::save() {
    const QString title = u"选号结果保存"_s;
    const QString name = toolkit::DialogBoxes(&m_window)
                             .askText(u"请输入本次选号结果的名字："_s, title,
                                      selection::proposedSaveName(QDateTime::currentDateTime()))
                             .value_or(QString());
    if (name.isEmpty())
        return;
    attempt(u"这次选号没有保存"_s, title,
            [&] { selection::saveSelection(*m_context.workspace.dbNumsave, m_context.pad, name); });
}

void SelectionDesk::usePicked(const QString& title, void (*use)(selection::Pad&, const selection::SavedNumbers&)) {
    sql::Database& dbNumsave = *m_context.workspace.dbNumsave;
    const int picked = selection::pickSaved(dbNumsave, title, placesIn(m_context.settings), &m_window);
    if (picked != 0)
        attempt(u"读不到保存的选号"_s, title,
                [&] { use(m_context.pad, selection::savedNumbers(dbNumsave, picked)); });
}

void SelectionDesk::chooseRanked(const selection::RankedSelection& ranked) {
    toolkit::DialogBoxes boxes(&m_window);
    const std::optional<int> number = selection::askRankedNumber(boxes, ranked);
    if (!number)
        return;
    const history::History& history = m_context.book.history();
    selection::DrawRange range;
    if (selection::isFrequency(ranked.ranking)) {
        selection::RangeWindow window(history, placesIn(m_context.settings), &m_window);
        if (window.exec() != QDialog::Accepted)
            return;
        range = window.range();
    }
    attempt(u"不能按统计选号"_s, ranked.title.toString(), [&] {
        const toolkit::BusyCursor busy;
        selection::Pad& pad = m_context.pad;
        const selection::RankingSource source{*m_context.workspace.dbUser, history.Lsnum, range};
        selection::pressNumbers(
            pad, selection::pickNumbers(source, ranked, *number, selection::highestNumber(pad, ranked.colour)));
    });
}

void SelectionDesk::openTemplate() {
    try {
        selection::openTemplate(m_engine, m_context.workspace);
        selection::TemplateWindow window(
            {m_context.workspace, m_context.book.history(), m_context.pad, placesIn(m_context.settings)}, &m_window);
        window.exec();
    } catch (const sql::SqlError& failed) {
        toolkit::DialogBoxes(&m_window).warn(workspace::brokenDatabaseMessage(failed));
        emit broken(); // the tables that are still to be stored go into the file first
        m_context.workspace.dbFilnum.reset();
    }
}

} // namespace mainwin
