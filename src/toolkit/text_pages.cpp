#include "toolkit/text_pages.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include "toolkit/dialog_boxes.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

/// How many characters of a line go across; at least one.
qsizetype fitting(const QString& line, const QFontMetricsF& metrics, qreal width) {
    qsizetype fits = 1;
    qsizetype tooMany = line.size() + 1;
    while (fits + 1 < tooMany) {
        const qsizetype middle = (fits + tooMany) / 2;
        (metrics.horizontalAdvance(line.left(middle)) <= width ? fits : tooMany) = middle;
    }
    if (fits == line.size())
        return fits;
    const qsizetype blank = line.lastIndexOf(u' ', fits - 1);
    return blank > 0 ? blank + 1 : fits;
}

} // namespace

TextPages::TextPages(const QString& text, const QFont& font, const QColor& colour, const QPrinter& printer)
    : m_font(font), m_colour(colour), m_paper(printer.pageRect(QPrinter::DevicePixel).size()) {
    const QFontMetricsF metrics(m_font, &printer);
    const qreal foot = 2 * QFontMetricsF(paperFont(), &printer).lineSpacing();
    m_lineHeight = metrics.lineSpacing();
    m_perPage = std::max(1, static_cast<int>((m_paper.height() - foot) / m_lineHeight));
    QString body = text;
    while (body.endsWith(u'\n'))
        body.chop(1);
    for (const QString& line : body.split(u'\n'))
        addLine(line, metrics);
}

void TextPages::addLine(const QString& line, const QFontMetricsF& metrics) {
    QString left = line;
    while (metrics.horizontalAdvance(left) > m_paper.width() && left.size() > 1) {
        const qsizetype fits = fitting(left, metrics, m_paper.width());
        m_lines << left.left(fits);
        left.remove(0, fits);
    }
    m_lines << left;
}

int TextPages::count() const {
    return static_cast<int>((m_lines.size() + m_perPage - 1) / m_perPage);
}

void TextPages::paint(QPainter& painter, int page) const {
    painter.setFont(m_font);
    painter.setPen(m_colour);
    const qsizetype first = qsizetype{page} * m_perPage;
    const qsizetype end = std::min<qsizetype>(first + m_perPage, m_lines.size());
    for (qsizetype line = first; line < end; ++line) {
        const QRectF place(0, static_cast<qreal>(line - first) * m_lineHeight, m_paper.width(), m_lineHeight);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, m_lines.at(line));
    }
    if (count() > 1)
        paintPageNumber(painter, m_paper, page, count());
}

void printText(QWidget& window, const QString& whole, const QString& part, const QFont& font, const QColor& colour) {
    QPrinter printer(QPrinter::HighResolution);
    prepare(printer);
    QPrintDialog dialog(&printer, &window);
    dialog.setObjectName(u"PrintDialog"_s);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, !part.isEmpty());
    dialog.setPrintRange(part.isEmpty() ? QAbstractPrintDialog::AllPages : QAbstractPrintDialog::Selection);
    if (dialog.exec() != QDialog::Accepted)
        return;
    DialogBoxes boxes(&window);
    const bool chosen = printer.printRange() == QPrinter::Selection;
    const auto progress = boxes.progress(u"正在打印"_s);
    const TextPages pages(chosen ? part : whole, font, colour, printer);
    if (printPages(printer, pages, kAllPages, progress.get()) == PaperState::Failed)
        boxes.warn(
            {.text = u"没有打印：打印机或文件不能写入。文字没有改变，请排除原因后重试。"_s, .title = u"打印"_s});
}

} // namespace toolkit
