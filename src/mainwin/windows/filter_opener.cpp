#include "mainwin/windows/filter_opener.h"

#include <algorithm>

#include "filter/windows/filter_window.h"
#include "filter/windows/result_panel.h"
#include "mainwin/main_texts.h"
#include "mainwin/windows/places.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/combination_files.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

// Measured on 17,721,088 bets of six reds and a blue, with the working columns of some presses.
constexpr std::int64_t kBytesPerBet = 26;
constexpr std::int64_t kBetsPerSecond = 20'000'000;
constexpr std::int64_t kMega = 1'000'000;

} // namespace

QString costOfMaking(std::int64_t bets) {
    if (bets <= kManyBets)
        return {};
    const std::int64_t seconds = std::max<std::int64_t>((bets + kBetsPerSecond - 1) / kBetsPerSecond, 1);
    return u"%1 注，约需内存 %2 MB、时间 %3 秒"_s.arg(thousandsApart(bets))
        .arg(bets * kBytesPerBet / kMega)
        .arg(seconds);
}

void FilterOpener::open(std::string_view form, selection::BetSource& source, std::int64_t bets, const QString& notice,
                        const BetOffer* offer) {
    workspace::Workspace& workspace = m_context.workspace;
    const filter::FilterMember& member = *filter::findMember(form);
    sql::Database* database = databaseOf(member);
    if (!database)
        return;
    m_window.setCursor(Qt::WaitCursor);
    filter::FilterWindow window(member,
                                {*database, m_context.book.history(), workspace.Bitnum, m_Baoliu,
                                 placesIn(m_context.settings), workspace.BitnumB, workspace.folder, m_printing()},
                                &m_window);
    window.setNotice(notice);
    if (offer)
        prepareOffer(window, form, *offer);
    if (window.load(source, toolkit::DialogBoxes(&m_window).progress(costOfMaking(bets)).get()))
        window.exec();
    m_window.unsetCursor();
}

sql::Database* FilterOpener::databaseOf(const filter::FilterMember& member) {
    try {
        return &workspace::combinationFile(m_engine, m_context.workspace, member.file);
    } catch (const sql::SqlError& failed) {
        tellBroken(failed);
    } catch (const workspace::Failure& failed) {
        tellBroken(failed);
    }
    return nullptr;
}

void FilterOpener::tellBroken(const std::exception& failure) {
    toolkit::DialogBoxes(&m_window).warn(workspace::brokenDatabaseMessage(failure));
    m_window.close();
}

void FilterOpener::prepareOffer(filter::FilterWindow& window, std::string_view form, const BetOffer& offer) {
    filter::ResultPanel& results = window.results();
    results.offer(offer.caption, offer.toolTip, offer.emptyText);
    QObject::connect(&results, &filter::ResultPanel::offerTaken, &window, [this, &window, form, &offer] {
        toolkit::DialogBoxes boxes(&window);
        if (rowsOf(form) > 0 && !boxes.confirm(offer.question, workspace::Risk::Loss))
            return;
        if (!window.load(offer.source, boxes.progress({}).get()))
            return;
        window.results().offer({});
        window.setNotice(offer.taken);
    });
}

std::int64_t FilterOpener::rowsOf(std::string_view form) {
    const filter::FilterMember& member = *filter::findMember(form);
    try {
        return workspace::combinationFile(m_engine, m_context.workspace, member.file).rowCount(member.table);
    } catch (const sql::SqlError&) {
        return 0; // its window tells what is wrong with it
    } catch (const workspace::Failure&) {
        return 0;
    }
}

void FilterOpener::openKept(std::string_view form, const QString& notice, const BetOffer* offer) {
    selection::Keep keep;
    open(form, keep, 0, notice, offer);
}

} // namespace mainwin
