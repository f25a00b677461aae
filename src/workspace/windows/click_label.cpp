#include "workspace/windows/click_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace workspace {

namespace {

constexpr int kPaddingX = 22;
constexpr int kPaddingY = 9;
constexpr qreal kCorner = 7;

/// A colour between two, `part` of the way from the first to the second.
QColor between(const QColor& from, const QColor& to, qreal part) {
    return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * part,
                            from.greenF() + (to.greenF() - from.greenF()) * part,
                            from.blueF() + (to.blueF() - from.blueF()) * part);
}

} // namespace

ClickLabel::ClickLabel(const QString& text, Look look, QWidget* parent) : QLabel(text, parent), m_look(look) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(text);
    setAttribute(Qt::WA_Hover);
}

QSize ClickLabel::sizeHint() const {
    return fontMetrics().size(Qt::TextSingleLine, text()) + QSize(2 * kPaddingX, 2 * kPaddingY);
}

void ClickLabel::paintEvent(QPaintEvent*) {
    const bool primary = m_look == Look::Primary && isEnabled();
    const QColor ground = primary ? palette().color(QPalette::Highlight) : palette().color(QPalette::Button);
    const QColor ink = primary ? palette().color(QPalette::HighlightedText) : palette().color(QPalette::ButtonText);
    const qreal shade = m_pressed ? 0.22 : m_pointedAt ? 0.10 : 0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2) : QPen(between(ground, ink, 0.25), 1));
    painter.setBrush(between(ground, ink, shade));
    painter.drawRoundedRect(hasFocus() ? box.adjusted(0.5, 0.5, -0.5, -0.5) : box, kCorner, kCorner);
    if (primary && hasFocus()) {
        painter.setPen(QPen(ink, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(3, 3, -3, -3), kCorner - 2, kCorner - 2);
    }
    painter.setPen(ink);
    painter.drawText(rect().translated(0, m_pressed ? 1 : 0), Qt::AlignCenter, text());
}

void ClickLabel::enterEvent(QEnterEvent* event) {
    m_pointedAt = true;
    update();
    QLabel::enterEvent(event);
}

void ClickLabel::leaveEvent(QEvent* event) {
    m_pointedAt = false;
    update();
    QLabel::leaveEvent(event);
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = true;
    update();
}

void ClickLabel::mouseMoveEvent(QMouseEvent* event) {
    m_pointedAt = rect().contains(event->position().toPoint());
    update();
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    m_pressed = false;
    update();
    if (rect().contains(event->position().toPoint()))
        emit clicked();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit clicked();
    else
        QLabel::keyPressEvent(event);
}

} // namespace workspace
