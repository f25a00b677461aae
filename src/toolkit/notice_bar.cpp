#include "toolkit/notice_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr qreal kCorner = 6;
constexpr int kSign = 16;
constexpr int kSignLeft = 12;
constexpr int kSmallestHeight = 34;

} // namespace

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), m_text(new QLabel(this)), m_action(new QPushButton(this)) {
    setObjectName(u"NoticeBar"_s);
    setMinimumHeight(kSmallestHeight);
    m_text->setObjectName(u"NoticeText"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_action->setObjectName(u"NoticeAction"_s);
    auto* close = new QPushButton(u"关闭"_s, this);
    close->setObjectName(u"NoticeClose"_s);
    for (QPushButton* button : {m_action, close})
        button->setAutoDefault(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kSignLeft + kSign + 10, 4, 6, 4);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_action);
    layout->addWidget(close);
    setVisible(false);
    connect(m_action, &QPushButton::clicked, this, &NoticeBar::actionPressed);
    connect(close, &QPushButton::clicked, this, [this] {
        hide();
        emit closed();
    });
}

void NoticeBar::tell(const QString& text, const QString& action) {
    m_text->setText(text);
    setAccessibleName(text);
    m_action->setText(action);
    m_action->setVisible(!action.isEmpty());
    setVisible(true);
}

void NoticeBar::paintEvent(QPaintEvent*) {
    const Colours& look = colours(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(look.noticeEdge);
    painter.setBrush(look.notice);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    const QRectF sign(kSignLeft, (height() - kSign) / 2.0, kSign, kSign);
    painter.setPen(QPen(look.accentText, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(sign.adjusted(1, 1, -1, -1));
    const qreal middle = sign.center().x();
    painter.drawLine(QPointF(middle, sign.top() + 7), QPointF(middle, sign.bottom() - 4));
    painter.drawPoint(QPointF(middle, sign.top() + 4.5));
}

} // namespace toolkit
