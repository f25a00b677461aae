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

void Commands::caption(const QString& name, const Caption& caption) {
    expectKnown(name);
    if (m_captions.contains(name))
        throw std::logic_error("named twice: " + name.toStdString());
    m_captions.insert(name, caption);
}

void Commands::opening(const QString& menu, const std::function<void()>& function) {
    if (m_openings.contains(menu))
        throw std::logic_error("opened twice: " + menu.toStdString());
    m_openings.insert(menu, function);
}

QString Commands::missing(const QString& name, int index) const {
    const auto found = m_commands.constFind(name);
    return found != m_commands.constEnd() && found->missing ? found->missing(index) : QString();
}

std::optional<QString> Commands::captionOf(const QString& name, int index) const {
    const auto found = m_captions.constFind(name);
    return found == m_captions.constEnd() ? std::nullopt : (*found)(index);
}

void Commands::runOpening(const QString& menu) const {
    if (const auto found = m_openings.constFind(menu); found != m_openings.constEnd())
        (*found)();
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
