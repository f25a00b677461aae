#include "selection/windows/template_window.h"

#include <algorithm>

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QVBoxLayout>

#include "selection/saved_selections.h"
#include "selection/windows/cell_table.h"
#include "selection/windows/saved_picker.h"
#include "toolkit/accent_button.h"
#include "toolkit/card.h"
#include "toolkit/data_grid.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/notice_bar.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace selection {

namespace {

constexpr int kColumnWidth = 176; // both alike; the longer heading fits
constexpr int kKindsWidth = 190;
constexpr QSize kUsefulSize{640, 420};

} // namespace

TemplateWindow::TemplateWindow(const Context& context, QWidget* parent)
    : QDialog(parent), m_context(context), m_notice(new toolkit::NoticeBar(this)), m_kinds(new QListWidget),
      m_grid(new toolkit::DataGrid), m_cells(new CellTable(this)) {
    setObjectName(u"frmSltnum"_s);
    setWindowTitle(u"选号模板"_s);
    m_add = makeButton(new QPushButton(u"添加到模板(&A)"_s), u"Command1"_s, &TemplateWindow::addSteps);
    m_delete = makeButton(new QPushButton(u"从模板删除(&D)"_s), u"Command2"_s, &TemplateWindow::deleteStep);
    m_use = makeButton(new toolkit::AccentButton(u"使用模板选号(&M)"_s), u"Command3"_s, &TemplateWindow::replay);
    auto* cards = new QHBoxLayout;
    cards->addWidget(buildKinds());
    cards->addWidget(buildSteps(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(m_notice);
    layout->addLayout(cards, 1);
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, context.places);
    connect(m_kinds, &QListWidget::itemSelectionChanged, this, &TemplateWindow::showState);
    connect(m_grid->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TemplateWindow::showState);
    reload();
    m_kinds->setFocus();
}

QPushButton* TemplateWindow::makeButton(QPushButton* button, const QString& name, void (TemplateWindow::*act)()) {
    button->setObjectName(name);
    button->setAutoDefault(false); // Enter belongs to what has the focus
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

QWidget* TemplateWindow::buildKinds() {
    auto* card = new toolkit::Card(u"CardKinds"_s, u"可以添加的步骤"_s);
    m_kinds->setObjectName(u"List1"_s);
    m_kinds->setAccessibleName(card->title());
    m_kinds->setToolTip(u"双击或按 Enter 添加；按住 Ctrl 或 Shift 可以选几项"_s);
    m_kinds->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_kinds->setSpacing(2);
    for (const StepKind& kind : kStepKinds)
        m_kinds->addItem(kind.text.toString());
    card->body().addWidget(m_kinds, 1);
    card->body().addWidget(m_add);
    card->setFixedWidth(kKindsWidth);
    connect(m_kinds, &QListWidget::itemActivated, this, &TemplateWindow::addSteps);
    return card;
}

QWidget* TemplateWindow::buildSteps() {
    auto* card = new toolkit::Card(u"CardSteps"_s, u"模板的步骤"_s);
    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(card->title());
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::ExtendedSelection); // several rows can be copied
    m_grid->setEmptyText(u"模板里还没有步骤：在左边选一种步骤，按“添加到模板”。"_s);
    m_grid->setModel(m_cells);
    auto* deletion = new QAction(u"从模板删除"_s, m_grid);
    deletion->setShortcut(QKeySequence::Delete);
    deletion->setShortcutContext(Qt::WidgetShortcut);
    connect(deletion, &QAction::triggered, this, &TemplateWindow::deleteStep);
    m_grid->addAction(deletion);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_delete);
    buttons->addStretch();
    buttons->addWidget(m_use);
    card->body().addWidget(m_grid, 1);
    card->body().addLayout(buttons);
    return card;
}

void TemplateWindow::reload() {
    m_steps = templateSteps(*m_context.workspace.dbFilnum);
    std::vector<CellTable::Row> rows;
    QStringList tips;
    for (const TemplateStep& step : m_steps) {
        rows.push_back({stepText(step.cmd), step.nmb});
        tips << savedText(step);
    }
    m_cells->show(
        {{u"执行步骤"_s, toolkit::CellStyle::Text}, {u"概率选号数目/遗漏最值"_s, toolkit::CellStyle::Number}},
        std::move(rows), tips);
    m_grid->setColumnWidths({kColumnWidth, kColumnWidth});
    showState();
}

QString TemplateWindow::savedText(const TemplateStep& step) const {
    if (step.cmd != kSavedStep)
        return {};
    try {
        QString text;
        for (const int red : savedReds(*m_context.workspace.dbNumsave, step.nmb))
            text += u' ' + QString::number(red);
        return text.isEmpty() ? u"没有这次选号的红球"_s : u"红球："_s + text;
    } catch (const sql::SqlError& failed) { // the steps can be seen and changed without it
        return u"读不到这次选号：%1"_s.arg(workspace::causeOf(failed));
    }
}

void TemplateWindow::showState() {
    const auto say = [](QPushButton& button, bool works, const QString& missing) {
        button.setEnabled(works);
        button.setToolTip(works ? QString() : missing);
    };
    say(*m_add, !m_kinds->selectedItems().isEmpty(), u"先选要添加的步骤"_s);
    say(*m_delete, m_grid->selectionModel()->selectedRows().size() == 1, u"先在表中选一个步骤"_s);
    say(*m_use, !m_steps.empty(), u"模板里还没有步骤"_s);
}

template <class Change> bool TemplateWindow::attempt(const QString& happened, Change run) {
    try {
        run();
        return true;
    } catch (const sql::SqlError& failed) {
        toolkit::DialogBoxes(this).warn(workspace::failureMessage(
            failed, happened, windowTitle(), u"模板和主窗口的选号都没有改变，请排除原因后重试。"_s));
        return false;
    }
}

std::optional<int> TemplateWindow::askNumber(const StepKind& kind) {
    if (kind.ranked) {
        toolkit::DialogBoxes boxes(this);
        return askRankedNumber(boxes, *kind.ranked, PromptStyle::NamesColour);
    }
    const int picked = pickSaved(*m_context.workspace.dbNumsave, kind.text.toString(), m_context.places, this);
    return picked != 0 ? std::optional(picked) : std::nullopt;
}

void TemplateWindow::addSteps() {
    for (int cmd = 0; cmd < m_kinds->count(); ++cmd) {
        if (!m_kinds->item(cmd)->isSelected())
            continue;
        const std::optional<int> number = askNumber(kStepKinds[cmd]);
        if (!number)
            return; // the steps before it stay
        const bool added = attempt(u"步骤没有添加"_s, [&] {
            addStep(*m_context.workspace.dbFilnum, cmd, *number);
            reload();
        });
        if (!added)
            return;
        m_grid->showLastRow();
    }
}

void TemplateWindow::deleteStep() {
    const QModelIndexList marked = m_grid->selectionModel()->selectedRows();
    if (marked.size() != 1)
        return;
    const int row = marked.front().row();
    attempt(u"步骤没有删除"_s, [&] {
        selection::deleteStep(*m_context.workspace.dbFilnum, m_steps[static_cast<std::size_t>(row)].Idx);
        reload();
        if (!m_steps.empty())
            m_grid->selectRow(std::min(row, static_cast<int>(m_steps.size()) - 1));
    });
}

void TemplateWindow::replay() {
    attempt(u"模板没有执行"_s, [&] {
        const Replayed done = replayTemplate(m_context.pad, m_context.workspace, m_context.history.Lsnum);
        m_notice->tell(
            done.reds + done.blues > 0
                ? u"执行了 %1 步，新选 %2 红、%3 蓝。"_s.arg(done.steps).arg(done.reds).arg(done.blues)
                : u"执行了 %1 步，没有新选的号码：符合条件的都已选了，或没有这样的号码。"_s.arg(done.steps));
    });
}

void TemplateWindow::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* button = qobject_cast<QPushButton*>(focusWidget()); isEnter && button)
        button->click();
    else
        QDialog::keyPressEvent(event);
}

} // namespace selection
