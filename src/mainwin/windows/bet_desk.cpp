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
    m_inputs.generation.Fromdraw = true;
    pad.Genreds = m_context.simulator.Picknum;
    pad.Bankermode = pad.Dancnt > 0;
    enumerate(pad.Bankermode ? "Gdanagan" : "GAgan");
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
    generation.Multicount = std::min<int>(simulator.Runs, simulator.Rungoal);
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
