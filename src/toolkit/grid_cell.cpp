#include "toolkit/grid_cell.h"

#include <QApplication>
#include <QPainter>

#include "toolkit/colours.h"

namespace toolkit {

namespace {

constexpr int kPadding = 6;
constexpr int kTickSide = 9;
constexpr int kWidestNumber = 2; // digits of a red or a blue

QColor inkOf(CellStyle style, RowState state, const Colours& look) {
    if (state == RowState::Out)
        return style == CellStyle::Text ? look.quiet : look.out;
    switch (style) {
    case CellStyle::Red:
        return look.red;
    case CellStyle::Blue:
        return look.blue;
    default:
        return look.text;
    }
}

/// The ground that a model tells for a cell: on a dark palette as dark as it is light on a light one.
QColor toldGround(const QStyleOptionViewItem& option) {
    const QColor told = option.backgroundBrush.color();
    if (!isDark(option.palette))
        return told;
    return QColor::fromHsl(told.hslHue(), told.hslSaturation(), 255 - told.lightness());
}

bool hasToldGround(const QStyleOptionViewItem& option) {
    return option.backgroundBrush.style() != Qt::NoBrush;
}

// A told ground is a mark of the cell: it stays in sight when its row is chosen, as a double click leaves it.
void paintGround(QPainter& painter, const QStyleOptionViewItem& option, const Colours& look) {
    if (hasToldGround(option))
        painter.fillRect(option.rect, toldGround(option));
    else if (option.state & QStyle::State_Selected)
        painter.fillRect(option.rect, look.tint);
    else if (option.features & QStyleOptionViewItem::Alternate)
        painter.fillRect(option.rect, look.alt);
    if (!(option.state & QStyle::State_HasFocus))
        return;
    painter.setPen(QPen(look.focus, 1));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
}

void paintTick(QPainter& painter, const QRect& cell, const Colours& look) {
    const QRectF box(cell.left() + kPadding, cell.center().y() - kTickSide / 2.0, kTickSide, kTickSide);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look.green, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{QPointF(box.left(), box.center().y() + 0.5),
                                   QPointF(box.left() + 3, box.bottom() - 0.5),
                                   QPointF(box.right(), box.top() + 0.5)});
}

/// Where a number stands: the block of the widest one in the middle, the number at its right end.
QRect numberBox(const QRect& cell, const QString& text, CellStyle style, const QFontMetrics& metrics) {
    if (style == CellStyle::Plain)
        return cell;
    const int digits = style == CellStyle::Number ? static_cast<int>(text.size()) : kWidestNumber;
    const int width = metrics.horizontalAdvance(QString(digits, QLatin1Char('0')));
    return QRect(cell.center().x() - width / 2, cell.top(), width, cell.height());
}

} // namespace

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const Colours& look = colours(option.palette);
    const auto style = static_cast<CellStyle>(index.data(kCellStyleRole).toInt());
    const auto state = static_cast<RowState>(index.data(kRowStateRole).toInt());
    painter->save();
    paintGround(*painter, option, look);
    if (index.column() == 0 && state == RowState::InPlay)
        paintTick(*painter, option.rect, look);
    QFont font = option.font;
    font.setStrikeOut(state == RowState::Out && style != CellStyle::Text);
    if (state == RowState::Hit)
        font.setBold(true);
    painter->setFont(font);
    const QVariant told = index.data(Qt::ForegroundRole);
    painter->setPen(told.isValid()          ? told.value<QColor>()
                    : hasToldGround(option) ? look.text
                                            : inkOf(style, state, look));
    const QRect inner = option.rect.adjusted(kPadding, 0, -kPadding, 0);
    if (style == CellStyle::Text)
        painter->drawText(inner, Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(option.text, Qt::ElideRight, inner.width()));
    else
        painter->drawText(numberBox(option.rect, option.text, style, option.fontMetrics),
                          (style == CellStyle::Plain ? Qt::AlignHCenter : Qt::AlignRight) | Qt::AlignVCenter |
                              Qt::TextDontClip,
                          option.text);
    painter->restore();
}

} // namespace toolkit
