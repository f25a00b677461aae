// What the commands of the main window do: functions under the names of menu entries and buttons.
//
// Each desk registers the entries of its own subsystem; a name that no table has, or that somebody else has
// registered, stops the program at its start. A command without a function is shown and disabled. Buttons that act
// "as" a menu entry share its function.
#pragma once

#include <functional>
#include <optional>

#include <QHash>
#include <QSet>
#include <QString>

namespace mainwin {

class Commands {
  public:
    /// \param index  place in a menu array; -1 for a command that is no array
    using Function = std::function<void(int index)>;
    /// What stands in the way beside the entry's own rule, as a sentence; empty: nothing.
    using Missing = std::function<QString(int index)>;
    /// What the entry of this index is called now; nothing: what it was called last.
    using Caption = std::function<std::optional<QString>(int index)>;
    /// Whether the entry of this index carries the check mark of its array.
    using Mark = std::function<bool(int index)>;

    /// Knows the names of menuTable(), toolbarTable() and buttonTable().
    Commands();

    /// \param name  an entry of menuTable() without its index, or a command of toolbarTable() or buttonTable()
    /// \throws std::logic_error for a name that no table has or that has a function already
    void on(const QString& name, Function function, Missing missing = {});
    /// The caption of an entry that changes with what is chosen. \throws as on()
    void caption(const QString& name, const Caption& caption);
    /// What the opening of a menu does by itself. \throws std::logic_error for a menu that has this already
    void opening(const QString& menu, const std::function<void()>& function);
    /// \throws as on(), for marks
    void mark(const QString& name, const Mark& mark);

    bool isRegistered(const QString& name) const { return m_commands.contains(name); }
    /// What a registered command still waits for; empty: nothing.
    QString missing(const QString& name, int index = -1) const;
    /// Nothing, for an entry whose caption never changes.
    std::optional<QString> captionOf(const QString& name, int index) const;
    void runOpening(const QString& menu) const;
    /// Nothing, for an entry whose mark nobody keeps.
    const Mark* markOf(const QString& name) const;
    /// Nothing happens for a name that is not registered.
    void run(const QString& name, int index) const;

  private:
    struct Command {
        Function function;
        Missing missing;
    };
    void expectKnown(const QString& name) const;

    QSet<QString> m_known;
    QHash<QString, Command> m_commands;
    QHash<QString, Mark> m_marks;
    QHash<QString, Caption> m_captions;
    QHash<QString, std::function<void()>> m_openings;
};

} // namespace mainwin
