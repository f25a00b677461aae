// The executor over SQLite: ordinary tables always, combination tables where it serves as the oracle.
//
// A bound statement is printed in SQLite's dialect: comparisons become -(a = b), so that truth is -1; what SQLite
// lacks are functions of SqliteFile. A SELECT keeps only the places of its rows and reads a row when it is asked for.
#pragma once

#include "sql/executor.h"
#include "sql/sqlite_file.h"

namespace sql {

class SqliteExecutor final : public TableExecutor {
  public:
    explicit SqliteExecutor(std::shared_ptr<SqliteFile> file) : m_file(std::move(file)) {}

    bool hasTable(const std::string& table) const override;
    TableShape shape(const std::string& table) const override;
    std::int64_t rowCount(const std::string& table) const override;
    void execute(Statement& bound) override;
    std::shared_ptr<const Rows::Source> query(Select&& bound) override;
    std::unique_ptr<Recordset::Backend> openTable(const std::string& table) override;
    void appendRows(const std::string& table, const RowBlock& block) override;
    void computeColumn(const std::string& table, std::span<const std::string> inputs, const std::string& output,
                       const RowKernel& kernel) override;
    void computeColumns(const std::string& table, std::span<const std::string> inputs,
                        std::span<const std::string> outputs, const BatchKernel& kernel) override;
    std::unique_ptr<TableHold::Backend> hold(const std::string& table) override;
    std::unique_ptr<TableHold::Backend> holdValues(const std::string& table,
                                                   std::span<const std::string_view> columns) override;

  private:
    void create(const std::string& table, const std::vector<ColumnDef>& columns);
    void dropColumn(const Statement& bound);
    void insert(const Statement& bound);
    void assign(const Statement& bound); ///< Update, InsertValues
    void selectInto(const Select& select);
    void requireNew(const std::string& table) const;

    std::shared_ptr<SqliteFile> m_file;
};

} // namespace sql
