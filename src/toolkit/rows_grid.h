// Grids over record sets: columns as data, any rows behind an interface, and the widths that go with both.
//
// RowsModel shows columns and a RowSource; it keeps no row, so that 17.7 million cost nothing, and a source is free
// to read its rows when they come into sight. DisplayRole is the text, UserRole the bare value, the looks stand in
// the roles of grid_cell.h. RowsGrid gives each column the width that it asks for and at least that of its heading: a
// last column of text takes what is left, a last number gives way; a width that the user has dragged stays from view
// to view. To show something new write a RowSource, or take RecordRows for the rows of a SELECT.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include <QAbstractTableModel>

#include "sql/database.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_cell.h"

namespace toolkit {

/// Widths are in pixels at scale 1.
struct GridColumn {
    QString heading;
    CellStyle style = CellStyle::Plain;
    int width = 0;  ///< at least the heading's
    int narrow = 0; ///< instead, in a grid that is not roomy; 0: the same
    int least = 0;  ///< of a last number, that it gives way to
    int mark = 0;   ///< beside that, for the marks of rows
    int digits = 1; ///< of a whole number at least, with zeros before it
};

class RowSource {
  public:
    virtual ~RowSource() = default;
    virtual std::int64_t count() const = 0;
    virtual QString text(std::int64_t row, int column) const = 0;
    /// A number where the cell holds one. Here: the text.
    virtual QVariant value(std::int64_t row, int column) const { return text(row, column); }
    virtual RowState state(std::int64_t) const { return RowState::Plain; }
    /// What a single cell has of its own: FontRole, ForegroundRole, BackgroundRole. Here: nothing.
    virtual QVariant look(std::int64_t /*row*/, int /*column*/, int /*role*/) const { return {}; }
};

/// The rows of a SELECT.
class RecordRows : public RowSource {
  public:
    explicit RecordRows(sql::Rows rows) : m_rows(std::move(rows)) {}
    std::int64_t count() const override { return m_rows.count(); }
    QString text(std::int64_t row, int column) const override;
    QVariant value(std::int64_t row, int column) const override;

  private:
    sql::Rows m_rows;
};

class RowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows other columns and rows.
    void show(std::vector<GridColumn> columns, std::unique_ptr<RowSource> rows);
    const std::vector<GridColumn>& columns() const { return m_columns; }

    /// The source has changed: altogether, or by rows behind the others, or in some rows.
    void reload();
    void rowsAppended(int rows);
    /// \param rows  so many of the last ones are gone
    void rowsRemoved(int rows);
    void rowsChanged(int first, int last);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    int countOfSource() const;

    std::vector<GridColumn> m_columns;
    std::unique_ptr<RowSource> m_rows;
    int m_count = 0; ///< that views know of
};

class RowsGrid : public DataGrid {
    Q_OBJECT

  public:
    explicit RowsGrid(QWidget* parent = nullptr);

    /// In a wide grid every column grows evenly, up to `most` times its width. 1 at first: none grows.
    void growColumns(double most);

    /// \param model  a RowsModel: others have no widths to tell
    void setModel(QAbstractItemModel* model) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void fitColumns();
    int headingWidth(const GridColumn& column) const;
    int wishedWidth(const GridColumn& column) const;
    int lastWidth(const GridColumn& column, int room) const;
    double growth(int room) const;

    std::map<int, int> m_dragged; ///< widths by column
    double m_growth = 1;          ///< most
    bool m_fitting = false;       ///< widths change, and not by the user
};

} // namespace toolkit
