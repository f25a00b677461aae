#include "toolkit/rows_grid.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QHeaderView>
#include <QScrollBar>

namespace toolkit {

namespace {

constexpr int kHeadingPadding = 10; // pixels left and right of a heading, together
constexpr int kRowHeight = 22;
constexpr int kRoomy = 800; // width of a grid from which columns are as wide as they wish

QVariant alignmentOf(const GridColumn& column) {
    const bool left = column.style == CellStyle::Text;
    return QVariant::fromValue(left ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment(Qt::AlignCenter));
}

} // namespace

QString RecordRows::text(std::int64_t row, int column) const {
    return QString::fromStdString(m_rows.textAt(row, column));
}

QVariant RecordRows::value(std::int64_t row, int column) const {
    const sql::Value value = m_rows.at(row, column);
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return QVariant::fromValue(static_cast<qlonglong>(*whole));
    if (const auto* real = std::get_if<double>(&value))
        return *real;
    return sql::isNull(value) ? QVariant() : QVariant(QString::fromStdString(sql::toText(value)));
}

void RowsModel::show(std::vector<GridColumn> columns, std::unique_ptr<RowSource> rows) {
    beginResetModel();
    m_columns = std::move(columns);
    m_rows = std::move(rows);
    m_count = countOfSource();
    endResetModel();
}

int RowsModel::countOfSource() const {
    constexpr std::int64_t kMost = std::numeric_limits<int>::max();
    return m_rows ? static_cast<int>(std::min(m_rows->count(), kMost)) : 0;
}

void RowsModel::reload() {
    beginResetModel();
    m_count = countOfSource();
    endResetModel();
}

void RowsModel::rowsAppended(int rows) {
    beginInsertRows({}, m_count, m_count + rows - 1);
    m_count += rows;
    endInsertRows();
}

void RowsModel::rowsRemoved(int rows) {
    beginRemoveRows({}, m_count - rows, m_count - 1);
    m_count -= rows;
    endRemoveRows();
}

void RowsModel::rowsChanged(int first, int last) {
    emit dataChanged(index(first, 0), index(last, columnCount() - 1));
}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_count;
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= m_count)
        return {};
    const GridColumn& column = m_columns[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return m_rows->text(index.row(), index.column());
    case Qt::UserRole:
        return m_rows->value(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return alignmentOf(column);
    case kCellStyleRole:
        return static_cast<int>(column.style);
    case kDigitsRole:
        return column.digits;
    case kRowStateRole:
        return static_cast<int>(m_rows->state(index.row()));
    default:
        return m_rows->look(index.row(), index.column(), role);
    }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const GridColumn& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(column);
    return role == Qt::DisplayRole ? QVariant(column.heading) : QVariant();
}

RowsGrid::RowsGrid(QWidget* parent) : DataGrid(parent) {
    verticalHeader()->setDefaultSectionSize(std::max(kRowHeight, fontMetrics().height() + 2));
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!m_fitting)
            m_dragged[column] = width;
    });
}

void RowsGrid::setModel(QAbstractItemModel* model) {
    m_fitting = true;
    DataGrid::setModel(model);
    m_fitting = false;
    if (!model)
        return;
    // The header resizes columns of its own when their count changes.
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_fitting = true; });
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
        m_fitting = false;
        fitColumns();
    });
    fitColumns();
}

int RowsGrid::headingWidth(const GridColumn& column) const {
    return horizontalHeader()->fontMetrics().horizontalAdvance(column.heading) + kHeadingPadding;
}

int RowsGrid::wishedWidth(const GridColumn& column) const {
    const int told = column.narrow > 0 && width() < kRoomy ? column.narrow : column.width;
    return std::max(told, headingWidth(column)) + column.mark;
}

// A text takes what is left, a number gives way to what the columns before it need.
int RowsGrid::lastWidth(const GridColumn& column, int room) const {
    const int wished = wishedWidth(column);
    if (column.style == CellStyle::Text)
        return std::max(wished, room);
    return std::min(wished, std::max({room, headingWidth(column), column.least}));
}

void RowsGrid::growColumns(double most) {
    m_growth = most;
    fitColumns();
}

/// How many times its wished width a column has.
double RowsGrid::growth(int room) const {
    int wished = 0;
    for (const GridColumn& column : static_cast<const RowsModel*>(model())->columns())
        wished += wishedWidth(column);
    return wished > 0 ? std::clamp(static_cast<double>(room) / wished, 1.0, m_growth) : 1;
}

void RowsGrid::fitColumns() {
    const auto* rows = qobject_cast<const RowsModel*>(model());
    if (!rows)
        return;
    const bool before = std::exchange(m_fitting, true);
    int room = width() - verticalScrollBar()->sizeHint().width();
    const int last = rows->columnCount() - 1;
    const double grown = growth(room);
    for (int column = 0; column <= last; ++column) {
        const GridColumn& told = rows->columns()[static_cast<std::size_t>(column)];
        const auto dragged = m_dragged.find(column);
        const int fitted = dragged != m_dragged.end()     ? dragged->second
                           : column == last && grown == 1 ? lastWidth(told, room)
                                                          : static_cast<int>(wishedWidth(told) * grown);
        setColumnWidth(column, fitted);
        room -= fitted;
    }
    m_fitting = before;
}

void RowsGrid::resizeEvent(QResizeEvent* event) {
    DataGrid::resizeEvent(event);
    fitColumns();
}

} // namespace toolkit
