#include "filter/windows/rows_model.h"

#include <QColor>

namespace filter {

RowsModel::RowsModel(const FilterMember& member, QObject* parent) : QAbstractTableModel(parent), m_member(member) {}

void RowsModel::show(View view) {
    beginResetModel();
    m_view = std::move(view);
    m_grey.clear();
    endResetModel();
}

void RowsModel::setGrey(int row, bool grey) {
    if (grey)
        m_grey.insert(row);
    else
        m_grey.erase(row);
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

toolkit::CellStyle RowsModel::styleOf(int column) const {
    if (column < 0 || column >= columnCount() || column == 0)
        return toolkit::CellStyle::Plain;
    if (m_view.columns[static_cast<std::size_t>(column)].isText)
        return toolkit::CellStyle::Text;
    if (column <= m_member.reds)
        return toolkit::CellStyle::Red;
    return column <= m_member.numbers() ? toolkit::CellStyle::Blue : toolkit::CellStyle::Number;
}

// Only a view of all rows knows the state of each; in the others all were in play when they were shown.
toolkit::RowState RowsModel::stateOf(int row) const {
    if (row < m_view.states.count()) {
        const sql::Value out = m_view.states.at(row, 0);
        const auto* flag = std::get_if<std::int64_t>(&out);
        return flag && *flag != 0 ? toolkit::RowState::Out : toolkit::RowState::InPlay;
    }
    return m_grey.contains(row) ? toolkit::RowState::Out : toolkit::RowState::Plain;
}

QVariant RowsModel::alignment(int column) const {
    const bool left = m_view.columns[static_cast<std::size_t>(column)].isText;
    return QVariant::fromValue(left ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment(Qt::AlignCenter));
}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_view.rows.count());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_view.columns.size());
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole)
        return alignment(index.column());
    if (role == Qt::BackgroundRole)
        return index.column() == 0 && m_grey.contains(index.row()) ? QVariant(QColor(178, 178, 178)) : QVariant();
    if (role == Qt::DisplayRole)
        return QString::fromStdString(m_view.rows.textAt(index.row(), index.column()));
    if (role == toolkit::kCellStyleRole)
        return static_cast<int>(styleOf(index.column()));
    if (role == toolkit::kRowStateRole)
        return static_cast<int>(stateOf(index.row()));
    return role == Qt::UserRole ? valueAt(index) : QVariant();
}

QVariant RowsModel::valueAt(const QModelIndex& index) const {
    const sql::Value value = m_view.rows.at(index.row(), index.column());
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return QVariant::fromValue(static_cast<qlonglong>(*whole));
    return sql::isNull(value) ? QVariant() : QVariant(QString::fromStdString(sql::toText(value)));
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::TextAlignmentRole)
        return alignment(section);
    if (role != Qt::DisplayRole)
        return {};
    return QString::fromStdString(m_view.columns[static_cast<std::size_t>(section)].heading);
}

} // namespace filter
