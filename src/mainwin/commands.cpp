#include "mainwin/commands.h"

#include <stdexcept>

#include "mainwin/menu_table.h"

namespace mainwin {

Commands::Commands() {
    for (const MenuRow& row : menuTable())
        if (row.kind == RowKind::Entry || row.kind == RowKind::Choice)
            m_known.insert(row.name);
    for (const auto& table : {toolbarTable(), buttonTable()})
        for (const ButtonRow& row : table)
            if (!row.command.isEmpty())
                m_known.insert(row.command);
}

void Commands::expectKnown(const QString& name) const {
    if (!m_known.contains(name))
        throw std::logic_error("no menu, toolbar or button has the command " + name.toStdString());
}

void Commands::on(const QString& name, Function function, Missing missing) {
    expectKnown(name);
    if (m_commands.contains(name))
        throw std::logic_error("registered twice: " + name.toStdString());
    m_commands.insert(name, {std::move(function), std::move(missing)});
}

void Commands::mark(const QString& name, const Mark& mark) {
    expectKnown(name);
    if (m_marks.contains(name))
        throw std::logic_error("marked twice: " + name.toStdString());
    m_marks.insert(name, mark);
}

QString Commands::missing(const QString& name) const {
    const auto found = m_commands.constFind(name);
    return found != m_commands.constEnd() && found->missing ? found->missing() : QString();
}

const Commands::Mark* Commands::markOf(const QString& name) const {
    const auto found = m_marks.constFind(name);
    return found == m_marks.constEnd() ? nullptr : &*found;
}

void Commands::run(const QString& name, int index) const {
    if (const auto found = m_commands.constFind(name); found != m_commands.constEnd())
        found->function(index);
}

} // namespace mainwin
