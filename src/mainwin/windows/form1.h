// The main window, `Form1`: the pads, the shares, the displays of the simulated draw, the history, and the command
// tree from which every other window opens.
//
// It keeps no state of the program: it shows the workspace, the book and the pad that it is given, and hears of their
// changes. What its commands do is registered by the desks. It is closed to end the program.
#pragma once

#include <array>

#include <QMainWindow>

#include "mainwin/main_context.h"
#include "mainwin/menu_rules.h"

class QLabel;

namespace selection {
class PadPanel;
}
namespace toolkit {
class NoticeBar;
class StatusPanel;
} // namespace toolkit

namespace mainwin {

class ArrangeRow;
class CommandTree;
class DrawPanel;
class HistoryPanel;
class SharePanel;

class Form1 : public QMainWindow {
    Q_OBJECT
  public:
    /// \param context  outlives the window
    explicit Form1(MainContext& context, QWidget* parent = nullptr);

    HistoryPanel& historyPanel() { return *m_history; }
    /// Shows the numbers of the workspace's rule.
    void showRule();
    /// The strip at the top, hidden while there is nothing to tell.
    toolkit::NoticeBar& notice() { return *m_notice; }
    /// A line about the history in the status bar, beside its panels; empty: none.
    void showHistoryNote(const QString& note);
    /// Enables what the state allows; call it after commands were registered.
    void refreshCommands();

  signals:
    /// The window was closed: the program ends.
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildWindow();
    QWidget* buildLeft();
    void buildStatusBar();
    void listen();
    void showFigures();
    void showTick();
    void showLast();
    void showStatus();
    ProgramState state() const;

    MainContext& m_context;
    CommandTree* m_tree = nullptr;
    selection::PadPanel* m_pad = nullptr;
    ArrangeRow* m_arrange = nullptr;
    SharePanel* m_shares = nullptr;
    DrawPanel* m_draw = nullptr;
    HistoryPanel* m_history = nullptr;
    std::array<toolkit::StatusPanel*, 4> m_panels{};
    toolkit::NoticeBar* m_notice = nullptr;
    QLabel* m_note = nullptr;
};

} // namespace mainwin
