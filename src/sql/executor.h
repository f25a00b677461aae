// What an executor of bound statements offers: one implementation over SQLite, one over columns in memory.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sql/bind.h"
#include "sql/database.h"
#include "sql/tree.h"

namespace sql {

/// Where the rows of a SELECT come from.
class Rows::Source {
  public:
    virtual ~Source() = default;
    virtual std::int64_t count() const = 0;
    virtual const std::vector<std::string>& columns() const = 0;
    virtual Value at(std::int64_t row, int column) const = 0;
    virtual std::int64_t integerAt(std::int64_t row, int column) const { return toInteger(at(row, column)); }
};

/// What a record set needs of its table: rows by position, and changes at a position.
class Recordset::Backend {
  public:
    virtual ~Backend() = default;
    virtual std::int64_t count() const = 0;
    virtual const std::vector<std::string>& columns() const = 0;
    virtual Value at(std::int64_t row, int column) const = 0;
    /// The changed fields of a row. \throws SqlError kNotUpdatable
    virtual void change(std::int64_t row, const std::vector<std::pair<int, Value>>& fields) = 0;
    /// A new row at the end.
    virtual void append(const std::vector<std::pair<int, Value>>& fields) = 0;
    virtual void remove(std::int64_t row) = 0;
};

/// Puts the former table back when it is destroyed before release().
class TableHold::Backend {
  public:
    virtual ~Backend() = default;
    virtual void release() = 0;
};

class TableExecutor {
  public:
    virtual ~TableExecutor() = default;
    virtual bool hasTable(const std::string& table) const = 0;
    /// \throws SqlError kTableNotFound
    virtual TableShape shape(const std::string& table) const = 0;
    virtual std::int64_t rowCount(const std::string& table) const = 0;
    virtual void execute(Statement& bound) = 0;
    virtual std::shared_ptr<const Rows::Source> query(Select&& bound) = 0;
    virtual std::unique_ptr<Recordset::Backend> openTable(const std::string& table) = 0;
    virtual void appendRows(const std::string& table, const RowBlock& block) = 0;
    virtual void computeColumn(const std::string& table, std::span<const std::string> inputs,
                               const std::string& output, const RowKernel& kernel) = 0;
    virtual void computeColumns(const std::string& table, std::span<const std::string> inputs,
                                std::span<const std::string> outputs, const BatchKernel& kernel) = 0;
    virtual std::unique_ptr<TableHold::Backend> hold(const std::string& table) = 0;
    /// Keeps the values of these columns, as far as the table has them. \throws SqlError kTableNotFound
    virtual std::unique_ptr<TableHold::Backend> holdValues(const std::string& table,
                                                           std::span<const std::string_view> columns) = 0;
};

/// Refuses changes: the record set of a SELECT.
std::unique_ptr<Recordset::Backend> readOnlyBackend(std::shared_ptr<const Rows::Source> rows);

} // namespace sql
