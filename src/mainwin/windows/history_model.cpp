#include "mainwin/windows/history_model.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace mainwin {

HistoryModel::HistoryModel(const history::History& history, QObject* parent)
    : QAbstractTableModel(parent), m_history(history), m_rows(history.Lsnum), m_firstTyped(m_rows) {
    m_newest.setBold(true);
}

void HistoryModel::reload() {
    beginResetModel();
    m_rows = m_history.Lsnum;
    m_firstTyped = m_rows;
    endResetModel();
}

void HistoryModel::appendTyped() {
    beginInsertRows({}, m_rows, m_rows);
    ++m_rows;
    endInsertRows();
    showNewest(m_rows - 1); // no longer in bold
}

void HistoryModel::removeLast() {
    beginRemoveRows({}, m_rows - 1, m_rows - 1);
    --m_rows;
    m_firstTyped = std::min(m_firstTyped, m_rows);
    endRemoveRows();
    showNewest(m_rows);
}

/// \param draw  0: none
void HistoryModel::showNewest(int draw) {
    if (draw > 0)
        emit dataChanged(index(draw - 1, FirstRed), index(draw - 1, Blue), {Qt::FontRole});
}

void HistoryModel::changed(int draw) {
    emit dataChanged(index(draw - 1, 0), index(m_rows - 1, ColumnCount - 1));
}

void HistoryModel::setColours(const QColor& rowNumber, const QColor& red, const QColor& blue) {
    m_rowNumber = rowNumber;
    m_red = red;
    m_blue = blue;
}

int HistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}
int HistoryModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

int HistoryModel::value(int row, int column) const {
    if (column == RowNumber)
        return row + 1;
    // Columns 1..8 are the slots 0..7 of a draw.
    return m_history.Lshm[static_cast<std::size_t>(row) + 1][static_cast<std::size_t>(column - Issue)];
}

QString HistoryModel::text(int row, int column) const {
    const int number = value(row, column);
    if (column == RowNumber && row >= m_firstTyped)
        return u"%1期"_s.arg(number);
    return column >= FirstRed ? u"%1"_s.arg(number, 2, 10, QChar(u'0')) : QString::number(number);
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= m_rows)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), index.column());
    case Qt::UserRole:
        return value(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return Qt::AlignCenter;
    case Qt::FontRole:
        return index.row() == m_rows - 1 && index.column() >= FirstRed ? QVariant(m_newest) : QVariant();
    case Qt::ForegroundRole:
        if (index.column() == RowNumber)
            return m_rowNumber;
        if (index.column() == Blue)
            return m_blue;
        return index.column() >= FirstRed ? QVariant(m_red) : QVariant();
    default:
        return {};
    }
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return {};
    if (section == RowNumber)
        return u"序数"_s;
    if (section == Issue)
        return u"期号"_s;
    return section == Blue ? u"蓝球"_s : u"红%1"_s.arg(section - FirstRed + 1);
}

} // namespace mainwin
