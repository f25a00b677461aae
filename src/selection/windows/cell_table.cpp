#include "selection/windows/cell_table.h"

namespace selection {

void CellTable::show(std::vector<Column> columns, std::vector<Row> rows) {
    beginResetModel();
    m_columns = std::move(columns);
    m_rows = std::move(rows);
    endResetModel();
}

int CellTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int CellTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant CellTable::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    const QVariant value = column < row.size() ? row[column] : QVariant();
    const toolkit::CellStyle style = m_columns[column].style;
    switch (role) {
    case Qt::DisplayRole:
        return value.toString();
    case Qt::UserRole:
        return value;
    case Qt::ToolTipRole:
        return style == toolkit::CellStyle::Text ? value.toString().toHtmlEscaped() : QVariant();
    case toolkit::kCellStyleRole:
        return static_cast<int>(style);
    default:
        return {};
    }
}

QVariant CellTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount())
        return {};
    return m_columns[static_cast<std::size_t>(section)].heading;
}

} // namespace selection
