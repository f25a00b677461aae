#include "mainwin/windows/selection_desk.h"

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

SelectionDesk::SelectionDesk(MainContext& context, const Inputs& inputs, QWidget& window)
    : m_context(context), m_inputs(inputs), m_window(window) {
    // The windows of bets without a blue do not exist yet: their entries are offered with a blue only.
    const auto blueMissing = [this] { return m_context.pad.Bluecnt > 0 ? QString() : u"1 蓝"_s; };
    context.commands.on(
        u"mnuLst"_s,
        [this](int) {
            m_inputs.generation.Fromdraw = false; // the banker entries leave it as the simulator left it
            enumerate("GAgan");
        },
        blueMissing);
    context.commands.on(
        u"mnuDtlst"_s, [this](int) { enumerate("Gdanagan"); }, blueMissing);
}

void SelectionDesk::enumerate(std::string_view form) {
    selection::Pad& pad = m_context.pad;
    selection::GenerationInput& generation = m_inputs.generation;
    workspace::Workspace& workspace = m_context.workspace;
    m_window.setCursor(Qt::WaitCursor);
    pad.sortReds();
    pad.Genreds = pad.Redcnt;
    generation.Genreds = pad.Redcnt;
    generation.chosen = {listOf(pad.Redlist, pad.Redcnt), listOf(pad.Danlist, pad.Dancnt),
                         listOf(pad.Bluelist, pad.Bluecnt)};
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
