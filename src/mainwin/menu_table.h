// The command tree of the main window as data: every menu and every entry, in order.
//
// A new entry is one row here; what it does is registered under its name in Commands (commands.h). An entry whose
// command is not registered is shown and disabled. When an entry may be chosen otherwise is its Needs (menu_rules.h).
#pragma once

#include <vector>

#include <QString>

namespace mainwin {

/// What the state of the program has to be for a command to be offered.
enum class Needs {
    Nothing,
    History,        ///< a draw is held
    DrawStart,      ///< the simulated draw offers its start: first, with more than six reds and bankers together
    DrawPause,      ///< and its pause
    DrawReset,      ///< and its reset
    DrawResult,     ///< and the way to the arrangement
    DrawAndArrange, ///< either of start and arrangement
    SevenReds,      ///< more than six reds, bankers not counted
    EightReds,      ///< more than seven
    Bankers,        ///< a banker
    SevenRedsAndBankers,
    EightRedsAndBankers,
    BasicWheel,    ///< as many reds as the entry's index, 9..16: there is no use for the entry of 8, on purpose
    ExtendedWheel, ///< as many reds as the entry's index, 8..18
};

enum class RowKind {
    Menu,   ///< the rows below it with a greater depth are its entries
    Entry,  ///< runs a command
    Choice, ///< an entry that carries a check mark, one of its array at a time
    Separator,
};

struct MenuRow {
    int depth; ///< 0 for a menu of the menu bar
    RowKind kind;
    QString name;    ///< without the index
    QString caption; ///< with its access key
    Needs needs = Needs::Nothing;
    int index = kNoIndex; ///< place in a menu array

    static constexpr int kNoIndex = -1;
    /// The name by which the entry is found: "mnuLst", "meuS(33)".
    QString objectName() const;
};

/// All rows, top to bottom.
std::vector<MenuRow> menuTable();

/// A button, or a tool button, that runs the command of a menu entry or one of its own.
struct ButtonRow {
    QString name;    ///< a button's name, or the key of a tool button; empty for a separator
    QString caption; ///< what the button says
    QString toolTip;
    QString command; ///< name in Commands
    Needs needs = Needs::Nothing;
};

/// The toolbar, left to right.
std::vector<ButtonRow> toolbarTable();

/// The buttons of the window outside the pad.
std::vector<ButtonRow> buttonTable();

} // namespace mainwin
