#include "filter/windows/parameter_table.h"

#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include "filter/parameter_run.h"
#include "filter/windows/row_builder.h"
#include "filter/windows/table_keys.h"
#include "filter/windows/table_painting.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kNoneMargin = 24; // around the words of a table without parameters
constexpr int kStripFrom = 920; // height of the table from which there is room for the strip

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
std::string utf8(const QLineEdit* box) {
    return box ? box->text().toStdString() : std::string();
}
bool isTicked(const QCheckBox* box) {
    return box && box->isChecked();
}
void fill(QLineEdit* box, const std::string& content) {
    if (box)
        box->setText(QString::fromStdString(content));
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
    if (catalogue.empty())
        sayThatThereAreNone();
    showLists(false);
    write(defaultState(catalogue));
}

void ParameterTable::sayThatThereAreNone() {
    m_area->hide();
    m_none = new QLabel(u"这种组合的参数过滤还没有提供：可以查看、复位、反选和翻页"_s, this);
    m_none->setObjectName(u"NoParameters"_s);
    m_none->setWordWrap(true);
    m_none->setAlignment(Qt::AlignCenter);
    m_none->setMargin(kNoneMargin);
}

void ParameterTable::addRow(const Parameter& parameter) {
    const TableRow& row = m_rows->rows().emplace_back(buildRow(parameter, *m_rows));
    connect(row.name, &PressButton::pressedAnyhow, this, [this, &parameter] { emit parameterPressed(parameter); });
    for (const QLineEdit* box : {row.low, row.high})
        connect(box, &QLineEdit::textChanged, this, [this, &parameter] { emit rangeEdited(parameter); });
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
}

void ParameterTable::showLists(bool shown) {
    m_lists = shown;
    m_rows->showLists(shown);
    for (const TableRow& row : m_rows->rows()) {
        if (!row.parameter->isInterval())
            continue;
        const QString caption = text(shown ? kPickedNumbersCaption : row.parameter->caption);
        row.name->setText(caption);
        row.tick->setText(caption);
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
    return !m_none && height() >= kStripFrom ? kStripHeight : 0;
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
    if (m_none)
        m_none->setGeometry(inner);
    m_area->setGeometry(inner);
    m_rows->place(inner.width(), inner.height());
    if (m_rows->height() > inner.height())
        m_rows->place(inner.width() - m_area->verticalScrollBar()->sizeHint().width(), inner.height());
}

void ParameterTable::resizeEvent(QResizeEvent*) {
    fitRows();
}

void ParameterTable::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFrame(painter, *this);
    paintTitle(painter, *this, m_none ? QString() : u"按下名称即过滤"_s);
    if (!m_none)
        paintHeads(painter, *this, m_rows->columns(), m_lists);
    if (stripHeight() > 0)
        paintStrip(painter, *this, toldLines());
}

} // namespace filter
