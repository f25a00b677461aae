#include "toolkit/pages.h"

#include <algorithm>

#include <QFile>
#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr qreal kPoints = 9;
constexpr qreal kMarginMm = 12;

output::PageRange common(const QPrinter& printer, output::PageRange range, int pages) {
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
        range.first = std::max(range.first, printer.fromPage());
        range.last = std::min(range.last, std::max(printer.toPage(), printer.fromPage()));
    }
    range.last = std::min(range.last, pages);
    return range;
}

/// Whether the PDF file reached the disk to its end: the printer tells nothing of one that is full.
bool isWholePdf(const QString& file) {
    const QByteArray mark = "%%EOF";
    QFile written(file);
    return written.open(QIODevice::ReadOnly) && written.seek(std::max<qint64>(0, written.size() - mark.size() - 2)) &&
           written.readAll().contains(mark);
}

} // namespace

PaperState printPages(QPrinter& printer, const Pages& pages, output::PageRange range, workspace::Progress* progress) {
    range = common(printer, range, pages.count());
    QPainter painter;
    if (!painter.begin(&printer))
        return PaperState::Failed;
    for (int page = range.first; page <= range.last; ++page) {
        const double share = static_cast<double>(page - range.first) / (range.last - range.first + 1);
        if (progress && !progress->advance(share)) {
            printer.abort();
            return PaperState::GivenUp;
        }
        if (page > range.first && !printer.newPage())
            return PaperState::Failed;
        painter.save();
        pages.paint(painter, page - 1);
        painter.restore();
    }
    const bool intoFile = printer.paintEngine()->type() == QPaintEngine::Pdf && !printer.outputFileName().isEmpty();
    const bool ended = painter.end() && printer.printerState() != QPrinter::Error;
    return ended && (!intoFile || isWholePdf(printer.outputFileName())) ? PaperState::Printed : PaperState::Failed;
}

void prepare(QPrinter& printer) {
    printer.setPageMargins({kMarginMm, kMarginMm, kMarginMm, kMarginMm}, QPageLayout::Millimeter);
}

QFont paperFont(bool bold) {
    QFont font = QGuiApplication::font();
    font.setPointSizeF(kPoints);
    font.setBold(bold);
    return font;
}

void paintPageNumber(QPainter& painter, const QSizeF& paper, int page, int pages) {
    painter.setFont(paperFont());
    painter.setPen(Qt::black);
    painter.drawText(QRectF(QPointF(), paper), Qt::AlignHCenter | Qt::AlignBottom,
                     u"第 %1 页，共 %2 页"_s.arg(page + 1).arg(pages));
}

} // namespace toolkit
