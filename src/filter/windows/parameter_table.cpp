#include "filter/windows/parameter_table.h"

#include <algorithm>

#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include "filter/windows/row_builder.h"
#include "filter/windows/table_keys.h"
#include "filter/windows/table_painting.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kAllPeriods = 20; // place of the period of all rows in Combo1
constexpr int kAllHeight = 22;
constexpr int kAllGap = 6;
constexpr int kStripFrom = 920; // height of the table from which there is room for the strip

std::string utf8(const QLineEdit* box) {
    return box ? box->text().toStdString() : std::string();
}
bool isTicked(const QCheckBox* box) {
    return box && box->isChecked();
}
void fill(QLineEdit* box, const std::string& content) {
    if (!box)
        return;
    box->setText(QString::fromStdString(content));
    box->setCursorPosition(0); // of a long list the beginning is seen
}
void tick(QCheckBox* box, bool on) {
    if (box)
        box->setChecked(on);
}

} // namespace

ParameterTable::ParameterTable(std::span<const Parameter> catalogue, QWidget* parent)
    : QWidget(parent), m_area(new QScrollArea(this)) {
    m_rows = new TableRows(catalogue, m_area);
    m_rows->rows().reserve(catalogue.size());
    for (const Parameter& parameter : catalogue)
        addRow(parameter);
    m_area->setObjectName(u"ParameterRows"_s);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setWidgetResizable(true);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidget(m_rows);
    m_area->viewport()->setAutoFillBackground(false);
    m_rows->setAutoFillBackground(false);
    m_keys = new TableKeys(*m_rows, *m_area);
    connect(m_keys, &TableKeys::parameterPressed, this, &ParameterTable::parameterPressed);
    connect(m_keys, &TableKeys::rowReached, this, &ParameterTable::tell);
    const bool periods = std::ranges::any_of(catalogue, [](const Parameter& each) { return each.period >= 0; });
    if (periods)
        addAllPeriods();
    write(defaultState(catalogue));
}

void ParameterTable::addRow(const Parameter& parameter) {
    const TableRow& row = m_rows->rows().emplace_back(buildRow(parameter, *m_rows));
    connect(row.name, &PressButton::pressedBy, this, [this, &parameter] { emit parameterPressed(parameter); });
    for (const QLineEdit* box : {row.low, row.high})
        connect(box, &QLineEdit::textChanged, this, [this, &parameter] { emit rangeEdited(parameter); });
    for (const QLineEdit* box : {row.low, row.high, row.list})
        if (box)
            connect(box, &QLineEdit::textChanged, this, &ParameterTable::boxEdited);
    connect(row.tick, &QAbstractButton::clicked, this, &ParameterTable::tickClicked);
    if (row.period)
        connect(row.period, &QComboBox::activated, this, [this, &parameter] { emit periodPicked(parameter); });
}

void ParameterTable::addAllPeriods() {
    m_allCaption = new QLabel(u"所有参数检索:"_s, this);
    m_allCaption->setObjectName(u"AllPeriodsHeading"_s);
    m_allPeriods = makePeriods(kAllPeriods, u"所有参数 检索期数"_s, this);
    connect(m_allPeriods, &QComboBox::activated, this, &ParameterTable::allPeriodsPicked);
}

TableRow* ParameterTable::rowOf(const Parameter& parameter) {
    for (TableRow& row : m_rows->rows())
        if (row.parameter == &parameter)
            return &row;
    return nullptr;
}

void ParameterTable::read(WindowState& state) const {
    for (const TableRow& row : m_rows->rows()) {
        state.row(*row.parameter) = {.low = utf8(row.low),
                                     .high = utf8(row.high),
                                     .count = utf8(row.count),
                                     .list = utf8(row.list),
                                     .odd = isTicked(row.odd),
                                     .even = isTicked(row.even),
                                     .ticked = isTicked(row.tick),
                                     .period = row.period ? row.period->currentIndex() : -1};
        if (!row.parameter->isInterval())
            continue;
        state.intervalAbove = utf8(row.above);
        state.intervalTo = utf8(row.to);
        state.pickedNumbers = utf8(row.picked);
    }
    state.listsLocked = m_locked;
    if (m_allPeriods)
        state.allPeriods = m_allPeriods->currentIndex();
}

void ParameterTable::write(const WindowState& state) {
    for (const TableRow& row : m_rows->rows()) {
        const RowState& given = state.row(*row.parameter);
        fill(row.low, given.low);
        fill(row.high, given.high);
        fill(row.count, given.count);
        fill(row.list, given.list);
        tick(row.odd, given.odd);
        tick(row.even, given.even);
        tick(row.tick, given.ticked);
        if (row.period)
            row.period->setCurrentIndex(given.period);
        fill(row.above, state.intervalAbove);
        fill(row.to, state.intervalTo);
        fill(row.picked, state.pickedNumbers);
    }
    if (m_allPeriods)
        m_allPeriods->setCurrentIndex(state.allPeriods);
    showLists(state.mode == Mode::List, state.listsLocked);
}

void ParameterTable::showLists(bool shown, bool locked) {
    m_lists = shown;
    m_locked = locked;
    m_rows->showLists(shown);
    m_rows->counts()->setEnabled(!locked);
    m_rows->lists()->setEnabled(!locked);
    WindowState titled;
    titled.mode = shown ? Mode::List : Mode::Range;
    titled.listsLocked = locked;
    for (const TableRow& row : m_rows->rows()) {
        if (!row.parameter->isInterval())
            continue;
        const QString caption = QString::fromUtf8(captionIn(*row.parameter, titled));
        row.name->setText(caption);
        row.tick->setText(caption);
        row.picked->setEnabled(!locked);
    }
    m_keys->keepStop();
    update();
}

void ParameterTable::markRun(const Parameter& parameter) {
    for (const TableRow& row : m_rows->rows()) {
        const bool run = row.parameter == &parameter;
        row.name->setChecked(run);
        if (run)
            row.name->markUsed();
    }
}

void ParameterTable::showPast(const Parameter& parameter, const std::optional<ValueRange>& possible,
                              std::optional<PastValues> past) {
    TableRow* row = rowOf(parameter);
    if (!row)
        return;
    row->possible = possible;
    row->past = std::move(past);
    row->name->setToolTip(describe(*row).join(u'\n'));
    m_rows->update();
    update();
}

int ParameterTable::stripHeight() const {
    return height() >= kStripFrom ? kStripHeight : 0;
}

QStringList ParameterTable::toldLines() const {
    if (stripHeight() == 0)
        return {};
    if (!m_told)
        return {u"指向一个参数，这里说明它统计什么"_s};
    return QStringList{m_told->name->text()} + describe(*m_told);
}

void ParameterTable::tell(const TableRow& row) {
    m_told = &row;
    update(0, height() - stripHeight(), width(), stripHeight());
}

void ParameterTable::fitRows() {
    const QRect inner = rect().adjusted(1, kTitleHeight + kHeadHeight, -1, -1 - stripHeight());
    m_area->setGeometry(inner);
    m_rows->place(inner.width(), inner.height());
    if (m_rows->height() > inner.height())
        m_rows->place(inner.width() - m_area->verticalScrollBar()->sizeHint().width(), inner.height());
    if (!m_allPeriods)
        return;
    const Span period = m_rows->columns().period;
    const int top = (kTitleHeight - kAllHeight) / 2 + 1;
    m_allPeriods->setGeometry(inner.left() + period.left, top, period.width, kAllHeight);
    const int width = m_allCaption->sizeHint().width();
    m_allCaption->setGeometry(m_allPeriods->x() - width - kAllGap, top, width, kAllHeight);
}

void ParameterTable::resizeEvent(QResizeEvent*) {
    fitRows();
}

void ParameterTable::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFrame(painter, *this);
    paintTitle(painter, *this, u"按下名称即过滤"_s);
    const bool parities = std::ranges::any_of(
        m_rows->rows(), [](const TableRow& row) { return row.odd != nullptr || row.above != nullptr; });
    paintHeads(painter, *this, m_rows->columns(), {m_lists, parities, m_allPeriods != nullptr});
    if (stripHeight() > 0)
        paintStrip(painter, *this, toldLines());
}

} // namespace filter
