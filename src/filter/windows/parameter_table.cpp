#include "filter/windows/parameter_table.h"

#include <QLabel>

#include "filter/parameter_run.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kLineHeight = 21; // 33 lines with their gaps fit a work area of 1280 x 800
constexpr int kNumberWidth = 38;
constexpr int kListWidth = 96;
constexpr int kPeriodWidth = 74;
constexpr int kMostPeriod = 200; // draws; the boxes offer 10, 20, … up to this

enum Column { kTick, kCaption, kLow, kHigh, kOdd, kEven, kCounts, kLists, kPeriod };

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
std::string utf8(const QLineEdit* box) {
    return box ? box->text().toStdString() : std::string();
}

void keepHeights(QGridLayout* layout, int lines) {
    for (int line = 0; line < lines; ++line)
        layout->setRowMinimumHeight(line, kLineHeight);
    layout->setRowStretch(lines, 1);
}

} // namespace

ParameterTable::ParameterTable(std::span<const Parameter> catalogue, QWidget* parent)
    : QWidget(parent), m_grid(new QGridLayout(this)) {
    const int lines = static_cast<int>(catalogue.size()) + 1;
    m_grid->setContentsMargins(4, 2, 4, 2);
    m_grid->setHorizontalSpacing(3);
    m_grid->setVerticalSpacing(1);
    keepHeights(m_grid, lines);
    m_counts = makeFrame(u"Frame11"_s, kCounts, lines, &m_countGrid);
    m_lists = makeFrame(u"Frame13"_s, kLists, lines, &m_listGrid);
    buildHeads();
    m_rows.reserve(catalogue.size());
    int line = 1;
    for (const Parameter& parameter : catalogue)
        buildRow(parameter, line++);
    m_grid->setColumnStretch(kPeriod + 1, 1);
    orderTabs();
    showLists(false);
}

QFrame* ParameterTable::makeFrame(const QString& name, int column, int lines, QGridLayout** layout) {
    auto* frame = new QFrame(this);
    frame->setObjectName(name);
    *layout = new QGridLayout(frame);
    (*layout)->setContentsMargins(0, 0, 0, 0);
    (*layout)->setVerticalSpacing(m_grid->verticalSpacing());
    keepHeights(*layout, lines);
    m_grid->addWidget(frame, 0, column, lines + 1, 1);
    return frame;
}

void ParameterTable::buildHeads() {
    const struct {
        int column;
        QString heading;
    } heads[] = {{kCaption, u"参数"_s}, {kLow, u"下限"_s}, {kHigh, u"上限"_s}, {kPeriod, u"检索期数"_s}};
    const auto label = [this](const QString& heading) {
        auto* head = new QLabel(heading, this);
        head->setObjectName(u"Head"_s + heading);
        head->setAlignment(Qt::AlignCenter);
        head->setFixedHeight(kLineHeight);
        QFont bold = head->font();
        bold.setBold(true);
        head->setFont(bold);
        return head;
    };
    for (const auto& head : heads)
        m_grid->addWidget(label(head.heading), 0, head.column);
    m_grid->addWidget(label(u"奇偶/区间"_s), 0, kOdd, 1, 2);
    m_countGrid->addWidget(label(u"个数"_s), 0, 0);
    m_listGrid->addWidget(label(u"最值表"_s), 0, 0);
}

QLineEdit* ParameterTable::makeBox(const QString& name, const QString& content, const QString& accessible, int width,
                                   QWidget* parent) {
    auto* box = new KeyedEdit(kNumberKeys.toString(), parent);
    box->setObjectName(name);
    box->setText(content);
    box->setAccessibleName(accessible);
    box->setFixedHeight(kLineHeight);
    box->setFixedWidth(width);
    return box;
}

void ParameterTable::buildRow(const Parameter& parameter, int line) {
    Row row;
    row.parameter = &parameter;
    row.tick = new TickBox(text(parameter.caption), this);
    row.tick->setObjectName(indexedName(u"Check1"_s, parameter.tick));
    row.tick->setFixedHeight(kLineHeight);
    m_grid->addWidget(row.tick, line, kTick, Qt::AlignCenter);

    row.option = new PressButton(text(parameter.caption), this);
    row.option->setObjectName(text(parameter.option));
    row.option->setFixedHeight(kLineHeight);
    if (parameter.weighed)
        row.option->markColoured();
    m_grid->addWidget(row.option, line, kCaption);
    connect(row.option, &PressButton::pressedAnyhow, this, [this, &parameter] { emit parameterPressed(parameter); });

    buildRange(row, line);
    if (parameter.oddBox >= 0)
        buildParity(row, line);
    if (parameter.isInterval())
        buildInterval(row, line);
    else
        buildLists(row, line);
    if (parameter.period >= 0)
        buildPeriod(row, line);
    m_rows.push_back(row);
}

void ParameterTable::buildRange(Row& row, int line) {
    const Parameter& p = *row.parameter;
    const QString family = text(p.boxes.name);
    const QString caption = text(p.caption);
    row.low = makeBox(indexedName(family, p.boxes.low), QString::number(p.defaults.low), caption + u" 下限"_s,
                      kNumberWidth, this);
    row.high = makeBox(indexedName(family, p.boxes.high), QString::number(p.defaults.high), caption + u" 上限"_s,
                       kNumberWidth, this);
    m_grid->addWidget(row.low, line, kLow);
    m_grid->addWidget(row.high, line, kHigh);
}

void ParameterTable::buildParity(Row& row, int line) {
    const Parameter& p = *row.parameter;
    const auto make = [&](const QString& caption, int index, int column) {
        auto* box = new QCheckBox(caption, this);
        box->setObjectName(indexedName(u"Check2"_s, index));
        box->setAccessibleName(text(p.caption) + u" "_s + caption);
        box->setFixedHeight(kLineHeight);
        m_grid->addWidget(box, line, column, Qt::AlignCenter);
        return box;
    };
    row.odd = make(u"奇"_s, p.oddBox, kOdd);
    row.even = make(u"偶"_s, p.oddBox + 1, kEven);
}

void ParameterTable::buildInterval(const Row& row, int line) {
    const QString family = text(row.parameter->boxes.name);
    m_intervalAbove = makeBox(indexedName(family, 3), u"0"_s, u"区间下端（不含）"_s, kNumberWidth, this);
    m_intervalTo = makeBox(indexedName(family, 2), u"9"_s, u"区间上端（含）"_s, kNumberWidth, this);
    m_intervalAbove->setToolTip(m_intervalAbove->accessibleName());
    m_intervalTo->setToolTip(m_intervalTo->accessibleName());
    m_pickedNumbers = makeBox(u"TxtZdqj"_s, {}, u"指定号码"_s, kListWidth, m_lists);
    m_grid->addWidget(m_intervalAbove, line, kOdd);
    m_grid->addWidget(m_intervalTo, line, kEven);
    m_listGrid->addWidget(m_pickedNumbers, line, 0);
}

void ParameterTable::buildLists(Row& row, int line) {
    const Parameter& p = *row.parameter;
    const QString family = text(p.boxes.name);
    const QString caption = text(p.caption);
    row.count = makeBox(indexedName(family, p.boxes.count), QString::number(p.defaults.count), caption + u" 个数"_s,
                        kNumberWidth, m_counts);
    row.list = makeBox(indexedName(family, p.boxes.list), {}, caption + u" 最值表"_s, kListWidth, m_lists);
    m_countGrid->addWidget(row.count, line, 0);
    m_listGrid->addWidget(row.list, line, 0);
}

void ParameterTable::buildPeriod(Row& row, int line) {
    auto* box = new QComboBox(this);
    box->setObjectName(indexedName(u"Combo1"_s, row.parameter->period));
    box->addItem(u"前所有期"_s, 0);
    for (int draws = 10; draws <= kMostPeriod; draws += 10)
        box->addItem(u"前%1期"_s.arg(draws), draws);
    box->setPlaceholderText(u"所有期"_s);
    box->setCurrentIndex(-1);
    box->setToolTip(u"选择检索期数范围来检索历史号码参数最值或均值差幅自动设置过滤条件"_s);
    box->setAccessibleName(text(row.parameter->caption) + u" 检索期数"_s);
    box->setFixedSize(kPeriodWidth, kLineHeight);
    box->setEnabled(false); // the search through the history that it starts is not in this program yet
    m_grid->addWidget(box, line, kPeriod);
    row.period = box;
}

void ParameterTable::orderTabs() {
    QWidget* last = nullptr;
    const auto follow = [&last](QWidget* next) {
        if (!next)
            return;
        if (last)
            setTabOrder(last, next);
        last = next;
    };
    for (const Row& row : m_rows) {
        const bool interval = row.parameter->isInterval();
        for (QWidget* control : {static_cast<QWidget*>(row.tick), static_cast<QWidget*>(row.option),
                                 static_cast<QWidget*>(row.low), static_cast<QWidget*>(row.high)})
            follow(control);
        follow(interval ? static_cast<QWidget*>(m_intervalAbove) : row.odd);
        follow(interval ? static_cast<QWidget*>(m_intervalTo) : row.even);
        follow(row.count);
        follow(interval ? m_pickedNumbers : row.list);
        follow(row.period);
    }
}

const ParameterTable::Row* ParameterTable::rowOf(const Parameter& parameter) const {
    for (const Row& row : m_rows)
        if (row.parameter == &parameter)
            return &row;
    return nullptr;
}

RowInput ParameterTable::input(const Parameter& parameter) const {
    const Row* row = rowOf(parameter);
    if (!row)
        return {};
    return {utf8(row->low), utf8(row->high), utf8(row->list), row->odd && row->odd->isChecked(),
            row->even && row->even->isChecked()};
}

void ParameterTable::readInterval(RunSettings& settings) const {
    settings.intervalAbove = utf8(m_intervalAbove);
    settings.intervalTo = utf8(m_intervalTo);
    settings.pickedNumbers = utf8(m_pickedNumbers);
}

void ParameterTable::showLists(bool shown) {
    m_counts->setVisible(shown);
    m_lists->setVisible(shown);
    for (const Row& row : m_rows) {
        if (!row.parameter->isInterval())
            continue;
        const QString caption = text(shown ? kPickedNumbersCaption : row.parameter->caption);
        row.option->setText(caption);
        row.tick->setText(caption);
    }
}

void ParameterTable::markUsed(const Parameter& parameter) {
    if (const Row* row = rowOf(parameter))
        row->option->markUsed();
}

} // namespace filter
