#include "filter/windows/filter_window.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>

#include "filter/windows/parameter_table.h"
#include "filter/windows/result_panel.h"
#include "filter/windows/run_panel.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/messages.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

// Long enough that a row of quick presses is stored once, short enough that a pause is safe: the full table is stored
// in about a fifth of a second.
constexpr int kIdleMs = 600;
// However quickly one press follows another: at the latest this long after the first of them all are stored.
constexpr int kLatestMs = 2000;
constexpr QSize kUsefulSize{1264, 762}; // fills a work area of 1280 x 800 with its frame and title

const QString kStillThere = u"结果仍在程序中，没有丢失；请排除原因后再操作一次，程序会重新写入。"_s;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

FilterWindow::FilterWindow(const FilterMember& member, const FilterContext& context, QWidget* parent)
    : QDialog(parent, Qt::Window), m_member(member), m_context(context),
      m_run({context.dbFilnum, member.table, context.history, context.Bitnum}),
      m_states(context.dbFilnum, member.table), m_view(context.dbFilnum, m_member),
      m_table(new ParameterTable(member.catalogue(), this)), m_panel(new RunPanel(member.blue, this)),
      m_results(new ResultPanel(this)) {
    setObjectName(text(member.form));
    setWindowTitle(text(member.title));
    layOut();
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, m_context.places);
    setBaoliu();
    for (const auto& [timer, wait] : {std::pair(&m_idle, kIdleMs), std::pair(&m_latest, kLatestMs)}) {
        timer->setSingleShot(true);
        timer->setInterval(wait);
        connect(timer, &QTimer::timeout, this, &FilterWindow::storeNow);
    }
    connect(m_table, &ParameterTable::parameterPressed, this, &FilterWindow::press);
    connect(m_panel, &RunPanel::modePressed, this, &FilterWindow::changeMode);
    connect(m_panel, &RunPanel::keepClicked, this, &FilterWindow::setBaoliu);
    connect(m_results, &ResultPanel::rowDoubleClicked, this, &FilterWindow::toggleRow);
    connect(m_results, &ResultPanel::pageWanted, this, [this] {
        const toolkit::BusyCursor busy;
        m_results->show(m_view.page(m_results->pageNumber()));
    });
}

FilterWindow::~FilterWindow() {
    storeNow();
}

void FilterWindow::layOut() {
    m_tableArea = new QScrollArea(this);
    m_tableArea->setObjectName(u"ParameterRows"_s);
    m_tableArea->setWidgetResizable(true);
    m_tableArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tableArea->setWidget(m_table);
    fitTableArea();

    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(8, 8, 8, 8);
    line->addWidget(m_tableArea);
    line->addWidget(buildMiddle());
    line->addWidget(m_results, 1);
}

void FilterWindow::changeMode(Mode mode) {
    m_table->showLists(mode == Mode::List);
    fitTableArea();
}

/// The columns that list mode shows make the table wider: its area follows.
void FilterWindow::fitTableArea() {
    m_table->layout()->activate();
    m_tableArea->setFixedWidth(m_table->minimumSizeHint().width() +
                               m_tableArea->verticalScrollBar()->sizeHint().width() + 4);
}

QWidget* FilterWindow::buildMiddle() {
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_panel);
    column->addWidget(buildReasonChoice());
    addStateButtons(column);
    column->addStretch();
    auto* area = new QScrollArea(this);
    area->setObjectName(u"RunControls"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(content);
    area->setFixedWidth(content->minimumSizeHint().width() + 2);
    return area;
}

QWidget* FilterWindow::buildReasonChoice() {
    auto* box = new QGroupBox(u"过滤缘故显示"_s, this);
    box->setObjectName(u"FrameReasons"_s);
    auto* column = new QVBoxLayout(box);
    auto* left = new QRadioButton(u"过滤剩余"_s, box);
    left->setObjectName(u"optZzuhe(0)"_s);
    left->setChecked(true);
    auto* all = new QRadioButton(u"所有组合(含被过滤)显示"_s, box);
    all->setObjectName(u"optZzuhe(1)"_s);
    column->addWidget(left);
    column->addWidget(all);
    connect(all, &QRadioButton::clicked, this, [this] {
        const toolkit::BusyCursor busy;
        m_results->show(m_view.reasons());
    });
    return box;
}

QPushButton* FilterWindow::makeButton(const QString& name, const QString& caption, const QString& toolTip) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

void FilterWindow::addStateButtons(QVBoxLayout* column) {
    const struct {
        QString name, caption, toolTip;
        void (RowStates::*operation)() const;
    } buttons[] = {
        {u"Command1"_s, u"全部复位(&S)"_s, u"回收所有被滤掉的组合"_s, &RowStates::resetAll},
        {u"cmdRetn"_s, u"上次过滤复位(&T)"_s, u"回收上次过滤被滤掉的组合"_s, &RowStates::restoreLast},
        {u"Command2"_s, u"全部组号反选(&U)"_s, u"反选所有被滤掉的组合"_s, &RowStates::invertAll},
        {u"Command3"_s, u"上一步过滤反选(&R)"_s, u"反选上次被滤掉的组合"_s, &RowStates::invertLast},
    };
    for (const auto& row : buttons) {
        QPushButton* button = makeButton(row.name, row.caption, row.toolTip);
        column->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, operation = row.operation] { changeStates(operation); });
    }
    QPushButton* print = makeButton(u"CmdPrint"_s, u"打印预览(&P)"_s, {});
    print->setEnabled(false); // there is no print preview in this program yet
    column->addWidget(print);
}

void FilterWindow::load(selection::GenerationInput& input, const selection::Progress& progress) {
    const toolkit::BusyCursor busy;
    const selection::Generated generated =
        selection::generate(m_context.dbFilnum, shapeOf(m_member), input, progress);
    m_results->show(m_view.generated());
    setWindowTitle(QString::fromStdString(m_view.title(generated.announced)));
    scheduleStore();
}

void FilterWindow::press(const Parameter& parameter) {
    const toolkit::BusyCursor busy;
    m_table->markUsed(parameter);
    RunSettings settings = m_panel->settings();
    settings.Baoliu = m_context.Baoliu;
    m_table->readInterval(settings);
    m_run.press(parameter, m_table->input(parameter), settings);
    showCounted(parameter.column.empty() ? m_view.inPlay(parameter.gridTitle) : m_view.inPlay());
    scheduleStore();
}

void FilterWindow::changeStates(void (RowStates::*operation)() const) {
    const toolkit::BusyCursor busy;
    (m_states.*operation)();
    showCounted(m_view.inPlay());
    scheduleStore();
}

void FilterWindow::toggleRow(int row) {
    const Toggled toggled = m_states.toggle(m_results->indexText(row).toStdString());
    if (row >= 0 && toggled != Toggled::NotFound)
        m_results->setGrey(row, toggled == Toggled::TakenOut);
    setWindowTitle(QString::fromStdString(m_view.title(m_view.countInPlay())));
    scheduleStore();
}

void FilterWindow::showCounted(View view) {
    m_results->show(std::move(view));
    setWindowTitle(QString::fromStdString(m_view.title(m_results->shownRows())));
}

void FilterWindow::setBaoliu() {
    m_context.Baoliu = m_panel->keeps() ? kKeep : kRemove;
}

void FilterWindow::scheduleStore() {
    m_failureTold = false;
    m_idle.start();
    if (!m_latest.isActive())
        m_latest.start();
}

void FilterWindow::storeNow() {
    m_idle.stop();
    m_latest.stop();
    if (!m_context.dbFilnum.storePending())
        return;
    try {
        m_context.dbFilnum.store();
    } catch (const sql::SqlError& error) {
        if (m_failureTold)
            return; // the same changes failed before; they stay pending
        m_failureTold = true;
        toolkit::showMessage(
            this, workspace::failureMessage(error, u"过滤结果没有写入文件"_s, u"数据库错误"_s, kStillThere),
            {QMessageBox::Critical});
    }
}

void FilterWindow::done(int result) {
    storeNow();
    QDialog::done(result);
}

void FilterWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) // only its frame closes this window
        event->ignore();
    else
        QDialog::keyPressEvent(event);
}

} // namespace filter
