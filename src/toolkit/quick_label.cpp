#include "toolkit/quick_label.h"

#include <algorithm>

#include <QPainter>

#include "toolkit/colours.h"

namespace toolkit {

const QStaticText& LaidOutCharacters::of(QChar character, const QFont& font) {
    if (font != m_font)
        m_stored.clear();
    m_font = font;
    QStaticText& stored = m_stored[character];
    if (stored.text().isEmpty()) {
        stored = QStaticText(character);
        stored.setTextFormat(Qt::PlainText);
        stored.prepare({}, font);
    }
    return stored;
}

QuickLabel::QuickLabel(LaidOutCharacters& characters, const QString& widest) : m_characters(characters) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    fixSize(*this, widest);
}

void QuickLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), colours(palette()).card);
    painter.setPen(palette().color(foregroundRole()));
    const QString shown = text();
    QSizeF size;
    for (const QChar character : shown) {
        const QSizeF one = m_characters.of(character, font()).size();
        size = {size.width() + one.width(), std::max(size.height(), one.height())};
    }
    const qreal room = width() - size.width();
    QPointF place(alignment().testFlag(Qt::AlignHCenter) ? room / 2 : room, (height() - size.height()) / 2);
    for (const QChar character : shown) {
        const QStaticText& stored = m_characters.of(character, font());
        painter.drawStaticText(place, stored);
        place.rx() += stored.size().width();
    }
}

void fixSize(QLabel& label, const QString& widest) {
    const QString shown = label.text();
    label.setTextFormat(Qt::PlainText); // not looked through for tags each time
    label.setText(widest);
    label.setFixedSize(label.sizeHint());
    label.setText(shown);
}

} // namespace toolkit
