// A filter window of the family: the parameters at the left, what steers a run in the middle, the bets at the right.
//
// It runs nothing itself: it reads its controls into a WindowState, hands steps to its Session and shows what came of
// them. Order: construct, load(), then show. Every press runs at once behind the hourglass and shows what is left.
// What a press changed reaches the file when the window has been idle for a moment, at the latest two seconds after
// it, and always before it closes.
#pragma once

#include <QDialog>
#include <QTimer>

#include "filter/session.h"
#include "toolkit/window_place.h"

class QVBoxLayout;

namespace toolkit {
class NoticeBar;
}

namespace filter {

class ParameterTable;
class ResultPanel;
class RunPanel;
class StepList;

/// What a filter window works on; all of it outlives the window.
struct FilterContext {
    sql::Database& dbFilnum;
    const history::History& history;
    int Bitnum;                            ///< highest red number
    std::int16_t& Baoliu;                  ///< keep or remove, one flag for all filter windows
    toolkit::PlaceStore places{};          ///< where the windows remember their place; without functions they do not
    int BitnumB = workspace::Rule{}.blues; ///< highest blue number
};

class FilterWindow : public QDialog {
    Q_OBJECT

  public:
    FilterWindow(const FilterMember& member, const FilterContext& context, QWidget* parent = nullptr);
    ~FilterWindow() override;

    /// The load step: the source fills the table (or leaves it), then the table is shown.
    /// \return false when it was given up: the table is the former one, and there is nothing to open
    bool load(selection::BetSource& source, workspace::Progress* progress = nullptr);
    /// What stands at the top of the window; empty: nothing.
    void setNotice(const QString& text);
    ResultPanel& results() { return *m_results; }
    /// Writes what presses have changed to the file, if anything. A failure is told once for the same changes.
    void storeNow();
    void done(int result) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void layOut();
    QWidget* buildMiddle();
    void connectParts();

    void press(const Parameter& parameter);
    /// Runs a step behind the hourglass and shows what came of it.
    Outcome run(const Step& step);
    void toggleRow(int row);
    /// Asks, then adds what is in play to the group template, or clears it in its own window.
    void changeTemplate();
    void showOutcome(const Outcome& outcome);
    WindowState state() const;
    void showPast(const Parameter& parameter, const WindowState& state);
    void setBaoliu();
    void scheduleStore();

    const FilterMember& m_member;
    FilterContext m_context;
    Session m_session;
    QTimer m_idle;              ///< started anew by each press
    QTimer m_latest;            ///< started by the first press that is not stored yet
    bool m_failureTold = false; ///< that what is pending could not be stored
    ParameterTable* m_table;
    RunPanel* m_panel;
    StepList* m_steps;
    QWidget* m_middle = nullptr; ///< the column of m_panel and m_steps
    ResultPanel* m_results;
    toolkit::NoticeBar* m_notice;
};

} // namespace filter
