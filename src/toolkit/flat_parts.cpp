#include "toolkit/flat_parts.h"

#include <QPainter>
#include <QStyleOptionSlider>

#include "toolkit/colours.h"

namespace toolkit {

namespace {

constexpr qreal kCorner = 4;
constexpr int kFocusWidth = 2;
constexpr int kLeastHandle = 24; // logical pixels: it can be caught in the longest list
constexpr int kHandleMargin = 3;

struct Ink {
    QColor ground;
    QColor edge;
};

Ink inkOf(const QStyleOption& option) {
    const Colours& look = colours(option.palette);
    if (!(option.state & QStyle::State_Enabled))
        return {Qt::transparent, look.line};
    if (option.state & (QStyle::State_Sunken | QStyle::State_On))
        return {look.tintDeep, look.accentText};
    if (option.state & QStyle::State_MouseOver)
        return {look.tint, look.accentText};
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const bool first = button && button->features & QStyleOptionButton::DefaultButton;
    return {look.button, first ? look.accentText : look.edge};
}

QRect alongBar(const QStyleOptionSlider& bar, int from, int length) {
    if (bar.orientation == Qt::Horizontal)
        return {bar.rect.left() + from, bar.rect.top(), length, bar.rect.height()};
    return {bar.rect.left(), bar.rect.top() + from, bar.rect.width(), length};
}

} // namespace

void drawButton(QPainter& painter, const QStyleOption& option) {
    const Ink ink = inkOf(option);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ink.edge);
    painter.setBrush(ink.ground);
    painter.drawRoundedRect(box, kCorner, kCorner);
    if (!(option.state & QStyle::State_HasFocus))
        return;
    painter.setPen(QPen(colours(option.palette).focus, kFocusWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(1.5, 1.5, -1.5, -1.5), kCorner - 1, kCorner - 1);
}

void drawFieldEdge(QPainter& painter, const QStyleOption& option) {
    const Colours& look = colours(option.palette);
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool focused = option.state & QStyle::State_HasFocus;
    const qreal inset = focused ? kFocusWidth / 2.0 : 0.5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(focused ? QPen(look.focus, kFocusWidth) : QPen(enabled ? look.edge : look.line));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), kCorner, kCorner);
}

void drawHeadGround(QPainter& painter, const QStyleOption& option) {
    const Colours& look = colours(option.palette);
    painter.fillRect(option.rect, look.head);
    painter.setPen(look.line);
    painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar) {
    const Colours& look = colours(bar.palette);
    painter.fillRect(bar.rect, look.card);
    if (bar.maximum <= bar.minimum)
        return;
    const bool lit = bar.activeSubControls & QStyle::SC_ScrollBarSlider;
    const QRectF handle = QRectF(scrollBarPart(bar, QStyle::SC_ScrollBarSlider))
                              .adjusted(kHandleMargin, kHandleMargin, -kHandleMargin, -kHandleMargin);
    const qreal round = std::min(handle.width(), handle.height()) / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(lit ? look.quiet : look.edge);
    painter.drawRoundedRect(handle, round, round);
}

QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
    const int length = bar.orientation == Qt::Horizontal ? bar.rect.width() : bar.rect.height();
    const qint64 hidden = qint64(bar.maximum) - bar.minimum;
    const qint64 whole = std::max<qint64>(1, hidden + bar.pageStep);
    const int share = static_cast<int>(qint64(bar.pageStep) * length / whole);
    const int handle = std::min(length, hidden > 0 ? std::max(kLeastHandle, share) : length);
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - handle,
                                                      bar.upsideDown);
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    case QStyle::SC_ScrollBarSlider:
        return alongBar(bar, start, handle);
    case QStyle::SC_ScrollBarSubPage:
        return alongBar(bar, 0, start);
    case QStyle::SC_ScrollBarAddPage:
        return alongBar(bar, start + handle, length - start - handle);
    default:
        return {};
    }
}

} // namespace toolkit
