#include "filter/windows/filter_window.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

#include "filter/range_search.h"
#include "filter/super_questions.h"
#include "filter/ticked_export.h"
#include "filter/tolerance.h"
#include "filter/windows/integrated_page.h"
#include "filter/windows/parameter_table.h"
#include "filter/windows/result_panel.h"
#include "filter/windows/run_panel.h"
#include "filter/windows/super_page.h"
#include "filter/windows/template_page.h"
#include "output/sheet_export.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/notice_bar.h"
#include "toolkit/page_tabs.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

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

const workspace::Message kAdd{
    u"是否把目前组合缩水后的号码加入组号模板里面，以后可以多次加入模板，并通过调用组号模板在模板基础上进行"
    "缩水过滤（加入到模板的组号如果有与模板相重复的会自动滤除）"_s,
    u"添加组号模板"_s};
const workspace::Message kClear{u"是否把目前组号模板清空？清空后可以重新添加新的组号模板。)"_s, u"清空组号模板"_s};

} // namespace

FilterWindow::FilterWindow(const FilterMember& member, const FilterContext& context, QWidget* parent)
    : QDialog(parent, Qt::Window), m_member(member), m_context(context),
      m_session(member, {context.dbFilnum, context.history, context.Bitnum, context.Baoliu}),
      m_store(context.dbFilnum, *this), m_table(new ParameterTable(member.catalogue(), this)),
      m_panel(new RunPanel(member, this)), m_pages(new toolkit::PageTabs(u"FilterPages"_s, this)),
      m_integrated(new IntegratedPage(member, m_pages)), m_supers(new SuperPage(member, m_pages)),
      m_results(new ResultPanel(member, this)), m_notice(new toolkit::NoticeBar(this)) {
    setObjectName(QString::fromUtf8(member.form));
    setWindowTitle(QString::fromUtf8(member.title));
    layOut();
    m_integrated->write(defaultState(member.catalogue()));
    toolkit::placeOver(*this, kUsefulSize.expandedTo(screen()->availableSize() * kRoomyShare));
    toolkit::keepPlace(*this, m_context.places);
    setBaoliu();
    connectParts();
    if (m_templatePage)
        m_template = new TemplateControl(member, context.dbFilnum, *this, *m_templatePage, context.places, *this);
    showAllPast();
    tellTicks();
}

void FilterWindow::connectParts() {
    connectTable();
    connectPages();
    connect(m_panel, &RunPanel::modePressed, this, [this](Mode mode) { m_table->showLists(mode == Mode::List); });
    connect(m_panel, &RunPanel::modePressed, this, &FilterWindow::tellTicks);
    connect(m_panel, &RunPanel::keepClicked, this, &FilterWindow::setBaoliu);
    connect(m_panel, &RunPanel::keepClicked, this, &FilterWindow::tellTicks);
    connect(m_results, &ResultPanel::stepWanted, this, &FilterWindow::run);
    connect(m_results, &ResultPanel::recordWanted, this, [this](int code) { m_template->recordInvert(code); });
    connect(m_results, &ResultPanel::rowDoubleClicked, this, &FilterWindow::toggleRow);
    connect(m_results, &ResultPanel::templateWanted, this, &FilterWindow::changeTemplate);
    connect(m_results, &ResultPanel::printWanted, this, &FilterWindow::print);
    connect(m_results, &ResultPanel::reasonsWanted, this, [this] {
        const toolkit::BusyCursor busy;
        m_results->show(m_session.reasons(), ResultPanel::Shows::Reasons);
        m_counted = false;
    });
    connect(m_results, &ResultPanel::pageWanted, this, [this] {
        const toolkit::BusyCursor busy;
        m_results->show(m_session.page(m_results->pageNumber()), ResultPanel::Shows::Page);
        m_counted = false;
    });
    connect(m_notice, &toolkit::NoticeBar::actionPressed, this, [this] {
        m_notice->hide();
        if (const auto undo = std::exchange(m_undo, {}))
            undo();
    });
}

void FilterWindow::connectTable() {
    connect(m_table, &ParameterTable::parameterPressed, this, &FilterWindow::press);
    connect(m_table, &ParameterTable::rangeEdited, this, [this](const Parameter& parameter) {
        if (!m_writing)
            showPast(parameter, state());
    });
    connect(m_table, &ParameterTable::boxEdited, this, &FilterWindow::tellTicks);
    connect(m_table, &ParameterTable::periodPicked, this, [this](const Parameter& parameter) { search(&parameter); });
    connect(m_table, &ParameterTable::allPeriodsPicked, this, [this] { search(nullptr); });
    connect(m_table, &ParameterTable::tickClicked, this, [this] {
        WindowState ticked = state();
        ticked.toleranceCount = countAfterTick(ticked);
        m_integrated->write(ticked);
        tellTicks();
    });
}

void FilterWindow::connectPages() {
    connect(m_integrated, &IntegratedPage::runWanted, this, [this] { run(Integrated{}); });
    connect(m_integrated, &IntegratedPage::recordWanted, this, [this] { m_template->recordIntegrated(); });
    connect(m_integrated, &IntegratedPage::exportWanted, this, &FilterWindow::exportTicked);
    connect(m_integrated, &IntegratedPage::edited, this, &FilterWindow::tellTicks);
    connect(m_integrated, &IntegratedPage::toleranceLeft, this, &FilterWindow::followTolerance);
    connect(m_supers, &SuperPage::filterPressed, this, &FilterWindow::pressSuper);
}

FilterWindow::~FilterWindow() = default;

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
    buildPages();
    column->addWidget(m_pages, 1);
    return middle;
}

void FilterWindow::buildPages() {
    m_pages->addPage(u"整合"_s, m_integrated);
    m_pages->addPage(u"超级"_s, m_supers);
    if (!m_member.features.templates)
        return;
    m_templatePage = new TemplatePage(m_pages);
    m_pages->addPage(u"模板设置"_s, m_templatePage);
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

void FilterWindow::showAllPast() {
    const WindowState now = state();
    for (const Parameter& parameter : m_member.catalogue())
        showPast(parameter, now);
}

void FilterWindow::tellTicks() {
    if (m_writing)
        return;
    const WindowState now = state();
    const int ticks = static_cast<int>(std::ranges::count_if(now.rows, &RowState::ticked));
    m_pages->setCaption(0, ticks > 0 ? u"整合 %1"_s.arg(ticks) : u"整合"_s);
    m_integrated->tell(now);
}

void FilterWindow::setNotice(const QString& text) {
    if (m_undo && !text.isEmpty())
        m_notice->tell(text + u"　"_s + m_undone, m_undoCaption); // what can be taken back stays so
    else if (!m_undo && text.isEmpty())
        m_notice->hide();
    else if (!m_undo)
        m_notice->tell(text);
}

bool FilterWindow::load(selection::BetSource& source, workspace::Progress* progress) {
    const toolkit::BusyCursor busy;
    const Outcome outcome = m_session.generate(source, progress);
    write(searchedAtOpening(state(), m_member.catalogue(), m_context.history));
    showOutcome(outcome);
    m_store.changed();
    return !outcome.cancelled;
}

WindowState FilterWindow::state() const {
    WindowState state;
    m_panel->read(state);
    m_table->read(state);
    m_integrated->read(state);
    return state;
}

void FilterWindow::write(const WindowState& state) {
    m_writing = true;
    m_panel->write(state);
    m_table->write(state);
    m_integrated->write(state);
    m_writing = false;
    showAllPast();
    tellTicks();
}

void FilterWindow::tellWithUndo(const QString& text, const QString& action, std::function<void()> undo) {
    m_undo = std::move(undo);
    m_undone = text;
    m_undoCaption = action;
    m_notice->tell(text, action);
}

void FilterWindow::search(const Parameter* parameter) {
    const WindowState now = state();
    write(parameter ? searchedForRow(now, *parameter, m_context.history)
                    : searchedForAll(now, m_member.catalogue(), m_context.history));
}

void FilterWindow::followTolerance(bool percent) {
    WindowState left = state();
    if (percent)
        left.toleranceCount = countAfterPercent(left);
    else if (const std::optional<std::string> share = percentAfterCount(left))
        left.tolerancePercent = *share;
    else
        setNotice(u"还没有勾选参数，容错百分比无法计算；各框没有改变"_s);
    m_integrated->write(left);
}

void FilterWindow::pressSuper(const SuperFilter& filter, Qt::MouseButton button) {
    m_supers->markUsed(filter);
    toolkit::DialogBoxes boxes(this);
    const std::optional<Step> step =
        askSuperFilter(filter, {m_member, m_context.Bitnum, m_context.history.Lsnum}, boxes);
    if (!step)
        return;
    if (button == Qt::RightButton && m_template)
        m_template->recordAnswers(filter, *step);
    else
        run(*step);
}

void FilterWindow::press(const Parameter& parameter) {
    m_table->markRun(parameter);
    run(Press{&parameter});
}

Outcome FilterWindow::run(const Step& step) {
    const toolkit::BusyCursor busy;
    if (std::holds_alternative<Integrated>(step))
        m_integrated->markUsed();
    std::unique_ptr<workspace::Progress> progress; // not for a press of a parameter: it must feel instant
    if (reportsProgress(step))
        progress = toolkit::DialogBoxes(this).progress(u"正在过滤；取消后组合和原来一样"_s);
    Outcome outcome = m_session.run(step, state(), progress.get());
    showOutcome(outcome);
    if (outcome.cancelled)
        setNotice(u"已取消，组合和原来一样"_s);
    m_store.changed();
    return outcome;
}

void FilterWindow::toggleRow(int row) {
    const Outcome outcome = run(Toggle{m_results->indexText(row).toStdString()});
    m_counted = true;
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

void FilterWindow::exportTicked() {
    toolkit::DialogBoxes boxes(this);
    const std::filesystem::path file = m_context.folder / m_member.exportName;
    const QString place = workspace::toQString(file);
    try {
        const toolkit::BusyCursor busy;
        const TickedExport rows(
            m_member,
            {m_context.dbFilnum, m_member.table, m_context.history, m_context.Bitnum, m_member.reds, m_member.blue},
            state());
        m_store.changed(); // the values are in the table now
        QString former;
        if (output::writeKeeping(rows.sheet(), file, boxes, QDateTime::currentDateTime(), former) ==
            output::Written::GivenUp)
            return;
        setNotice(u"已导出到“%1”"_s.arg(place) +
                  (former.isEmpty() ? QString() : u"，原来的文件现在叫“%1”"_s.arg(former)));
    } catch (const std::exception& failed) {
        boxes.warn(workspace::failureMessage(failed, u"没有导出到“%1”"_s.arg(place), u"多选参数导出"_s,
                                             u"组合和原有的文件都没有改变，请排除原因后重试。"_s));
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(place)))
        boxes.tell({.text = u"您的电脑没有安装Microsoft Excel表格软件，多参数列表无法显示"_s,
                    .title = u"列表显示错误"_s,
                    .note = u"表格已经写入“%1”。"_s.arg(place)});
}

void FilterWindow::print() {
    const sql::Rows rows =
        m_counted ? ResultView(m_context.dbFilnum, m_member).inPlay().rows : m_results->shownRows();
    const auto latest = static_cast<std::size_t>(m_context.history.Lsnum);
    printBets(m_member, rows, m_context.history.Lshm[latest][0], m_context.printing, *this);
}

void FilterWindow::showOutcome(const Outcome& outcome) {
    if (outcome.refill) {
        m_results->show(outcome.view, ResultPanel::Shows::Left);
        m_counted = false;
    }
    const auto& steps = m_session.steps();
    m_results->tell(outcome, m_session.total(),
                    steps.empty() ? QString() : QString::fromStdString(steps.back().what));
    m_results->showSteps(steps);
    setWindowTitle(QString::fromStdString(m_session.title()));
}

void FilterWindow::setBaoliu() {
    m_context.Baoliu = m_panel->keeps() ? kKeep : kRemove;
}

void FilterWindow::storeNow() {
    m_store.storeNow();
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
