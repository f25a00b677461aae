#include "mainwin/windows/draw_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "toolkit/card.h"
#include "toolkit/look.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kGridLines = 5;

QLabel* label(const QString& name, const QString& text) {
    auto* made = new QLabel(text);
    made->setObjectName(name);
    return made;
}

/// A caption with a row of number labels name(0)..name(5), at rest without numbers.
QHBoxLayout* numberRow(const QString& captionName, const QString& caption, const QString& name) {
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(label(captionName, caption));
    for (int place = 0; place < DrawPanel::kNumbers; ++place) {
        QLabel* number = label(u"%1(%2)"_s.arg(name).arg(place), u"–"_s);
        number->setAlignment(Qt::AlignCenter);
        number->setMinimumWidth(number->fontMetrics().horizontalAdvance(u"000"_s));
        row->addWidget(number);
    }
    row->addStretch();
    return row;
}

} // namespace

TracePicture::TracePicture(QWidget* parent) : QWidget(parent) {
    setObjectName(u"Picture3"_s);
    setAccessibleName(u"走势轨迹"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumHeight(36);
}

QSize TracePicture::sizeHint() const {
    return {360, 60};
}

void TracePicture::setLogicalHeight(int height) {
    m_logicalHeight = height;
    update();
}

void TracePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::AlternateBase));
    painter.setPen(toolkit::colours(palette()).line);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.scale(static_cast<double>(width()) / kLogicalWidth, static_cast<double>(height()) / m_logicalHeight);
    QPen line(toolkit::colours(palette()).line, 1, Qt::DotLine);
    line.setCosmetic(true);
    painter.setPen(line);
    for (int step = 1; step < kGridLines; ++step) {
        const double level = static_cast<double>(m_logicalHeight) * step / kGridLines;
        painter.drawLine(QPointF(0, level), QPointF(kLogicalWidth, level));
    }
}

DrawPanel::DrawPanel(QWidget* parent) : QWidget(parent), m_trace(new TracePicture), m_buttons(new QHBoxLayout) {
    setObjectName(u"DrawPanel"_s);
    auto* card = new toolkit::Card(u"FrameDraw"_s, u"摇奖分析"_s);
    card->head().addLayout(m_buttons);
    auto* ticks = new QHBoxLayout;
    ticks->addWidget(label(u"LabelTicks"_s, u"摇奖次数:"_s));
    ticks->addWidget(label(u"Label11"_s, u"0"_s));
    auto* first = numberRow(u"Label7"_s, u"红球机选:"_s, u"Label1"_s);
    first->addLayout(ticks);
    card->body().addLayout(first);
    card->body().addLayout(numberRow(u"Label118"_s, u"红球预测:"_s, u"Label2"_s));
    auto* captions = new QHBoxLayout;
    for (int place = 1; place <= 7; ++place)
        captions->addWidget(label(u"Label13(%1)"_s.arg(place), u"%1位走势"_s.arg(place)), 0, Qt::AlignCenter);
    card->body().addLayout(captions);
    card->body().addWidget(m_trace, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
}

void DrawPanel::addButton(QPushButton* button) {
    m_buttons->addWidget(button);
}

} // namespace mainwin
