#include "toolkit/segments.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "toolkit/colours.h"

namespace toolkit {

namespace {

constexpr qreal kCorner = 4;
constexpr int kPadding = 7;      // left and right of a text
constexpr int kLeastHeight = 26; // logical pixels
constexpr int kMainHeight = 34;

struct ButtonColours {
    QColor ground;
    QColor edge;
    QColor text;
};

/// The outline of a button: round where the shape ends. Neighbours share a line, so all but the last reach over it.
QPainterPath outline(const QRect& button, Joint joint) {
    const bool left = joint == Joint::Alone || joint == Joint::First;
    const bool right = joint == Joint::Alone || joint == Joint::Last;
    const QRectF box = QRectF(button).adjusted(0.5, 0.5, right ? -0.5 : 0.5, -0.5);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(box, kCorner, kCorner);
    if (!left)
        path.addRect(QRectF(box.left(), box.top(), kCorner, box.height()));
    if (!right)
        path.addRect(QRectF(box.right() - kCorner, box.top(), kCorner, box.height()));
    return path.simplified();
}

void paintButton(QPainter& painter, const QAbstractButton& button, Joint joint, const ButtonColours& look,
                 const QString& text) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(look.edge);
    painter.setBrush(look.ground);
    painter.drawPath(outline(button.rect(), joint));
    if (button.hasFocus()) {
        painter.setPen(QPen(colours(button.palette()).focus, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(button.rect()).adjusted(2, 2, -2, -2), kCorner - 1, kCorner - 1);
    }
    painter.setPen(look.text);
    painter.drawText(button.rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text);
}

QSize hintFor(const QAbstractButton& button, const QString& text) {
    QFont bold = button.font();
    bold.setBold(true); // so that a choice does not move its neighbours
    const QSize size = QFontMetrics(bold).size(Qt::TextShowMnemonic, text);
    return {size.width() + 2 * kPadding, std::max(kLeastHeight, size.height() + 6)};
}

ButtonColours restingColours(const QAbstractButton& button, bool step) {
    const Colours& look = colours(button.palette());
    if (!button.isEnabled())
        return {Qt::transparent, look.line, look.off};
    if (button.isDown())
        return {step ? look.stepHover : look.tintDeep, step ? look.stepEdge : look.accentText,
                step ? look.stepText : look.text};
    if (button.underMouse())
        return {step ? look.stepHover : look.tint, step ? look.stepEdge : look.accentText,
                step ? look.stepText : look.text};
    return step ? ButtonColours{look.step, look.stepEdge, look.stepText}
                : ButtonColours{look.button, look.edge, look.text};
}

} // namespace

QString Segment::shownText() const {
    return m_whole ? text() : text().section(QLatin1Char('('), 0, 0);
}

QSize Segment::sizeHint() const {
    return hintFor(*this, shownText());
}

void Segment::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    ButtonColours look = restingColours(*this, false);
    const Colours& all = colours(palette());
    if (isChecked()) {
        if (isEnabled())
            look = {all.tint, all.accentText, all.accentText};
        QFont bold = font();
        bold.setBold(true);
        painter.setFont(bold);
    }
    paintButton(painter, *this, isChecked() ? Joint::Alone : m_joint, look, shownText());
}

FlatButton::FlatButton(const QString& text, Look look, QWidget* parent) : QPushButton(text, parent), m_look(look) {
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
}

void FlatButton::markUsed() {
    m_used = true;
    update();
}

void FlatButton::standOut() {
    m_main = true;
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    updateGeometry();
}

QSize FlatButton::sizeHint() const {
    const QSize hint = hintFor(*this, text());
    return {hint.width(), std::max(hint.height(), m_main ? kMainHeight : 0)};
}

void FlatButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        event->accept(); // its release follows
    else
        QPushButton::mousePressEvent(event);
}

void FlatButton::mouseReleaseEvent(QMouseEvent* event) {
    QPushButton::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton && rect().contains(event->position().toPoint()))
        emit menuWanted();
}

void FlatButton::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit menuWanted();
}

void FlatButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    ButtonColours look = restingColours(*this, m_look == Look::Step);
    if (m_used && isEnabled())
        look.text = colours(palette()).used;
    paintButton(painter, *this, m_joint, look, text());
}

} // namespace toolkit
