#include "filter/windows/row_controls.h"

#include <QApplication>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "toolkit/look.h"

using namespace Qt::StringLiterals;

namespace filter {

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

void PressButton::setGround(const QColor& colour) {
    QPalette tinted = palette();
    tinted.setColor(QPalette::AlternateBase, colour); // the mark itself is drawn with Base and Button
    setPalette(tinted);
    setBackgroundRole(QPalette::AlternateBase);
    setAutoFillBackground(true);
}

void PressButton::markColoured() {
    setGround(toolkit::isDark(palette()) ? QColor(58, 52, 40) : QColor(255, 243, 219));
}

void PressButton::markUsed() {
    if (toolkit::isDark(palette()))
        setGround(QColor(214, 222, 255)); // pure blue cannot be read on a dark ground
    QPalette used = palette();
    used.setColor(QPalette::Base, Qt::white); // the mark: a dark one without a dot would look chosen there
    used.setColor(QPalette::WindowText, QColor(0, 0, 255));
    setPalette(used);
}

void PressButton::act() {
    setFocus();
    setChecked(true);
    emit pressedAnyhow();
}

void PressButton::mousePressEvent(QMouseEvent* event) {
    event->accept();
    act();
}

void PressButton::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

void PressButton::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter) {
        QRadioButton::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat())
        act();
}

KeyedEdit::KeyedEdit(const QString& allowed, QWidget* parent) : QLineEdit(parent) {
    setMaxLength(kLongestText);
    setValidator(new QRegularExpressionValidator(QRegularExpression(allowed), this));
    connect(this, &QLineEdit::inputRejected, this, [] { QApplication::beep(); });
}

} // namespace filter
