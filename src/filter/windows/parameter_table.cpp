#include "filter/windows/parameter_table.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "filter/parameter_run.h"
#include "filter/windows/table_rows.h"
#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kTitleHeight = 30;
constexpr int kHeadHeight = 22;
constexpr int kMostPeriod = 200; // draws; the boxes offer 10, 20, … up to this
constexpr qreal kCorner = 6;
constexpr int kStripFrom = 920; // height of the table from which there is room for the strip
constexpr int kStripHeight = 84;
constexpr int kStripMargin = 10;

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

/// What a row's parameter counts, and what past draws say of it.
QStringList describe(const TableRow& row) {
    QStringList lines{text(row.parameter->counts)};
    QStringList past;
    if (row.last)
        past << u"上期 %1"_s.arg(*row.last);
    if (row.share)
        past << u"历史各期落在 %1~%2 之内的有 %3 %"_s.arg(row.low->text(), row.high->text())
                    .arg(*row.share * 100, 0, 'f', 1);
    if (!past.isEmpty())
        lines << past.join(u"    "_s);
    return lines;
}

} // namespace

ParameterTable::ParameterTable(std::span<const Parameter> catalogue, QWidget* parent)
    : QWidget(parent), m_area(new QScrollArea(this)) {
    m_rows = new TableRows(catalogue, m_area);
    m_rows->rows().reserve(catalogue.size());
    for (const Parameter& parameter : catalogue)
        buildRow(parameter);
    orderTabs();
    m_area->setObjectName(u"ParameterRows"_s);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setWidgetResizable(true);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidget(m_rows);
    m_area->viewport()->setAutoFillBackground(false);
    m_rows->setAutoFillBackground(false);
    showLists(false);
    write(defaultState(catalogue));
}

QLineEdit* ParameterTable::makeBox(const QString& name, const QString& accessible, QWidget* parent) {
    auto* box = new KeyedEdit(kNumberKeys.toString(), parent);
    box->setObjectName(name);
    box->setAccessibleName(accessible);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return box;
}

void ParameterTable::buildRow(const Parameter& parameter) {
    TableRow row;
    row.parameter = &parameter;
    row.tick = new TickBox(text(parameter.caption), m_rows);
    row.tick->setObjectName(indexedName(u"Check1"_s, parameter.tick));
    buildName(row);
    buildRange(row);
    if (parameter.oddBox >= 0)
        buildParity(row);
    if (parameter.isInterval())
        buildInterval(row);
    else
        buildLists(row);
    if (parameter.period >= 0)
        buildPeriod(row);
    for (QWidget* control : row.controls())
        if (control)
            control->installEventFilter(this);
    m_rows->rows().push_back(row);
}

void ParameterTable::buildName(TableRow& row) {
    const Parameter& parameter = *row.parameter;
    row.name = new PressButton(text(parameter.caption), m_rows);
    row.name->setObjectName(text(parameter.option));
    row.name->setToolTip(text(parameter.counts));
    if (parameter.weighed)
        row.name->markColoured();
    connect(row.name, &PressButton::pressedAnyhow, this, [this, &parameter] { emit parameterPressed(parameter); });
}

void ParameterTable::buildRange(TableRow& row) {
    const Parameter& p = *row.parameter;
    const QString family = text(p.boxes.name);
    const QString caption = text(p.caption);
    row.low = makeBox(indexedName(family, p.boxes.low), caption + u" 下限"_s, m_rows);
    row.high = makeBox(indexedName(family, p.boxes.high), caption + u" 上限"_s, m_rows);
    for (const QLineEdit* box : {row.low, row.high})
        connect(box, &QLineEdit::textChanged, this, [this, &p] { emit rangeEdited(p); });
}

void ParameterTable::buildParity(TableRow& row) {
    const Parameter& p = *row.parameter;
    const auto make = [&](const QString& caption, int index) {
        auto* box = new QCheckBox(caption, m_rows);
        box->setObjectName(indexedName(u"Check2"_s, index));
        box->setAccessibleName(text(p.caption) + u" "_s + caption);
        return box;
    };
    row.odd = make(u"奇"_s, p.oddBox);
    row.even = make(u"偶"_s, p.oddBox + 1);
}

void ParameterTable::buildInterval(TableRow& row) {
    const Boxes& boxes = row.parameter->boxes;
    const QString family = text(boxes.name);
    row.above = makeBox(indexedName(family, boxes.above), u"区间下端（不含）"_s, m_rows);
    row.to = makeBox(indexedName(family, boxes.to), u"区间上端（含）"_s, m_rows);
    row.above->setToolTip(row.above->accessibleName());
    row.to->setToolTip(row.to->accessibleName());
    row.picked = makeBox(u"TxtZdqj"_s, u"指定号码"_s, m_rows);
    row.picked->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void ParameterTable::buildLists(TableRow& row) {
    const Parameter& p = *row.parameter;
    const QString family = text(p.boxes.name);
    const QString caption = text(p.caption);
    row.count = makeBox(indexedName(family, p.boxes.count), caption + u" 个数"_s, m_rows->counts());
    row.list = makeBox(indexedName(family, p.boxes.list), caption + u" 最值表"_s, m_rows->lists());
    row.list->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(row.list, &QLineEdit::textChanged, row.list, &QWidget::setToolTip);
}

void ParameterTable::buildPeriod(TableRow& row) {
    auto* box = new QuietCombo(m_rows);
    box->setObjectName(indexedName(u"Combo1"_s, row.parameter->period));
    box->addItem(u"前所有期"_s, 0);
    for (int draws = 10; draws <= kMostPeriod; draws += 10)
        box->addItem(u"前%1期"_s.arg(draws), draws);
    box->setPlaceholderText(u"所有期"_s);
    box->setCurrentIndex(-1);
    box->setToolTip(u"选择检索期数范围来检索历史号码参数最值或均值差幅自动设置过滤条件\n还需历史号码检索功能"_s);
    box->setAccessibleName(text(row.parameter->caption) + u" 检索期数"_s);
    box->setEnabled(false); // the search through the history that it starts is not in this program yet
    row.period = box;
}

void ParameterTable::orderTabs() {
    QWidget* last = nullptr;
    for (const TableRow& row : m_rows->rows())
        for (QWidget* next : row.controls()) {
            if (!next)
                continue;
            if (last)
                setTabOrder(last, next);
            last = next;
        }
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

void ParameterTable::showPast(const Parameter& parameter, std::optional<int> last, std::optional<double> share) {
    TableRow* row = rowOf(parameter);
    if (!row)
        return;
    row->last = last;
    row->share = share;
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

void ParameterTable::tellRowOf(const QWidget* control) {
    for (const TableRow& row : m_rows->rows()) {
        const auto controls = row.controls();
        if (std::find(controls.begin(), controls.end(), control) != controls.end())
            m_told = &row;
    }
    update();
}

void ParameterTable::paintStrip(QPainter& painter) const {
    const toolkit::Colours& look = toolkit::colours(palette());
    const int top = height() - stripHeight();
    painter.setPen(look.line);
    painter.drawLine(1, top, width() - 2, top);
    const int line = fontMetrics().height() + 2;
    int base = top + 6;
    painter.setPen(m_told ? look.text : look.quiet);
    QFont ink = font();
    ink.setBold(m_told);
    for (const QString& told : toldLines()) {
        painter.setFont(ink);
        painter.drawText(QRect(kStripMargin, base, width() - 2 * kStripMargin, line),
                         Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(told, Qt::ElideRight, width() - 2 * kStripMargin));
        base += line;
        ink.setBold(false);
        painter.setPen(look.quiet);
    }
    painter.setFont(font());
}

/// Up and down go to the same kind of control in the next row that has one, and press nothing.
bool ParameterTable::moveFrom(const QWidget* control, int step) {
    const std::vector<TableRow>& rows = m_rows->rows();
    const int count = static_cast<int>(rows.size());
    for (int row = 0; row < count; ++row) {
        const auto here = rows[static_cast<std::size_t>(row)].controls();
        const auto at = std::find(here.begin(), here.end(), control);
        if (at == here.end())
            continue;
        for (int next = row + step; next >= 0 && next < count; next += step) {
            QWidget* target =
                rows[static_cast<std::size_t>(next)].controls()[static_cast<std::size_t>(at - here.begin())];
            if (!target || !target->isVisible() || !target->isEnabled())
                continue;
            target->setFocus(step < 0 ? Qt::BacktabFocusReason : Qt::TabFocusReason);
            m_area->ensureWidgetVisible(target, 0, 0);
            return true;
        }
        return true; // the first or the last: it stays
    }
    return false;
}

void ParameterTable::pressRowOf(const QWidget* control) {
    for (const TableRow& row : m_rows->rows()) {
        const auto controls = row.controls();
        if (std::find(controls.begin(), controls.end(), control) != controls.end())
            emit parameterPressed(*row.parameter);
    }
}

bool ParameterTable::eventFilter(QObject* watched, QEvent* event) {
    auto* control = qobject_cast<QWidget*>(watched);
    if (control && (event->type() == QEvent::FocusIn || event->type() == QEvent::Enter))
        tellRowOf(control);
    if (!control || qobject_cast<QComboBox*>(control))
        return false;
    if (event->type() == QEvent::FocusIn) {
        m_area->ensureWidgetVisible(control, 0, 0);
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* pressed = static_cast<QKeyEvent*>(event);
    const bool box = qobject_cast<QLineEdit*>(control);
    switch (pressed->key()) {
    case Qt::Key_Up:
        return moveFrom(control, -1);
    case Qt::Key_Down:
        return moveFrom(control, 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (box && !pressed->isAutoRepeat())
            pressRowOf(control);
        return box;
    default:
        return false;
    }
}

void ParameterTable::fitRows() {
    const QRect inner = rect().adjusted(1, kTitleHeight + kHeadHeight, -1, -1 - stripHeight());
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
    const toolkit::Colours& look = toolkit::colours(palette());
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(look.line);
    painter.setBrush(look.card);
    painter.drawRoundedRect(frame, kCorner, kCorner);
    painter.fillRect(QRect(1, kTitleHeight, width() - 2, kHeadHeight), look.head);

    QFont bold = font();
    bold.setBold(true);
    painter.setPen(look.text);
    painter.setFont(bold);
    const QRect title(11, 0, width() - 22, kTitleHeight);
    painter.drawText(title, Qt::AlignLeft | Qt::AlignVCenter, u"参数"_s);
    painter.setFont(font());
    painter.setPen(look.quiet);
    painter.drawText(title.adjusted(QFontMetrics(bold).horizontalAdvance(u"参数"_s) + 10, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, u"按下名称即过滤"_s);

    if (stripHeight() > 0)
        paintStrip(painter);
    paintHeads(painter);
}

void ParameterTable::paintHeads(QPainter& painter) const {
    const ColumnPlaces& at = m_rows->columns();
    painter.setPen(toolkit::colours(palette()).text);
    const auto head = [&](int left, int right, Qt::Alignment side, const QString& caption) {
        painter.drawText(QRect(left + 1, kTitleHeight, right - left, kHeadHeight), side | Qt::AlignVCenter, caption);
    };
    const auto over = [&](const Span& span, const QString& caption) {
        head(span.left, span.left + span.width, Qt::AlignHCenter, caption);
    };
    head(at.band.left + 9, at.name.left, Qt::AlignLeft, u"勾选"_s);
    head(at.name.left + 7, at.low.left, Qt::AlignLeft, u"参数"_s);
    if (m_lists) {
        over(at.count, u"个数"_s);
        head(at.list.left + 4, at.period.left, Qt::AlignLeft, u"最值表"_s);
    } else {
        over(at.low, u"下限"_s);
        over(at.high, u"上限"_s);
        head(at.odd.left, at.period.left, Qt::AlignLeft, u"奇偶/区间"_s);
    }
    head(at.period.left + 2, at.last.left, Qt::AlignLeft, u"检索期数"_s);
    over(at.last, u"上期"_s);
    if (at.share.width > 0)
        head(at.share.left, at.share.left + at.share.width, Qt::AlignLeft, u"历史占比"_s);
}

} // namespace filter
