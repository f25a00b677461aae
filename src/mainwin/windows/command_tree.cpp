#include "mainwin/windows/command_tree.h"

#include <QAction>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kIconSize = 24;

} // namespace

CommandTree::CommandTree(QMainWindow& window, const Commands& commands, StateReader state)
    : QObject(&window), m_window(window), m_commands(commands), m_state(std::move(state)) {
    buildMenus();
    buildToolbar();
}

void CommandTree::buildMenus() {
    m_window.menuBar()->setObjectName(u"MenuBar"_s);
    std::vector<QMenu*> open; // the menu that rows of each depth belong to, from the bar down
    for (const MenuRow& row : menuTable()) {
        open.resize(static_cast<std::size_t>(row.depth));
        QMenu* above = open.empty() ? nullptr : open.back();
        switch (row.kind) {
        case RowKind::Separator:
            above->addSeparator();
            break;
        case RowKind::Menu:
            open.push_back(addMenu(above, row));
            m_rows.push_back({row, nullptr, open.back()});
            break;
        case RowKind::Entry:
        case RowKind::Choice:
            m_rows.push_back({row, addEntry(*above, row), nullptr});
            break;
        }
    }
}

QMenu* CommandTree::addMenu(QMenu* above, const MenuRow& row) {
    QMenu* menu = above ? above->addMenu(row.caption) : m_window.menuBar()->addMenu(row.caption);
    menu->setObjectName(row.objectName());
    connect(menu, &QMenu::aboutToShow, this, &CommandTree::refresh);
    return menu;
}

QAction* CommandTree::addEntry(QMenu& menu, const MenuRow& row) {
    QAction* entry = menu.addAction(row.caption);
    entry->setObjectName(row.objectName());
    entry->setMenuRole(QAction::NoRole);
    entry->setCheckable(row.kind == RowKind::Choice);
    connect(entry, &QAction::triggered, this, [this, entry, name = row.name, index = row.index] {
        if (entry->isCheckable())
            entry->setChecked(!entry->isChecked()); // the command alone decides which one carries the mark
        m_commands.run(name, index);
    });
    return entry;
}

void CommandTree::buildToolbar() {
    auto* bar = new QToolBar(u"工具栏"_s, &m_window);
    bar->setObjectName(u"Toolbar1"_s);
    bar->setMovable(false);
    bar->setIconSize({kIconSize, kIconSize});
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    for (const ButtonRow& row : toolbarTable()) {
        if (row.name.isEmpty()) {
            bar->addSeparator();
            continue;
        }
        QAction* button = bar->addAction(QIcon(u":/mainwin/icons/%1.svg"_s.arg(row.name)), row.caption);
        button->setObjectName(u"Toolbar1(%1)"_s.arg(row.name));
        button->setToolTip(row.toolTip);
        connect(button, &QAction::triggered, this, [this, command = row.command] { m_commands.run(command, -1); });
        m_buttons.push_back({row, [button](bool enabled) { button->setEnabled(enabled); }});
    }
    m_window.addToolBar(bar);
}

QPushButton* CommandTree::makeButton(const QString& name) {
    for (const ButtonRow& row : buttonTable()) {
        if (row.name != name)
            continue;
        auto* button = new QPushButton(row.caption);
        button->setObjectName(row.name);
        button->setToolTip(row.toolTip);
        connect(button, &QPushButton::clicked, this, [this, command = row.command] { m_commands.run(command, -1); });
        m_buttons.push_back({row, [button](bool enabled) { button->setEnabled(enabled); }});
        return button;
    }
    Q_UNREACHABLE();
}

void CommandTree::refresh() {
    const ProgramState state = m_state();
    for (const Bound& bound : m_rows) {
        const bool offered = allowed(bound.row.needs, state, bound.row.index);
        if (bound.menu)
            bound.menu->setEnabled(offered);
        else
            bound.entry->setEnabled(offered && m_commands.has(bound.row.name));
        if (const auto caption = betCaption(bound.row.name, state.blues)) {
            if (bound.menu)
                bound.menu->setTitle(*caption);
            else
                bound.entry->setText(*caption);
        }
    }
    for (const BoundButton& button : m_buttons)
        button.enable(allowed(button.row.needs, state) && m_commands.has(button.row.command));
}

void CommandTree::check(const QString& name, int index) {
    for (const Bound& bound : m_rows)
        if (bound.entry && bound.row.name == name)
            bound.entry->setChecked(bound.row.index == index);
}

void CommandTree::setChecked(const QString& objectName, bool checked) {
    for (const Bound& bound : m_rows)
        if (bound.entry && bound.row.objectName() == objectName)
            bound.entry->setChecked(checked);
}

} // namespace mainwin
