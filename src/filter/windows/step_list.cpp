#include "filter/windows/step_list.h"

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "toolkit/colours.h"
#include "toolkit/head_line.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kLineHeight = 20;
constexpr int kColumnWidth = 260; // the least for two columns and more
constexpr int kColumnGap = 16;
constexpr int kNumberWidth = 20;

} // namespace

QString effectText(std::int64_t effect) {
    if (effect == 0)
        return u"0"_s;
    return (effect < 0 ? u"−"_s : u"+"_s) + toolkit::countText(qAbs(effect));
}

StepList::StepList(const QString& nothingYet, QWidget* parent) : QWidget(parent), m_nothingYet(nothingYet) {
    setObjectName(u"StepList"_s);
    setMinimumHeight(3 * kLineHeight);
}

void StepList::show(const std::vector<DoneStep>& steps) {
    m_steps = steps;
    QStringList all;
    for (std::size_t step = 0; step < m_steps.size(); ++step)
        all << line(step).replace(u'\t', u"  "_s);
    setToolTip(all.join(u'\n'));
    setAccessibleName(all.isEmpty() ? u"步骤"_s : all.join(u"；"_s));
    update();
}

int StepList::columns() const {
    return std::max(1, width() / kColumnWidth);
}

int StepList::rows() const {
    return std::max(1, height() / kLineHeight);
}

int StepList::folded() const {
    const int places = columns() * rows();
    const int count = static_cast<int>(m_steps.size());
    return count <= places ? 0 : count - places + 1;
}

QString StepList::line(std::size_t step) const {
    const DoneStep& done = m_steps[step];
    return u"%1\t%2\t%3"_s.arg(step + 1).arg(QString::fromStdString(done.what), effectText(done.effect));
}

QStringList StepList::lines() const {
    QStringList shown;
    if (folded() > 0)
        shown << u"… 更早 %1 步"_s.arg(folded());
    for (auto step = static_cast<std::size_t>(folded()); step < m_steps.size(); ++step)
        shown << line(step);
    return shown;
}

void StepList::paintLine(QPainter& painter, const QRect& place, std::size_t step) const {
    const toolkit::Colours& look = toolkit::colours(palette());
    const DoneStep& done = m_steps[step];
    QFont ink = font();
    ink.setBold(step + 1 == m_steps.size());
    painter.setFont(ink);
    const QString effect = effectText(done.effect);
    const int room = place.width() - kNumberWidth - painter.fontMetrics().horizontalAdvance(effect) - 6;
    painter.setPen(look.quiet);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, QString::number(step + 1));
    painter.setPen(look.text);
    painter.drawText(place.adjusted(kNumberWidth, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(QString::fromStdString(done.what), Qt::ElideRight, room));
    painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, effect);
}

void StepList::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const toolkit::Colours& look = toolkit::colours(palette());
    if (m_steps.empty()) {
        painter.setPen(look.quiet);
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, m_nothingYet);
        return;
    }
    const int width = (this->width() - (columns() - 1) * kColumnGap) / columns();
    const auto placeOf = [&](int line) {
        return QRect(line / rows() * (width + kColumnGap), line % rows() * kLineHeight, width, kLineHeight);
    };
    int line = 0;
    if (folded() > 0) {
        painter.setPen(look.accentText);
        painter.drawText(placeOf(line++), Qt::AlignLeft | Qt::AlignVCenter, u"… 更早 %1 步"_s.arg(folded()));
    }
    for (auto step = static_cast<std::size_t>(folded()); step < m_steps.size(); ++step)
        paintLine(painter, placeOf(line++), step);
}

void StepList::mousePressEvent(QMouseEvent* event) {
    if (folded() > 0)
        QToolTip::showText(event->globalPosition().toPoint(), toolTip(), this);
}

} // namespace filter
