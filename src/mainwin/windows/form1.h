// The main window, `Form1`: the pads, the shares, the displays of the simulated draw, the history, and the command
// tree from which every other window opens.
//
// It keeps no state of the program: it shows the workspace, the history and the pad that it is given. After a change
// of the history call showHistory(), or the call for a small change. It is closed to end the program.
#pragma once

#include <array>

#include <QMainWindow>

#include "history/typed_draw.h"
#include "mainwin/main_context.h"
#include "mainwin/menu_rules.h"
#include "mainwin/stability.h"
#include "toolkit/window_place.h"

class QLabel;

namespace selection {
class PadPanel;
}
namespace toolkit {
class NoticeBar;
class StatusPanel;
} // namespace toolkit

namespace mainwin {

class CommandTree;
class DrawPanel;
class HistoryPanel;
class SharePanel;

/// Where the user's windows remember their places.
toolkit::PlaceStore placesIn(const UserSettings& settings);

class Form1 : public QMainWindow {
    Q_OBJECT
  public:
    /// \param context  outlives the window; the commands that the window can do alone are added to it
    explicit Form1(MainContext& context, QWidget* parent = nullptr);

    int Printrow = 5;    ///< bets per printed line, setting "dayin"
    Stability stability; ///< of the simulated draw

    /// Shows draws, shares and the next issue number anew, and enables what the history allows.
    void showHistory();
    /// The same after one typed draw, the deletion of the last draw, or a corrected number of draw 1..Lsnum.
    void showTypedDraw();
    void showDeletedDraw();
    void showCorrection(int draw);
    /// The strip at the top, hidden while there is nothing to tell.
    toolkit::NoticeBar& notice() { return *m_notice; }
    /// Tells which settings could not be read as numbers; their defaults hold. Call it once the window is shown.
    void tellTroubles();
    /// Puts the focus into a box of the new draw, 1..7, with its text selected; 0: nowhere.
    void focusEntry(int box);
    /// A line about the history in the status bar, beside its panels; empty: none.
    void showHistoryNote(const QString& note);
    /// Enables what the state allows; call it after a command was registered late.
    void refreshCommands();

  signals:
    /// The rule was changed and saved.
    void ruleChanged();
    /// The seven boxes of a new draw are filled, as they stand there.
    void drawTyped(const history::TypedBoxes& boxes);
    /// A number was typed over one of a draw held. \param draw  1..Lsnum  \param slot  0 the issue, 1..6 a red, 7
    /// blue
    void numberTyped(int draw, int slot, const QString& text);
    /// The window was closed: the program ends.
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void registerCommands();
    void buildWindow();
    QWidget* buildLeft();
    void buildStatusBar();
    void readSettings();
    int readNumber(const QString& section, const QString& key, const QString& fallback);
    void connectPad();
    void setRule(int reds, int blues);
    void showRule();
    void chooseStability(const StabilityItem& item);
    void askPrintRow();
    void showFigures();
    void showStatus();
    ProgramState state() const;

    MainContext& m_context;
    CommandTree* m_tree = nullptr;
    selection::PadPanel* m_pad = nullptr;
    SharePanel* m_shares = nullptr;
    DrawPanel* m_draw = nullptr;
    HistoryPanel* m_history = nullptr;
    std::array<toolkit::StatusPanel*, 4> m_panels{};
    toolkit::NoticeBar* m_notice = nullptr;
    QStringList m_troubles;
    QLabel* m_note = nullptr;
};

} // namespace mainwin
