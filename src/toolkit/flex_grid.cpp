#include "toolkit/flex_grid.h"

#include <algorithm>
#include <set>
#include <vector>

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyleOptionHeader>

#include "toolkit/busy_cursor.h"
#include "toolkit/messages.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kCellPadding = 6;
constexpr int kNarrowestColumn = 24;

/// A header whose sections look the same whatever is selected. The base class asks the selection model about each
/// visible section at each paint, and that walks over every row; so this one fills the option without the base class.
class CalmHeader : public QHeaderView {
  public:
    using QHeaderView::QHeaderView;

  protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override {
        option->section = logicalIndex;
        option->text = model()->headerData(logicalIndex, orientation()).toString();
        option->textAlignment = alignmentOf(logicalIndex);
        option->position = positionOf(visualIndex(logicalIndex));
        option->selectedPosition = QStyleOptionHeader::NotAdjacent;
    }

  private:
    Qt::Alignment alignmentOf(int logicalIndex) const {
        const QVariant told = model()->headerData(logicalIndex, orientation(), Qt::TextAlignmentRole);
        if (!told.isValid())
            return defaultAlignment();
        if (told.metaType() == QMetaType::fromType<Qt::Alignment>())
            return told.value<Qt::Alignment>();
        return Qt::Alignment(told.toInt());
    }

    QStyleOptionHeader::SectionPosition positionOf(int visual) const {
        if (count() == 1)
            return QStyleOptionHeader::OnlyOneSection;
        if (visual == 0)
            return QStyleOptionHeader::Beginning;
        return visual == count() - 1 ? QStyleOptionHeader::End : QStyleOptionHeader::Middle;
    }
};

struct RowSpan {
    int first;
    int last;
};

std::vector<RowSpan> mergedRows(const QItemSelection& selection) {
    std::vector<RowSpan> spans;
    for (const QItemSelectionRange& range : selection)
        spans.push_back({range.top(), range.bottom()});
    std::ranges::sort(spans, {}, &RowSpan::first);
    std::vector<RowSpan> merged;
    for (const RowSpan& span : spans) {
        if (!merged.empty() && span.first <= merged.back().last + 1)
            merged.back().last = std::max(merged.back().last, span.last);
        else
            merged.push_back(span);
    }
    return merged;
}

} // namespace

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent) {
    setHorizontalHeader(new CalmHeader(Qt::Horizontal, this));
    horizontalHeader()->setMinimumSectionSize(kNarrowestColumn);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kCellPadding);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false);
}

void FlexGrid::setColumnWidths(std::initializer_list<int> widths) {
    int column = 0;
    for (const int width : widths)
        setColumnWidth(column++, width);
}

void FlexGrid::showLastRow() {
    scrollToBottom();
}

std::int64_t FlexGrid::selectedRowCount() const {
    std::int64_t count = 0;
    if (selectionModel())
        for (const RowSpan& span : mergedRows(selectionModel()->selection()))
            count += span.last - span.first + 1;
    return count;
}

QString FlexGrid::selectedText() const {
    if (!selectionModel())
        return {};
    const QItemSelection selection = selectionModel()->selection();
    std::set<int> columns;
    for (const QItemSelectionRange& range : selection)
        for (int column = range.left(); column <= range.right(); ++column)
            if (!isColumnHidden(column))
                columns.insert(column);
    const bool onePiece = selection.size() == 1; // then no cell needs to be asked
    QString text;
    for (const RowSpan& span : mergedRows(selection)) {
        for (int row = span.first; row <= span.last; ++row) {
            if (!text.isEmpty())
                text += u'\n';
            for (const int column : columns) {
                if (column != *columns.begin())
                    text += u'\t';
                const QModelIndex cell = model()->index(row, column, rootIndex());
                if (onePiece || selection.contains(cell))
                    text += cell.data().toString();
            }
        }
    }
    return text;
}

void FlexGrid::copySelection() {
    const std::int64_t rows = selectedRowCount();
    if (rows == 0)
        return;
    if (rows > kAskRows && !confirm(this, u"共选中 %1 行，复制需要较多内存，是否继续？"_s.arg(rows), u"复制"_s))
        return;
    const BusyCursor busy;
    QGuiApplication::clipboard()->setText(selectedText());
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

} // namespace toolkit
