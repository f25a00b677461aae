#include "mainwin/windows/bet_desk.h"

#include <algorithm>

#include "filter/member.h"
#include "selection/combinations.h"
#include "toolkit/dialog_boxes.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

/// Entries 1..count of a list of the pad.
template <class List> std::vector<std::int32_t> listOf(const List& list, int count) {
    return {list.begin() + 1, list.begin() + 1 + count};
}

} // namespace

BetDesk::BetDesk(MainContext& context, selection::GenerationInput& generation, FilterOpener& opener)
    : m_context(context), m_generation(generation), m_opener(opener) {
    Commands& commands = context.commands;
    commands.on(u"mnuLst"_s, [this](int) {
        m_generation.Fromdraw = false; // the other entries leave it as the simulated draw left it
        arrangePad({"GAgan", "GAganR"});
    });
    commands.on(u"mnuDtlst"_s, [this](int) { arrangePad({"Gdanagan", "GdanaganR"}); });
    commands.on(u"mnu8Lst"_s, [this](int) { arrangePad({"GAganf", "GAganf"}); });
    commands.on(u"mnuDt8lst"_s, [this](int) { arrangePad({"Gdanaganf", "Gdanaganf"}); });
    commands.on(u"meuAgarr"_s, [this](int) { arrangeDraw(); });
}

void BetDesk::arrangePad(const Forms& forms) {
    selection::Pad& pad = m_context.pad;
    pad.sortReds();
    pad.Genreds = pad.Redcnt;
    enumerate(forms);
}

void BetDesk::arrangeDraw() {
    selection::Pad& pad = m_context.pad;
    if (!hasDrawn()) {
        tellNotDrawn();
        return;
    }
    m_generation.Fromdraw = true;
    pad.Genreds = m_context.simulator.Picknum;
    pad.Bankermode = pad.Dancnt > 0;
    enumerate(pad.Bankermode ? Forms{"Gdanagan", "GdanaganR"} : Forms{"GAgan", "GAganR"});
}

int BetDesk::finishedRuns() const {
    return std::min<int>(m_context.simulator.Runs, m_context.simulator.Rungoal);
}

/// The draw opens the way here also when it has been stopped before it could rank enough numbers.
bool BetDesk::hasDrawn() const {
    const bool severalRuns = m_generation.Multirows && m_context.pad.Dancnt == 0;
    return severalRuns ? finishedRuns() > 0 : m_context.simulator.hasRanking();
}

void BetDesk::tellNotDrawn() {
    const selection::Simulator& simulator = m_context.simulator;
    const bool tooFew = simulator.Picknum >= m_context.pad.Redcnt;
    toolkit::DialogBoxes(&m_opener.window())
        .tell(
            tooFew
                ? u"选了 %1 个红球，摇奖要排出 %2 个，没有可摇的。请多选红球，或在“组号方式”里少选摇奖红球，再摇奖。"_s
                      .arg(m_context.pad.Redcnt)
                      .arg(simulator.Picknum)
                : u"摇奖还没有结果，现在排列不出组合。请先开始（或继续）摇奖，等它得出预测。"_s,
            u"摇奖排列组合"_s);
}

void BetDesk::enumerate(const Forms& forms) {
    const selection::Pad& pad = m_context.pad;
    const selection::Simulator& simulator = m_context.simulator;
    m_generation.Genreds = pad.Genreds;
    m_generation.chosen = {listOf(pad.Redlist, pad.Redcnt), listOf(pad.Danlist, pad.Dancnt),
                           listOf(pad.Bluelist, pad.Bluecnt)};
    m_generation.Drawnlist.assign(simulator.Top.begin(), simulator.Top.end());
    m_generation.Multitable = simulator.Runresults;
    m_generation.Multicount = finishedRuns();
    const std::string_view form = pad.Bluecnt > 0 ? forms.blue : forms.reds;
    selection::Enumeration source(m_generation);
    m_opener.open(form, source, source.announced(filter::shapeOf(*filter::findMember(form))));
}

} // namespace mainwin
