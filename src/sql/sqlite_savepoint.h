// Several SQLite statements as one step.
#pragma once

#include "sql/error.h"
#include "sql/sqlite_file.h"

namespace sql {

/// All or nothing: what was done since is undone unless release() was called.
class Savepoint {
  public:
    explicit Savepoint(SqliteFile& file) : m_file(&file) { m_file->run("SAVEPOINT step"); }
    ~Savepoint() {
        if (!m_file)
            return;
        try {
            m_file->run("ROLLBACK TO step");
            m_file->run("RELEASE step");
        } catch (const SqlError&) {
            // A full disk may have rolled back everything by now, the savepoint too.
        }
    }
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;
    void release() {
        m_file->run("RELEASE step");
        m_file = nullptr;
    }

  private:
    SqliteFile* m_file;
};

} // namespace sql
