#include "filter/windows/filter_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

#include "filter/windows/parameter_table.h"
#include "filter/windows/result_panel.h"
#include "filter/windows/run_panel.h"
#include "filter/windows/step_list.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/messages.h"
#include "toolkit/notice_bar.h"
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
constexpr qreal kRoomyShare = 0.95;     // of a larger work area: the columns and the grid use the room
constexpr int kMargin = 8;
constexpr int kFirst = 1000; // stretch: these columns take their widest before the grid grows
// Widths of the window and of its first two columns: they grow evenly from the one to the other.
constexpr struct { int window, table, middle; } kNarrow{1280, 442, 236}, kWide{1920, 640, 300};

int between(int narrow, int wide, int window) {
    return narrow + (wide - narrow) * (std::clamp(window, kNarrow.window, kWide.window) - kNarrow.window) /
                        (kWide.window - kNarrow.window);
}

const QString kStillThere = u"结果仍在程序中，没有丢失；请排除原因后再操作一次，程序会重新写入。"_s;

const workspace::Message kAdd{
    u"是否把目前组合缩水后的号码加入组号模板里面，以后可以多次加入模板，并通过调用组号模板在模板基础上进行"
    "缩水过滤（加入到模板的组号如果有与模板相重复的会自动滤除）"_s,
    u"添加组号模板"_s};
const workspace::Message kClear{u"是否把目前组号模板清空？清空后可以重新添加新的组号模板。)"_s, u"清空组号模板"_s};

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

FilterWindow::FilterWindow(const FilterMember& member, const FilterContext& context, QWidget* parent)
    : QDialog(parent, Qt::Window), m_member(member), m_context(context),
      m_session(member, {context.dbFilnum, context.history, context.Bitnum, context.Baoliu}),
      m_table(new ParameterTable(member.catalogue(), this)), m_panel(new RunPanel(member, this)),
      m_steps(new StepList(member.catalogue().empty() ? u"还没有步骤"_s : u"还没有步骤：按参数名称开始过滤"_s, this)),
      m_results(new ResultPanel(member, this)), m_notice(new toolkit::NoticeBar(this)) {
    setObjectName(text(member.form));
    setWindowTitle(text(member.title));
    layOut();
    toolkit::placeOver(*this, kUsefulSize.expandedTo(screen()->availableSize() * kRoomyShare));
    toolkit::keepPlace(*this, m_context.places);
    setBaoliu();
    for (const auto& [timer, wait] : {std::pair(&m_idle, kIdleMs), std::pair(&m_latest, kLatestMs)}) {
        timer->setSingleShot(true);
        timer->setInterval(wait);
        connect(timer, &QTimer::timeout, this, &FilterWindow::storeNow);
    }
    connectParts();
    const WindowState opened = state();
    for (const Parameter& parameter : member.catalogue())
        showPast(parameter, opened);
}

void FilterWindow::connectParts() {
    connect(m_table, &ParameterTable::parameterPressed, this, &FilterWindow::press);
    connect(m_table, &ParameterTable::rangeEdited, this,
            [this](const Parameter& parameter) { showPast(parameter, state()); });
    connect(m_panel, &RunPanel::modePressed, this, [this](Mode mode) { m_table->showLists(mode == Mode::List); });
    connect(m_panel, &RunPanel::keepClicked, this, &FilterWindow::setBaoliu);
    connect(m_results, &ResultPanel::stepWanted, this, &FilterWindow::run);
    connect(m_results, &ResultPanel::rowDoubleClicked, this, &FilterWindow::toggleRow);
    connect(m_results, &ResultPanel::templateWanted, this, &FilterWindow::changeTemplate);
    connect(m_results, &ResultPanel::reasonsWanted, this, [this] {
        const toolkit::BusyCursor busy;
        m_results->show(m_session.reasons(), ResultPanel::Shows::Reasons);
    });
    connect(m_results, &ResultPanel::pageWanted, this, [this] {
        const toolkit::BusyCursor busy;
        m_results->show(m_session.page(m_results->pageNumber()), ResultPanel::Shows::Page);
    });
}

FilterWindow::~FilterWindow() {
    storeNow();
}

void FilterWindow::layOut() {
    m_middle = buildMiddle();
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    all->setSpacing(kMargin);
    all->addWidget(m_notice);
    m_notice->hide();
    auto* line = new QHBoxLayout;
    all->addLayout(line, 1);
    line->setSpacing(kMargin);
    line->addWidget(m_table, kFirst);
    line->addWidget(m_middle, kFirst);
    line->addWidget(m_results, 1);
    m_table->setMinimumWidth(kNarrow.table);
    m_middle->setMinimumWidth(kNarrow.middle);
}

QWidget* FilterWindow::buildMiddle() {
    auto* middle = new QWidget(this);
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kMargin);
    column->addWidget(m_panel);
    auto* steps = new toolkit::Card(u"StepCard"_s, u"步骤"_s, middle);
    steps->body().addWidget(m_steps, 1);
    column->addWidget(steps, 1);
    return middle;
}

void FilterWindow::resizeEvent(QResizeEvent* event) {
    m_table->setMaximumWidth(between(kNarrow.table, kWide.table, width()));
    m_middle->setMaximumWidth(between(kNarrow.middle, kWide.middle, width()));
    QDialog::resizeEvent(event);
}

void FilterWindow::showPast(const Parameter& parameter, const WindowState& state) {
    const workspace::Rule rule{.reds = m_context.Bitnum, .blues = m_context.BitnumB};
    m_table->showPast(parameter, possibleRange(parameter, rule, m_context.history), m_session.past(parameter, state));
}

void FilterWindow::setNotice(const QString& text) {
    if (text.isEmpty())
        m_notice->hide();
    else
        m_notice->tell(text);
}

bool FilterWindow::load(selection::BetSource& source, workspace::Progress* progress) {
    const toolkit::BusyCursor busy;
    const Outcome outcome = m_session.generate(source, progress);
    showOutcome(outcome);
    scheduleStore();
    return !outcome.cancelled;
}

WindowState FilterWindow::state() const {
    WindowState state;
    m_panel->read(state);
    m_table->read(state);
    return state;
}

void FilterWindow::press(const Parameter& parameter) {
    m_table->markRun(parameter);
    run(Press{&parameter});
}

Outcome FilterWindow::run(const Step& step) {
    const toolkit::BusyCursor busy;
    Outcome outcome = m_session.run(step, state());
    showOutcome(outcome);
    scheduleStore();
    return outcome;
}

void FilterWindow::toggleRow(int row) {
    const Outcome outcome = run(Toggle{m_results->indexText(row).toStdString()});
    if (row >= 0 && outcome.toggled != Toggled::NotFound)
        m_results->setGrey(row, outcome.toggled == Toggled::TakenOut);
}

void FilterWindow::changeTemplate() {
    if (!toolkit::DialogBoxes(this).confirm(m_member.groupTemplate ? kClear : kAdd, workspace::Risk::Loss))
        return;
    if (m_member.groupTemplate) {
        run(ClearTemplate{});
        setNotice(u"组号模板已清空"_s);
        return;
    }
    const std::optional<Gathered> gathered = run(AddToTemplate{}).gathered;
    setNotice(gathered ? u"已加入 %1 注，模板共 %2 注"_s.arg(toolkit::countText(gathered->added),
                                                             toolkit::countText(gathered->total))
                       : u"没有加入组号模板：模板不能重建。模板和这里的组合都和原来一样；请再操作一次"_s);
}

void FilterWindow::showOutcome(const Outcome& outcome) {
    if (outcome.refill)
        m_results->show(outcome.view, ResultPanel::Shows::Left);
    const auto& steps = m_session.steps();
    m_results->tell(outcome, m_session.total(),
                    steps.empty() ? QString() : QString::fromStdString(steps.back().what));
    m_steps->show(steps);
    setWindowTitle(QString::fromStdString(m_session.title()));
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
