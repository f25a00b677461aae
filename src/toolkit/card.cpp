#include "toolkit/card.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "toolkit/look.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kMargin = 8;
constexpr int kSpacing = 4;
constexpr qreal kCorner = 6;

} // namespace

Card::Card(const QString& name, const QString& heading, QWidget* parent) : QFrame(parent), m_title(heading) {
    setObjectName(name);
    setAccessibleName(heading);
    m_head = new QHBoxLayout;
    m_head->setSpacing(kSpacing);
    if (!heading.isEmpty()) {
        auto* label = new QLabel(heading);
        label->setObjectName(name + u"Heading"_s);
        QFont font = label->font();
        font.setBold(true);
        label->setFont(font);
        m_head->addWidget(label);
        m_head->addStretch();
    }
    m_body = new QVBoxLayout(this);
    m_body->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_body->setSpacing(kSpacing);
    m_body->addLayout(m_head);
}

void Card::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const Colours& look = colours(palette());
    if (rect().marginsRemoved({kMargin, kMargin, kMargin, kMargin}).contains(event->rect())) {
        painter.fillRect(event->rect(), look.card); // behind what changes within: its edge stays as it is
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(look.card);
    painter.setPen(look.line);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

} // namespace toolkit
