#include "toolkit/program_style.h"

#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

#include "toolkit/flat_parts.h"
#include "toolkit/look.h"

/// Resources of a static library have to be asked for, and that outside of any namespace.
static void loadIcons() {
    Q_INIT_RESOURCE(toolkit);
}

namespace toolkit {

namespace {

constexpr qreal kOutline = 1.2;
constexpr qreal kCorner = 3;
constexpr qreal kFocusWidth = 2;
constexpr qreal kFocusRoom = 2.5; // from the edge of a mark with the focus to what is left of it inside

struct MarkColours {
    QColor outline;
    QColor ground;
    QColor sign;
};

MarkColours markColours(const QStyleOption& option) {
    const Colours& look = colours(option.palette);
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool marked = option.state & (QStyle::State_On | QStyle::State_NoChange);
    const bool pointed = option.state & (QStyle::State_MouseOver | QStyle::State_HasFocus);
    const QColor accent = option.palette.color(QPalette::Active, QPalette::Highlight);
    const QColor faint = option.palette.color(QPalette::Disabled, QPalette::WindowText);
    if (!enabled)
        return {faint, option.palette.color(QPalette::Window), faint};
    if (marked)
        return {accent, accent, option.palette.color(QPalette::HighlightedText)};
    return {pointed ? accent : look.edge, option.palette.color(QPalette::Base), accent};
}

/// The square, on whole pixels, that a mark fills in its rectangle.
QRectF markBox(const QRect& rect) {
    const int side = std::min(rect.width(), rect.height()) - 2;
    return QRectF(rect.x() + (rect.width() - side) / 2 + 0.5, rect.y() + (rect.height() - side) / 2 + 0.5, side - 1,
                  side - 1);
}

/// The ring of a mark that has the keyboard. \return the box that is left inside it for a sign
QRectF drawFocusRing(QPainter& painter, const QStyleOption& option, const QRectF& box) {
    painter.setPen(QPen(colours(option.palette).focus, kFocusWidth));
    painter.setBrush(option.palette.color(QPalette::Base));
    painter.drawRoundedRect(box.adjusted(-0.5, -0.5, 0.5, 0.5), kCorner, kCorner);
    return box.adjusted(kFocusRoom, kFocusRoom, -kFocusRoom, -kFocusRoom);
}

void drawCheck(QPainter& painter, const QStyleOption& option) {
    const MarkColours look = markColours(option);
    QRectF box = markBox(option.rect);
    if (option.state & QStyle::State_HasFocus)
        box = drawFocusRing(painter, option, box);
    if (option.state & QStyle::State_HasFocus && option.state & QStyle::State_Off)
        return; // the ring is its edge
    painter.setPen(QPen(look.outline, kOutline));
    painter.setBrush(look.ground);
    painter.drawRoundedRect(box, box.width() / 4, box.width() / 4);
    const auto at = [&box](qreal x, qreal y) {
        return QPointF(box.x() + x * box.width(), box.y() + y * box.height());
    };
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(look.sign, box.width() / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (option.state & QStyle::State_On)
        painter.drawPolyline(QPolygonF{at(0.22, 0.54), at(0.43, 0.74), at(0.79, 0.29)});
    else if (option.state & QStyle::State_NoChange)
        painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
}

void drawOption(QPainter& painter, const QStyleOption& option) {
    const MarkColours look = markColours(option);
    const QRectF box = markBox(option.rect);
    painter.setPen(QPen(look.outline, kOutline));
    painter.setBrush(look.ground);
    painter.drawEllipse(box);
    if (!(option.state & QStyle::State_On))
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.sign);
    painter.drawEllipse(box.center(), box.width() / 5, box.height() / 5);
}

} // namespace

ProgramStyle::ProgramStyle() : QProxyStyle(QStringLiteral("Fusion")) {
    loadIcons();
}

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    if (icon == SP_MessageBoxQuestion)
        return QIcon(QStringLiteral(":/toolkit/icons/question.svg"));
    return QProxyStyle::standardIcon(icon, option, widget);
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    if (element == PE_FrameFocusRect && qobject_cast<const QPushButton*>(widget))
        return; // the button paints its own
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    switch (element) {
    case PE_PanelButtonCommand:
        drawButton(*painter, *option);
        break;
    case PE_FrameLineEdit:
        drawFieldEdge(*painter, *option);
        break;
    case PE_PanelScrollAreaCorner:
        painter->fillRect(option->rect, colours(option->palette).card);
        break;
    case PE_IndicatorCheckBox:
        drawCheck(*painter, *option);
        break;
    case PE_IndicatorRadioButton:
        drawOption(*painter, *option);
        break;
    default:
        painter->restore();
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    painter->restore();
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (element != CE_HeaderSection && element != CE_HeaderEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    painter->save();
    drawHeadGround(*painter, *option);
    painter->restore();
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    painter->save();
    drawScrollBar(*painter, *bar);
    painter->restore();
}

QRect ProgramStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                   const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar)
        return scrollBarPart(*bar, part);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

} // namespace toolkit
