#include "mainwin/windows/bet_desk.h"

#include <algorithm>

#include "filter/windows/filter_window.h"
#include "mainwin/windows/places.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/combination_files.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

/// Entries 1..count of a list of the pad.
template <class List> std::vector<std::int32_t> listOf(const List& list, int count) {
    return {list.begin() + 1, list.begin() + 1 + count};
}

} // namespace

BetDesk::BetDesk(MainContext& context, const Inputs& inputs, QWidget& window)
    : m_context(context), m_inputs(inputs), m_window(window) {
    // The windows of bets without a blue do not exist yet: their entries are offered with a blue only.
    const auto blueMissing = [this] { return m_context.pad.Bluecnt > 0 ? QString() : u"1 蓝"_s; };
    context.commands.on(
        u"mnuLst"_s,
        [this](int) {
            m_inputs.generation.Fromdraw = false; // the banker entries leave it as the simulated draw left it
            arrangePad("GAgan");
        },
        blueMissing);
    context.commands.on(
        u"mnuDtlst"_s, [this](int) { arrangePad("Gdanagan"); }, blueMissing);
    context.commands.on(
        u"meuAgarr"_s, [this](int) { arrangeDraw(); }, blueMissing);
}

void BetDesk::arrangePad(std::string_view form) {
    selection::Pad& pad = m_context.pad;
    pad.sortReds();
    pad.Genreds = pad.Redcnt;
    enumerate(form);
}

void BetDesk::arrangeDraw() {
    selection::Pad& pad = m_context.pad;
    if (!hasDrawn()) {
        tellNotDrawn();
        return;
    }
    m_inputs.generation.Fromdraw = true;
    pad.Genreds = m_context.simulator.Picknum;
    pad.Bankermode = pad.Dancnt > 0;
    enumerate(pad.Bankermode ? "Gdanagan" : "GAgan");
}

int BetDesk::finishedRuns() const {
    return std::min<int>(m_context.simulator.Runs, m_context.simulator.Rungoal);
}

/// The draw opens the way here also when it has been stopped before it could rank enough numbers.
bool BetDesk::hasDrawn() const {
    const bool severalRuns = m_inputs.generation.Multirows && m_context.pad.Dancnt == 0;
    return severalRuns ? finishedRuns() > 0 : m_context.simulator.hasRanking();
}

void BetDesk::tellNotDrawn() {
    const selection::Simulator& simulator = m_context.simulator;
    const bool tooFew = simulator.Picknum >= m_context.pad.Redcnt;
    toolkit::DialogBoxes(&m_window).tell(
        tooFew ? u"选了 %1 个红球，摇奖要排出 %2 个，没有可摇的。请多选红球，或在“组号方式”里少选摇奖红球，再摇奖。"_s
                     .arg(m_context.pad.Redcnt)
                     .arg(simulator.Picknum)
               : u"摇奖还没有结果，现在排列不出组合。请先开始（或继续）摇奖，等它得出预测。"_s,
        u"摇奖排列组合"_s);
}

void BetDesk::enumerate(std::string_view form) {
    const selection::Pad& pad = m_context.pad;
    const selection::Simulator& simulator = m_context.simulator;
    selection::GenerationInput& generation = m_inputs.generation;
    workspace::Workspace& workspace = m_context.workspace;
    m_window.setCursor(Qt::WaitCursor);
    generation.Genreds = pad.Genreds;
    generation.chosen = {listOf(pad.Redlist, pad.Redcnt), listOf(pad.Danlist, pad.Dancnt),
                         listOf(pad.Bluelist, pad.Bluecnt)};
    generation.Drawnlist.assign(simulator.Top.begin(), simulator.Top.end());
    generation.Multitable = simulator.Runresults;
    generation.Multicount = finishedRuns();
    const filter::FilterMember& member = *filter::findMember(form);
    filter::FilterWindow window(member,
                                {workspace::combinationFile(m_inputs.engine, workspace, member.file),
                                 m_context.book.history(), workspace.Bitnum, m_inputs.Baoliu,
                                 placesIn(m_context.settings), workspace.BitnumB},
                                &m_window);
    selection::Enumeration source(generation);
    if (window.load(source, toolkit::DialogBoxes(&m_window).progress({}).get()))
        window.exec();
    m_window.unsetCursor();
}

} // namespace mainwin
