#include "mainwin/windows/history_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "mainwin/main_texts.h"
#include "mainwin/windows/cell_edit.h"
#include "mainwin/windows/draw_entry.h"
#include "mainwin/windows/empty_history.h"
#include "mainwin/windows/history_model.h"
#include "toolkit/card.h"
#include "toolkit/ink_label.h"
#include "toolkit/look.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr double kMostGrowth = 1.6; // of a column, in a wide window

} // namespace

HistoryPanel::HistoryPanel(const history::Book& book, QWidget* parent)
    : QWidget(parent), m_history(book.history()), m_model(new HistoryModel(m_history, this)),
      m_grid(new toolkit::RowsGrid), m_entry(new DrawEntry), m_buttons(new QWidget), m_undo(new QPushButton),
      m_empty(new EmptyHistory(m_grid->viewport())),
      m_count(new toolkit::InkLabel(u"HistoryCount"_s, &toolkit::Colours::quiet)) {
    setObjectName(u"HistoryPanel"_s);
    m_buttons->setObjectName(u"HistoryButtons"_s);
    auto* buttons = new QHBoxLayout(m_buttons);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(4);

    buildGrid();
    auto* card = new toolkit::Card(u"FrameHistory"_s, u"历史号码"_s);
    card->head().addWidget(m_count);
    card->body().addWidget(m_entry);
    card->body().addWidget(m_buttons);
    buildUndo();
    card->body().addWidget(m_undo, 0, Qt::AlignLeft);
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

void HistoryPanel::buildGrid() {
    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(u"历史号码"_s);
    m_grid->setModel(m_model);
    m_grid->growColumns(kMostGrowth);
    m_cellEdit = new CellEdit(*m_grid, HistoryModel::Issue);
    auto* middle = new QVBoxLayout(m_grid->viewport());
    middle->addWidget(m_empty);
}

/// The grid says itself what to do while it is empty.
void HistoryPanel::showCount() {
    m_empty->setVisible(m_history.Lsnum == 0);
    m_count->setText(m_history.Lsnum > 0 ? u"%1 期"_s.arg(thousandsApart(m_history.Lsnum)) : QString());
}

void HistoryPanel::buildUndo() {
    m_undo->setObjectName(u"HistoryUndo"_s);
    m_undo->setFlat(true);
    m_undo->setCursor(Qt::PointingHandCursor);
    m_undo->hide();
    connect(m_undo, &QPushButton::clicked, this, &HistoryPanel::undoWanted);
}

void HistoryPanel::offerUndo(const QString& text) {
    m_undo->setText(text);
    m_undo->setVisible(!text.isEmpty());
}

QPushButton& HistoryPanel::readButton() {
    return m_empty->button();
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
    showCount();
    m_entry->setCaption(nextDrawText(m_history));
    m_model->reload();
    m_grid->showLastRow();
}

void HistoryPanel::appendTyped() {
    showCount();
    m_entry->setCaption(nextDrawText(m_history));
    m_model->appendTyped();
    m_grid->showLastRow();
    m_entry->clear();
}

void HistoryPanel::removeLast() {
    showCount();
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
    QPalette link = m_undo->palette();
    link.setColor(QPalette::ButtonText, look.accentText);
    m_undo->setPalette(link);
    m_model->setColours(look.rowNumber, look.red, look.used); // the blue column is pure blue where that can be read
}

void HistoryPanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        colourGrid();
    QWidget::changeEvent(event);
}

} // namespace mainwin
