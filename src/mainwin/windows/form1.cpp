#include "mainwin/windows/form1.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include "mainwin/arrangement.h"
#include "mainwin/windows/arrange_row.h"
#include "mainwin/windows/column_area.h"
#include "mainwin/windows/command_tree.h"
#include "mainwin/windows/draw_panel.h"
#include "mainwin/windows/history_panel.h"
#include "mainwin/windows/places.h"
#include "mainwin/windows/share_panel.h"
#include "selection/windows/pad_panel.h"
#include "toolkit/notice_bar.h"
#include "toolkit/status_panel.h"

using namespace Qt::StringLiterals;

/// Resources of a static library have to be asked for, and that outside of any namespace.
static void loadIcons() {
    Q_INIT_RESOURCE(mainwin);
}

namespace mainwin {

namespace {

constexpr int kBetPanel = 3;         // the third panel of the status bar
constexpr int kUserPanelWidth = 280; // a longer name is cut: the counts beside it have to be seen
constexpr int kPadWidth = 416;
constexpr int kSharesWidth = 374;
constexpr int kHistoryWidth = 446;
constexpr int kColumnGap = 6;

/// On a screen too narrow for all three columns the row of them scrolls; each scrolls up and down by itself.
QWidget* sideways(QWidget* columns) {
    auto* area = new QScrollArea;
    area->setObjectName(u"ScrollColumns"_s);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(columns);
    return area;
}

} // namespace

Form1::Form1(MainContext& context, QWidget* parent) : QMainWindow(parent), m_context(context) {
    loadIcons();
    setObjectName(u"Form1"_s);
    setWindowTitle(u"奥衡星双色球彩票助理"_s);
    m_context.commands.on(u"ext"_s, [this](int) { close(); });
    m_tree = new CommandTree(*this, m_context.commands, [this] { return state(); });
    buildWindow();
    buildStatusBar();
    m_context.pad.setRule(m_context.workspace.Bitnum, m_context.workspace.BitnumB);
    listen();
    showRule();
    showLast();
    toolkit::placeOver(*this, screen()->availableSize());
    toolkit::keepPlace(*this, placesIn(m_context.settings));
}

void Form1::buildWindow() {
    m_shares = new SharePanel;
    m_history = new HistoryPanel(m_context.book);
    for (const char16_t* name : {u"cmdRead", u"Command43", u"Command44", u"Command48"})
        m_history->addButton(m_tree->makeButton(QString::fromUtf16(name)));
    m_tree->adopt(m_history->readButton(), u"cmdReadFirst"_s);

    auto* splitter = new QSplitter(Qt::Horizontal);
    splitter->setObjectName(u"Splitter1"_s);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(kColumnGap);
    splitter->addWidget(new ColumnArea(buildLeft(), u"ScrollLeft"_s));
    splitter->addWidget(new ColumnArea(m_shares, u"ScrollShares"_s));
    splitter->addWidget(m_history);
    splitter->setSizes({kPadWidth, kSharesWidth, kHistoryWidth});
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setStretchFactor(2, 1);
    auto* central = new QWidget;
    central->setObjectName(u"Central"_s);
    m_notice = new toolkit::NoticeBar(central);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(8, 8, 8, 4);
    layout->addWidget(m_notice);
    layout->addWidget(sideways(splitter), 1);
    setCentralWidget(central);
}

QWidget* Form1::buildLeft() {
    m_pad = new selection::PadPanel(m_context.pad);
    m_arrange = new ArrangeRow;
    m_pad->addUnderEcho(m_arrange);
    connect(m_arrange, &ArrangeRow::lastPressed, this, [this] { m_tree->run(u"mnuCallfd"_s); });
    connect(m_tree, &CommandTree::ran, this, &Form1::showLast);
    connect(m_arrange, &ArrangeRow::pressed, this, [this] { m_tree->run(arrangementCommand(state())); });
    m_draw = new DrawPanel;
    for (const char16_t* name : {u"ComSta", u"ComSpd", u"ComRst"})
        m_draw->addButton(m_tree->makeButton(QString::fromUtf16(name)));
    auto* left = new QWidget;
    left->setObjectName(u"Left"_s);
    auto* layout = new QVBoxLayout(left);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(m_pad);
    layout->addWidget(m_draw, 1);
    return left;
}

void Form1::buildStatusBar() {
    statusBar()->setObjectName(u"StatusBar1"_s);
    for (int index = 1; index <= static_cast<int>(m_panels.size()); ++index) {
        auto* panel = new toolkit::StatusPanel(index);
        m_panels[static_cast<std::size_t>(index - 1)] = panel;
        statusBar()->addWidget(panel, index == kBetPanel ? 1 : 0);
    }
    m_panels.front()->setMaximumWidth(kUserPanelWidth);
    m_note = new QLabel;
    m_note->setObjectName(u"HistoryNote"_s);
    m_note->setMinimumWidth(1); // cut, rather than making the window wider
    statusBar()->addPermanentWidget(m_note);
    showHistoryNote({});
}

/// The panel of the history listens by itself, before the window does.
void Form1::listen() {
    const history::Book& book = m_context.book;
    connect(&book, &history::Book::appended, this, &Form1::showFigures);
    connect(&book, &history::Book::removed, this, &Form1::showFigures);
    connect(&book, &history::Book::corrected, this, &Form1::showFigures);
    connect(&book, &history::Book::replaced, this, &Form1::showFigures);
    connect(&m_context.pad, &selection::Pad::changed, this, [this] {
        refreshCommands();
        showStatus();
    });
    const selection::Simulator& simulator = m_context.simulator;
    connect(&simulator, &selection::Simulator::controlsChanged, this, &Form1::refreshCommands);
    connect(&simulator, &selection::Simulator::picksChanged, this,
            [this] { m_draw->showPicks(m_context.simulator); });
    connect(&simulator, &selection::Simulator::ticked, this, &Form1::showTick);
    connect(&simulator, &selection::Simulator::zeroed, this, [this] { m_draw->clear(m_context.simulator); });
}

void Form1::showRule() {
    m_draw->showPicks(m_context.simulator);
    m_draw->trace().setLogicalHeight(m_context.workspace.Bitnum);
    showFigures();
}

/// What depends on the history outside of its grid.
void Form1::showFigures() {
    m_shares->showShares(m_context.book.history(), m_context.workspace.Bitnum, m_context.workspace.BitnumB);
    refreshCommands();
    showStatus();
}

void Form1::showTick() {
    m_draw->showTick(m_context.simulator);
    m_shares->showDraw(m_context.simulator.Share, m_context.pad.reds(), m_context.pad.Redcnt);
}

void Form1::showLast() {
    m_arrange->showLast(m_context.workspace.dbFilnum ? lastBets(*m_context.workspace.dbFilnum) : QString());
}

void Form1::showHistoryNote(const QString& note) {
    m_note->setText(note);
    m_note->setToolTip(note);
    m_note->setVisible(!note.isEmpty());
}

void Form1::refreshCommands() {
    m_tree->refresh();
    const ProgramState now = state();
    const Obstacle obstacle = m_tree->waitsFor(arrangementCommand(now));
    if (obstacle.stands())
        m_arrange->showMissing(obstacle.text(), arrangementOutlook(now));
    else
        m_arrange->showReady(arrangementCost(arrangementBets(now)), arrangementForm(now));
}

void Form1::showStatus() {
    const workspace::Workspace& workspace = m_context.workspace;
    m_panels[0]->setText(u"用户：%1"_s.arg(workspace.Username));
    m_panels[1]->setText(u"历史：%1期"_s.arg(m_context.book.history().Lsnum));
    m_panels[2]->setText(m_context.pad.statusText());
    m_panels[3]->setText(u"红球%1选6，蓝球%2选1"_s.arg(workspace.Bitnum).arg(workspace.BitnumB));
}

ProgramState Form1::state() const {
    const selection::Pad& pad = m_context.pad;
    return {.draws = m_context.book.history().Lsnum,
            .reds = pad.Redcnt,
            .bankers = pad.Dancnt,
            .blues = pad.Bluecnt,
            .draw = m_context.simulator.controls(),
            .drawRunning = m_context.simulator.isRunning(),
            .drawPicks = m_context.simulator.Picknum};
}

void Form1::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    emit closed();
}

} // namespace mainwin
