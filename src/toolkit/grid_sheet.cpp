#include "toolkit/grid_sheet.h"

#include <algorithm>

#include <QHeaderView>
#include <QTableView>

#include "toolkit/grid_cell.h"

namespace toolkit {

namespace {

output::CellKind kindOf(CellStyle style) {
    switch (style) {
    case CellStyle::Red:
        return output::CellKind::Red;
    case CellStyle::Blue:
        return output::CellKind::Blue;
    case CellStyle::Number:
        return output::CellKind::Number;
    default:
        return output::CellKind::Text;
    }
}

} // namespace

std::int64_t GridRows::count() const {
    return m_grid.model() ? m_grid.model()->rowCount(m_grid.rootIndex()) : 0;
}

QModelIndex GridRows::modelCell(int row, int column) const {
    return m_grid.model()->index(row, m_columns[static_cast<std::size_t>(column)], m_grid.rootIndex());
}

QModelIndex GridRows::place(std::int64_t row, int column) const {
    return modelCell(static_cast<int>(row), column);
}

output::SheetCell GridRows::cell(std::int64_t row, int column) const {
    const QModelIndex at = place(row, column);
    const QVariant value = at.data(Qt::UserRole);
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return std::int64_t{value.toLongLong()};
    case QMetaType::Double:
        return value.toDouble();
    default:
        break;
    }
    QString text = at.data().toString();
    return text.isEmpty() ? output::SheetCell() : output::SheetCell(std::move(text));
}

void GridRows::appendText(QString& text, std::int64_t row, const output::SheetColumn&, int column) const {
    text += place(row, column).data().toString();
}

std::vector<int> shownColumns(const QTableView& grid) {
    std::vector<int> columns;
    for (int visual = 0; visual < grid.horizontalHeader()->count(); ++visual) {
        const int column = grid.horizontalHeader()->logicalIndex(visual);
        if (!grid.isColumnHidden(column))
            columns.push_back(column);
    }
    return columns;
}

std::vector<output::SheetColumn> sheetColumns(const QTableView& grid, const std::vector<int>& columns) {
    const double place = std::max(1, grid.fontMetrics().horizontalAdvance(u'0'));
    std::vector<output::SheetColumn> told;
    for (const int column : columns) {
        const QModelIndex first = grid.model()->index(0, column, grid.rootIndex());
        const auto style = static_cast<CellStyle>(first.data(kCellStyleRole).toInt());
        told.push_back({.heading = grid.model()->headerData(column, Qt::Horizontal).toString(),
                        .kind = kindOf(style),
                        .width = grid.columnWidth(column) / place,
                        .align = style == CellStyle::Text ? output::CellAlign::Left : output::CellAlign::Centre,
                        .digits = std::max(1, first.data(kDigitsRole).toInt())});
    }
    return told;
}

} // namespace toolkit
