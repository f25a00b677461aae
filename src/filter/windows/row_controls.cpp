#include "filter/windows/row_controls.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QWheelEvent>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace filter {

namespace {

constexpr qreal kCorner = 3;
constexpr int kCaptionLeft = 7;
constexpr qreal kDot = 6;
constexpr int kDotRoom = 12; // the dot and its margins, right of the longest caption
constexpr int kChevronRoom = 14;

void paintFocus(QPainter& painter, const QRect& control, const toolkit::Colours& look) {
    painter.save();
    painter.setPen(QPen(look.focus, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(control).adjusted(1, 1, -1, -1), kCorner - 1, kCorner - 1);
    painter.restore();
}

} // namespace

QString indexedName(const QString& name, int index) {
    return u"%1(%2)"_s.arg(name).arg(index);
}

QSize TickBox::sizeHint() const {
    return {style()->pixelMetric(QStyle::PM_IndicatorWidth) + 4,
            style()->pixelMetric(QStyle::PM_IndicatorHeight) + 4};
}

void TickBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_CheckBox, option);
}

PressButton::PressButton(const QString& caption, QWidget* parent) : QAbstractButton(parent) {
    setText(caption);
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void PressButton::markColoured() {
    m_coloured = true;
    update();
}

void PressButton::markUsed() {
    m_used = true;
    update();
}

QSize PressButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + kCaptionLeft + kDotRoom, fontMetrics().height()};
}

void PressButton::act(Qt::MouseButton button) {
    setFocus();
    repaint(); // a long run follows: the press is seen at once
    emit pressedBy(button);
}

void PressButton::mousePressEvent(QMouseEvent* event) {
    event->accept();
    m_held = true;
    act(event->button());
}

void PressButton::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void PressButton::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    m_held = false;
    update();
}

void PressButton::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter) {
        event->ignore(); // arrows belong to the table
        return;
    }
    if (!event->isAutoRepeat())
        act(Qt::LeftButton);
}

void PressButton::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        act(Qt::RightButton);
}

void PressButton::leaveEvent(QEvent* event) {
    m_held = false; // a menu or a box that came with the press took the release
    QAbstractButton::leaveEvent(event);
}

void PressButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const toolkit::Colours& look = toolkit::colours(palette());
    const bool lit = isChecked() || underMouse();
    painter.setPen(lit || m_held ? look.accentText : m_coloured ? look.warmEdge : look.capEdge);
    painter.setBrush(m_held ? look.tintDeep : lit ? look.tint : m_coloured ? look.warm : look.head);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    if (hasFocus())
        paintFocus(painter, rect(), look);
    painter.setPen(m_used ? look.used : look.text);
    painter.drawText(rect().adjusted(kCaptionLeft, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
    if (!m_used)
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.used);
    painter.drawEllipse(QRectF(width() - 5 - kDot, (height() - kDot) / 2, kDot, kDot));
}

KeyedEdit::KeyedEdit(const QString& allowed, QWidget* parent) : QLineEdit(parent) {
    setMaxLength(kLongestText);
    setValidator(new QRegularExpressionValidator(QRegularExpression(allowed), this));
    setFrame(false);
    QPalette clear = palette();
    clear.setBrush(QPalette::Base, Qt::NoBrush); // the ground is painted here, with round corners
    setPalette(clear);
    connect(this, &QLineEdit::inputRejected, this, [] { QApplication::beep(); });
}

void KeyedEdit::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const toolkit::Colours& look = toolkit::colours(palette());
        painter.setPen(isEnabled() ? look.edge : look.line);
        painter.setBrush(isEnabled() ? look.field : Qt::transparent);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
        if (hasFocus())
            paintFocus(painter, rect(), look);
    }
    QLineEdit::paintEvent(event);
}

void QuietCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void QuietCombo::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const toolkit::Colours& look = toolkit::colours(palette());
    const bool chosen = currentIndex() > 0;
    if (isEnabled() && (underMouse() || hasFocus())) {
        painter.setPen(look.edge);
        painter.setBrush(look.field);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    }
    if (hasFocus())
        paintFocus(painter, rect(), look);
    const QColor ink = !isEnabled() ? look.off : chosen ? look.text : look.quiet;
    painter.setPen(ink);
    painter.setBrush(Qt::NoBrush);
    painter.drawText(rect().adjusted(2, 0, -kChevronRoom, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     currentIndex() < 0 ? placeholderText() : currentText());
    const QPointF tip(width() - kChevronRoom / 2.0, height() / 2.0 + 2);
    painter.setPen(QPen(ink, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{tip + QPointF(-3, -3), tip, tip + QPointF(3, -3)});
}

} // namespace filter
