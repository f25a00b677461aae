#include "mainwin/windows/history_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "mainwin/main_texts.h"
#include "mainwin/windows/history_model.h"
#include "toolkit/card.h"
#include "toolkit/flex_grid.h"
#include "toolkit/look.h"
#include "toolkit/mask_edit.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kEntryWidth = 34;
constexpr int kNumberWidth = 38;

} // namespace

HistoryPanel::HistoryPanel(const history::History& history, QWidget* parent)
    : QWidget(parent), m_history(history), m_model(new HistoryModel(history, this)), m_grid(new toolkit::FlexGrid),
      m_buttons(new QWidget) {
    setObjectName(u"HistoryPanel"_s);
    m_buttons->setObjectName(u"HistoryButtons"_s);
    auto* buttons = new QHBoxLayout(m_buttons);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(4);

    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(u"历史号码"_s);
    m_grid->setModel(m_model);
    m_grid->setColumnWidths(
        {54, 78, kNumberWidth, kNumberWidth, kNumberWidth, kNumberWidth, kNumberWidth, kNumberWidth, 44});
    m_grid->horizontalHeader()->setStretchLastSection(true);
    auto* card = new toolkit::Card(u"FrameHistory"_s, u"历史号码"_s);
    card->body().addWidget(buildEntry());
    card->body().addWidget(m_buttons);
    card->body().addWidget(m_grid, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
    colourGrid();
    reload();
}

QWidget* HistoryPanel::buildEntry() {
    auto* entry = new QWidget;
    entry->setObjectName(u"HistoryEntry"_s);
    m_nextDraw = new QLabel;
    m_nextDraw->setObjectName(u"Label12"_s);
    auto* boxes = new QHBoxLayout;
    boxes->setSpacing(4);
    boxes->addWidget(m_nextDraw);
    boxes->addStretch();
    for (int place = 1; place <= kEntryBoxes; ++place) {
        auto* box = new toolkit::MaskEdit(u"99"_s);
        box->setObjectName(u"MaskEdBox1(%1)"_s.arg(place));
        box->setAccessibleName(place == kEntryBoxes ? u"新开奖号码 蓝球"_s : u"新开奖号码 红球%1"_s.arg(place));
        box->setFixedWidth(kEntryWidth);
        box->setEnabled(false);
        boxes->addWidget(box);
    }
    boxes->setContentsMargins(0, 0, 0, 0);
    entry->setLayout(boxes);
    return entry;
}

void HistoryPanel::addButton(QPushButton* button) {
    m_buttons->layout()->addWidget(button);
}

void HistoryPanel::reload() {
    m_nextDraw->setText(nextDrawText(m_history));
    m_model->reload();
    m_grid->showLastRow();
}

void HistoryPanel::colourGrid() {
    const toolkit::Colours& look = toolkit::colours(palette());
    m_model->setColours(look.rowNumber, toolkit::isDark(palette()) ? look.red : QColor(255, 0, 0),
                        toolkit::isDark(palette()) ? look.blue : QColor(0, 0, 255));
}

void HistoryPanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        colourGrid();
    QWidget::changeEvent(event);
}

} // namespace mainwin
