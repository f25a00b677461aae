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

    /// \param name  a name of menuTable(), or a command of toolbarTable() or buttonTable(); a later one replaces it
    void on(const QString& name, Function function) { m_functions.insert(name, std::move(function)); }
    bool has(const QString& name) const { return m_functions.contains(name); }
    /// Nothing happens for a name that is not registered.
    void run(const QString& name, int index) const {
        if (const auto found = m_functions.constFind(name); found != m_functions.constEnd())
            (*found)(index);
    }

  private:
    QHash<QString, Function> m_functions;
};

} // namespace mainwin
