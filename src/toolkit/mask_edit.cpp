#include "toolkit/mask_edit.h"

#include <QFocusEvent>

using namespace Qt::StringLiterals;

namespace toolkit {

MaskEdit::MaskEdit(const QString& mask, QWidget* parent)
    : QLineEdit(parent), m_places(static_cast<int>(mask.size())) {
    // The mask letter of an optional digit here is 0; 9 would demand one.
    setInputMask(QString(mask.size(), u'0') + u";_"_s);
    setAlignment(Qt::AlignCenter);
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (cursorPosition() >= m_places)
            emit filled();
    });
}

QSize MaskEdit::minimumSizeHint() const {
    constexpr int kFrame = 14; // both sides, with the padding of the style
    return {fontMetrics().horizontalAdvance(QString(m_places, u'0')) + kFrame, QLineEdit::minimumSizeHint().height()};
}

QSize MaskEdit::sizeHint() const {
    return {minimumSizeHint().width(), QLineEdit::sizeHint().height()};
}

void MaskEdit::clearToMask() {
    clear();
    setCursorPosition(0);
}

void MaskEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        setCursorPosition(0);
}

void MaskEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (!hasSelectedText())
        setCursorPosition(0);
}

} // namespace toolkit
