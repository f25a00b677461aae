// The executor over columns in memory.
#pragma once

#include "sql/executor.h"
#include "sql/sqlite_file.h"

namespace sql {

class ColumnExecutor final : public TableExecutor {
  public:
    ColumnExecutor(std::shared_ptr<SqliteFile> file, std::size_t batchRows, std::size_t textBytes);
    ~ColumnExecutor() override;

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

    /// Writes what changed to the file in one transaction. \throws SqlError; then all that was pending still is
    void store();
    bool storePending() const;
    /// Results of expressions that were worked one by one since the file was opened, for entries of tables of results
    /// and distinct operands. It does not grow with the rows of a table.
    std::int64_t evaluations() const;

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace sql
