#include "mainwin/windows/trace_picture.h"

#include <algorithm>
#include <array>

#include <QHelpEvent>
#include <QPainter>
#include <QStringList>
#include <QToolTip>
#include <QWheelEvent>

#include "toolkit/colours.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kGridLines = 5;
constexpr double kLineWidth = 1.5;
constexpr int kMostMagnified = 64;

} // namespace

TracePicture::TracePicture(QWidget* parent) : QWidget(parent) {
    setObjectName(u"Picture3"_s);
    setAccessibleName(u"走势轨迹"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumHeight(36);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize TracePicture::sizeHint() const {
    return {360, 60};
}

QColor TracePicture::lineColour(std::size_t place) {
    static constexpr std::array<QRgb, 7> colours{0xff000000, 0xff0000ff, 0xff00ffff, 0xff00ff00,
                                                 0xffffff00, 0xffff00ff, 0xffff0000};
    return QColor::fromRgb(colours[place % colours.size()]);
}

void TracePicture::setLogicalHeight(int height) {
    m_logicalHeight = height;
    m_picture = {};
    update();
}

void TracePicture::clear() {
    m_ticks.clear();
    m_first = 0;
    m_picture = {};
    update();
}

void TracePicture::add(int tick, std::span<const std::int16_t> before, std::span<const std::int16_t> now) {
    const int x = tick % kLogicalWidth;
    if (x == 0) {
        clear();
        return;
    }
    m_ticks.push_back({x, {before.begin(), before.end()}, {now.begin(), now.end()}});
    if (x > m_first + m_shown) { // half a width further, so that not every tick paints all anew
        m_first = x - m_shown / 2;
        m_picture = {};
    }
    if (m_picture.isNull()) {
        update();
        return;
    }
    QPainter painter(&m_picture);
    update(paintTick(painter, m_ticks.back()).toAlignedRect());
}

/// \return what it has painted on, in pixels of the widget
QRectF TracePicture::paintTick(QPainter& painter, const Tick& tick) const {
    const double across = static_cast<double>(width()) / m_shown;
    const int x = tick.x - m_first;
    const double down = static_cast<double>(height()) / m_logicalHeight;
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t place = 0; place < tick.now.size(); ++place) {
        painter.setPen(QPen(lineColour(place), kLineWidth));
        painter.drawLine(QPointF((x - 1) * across, (m_logicalHeight - tick.before[place]) * down),
                         QPointF(x * across, (m_logicalHeight - tick.now[place]) * down));
    }
    return {(x - 1) * across - kLineWidth, 0.0, across + 2 * kLineWidth, static_cast<double>(height())};
}

/// The ground with its lines, and on it all ticks in sight.
void TracePicture::begin() {
    m_picture = QPixmap(size() * devicePixelRatio());
    m_picture.setDevicePixelRatio(devicePixelRatio());
    m_picture.fill(toolkit::colours(palette()).trace);
    QPainter painter(&m_picture);
    painter.setPen(QPen(toolkit::colours(palette()).trace.darker(120), 0, Qt::DotLine));
    for (int line = 1; line < kGridLines; ++line) {
        const double level = static_cast<double>(height()) * line / kGridLines;
        painter.drawLine(QPointF(0, level), QPointF(width(), level));
    }
    for (const Tick& tick : m_ticks)
        if (tick.x > m_first)
            paintTick(painter, tick);
}

int TracePicture::tickAt(int pixel) const {
    return m_first + pixel * m_shown / std::max(1, width());
}

/// With Ctrl: twice or half as many ticks across, the newest at the right end.
void TracePicture::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier) || event->angleDelta().y() == 0) {
        event->ignore(); // the column scrolls
        return;
    }
    m_magnified = std::clamp(event->angleDelta().y() > 0 ? m_magnified * 2 : m_magnified / 2, 1, kMostMagnified);
    m_shown = kLogicalWidth / m_magnified;
    const int newest = m_ticks.empty() ? 0 : m_ticks.back().x;
    m_first = std::max(0, newest - m_shown);
    m_picture = {};
    update();
    event->accept();
}

bool TracePicture::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), describe(help->pos().x()), this);
    return true;
}

/// The ranking under the mouse, and how to see more of it.
QString TracePicture::describe(int pixel) const {
    const QString hint = u"横向共 %1 次摇奖。按住 Ctrl 滚动滚轮：放大或缩小"_s.arg(m_shown);
    const auto tick = std::ranges::lower_bound(m_ticks, tickAt(pixel), {}, &Tick::x);
    if (tick == m_ticks.end())
        return hint;
    QStringList numbers;
    for (const std::int16_t number : tick->now)
        numbers << QString::number(number);
    return u"第 %1 次：%2\n%3"_s.arg(tick->x).arg(numbers.join(u' '), hint);
}

void TracePicture::paintEvent(QPaintEvent*) {
    if (m_picture.isNull() || m_picture.devicePixelRatio() != devicePixelRatio())
        begin();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    painter.setPen(toolkit::colours(palette()).line);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TracePicture::resizeEvent(QResizeEvent*) {
    m_picture = {};
}

void TracePicture::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        m_picture = {};
}

} // namespace mainwin
