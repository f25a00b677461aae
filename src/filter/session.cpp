#include "filter/session.h"

#include <chrono>

#include "base/number_text.h"
#include "filter/group_template.h"
#include "filter/history_match.h"
#include "filter/integrated_run.h"
#include "filter/quiet.h"
#include "filter/super_run.h"

namespace filter {
namespace {

class Stopwatch {
  public:
    double ms() const { return std::chrono::duration<double, std::milli>(Clock::now() - m_start).count(); }

  private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point m_start = Clock::now();
};

/// The columns that steps write: with them given back, a table is what it was.
constexpr std::string_view kWorkColumns[] = {"canshu", "Numstring", "SKnum",    "JSqihao", "Fliter",
                                             "unslt",  "preunslt",  "tmpunslt", "Gpslt",   "Errnum"};

/// "1,234,567"
std::string grouped(std::int64_t count) {
    std::string text = std::to_string(count);
    for (auto place = static_cast<std::ptrdiff_t>(text.size()) - 3; place > 0; place -= 3)
        text.insert(static_cast<std::size_t>(place), 1, ',');
    return text;
}

} // namespace

/// One function a step: runs it, gives the outcome without counts, and puts its words into `what`.
struct Session::Runner {
    const Session& session;
    const WindowState& state;
    workspace::Progress* progress;
    std::string& what;

    Outcome operator()(const Press& press) const {
        what = pressText(*press.parameter, rowInput(state, *press.parameter), settings());
        return {.view = session.pressed(*press.parameter, state)};
    }
    Outcome operator()(const ResetAll&) const { return changed("全部复位", &RowStates::resetAll); }
    Outcome operator()(const RestoreLast&) const { return changed("上次过滤复位", &RowStates::restoreLast); }
    Outcome operator()(const InvertAll&) const { return changed("全部组号反选", &RowStates::invertAll); }
    Outcome operator()(const InvertLast&) const { return changed("上一步过滤反选", &RowStates::invertLast); }
    Outcome operator()(const Toggle& toggle) const {
        const Toggled toggled = session.m_states.toggle(toggle.idx);
        if (toggled != Toggled::NotFound)
            what = (toggled == Toggled::TakenOut ? "手工删除 第" : "手工恢复 第") + toggle.idx + "注";
        return {.view = {}, .refill = false, .toggled = toggled, .left = session.m_view.countInPlay()};
    }
    Outcome operator()(const AddToTemplate&) const {
        const GroupTemplate gathering(session.m_context.database, session.m_member);
        Outcome outcome{.view = {}, .refill = false, .left = session.m_left};
        if (const std::optional<std::int64_t> added = gathering.add()) {
            outcome.gathered = Gathered{*added, gathering.count()};
            what = "加入组号模板 " + grouped(*added) + " 注";
        }
        return outcome;
    }
    Outcome operator()(const ClearTemplate&) const {
        what = "清空组号模板";
        GroupTemplate(session.m_context.database, session.m_member).clear();
        return {.view = session.m_view.cleared()};
    }
    Outcome operator()(const Integrated&) const {
        what = integratedText(session.m_member, state);
        return workWhole([this] {
            return runIntegrated(session.m_member, session.workbench(), state, session.m_context.Baoliu, progress);
        });
    }
    Outcome operator()(const MatchHistory& step) const {
        what = superText(step);
        addSuperColumns(session.workbench());
        return workWhole([&] { return matchHistory(session.workbench(), *step.filter, step.draws, progress); });
    }
    Outcome operator()(const FilterNumbers& step) const {
        what = superText(step);
        addSuperColumns(session.workbench());
        filterNumbers(session.workbench(), *step.filter, step.numbers);
        return {.view = session.m_view.inPlay()};
    }
    Outcome operator()(const FilterGroups& step) const {
        what = superText(step);
        addSuperColumns(session.workbench());
        filterGroups(session.workbench(), step);
        return {.view = session.m_view.inPlay()};
    }
    Outcome operator()(const TakeOutTemplate& step) const {
        what = step.filter->caption;
        const GroupTemplate gathered(session.m_context.database, session.m_member);
        gathered.takeOutMembers();
        Outcome outcome{.view = session.m_view.withState()};
        gathered.addMissingColumns();
        return outcome;
    }

  private:
    /// Work that can be given up: the table, and Baoliu, are what they were then.
    template <class Work> Outcome workWhole(Work work) const {
        std::optional<sql::ValueHold> former;
        if (progress)
            quietly([&] { former.emplace(session.m_context.database, session.m_member.table, kWorkColumns); });
        const std::int16_t formerBaoliu = session.m_context.Baoliu;
        const bool done = work();
        if (done && former)
            former->release();
        former.reset();
        if (!done)
            session.m_context.Baoliu = formerBaoliu;
        return {.view = session.m_view.inPlay(), .cancelled = !done};
    }
    RunSettings settings() const { return runSettings(state, session.m_context.Baoliu); }
    Outcome changed(std::string_view caption, void (RowStates::*operation)() const) const {
        what = caption;
        (session.m_states.*operation)();
        return {.view = session.m_view.inPlay()};
    }
};

Session::Session(const FilterMember& member, const SessionContext& context)
    : m_member(member), m_context(context), m_run(workbench()), m_states(context.database, member.table),
      m_view(context.database, member) {}

Outcome Session::generate(selection::BetSource& source, workspace::Progress* progress) {
    const Stopwatch watch;
    const selection::Generated generated = source.fill(m_context.database, shapeOf(m_member), progress);
    Outcome outcome{.view = generated.cancelled ? m_view.inPlay() : m_view.opened(),
                    .cancelled = generated.cancelled};
    m_left = outcome.view.rows.count();
    m_titled = m_left;
    if (!generated.cancelled) {
        m_steps.clear();
        m_shortTitle = false;
        if (m_member.opensWhole())
            m_titled = generated.announced; // six bankers announce bets that the table does not hold
    }
    outcome.left = m_left;
    outcome.ms = watch.ms();
    return outcome;
}

Outcome Session::run(const Step& step, const WindowState& state, workspace::Progress* progress) {
    const Stopwatch watch;
    std::string what;
    Outcome outcome = std::visit(Runner{*this, state, progress, what}, step);
    if (outcome.refill)
        outcome.left = outcome.view.rows.count();
    outcome.taken = m_left - outcome.left;
    outcome.ms = watch.ms();
    m_left = outcome.left;
    if (outcome.cancelled)
        return outcome;
    if (!std::holds_alternative<AddToTemplate>(step)) { // an addition shows no other bets: the title stays
        m_titled = outcome.left;
        m_shortTitle = std::holds_alternative<TakeOutTemplate>(step);
    }
    if (!what.empty())
        m_steps.push_back({what, outcome.left, -outcome.taken});
    return outcome;
}

Workbench Session::workbench() const {
    return {m_context.database, m_member.table, m_context.history, m_context.Bitnum, m_member.reds, m_member.blue};
}

View Session::pressed(const Parameter& parameter, const WindowState& state) const {
    m_run.press(parameter, rowInput(state, parameter), runSettings(state, m_context.Baoliu));
    return parameter.gridTitle.empty() ? m_view.inPlay() : m_view.inPlay(parameter.gridTitle);
}

View Session::reasons() const {
    View view = m_view.reasons();
    view.states = m_view.states();
    return view;
}

View Session::page(double number) const {
    return m_view.page(number);
}

std::string Session::title() const {
    return m_shortTitle ? m_view.shortTitle(m_titled) : m_view.title(m_titled);
}

std::int64_t Session::total() const {
    std::int64_t rows = 0;
    quietly([&] { rows = m_context.database.rowCount(m_member.table); });
    return rows;
}

std::optional<PastValues> Session::past(const Parameter& parameter, const WindowState& state) const {
    const RowState& row = state.row(parameter);
    return pastValues(m_context.history, parameter, base::val(row.low), base::val(row.high));
}

} // namespace filter
