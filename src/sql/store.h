// One open database file: the SQLite connection, the executors over it, and the choice between them.
//
// All handles of one process on one file share one store; the last one to go writes what is still pending.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "sql/database.h"
#include "sql/executor.h"
#include "sql/sqlite_file.h"

namespace sql {

class ColumnExecutor;

class Store {
  public:
    /// \throws SqlError kNotADatabase, kStorage
    Store(std::filesystem::path file, const EngineOptions& options, bool mustExist);
    ~Store();

    const std::filesystem::path& path() const { return m_path; }

    void execute(std::string_view statement);
    std::shared_ptr<const Rows::Source> query(std::string_view select);
    std::unique_ptr<Recordset::Backend> open(std::string_view tableOrSelect);
    /// The executor that keeps a table, whether it exists or not.
    TableExecutor& keeperOf(std::string_view table);
    const TableExecutor& keeperOf(std::string_view table) const;

    void begin();
    void commit();
    void rollback();

    bool isReadOnly() const { return m_file->isReadOnly(); }
    void store();
    bool storePending() const;
    std::int64_t evaluations() const;

  private:
    TableExecutor& executorOf(const Statement& statement);
    Statement parsed(std::string_view text);

    std::filesystem::path m_path;
    std::shared_ptr<SqliteFile> m_file;
    std::unique_ptr<TableExecutor> m_ordinary;
    std::unique_ptr<ColumnExecutor> m_columns; ///< null when SQLite keeps all tables
    int m_transactionDepth = 0;
};

} // namespace sql
