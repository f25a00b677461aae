#include "mainwin/windows/arrange_row.h"

#include <QHBoxLayout>
#include <QPainter>

#include "toolkit/accent_button.h"
#include "toolkit/ink_label.h"

using namespace Qt::StringLiterals;
using toolkit::Colours;

namespace mainwin {

namespace {

constexpr int kButtonWidth = 112;
constexpr int kRingSide = 16;

/// The place of what is missing: a ball that is not there yet.
class MissingRing : public QWidget {
  public:
    MissingRing() {
        setObjectName(u"MissingRing"_s);
        setFixedSize(kRingSide, kRingSide);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QPen dashes(toolkit::colours(palette()).gold, 1.5);
        dashes.setDashPattern({2, 1.5});
        painter.setPen(dashes);
        painter.drawEllipse(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5));
    }
};

} // namespace

ArrangeRow::ArrangeRow(QWidget* parent)
    : QWidget(parent), m_button(new toolkit::AccentButton(u"组合排列…"_s)), m_ring(new MissingRing),
      m_first(new toolkit::InkLabel(u"ArrangeMissing"_s, &Colours::goldText)),
      m_second(new toolkit::InkLabel(u"ArrangeOutlook"_s, &Colours::quiet)) {
    setObjectName(u"ArrangeRow"_s);
    m_button->setObjectName(u"cmdArrange"_s);
    m_button->setMinimumWidth(kButtonWidth);
    QFont bold = m_first->font();
    bold.setBold(true);
    m_first->setFont(bold);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 5, 0, 0);
    layout->addWidget(m_button);
    layout->addWidget(m_ring);
    layout->addWidget(m_first);
    layout->addWidget(m_second, 1);
    m_second->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // cut, rather than widening the column
    connect(m_button, &QPushButton::clicked, this, &ArrangeRow::pressed);
}

void ArrangeRow::showMissing(const QString& missing, const QString& outlook) {
    m_button->setEnabled(false);
    m_button->setToolTip(missing);
    m_ring->show();
    m_first->setInk(&Colours::goldText);
    m_first->setText(missing);
    m_second->setText(outlook);
}

void ArrangeRow::showReady(const QString& cost, const QString& form) {
    m_button->setEnabled(true);
    m_button->setToolTip({});
    m_ring->hide();
    m_first->setInk(&Colours::text);
    m_first->setText(cost);
    m_second->setText(form);
    m_second->setToolTip(form);
}

void ArrangeRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(toolkit::colours(palette()).line);
    painter.drawLine(0, 0, width(), 0);
}

} // namespace mainwin
