#include "selection/windows/pad_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include "toolkit/ball_grid.h"
#include "toolkit/card.h"
#include "toolkit/look.h"

using namespace Qt::StringLiterals;
using toolkit::BallGrid;
using toolkit::NumberBall;

namespace selection {

namespace {

constexpr int kRedColumns = 11; // a row is a third of 33 reds
constexpr int kBlueColumns = 8;
const auto kClearToolTip = u"必须选择8个以上的数才能返回摇奖窗口进行摇奖";

/// Three labels of the echo: what the line is, the numbers, how many.
struct EchoRow {
    const char16_t* caption;
    const char16_t* captionName;
    const char16_t* listName;
    const char16_t* countName;
};

constexpr EchoRow kEcho[] = {
    {u"拖:", u"Label9(0)", u"Label100", u"Label5"},
    {u"胆:", u"Label9(1)", u"Label8", u"Label19"},
    {u"蓝:", u"LabelBlue", u"Label3", u"Label15"},
};

QLabel* namedLabel(const char16_t* name, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(QString::fromUtf16(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

NumberBall::State redState(const Pad& pad, std::size_t number) {
    if (pad.Danmark[number])
        return NumberBall::State::Banker;
    return pad.Redsel[number] ? NumberBall::State::Selected : NumberBall::State::Free;
}

void showBall(NumberBall& ball, NumberBall::State state, bool pressed) {
    ball.setState(state);
    ball.setChecked(pressed);
}

} // namespace

PadPanel::PadPanel(Pad& pad, QWidget* parent) : QWidget(parent), m_pad(pad) {
    setObjectName(u"PadPanel"_s);
    buildBankerMenu();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(buildReds());
    layout->addWidget(buildBlues());
    layout->addWidget(buildEcho());
    connect(&pad, &Pad::changed, this, &PadPanel::showPad);
    showPad();
}

void PadPanel::buildBankerMenu() {
    m_bankerMenu = new QMenu(u"胆拖模式"_s, this);
    m_bankerMenu->setObjectName(u"mnuDt"_s);
    QAction* banker = m_bankerMenu->addAction(u"胆-选择/取消"_s);
    banker->setObjectName(u"mnuDan"_s);
    connect(banker, &QAction::triggered, &m_pad, &Pad::mnuDan);
}

void PadPanel::addButton(toolkit::Card& card, const QString& name, const QString& caption, const QString& toolTip,
                         void (Pad::*operation)()) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    connect(button, &QPushButton::clicked, &m_pad, operation);
    card.head().addWidget(button);
}

QWidget* PadPanel::buildReds() {
    auto* card = new toolkit::Card(u"FrameReds"_s, u"红球选号"_s);
    addButton(*card, u"Command41"_s, u"全选(&A)"_s, {}, &Pad::selectAllReds);
    addButton(*card, u"Command42"_s, u"反选(&O)"_s, {}, &Pad::invertReds);
    addButton(*card, u"Command45"_s, u"重选(&R)"_s, QString::fromUtf16(kClearToolTip), &Pad::clearReds);
    m_reds = new BallGrid({NumberBall::Kind::Red, u"RedPad"_s, u"Command1"_s, Pad::kMostReds, kRedColumns});
    card->body().addWidget(m_reds);
    for (NumberBall* ball : m_reds->balls()) {
        const int number = ball->number();
        ball->setToolTip(u"左键选号，右键设为胆码或取消"_s);
        connect(ball, &NumberBall::clicked, this, [this, number] { m_pad.pressRed(number); });
        connect(ball, &NumberBall::rightPressed, this, [this, number](const QPoint& position) {
            m_pad.pointAtRed(number);
            m_bankerMenu->popup(position);
        });
    }
    return card;
}

QWidget* PadPanel::buildBlues() {
    auto* card = new toolkit::Card(u"FrameBlues"_s, u"蓝球选号"_s);
    addButton(*card, u"Command141"_s, u"全选(&A)"_s, {}, &Pad::selectAllBlues);
    addButton(*card, u"Command142"_s, u"反选(&O)"_s, {}, &Pad::invertBlues);
    addButton(*card, u"Command145"_s, u"重选(&R)"_s, QString::fromUtf16(kClearToolTip), &Pad::clearBlues);
    m_blues = new BallGrid({NumberBall::Kind::Blue, u"BluePad"_s, u"Command2"_s, Pad::kMostBlues, kBlueColumns});
    card->body().addWidget(m_blues);
    for (NumberBall* ball : m_blues->balls())
        connect(ball, &NumberBall::clicked, this, [this, ball] { m_pad.pressBlue(ball->number()); });
    return card;
}

QWidget* PadPanel::buildEcho() {
    m_echo = new toolkit::Card(u"FrameChosen"_s, {});
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setVerticalSpacing(3);
    int row = 0;
    for (const EchoRow& echo : kEcho) {
        grid->addWidget(namedLabel(echo.captionName, QString::fromUtf16(echo.caption)), row, 0, Qt::AlignTop);
        QLabel* list = namedLabel(echo.listName, {});
        list->setWordWrap(true);
        list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
        list->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        list->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(list, row, 1);
        QLabel* count = namedLabel(echo.countName, u"0"_s);
        count->setAlignment(Qt::AlignRight | Qt::AlignTop);
        count->setMinimumWidth(count->fontMetrics().horizontalAdvance(u"000"_s));
        grid->addWidget(count, row, 2);
        ++row;
    }
    m_echo->body().addLayout(grid);
    return m_echo;
}

void PadPanel::addUnderEcho(QWidget* row) {
    m_echo->body().addWidget(row);
}

void PadPanel::showPad() {
    const Pad& pad = m_pad;
    m_reds->showUpTo(pad.reds());
    m_blues->showUpTo(pad.blues());
    for (NumberBall* ball : m_reds->balls()) {
        const auto number = static_cast<std::size_t>(ball->number());
        showBall(*ball, redState(pad, number), pad.Redvalue[number]);
    }
    for (NumberBall* ball : m_blues->balls()) {
        const bool chosen = pad.Bluesel[static_cast<std::size_t>(ball->number())];
        const auto state = chosen ? NumberBall::State::Selected : NumberBall::State::Free;
        showBall(*ball, state, chosen);
    }
    const QString texts[][2] = {{pad.redText(), QString::number(pad.Redcnt)},
                                {pad.danText(), QString::number(pad.Dancnt)},
                                {pad.blueText(), QString::number(pad.Bluecnt)}};
    for (std::size_t row = 0; row < std::size(kEcho); ++row) {
        findChild<QLabel*>(QString::fromUtf16(kEcho[row].listName))->setText(texts[row][0]);
        findChild<QLabel*>(QString::fromUtf16(kEcho[row].countName))->setText(texts[row][1]);
    }
    findChild<QPushButton*>(u"Command142"_s)->setEnabled(pad.Bluecnt > 0);
}

} // namespace selection
