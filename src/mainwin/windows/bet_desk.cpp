#include "mainwin/windows/bet_desk.h"

#include <algorithm>

#include "filter/member.h"
#include "selection/combinations.h"

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
    m_generation.Fromdraw = true;
    pad.Genreds = m_context.simulator.Picknum;
    pad.Bankermode = pad.Dancnt > 0;
    enumerate(pad.Bankermode ? Forms{"Gdanagan", "GdanaganR"} : Forms{"GAgan", "GAganR"});
}

void BetDesk::enumerate(const Forms& forms) {
    const selection::Pad& pad = m_context.pad;
    const selection::Simulator& simulator = m_context.simulator;
    m_generation.Genreds = pad.Genreds;
    m_generation.chosen = {listOf(pad.Redlist, pad.Redcnt), listOf(pad.Danlist, pad.Dancnt),
                           listOf(pad.Bluelist, pad.Bluecnt)};
    m_generation.Drawnlist.assign(simulator.Top.begin(), simulator.Top.end());
    m_generation.Multitable = simulator.Runresults;
    m_generation.Multicount = std::min<int>(simulator.Runs, simulator.Rungoal);
    const std::string_view form = pad.Bluecnt > 0 ? forms.blue : forms.reds;
    selection::Enumeration source(m_generation);
    m_opener.open(form, source, source.announced(filter::shapeOf(*filter::findMember(form))));
}

} // namespace mainwin
