#include "mainwin/windows/command_tree.h"

#include <algorithm>
#include <cassert>

#include <QAction>
#include <QHelpEvent>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kIconSize = 24;
const QString kNotThere = u"这项功能还没有提供"_s;

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
    menu->setToolTipsVisible(true);
    connect(menu, &QMenu::aboutToShow, this, [this, name = row.name] {
        m_commands.runOpening(name);
        refresh();
    });
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
        run(name, index);
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
        connect(button, &QAction::triggered, this, [this, command = row.command] { run(command); });
        QWidget* face = bar->widgetForAction(button);
        face->installEventFilter(this);
        m_buttons.push_back(
            {row, [button, face, name = row.name](const ProgramState& state, const Obstacle& obstacle) {
                 button->setEnabled(!obstacle.stands());
                 if (const auto toolTip = drawToolTip(name, state.draw))
                     button->setToolTip(*toolTip);
                 face->setAccessibleDescription(obstacle.text());
             }});
    }
    m_window.addToolBar(bar);
}

QPushButton* CommandTree::makeButton(const QString& name) {
    auto* button = new QPushButton;
    adopt(*button, name);
    return button;
}

void CommandTree::adopt(QPushButton& button, const QString& name) {
    const std::vector<ButtonRow> table = buttonTable();
    const auto row =
        std::find_if(table.begin(), table.end(), [&](const ButtonRow& each) { return each.name == name; });
    assert(row != table.end());
    button.setText(row->caption);
    button.setObjectName(name);
    button.setToolTip(row->toolTip);
    connect(&button, &QPushButton::clicked, this, [this, command = row->command] { run(command); });
    m_buttons.push_back(
        {*row, [&button, name, told = row->toolTip](const ProgramState& state, const Obstacle& obstacle) {
             button.setEnabled(!obstacle.stands());
             if (const auto caption = drawCaption(name, state.draw); caption && *caption != button.text())
                 button.setText(*caption);
             button.setToolTip(told.isEmpty() ? obstacle.text() : told);
         }});
}

Obstacle CommandTree::obstacleOf(const QString& command, Needs needs, const ProgramState& state, int index) const {
    if (!m_commands.isRegistered(command))
        return {{}, kNotThere};
    Obstacle found = obstacle(needs, state, index);
    if (!found.stands())
        found.words = m_commands.missing(command, index);
    return found;
}

Obstacle CommandTree::waitsFor(const QString& name) const {
    for (const Bound& bound : m_rows)
        if (bound.entry && bound.row.name == name)
            return obstacleOf(name, bound.row.needs, m_state(), bound.row.index);
    return {{}, kNotThere};
}

void CommandTree::run(const QString& name, int index) {
    m_commands.run(name, index);
    refresh();
    emit ran();
}

void CommandTree::refresh() {
    const ProgramState state = m_state();
    for (const Bound& bound : m_rows)
        if (bound.entry)
            refreshEntry(bound, state);
    refreshMenus(state);
    for (const BoundButton& button : m_buttons)
        button.show(state, obstacleOf(button.row.command, button.row.needs, state, MenuRow::kNoIndex));
}

void CommandTree::refreshEntry(const Bound& bound, const ProgramState& state) {
    const Obstacle obstacle = obstacleOf(bound.row.name, bound.row.needs, state, bound.row.index);
    bound.entry->setEnabled(!obstacle.stands());
    bound.entry->setToolTip(obstacle.text());
    if (const auto caption = betCaption(bound.row.name, state.blues))
        bound.entry->setText(*caption);
    if (const auto caption = drawCaption(bound.row.name, state.draw))
        bound.entry->setText(*caption);
    if (const auto caption = m_commands.captionOf(bound.row.name, bound.row.index))
        bound.entry->setText(*caption);
    if (const Commands::Mark* mark = m_commands.markOf(bound.row.name))
        bound.entry->setChecked((*mark)(bound.row.index));
}

/// From the innermost menu out: one without an entry that could be chosen is disabled itself.
void CommandTree::refreshMenus(const ProgramState& state) {
    for (auto bound = m_rows.rbegin(); bound != m_rows.rend(); ++bound) {
        QMenu* menu = bound->menu;
        if (!menu)
            continue;
        const Obstacle found = obstacle(bound->row.needs, state, bound->row.index);
        const auto entries = menu->actions();
        const bool any = std::any_of(entries.begin(), entries.end(), [](const QAction* entry) {
            return !entry->isSeparator() && entry->isEnabled();
        });
        menu->setEnabled(any && !found.stands());
        menu->menuAction()->setToolTip(found.text());
        if (const auto caption = betCaption(bound->row.name, state.blues))
            menu->setTitle(*caption);
    }
}

/// The tool tip of a tool button stays what it is; while the button is disabled it says below it what it waits for.
bool CommandTree::eventFilter(QObject* watched, QEvent* event) {
    auto* face = qobject_cast<QWidget*>(watched);
    if (event->type() != QEvent::ToolTip || !face || face->isEnabled())
        return QObject::eventFilter(watched, event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       face->toolTip() + u'\n' + face->accessibleDescription(), face);
    return true;
}

} // namespace mainwin
