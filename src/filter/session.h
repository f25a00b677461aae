// A filter window's work on its table, without the window: generate, run steps, show, tell what is left.
//
// Order: construct, generate(), then run(), reasons(), page() as they come. Each runs its statements at once and
// passes over what the database refuses. Counting asks the database nothing beside the view that a step shows anyway,
// so the statements of a step are those of its operation. What a step changes is in memory: whoever shows it stores
// it.
#pragma once

#include <optional>

#include "filter/parameter_run.h"
#include "filter/past_values.h"
#include "filter/result_view.h"
#include "filter/row_states.h"
#include "filter/step.h"
#include "filter/window_state.h"

namespace filter {

/// What a session works on; all of it outlives the session.
struct SessionContext {
    sql::Database& database;
    const history::History& history;
    int Bitnum;           ///< highest red number
    std::int16_t& Baoliu; ///< keep or remove, one flag for all filter windows
};

/// What came to a group template.
struct Gathered {
    std::int64_t added; ///< bets that it did not hold before
    std::int64_t total; ///< bets that it holds now
};

/// What a step did.
struct Outcome {
    View view;
    bool refill = true;                  ///< false where the grid keeps what it shows: `view` is empty then
    Toggled toggled = Toggled::NotFound; ///< what a toggle did to its row
    std::optional<Gathered> gathered{}; ///< what an addition to the template did; nothing: it failed, nothing changed
    bool cancelled = false;             ///< long work was given up: the table and Baoliu are what they were
    std::int64_t left = 0;              ///< bets in play
    std::int64_t taken = 0;             ///< bets that the step took out; negative: so many came back
    double ms = 0;                      ///< time from the first statement to the view
};

/// A step that was run, for the list of steps.
struct DoneStep {
    std::string what;    ///< "偶数个数 保留 2~4", "上次过滤复位", "手工删除 第17注"
    std::int64_t left;   ///< bets in play after it
    std::int64_t effect; ///< change of what is left: negative when bets went, positive when bets came back
};

class Session {
  public:
    /// \param member  a row of kFilterMembers
    Session(const FilterMember& member, const SessionContext& context);

    /// The load step: fills the table and gives the view that a window opens with. The list of steps starts anew.
    Outcome generate(selection::BetSource& source, workspace::Progress* progress = nullptr);
    /// \param progress  long steps (the integrated run, a history filter) report to it and can be given up; the
    /// others pass over it. May be null
    Outcome run(const Step& step, const WindowState& state, workspace::Progress* progress = nullptr);

    /// All rows with their reasons.
    View reasons() const;
    /// A page of the rows in play (result_view.h).
    View page(double number) const;
    /// The window's title: the count that the last generation announced, then what each step left.
    std::string title() const;
    std::int64_t inPlay() const { return m_left; }
    /// Bets of the table, in play or not.
    std::int64_t total() const;
    const std::vector<DoneStep>& steps() const { return m_steps; }
    const FilterMember& member() const { return m_member; }

    /// What the parameter was in the history's draws, counted in its present range (past_values.h).
    std::optional<PastValues> past(const Parameter& parameter, const WindowState& state) const;

  private:
    struct Runner;

    View pressed(const Parameter& parameter, const WindowState& state) const;
    Workbench workbench() const;

    const FilterMember& m_member;
    SessionContext m_context;
    ParameterRun m_run;
    RowStates m_states;
    ResultView m_view;
    std::int64_t m_titled = 0; ///< count that the title tells
    bool m_shortTitle = false; ///< the last step was 组合模版同号滤
    std::int64_t m_left = 0;
    std::vector<DoneStep> m_steps;
};

} // namespace filter
