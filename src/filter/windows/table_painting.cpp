#include "filter/windows/table_painting.h"

#include <QLocale>
#include <QPainter>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr qreal kCorner = 6;
constexpr int kTitleLeft = 11;
constexpr int kGap = 10;
constexpr int kStripTop = 8;

QString rangeText(const ValueRange& range) {
    return u"%1~%2"_s.arg(range.low).arg(range.high);
}

QStringList valueParts(const TableRow& row) {
    QStringList parts;
    if (row.possible)
        parts << u"可能 "_s + rangeText(*row.possible);
    if (!row.past)
        return parts;
    QStringList latest;
    for (const int value : row.past->latest)
        latest << QString::number(value);
    return parts << u"历史 "_s + rangeText(row.past->seen) << u"上期 "_s + latest.first()
                 << u"近%1期 %2"_s.arg(latest.size()).arg(latest.join(u' '));
}

QString thousands(int number) {
    return QLocale(QLocale::Chinese, QLocale::China).toString(number);
}

} // namespace

QStringList describe(const TableRow& row) {
    QStringList lines{QString::fromUtf8(row.parameter->counts)};
    if (const QStringList parts = valueParts(row); !parts.isEmpty())
        lines << parts.join(u"    "_s);
    if (row.past)
        lines << u"历史各期落在 %1~%2 之内的有 %3 %（%4 期中 %5 期）"_s.arg(row.low->text(), row.high->text())
                     .arg(row.past->share() * 100, 0, 'f', 1)
                     .arg(thousands(row.past->draws), thousands(row.past->inside));
    return lines;
}

void paintFrame(QPainter& painter, const QWidget& table) {
    const toolkit::Colours& look = toolkit::colours(table.palette());
    painter.setPen(look.line);
    painter.setBrush(look.card);
    painter.drawRoundedRect(QRectF(table.rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

void paintTitle(QPainter& painter, const QWidget& table, const QString& advice) {
    const toolkit::Colours& look = toolkit::colours(table.palette());
    QFont bold = table.font();
    bold.setBold(true);
    painter.setPen(look.text);
    painter.setFont(bold);
    const QRect title(kTitleLeft, 0, table.width() - 2 * kTitleLeft, kTitleHeight);
    painter.drawText(title, Qt::AlignLeft | Qt::AlignVCenter, u"参数"_s);
    painter.setFont(table.font());
    painter.setPen(look.quiet);
    painter.drawText(title.adjusted(QFontMetrics(bold).horizontalAdvance(u"参数"_s) + kGap, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, advice);
}

void paintHeads(QPainter& painter, const QWidget& table, const ColumnPlaces& at, const HeadsShown& shown) {
    const toolkit::Colours& look = toolkit::colours(table.palette());
    painter.fillRect(QRect(1, kTitleHeight, table.width() - 2, kHeadHeight), look.head);
    painter.setPen(look.text);
    const auto head = [&](int left, int right, Qt::Alignment side, const QString& caption) {
        painter.drawText(QRect(left + 1, kTitleHeight, right - left, kHeadHeight), side | Qt::AlignVCenter, caption);
    };
    const auto over = [&](const Span& span, const QString& caption) {
        head(span.left, span.left + span.width, Qt::AlignHCenter, caption);
    };
    head(at.band.left + 9, at.name.left, Qt::AlignLeft, u"勾选"_s);
    head(at.name.left + 7, at.low.left, Qt::AlignLeft, u"参数"_s);
    if (shown.lists) {
        over(at.count, u"个数"_s);
        head(at.list.left + 4, at.period.left, Qt::AlignLeft, u"最值表"_s);
    } else {
        over(at.low, u"下限"_s);
        over(at.high, u"上限"_s);
        if (shown.parities)
            head(at.odd.left, at.period.left, Qt::AlignLeft, u"奇偶/区间"_s);
    }
    if (shown.periods)
        head(at.period.left + 2, at.last.left, Qt::AlignLeft, u"检索期数"_s);
    over(at.last, u"上期"_s);
    if (at.share.width > 0)
        head(at.share.left, at.share.left + at.share.width, Qt::AlignLeft, u"历史占比"_s);
}

void paintStrip(QPainter& painter, const QWidget& table, const QStringList& told) {
    const toolkit::Colours& look = toolkit::colours(table.palette());
    const int top = table.height() - kStripHeight;
    painter.setPen(look.line);
    painter.drawLine(1, top, table.width() - 2, top);
    const int height = (kStripHeight - 2 * kStripTop) / 3;
    QRect line(kTitleLeft, top + kStripTop, table.width() - 2 * kTitleLeft, height);
    const auto write = [&](const QString& words) {
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(words, Qt::ElideRight, line.width()));
    };
    QFont ink = table.font();
    ink.setBold(told.size() > 1);
    painter.setFont(ink);
    painter.setPen(told.size() > 1 ? look.text : look.quiet);
    write(told.first());
    line.setLeft(line.left() + painter.fontMetrics().horizontalAdvance(told.first()) + kGap);
    painter.setFont(table.font());
    painter.setPen(look.quiet);
    for (const QString& words : told.mid(1)) {
        write(words);
        line = QRect(kTitleLeft, line.top() + height, table.width() - 2 * kTitleLeft, height);
    }
}

} // namespace filter
