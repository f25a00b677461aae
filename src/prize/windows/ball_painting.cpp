#include "prize/windows/ball_painting.h"

#include <algorithm>

#include <QPainter>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace prize {

namespace {

constexpr int kDrawBall = 30; // logical pixels across
constexpr int kBallGap = 6;
constexpr int kBlueGap = 14; // besides
constexpr qreal kCellBall = 20;
constexpr qreal kTextShare = 0.62; // of the ball's height

bool isBall(toolkit::CellStyle style) {
    return style == toolkit::CellStyle::Red || style == toolkit::CellStyle::Blue;
}

struct BallInk {
    QColor ring;
    QColor ground; ///< not valid: none
    QColor text;
};

void paintBall(QPainter& painter, const QRectF& disc, const BallInk& ink, const QString& text) {
    const bool filled = ink.ground.isValid();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink.ring, 1));
    painter.setBrush(filled ? QBrush(ink.ground) : QBrush(Qt::NoBrush));
    painter.drawEllipse(disc.adjusted(0.5, 0.5, -0.5, -0.5));
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(disc.height() * kTextShare));
    font.setBold(filled);
    painter.setFont(font);
    painter.setPen(ink.text);
    painter.drawText(disc, Qt::AlignCenter, text);
}

BallInk filledInk(bool blue, const toolkit::Colours& look) {
    const QColor ground = blue ? look.blueBall : look.redBall;
    return {ground, ground, look.onBall};
}

} // namespace

DrawBalls::DrawBalls(const history::Draw& draw, QWidget* parent) : QWidget(parent), m_draw(draw) {
    setObjectName(u"DrawBalls"_s);
    QStringList reds;
    for (int red = 1; red <= history::kRedsDrawn; ++red)
        reds << QString::number(draw[static_cast<std::size_t>(red)]);
    setAccessibleName(u"开奖号码 红球 %1 蓝球 %2"_s.arg(reds.join(u' ')).arg(draw.back()));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DrawBalls::sizeHint() const {
    const int balls = static_cast<int>(m_draw.size()) - 1;
    return {balls * kDrawBall + (balls - 1) * kBallGap + kBlueGap, kDrawBall};
}

void DrawBalls::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const toolkit::Colours& look = toolkit::colours(palette());
    qreal x = 0;
    for (std::size_t slot = 1; slot < m_draw.size(); ++slot) {
        const bool blue = slot + 1 == m_draw.size();
        if (blue)
            x += kBlueGap;
        paintBall(painter, {x, 0, kDrawBall, kDrawBall}, filledInk(blue, look), QString::number(m_draw[slot]));
        x += kDrawBall + kBallGap;
    }
}

BallDelegate::BallDelegate(const history::Draw& draw, List list, QObject* parent)
    : GridDelegate(parent), m_draw(draw), m_list(list) {}

bool BallDelegate::isHit(const QModelIndex& index) const {
    const auto style = static_cast<toolkit::CellStyle>(index.data(toolkit::kCellStyleRole).toInt());
    const int number = index.data(Qt::UserRole).toInt();
    if (style == toolkit::CellStyle::Blue)
        return number == m_draw.back();
    return style == toolkit::CellStyle::Red &&
           std::find(m_draw.begin() + 1, m_draw.end() - 1, number) != m_draw.end() - 1;
}

void BallDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const {
    const auto style = static_cast<toolkit::CellStyle>(index.data(toolkit::kCellStyleRole).toInt());
    if (!isBall(style)) {
        GridDelegate::paint(painter, given, index);
        return;
    }
    const toolkit::Colours& look = toolkit::colours(given.palette);
    const bool blue = style == toolkit::CellStyle::Blue;
    painter->save();
    if (given.state & QStyle::State_Selected)
        painter->fillRect(given.rect, look.tint);
    else if (given.features & QStyleOptionViewItem::Alternate)
        painter->fillRect(given.rect, look.alt);
    QRectF disc(0, 0, kCellBall, kCellBall);
    disc.moveCenter(QRectF(given.rect).center());
    const QColor free = blue ? look.blue : look.red;
    const BallInk ring = m_list == List::Out ? BallInk{look.edge, {}, look.out} : BallInk{free, {}, free};
    paintBall(*painter, disc, isHit(index) ? filledInk(blue, look) : ring, index.data(Qt::DisplayRole).toString());
    if (given.state & QStyle::State_HasFocus) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(look.focus, 1));
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->drawRect(given.rect.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

} // namespace prize
