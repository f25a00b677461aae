// A SQLite file: connection, prepared statements, and the functions of the dialect that SQLite lacks.
#pragma once

#include <filesystem>
#include <string>

#include "sql/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace sql {

class SqliteFile {
  public:
    /// \param mustExist  otherwise the file is made
    /// \throws SqlError kNotADatabase, kLocked, kPermission, kInputOutput, kStorage
    SqliteFile(const std::filesystem::path& file, bool mustExist);
    ~SqliteFile();
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    /// Runs one SQLite statement (SQLite's own dialect) to its end.
    void run(const std::string& statement);
    /// Whether the system lets this process read the file, but not write it.
    bool isReadOnly() const;
    sqlite3* handle() const { return m_handle; }
    /// \throws SqlError for the connection's last failure
    [[noreturn]] void fail() const;

  private:
    void close();

    sqlite3* m_handle = nullptr;
};

/// Whether a transaction is open; SQLite ends one by itself after some failures.
bool sqliteInTransaction(const SqliteFile& file);

/// A prepared SQLite statement. Places of bind() and column() count from 0.
class SqliteQuery {
  public:
    SqliteQuery(const SqliteFile& file, const std::string& statement);
    ~SqliteQuery();
    SqliteQuery(const SqliteQuery&) = delete;
    SqliteQuery& operator=(const SqliteQuery&) = delete;

    void bind(int place, const Value& value);
    void bindBlob(int place, const void* data, std::size_t size);
    /// Advances to the next row. \return whether there is one
    bool step();
    void run();   ///< step() to the end, then reset()
    void reset(); ///< ready to be bound and stepped again
    Value column(int place) const;
    std::int64_t integer(int place) const;
    std::string_view blob(int place) const;
    int columnCount() const;

  private:
    const SqliteFile* m_file;
    sqlite3_stmt* m_statement = nullptr;
};

} // namespace sql
