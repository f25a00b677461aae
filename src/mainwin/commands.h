// What the commands of the main window do: functions under the names of menu entries and buttons.
//
// The main window registers what it can do alone; whoever builds the program registers the rest before the window is
// made. A command without a function is shown and disabled. Buttons that act "as" a menu entry share its function.
#pragma once

#include <functional>

#include <QHash>
#include <QString>

namespace mainwin {

class Commands {
  public:
    /// \param index  place in a menu array; -1 for a command that is no array
    using Function = std::function<void(int index)>;

    using Condition = std::function<bool()>;

    /// \param name  a name of menuTable(), or a command of toolbarTable() or buttonTable(); a later one replaces it
    /// \param when  what must hold beside the entry's own rule for the command to be offered; empty: nothing
    void on(const QString& name, Function function, Condition when = {}) {
        m_commands.insert(name, {std::move(function), std::move(when)});
    }
    /// Whether the command is registered and can work now.
    bool has(const QString& name) const {
        const auto found = m_commands.constFind(name);
        return found != m_commands.constEnd() && (!found->when || found->when());
    }
    /// Nothing happens for a name that is not registered.
    void run(const QString& name, int index) const {
        if (const auto found = m_commands.constFind(name); found != m_commands.constEnd())
            found->function(index);
    }

  private:
    struct Command {
        Function function;
        Condition when;
    };
    QHash<QString, Command> m_commands;
};

} // namespace mainwin
