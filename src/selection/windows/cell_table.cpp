#include "selection/windows/cell_table.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace selection {

namespace {

/// A tool tip that shows a text letter by letter, whatever marks of a document it holds.
QString asItIs(const QString& text) {
    return Qt::mightBeRichText(text) ? u"<span>%1</span>"_s.arg(text.toHtmlEscaped()) : text;
}

} // namespace

void CellTable::show(std::vector<Column> columns, std::vector<Row> rows, const QStringList& tips) {
    beginResetModel();
    m_columns = std::move(columns);
    m_rows = std::move(rows);
    m_tips = tips;
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
        return tip(index, value);
    case toolkit::kCellStyleRole:
        return static_cast<int>(style);
    default:
        return {};
    }
}

QVariant CellTable::tip(const QModelIndex& index, const QVariant& value) const {
    QString told = m_tips.value(index.row());
    if (told.isEmpty() && m_columns[static_cast<std::size_t>(index.column())].style == toolkit::CellStyle::Text)
        told = value.toString();
    return asItIs(told);
}

QVariant CellTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount())
        return {};
    return m_columns[static_cast<std::size_t>(section)].heading;
}

} // namespace selection
