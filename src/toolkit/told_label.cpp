#include "toolkit/told_label.h"

#include <QPainter>

#include "toolkit/colours.h"

namespace toolkit {

namespace {

constexpr int kMargin = 6;
constexpr qreal kCorner = 3;

} // namespace

ToldLabel::ToldLabel(const QString& name, int lines, QWidget* parent) : QLabel(parent) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMargin(kMargin);
    setMinimumHeight(lines * fontMetrics().lineSpacing() + 2 * kMargin);
}

void ToldLabel::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const Colours& look = colours(palette());
        painter.setPen(look.line);
        painter.setBrush(look.head);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    }
    QLabel::paintEvent(event);
}

} // namespace toolkit
