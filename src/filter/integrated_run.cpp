#include "filter/integrated_run.h"

#include <algorithm>
#include <string>
#include <vector>

#include "filter/tolerance.h"

namespace filter {
namespace {

/// In the order of their ticks.
std::vector<const Parameter*> tickedParameters(const FilterMember& member, const WindowState& state) {
    std::vector<const Parameter*> ticked;
    for (const Parameter& parameter : member.catalogue())
        if (state.row(parameter).ticked)
            ticked.push_back(&parameter);
    std::ranges::sort(ticked, {}, &Parameter::tick);
    return ticked;
}

class IntegratedRun {
  public:
    IntegratedRun(const FilterMember& member, const Workbench& bench, const WindowState& state)
        : m_member(member), m_bench(bench), m_state(state) {}

    bool run(std::int16_t Baoliu, workspace::Progress* progress) const {
        before();
        if (!runParameters(Baoliu, progress))
            return false;
        after();
        return true;
    }

  private:
    void update(const std::string& rest) const {
        sql::passOver(m_bench.database, "UPDATE [" + std::string(m_bench.table) + "] SET " + rest);
    }
    bool counts() const { return m_member.features.tolerance; }
    void before() const;
    bool runParameters(std::int16_t Baoliu, workspace::Progress* progress) const;
    void after() const;

    const FilterMember& m_member;
    const Workbench& m_bench;
    const WindowState& m_state;
};

void IntegratedRun::before() const {
    if (counts()) {
        update("[Errnum]=0");
        update("[preunslt]=[unslt]");
        return;
    }
    update("[Gpslt]=TRUE");
    update("[Gpslt]=FALSE WHERE [unslt] = FALSE");
}

bool IntegratedRun::runParameters(std::int16_t Baoliu, workspace::Progress* progress) const {
    const ParameterRun parameterRun(m_bench);
    const RunSettings settings = runSettings(m_state, Baoliu);
    const std::vector<const Parameter*> parameters = tickedParameters(m_member, m_state);
    std::size_t done = 0;
    for (const Parameter* parameter : parameters) {
        parameterRun.accumulate(*parameter, rowInput(m_state, *parameter), settings);
        if (progress && !progress->advance(static_cast<double>(++done) / static_cast<double>(parameters.size() + 1)))
            return false;
    }
    return true;
}

void IntegratedRun::after() const {
    if (counts())
        update("[unslt]=TRUE WHERE [Errnum] > " + std::to_string(toleranceOf(m_state)));
    if (inverts(m_state))
        update(std::string("[unslt]=NOT [unslt]  WHERE ") + (counts() ? "[preunslt]" : "[Gpslt]") + "=false");
    if (!counts())
        update("[preunslt]=[Gpslt]");
}

} // namespace

bool inverts(const WindowState& state) {
    return state.keep != (state.logic == Logic::And);
}

std::int16_t integratedBaoliu(const WindowState& state) {
    return state.keep != inverts(state) ? kKeep : kRemove;
}

bool runIntegrated(const FilterMember& member, const Workbench& bench, const WindowState& state, std::int16_t& Baoliu,
                   workspace::Progress* progress) {
    Baoliu = integratedBaoliu(state);
    return IntegratedRun(member, bench, state).run(Baoliu, progress);
}

std::string integratedText(const FilterMember& member, const WindowState& state) {
    std::string text = "整合过滤 " + std::to_string(tickedParameters(member, state).size()) + " 项 ";
    text += state.keep ? "保留 " : "排除 ";
    text += state.logic == Logic::And ? "逻辑和" : "逻辑或";
    if (member.features.tolerance && state.tolerance)
        text += " 容错 " + std::to_string(toleranceOf(state));
    return text;
}

} // namespace filter
