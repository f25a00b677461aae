// A filter window of the family: the parameters at the left, what steers a run in the middle, the bets at the right.
//
// It runs nothing itself: it reads its controls into a WindowState, hands steps to its Session and shows what came of
// them. Order: construct, load(), then show. Every press runs at once behind the hourglass and shows what is left.
// What a press changed reaches the file when the window has been idle for a moment, at the latest two seconds after
// it, and always before it closes.
#pragma once

#include <filesystem>

#include <QDialog>

#include "filter/session.h"
#include "filter/windows/bet_printer.h"
#include "filter/windows/late_store.h"
#include "filter/windows/template_control.h"
#include "toolkit/window_place.h"

namespace toolkit {
class NoticeBar;
class PageTabs;
} // namespace toolkit

namespace filter {

class IntegratedPage;
class ParameterTable;
class ResultPanel;
class RunPanel;
class SuperPage;
class TemplatePage;

/// What a filter window works on; all of it outlives the window.
struct FilterContext {
    sql::Database& dbFilnum;
    const history::History& history;
    int Bitnum;                            ///< highest red number
    std::int16_t& Baoliu;                  ///< keep or remove, one flag for all filter windows
    toolkit::PlaceStore places{};          ///< where the windows remember their place; without functions they do not
    int BitnumB = workspace::Rule{}.blues; ///< highest blue number
    std::filesystem::path folder{};        ///< of the program: exports go there
    PrintSetting printing{};
};

class FilterWindow : public QDialog, private FilterControls {
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
    void buildPages();
    void connectParts();
    void connectTable();
    void connectPages();

    void press(const Parameter& parameter);
    /// A super filter was pressed: asks what it needs, then runs it, or records it.
    void pressSuper(const SuperFilter& filter, Qt::MouseButton button);
    /// Runs a step behind the hourglass and shows what came of it.
    Outcome run(const Step& step);
    /// A period was picked: what the history says goes into the boxes. \param parameter  null: into all of them
    void search(const Parameter* parameter);
    /// Writes the bets in play with the values of the ticked parameters into a workbook, and has it opened.
    void exportTicked();
    /// Prints the rows that were opened last: those of a wheel as a document, all others as a text.
    void print();
    /// A tolerance box was left.
    void followTolerance(bool percent);
    void toggleRow(int row);
    /// Asks, then adds what is in play to the group template, or clears it in its own window.
    void changeTemplate();
    void showOutcome(const Outcome& outcome);
    /// The page of the integrated filter tells what is ticked, once the boxes are at rest.
    void tellTicks();
    void showAllPast();

    WindowState state() const override;
    void write(const WindowState& state) override;
    bool runStep(const Step& step) override { return !run(step).cancelled; }
    void tellWithUndo(const QString& text, const QString& action, std::function<void()> undo) override;

    void showPast(const Parameter& parameter, const WindowState& state);
    void setBaoliu();

    const FilterMember& m_member;
    FilterContext m_context;
    Session m_session;
    LateStore m_store;
    bool m_counted = false; ///< the rows in play were opened, to be counted, after those that the grid shows
    bool m_writing = false; ///< boxes are being filled: what they say is told once, at the end
    ParameterTable* m_table;
    RunPanel* m_panel;
    toolkit::PageTabs* m_pages;
    IntegratedPage* m_integrated;
    SuperPage* m_supers;
    TemplatePage* m_templatePage = nullptr; ///< null where there are no templates, as what works on it
    TemplateControl* m_template = nullptr;
    QWidget* m_middle = nullptr; ///< the column of m_panel and m_pages
    ResultPanel* m_results;
    toolkit::NoticeBar* m_notice;
    std::function<void()> m_undo; ///< what the notice's button does
    QString m_undone;             ///< what it takes back, in words
    QString m_undoCaption;
};

} // namespace filter
