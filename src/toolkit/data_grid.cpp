#include "toolkit/data_grid.h"

#include <functional>

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStandardPaths>
#include <QStyleOptionHeader>

#include "output/sheet_export.h"
#include "toolkit/colours.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/grid_cell.h"
#include "toolkit/grid_copy.h"
#include "toolkit/grid_sheet.h"
#include "toolkit/sheet_preview.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kCellPadding = 6;
constexpr int kNarrowestColumn = 24;
constexpr int kEmptyMargin = 24;
constexpr int kHeadingMargin = 4;
const QKeySequence kCopyWithHeadings(Qt::CTRL | Qt::SHIFT | Qt::Key_C);

/// A header whose sections look the same whatever is selected. The base class asks the selection model about each
/// visible section at each paint, and that walks over every row; so this one fills the option without the base class.
class CalmHeader : public QHeaderView {
  public:
    using QHeaderView::QHeaderView;

  protected:
    /// Flat: no edges between the columns, a hairline below.
    void paintSection(QPainter* painter, const QRect& place, int logicalIndex) const override {
        QStyleOptionHeader option;
        initStyleOption(&option);
        initStyleOptionForIndex(&option, logicalIndex);
        paintGround(*painter, place);
        painter->setPen(colours(palette()).text);
        painter->drawText(place.adjusted(kHeadingMargin, 0, -kHeadingMargin, 0),
                          static_cast<int>(option.textAlignment), option.text);
    }

    /// What is right of the last column looks the same.
    void paintEvent(QPaintEvent* event) override {
        QHeaderView::paintEvent(event);
        QPainter painter(viewport());
        paintGround(painter, viewport()->rect().adjusted(length() - offset(), 0, 0, 0));
    }

    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override {
        option->section = logicalIndex;
        option->text = model()->headerData(logicalIndex, orientation()).toString();
        option->textAlignment = alignmentOf(logicalIndex);
        option->position = positionOf(visualIndex(logicalIndex));
        option->selectedPosition = QStyleOptionHeader::NotAdjacent;
    }

  private:
    void paintGround(QPainter& painter, const QRect& place) const {
        const Colours& look = colours(palette());
        painter.fillRect(place, look.head);
        painter.fillRect(QRect(place.left(), place.bottom(), place.width(), 1), look.line);
    }

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

} // namespace

DataGrid::DataGrid(QWidget* parent) : QTableView(parent) {
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
    setItemDelegate(new GridDelegate(this));
}

void DataGrid::setColumnWidths(std::initializer_list<int> widths) {
    int column = 0;
    for (const int width : widths)
        setColumnWidth(column++, width);
}

void DataGrid::showLastRow() {
    scrollToBottom();
}

void DataGrid::setEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

void DataGrid::keepColumns(const PlaceStore& store, const QString& key) {
    QHeaderView* header = horizontalHeader();
    header->setSectionsMovable(true);
    if (store.get)
        header->restoreState(QByteArray::fromBase64(store.get(key).toLatin1()));
    if (!store.set)
        return;
    const auto keep = [header, set = store.set, key] {
        set(key, QString::fromLatin1(header->saveState().toBase64()));
    };
    connect(header, &QHeaderView::sectionResized, this, keep);
    connect(header, &QHeaderView::sectionMoved, this, keep);
}

void DataGrid::addMenuEntry(QAction* entry) {
    entry->setParent(this);
    m_entries << entry;
}

bool DataGrid::copySelection(Headings headings) {
    DialogBoxes boxes(this);
    return model() && copySelected(*this, headings == Headings::With, boxes);
}

void DataGrid::exportAll() {
    if (!model())
        return;
    DialogBoxes boxes(this);
    const QString folder = m_exportFolder.isEmpty()
                               ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                               : m_exportFolder;
    const QString name = accessibleName().isEmpty() ? u"表格"_s : accessibleName();
    const QString file = boxes.chooseNewFile(folder + u'/' + name, output::kExportFilter.toString());
    if (file.isEmpty())
        return;
    const std::vector<int> columns = shownColumns(*this);
    const GridRows rows(*this, columns);
    if (output::exportSheet({sheetColumns(*this, columns), rows}, workspace::toPath(file), boxes))
        m_exportFolder = QFileInfo(file).path();
}

void DataGrid::printAll() {
    if (!model())
        return;
    const std::vector<int> columns = shownColumns(*this);
    if (columns.empty()) {
        DialogBoxes(this).tell(u"表格的列都隐藏了，没有可以打印的内容。请先显示要打印的列。"_s, u"打印"_s);
        return;
    }
    const GridRows rows(*this, columns);
    previewSheet({.columns = sheetColumns(*this, columns), .rows = rows, .title = accessibleName()}, *this);
}

void DataGrid::fillMenu(QMenu& menu) {
    const bool chosen = selectionModel() && selectionModel()->hasSelection();
    const struct {
        QString name, caption;
        QKeySequence keys;
        std::function<void()> act;
        bool enabled;
    } entries[] = {
        {u"mnuCopy"_s, u"复制"_s, QKeySequence::Copy, [this] { copySelection(); }, chosen},
        {u"mnuCopyHead"_s, u"复制含表头"_s, kCopyWithHeadings, [this] { copySelection(Headings::With); }, chosen},
        {u"mnuSelectAll"_s, u"全选"_s, QKeySequence::SelectAll, [this] { selectAll(); },
         model() && model()->rowCount() > 0},
        {u"mnuExport"_s, u"导出…"_s, {}, [this] { exportAll(); }, model() && model()->rowCount() > 0},
        {u"mnuPrintGrid"_s, u"打印…"_s, {}, [this] { printAll(); }, model() && model()->rowCount() > 0},
    };
    for (const auto& entry : entries) {
        QAction* action = menu.addAction(entry.caption);
        action->setObjectName(entry.name);
        action->setShortcut(entry.keys);
        action->setEnabled(entry.enabled);
        connect(action, &QAction::triggered, this, entry.act);
    }
    if (!m_entries.empty())
        menu.addSeparator();
    menu.addActions(m_entries);
}

void DataGrid::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setObjectName(u"GridMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(*menu);
    menu->popup(event->globalPos());
}

void DataGrid::keyPressEvent(QKeyEvent* event) {
    const QKeySequence pressed(event->keyCombination());
    if (event->matches(QKeySequence::Copy) || pressed == kCopyWithHeadings) {
        copySelection(pressed == kCopyWithHeadings ? Headings::With : Headings::Without);
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void DataGrid::updateGeometries() {
    QTableView::updateGeometries();
    standWhole();
}

void DataGrid::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (dy != 0)
        standWhole();
}

/// At the end of its way the base class aligns the last row with the lower edge and cuts the one at the top.
void DataGrid::standWhole() {
    if (!model() || model()->rowCount(rootIndex()) == 0)
        return;
    const int before = verticalHeader()->offset();
    verticalHeader()->setOffsetToSectionPosition(verticalScrollBar()->value());
    if (verticalHeader()->offset() != before)
        viewport()->update();
}

void DataGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (m_emptyText.isEmpty() || (model() && model()->rowCount() > 0))
        return;
    QPainter painter(viewport());
    painter.setPen(colours(palette()).quiet);
    painter.drawText(viewport()->rect().adjusted(kEmptyMargin, 0, -kEmptyMargin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}

} // namespace toolkit
