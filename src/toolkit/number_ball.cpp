#include "toolkit/number_ball.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "toolkit/look.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kCell = 36;
constexpr int kSmallestCell = 26;
constexpr qreal kLargestDisc = 30;
constexpr qreal kFocusWidth = 2;
constexpr qreal kFocusCorner = 5;
constexpr qreal kTextShare = 0.40; // of the disc's diameter: two digits keep clear of the ring

QColor mixed(const QColor& first, const QColor& second, qreal share) {
    const auto part = [share](int a, int b) { return static_cast<int>(a * (1 - share) + b * share); };
    return QColor(part(first.red(), second.red()), part(first.green(), second.green()),
                  part(first.blue(), second.blue()));
}

} // namespace

NumberBall::NumberBall(Kind kind, int number, QWidget* parent)
    : QAbstractButton(parent), m_kind(kind), m_number(number) {
    setText(QString::number(number));
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    describe();
}

void NumberBall::setState(State state) {
    if (m_state == state)
        return;
    m_state = state;
    describe();
    update();
}

void NumberBall::describe() {
    constexpr QStringView kStates[] = {u"未选", u"已选", u"胆"};
    const QString colour = m_kind == Kind::Red ? u"红球"_s : u"蓝球"_s;
    setAccessibleName(u"%1 %2 %3"_s.arg(colour, text(), kStates[static_cast<int>(m_state)]));
}

QSize NumberBall::sizeHint() const {
    return {kCell, kCell};
}
QSize NumberBall::minimumSizeHint() const {
    return {kSmallestCell, kSmallestCell};
}

QRectF NumberBall::disc() const {
    const qreal side = std::min(std::min(width(), height()) - 4.0, kLargestDisc);
    QRectF disc(0, 0, side, side);
    disc.moveCenter(QRectF(rect()).center());
    return disc;
}

bool NumberBall::hitButton(const QPoint& position) const {
    const QPointF fromCentre = QPointF(position) - disc().center();
    const qreal radius = disc().width() / 2 + 1;
    return QPointF::dotProduct(fromCentre, fromCentre) <= radius * radius;
}

void NumberBall::mousePressEvent(QMouseEvent* event) {
    if (!hitButton(event->position().toPoint())) {
        event->ignore();
        return;
    }
    event->accept();
    if (event->button() == Qt::RightButton)
        emit rightPressed(event->globalPosition().toPoint());
    if (event->button() != Qt::LeftButton)
        return;
    m_held = true;
    click();
}

/// The press has acted already: where the mouse goes with the button held does not matter.
void NumberBall::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
}

void NumberBall::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    m_held = false;
    update();
}

void NumberBall::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void NumberBall::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit rightPressed(mapToGlobal(rect().center()));
    event->accept();
}

void NumberBall::enterEvent(QEnterEvent* event) {
    update();
    QAbstractButton::enterEvent(event);
}

void NumberBall::leaveEvent(QEvent* event) {
    update();
    QAbstractButton::leaveEvent(event);
}

void NumberBall::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Colours& look = colours(palette());
    const bool filled = m_state == State::Selected;
    QColor colour = m_kind == Kind::Red ? (filled ? look.redBall : look.red) : (filled ? look.blueBall : look.blue);
    const QColor ground = palette().color(QPalette::Base);
    if (!isEnabled())
        colour = mixed(colour, ground, 0.6);
    const bool warm = isEnabled() && (underMouse() || isPressed());
    const QRectF ball = disc();

    QColor inside = filled ? colour : ground;
    if (warm)
        inside = mixed(inside, filled ? palette().color(QPalette::Text) : colour, isPressed() ? 0.24 : 0.12);
    painter.setBrush(inside);
    painter.setPen(QPen(colour, 1.5));
    painter.drawEllipse(m_state == State::Banker ? ball.adjusted(4, 4, -4, -4) : ball.adjusted(1, 1, -1, -1));
    if (m_state == State::Banker) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(look.gold, 2.5));
        painter.drawEllipse(ball.adjusted(1, 1, -1, -1));
    }

    QFont font = this->font();
    font.setPixelSize(static_cast<int>(ball.height() * kTextShare));
    font.setBold(m_state != State::Free);
    painter.setFont(font);
    painter.setPen(filled ? look.onBall : colour);
    painter.drawText(ball, Qt::AlignCenter, text());
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(look.focus, kFocusWidth));
        painter.drawRoundedRect(ball.adjusted(-1.5, -1.5, 1.5, 1.5), kFocusCorner, kFocusCorner);
    }
}

} // namespace toolkit
