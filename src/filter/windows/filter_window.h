// A filter window of the family: the parameters at the left, what steers a run in the middle, the bets at the right.
//
// Order: construct, load() (the generator) or showTable(), then show. Every press runs its statements at once behind
// the hourglass and shows what is left. What a press changed reaches the file when the window has been idle for a
// moment, at the latest two seconds after it, and always before it closes.
#pragma once

#include <QDialog>
#include <QTimer>

#include "filter/member.h"
#include "filter/parameter_run.h"
#include "filter/result_view.h"
#include "filter/row_states.h"
#include "toolkit/window_place.h"

class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace filter {

class ParameterTable;
class ResultPanel;
class RunPanel;

/// What a filter window works on; all of it outlives the window.
struct FilterContext {
    sql::Database& dbFilnum;
    const history::History& history;
    int Bitnum;                   ///< highest red number
    std::int16_t& Baoliu;         ///< keep or remove, one flag for all filter windows
    toolkit::PlaceStore places{}; ///< where the windows remember their place; without functions they do not
};

class FilterWindow : public QDialog {
    Q_OBJECT

  public:
    FilterWindow(const FilterMember& member, const FilterContext& context, QWidget* parent = nullptr);
    ~FilterWindow() override;

    /// The load step: drops, makes and fills the table, then shows it. Clears input.Multirows.
    void load(selection::GenerationInput& input, const selection::Progress& progress = {});
    /// Writes what presses have changed to the file, if anything. A failure is told once for the same changes.
    void storeNow();
    void done(int result) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void layOut();
    QWidget* buildMiddle();
    QWidget* buildReasonChoice();
    void addStateButtons(QVBoxLayout* column);
    QPushButton* makeButton(const QString& name, const QString& caption, const QString& toolTip);

    void changeMode(Mode mode);
    void fitTableArea();
    void press(const Parameter& parameter);
    void changeStates(void (RowStates::*operation)() const);
    void toggleRow(int row);
    void showCounted(View view);
    void setBaoliu();
    void scheduleStore();

    const FilterMember& m_member;
    FilterContext m_context;
    ParameterRun m_run;
    RowStates m_states;
    ResultView m_view;
    QTimer m_idle;              ///< started anew by each press
    QTimer m_latest;            ///< started by the first press that is not stored yet
    bool m_failureTold = false; ///< that what is pending could not be stored
    ParameterTable* m_table;
    QScrollArea* m_tableArea = nullptr;
    RunPanel* m_panel;
    ResultPanel* m_results;
};

} // namespace filter
