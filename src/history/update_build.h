// A user's history database made by the program itself: a new template, and the records of a checked history.
//
// So no page that came from elsewhere gets into a user's folder. It is built in a folder for the time being, which
// goes with the object.
#pragma once

#include <filesystem>

#include <QTemporaryDir>

#include "sql/database.h"

namespace history {

struct HistoryTables;

class NewHistory {
  public:
    /// The empty template. \throws workspace::Failure, sql::SqlError
    explicit NewHistory(sql::Engine& engine);

    void fill(const HistoryTables& history);
    /// The file, closed.
    const std::filesystem::path& file() const { return m_file; }

  private:
    sql::Engine& m_engine;
    QTemporaryDir m_folder;
    std::filesystem::path m_file;
};

} // namespace history
