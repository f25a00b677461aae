#include "toolkit/head_line.h"

#include <QLocale>
#include <QPainter>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kCountPixels = 21; // at a text of 10 points
constexpr int kBarHeight = 5;
constexpr int kGap = 5;
constexpr int kBetween = 18; // between the two amounts

QFont countFont(const QFont& text) {
    QFont font = text;
    font.setBold(true);
    font.setPointSizeF(text.pointSizeF() * kCountPixels / 13.33);
    return font;
}

QString timeText(double ms) {
    return ms < 1 ? u"不到 1 ms"_s : u"%1 ms"_s.arg(countText(qRound64(ms)));
}

} // namespace

QString countText(qint64 count) {
    static const QLocale separated(QLocale::English);
    return separated.toString(count);
}

HeadLine::HeadLine(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void HeadLine::tell(const Told& told) {
    m_told = told;
    describe();
}

void HeadLine::tellShown(const QString& shows) {
    m_told.shows = shows;
    describe();
}

void HeadLine::describe() {
    setAccessibleName(QStringList{u"剩余 "_s + leftText(), takenText(), stepText(), totalText()}.join(u"；"_s));
    update();
}

// Never "100.0 %" while a bet is out, never "0.0 %" while one is left.
QString HeadLine::shareText() const {
    if (m_told.total == 0)
        return {};
    const double share = 100.0 * static_cast<double>(m_told.left) / static_cast<double>(m_told.total);
    if (m_told.left > 0 && share < 0.1)
        return u" (不足 0.1 %)"_s;
    if (m_told.left < m_told.total && share > 99.9)
        return u" (99.9 % 以上)"_s;
    return u" (%1 %)"_s.arg(share, 0, 'f', 1);
}

QString HeadLine::leftText() const {
    return countText(m_told.left) + u" 注"_s + shareText();
}

QString HeadLine::takenText() const {
    if (m_told.taken == 0)
        return {};
    return (m_told.taken > 0 ? u"本次滤去 "_s : u"本次恢复 "_s) + countText(qAbs(m_told.taken)) + u" 注"_s;
}

QString HeadLine::stepText() const {
    if (m_told.left == 0 && !m_told.advice.isEmpty())
        return m_told.advice;
    return m_told.step.isEmpty() ? QString() : m_told.step + u"    "_s + timeText(m_told.ms);
}

QString HeadLine::totalText() const {
    return u"共 %1 注    表中: %2"_s.arg(countText(m_told.total), m_told.shows);
}

QSize HeadLine::sizeHint() const {
    return {300, QFontMetrics(countFont(font())).height() + kBarHeight + 2 * kGap + fontMetrics().height()};
}

/// \return where the next thing begins
int HeadLine::paintAmount(QPainter& painter, int x, const QString& caption, const QString& count,
                          const QString& unit) const {
    const Colours& look = colours(palette());
    const QFont big = countFont(font());
    const int base = QFontMetrics(big).ascent();
    const auto put = [&](const QFont& font, const QColor& ink, const QString& text) {
        painter.setFont(font);
        painter.setPen(ink);
        painter.drawText(x, base, text);
        x += QFontMetrics(font).horizontalAdvance(text);
    };
    put(font(), look.quiet, caption);
    x += kGap;
    put(big, look.text, count);
    x += kGap;
    put(font(), look.text, unit);
    return x;
}

void HeadLine::paintBar(QPainter& painter, const QRect& bar) const {
    const Colours& look = colours(palette());
    painter.fillRect(bar, look.track);
    if (m_told.total == 0)
        return;
    const auto upTo = [&](qint64 bets) {
        return static_cast<int>(static_cast<double>(bar.width()) * static_cast<double>(bets) /
                                static_cast<double>(m_told.total));
    };
    const qint64 before = std::min(m_told.left + std::max<qint64>(m_told.taken, 0), m_told.total);
    painter.fillRect(QRect(bar.left(), bar.top(), upTo(before), bar.height()), look.barLast);
    painter.fillRect(QRect(bar.left(), bar.top(), upTo(m_told.left), bar.height()), look.bar);
}

void HeadLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Colours& look = colours(palette());
    const int next = paintAmount(painter, 0, u"剩余"_s, countText(m_told.left), u"注"_s + shareText());
    if (m_told.taken != 0)
        paintAmount(painter, next + kBetween, m_told.taken > 0 ? u"本次滤去"_s : u"本次恢复"_s,
                    countText(qAbs(m_told.taken)), u"注"_s);
    const QRect bar(0, QFontMetrics(countFont(font())).height() + kGap, width(), kBarHeight);
    paintBar(painter, bar);
    painter.setFont(font());
    const QRect line(0, bar.bottom() + 1 + kGap, width(), fontMetrics().height());
    painter.setPen(look.quiet);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, totalText());
    painter.setPen(look.text);
    const int room = line.width() - fontMetrics().horizontalAdvance(totalText()) - kBetween;
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(stepText(), Qt::ElideRight, room));
}

} // namespace toolkit
