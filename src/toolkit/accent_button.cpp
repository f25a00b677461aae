#include "toolkit/accent_button.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

#include "toolkit/colours.h"

namespace toolkit {

namespace {

constexpr qreal kCorner = 4;
constexpr int kPressedShade = 115; // per cent
constexpr int kPointedShade = 107;

} // namespace

void AccentButton::paintEvent(QPaintEvent* event) {
    if (!isEnabled())
        return QPushButton::paintEvent(event);
    const QColor accent = colours(palette()).accent;
    const QColor ground = accent.darker(isDown() ? kPressedShade : underMouse() ? kPointedShade : 100);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), kCorner, kCorner);
    if (hasFocus()) {
        painter.setPen(Qt::white);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), kCorner - 1, kCorner - 1);
    }
    QPalette ink = palette();
    ink.setColor(QPalette::ButtonText, Qt::white);
    style()->drawItemText(&painter, rect(), Qt::AlignCenter | Qt::TextShowMnemonic, ink, true, text(),
                          QPalette::ButtonText);
}

} // namespace toolkit
