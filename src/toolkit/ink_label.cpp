#include "toolkit/ink_label.h"

#include <QEvent>

namespace toolkit {

InkLabel::InkLabel(const QString& name, Ink ink, const QString& text, QWidget* parent)
    : QLabel(text, parent), m_ink(ink) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setForegroundRole(QPalette::WindowText); // over a grid it would take on that of texts in fields
    colour();
}

void InkLabel::setInk(Ink ink) {
    m_ink = ink;
    colour();
}

void InkLabel::colour() {
    QPalette own = palette();
    const QColor wanted = colours(own).*m_ink;
    if (own.color(QPalette::WindowText) == wanted)
        return; // setting it again would be told as a change again
    own.setColor(QPalette::WindowText, wanted);
    setPalette(own);
}

void InkLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colour();
}

} // namespace toolkit
