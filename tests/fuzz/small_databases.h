// Small databases as bytes, and a scratch file to put them in.
#pragma once

#include <filesystem>
#include <string>

#include "sql/database.h"

namespace fuzz {

/// A folder in memory where the machine has one: a fuzzer opens files thousands of times a second.
class FastFolder {
  public:
    FastFolder();
    ~FastFolder();
    FastFolder(const FastFolder&) = delete;
    FastFolder& operator=(const FastFolder&) = delete;
    const std::filesystem::path& path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

std::string readFile(const std::filesystem::path& file);
/// Replaces a database file and removes what an earlier one left beside it.
void putDatabase(const std::filesystem::path& file, std::string_view bytes);

/// Tables zuhe and zuheR with all types, Nulls and repeated texts: 70 rows each, kept by this executor.
std::string smallTables(sql::Executor executor);

/// zuhe (70 rows) and Tmp (40 rows) beside an ordinary fig and Gailv.
std::string smallWorkspace();
/// The same with 66,000 rows in Tmp: two chunks a column.
std::string workspaceOfTwoChunks();

} // namespace fuzz
