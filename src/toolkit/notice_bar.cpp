#include "toolkit/notice_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "toolkit/look.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kMark = 4; // width of the strip at the left that tells a notice from the window
constexpr qreal kTint = 0.14;

} // namespace

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), m_text(new QLabel(this)), m_action(new QPushButton(this)) {
    setObjectName(u"NoticeBar"_s);
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
    layout->setContentsMargins(kMark + 10, 5, 8, 5);
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
    QColor tint = colours(palette()).gold;
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, kMark, height()), tint);
    tint.setAlphaF(kTint);
    painter.fillRect(rect(), tint);
}

} // namespace toolkit
