#include "selection/compound_bets.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace selection {

namespace {

QString twoDigits(int number) {
    return u" %1"_s.arg(number, 2, 10, QChar(u'0'));
}

} // namespace

CompoundBets::CompoundBets(std::vector<WheelRow> rows, const Pad& pad, bool blue)
    : m_rows(std::move(rows)), m_reds(pad.Redlist), m_blue(blue) {
    if (blue)
        m_blues.assign(pad.Bluelist.begin() + 1, pad.Bluelist.begin() + 1 + pad.Bluecnt);
}

std::int64_t CompoundBets::gridRows() const {
    return (static_cast<std::int64_t>(m_rows.size()) - 1) / kAcross + 1; // an empty one for no bet
}

QString CompoundBets::cell(std::int64_t row, int column) const {
    const auto bets = static_cast<std::int64_t>(m_rows.size());
    if (column == 0)
        return (row + 1) * kAcross <= bets ? QString::number(row + 1) : QString();
    const std::int64_t place = row * kAcross + column - 1;
    return place < bets ? bet(m_rows[static_cast<std::size_t>(place)]) : QString();
}

QString CompoundBets::bet(const WheelRow& row) const {
    QString text;
    for (const std::int16_t position : row)
        text += twoDigits(m_reds[static_cast<std::size_t>(position)]);
    for (const std::int16_t blue : m_blues)
        text += twoDigits(blue);
    return text;
}

std::int64_t CompoundBets::yuan() const {
    const auto times = m_blue ? static_cast<std::int64_t>(m_blues.size()) : 1;
    return static_cast<std::int64_t>(m_rows.size()) * times * kYuanPerCompound;
}

} // namespace selection
