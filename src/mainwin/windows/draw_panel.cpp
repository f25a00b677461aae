#include "mainwin/windows/draw_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "toolkit/card.h"
#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kTraceCaptions = 7;
constexpr int kCaptionedPicks = 10; // above it the count of ticks goes without its caption

QLabel* label(const QString& name, const QString& text) {
    auto* made = new QLabel(text);
    made->setObjectName(name);
    return made;
}

/// "1位走势" over a stroke in the colour of its line.
class TraceCaption : public QLabel {
  public:
    explicit TraceCaption(int place) : QLabel(u"%1位走势"_s.arg(place)), m_place(place) {
        setObjectName(u"Label13(%1)"_s.arg(place));
        setContentsMargins(0, 0, 0, kStrip + 1);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        QPainter painter(this);
        painter.fillRect(0, height() - kStrip, width(), kStrip, toolkit::colours(palette()).trace);
        painter.fillRect(1, height() - kStrip + 1, width() - 2, kStrip - 2,
                         TracePicture::lineColour(static_cast<std::size_t>(m_place - 1)));
    }

  private:
    static constexpr int kStrip = 5; // of the trace's ground: black is not seen on a dark card
    int m_place;
};

} // namespace

DrawPanel::DrawPanel(QWidget* parent)
    : QWidget(parent), m_ticksCaption(label(u"LabelTicks"_s, u"摇奖次数:"_s)), m_ticks(label(u"Label11"_s, u"0"_s)),
      m_trace(new TracePicture), m_buttons(new QHBoxLayout) {
    setObjectName(u"DrawPanel"_s);
    toolkit::fixSize(*m_ticks, u"0000000"_s);
    m_ticks->setToolTip(u"摇奖次数"_s);
    auto* card = new toolkit::Card(u"FrameDraw"_s, u"摇奖分析"_s);
    card->head().addLayout(m_buttons);
    auto* first = numberRow(u"Label7"_s, u"红球机选:"_s, u"Label1"_s, m_drawn);
    first->addWidget(m_ticksCaption);
    first->addWidget(m_ticks);
    card->body().addLayout(first);
    card->body().addLayout(numberRow(u"Label118"_s, u"红球预测:"_s, u"Label2"_s, m_ranked));
    auto* captions = new QHBoxLayout;
    for (int place = 1; place <= kTraceCaptions; ++place)
        captions->addWidget(new TraceCaption(place), 0, Qt::AlignCenter);
    card->body().addLayout(captions);
    card->body().addWidget(m_trace, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
}

/// A caption with a row of number labels name(0), name(1), ….
QHBoxLayout* DrawPanel::numberRow(const QString& captionName, const QString& caption, const QString& name,
                                  Numbers& numbers) {
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    row->addWidget(label(captionName, caption));
    for (std::size_t place = 0; place < numbers.size(); ++place) {
        auto* number = new toolkit::QuickLabel(m_characters, u"00"_s);
        number->setObjectName(u"%1(%2)"_s.arg(name).arg(place));
        number->setAlignment(Qt::AlignCenter);
        numbers[place] = number;
        row->addWidget(number);
    }
    row->addStretch();
    return row;
}

void DrawPanel::showPicks(const selection::Simulator& simulator) {
    for (std::size_t place = 0; place < m_drawn.size(); ++place) {
        const bool used = static_cast<int>(place) < simulator.Picknum;
        m_drawn[place]->setVisible(used);
        m_ranked[place]->setVisible(used);
    }
    m_ticksCaption->setVisible(simulator.Picknum <= kCaptionedPicks);
    if (simulator.Ticks == 0)
        clear(simulator);
}

void DrawPanel::showTick(const selection::Simulator& simulator) {
    const auto picks = static_cast<std::size_t>(simulator.Picknum);
    for (std::size_t place = 0; place < picks; ++place) {
        m_drawn[place]->setText(QString::number(simulator.drawnInOrder()[place]));
        m_ranked[place]->setText(QString::number(simulator.Top[place]));
    }
    m_ticks->setText(QString::number(simulator.Ticks));
    m_trace->add(simulator.Ticks, std::span(simulator.Prevtop).first(picks), std::span(simulator.Top).first(picks));
}

void DrawPanel::clear(const selection::Simulator& simulator) {
    for (const Numbers* numbers : {&m_drawn, &m_ranked})
        for (QLabel* number : *numbers)
            number->setText(u"–"_s);
    m_ticks->setText(QString::number(simulator.Ticks));
    m_trace->clear();
}

void DrawPanel::addButton(QPushButton* button) {
    m_buttons->addWidget(button);
}

} // namespace mainwin
