#include "toolkit/sheet_pages.h"

#include <algorithm>
#include <numeric>

#include <QFontMetricsF>
#include <QPainter>

namespace toolkit {

namespace {

constexpr std::int64_t kSample = 500; // rows that are measured, evenly over the sheet
constexpr qreal kRoom = 1.35;         // height of a row as a part of its text's
constexpr qreal kLeastScale = 0.5;    // 4.5 points: smaller cannot be read
constexpr int kFootLines = 2;
const QColor kRed(0xB0, 0x10, 0x10);
const QColor kBlue(0x10, 0x30, 0xA0);
const QColor kLine(0xC8, 0xC8, 0xC8);

int alignment(output::CellAlign align) {
    switch (align) {
    case output::CellAlign::Left:
        return Qt::AlignLeft;
    case output::CellAlign::Right:
        return Qt::AlignRight;
    default:
        return Qt::AlignHCenter;
    }
}

QColor ink(output::CellKind kind) {
    return kind == output::CellKind::Red ? kRed : kind == output::CellKind::Blue ? kBlue : QColor(Qt::black);
}

QString oneLine(QString text) {
    for (QChar& letter : text)
        if (letter < u' ')
            letter = u' ';
    return text;
}

} // namespace

SheetPages::SheetPages(const output::Sheet& sheet, const QPrinter& printer)
    : m_sheet(sheet), m_paper(printer.pageRect(QPrinter::DevicePixel).size()) {
    measure(printer);
    fitWidth();
    const qreal height = m_paper.height() / m_scale;
    const int lines = static_cast<int>(height / m_rowHeight) - kFootLines - 1;
    m_perPage = std::max(1, lines);
    m_firstPage = std::max(1, lines - static_cast<int>(m_sheet.above().size()));
}

void SheetPages::measure(const QPrinter& printer) {
    const QFontMetricsF bold(paperFont(true), &printer);
    const QFontMetricsF plain(paperFont(), &printer);
    m_rowHeight = bold.height() * kRoom;
    const qreal room = 2 * plain.horizontalAdvance(u'0');
    const std::int64_t rows = m_sheet.rows.count();
    const std::int64_t step = std::max<std::int64_t>(1, rows / kSample);
    for (int column = 0; column < m_sheet.columnCount(); ++column) {
        const output::SheetColumn& told = m_sheet.columns[static_cast<std::size_t>(column)];
        qreal width = bold.horizontalAdvance(told.heading);
        for (std::int64_t row = 0; row < rows; row += step) {
            QString text;
            m_sheet.rows.appendText(text, row, told, column);
            width = std::max(width, plain.horizontalAdvance(oneLine(text)));
        }
        m_widths.push_back(width + room);
    }
}

void SheetPages::fitWidth() {
    const qreal wanted = std::accumulate(m_widths.begin(), m_widths.end(), qreal{0});
    if (!m_widths.empty() && wanted > m_paper.width() / kLeastScale) {
        qreal& widest = *std::ranges::max_element(m_widths);
        widest = std::max(widest - (wanted - m_paper.width() / kLeastScale), widest / 4);
    }
    m_lefts.assign(1, 0);
    for (const qreal width : m_widths)
        m_lefts.push_back(m_lefts.back() + width);
    m_scale = std::min(qreal{1}, m_paper.width() / std::max(m_lefts.back(), qreal{1}));
}

int SheetPages::count() const {
    const std::int64_t further = std::max<std::int64_t>(0, m_sheet.rows.count() - m_firstPage);
    return static_cast<int>(1 + (further + m_perPage - 1) / m_perPage);
}

QRectF SheetPages::place(std::size_t column, qreal top) const {
    const qreal margin = m_rowHeight / 5;
    return QRectF(m_lefts[column], top, m_widths[column], m_rowHeight).adjusted(margin, 0, -margin, 0);
}

void SheetPages::paint(QPainter& painter, int page) const {
    painter.save();
    painter.scale(m_scale, m_scale);
    const std::int64_t first = page == 0 ? 0 : m_firstPage + std::int64_t{page - 1} * m_perPage;
    const std::int64_t end =
        std::min<std::int64_t>(first + (page == 0 ? m_firstPage : m_perPage), m_sheet.rows.count());
    qreal top = page == 0 ? paintAbove(painter) : 0;
    paintHeadings(painter, top);
    for (std::int64_t row = first; row < end; ++row)
        paintRow(painter, row, top += m_rowHeight);
    painter.restore();
    paintPageNumber(painter, m_paper, page, count());
}

qreal SheetPages::paintAbove(QPainter& painter) const {
    qreal top = 0;
    painter.setPen(Qt::black);
    for (const QString& line : m_sheet.above()) {
        painter.setFont(paperFont(top == 0));
        painter.drawText(QRectF(0, top, m_paper.width() / m_scale, m_rowHeight), Qt::AlignLeft | Qt::AlignVCenter,
                         oneLine(line));
        top += m_rowHeight;
    }
    return top;
}

void SheetPages::paintHeadings(QPainter& painter, qreal top) const {
    painter.setFont(paperFont(true));
    painter.setPen(Qt::black);
    for (std::size_t column = 0; column < m_widths.size(); ++column)
        painter.drawText(place(column, top), alignment(m_sheet.columns[column].align) | Qt::AlignVCenter,
                         m_sheet.columns[column].heading);
    painter.drawLine(QPointF(0, top + m_rowHeight), QPointF(m_lefts.back(), top + m_rowHeight));
    painter.setFont(paperFont());
}

void SheetPages::paintRow(QPainter& painter, std::int64_t row, qreal top) const {
    for (std::size_t column = 0; column < m_widths.size(); ++column) {
        const output::SheetColumn& told = m_sheet.columns[column];
        QString text;
        m_sheet.rows.appendText(text, row, told, static_cast<int>(column));
        const QRectF cell = place(column, top);
        painter.setPen(ink(told.kind));
        painter.drawText(
            cell, alignment(told.align) | Qt::AlignVCenter,
            painter.fontMetrics().elidedText(oneLine(text), Qt::ElideRight, static_cast<int>(cell.width()) + 1));
    }
    painter.setPen(kLine);
    painter.drawLine(QPointF(0, top + m_rowHeight), QPointF(m_lefts.back(), top + m_rowHeight));
}

} // namespace toolkit
