#include "mainwin/windows/share_panel.h"

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
constexpr double kScaleEnd = 6;
constexpr double kExpected = 3;

} // namespace

ShareBar::ShareBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ShareBar::setLength(double length) {
    m_length = length;
    update();
}

QSize ShareBar::sizeHint() const {
    return {44, 8};
}

QSize ShareBar::minimumSizeHint() const {
    return {24, 8};
}

void ShareBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const toolkit::Colours& look = toolkit::colours(palette());
    const QRectF track(rect());
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.track);
    painter.drawRoundedRect(track, 2, 2);
    painter.setBrush(look.bar);
    painter.drawRoundedRect(QRectF(track.topLeft(), QSizeF(track.width() * m_length / kScaleEnd, track.height())), 2,
                            2);
    painter.setPen(QPen(look.quiet, 1));
    const qreal middle = track.width() * kExpected / kScaleEnd;
    painter.drawLine(QPointF(middle, 0), QPointF(middle, track.height()));
}

SharePanel::SharePanel(QWidget* parent) : QWidget(parent) {
    setObjectName(u"SharePanel"_s);
    auto* card = new toolkit::Card(u"FrameShares"_s, u"历史概率"_s);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(1);
    constexpr int redLines = history::kMostReds / kColumns;
    m_reds = addRows(*grid, history::kMostReds, 0, {u"Label4"_s, u"Label6"_s, u"Picture2"_s});
    grid->setRowMinimumHeight(redLines, kGap);
    m_blues = addRows(*grid, history::kMostBlues, redLines + 1,
                      {u"LabelBlueName"_s, u"LabelBlueShare"_s, u"PictureBlue"_s});
    card->body().addLayout(grid);
    card->body().addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
}

std::vector<SharePanel::Row> SharePanel::addRows(QGridLayout& grid, int count, int firstLine, const Names& names) {
    std::vector<Row> rows;
    for (int number = 1; number <= count; ++number) {
        const Row row{new QLabel(shareCaption(number)), new QLabel, new ShareBar};
        const QString index = u"(%1)"_s.arg(number);
        row.caption->setObjectName(names.caption + index);
        row.share->setObjectName(names.share + index);
        row.bar->setObjectName(names.bar + index);
        row.share->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row.share->setMinimumWidth(row.share->fontMetrics().horizontalAdvance(u"00.00%"_s));
        QPalette ink = row.caption->palette();
        const toolkit::Colours& look = toolkit::colours(ink);
        ink.setColor(QPalette::WindowText, firstLine > 0 ? look.blue : look.red);
        row.caption->setPalette(ink);
        const int lines = count / kColumns;
        const int line = firstLine + (number - 1) % lines;
        const int cell = (number - 1) / lines * kCellsARow;
        grid.addWidget(row.caption, line, cell);
        grid.addWidget(row.share, line, cell + 1);
        grid.addWidget(row.bar, line, cell + 2);
        grid.setColumnStretch(cell + 2, 1);
        grid.setColumnMinimumWidth(cell + 3, kGap);
        rows.push_back(row);
    }
    return rows;
}

void SharePanel::Row::show(bool inRule, double percent, int numbers) {
    for (QWidget* widget : {static_cast<QWidget*>(caption), static_cast<QWidget*>(share), static_cast<QWidget*>(bar)})
        widget->setVisible(inRule);
    share->setText(shareText(percent));
    bar->setLength(shareBarLength(percent, numbers));
    bar->setAccessibleName(caption->text() + share->text());
}

void SharePanel::showShares(const history::History& history, int reds, int blues) {
    for (std::size_t place = 0; place < m_reds.size(); ++place)
        m_reds[place].show(static_cast<int>(place) < reds, history.Gailvred[place + 1], reds);
    for (std::size_t place = 0; place < m_blues.size(); ++place)
        m_blues[place].show(static_cast<int>(place) < blues, history.GailvBlue[place + 1], blues);
}

} // namespace mainwin
