#include "mainwin/windows/history_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include "mainwin/main_texts.h"
#include "mainwin/windows/cell_edit.h"
#include "mainwin/windows/draw_entry.h"
#include "mainwin/windows/history_model.h"
#include "toolkit/card.h"
#include "toolkit/data_grid.h"
#include "toolkit/look.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr int kNumberWidth = 38;

} // namespace

HistoryPanel::HistoryPanel(const history::Book& book, QWidget* parent)
    : QWidget(parent), m_history(book.history()), m_model(new HistoryModel(m_history, this)),
      m_grid(new toolkit::DataGrid), m_entry(new DrawEntry), m_buttons(new QWidget) {
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
    m_cellEdit = new CellEdit(*m_grid, HistoryModel::Issue);
    m_grid->horizontalHeader()->setStretchLastSection(true);
    auto* card = new toolkit::Card(u"FrameHistory"_s, u"历史号码"_s);
    card->body().addWidget(m_entry);
    card->body().addWidget(m_buttons);
    card->body().addWidget(m_grid, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
    connect(m_entry, &DrawEntry::typed, this, &HistoryPanel::drawTyped);
    connect(m_cellEdit, &CellEdit::entered, this, [this](const QModelIndex& cell, const QString& text) {
        emit numberTyped(cell.row() + 1, cell.column() - HistoryModel::Issue, text);
    });
    colourGrid();
    listen(book);
    reload();
}

void HistoryPanel::listen(const history::Book& book) {
    connect(&book, &history::Book::appended, this, &HistoryPanel::appendTyped);
    connect(&book, &history::Book::removed, this, &HistoryPanel::removeLast);
    connect(&book, &history::Book::corrected, this, &HistoryPanel::showCorrected);
    connect(&book, &history::Book::replaced, this, &HistoryPanel::reload);
}

void HistoryPanel::addButton(QPushButton* button) {
    m_buttons->layout()->addWidget(button);
    setTabOrder(button, m_grid);
}

void HistoryPanel::reload() {
    m_entry->setCaption(nextDrawText(m_history));
    m_model->reload();
    m_grid->showLastRow();
}

void HistoryPanel::appendTyped() {
    m_entry->setCaption(nextDrawText(m_history));
    m_model->appendTyped();
    m_grid->showLastRow();
    m_entry->clear();
}

void HistoryPanel::removeLast() {
    m_entry->setCaption(nextDrawText(m_history));
    m_model->removeLast();
    m_grid->showLastRow();
}

void HistoryPanel::showCorrected(int draw) {
    m_cellEdit->close();
    m_entry->setCaption(nextDrawText(m_history));
    m_model->changed(draw);
}

void HistoryPanel::focusEntry() {
    m_entry->focusFirst();
}

void HistoryPanel::focusEntry(int box) {
    if (box > 0)
        m_entry->focusBox(box);
}

void HistoryPanel::colourGrid() {
    const toolkit::Colours& look = toolkit::colours(palette());
    m_model->setColours(look.rowNumber, look.red, look.used); // the blue column is pure blue where that can be read
}

void HistoryPanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        colourGrid();
    QWidget::changeEvent(event);
}

} // namespace mainwin
