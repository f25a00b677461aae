#include "mainwin/windows/share_panel.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "mainwin/main_texts.h"
#include "toolkit/card.h"
#include "toolkit/look.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kColumns = 2;
constexpr int kCellsARow = 4; // caption, share, bar, gap
constexpr int kGap = 8;
constexpr int kBarHeight = 8;
constexpr int kRoomForRows = 3; // of four parts of the height that is to spare: rows part evenly
constexpr double kScaleEnd = 6;
constexpr double kExpected = 3;

} // namespace

ShareBar::ShareBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

/// A draw sets the lengths of all bars sixty times a second: only what changes is painted.
void ShareBar::setLength(double length) {
    const double former = std::exchange(m_length, length);
    const auto [left, right] = std::minmax({end(former), end(length)});
    if (left < right)
        update(QRect(static_cast<int>(left), 0, static_cast<int>(right - left) + 2, height()));
}

/// Where a bar of this length ends, in whole pixels of the screen.
double ShareBar::end(double length) const {
    const double fine = devicePixelRatioF();
    return std::round(width() * length / kScaleEnd * fine) / fine;
}

QSize ShareBar::sizeHint() const {
    return {54, kBarHeight};
}

QSize ShareBar::minimumSizeHint() const {
    return {24, kBarHeight};
}

void ShareBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const toolkit::Colours& look = toolkit::colours(palette());
    const double here = end(m_length);
    const double top = (height() - kBarHeight) / 2;
    painter.fillRect(rect(), look.card);
    painter.fillRect(QRectF(0, top, here, kBarHeight), look.bar);
    painter.fillRect(QRectF(here, top, width() - here, kBarHeight), look.track);
    painter.fillRect(QRectF(end(kExpected), top, 1, kBarHeight), look.quiet);
}

SharePanel::SharePanel(QWidget* parent)
    : QWidget(parent), m_grid(new QGridLayout),
      m_expected(new toolkit::InkLabel(u"LabelExpected"_s, &toolkit::Colours::quiet)) {
    setObjectName(u"SharePanel"_s);
    auto* card = new toolkit::Card(u"FrameShares"_s, u"历史概率"_s);
    card->head().addWidget(m_expected);
    m_grid->setHorizontalSpacing(6);
    m_grid->setVerticalSpacing(0);
    for (int column = 0; column < kColumns; ++column) {
        m_grid->setColumnStretch(column * kCellsARow + 2, 1);
        if (column + 1 < kColumns)
            m_grid->setColumnMinimumWidth(column * kCellsARow + 3, kGap);
    }
    m_reds = makeRows(history::kMostReds, &toolkit::Colours::red, {u"Label4"_s, u"Label6"_s, u"Picture2"_s});
    m_blues = makeRows(history::kMostBlues, &toolkit::Colours::blue,
                       {u"LabelBlueName"_s, u"LabelBlueShare"_s, u"PictureBlue"_s});
    card->body().addLayout(m_grid, kRoomForRows);
    card->body().addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
    place(history::kMostReds, history::kMostBlues);
}

std::vector<SharePanel::Row> SharePanel::makeRows(int count, QColor toolkit::Colours::*ink, const Names& names) {
    std::vector<Row> rows;
    for (int number = 1; number <= count; ++number) {
        const QString index = u"(%1)"_s.arg(number);
        const Row row{new toolkit::InkLabel(names.caption + index, ink, shareCaption(number)),
                      new toolkit::QuickLabel(m_characters, u"100.00%"_s), new ShareBar};
        row.share->setObjectName(names.share + index);
        row.bar->setObjectName(names.bar + index);
        row.share->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        rows.push_back(row);
    }
    return rows;
}

/// \param count  how many of the rows the rule has; the others follow where they are not seen
/// \return the line behind them
int SharePanel::placeRows(const std::vector<Row>& rows, int count, int firstLine) {
    const int lines = (count + kColumns - 1) / kColumns;
    for (int place = 0; place < static_cast<int>(rows.size()); ++place) {
        const Row& row = rows[static_cast<std::size_t>(place)];
        const int line = firstLine + std::min(place % lines, lines - 1);
        const int cell = std::min(place / lines, kColumns - 1) * kCellsARow;
        int column = cell;
        for (QWidget* widget :
             {static_cast<QWidget*>(row.caption), static_cast<QWidget*>(row.share), static_cast<QWidget*>(row.bar)}) {
            m_grid->removeWidget(widget);
            m_grid->addWidget(widget, line, column++, widget == row.share ? Qt::AlignVCenter : Qt::Alignment());
        }
    }
    return firstLine + lines;
}

void SharePanel::place(int reds, int blues) {
    if (reds == m_placedReds && blues == m_placedBlues)
        return;
    for (int line = 0; line < m_grid->rowCount(); ++line)
        m_grid->setRowMinimumHeight(line, 0);
    const int gap = placeRows(m_reds, reds, 0);
    m_grid->setRowMinimumHeight(gap, kGap * 2);
    placeRows(m_blues, blues, gap + 1);
    for (std::size_t row = 0; row < m_reds.size(); ++row)
        m_reds[row].setVisible(static_cast<int>(row) < reds);
    for (std::size_t row = 0; row < m_blues.size(); ++row)
        m_blues[row].setVisible(static_cast<int>(row) < blues);
    m_placedReds = reds;
    m_placedBlues = blues;
}

void SharePanel::Row::setVisible(bool inRule) {
    for (QWidget* widget : {static_cast<QWidget*>(caption), static_cast<QWidget*>(share), static_cast<QWidget*>(bar)})
        widget->setVisible(inRule);
}

void SharePanel::Row::show(double percent, int numbers) {
    bar->setLength(shareBarLength(percent, numbers));
    const QString text = shareText(percent);
    if (text == share->text())
        return;
    share->setText(text);
    bar->setAccessibleName(caption->text() + text);
}

void SharePanel::showShares(const history::History& history, int reds, int blues) {
    place(reds, blues);
    m_expected->setText(history.Lsnum == 0
                            ? u"要有历史才能统计"_s
                            : u"竖线：期望 %1 / %2"_s.arg(shareText(100.0 / reds), shareText(100.0 / blues)));
    for (std::size_t place = 0; place < m_reds.size(); ++place)
        m_reds[place].show(history.Gailvred[place + 1], reds);
    for (std::size_t place = 0; place < m_blues.size(); ++place)
        m_blues[place].show(history.GailvBlue[place + 1], blues);
}

void SharePanel::showDraw(std::span<const double> shares, int reds, int chosen) {
    if (chosen > 0)
        m_expected->setText(u"红球：本次摇奖，竖线：期望 %1"_s.arg(shareText(100.0 / chosen)));
    for (std::size_t place = 0; place < static_cast<std::size_t>(reds); ++place)
        m_reds[place].show(shares[place + 1], chosen);
}

} // namespace mainwin
