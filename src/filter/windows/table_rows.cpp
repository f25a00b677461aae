#include "filter/windows/table_rows.h"

#include <QPainter>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace filter {

namespace {

constexpr int kShareBar = 40;
constexpr int kShareBarHeight = 6;
constexpr int kShareText = 40; // "100 %"

void paintUpright(QPainter& painter, const QRect& band, const QString& caption) {
    const int line = painter.fontMetrics().height() - 2;
    int top = band.center().y() - line * static_cast<int>(caption.size()) / 2;
    for (const QChar sign : caption) {
        painter.drawText(QRect(band.left(), top, band.width(), line), Qt::AlignCenter, sign);
        top += line;
    }
}

} // namespace

TableRows::TableRows(std::span<const Parameter> catalogue, QWidget* parent)
    : QWidget(parent), m_catalogue(catalogue), m_counts(new QFrame(this)), m_lists(new QFrame(this)) {
    m_counts->setObjectName(u"Frame11"_s);
    m_lists->setObjectName(u"Frame13"_s);
}

void TableRows::place(int width, int height) {
    m_columns = columnPlaces(width);
    m_places = rowPlaces(m_catalogue, height);
    setFixedHeight(m_places.height);
    m_counts->setGeometry(m_columns.count.left, 0, m_columns.count.width, m_places.height);
    m_lists->setGeometry(m_columns.list.left, 0, m_columns.list.width, m_places.height);
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        placeRow(m_rows[row], m_places.rows[row]);
    update();
}

void TableRows::placeRow(const TableRow& row, int top) {
    const int height = m_places.rowHeight - 2;
    const auto put = [&](QWidget* control, const Span& span) {
        if (control)
            control->setGeometry(span.left, top + 1, span.width, height);
    };
    put(row.tick, {m_columns.tick.left + 3, m_columns.tick.width - 4});
    put(row.name, m_columns.name);
    put(row.low, m_columns.low);
    put(row.high, m_columns.high);
    put(row.odd, m_columns.odd);
    put(row.even, m_columns.even);
    put(row.above, m_columns.above);
    put(row.to, m_columns.to);
    put(row.count, {0, m_columns.count.width}); // in their frames
    put(row.list, {0, m_columns.list.width});
    put(row.picked, m_columns.picked);
    put(row.period, m_columns.period);
}

void TableRows::showLists(bool shown) {
    m_listMode = shown;
    m_counts->setVisible(shown);
    m_lists->setVisible(shown);
    for (const TableRow& row : m_rows) {
        const bool interval = row.parameter->isInterval(); // compares its range in list mode too
        for (QWidget* control : {static_cast<QWidget*>(row.low), static_cast<QWidget*>(row.high)}) {
            control->setVisible(!shown || interval);
            if (interval)
                control->raise(); // over the frames of the lists
        }
        for (QWidget* control : {static_cast<QWidget*>(row.odd), static_cast<QWidget*>(row.even),
                                 static_cast<QWidget*>(row.above), static_cast<QWidget*>(row.to)})
            if (control)
                control->setVisible(!shown);
        if (row.picked) {
            row.picked->setVisible(shown);
            row.picked->raise();
        }
    }
}

void TableRows::paintPast(QPainter& painter, const TableRow& row, int top) const {
    const toolkit::Colours& look = toolkit::colours(palette());
    painter.setPen(look.quiet);
    if (!row.past)
        return;
    const double share = row.past->share();
    painter.drawText(QRect(m_columns.last.left, top, m_columns.last.width, m_places.rowHeight),
                     Qt::AlignRight | Qt::AlignVCenter, QString::number(row.past->latest.front()));
    if (m_columns.share.width < kShareText)
        return;
    const QRect cell(m_columns.share.left, top, std::min(m_columns.share.width, kShareBar + kShareText + 4),
                     m_places.rowHeight);
    painter.drawText(cell, Qt::AlignRight | Qt::AlignVCenter, u"%1 %"_s.arg(qRound(share * 100)));
    if (share >= 1)
        return;
    const QRect bar(cell.left(), cell.center().y() - kShareBarHeight / 2, kShareBar, kShareBarHeight);
    painter.fillRect(bar, look.track);
    painter.fillRect(QRect(bar.left(), bar.top(), qRound(bar.width() * share), bar.height()), look.barLast);
}

void TableRows::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const toolkit::Colours& look = toolkit::colours(palette());
    for (std::size_t group = 0, row = 0; group < m_places.groups.size(); ++group) {
        const Span& place = m_places.groups[group];
        while (row + 1 < m_rows.size() && m_places.rows[row] < place.left)
            ++row;
        const QRect band(0, place.left, m_columns.band.width, place.width);
        painter.fillRect(band, look.head);
        painter.setPen(look.quiet);
        const std::string_view caption = groupCaption(m_catalogue[row].group);
        paintUpright(painter, band, QString::fromUtf8(caption));
        if (group == 0)
            continue;
        painter.setPen(look.line);
        painter.drawLine(0, place.left - 1, width(), place.left - 1);
    }
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        paintPast(painter, m_rows[row], m_places.rows[row]);
}

} // namespace filter
