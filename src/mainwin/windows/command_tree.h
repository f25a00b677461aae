// The menus, the toolbar and the buttons of the main window, built from their tables and kept in step with the state.
//
// refresh() after any change of the state; a menu that opens asks for the state itself, so what it shows is never
// old.
#pragma once

#include <functional>
#include <vector>

#include <QObject>

#include "mainwin/commands.h"
#include "mainwin/menu_rules.h"
#include "mainwin/menu_table.h"

class QAction;
class QMainWindow;
class QMenu;
class QPushButton;

namespace mainwin {

class CommandTree : public QObject {
    Q_OBJECT
  public:
    using StateReader = std::function<ProgramState()>;

    /// Builds menu bar and toolbar into the window. All three outlive the tree.
    CommandTree(QMainWindow& window, const Commands& commands, StateReader state);

    /// A button of buttonTable() by its name; the caller places it.
    QPushButton* makeButton(const QString& name);
    /// Makes a button that stands already one of buttonTable().
    void adopt(QPushButton& button, const QString& name);

    /// Enables what the state and the registered commands allow and says of the rest what it waits for, sets the
    /// check marks and the captions of 组号方式. Every command that was run does so itself.
    void refresh();
    /// What the entry of this name, of no array, waits for.
    Obstacle waitsFor(const QString& name) const;
    /// Runs a command as its entry would.
    void run(const QString& name, int index = MenuRow::kNoIndex);

  signals:
    /// A command was run and is over, its windows closed.
    void ran();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Bound {
        MenuRow row;
        QAction* entry; ///< one of the two is null
        QMenu* menu;
    };
    struct BoundButton {
        ButtonRow row;
        std::function<void(const ProgramState&, const Obstacle&)> show;
    };

    void buildMenus();
    QMenu* addMenu(QMenu* above, const MenuRow& row);
    QAction* addEntry(QMenu& menu, const MenuRow& row);
    void buildToolbar();
    Obstacle obstacleOf(const QString& command, Needs needs, const ProgramState& state, int index) const;
    void refreshEntry(const Bound& bound, const ProgramState& state);
    void refreshMenus(const ProgramState& state);

    QMainWindow& m_window;
    const Commands& m_commands;
    StateReader m_state;
    std::vector<Bound> m_rows;
    std::vector<BoundButton> m_buttons;
};

} // namespace mainwin
